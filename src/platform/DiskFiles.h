// Files on this machine's disk.
#pragma once

#include "platform/Files.h"

namespace korvel {

class DiskFiles : public Files {
  public:
    std::unique_ptr<ByteSource> open(const std::string& name) override;
    std::unique_ptr<NewFile> create(const std::string& name) override;
    bool exists(const std::string& name) override;
    bool areOne(const std::string& name, const std::string& other) override;
    void remove(const std::string& name) override;
    std::vector<std::string> filesIn(const std::string& folder) override;
    std::string currentFolder() override;
    void setCurrentFolder(const std::string& folder) override;
};

} // namespace korvel
