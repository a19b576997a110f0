#include "platform/tsql/BatchSplitter.h"

#include "platform/tsql/TsqlErrors.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <span>

namespace zlx::tsql {

bool IsStarterWord(const Token& token) {
    static constexpr std::array<QStringView, 22> kStarters = {
        u"SELECT", u"INSERT", u"UPDATE",    u"DELETE",   u"SET",     u"IF",
        u"BEGIN",  u"COMMIT", u"ROLLBACK",  u"DBCC",     u"EXEC",    u"EXECUTE",
        u"CREATE", u"ALTER",  u"DROP",      u"TRUNCATE", u"DECLARE", u"PRINT",
        u"USE",    u"SAVE",   u"RAISERROR", u"THROW"};
    if (token.kind != TokenKind::Word) return false;
    return std::any_of(kStarters.begin(), kStarters.end(),
                       [&](QStringView word) { return SameTextIgnoringCase(token.text, word); });
}

namespace {

bool Contains(std::span<const Token> statement, QStringView word) {
    return std::any_of(statement.begin(), statement.end(),
                       [&](const Token& t) { return t.IsWord(word); });
}

// Whether `word`, met at parenthesis depth 0, continues `statement` instead of starting anew.
bool Continues(std::span<const Token> whole, const Token& word, const Token* next) {
    const auto statement = StatementProper(whole);
    if (statement.empty()) return true; // WITH c AS (...) SELECT: the SELECT reads the list
    const Token& first = statement.front();
    const Token& previous = statement.back();
    if (word.IsWord(u"SELECT")) {
        if (previous.IsWord(u"UNION") || previous.IsWord(u"ALL") || previous.IsWord(u"EXCEPT") ||
            previous.IsWord(u"INTERSECT") || previous.IsWord(u"AS"))
            return true;
        // INSERT INTO t (a, b) SELECT ...: only while the INSERT has no source yet.
        return first.IsWord(u"INSERT") && !Contains(statement, u"VALUES") &&
               !Contains(statement, u"SELECT") && !Contains(statement, u"DEFAULT");
    }
    if (previous.IsWord(u"ON") && !first.IsWord(u"SET") &&
        (word.IsWord(u"DELETE") || word.IsWord(u"UPDATE")))
        return true; // a foreign key's ON DELETE / ON UPDATE, not SET NOCOUNT ON
    if (previous.IsWord(u"TABLE") || previous.IsWord(u"GRANT"))
        return true; // DROP TABLE IF EXISTS, GRANT SELECT
    if (word.IsWord(u"SET")) {
        if (previous.IsWord(u"DELETE") || previous.IsWord(u"UPDATE"))
            return true; // ON DELETE SET NULL
        if (first.IsWord(u"UPDATE")) return !Contains(statement, u"SET");
        return first.IsWord(u"ALTER");
    }
    if (word.IsWord(u"ALTER") ||
        word.IsWord(u"DROP")) // ALTER TABLE t ALTER COLUMN / DROP CONSTRAINT
        return first.IsWord(u"ALTER") && next &&
               (next->IsWord(u"COLUMN") || next->IsWord(u"CONSTRAINT"));
    if (word.IsWord(u"EXEC") || word.IsWord(u"EXECUTE"))
        return first.IsWord(u"INSERT") && !Contains(statement, u"VALUES");
    return false;
}

// BEGIN that opens a BEGIN ... END block (not BEGIN TRAN[SACTION]).
bool OpensBlock(const Token& token, const Token* next) {
    return token.IsWord(u"BEGIN") &&
           !(next && (next->IsWord(u"TRAN") || next->IsWord(u"TRANSACTION") ||
                      next->IsWord(u"DISTRIBUTED")));
}

// Gathers the tokens of the statement being read; for an IF, remembers where its body starts.
// A BEGIN ... END block (CASE ... END inside it counted alike) stays one statement.
class Accumulator {
public:
    void Add(const Token& token, const Token* next) {
        if (token.IsSymbol(u"("))
            ++m_depth;
        else if (token.IsSymbol(u")"))
            m_depth = std::max(0, m_depth - 1);
        else if (OpensBlock(token, next) || token.IsWord(u"CASE"))
            ++m_blocks;
        else if (token.IsWord(u"END"))
            m_blocks = std::max(0, m_blocks - 1);
        m_current.push_back(token);
    }

