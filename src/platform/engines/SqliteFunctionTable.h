#pragma once
// A table of the library's scalar functions for a SQLite connection, registered in one loop.

#include <span>
#include <sqlite3.h>

namespace zlx::ado {

struct SqliteScalarFunction {
    const char* name;
    int arguments; // -1: any number
    void (*function)(sqlite3_context*, int, sqlite3_value**);
};

// Registers each function as deterministic: the same arguments give the same result.
inline void InstallDeterministic(sqlite3* db, std::span<const SqliteScalarFunction> functions) {
    for (const SqliteScalarFunction& f : functions)
        sqlite3_create_function(db, f.name, f.arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                nullptr, f.function, nullptr, nullptr);
}

} // namespace zlx::ado
