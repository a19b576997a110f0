#include "platform/tsql/BatchParser.h"

#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/TsqlErrors.h"

#include <QStringList>

namespace zlx::tsql {
namespace {

[[noreturn]] void ThrowNearKeyword(const QString& word) {
    ThrowStatementError(
        QStringLiteral("Incorrect syntax near the keyword '%1'.").arg(word.toUpper()), 156);
}

[[noreturn]] void ThrowSyntaxNear(const QString& text) {
    ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.").arg(text),
                        ado::kNativeSyntax);
}

bool IsSeparator(const Token& token) {
    return token.IsSymbol(u";") || (token.kind == TokenKind::Symbol && token.text.isEmpty());
}

// The words that begin a statement, and so end an IF or WHILE condition.
bool BeginsStatement(const Token& token) {
    static const QStringList words = {QStringLiteral("WHILE"),    QStringLiteral("BREAK"),
                                      QStringLiteral("CONTINUE"), QStringLiteral("RETURN"),
                                      QStringLiteral("WAITFOR"),  QStringLiteral("RAISERROR"),
                                      QStringLiteral("GOTO")};
    return IsStarterWord(token) ||
           (token.kind == TokenKind::Word && words.contains(token.text, Qt::CaseInsensitive));
}

class BatchReader {
public:
    BatchReader(const Tokens& tokens, TsqlVariables& variables)
        : m_t(tokens), m_variables(variables), m_lines(LinesOf(tokens)) {}

    std::vector<BatchNode> ReadAll() {
        std::vector<BatchNode> nodes;
        while (SkipSeparators())
            Read(nodes, false);
        return nodes;
    }

private:
    // The line each token starts on (ERROR_LINE()), counting the line breaks before it.
    static std::vector<int> LinesOf(const Tokens& tokens) {
        std::vector<int> lines;
        lines.reserve(tokens.size());
        int line = 1;
        for (const Token& token : tokens) {
            line += static_cast<int>(token.leading.count(u'\n'));
            lines.push_back(line);
            line += static_cast<int>(token.text.count(u'\n'));
        }
        return lines;
    }
    int LineAt(size_t i) const { return i < m_lines.size() ? m_lines[i] : 1; }

    const Token* At(size_t i) const { return i < m_t.size() ? &m_t[i] : nullptr; }
    bool WordAt(size_t i, QStringView word) const { return At(i) && At(i)->IsWord(word); }

    // Moves past ";" and trailing blanks; whether a token is left.
    bool SkipSeparators() {
        while (m_pos < m_t.size() && IsSeparator(m_t[m_pos]))
            ++m_pos;
        return m_pos < m_t.size();
    }

    // BEGIN that opens a block (BEGIN TRY and BEGIN CATCH too), not BEGIN TRAN[SACTION].
    bool OpensBlock(size_t i) const {
        if (!WordAt(i, u"BEGIN")) return false;
        return !(WordAt(i + 1, u"TRAN") || WordAt(i + 1, u"TRANSACTION") ||
                 WordAt(i + 1, u"DISTRIBUTED"));
    }

    // Reads the statement at the current place into `nodes`; a run of plain statements is read
    // whole unless only `one` statement is wanted (the body of an IF or a WHILE).
    void Read(std::vector<BatchNode>& nodes, bool one) {
        const Token& token = m_t[m_pos];
        if (token.IsWord(u"ELSE") || token.IsWord(u"END")) ThrowNearKeyword(token.text);
        if (WordAt(m_pos, u"BEGIN") && WordAt(m_pos + 1, u"TRY"))
            nodes.push_back(ReadTry());
        else if (WordAt(m_pos, u"BEGIN") && WordAt(m_pos + 1, u"CATCH"))
            ThrowSyntaxNear(QStringLiteral("CATCH"));
        else if (OpensBlock(m_pos))
            nodes.push_back(ReadBlock());
        else if (token.IsWord(u"IF"))
            nodes.push_back(ReadIf());
        else if (token.IsWord(u"WHILE"))
            nodes.push_back(ReadWhile());
        else if (token.IsWord(u"BREAK") || token.IsWord(u"CONTINUE") || token.IsWord(u"RETURN"))
            nodes.push_back(ReadJump());
        else
            ReadPlain(nodes, one);
    }

    BatchNode ReadBlock() {
        BatchNode block{BatchNode::Kind::Block, {}, {}};
        ++m_pos;
        for (;;) {
            if (!SkipSeparators()) ThrowSyntaxNear(QStringLiteral("BEGIN"));
            if (m_t[m_pos].IsWord(u"END")) break;
            Read(block.children, false);
        }
        if (block.children.empty()) ThrowSyntaxNear(QStringLiteral("END"));
        ++m_pos;
        return block;
    }

