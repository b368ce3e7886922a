#include "tables/Database.h"

#include "basic/RunTimeError.h"
#include "fakes/FakePlatform.h"
#include "tables/SqliteLibrary.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

namespace korvel {

namespace {

constexpr std::array<const char*, 1> tables = {"things"};
const DatabaseKind kind = {"database of things", 42, 7, "CREATE TABLE things (name TEXT, size REAL)", tables};

class Databases : public testing::Test {
  protected:
    // Adds a row.
    static DatabaseContent adding(const std::string& name, const Cell& size = 1.5) {
        return {&kind, [name, size](Database& database, const Writing& writing) {
                    database.statement("INSERT INTO things VALUES (?, ?)")
                        .run(std::array<Cell, 2>{std::string_view(name), size});
                    tellShare(writing, 1);
                }};
    }
    void write(const DatabaseContent& content, const Writing& writing = {}) {
        writeDatabase(content, writing, fake.platform().files, fake.pathOf("d.sqlite"));
    }
    // The answers' first column, joined.
    std::string ask(const std::string& sql) const {
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
        std::string answers;
        const auto add = [](void* to, int, char** values, char**) {
            *static_cast<std::string*>(to) += std::string(values[0] ? values[0] : "NULL") + ";";
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), add, &answers, nullptr), SQLITE_OK) << sql;
        sqlite3_close(database);
        return answers;
    }
    void expectRefused(const std::string& words) {
        const std::string before = fake.fileText("d.sqlite");
        try {
            write(adding("new"));
            ADD_FAILURE() << "it was written";
        } catch (const TableRefused& refused) {
            EXPECT_EQ(refused.what(), "d.sqlite " + words + "; it stays as it is.");
        }
        EXPECT_TRUE(fake.fileText("d.sqlite") == before);
    }
    std::size_t filesInFolder() const {
        const std::filesystem::directory_iterator files(std::filesystem::path(path).parent_path());
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    FakePlatform fake;
    std::string path = hostPathOf(fake.pathOf("d.sqlite"));
    std::size_t filesAtStart = filesInFolder();
};

} // namespace

TEST_F(Databases, AreMadeWholeAndThenAddedTo) {
    write(adding("first"));
    EXPECT_EQ(ask("SELECT name FROM things"), "first;");
    write(adding("second"));
    EXPECT_EQ(ask("SELECT name FROM things"), "first;second;");
    EXPECT_EQ(ask("PRAGMA integrity_check"), "ok;");
    EXPECT_EQ(ask("PRAGMA journal_mode"), "delete;");
    EXPECT_EQ(ask("PRAGMA application_id"), "42;");
    EXPECT_EQ(filesInFolder(), filesAtStart + 1);
}

TEST_F(Databases, HoldCellsOfEveryKind) {
    write(adding("\xC9tang \xE2\x82\xAC"));
    write(adding("", Nothing()));
    write(adding("=1", 7));
    write(adding("x", true));
    write(adding("beyond", std::numeric_limits<double>::infinity()));
    EXPECT_EQ(ask("SELECT size FROM things"), "1.5;NULL;7.0;1.0;NULL;");
    EXPECT_EQ(ask("SELECT typeof(name) FROM things"), "text;text;text;text;text;");
    EXPECT_EQ(ask("SELECT name FROM things WHERE name LIKE '=%'"), "=1;");
}

TEST_F(Databases, ReplaceAnEmptyFile) {
    fake.putFile("d.sqlite", "");
    write(adding("first"));
    EXPECT_EQ(ask("SELECT name FROM things"), "first;");
}

// As one of a database of that name would be that was killed and thrown away.
TEST_F(Databases, DontTakeAnotherOnesJournal) {
    fake.putFile("d.sqlite-journal", "something");
    write(adding("first"));
    EXPECT_EQ(ask("SELECT name FROM things"), "first;");
    EXPECT_EQ(filesInFolder(), filesAtStart + 1);
}

TEST_F(Databases, RefuseFilesOfOthersUntouched) {
    fake.putFile("d.sqlite", "just text");
    expectRefused("is no database of things");
    fake.putFile("d.sqlite", std::string("SQLite format 3\0", 16) + std::string(4080, 'x'));
    expectRefused("is no database of things");
}

TEST_F(Databases, RefuseDatabasesOfOtherVersionsAndWithoutTheirTables) {
    const DatabaseKind other = {"", 42, 8, "CREATE TABLE things (name)", tables};
    write({&other, [](Database&, const Writing&) {}});
    expectRefused("was made by another version of this program");
    std::filesystem::remove(path);
    const DatabaseKind lacking = {"", 42, 7, "CREATE TABLE other (name)", tables};
    write({&lacking, [](Database&, const Writing&) {}});
    expectRefused("lacks the table things");
}

TEST_F(Databases, StayAsTheyWereWhereWritingStops) {
    const Writing stopped{{}, [](double) { return false; }};
    EXPECT_THROW(write(adding("first"), stopped), WritingStopped);
    EXPECT_EQ(filesInFolder(), filesAtStart);
    write(adding("first"));
    EXPECT_THROW(write(adding("second"), stopped), WritingStopped);
    EXPECT_EQ(ask("SELECT name FROM things"), "first;");
    EXPECT_EQ(filesInFolder(), filesAtStart + 1);
}

TEST_F(Databases, StayAsTheyWereWhereAFailureComesBetween) {
    write(adding("first"));
    const DatabaseContent failing = {&kind, [](Database& database, const Writing&) {
                                         database.statement("DELETE FROM things").run({});
                                         throw RunTimeError(errors::deviceIoError);
                                     }};
    EXPECT_THROW(write(failing), RunTimeError);
    EXPECT_EQ(ask("SELECT name FROM things"), "first;");
}

TEST(Database, NeedsALibrary) {
    try {
        const SqliteLibrary library("libnobodyhas.so.1");
        ADD_FAILURE() << "it was found";
    } catch (const TableRefused& refused) {
        EXPECT_STREQ(
            refused.what(),
            "The library that writes databases can't be loaded (libnobodyhas.so.1: cannot open shared "
            "object file: No such file or directory). Install libsqlite3, or write a CSV file.");
    }
}

TEST_F(Databases, AreNoFolders) {
    std::filesystem::create_directory(path);
    EXPECT_THROW(write(adding("first")), RunTimeError);
    EXPECT_EQ(filesInFolder(), filesAtStart + 1);
}

} // namespace korvel
