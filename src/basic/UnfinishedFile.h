// A file that is being made. Until it is whole it has no name at all, where the file system makes such
// files, or a private one beside its target; then it replaces the target in one step. Whatever was left
// behind by a program that was killed is cleared away by the next one that writes in the folder. Host paths.
#pragma once

#include "basic/Descriptor.h"

#include <string>
#include <string_view>

namespace korvel {

class UnfinishedFile {
  public:
    // What failed is in errno: isOpen() is false, and all below return false.
    explicit UnfinishedFile(std::string target);
    UnfinishedFile(UnfinishedFile&& other) noexcept = default;
    ~UnfinishedFile(); // leaves nothing behind

    bool isOpen() const { return m_file.isOpen(); }
    bool write(std::string_view bytes);
    // What is written so far starts on its way to the disk, so that finish() has less to wait for.
    void start() const;
    // No more is to come: everything is on the disk, with the owner and the rights of the file that it
    // replaces.
    bool finish();
    // Replaces the target. After finish().
    bool takeName();
    // The new name, and those that others took in the same folder before, outlast a power cut.
    void settleName() const;

    // Gives it its private name before, for a library that needs one.
    bool takePrivateName() { return !m_name.empty() || linkBeside(); }
    const std::string& privateName() const { return m_name; } // "" while it has none

    const std::string& target() const { return m_target; }

  private:
    void createNamed(const std::string& pattern);
    bool takeOverOwnerAndMode() const;
    bool linkBeside();

    std::string m_target;
    std::string m_name; // "" while it has none
    Descriptor m_file;
};

} // namespace korvel
