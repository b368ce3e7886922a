// Where a model name lies on this machine. The front end and the demonstration engine use this rule alone, so
// that both find the same file: component by component the exact spelling first, else the first in byte order
// that differs in case only, else as it stands.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace korvel {

// The host path of a model name. A name that doesn't begin with drive Z: names no file of this machine and is
// returned as it stands.
std::string hostPathOf(std::string_view modelName);

// The name in this folder (a host path without a slash at the end, "" for the root) that the rule finds for
// one component; the component as it stands where there is none.
std::string spellingOnDisk(const std::string& folder, const std::string& component);

// The same for thousands of names at one moment: looks at each folder once, and remembers.
class KnownFolders {
  public:
    const std::string& spellingOnDisk(const std::string& folder, const std::string& component);

  private:
    using Twins = std::unordered_map<std::string, std::string>; // by upper case: the first in byte order

    const Twins& twinsIn(const std::string& folder);

    std::unordered_map<std::string, std::string> m_spellings; // by path
    std::unordered_map<std::string, Twins> m_twins;           // by folder
};

enum class NameUse { asChosen, inUpperCase };

// Why a host path that the user chose can't be held as a model name, or nothing: it holds a backslash or a
// line end, or the rule would not find it again (a twin that differs in case only).
std::optional<std::string> whyNotAModelName(std::string_view hostPath, NameUse use);
std::optional<std::string> whyNotAModelName(std::string_view hostPath, NameUse use, KnownFolders& known);

} // namespace korvel
