#include "platform/engines/SqliteText.h"

#include "platform/engines/SqliteArithmetic.h"
#include "platform/engines/SqliteBuiltins.h"
#include "platform/engines/SqliteDates.h"
#include "platform/engines/SqliteFunctionTable.h"
#include "platform/engines/SqliteIntegers.h"
#include "platform/engines/SqliteNumberText.h"
#include "platform/engines/SqliteSingleValue.h"
#include "platform/engines/SqliteSubstrings.h"
#include "platform/engines/TextOrder.h"

#include <QString>
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <limits>
#include <sqlite3.h>

namespace zlx::ado::SqliteText {

namespace {

int CollationCallback(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return Compare(lengthA, a, lengthB, b);
}

int LengthWithoutTrailingBlanks(const unsigned char* text, int length) {
    while (length > 0 && text[length - 1] == ' ')
        --length;
    return length;
}

// Whether `key` falls in the class of a LIKE pattern [abc], [a-f] or [^abc], written from
// `from` up to its "]" at `close` (in search keys).
bool InClass(QChar key, const QString& pattern, qsizetype from, qsizetype close) {
    const bool negated = pattern[from] == u'^';
    bool found = false;
    for (qsizetype k = negated ? from + 1 : from; k < close && !found; ++k) {
        if (k + 2 < close && pattern[k + 1] == u'-') {
            found = TextOrder::CollationCompare(QString(pattern[k]), QString(key)) <= 0 &&
                    TextOrder::CollationCompare(QString(key), QString(pattern[k + 2])) <= 0;
            k += 2;
        } else {
            found = pattern[k] == key;
        }
    }
    return found != negated;
}

// LIKE with %, _, [classes] and an optional escape character, over search keys.
bool Matches(const QString& text, qsizetype t, const QString& pattern, qsizetype p, QChar escape) {
    while (p < pattern.size()) {
        const QChar c = pattern[p];
        const qsizetype close = c == u'[' ? pattern.indexOf(u']', p + 2) : -1;
        if (c == escape && p + 1 < pattern.size()) {
            if (t >= text.size() || text[t] != pattern[p + 1]) return false;
            p += 2;
            ++t;
        } else if (c == u'%') {
            while (p < pattern.size() && pattern[p] == u'%')
                ++p;
            if (p == pattern.size()) return true;
            for (qsizetype from = t; from <= text.size(); ++from)
                if (Matches(text, from, pattern, p, escape)) return true;
            return false;
        } else if (close > 0) {
            if (t >= text.size() || !InClass(text[t], pattern, p + 1, close)) return false;
            p = close + 1;
            ++t;
        } else if (c == u'_') {
            if (t >= text.size()) return false;
            ++p;
            ++t;
        } else {
            if (t >= text.size() || text[t] != c) return false;
            ++p;
            ++t;
        }
    }
    return t == text.size();
}

QString TextArgument(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return bytes ? QString::fromUtf8(bytes, sqlite3_value_bytes(value)) : QString();
}

// A NULL argument makes the result NULL; answers whether one was.
bool AnyNull(sqlite3_context* context, int count, sqlite3_value** values) {
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) {
            sqlite3_result_null(context);
            return true;
        }
    }
    return false;
}

void ResultText(sqlite3_context* context, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_result_text(context, bytes.constData(), static_cast<int>(bytes.size()),
                        SQLITE_TRANSIENT);
}

// like(pattern, text[, escape]), as SQLite calls it for "text LIKE pattern". Blanks that end
// the text do not count; those that end the pattern do.
void Like(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QString pattern = TextOrder::SearchKey(TextArgument(values[0]));
    const QString text =
        TextOrder::SearchKey(TextOrder::WithoutTrailingBlanks(TextArgument(values[1])).toString());
    QChar escape;
    if (count == 3) {
        const QString given = TextArgument(values[2]);
        if (given.size() != 1) {
            sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
            return;
        }
        escape = TextOrder::SearchKey(given)[0];
    }
    sqlite3_result_int(context, Matches(text, 0, pattern, 0, escape) ? 1 : 0);
}

void Upper(sqlite3_context* context, int count, sqlite3_value** values) {
    if (!AnyNull(context, count, values)) ResultText(context, TextArgument(values[0]).toUpper());
}

void Lower(sqlite3_context* context, int count, sqlite3_value** values) {
    if (!AnyNull(context, count, values)) ResultText(context, TextArgument(values[0]).toLower());
}

// replace(text, sought, replacement): every match of `sought` under the collation.
void Replace(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QString text = TextArgument(values[0]);
    const QString sought = TextArgument(values[1]);
    const QString replacement = TextArgument(values[2]);
    if (sought.isEmpty()) {
        ResultText(context, text);
        return;
    }
    const QString textKey = TextOrder::SearchKey(text);
    const QString soughtKey = TextOrder::SearchKey(sought);
    QString result;
    qsizetype from = 0;
    for (qsizetype at; (at = textKey.indexOf(soughtKey, from)) >= 0; from = at + sought.size()) {
        result += QStringView(text).sliced(from, at - from);
        result += replacement;
    }
    result += QStringView(text).sliced(from);
    ResultText(context, result);
}

