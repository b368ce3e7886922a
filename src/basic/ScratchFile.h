// A file without a name, for what is too large for memory and is gone with the program. Host paths.
#pragma once

#include "basic/Descriptor.h"

#include <functional>
#include <string>
#include <string_view>

namespace korvel {

// Where such files lie: $TMPDIR, else the folder for large temporary files.
std::string scratchFolder();

class ScratchFile {
  public:
    // Throws RunTimeError where there is no room for it.
    explicit ScratchFile(const std::string& folder);

    // Another library may write the file under this path, for as long as this object lives.
    std::string path() const;
    // Room on the disk for so many bytes; RunTimeError where there is none.
    void reserve(std::size_t bytes) const;
    int descriptor() const { return m_file.number(); }
    // All of it, part by part.
    void read(const std::function<void(std::string_view)>& take) const;

  private:
    Descriptor m_file;
};

} // namespace korvel
