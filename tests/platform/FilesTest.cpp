#include "platform/Files.h"

#include "basic/RunTimeError.h"

#include <gtest/gtest.h>
#include <map>

namespace korvel {

namespace {

// Files in memory, read a few bytes at a time.
class FilesInMemory : public Files {
  public:
    class Trickle : public TextSource {
      public:
        using TextSource::TextSource;
        std::size_t read(char* into, std::size_t capacity) override {
            return TextSource::read(into, std::min<std::size_t>(capacity, 3));
        }
    };
    class Entry : public NewFile {
      public:
        explicit Entry(std::string& target) : m_target(target) {}
        void write(std::string_view bytes) override { m_text.append(bytes); }
        void commit() override { m_target = m_text; }

      private:
        std::string& m_target;
        std::string m_text;
    };

    std::unique_ptr<ByteSource> open(const std::string& name) override {
        if (!exists(name)) throw RunTimeError(errors::fileNotFound);
        return std::make_unique<Trickle>(texts[name]);
    }
    std::unique_ptr<NewFile> create(const std::string& name) override {
        return std::make_unique<Entry>(texts[name]);
    }
    bool exists(const std::string& name) override { return texts.contains(name); }
    bool areOne(const std::string& name, const std::string& other) override { return name == other; }
    void remove(const std::string& name) override { texts.erase(name); }
    std::vector<std::string> filesIn(const std::string&) override { return {}; }
    std::string currentFolder() override { return "Z:\\"; }
    void setCurrentFolder(const std::string&) override {}

    std::map<std::string, std::string> texts;
};

TEST(Files, ReadsAllOfAFileThatComesInPieces) {
    FilesInMemory files;
    files.texts["Z:\\A"] = "0123456789";
    files.texts["Z:\\EMPTY"] = "";
    EXPECT_EQ(files.readAll("Z:\\A"), "0123456789");
    EXPECT_EQ(files.readAll("Z:\\EMPTY"), "");
    EXPECT_THROW(files.readAll("Z:\\B"), RunTimeError);
}

TEST(Files, WritesAndCommitsWhole) {
    FilesInMemory files;
    files.texts["Z:\\A"] = "old and longer";
    files.writeWhole("Z:\\A", "new");
    EXPECT_EQ(files.texts["Z:\\A"], "new");
}

} // namespace

} // namespace korvel
