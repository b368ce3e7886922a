// Files and folders by model name. Every failure is a RunTimeError: 53 not found, 55 already open, 57 device
// error, 61 disk full, 70 permission denied, 75 path/file access error, 76 path not found.
#pragma once

#include "basic/ByteSource.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

// A file that replaces another whole: what is written goes to a file beside it, which takes the name on
// commit(). Without a commit the old file stays and nothing is left behind.
class NewFile {
  public:
    virtual ~NewFile() = default;
    virtual void write(std::string_view bytes) = 0;
    virtual void commit() = 0;
    // In place of write(): a host path under which a library may write the file itself, until commit(). Only
    // files on a disk have one; others throw.
    virtual std::string hostPath();
};

class Files {
  public:
    virtual ~Files() = default;
    virtual std::unique_ptr<ByteSource> open(const std::string& name) = 0;
    // 70 before anything else where the target is there and can't be written, or a spreadsheet program
    // holds it (".~lock.NAME#" beside it).
    virtual std::unique_ptr<NewFile> create(const std::string& name) = 0;
    // A folder is no file.
    virtual bool exists(const std::string& name) = 0;
    // Whether both names lead to one thing that is there, by whatever spelling or link.
    virtual bool areOne(const std::string& name, const std::string& other) = 0;
    virtual void remove(const std::string& name) = 0;
    // Names of the files (not folders) in the order in which the file system gives them.
    virtual std::vector<std::string> filesIn(const std::string& folder) = 0;
    virtual std::string currentFolder() = 0; // a model name without a backslash at the end, but for the root
    virtual void setCurrentFolder(const std::string& folder) = 0;

    std::string readAll(const std::string& name);
    void writeWhole(const std::string& name, std::string_view bytes);
};

} // namespace korvel
