#include "platform/engines/SqliteText.h"

#include "platform/engines/TextOrder.h"

#include <QString>
#include <algorithm>
#include <cctype>
#include <sqlite3.h>

namespace zlx::ado::SqliteText {

namespace {

int CollationCallback(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return Compare(lengthA, a, lengthB, b);
}

// LIKE with % and _ (and an optional escape character) over case-folded texts.
bool Matches(const QString& text, qsizetype t, const QString& pattern, qsizetype p, QChar escape) {
    while (p < pattern.size()) {
        const QChar c = pattern[p];
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

// like(pattern, text[, escape]), as SQLite calls it for "text LIKE pattern".
void Like(sqlite3_context* context, int count, sqlite3_value** values) {
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) {
            sqlite3_result_null(context);
            return;
        }
    }
    const QString pattern = TextArgument(values[0]).toCaseFolded();
    const QString text = TextArgument(values[1]).toCaseFolded();
    QChar escape;
    if (count == 3) {
        const QString given = TextArgument(values[2]);
        if (given.size() != 1) {
            sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
            return;
        }
        escape = given[0];
    }
    sqlite3_result_int(context, Matches(text, 0, pattern, 0, escape) ? 1 : 0);
}

} // namespace

int Compare(int lengthA, const void* a, int lengthB, const void* b) {
    const auto* x = static_cast<const unsigned char*>(a);
    const auto* y = static_cast<const unsigned char*>(b);
    const int common = std::min(lengthA, lengthB);
    // ASCII texts (the common case) order by their lower-case bytes, which is what the full
    // comparison gives them.
    for (int i = 0; i < common; ++i) {
        if (x[i] >= 0x80 || y[i] >= 0x80)
            return TextOrder::Compare(QString::fromUtf8(static_cast<const char*>(a), lengthA),
                                      QString::fromUtf8(static_cast<const char*>(b), lengthB));
        const int difference = std::tolower(x[i]) - std::tolower(y[i]);
        if (difference != 0) return difference;
    }
    // One text begins the other: the longer sorts after, unless what follows is an accent
    // that the comparison of base letters passes over.
    const auto* rest = lengthA > lengthB ? x : y;
    if (std::all_of(rest + common, rest + std::max(lengthA, lengthB),
                    [](unsigned char c) { return c < 0x80; }))
        return lengthA - lengthB;
    return TextOrder::Compare(QString::fromUtf8(static_cast<const char*>(a), lengthA),
                              QString::fromUtf8(static_cast<const char*>(b), lengthB));
}

void Install(sqlite3* db) {
    sqlite3_create_collation(db, "NOCASE", SQLITE_UTF8, nullptr, &CollationCallback);
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(db, "like", 2, flags, nullptr, &Like, nullptr, nullptr);
    sqlite3_create_function(db, "like", 3, flags, nullptr, &Like, nullptr, nullptr);
}

} // namespace zlx::ado::SqliteText