    // BEGIN TRY ... END TRY followed by BEGIN CATCH ... END CATCH.
    BatchNode ReadTry() {
        BatchNode node{BatchNode::Kind::Try, {}, {}, LineAt(m_pos)};
        m_pos += 2;
        node.children.push_back(ReadSection(u"TRY"));
        if (!SkipSeparators() || !WordAt(m_pos, u"BEGIN") || !WordAt(m_pos + 1, u"CATCH"))
            ThrowSyntaxNear(QStringLiteral("TRY"));
        m_pos += 2;
        ++m_catches;
        node.children.push_back(ReadSection(u"CATCH"));
        --m_catches;
        return node;
    }

    // The statements up to END `word`, past which it leaves the current place.
    BatchNode ReadSection(QStringView word) {
        BatchNode block{BatchNode::Kind::Block, {}, {}, LineAt(m_pos)};
        for (;;) {
            if (!SkipSeparators()) ThrowSyntaxNear(word.toString());
            if (WordAt(m_pos, u"END") && WordAt(m_pos + 1, word)) break;
            Read(block.children, false);
        }
        m_pos += 2;
        return block;
    }

    BatchNode ReadIf() {
        const int line = LineAt(m_pos);
        BatchNode node{BatchNode::Kind::If, ReadCondition(), {}, line};
        node.children.push_back(ReadBody(u"IF"));
        const size_t after = m_pos;
        if (SkipSeparators() && m_t[m_pos].IsWord(u"ELSE")) {
            ++m_pos;
            node.children.push_back(ReadBody(u"ELSE"));
        } else {
            m_pos = after;
        }
        return node;
    }

    BatchNode ReadWhile() {
        const int line = LineAt(m_pos);
        BatchNode node{BatchNode::Kind::While, ReadCondition(), {}, line};
        ++m_loops;
        node.children.push_back(ReadBody(u"WHILE"));
        --m_loops;
        return node;
    }

    BatchNode ReadJump() {
        const Token& token = m_t[m_pos++];
        if (token.IsWord(u"RETURN")) {
            const Token* next = At(m_pos);
            if (next && !IsSeparator(*next) && !BeginsStatement(*next) && !next->IsWord(u"END") &&
                !next->IsWord(u"ELSE"))
                ThrowStatementError(QStringLiteral("A RETURN statement with a return value "
                                                   "cannot be used in this context."),
                                    178);
            return BatchNode{BatchNode::Kind::Return, {}, {}};
        }
        const bool isBreak = token.IsWord(u"BREAK");
        if (m_loops == 0)
            ThrowStatementError(
                QStringLiteral("Cannot use a %1 statement outside the scope of a WHILE statement.")
                    .arg(isBreak ? u"BREAK"_qs : u"CONTINUE"_qs),
                isBreak ? 135 : 136);
        return BatchNode{isBreak ? BatchNode::Kind::Break : BatchNode::Kind::Continue, {}, {}};
    }

    // The condition of the IF or WHILE at the current place: up to the statement it governs.
    Tokens ReadCondition() {
        const QString keyword = m_t[m_pos++].text;
        Tokens condition;
        int depth = 0;
        for (; m_pos < m_t.size(); ++m_pos) {
            const Token& token = m_t[m_pos];
            if (depth == 0 && (IsSeparator(token) || BeginsStatement(token))) break;
            if (token.IsSymbol(u"("))
                ++depth;
            else if (token.IsSymbol(u")"))
                --depth;
            condition.push_back(token);
        }
        if (condition.empty()) ThrowNearKeyword(keyword);
        CheckDeclared(condition);
        return condition;
    }

    BatchNode ReadBody(QStringView keyword) {
        if (!SkipSeparators()) ThrowNearKeyword(keyword.toString());
        std::vector<BatchNode> body;
        Read(body, true);
        return std::move(body.front());
    }

    // Plain statements up to the next control word, cut as the batch splitter cuts them.
    void ReadPlain(std::vector<BatchNode>& nodes, bool one) {
        const size_t stop = PlainEnd();
        const std::vector<Tokens> statements =
            SplitBatch(Tokens(m_t.begin() + static_cast<std::ptrdiff_t>(m_pos),
                              m_t.begin() + static_cast<std::ptrdiff_t>(stop)));
        for (const Tokens& statement : statements) {
            const int line = LineAt(m_pos);
            m_pos += statement.size();
            nodes.push_back(StatementNode(statement));
            // A DECLARE's assignments are on its line too.
            nodes.back().line = line;
            for (BatchNode& assignment : nodes.back().children)
                assignment.line = line;
            if (one) return;
        }
    }

    // Where the run of plain statements that starts at the current place ends: a separator, or
    // a control word outside parentheses and CASE ... END.
    size_t PlainEnd() const {
        int depth = 0, cases = 0;
        for (size_t i = m_pos; i < m_t.size(); ++i) {
            const Token& token = m_t[i];
            if (IsSeparator(token)) return i;
            if (token.IsSymbol(u"("))
                ++depth;
            else if (token.IsSymbol(u")"))
                --depth;
            else if (token.IsWord(u"CASE"))
                ++cases;
            else if (token.IsWord(u"END") && cases > 0)
                --cases;
            else if (token.IsWord(u"END") && depth == 0)
                return i;
            else if (depth == 0 && cases == 0 && i != m_pos && IsControlWord(i))
                return i;
        }
        return m_t.size();
    }

