#include "platform/dbfengine/FoxFunctions.h"

#include <QByteArray>
#include <iterator>
#include <sqlite3.h>

namespace zlx::dbfengine {

namespace {

// Dates are ISO text here: "yyyy-mm-dd" and "yyyy-mm-dd hh:mm:ss".
const char* const kSqlFunctions[][2] = {{"ALLTRIM", "SELECT trim(?1)"},
                                        {"DTOS", "SELECT replace(substr(?1, 1, 10), '-', '')"},
                                        {"NVL", "SELECT coalesce(?1, ?2)"},
                                        {"EMPTY", "SELECT (?1 IS NULL OR trim(?1) = '' OR ?1 = 0)"},
                                        {"YEAR", "SELECT CAST(substr(?1, 1, 4) AS INTEGER)"},
                                        {"MONTH", "SELECT CAST(substr(?1, 6, 2) AS INTEGER)"},
                                        {"DAY", "SELECT CAST(substr(?1, 9, 2) AS INTEGER)"},
                                        {"LEN", "SELECT length(?1)"}};

// Each function runs its SQL expression on its arguments through a prepared statement.
void Evaluate(sqlite3_context* context, int argc, sqlite3_value** argv) {
    sqlite3_stmt* statement = nullptr;
    const auto* sql = static_cast<const char*>(sqlite3_user_data(context));
    if (sqlite3_prepare_v2(sqlite3_context_db_handle(context), sql, -1, &statement, nullptr) !=
        SQLITE_OK) {
        sqlite3_result_error(context, "FoxPro function could not be prepared", -1);
        return;
    }
    for (int i = 0; i < argc; ++i)
        sqlite3_bind_value(statement, i + 1, argv[i]);
    if (sqlite3_step(statement) == SQLITE_ROW)
        sqlite3_result_value(context, sqlite3_column_value(statement, 0));
    else
        sqlite3_result_error(context, sqlite3_errmsg(sqlite3_context_db_handle(context)), -1);
    sqlite3_finalize(statement);
}

} // namespace

void InstallFoxFunctions(sqlite3* db) {
    for (std::size_t i = 0; i < std::size(kSqlFunctions); ++i) {
        const int arguments = QByteArray(kSqlFunctions[i][1]).contains("?2") ? 2 : 1;
        sqlite3_create_function_v2(db, kSqlFunctions[i][0], arguments, SQLITE_UTF8,
                                   const_cast<char*>(kSqlFunctions[i][1]), Evaluate, nullptr,
                                   nullptr, nullptr);
    }
}

} // namespace zlx::dbfengine
