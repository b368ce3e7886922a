#include "tables/SqliteLibrary.h"

#include "basic/LateLibrary.h"
#include "tables/Writing.h"

namespace korvel {

void SqliteLibrary::findDatabases(LateLibrary& library) {
    library.find("sqlite3_open_v2", sqlite3_open_v2);
    library.find("sqlite3_close", sqlite3_close);
    library.find("sqlite3_busy_timeout", sqlite3_busy_timeout);
    library.find("sqlite3_exec", sqlite3_exec);
    library.find("sqlite3_last_insert_rowid", sqlite3_last_insert_rowid);
    library.find("sqlite3_errstr", sqlite3_errstr);
}

void SqliteLibrary::findStatements(LateLibrary& library) {
    library.find("sqlite3_prepare_v3", sqlite3_prepare_v3);
    library.find("sqlite3_finalize", sqlite3_finalize);
    library.find("sqlite3_step", sqlite3_step);
    library.find("sqlite3_reset", sqlite3_reset);
    library.find("sqlite3_column_int64", sqlite3_column_int64);
    library.find("sqlite3_bind_double", sqlite3_bind_double);
    library.find("sqlite3_bind_int", sqlite3_bind_int);
    library.find("sqlite3_bind_null", sqlite3_bind_null);
    library.find("sqlite3_bind_text64", sqlite3_bind_text64);
}

SqliteLibrary::SqliteLibrary(const char* fileName) {
    LateLibrary library(fileName);
    findDatabases(library);
    findStatements(library);
    if (!library.failure().empty())
        throw TableRefused("The library that writes databases can't be loaded (" + library.failure() +
                           "). Install libsqlite3, or write a CSV file.");
}

const SqliteLibrary& sqlite() {
    static const SqliteLibrary library("libsqlite3.so.0");
    return library;
}

} // namespace korvel
