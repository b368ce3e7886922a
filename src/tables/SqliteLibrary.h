// The library that writes databases, loaded when the first one is written.
#pragma once

#include <sqlite3.h>

namespace korvel {

class LateLibrary;

// Its functions, named as they are.
struct SqliteLibrary {
    // Throws TableRefused where the system has no such library.
    explicit SqliteLibrary(const char* fileName);

    decltype(&::sqlite3_open_v2) sqlite3_open_v2 = nullptr;
    decltype(&::sqlite3_close) sqlite3_close = nullptr;
    decltype(&::sqlite3_busy_timeout) sqlite3_busy_timeout = nullptr;
    decltype(&::sqlite3_exec) sqlite3_exec = nullptr;
    decltype(&::sqlite3_last_insert_rowid) sqlite3_last_insert_rowid = nullptr;
    decltype(&::sqlite3_errstr) sqlite3_errstr = nullptr;

    decltype(&::sqlite3_prepare_v3) sqlite3_prepare_v3 = nullptr;
    decltype(&::sqlite3_finalize) sqlite3_finalize = nullptr;
    decltype(&::sqlite3_step) sqlite3_step = nullptr;
    decltype(&::sqlite3_reset) sqlite3_reset = nullptr;
    decltype(&::sqlite3_column_int64) sqlite3_column_int64 = nullptr;
    decltype(&::sqlite3_bind_double) sqlite3_bind_double = nullptr;
    decltype(&::sqlite3_bind_int) sqlite3_bind_int = nullptr;
    decltype(&::sqlite3_bind_null) sqlite3_bind_null = nullptr;
    decltype(&::sqlite3_bind_text64) sqlite3_bind_text64 = nullptr;

  private:
    void findDatabases(LateLibrary& library);
    void findStatements(LateLibrary& library);
};

// Loads it at the first call. Throws TableRefused.
const SqliteLibrary& sqlite();

} // namespace korvel
