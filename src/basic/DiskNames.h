// Where a model name lies on this machine. The front end and the demonstration engine use this rule alone, so
// that both find the same file: component by component the exact spelling first, else the first in byte order
// that differs in case only, else as it stands.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

// The host path of a model name. A name that doesn't begin with drive Z: names no file of this machine and is
// returned as it stands.
std::string hostPathOf(std::string_view modelName);

enum class NameUse { asChosen, inUpperCase };

// Why a host path that the user chose can't be held as a model name, or nothing: it holds a backslash or a
// line end, or the rule would not find it again (a twin that differs in case only).
std::optional<std::string> whyNotAModelName(std::string_view hostPath, NameUse use);

} // namespace korvel
