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

struct Token {
    TokenKind kind = TokenKind::Symbol;
    QString text;
    QString leading;       // blanks and comments before the token
    bool national = false; // N'...' string

    bool Is(TokenKind k, QStringView value) const {
        return kind == k && text.compare(value, Qt::CaseInsensitive) == 0;
    }
    bool IsWord(QStringView word) const { return Is(TokenKind::Word, word); }
    bool IsSymbol(QStringView symbol) const { return Is(TokenKind::Symbol, symbol); }
};

using Tokens = std::vector<Token>;

} // namespace zlx::tsql
