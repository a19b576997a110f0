#pragma once
// The tokens of one statement being translated, with the questions the translator asks of them:
// what is at a position, where a parenthesis closes, where a list's items, a qualified name,
// an operand or an expression end. The translation's passes edit them in place.

#include "platform/tsql/TsqlToken.h"

#include <QStringList>
#include <initializer_list>
#include <utility>

namespace zlx::tsql {

// A token written as it is, with `leading` before it.
Token Raw(const QString& text, const QString& leading = QString());
// A function whose result is a text (RTRIM, LEFT, SUBSTRING, UPPER ...).
bool IsTextFunction(const Token& token);
// A word or a [quoted] name.
bool IsName(const Token& token);
// Whether the token is one of `words` (without regard to case).
bool IsAnyWord(const Token& token, std::initializer_list<QStringView> words);
// A word that begins or joins a clause (FROM, JOIN, ON, WHERE, AND ...), never an alias.
bool IsClauseWord(const Token& token);

// Whether the token at `i` is a whole item of a parenthesised row that follows VALUES (or
// another row of them).
bool IsValuesRowItem(const Tokens& tokens, size_t i);

class StatementTokens {
public:
    explicit StatementTokens(Tokens tokens) : m_t(std::move(tokens)) {}

    size_t size() const { return m_t.size(); }
    Token& operator[](size_t i) { return m_t[i]; }
    const Token& operator[](size_t i) const { return m_t[i]; }
    Tokens::iterator begin() { return m_t.begin(); }
    Tokens::iterator end() { return m_t.end(); }
    Tokens::const_iterator begin() const { return m_t.begin(); }
    Tokens::const_iterator end() const { return m_t.end(); }
    void insert(Tokens::const_iterator at, Token token) { m_t.insert(at, std::move(token)); }
    void erase(Tokens::const_iterator first, Tokens::const_iterator last) {
        m_t.erase(first, last);
    }
    void Replace(Tokens tokens) { m_t = std::move(tokens); }
    // Puts `tokens` in place of the tokens [first, end).
    void Splice(size_t first, size_t end, const Tokens& tokens) {
        const auto at = m_t.erase(m_t.begin() + static_cast<std::ptrdiff_t>(first),
                                  m_t.begin() + static_cast<std::ptrdiff_t>(end));
        m_t.insert(at, tokens.begin(), tokens.end());
    }

    const Token* At(size_t i) const { return i < m_t.size() ? &m_t[i] : nullptr; }
    bool WordAt(size_t i, QStringView w) const { return At(i) && At(i)->IsWord(w); }
    bool SymbolAt(size_t i, QStringView s) const { return At(i) && At(i)->IsSymbol(s); }
    // CREATE TABLE or ALTER TABLE.
    bool IsDdl() const {
        return (WordAt(0, u"CREATE") || WordAt(0, u"ALTER")) && WordAt(1, u"TABLE");
    }

    // Index of the ")" that closes the "(" at `open`.
    size_t Close(size_t open) const;

    // Top-level comma positions between `open` and its closing parenthesis.
    std::vector<size_t> Commas(size_t open, size_t close) const;

    // The first `word` at parenthesis depth 0 from `from` on; the end when there is none.
    size_t DepthZeroWord(size_t from, QStringView word) const;

    // Where the possibly qualified name (t, [t], db..t, db.dbo.t) that begins at `name` ends;
    // `name` itself when there is none.
    size_t QualifiedNameEnd(size_t name) const;

    // The tokens [first, last) of the column definition holding token `i`: up to the comma or
    // parenthesis that closes it at its own depth.
    std::pair<size_t, size_t> ColumnDefinitionAround(size_t i) const;

    std::vector<std::pair<size_t, size_t>> Items(size_t open, size_t close,
                                                 const std::vector<size_t>& commas) const;

    // The place of the value at `i` in its VALUES row, counting from 0.
    size_t ValuePosition(size_t i) const;

    // The column names of the list in parentheses at `open` (t.c names c).
    QStringList ColumnList(size_t open) const;

    bool IsComparison(size_t i) const;

    bool IsValuesRowItem(size_t i) const { return tsql::IsValuesRowItem(m_t, i); }

    // The end of the operand that begins at `i`: a literal, a (qualified) name, a function
    // call (with its window) or a parenthesised expression; `i` itself when there is none.
    size_t PrimaryEnd(size_t i) const;

    // Past the window (OVER (...)) of the call whose ")" is before `after`; `after` without one.
    size_t WindowEnd(size_t after) const;

    // The start of the operand that ends with the token at `last`: a (qualified) name, a
    // function call or a parenthesised expression; `last` itself for any other token.
    size_t PrimaryStart(size_t last) const;

    // The "(" of the parenthesis that holds the token at `i` (or that the ")" at `i` closes);
    // `i` itself when there is none.
    size_t Open(size_t i) const;

    // The end of the expression that begins at `i`: operands joined by arithmetic operators
    // and "+", which bind more tightly than LIKE.
    size_t ExpressionEnd(size_t i) const;

    // The type (upper case, without blanks: "DECIMAL(10,2)") that the CAST(x AS type) or
    // CONVERT(type, x) call at `name` converts to; empty for any other expression.
    QString ConversionType(size_t name) const;

    // The column that [first, end) names (c, t.c, [c]); nullptr for any other expression.
    const Token* NamedColumn(size_t first, size_t end) const;

private:
    Tokens m_t;
};

} // namespace zlx::tsql
