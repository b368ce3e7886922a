// The page's Content-Security-Policy: nothing is loaded from anywhere, and of scripts and styles only those
// run that the page was written with.
#pragma once

#include <string>
#include <string_view>

namespace korvel {

// "sha256-" and the sum in base 64, as policies name a script or a style by its text.
std::string policySource(std::string_view text);

std::string pagePolicy(std::string_view script, std::string_view style);

} // namespace korvel
