// The demonstration engine: takes no arguments and finds RUNDAT.TMP in the current folder.
#include "engine/EngineRun.h"

#include <iostream>

int main() {
    return korvel::engine::runEngine(".", std::cout);
}
