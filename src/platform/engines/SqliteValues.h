#pragma once
// Reading the arguments of a SQL function registered on a SQLite connection and answering its
// result, as texts in UTF-8.

#include <QString>
#include <sqlite3.h>

namespace zlx::ado::SqliteValues {

// The argument as text (a number as SQLite writes it); empty for NULL.
inline QString Text(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return bytes ? QString::fromUtf8(bytes, sqlite3_value_bytes(value)) : QString();
}

inline bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

// A NULL argument makes the result NULL; answers whether one was.
inline bool AnyNull(sqlite3_context* context, int count, sqlite3_value** values) {
    for (int i = 0; i < count; ++i) {
        if (IsNull(values[i])) {
            sqlite3_result_null(context);
            return true;
        }
    }
    return false;
}

inline void ResultText(sqlite3_context* context, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_result_text(context, bytes.constData(), static_cast<int>(bytes.size()),
                        SQLITE_TRANSIENT);
}

// The user data of a conversion registered a second time, as TRY_CAST's: its failures answer NULL.
inline constexpr char kTryConversion[] = "try";

// A conversion's failure: SQL Server's error, or NULL in the conversion of a TRY_CAST.
inline void FailConversion(sqlite3_context* context, const char* message) {
    if (sqlite3_user_data(context) == kTryConversion) return sqlite3_result_null(context);
    sqlite3_result_error(context, message, -1);
}

} // namespace zlx::ado::SqliteValues
