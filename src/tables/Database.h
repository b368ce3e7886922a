// A database file that is written in one transaction: whatever fails, is stopped or killed, the old state
// stays. One that is not there yet is made beside its place and put there whole. Failures are RunTimeErrors.
#pragma once

#include "platform/Files.h"
#include "tables/Table.h"
#include "tables/Writing.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace korvel {

// What a database holds and how one of this kind is known.
struct DatabaseKind {
    const char* what = "";           // in words: "database of results"
    std::uint32_t applicationId = 0; // in the file's head
    std::uint32_t version = 0;
    const char* schema = ""; // SQL
    std::span<const char* const> tables = {};
};

class Database {
  public:
    class Statement {
      public:
        Statement(sqlite3* database, const char* sql);

        // With these values for its question marks; its first number, where it gives one. Texts are as in
        // the files.
        std::optional<std::int64_t> run(std::span<const Cell> values);

      private:
        void bind(int place, const Cell& value);

        std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> m_statement;
        std::string m_converted; // the texts that are not in ASCII
    };

    Statement statement(const char* sql) { return {m_database.get(), sql}; }
    std::int64_t lastId() const; // of the row inserted last

  private:
    friend class DatabaseFile;
    explicit Database(const std::string& path);
    void execute(const char* sql);

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> m_database;
};

struct DatabaseContent {
    const DatabaseKind* kind = nullptr;
    std::function<void(Database&, const Writing&)> fill;
};

// Puts the content into the database of this model name. Throws TableRefused for a file that is none of its
// kind, which stays untouched; WritingStopped.
void writeDatabase(const DatabaseContent& content, const Writing& writing, Files& files,
                   const std::string& name);

} // namespace korvel
