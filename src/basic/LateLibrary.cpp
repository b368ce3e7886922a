#include "basic/LateLibrary.h"

#include <dlfcn.h>

namespace korvel {

LateLibrary::LateLibrary(const char* fileName) : m_library(dlopen(fileName, RTLD_NOW | RTLD_LOCAL)) {
    if (m_library == nullptr) m_failure = dlerror();
}

void* LateLibrary::address(const char* name) {
    if (m_library == nullptr) return nullptr;
    void* const found = dlsym(m_library, name);
    if (found == nullptr && m_failure.empty()) m_failure = dlerror();
    return found;
}

} // namespace korvel
