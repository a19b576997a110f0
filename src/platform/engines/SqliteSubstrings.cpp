#include "platform/engines/SqliteSubstrings.h"

#include "platform/engines/SqliteFunctionTable.h"
#include "platform/engines/SqliteValues.h"

#include <algorithm>
#include <cstdint>

namespace zlx::ado::SqliteSubstrings {
namespace {

using SqliteValues::AnyNull;

// The byte where the character at `index` (from 0) of a UTF-8 text begins, or `size`.
int CharacterOffset(const unsigned char* text, int size, sqlite3_int64 index) {
    int offset = 0;
    for (; offset < size && index > 0; --index) {
        ++offset;
        while (offset < size && (text[offset] & 0xC0) == 0x80)
            ++offset;
    }
    return offset;
}

sqlite3_int64 CharacterCount(const unsigned char* text, int size) {
    sqlite3_int64 count = 0;
    for (int i = 0; i < size; ++i)
        if ((text[i] & 0xC0) != 0x80) ++count;
    return count;
}

// The characters (bytes of a blob) of `value` from `first` to before `end`, counted from 0 and
// already within the value.
void ResultSlice(sqlite3_context* context, sqlite3_value* value, sqlite3_int64 first,
                 sqlite3_int64 end) {
    if (sqlite3_value_type(value) == SQLITE_BLOB) {
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
        return sqlite3_result_blob(context, bytes + first, static_cast<int>(end - first),
                                   SQLITE_TRANSIENT);
    }
    const unsigned char* text = sqlite3_value_text(value);
    const int size = sqlite3_value_bytes(value);
    const int from = CharacterOffset(text, size, first);
    const int to = from + CharacterOffset(text + from, size - from, end - first);
    sqlite3_result_text(context, reinterpret_cast<const char*>(text) + from, to - from,
                        SQLITE_TRANSIENT);
}

sqlite3_int64 Length(sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_BLOB) return sqlite3_value_bytes(value);
    return CharacterCount(sqlite3_value_text(value), sqlite3_value_bytes(value));
}

// The part of `value` from position `start` (from 1; before 1 counts too) for `length`
// characters.
void ResultRange(sqlite3_context* context, sqlite3_value* value, sqlite3_int64 start,
                 sqlite3_int64 length) {
    // SQL Server's arguments are INTs: kept within them, the sums below cannot overflow.
    start = std::clamp<sqlite3_int64>(start, INT32_MIN, INT32_MAX);
    length = std::min<sqlite3_int64>(length, INT32_MAX);
    const sqlite3_int64 size = Length(value);
    const sqlite3_int64 first = std::clamp<sqlite3_int64>(start - 1, 0, size);
    const sqlite3_int64 end = std::clamp<sqlite3_int64>(start - 1 + length, first, size);
    ResultSlice(context, value, first, end);
}

bool NegativeLength(sqlite3_context* context, sqlite3_value* length, const char* message) {
    if (sqlite3_value_int64(length) >= 0) return false;
    sqlite3_result_error(context, message, -1);
    return true;
}

void Left(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values) ||
        NegativeLength(context, values[1],
                       "Invalid length parameter passed to the LEFT or SUBSTRING function."))
        return;
    ResultRange(context, values[0], 1, sqlite3_value_int64(values[1]));
}

void Right(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values) ||
        NegativeLength(context, values[1],
                       "Invalid length parameter passed to the RIGHT function."))
        return;
    const sqlite3_int64 length = std::min(sqlite3_value_int64(values[1]), Length(values[0]));
    ResultRange(context, values[0], Length(values[0]) - length + 1, length);
}

void Substring(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values) ||
        NegativeLength(context, values[2],
                       "Invalid length parameter passed to the LEFT or SUBSTRING function."))
        return;
    ResultRange(context, values[0], sqlite3_value_int64(values[1]), sqlite3_value_int64(values[2]));
}

} // namespace

void Install(sqlite3* db) {
    static constexpr SqliteScalarFunction functions[] = {
        {"zlx_left", 2, &Left},
        {"zlx_right", 2, &Right},
        {"zlx_substring", 3, &Substring},
    };
    InstallDeterministic(db, functions);
}

} // namespace zlx::ado::SqliteSubstrings
