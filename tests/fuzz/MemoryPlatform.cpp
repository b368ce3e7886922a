#include "fuzz/MemoryPlatform.h"

namespace korvel {

class MemoryPlatform::CountedFile : public NewFile {
  public:
    explicit CountedFile(int& committed) : m_committed(committed) {}
    void write(std::string_view) override {}
    void commit() override { ++m_committed; }

  private:
    int& m_committed;
};

class MemoryPlatform::CountedJob : public PrintJob {
  public:
    explicit CountedJob(int& committed) : m_committed(committed) {}
    void page(const Drawing&) override {}
    std::string finish() override {
        ++m_committed;
        return "";
    }
    std::string file() const override { return ""; }

  private:
    int& m_committed;
};

MemoryPlatform::MemoryPlatform(std::string river)
    : m_river(std::move(river)), m_platform{*this, *this, *this, *this, *this, m_metrics} {}

std::unique_ptr<ByteSource> MemoryPlatform::open(const std::string& name) {
    if (!name.ends_with(".SGR")) throw RunTimeError(errors::fileNotFound);
    return std::make_unique<TextSource>(m_river);
}

std::unique_ptr<NewFile> MemoryPlatform::create(const std::string&) {
    return std::make_unique<CountedFile>(m_committed);
}

std::unique_ptr<PrintJob> MemoryPlatform::begin(const PrintRequest&) {
    return std::make_unique<CountedJob>(m_committed);
}

} // namespace korvel
