#include "tables/Database.h"

#include "basic/DiskNames.h"
#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "tables/SqliteLibrary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>

namespace korvel {

namespace {

constexpr int waitForOthers = 10000; // milliseconds

[[noreturn]] void fail(int code) {
    switch (code & 0xFF) {
    case SQLITE_FULL: throw RunTimeError(errors::diskFull);
    case SQLITE_NOMEM: throw RunTimeError(errors::outOfMemory);
    case SQLITE_BUSY:
    case SQLITE_LOCKED: throw RunTimeError(errors::fileAlreadyOpen);
    case SQLITE_READONLY:
    case SQLITE_PERM: throw RunTimeError(errors::permissionDenied);
    case SQLITE_CANTOPEN: throw RunTimeError(errors::pathFileAccessError);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: throw TableRefused("The database is damaged; nothing was written.");
    case SQLITE_IOERR: throw RunTimeError(errors::deviceIoError);
    default: throw RunTimeError(errors::invalidProcedureCall, sqlite().sqlite3_errstr(code));
    }
}

void check(int code) {
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE) fail(code);
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

Database::Database(const std::string& path) : m_database(nullptr, sqlite().sqlite3_close) {
    sqlite3* opened = nullptr;
    const int code = sqlite().sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    m_database.reset(opened);
    check(code);
    sqlite().sqlite3_busy_timeout(opened, waitForOthers);
    execute("PRAGMA cache_size = -65536"); // KiB
}

void Database::execute(const char* sql) {
    check(sqlite().sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr));
}

std::int64_t Database::lastId() const {
    return sqlite().sqlite3_last_insert_rowid(m_database.get());
}

Database::Statement::Statement(sqlite3* database, const char* sql)
    : m_statement(nullptr, sqlite().sqlite3_finalize) {
    sqlite3_stmt* made = nullptr;
    const int code =
        sqlite().sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr);
    m_statement.reset(made);
    check(code);
}

std::optional<std::int64_t> Database::Statement::run(std::span<const Cell> values) {
    sqlite3_stmt* const statement = m_statement.get();
    for (std::size_t k = 0; k < values.size(); ++k)
        bind(static_cast<int>(k) + 1, values[k]);
    const int code = sqlite().sqlite3_step(statement);
    std::optional<std::int64_t> number;
    if (code == SQLITE_ROW) number = sqlite().sqlite3_column_int64(statement, 0);
    sqlite().sqlite3_reset(statement);
    check(code);
    return number;
}

// Texts live as long as the call of run(); those that are converted are copied.
void Database::Statement::bind(int place, const Cell& value) {
    sqlite3_stmt* const statement = m_statement.get();
    if (const auto* const number = std::get_if<double>(&value)) {
        check(std::isfinite(*number)
                  ? sqlite().sqlite3_bind_double(statement, place, *number)
                  : sqlite().sqlite3_bind_null(statement, place)); // beyond a double's range
    } else if (const auto* const whole = std::get_if<int>(&value)) {
        check(sqlite().sqlite3_bind_int(statement, place, *whole));
    } else if (const auto* const text = std::get_if<std::string_view>(&value)) {
        const bool isReady = isAscii(*text);
        if (!isReady) m_converted = shownUtf8(*text);
        const std::string_view shown = isReady ? *text : std::string_view(m_converted);
        check(sqlite().sqlite3_bind_text64(statement, place, shown.data() ? shown.data() : "", shown.size(),
                                           isReady ? SQLITE_STATIC : SQLITE_TRANSIENT, SQLITE_UTF8));
    } else if (const auto* const truth = std::get_if<bool>(&value)) {
        check(sqlite().sqlite3_bind_int(statement, place, *truth ? 1 : 0));
    } else {
        check(sqlite().sqlite3_bind_null(statement, place));
    }
}

// The file that a database is, new or there already.
class DatabaseFile {
  public:
    DatabaseFile(const DatabaseContent& content, const Writing& writing, Files& files,
                 const std::string& name)
        : m_content(content), m_kind(*content.kind), m_writing(writing), m_files(files), m_name(name) {}

    void write() {
        auto file = m_files.create(m_name);
        if (!m_files.exists(m_name) || m_files.open(m_name)->size() == 0) return make(*file);
        file.reset();
        expectKind();
        update();
    }

  private:
    void make(NewFile& file);
    void update();
    void expectKind();
    void expectTables(Database& database);
    [[noreturn]] void refuse(const std::string& words) const;

    const DatabaseContent& m_content;
    const DatabaseKind& m_kind;
    const Writing& m_writing;
    Files& m_files;
    const std::string& m_name;
};

// Nobody sees the file before it is whole, so that no journal is needed. One that was left behind beside a
// file of this name must not be taken for the new one's.
void DatabaseFile::make(NewFile& file) {
    {
        Database database(file.hostPath());
        database.execute("PRAGMA journal_mode = OFF");
        database.execute("PRAGMA synchronous = OFF");
        database.execute("PRAGMA locking_mode = EXCLUSIVE");
        database.execute(("PRAGMA application_id = " + std::to_string(m_kind.applicationId)).c_str());
        database.execute(("PRAGMA user_version = " + std::to_string(m_kind.version)).c_str());
        database.execute("BEGIN");
        database.execute(m_kind.schema);
        m_content.fill(database, m_writing);
        database.execute("COMMIT");
    }
    const std::string journal = m_name + "-journal";
    if (m_files.exists(journal)) m_files.remove(journal);
    file.commit();
}

void DatabaseFile::update() {
    Database database(hostPathOf(m_name));
    database.execute("PRAGMA journal_mode = DELETE");
    database.execute("BEGIN IMMEDIATE");
    expectTables(database);
    m_content.fill(database, m_writing);
    database.execute("COMMIT");
}

// By the file's own head: a database of others is not even opened, which might change it.
void DatabaseFile::expectKind() {
    constexpr std::size_t headSize = 100, versionAt = 60, applicationAt = 68;
    constexpr std::string_view beginning("SQLite format 3\0", 16);
    std::array<char, headSize> head{};
    const std::size_t count = m_files.open(m_name)->read(head.data(), head.size());
    const auto number = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t k = at; k < at + 4; ++k)
            value = value << 8U | static_cast<unsigned char>(head[k]);
        return value;
    };
    if (count < headSize || std::string_view(head.data(), beginning.size()) != beginning ||
        number(applicationAt) != m_kind.applicationId)
        refuse(std::string("is no ") + m_kind.what);
    if (number(versionAt) != m_kind.version) refuse("was made by another version of this program");
}

void DatabaseFile::expectTables(Database& database) {
    auto count = database.statement("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = ?");
    for (const char* const table : m_kind.tables)
        if (count.run(std::array<Cell, 1>{std::string_view(table)}) != 1)
            refuse(std::string("lacks the table ") + table);
}

void DatabaseFile::refuse(const std::string& words) const {
    throw TableRefused(fileOf(m_name) + " " + words + "; it stays as it is.");
}

void writeDatabase(const DatabaseContent& content, const Writing& writing, Files& files,
                   const std::string& name) {
    DatabaseFile(content, writing, files, name).write();
}

} // namespace korvel