    bool IsControlWord(size_t i) const {
        const Token& token = m_t[i];
        if (token.IsWord(u"IF")) // DROP TABLE IF EXISTS
            return !(WordAt(i - 1, u"TABLE") || WordAt(i - 1, u"INDEX") || WordAt(i - 1, u"VIEW"));
        return token.IsWord(u"ELSE") || token.IsWord(u"WHILE") || token.IsWord(u"BREAK") ||
               token.IsWord(u"CONTINUE") || token.IsWord(u"RETURN") || OpensBlock(i);
    }

    BatchNode StatementNode(const Tokens& statement) {
        if (statement.front().IsWord(u"DECLARE")) return Declaration(statement);
        if (statement.size() == 1 && statement.front().IsWord(u"THROW") && m_catches == 0)
            ThrowStatementError(QStringLiteral("To rethrow an error, a THROW statement must be "
                                               "used inside a CATCH block."),
                                10704);
        CheckDeclared(statement);
        return BatchNode{BatchNode::Kind::Statement, statement, {}};
    }

    // DECLARE @a type [= value] [, @b type [= value]]...
    BatchNode Declaration(const Tokens& statement) {
        BatchNode block{BatchNode::Kind::Block, {}, {}};
        size_t i = 1;
        for (;;) {
            if (i >= statement.size() || statement[i].kind != TokenKind::Variable)
                ThrowNearKeyword(QStringLiteral("DECLARE"));
            const Token& name = statement[i++];
            if (i < statement.size() && statement[i].IsWord(u"AS")) ++i;
            if (i < statement.size() &&
                (statement[i].IsWord(u"CURSOR") || statement[i].IsWord(u"TABLE")))
                ThrowUnsupported(QStringLiteral("DECLARE %1 %2").arg(name.text, statement[i].text));
            size_t end = i;
            const VariableType type = VariableType::Read(statement, i, end);
            i = end;
            if (i < statement.size() && statement[i].IsSymbol(u"=")) {
                const size_t value = ++i;
                for (int depth = 0; i < statement.size(); ++i) {
                    if (statement[i].IsSymbol(u"("))
                        ++depth;
                    else if (statement[i].IsSymbol(u")"))
                        --depth;
                    else if (depth == 0 && statement[i].IsSymbol(u","))
                        break;
                }
                Tokens assignment{Token{TokenKind::Word, QStringLiteral("SET"), {}}, name,
                                  Token{TokenKind::Symbol, QStringLiteral("="), {}}};
                assignment.insert(assignment.end(), statement.begin() + value,
                                  statement.begin() + i);
                if (value == i) ThrowSyntaxNear(QStringLiteral("="));
                CheckDeclared(Tokens(statement.begin() + value, statement.begin() + i));
                block.children.push_back({BatchNode::Kind::Statement, assignment, {}});
            }
            m_variables.Declare(name.text, type);
            if (i == statement.size()) break;
            if (!statement[i].IsSymbol(u",")) ThrowSyntaxNear(statement[i].text);
            ++i;
        }
        return block;
    }

    // In a procedure call (EXEC sp_executesql ..., @id = 5) "@name =" names a parameter.
    void CheckDeclared(const Tokens& tokens) const {
        const bool call =
            !tokens.empty() && (tokens[0].IsWord(u"EXEC") || tokens[0].IsWord(u"EXECUTE") ||
                                tokens[0].IsWord(u"sp_executesql"));
        for (size_t i = 0; i < tokens.size(); ++i) {
            if (tokens[i].kind != TokenKind::Variable) continue;
            const bool parameter = call && i + 1 < tokens.size() && tokens[i + 1].IsSymbol(u"=") &&
                                   i > 0 && tokens[i - 1].IsSymbol(u",");
            if (!parameter) m_variables.TypeOf(tokens[i].text);
        }
    }

    const Tokens& m_t;
    TsqlVariables& m_variables;
    std::vector<int> m_lines;
    size_t m_pos = 0;
    int m_loops = 0;
    int m_catches = 0; // CATCH blocks the current place is in
};

} // namespace

void RefuseModules(const Tokens& tokens) {
    for (size_t i = 0; i + 1 < tokens.size(); ++i) {
        const bool create = tokens[i].IsWord(u"CREATE");
        if (!create && !tokens[i].IsWord(u"ALTER")) continue;
        const Token& kind = tokens[i + 1];
        if (kind.IsWord(u"PROCEDURE") || kind.IsWord(u"PROC") || kind.IsWord(u"FUNCTION") ||
            kind.IsWord(u"TRIGGER") || (!create && kind.IsWord(u"VIEW")))
            ThrowUnsupported(tokens[i].text.toUpper() + u' ' + kind.text.toUpper());
    }
}

ParsedBatch ParseBatch(const Tokens& tokens, TsqlVariables declared) {
    RefuseModules(tokens);
    ParsedBatch batch;
    batch.variables = std::move(declared);
    batch.statements = BatchReader(tokens, batch.variables).ReadAll();
    return batch;
}

} // namespace zlx::tsql
