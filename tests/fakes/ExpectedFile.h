// Results as long as a page, compared with a file in tests/data. Where a change of it is wanted, run the test
// with KORVEL_ACCEPT=1, which writes the file anew, and look at the difference before it is committed.
#pragma once

#include "drawing/Drawing.h"

#include <string>

namespace korvel {

// One line for each command, places with four decimals:
//   text x y width height Arial 8 bold "words"
//   line x y x y pen 2
std::string textOf(const Drawing& drawing);

// `name` within tests/data.
void expectSameAsFile(const std::string& text, const std::string& name);

} // namespace korvel