// charindex(sought, text[, start]): the position, from 1, of the first match of `sought` under
// the collation at or after `start`; 0 when there is none.
void CharIndex(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QString sought = TextOrder::SearchKey(TextArgument(values[0]));
    const QString text = TextOrder::SearchKey(TextArgument(values[1]));
    const qsizetype start = count == 3 ? std::max<qsizetype>(sqlite3_value_int64(values[2]), 1) : 1;
    const qsizetype at = sought.isEmpty() ? -1 : text.indexOf(sought, start - 1);
    sqlite3_result_int64(context, at + 1);
}

// patindex(pattern, text): the position, from 1, where the first match of the LIKE pattern
// begins under the collation (a pattern that does not start with % must match from the start);
// 0 when there is none.
void PatIndex(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QString pattern = TextOrder::SearchKey(TextArgument(values[0]));
    const QString text = TextOrder::SearchKey(TextArgument(values[1]));
    qsizetype p = 0;
    while (p < pattern.size() && pattern[p] == u'%')
        ++p;
    if (p > 0 && p == pattern.size()) return sqlite3_result_int64(context, 1);
    const qsizetype last = p > 0 ? text.size() : 0;
    for (qsizetype from = 0; from <= last; ++from) {
        if (Matches(text, from, pattern, p, QChar())) {
            sqlite3_result_int64(context, from + 1);
            return;
        }
    }
    sqlite3_result_int64(context, 0);
}

// zlx_pad(value, n): the value as a CHAR(n) column holds it, blanks added up to n characters.
void Pad(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QString text = TextArgument(values[0]);
    const auto length = static_cast<qsizetype>(sqlite3_value_int64(values[1]));
    ResultText(context, text.size() < length ? text.leftJustified(length) : text);
}

// zlx_datalength(value): the bytes SQL Server keeps for the value: one a character of a text
// (the database's code page), a blob's own, 4 or 8 for an integer, 8 for a real.
void DataLength(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_value* value = values[0];
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        sqlite3_result_null(context);
        return;
    case SQLITE_INTEGER: {
        const sqlite3_int64 n = sqlite3_value_int64(value);
        sqlite3_result_int(context, n >= std::numeric_limits<std::int32_t>::min() &&
                                            n <= std::numeric_limits<std::int32_t>::max()
                                        ? 4
                                        : 8);
        return;
    }
    case SQLITE_FLOAT:
        sqlite3_result_int(context, 8);
        return;
    case SQLITE_BLOB:
        sqlite3_result_int(context, sqlite3_value_bytes(value));
        return;
    default:
        sqlite3_result_int64(context, TextArgument(value).size());
    }
}

} // namespace

int Compare(int lengthA, const void* a, int lengthB, const void* b) {
    const auto* x = static_cast<const unsigned char*>(a);
    const auto* y = static_cast<const unsigned char*>(b);
    lengthA = LengthWithoutTrailingBlanks(x, lengthA);
    lengthB = LengthWithoutTrailingBlanks(y, lengthB);
    const int common = std::min(lengthA, lengthB);
    // ASCII texts (the common case) order by their lower-case bytes, which is what the full
    // comparison gives them.
    for (int i = 0; i < common; ++i) {
        if (x[i] >= 0x80 || y[i] >= 0x80)
            return TextOrder::CollationCompare(
                QString::fromUtf8(static_cast<const char*>(a), lengthA),
                QString::fromUtf8(static_cast<const char*>(b), lengthB));
        const int difference = std::tolower(x[i]) - std::tolower(y[i]);
        if (difference != 0) return difference;
    }
    // One text begins the other: the longer sorts after.
    return lengthA - lengthB;
}

void Install(sqlite3* db) {
    sqlite3_create_collation(db, "NOCASE", SQLITE_UTF8, nullptr, &CollationCallback);
    // A join's Bloom filter hashes a text's bytes, so it would drop rows whose texts are equal
    // only under the collation ('Múnich' and 'MUNICH').
    constexpr int kBloomFilter = 0x00080000;
    constexpr int kBloomPulldown = 0x00100000;
    sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, db, kBloomFilter | kBloomPulldown);
    static constexpr SqliteScalarFunction functions[] = {
        {"like", 2, &Like},
        {"like", 3, &Like},
        {"upper", 1, &Upper},
        {"lower", 1, &Lower},
        {"replace", 3, &Replace},
        {"charindex", 2, &CharIndex},
        {"charindex", 3, &CharIndex},
        {"zlx_pad", 2, &Pad},
        {"zlx_datalength", 1, &DataLength},
        {"zlx_patindex", 2, &PatIndex},
    };
    InstallDeterministic(db, functions);
    SqliteDates::Install(db);
    SqliteArithmetic::Install(db);
    SqliteIntegers::Install(db);
    SqliteNumberText::Install(db);
    SqliteSingleValue::Install(db);
    SqliteBuiltins::Install(db);
    SqliteSubstrings::Install(db);
}

} // namespace zlx::ado::SqliteText