    // Whether `token` must open a new statement; marks the body of a pending IF instead.
    bool StartsStatement(const Token& token, const Token* next) {
        if (m_current.empty() || m_depth > 0 || m_blocks > 0 || !IsStarterWord(token)) return false;
        if (m_current.front().IsWord(u"IF") && m_bodyStart == 0) {
            if (m_current.size() == 1) return false; // IF EXISTS ...: the condition starts
            m_bodyStart = m_current.size();
            return false;
        }
        const auto tail = std::span<const Token>(m_current).subspan(m_bodyStart);
        if (tail.empty()) return false;
        return !Continues(tail, token, next);
    }

    Tokens Take() {
        m_depth = 0;
        m_blocks = 0;
        m_bodyStart = 0;
        return std::exchange(m_current, Tokens());
    }
    bool Empty() const { return m_current.empty(); }

private:
    Tokens m_current;
    int m_depth = 0;
    int m_blocks = 0;
    size_t m_bodyStart = 0;
};

} // namespace

std::vector<Tokens> SplitBatch(const Tokens& tokens) {
    std::vector<Tokens> statements;
    Accumulator accumulator;
    auto flush = [&] {
        if (!accumulator.Empty()) statements.push_back(accumulator.Take());
    };
    for (size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        if (token.IsSymbol(u";") || (token.kind == TokenKind::Symbol && token.text.isEmpty())) {
            flush();
            continue;
        }
        const Token* next = i + 1 < tokens.size() ? &tokens[i + 1] : nullptr;
        if (accumulator.StartsStatement(token, next)) flush();
        accumulator.Add(token, next);
    }
    flush();
    return statements;
}

bool StartsWith(const Tokens& statement, std::initializer_list<QStringView> words) {
    size_t i = 0;
    for (QStringView word : words) {
        if (i >= statement.size() || !statement[i].IsWord(word)) return false;
        ++i;
    }
    return true;
}

std::optional<Tokens> BlockBody(const Tokens& statement) {
    if (statement.empty() ||
        !OpensBlock(statement.front(), statement.size() > 1 ? &statement[1] : nullptr))
        return std::nullopt;
    if (statement.size() < 2 || !statement.back().IsWord(u"END"))
        ThrowStatementError(QStringLiteral("Incorrect syntax near 'BEGIN'."), ado::kNativeSyntax);
    return Tokens(statement.begin() + 1, statement.end() - 1);
}

IfParts SplitIf(const Tokens& statement) {
    IfParts parts;
    int depth = 0;
    for (size_t i = 1; i < statement.size(); ++i) {
        const Token& token = statement[i];
        if (depth == 0 && i > 1 && IsStarterWord(token)) {
            parts.body.assign(statement.begin() + static_cast<std::ptrdiff_t>(i), statement.end());
            return parts;
        }
        if (token.IsSymbol(u"("))
            ++depth;
        else if (token.IsSymbol(u")"))
            depth = std::max(0, depth - 1);
        parts.condition.push_back(token);
    }
    ThrowStatementError(QStringLiteral("Incorrect syntax near the keyword 'IF'."),
                        ado::kNativeSyntax);
}

namespace {

// The text of a procedure or DBCC argument: a string's value or a name as written.
QString ArgumentText(const Tokens& tokens, size_t from, size_t to) {
    if (to == from + 1 && tokens[from].kind == TokenKind::String) return tokens[from].text;
    QString text;
    for (size_t i = from; i < to; ++i)
        text += tokens[i].text;
    return text;
}

} // namespace

QStringList ArgumentList(const Tokens& tokens, size_t from, size_t to) {
    QStringList arguments;
    size_t start = from;
    int depth = 0;
    for (size_t i = from; i <= to; ++i) {
        if (i < to && tokens[i].IsSymbol(u"("))
            ++depth;
        else if (i < to && tokens[i].IsSymbol(u")"))
            --depth;
        else if (i == to || (depth == 0 && tokens[i].IsSymbol(u","))) {
            if (i > start) arguments << ArgumentText(tokens, start, i);
            start = i + 1;
        }
    }
    return arguments;
}

std::span<const Token> StatementProper(std::span<const Token> statement) {
    if (!statement.front().IsWord(u"WITH")) return statement;
    int depth = 0;
    for (size_t i = 0; i < statement.size(); ++i) {
        if (statement[i].IsSymbol(u"("))
            ++depth;
        else if (statement[i].IsSymbol(u")"))
            --depth;
        else if (depth == 0 && IsStarterWord(statement[i]))
            return statement.subspan(i);
    }
    return {};
}

} // namespace zlx::tsql
