#pragma once
// One lexical unit of a T-SQL batch, with the blanks and comments that precede it so that a
// statement can be written back with its original spacing.

#include <QString>
#include <vector>

namespace zlx::tsql {

enum class TokenKind {
    Word,       // identifier or keyword: SELECT, zolmarID, dbo
    QuotedName, // [name] or "name"; `text` holds the bare name
    String,     // 'text' or N'text'; `text` holds the value with '' undone
    Number,     // 12, 1.5, 0x1F
    Variable,   // @name
    Global,     // @@name
    Symbol,     // operators and punctuation: ( ) , ; . = <> >= + & ...
};

// QString's case-insensitive equality, answered without Unicode case folding while both texts
// are ASCII (keywords, symbols and nearly every name compared while reading a batch). Texts
// of different lengths never fold to each other: simple folding maps a character to one
// character of the same plane.
inline bool SameTextIgnoringCase(QStringView a, QStringView b) {
    if (a.size() != b.size()) return false;
    for (qsizetype i = 0; i < a.size(); ++i) {
        const char16_t x = a[i].unicode(), y = b[i].unicode();
        if (x == y) continue;
        if (x >= 0x80 || y >= 0x80) return a.compare(b, Qt::CaseInsensitive) == 0;
        const char16_t lower = x | 0x20;
        if (lower != (y | 0x20) || lower < u'a' || lower > u'z') return false;
    }
    return true;
}

struct Token {
    TokenKind kind = TokenKind::Symbol;
    QString text;
    QString leading;       // blanks and comments before the token
    bool national = false; // N'...' string

    bool Is(TokenKind k, QStringView value) const {
        return kind == k && SameTextIgnoringCase(text, value);
    }
    bool IsWord(QStringView word) const { return Is(TokenKind::Word, word); }
    bool IsSymbol(QStringView symbol) const { return Is(TokenKind::Symbol, symbol); }
};

using Tokens = std::vector<Token>;

} // namespace zlx::tsql
