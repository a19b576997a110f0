#include "platform/tsql/TsqlBatchInterpreter.h"

#include "platform/engines/DriverErrors.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/CarriedAssignment.h"
#include "platform/tsql/PrintStatement.h"
#include "platform/tsql/SelectInto.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlSession.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/UncommittableTransaction.h"
#include "platform/tsql/VariableAssignment.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

// Keeps a query's columns, its last row and how many rows it had; sends nothing on.
class LastRowSink : public ado::ResultSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>& described) override {
        columns = described;
    }
    bool Row(std::vector<Variant>& values) override {
        last = values;
        ++rows;
        return true;
    }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}

    std::vector<ado::ColumnInfo> columns;
    std::vector<Variant> last;
    std::int64_t rows = 0;
};

// #name is a temporary table: a quoted name for the engine ("#t" is no identifier there).
// The engines keep no tempdb whose catalog could be asked by name (OBJECT_ID('tempdb..#t')).
Tokens WithTemporaryNames(Tokens tokens) {
    for (Token& token : tokens) {
        if (token.kind == TokenKind::String &&
            token.text.startsWith(u"tempdb.", Qt::CaseInsensitive))
            ThrowUnsupported(u'\'' + token.text + u'\'');
        if (token.kind != TokenKind::Word || !token.text.startsWith(u'#')) continue;
        if (token.text.startsWith(u"##")) ThrowUnsupported(token.text);
        token.kind = TokenKind::QuotedName;
    }
    return tokens;
}

// CREATE TABLE #t (...) makes the engine's temporary table, which only this connection sees
// and which goes when it closes. TEMPORARY rides in the blanks before TABLE, so that the
// statement is still CREATE TABLE to the translator.
Tokens AsTemporaryDefinition(Tokens statement) {
    if (StartsWith(statement, {u"CREATE", u"TABLE"}) && statement.size() > 2 &&
        statement[2].kind == TokenKind::QuotedName && statement[2].text.startsWith(u'#'))
        statement[1].leading = QStringLiteral(" TEMPORARY ");
    return statement;
}

// PRINT of texts joined by "+", which the session prints itself.
bool PrintsLiterals(const Tokens& statement) {
    return std::all_of(statement.begin() + 1, statement.end(), [](const Token& token) {
        return token.kind == TokenKind::String || token.IsSymbol(u"+");
    });
}

bool IsPrintOfExpression(const Tokens& statement) {
    return statement.front().IsWord(u"PRINT") && statement.size() > 1 && !PrintsLiterals(statement);
}

// Words that only the interpreter runs: TRY ... CATCH, RAISERROR, THROW, the error functions,
// XACT_STATE(), EXEC of a text and sp_executesql.
bool IsErrorOrDynamicWord(const Tokens& batch, size_t i) {
    const Token& token = batch[i];
    const bool call = i + 1 < batch.size() && batch[i + 1].IsSymbol(u"(");
    return token.IsWord(u"TRY") || token.IsWord(u"THROW") || token.IsWord(u"RAISERROR") ||
           token.IsWord(u"sp_executesql") ||
           (call &&
            (token.IsWord(u"EXEC") || token.IsWord(u"EXECUTE") || token.IsWord(u"XACT_STATE") ||
             token.text.startsWith(u"ERROR_", Qt::CaseInsensitive)));
}

// A statement that ends the transaction or rolls back to a savepoint of its own: a savepoint
// set before it could not be released after it.
bool ControlsTransaction(const Tokens& statement) {
    return std::any_of(statement.begin(), statement.end(), [](const Token& token) {
        return IsAnyWord(token, {u"COMMIT", u"ROLLBACK", u"SAVE"});
    });
}

Tokens SelectOf(const Tokens& expression, size_t from) {
    Tokens query{Token{TokenKind::Word, QStringLiteral("SELECT"), {}}};
    query.insert(query.end(), expression.begin() + static_cast<std::ptrdiff_t>(from),
                 expression.end());
    return query;
}

} // namespace

TsqlBatchInterpreter::TsqlBatchInterpreter(TsqlSession& session, ado::ResultSink& sink,
                                           int timeoutSeconds)
    : m_session(session), m_sink(sink), m_timeoutSeconds(timeoutSeconds), m_errors(m_ownErrors) {}

TsqlBatchInterpreter::TsqlBatchInterpreter(TsqlBatchInterpreter& caller)
    : m_session(caller.m_session), m_sink(caller.m_sink), m_timeoutSeconds(caller.SecondsLeft()),
      m_caller(&caller), m_errors(caller.m_errors) {}

bool TsqlBatchInterpreter::Needed(const Tokens& batch) {
    for (size_t i = 0; i < batch.size(); ++i) {
        const Token& token = batch[i];
        if (token.kind == TokenKind::Variable) return true;
        if (token.kind != TokenKind::Word) continue;
        switch (token.text.size()) {
        case 4:
            if (token.IsWord(u"ELSE") ||
                (token.IsWord(u"INTO") && !(i > 0 && batch[i - 1].IsWord(u"INSERT"))))
                return true;
            break;
        case 5:
            if (token.IsWord(u"WHILE") || token.IsWord(u"BREAK")) return true;
            break;
        case 6:
            if (token.IsWord(u"RETURN")) return true;
            break;
        case 7:
            if (token.IsWord(u"DECLARE")) return true;
            break;
        case 8:
            if (token.IsWord(u"CONTINUE")) return true;
            break;
        default:
            break;
        }
        if (token.text.startsWith(u'#') || IsErrorOrDynamicWord(batch, i)) return true;
    }
    return false;
}

void TsqlBatchInterpreter::Run(const QString& text, const Tokens& batch) {
    RunWith(text, batch, {}, {});
}

void TsqlBatchInterpreter::RunWith(const QString& text, const Tokens& batch, TsqlVariables declared,
                                   std::vector<BatchNode> prologue) {
    ParsedBatch parsed = ParseBatch(WithTemporaryNames(batch), std::move(declared));
    parsed.statements.insert(parsed.statements.begin(), prologue.begin(), prologue.end());
    m_variables = std::move(parsed.variables);
    CheckAll(parsed.statements);
    m_session.m_dialect->RefreshCatalog(text);
    m_clock.start();
    if (m_caller) {
        ExecuteAll(parsed.statements);
        return;
    }
    try {
        ExecuteAll(parsed.statements);
        // The transaction an error made uncommittable is rolled back with the batch's end.
        if (m_session.m_uncommittable) {
            m_session.Rollback();
            ThrowUncommittableAtBatchEnd();
        }
    } catch (const ado::AdoError& error) {
        m_session.AbortTransactionAfter(error);
        throw WithDeferred(&error);
    }
    if (!m_errors.Deferred().empty()) throw WithDeferred(nullptr);
}

ado::AdoError TsqlBatchInterpreter::WithDeferred(const ado::AdoError* error) const {
    std::vector<ado::ErrorRecord> records = m_errors.Deferred();
    if (!error) return ado::AdoError(ado::adHrCommandFailed, records.front().description, records);
    if (records.empty()) return *error;
    records.insert(records.end(), error->Records().begin(), error->Records().end());
    const QString description = records.front().description;
    return ado::AdoError(error->Number(), description, std::move(records));
}

void TsqlBatchInterpreter::CheckAll(const std::vector<BatchNode>& nodes) {
    m_session.CheckKeepingSettings([&] {
        for (const BatchNode& node : nodes)
            Check(node);
    });
}

// The check SQL Server makes when it compiles the batch, with a value of its type for each
// variable: a construct this layer refuses runs nothing.
void TsqlBatchInterpreter::Check(const BatchNode& node) {
    if (node.kind == BatchNode::Kind::Statement) CheckStatement(node.tokens);
    if (node.kind == BatchNode::Kind::If || node.kind == BatchNode::Kind::While) {
        TsqlSession::CheckCoalesceArguments(node.tokens);
        TsqlTranslator(m_session.CheckingContext()).Translate(Bound(node.tokens, true));
    }
    for (const BatchNode& child : node.children)
        Check(child);
}

void TsqlBatchInterpreter::CheckStatement(const Tokens& statement) {
    TsqlSession::CheckCoalesceArguments(statement);
    if (TsqlSession::SetsDateOption(statement)) return m_session.Check(statement);
    if (ChecksOwnStatement(statement)) return;
    if (const auto assignment = VariableAssignment::Read(statement)) {
        const auto carried = CarriedAssignment::Read(*assignment);
        TsqlTranslator(m_session.CheckingContext())
            .Translate(Bound(carried ? carried->rowsQuery : assignment->Query(m_variables), true));
        return;
    }
    const Tokens bound = Bound(statement, true);
    if (const auto into = SelectInto::Read(bound)) {
        into->CheckColumnNames();
        m_session.Check(into->source);
    } else if (IsPrintOfExpression(bound)) {
        TsqlTranslator(m_session.CheckingContext()).Translate(SelectOf(bound, 1));
    } else {
        m_session.Check(bound);
    }
}

TsqlBatchInterpreter::Flow TsqlBatchInterpreter::ExecuteAll(const std::vector<BatchNode>& nodes) {
    for (const BatchNode& node : nodes) {
        const Flow flow = Execute(node);
        if (flow != Flow::Next) return flow;
    }
    return Flow::Next;
}

TsqlBatchInterpreter::Flow TsqlBatchInterpreter::Execute(const BatchNode& node) {
    switch (node.kind) {
    case BatchNode::Kind::Statement:
        m_line = node.line;
        try {
            ExecuteStatement(node.tokens);
        } catch (const ado::AdoError& error) {
            throw Noted(error);
        }
        return Flow::Next;
    case BatchNode::Kind::Block:
        return ExecuteAll(node.children);
    case BatchNode::Kind::Try:
        return ExecuteTry(node);
    case BatchNode::Kind::If:
        if (Holds(node.tokens, node.line)) return Execute(node.children.front());
        return node.children.size() > 1 ? Execute(node.children.back()) : Flow::Next;
    case BatchNode::Kind::While:
        // No limit on the turns, as on SQL Server: the command time-out ends a runaway loop.
        while (Holds(node.tokens, node.line)) {
            SecondsLeft();
            const Flow flow = Execute(node.children.front());
            if (flow == Flow::Break) break;
            if (flow == Flow::Return) return flow;
        }
        return Flow::Next;
    case BatchNode::Kind::Break:
        return Flow::Break;
    case BatchNode::Kind::Continue:
        return Flow::Continue;
    case BatchNode::Kind::Return:
        return Flow::Return;
    }
    return Flow::Next;
}

void TsqlBatchInterpreter::ExecuteStatement(const Tokens& statement) {
    m_current = statement;
    if (RunsOwnStatement(statement)) return;
    if (const auto assignment = VariableAssignment::Read(statement)) {
        if (const auto carried = CarriedAssignment::Read(*assignment))
            m_session.RunUndoable([&] { AssignRowByRow(*carried); });
        else
            m_session.RunUndoable([&] { Assign(*assignment); });
        return;
    }
    const Tokens bound = Bound(statement);
    m_current = bound;
    if (ControlsTransaction(bound)) {
        RunBound(bound);
        return;
    }
    m_session.RunUndoable([&] { RunBound(bound); });
}

void TsqlBatchInterpreter::RunBound(const Tokens& bound) {
    if (const auto into = SelectInto::Read(bound))
        CreateFromQuery(*into);
    else if (IsPrintOfExpression(bound))
        PrintValue(bound);
    else
        m_session.RunStatement(AsTemporaryDefinition(bound), m_sink, SecondsLeft());
}

// The values come from one query: a SET's from a SELECT without FROM, a SELECT's from its own
// rows, the last row winning; without rows the variables keep their values.
void TsqlBatchInterpreter::Assign(const VariableAssignment& assignment) {
    m_current = Bound(assignment.Query(m_variables));
    LastRowSink rows;
    m_session.ExecuteMapped(EngineSql(m_current), rows, SecondsLeft());
    if (rows.rows > 0) {
        for (size_t k = 0; k < assignment.items.size(); ++k)
            m_variables.Assign(assignment.items[k].variable, rows.last.at(k));
    }
    m_session.m_rowCount = assignment.fromRows() ? rows.rows : 1;
}

// The new table gets the columns the engine describes for the query's first row, with what
// they copy from the columns of the table they come from; a failure while filling it leaves no
// table behind.
void TsqlBatchInterpreter::CreateFromQuery(const SelectInto& into) {
    LastRowSink described;
    m_session.ExecuteMapped(
        QStringLiteral("SELECT * FROM (%1) zlx_into LIMIT 1").arg(EngineSql(into.source)),
        described, SecondsLeft());
    const QString sourceTable = into.SourceTable();
    const std::vector<SelectInto::Copy> copies =
        into.Copies(sourceTable.isEmpty() ? TableColumns() : m_session.ColumnsOf(sourceTable),
                    described.columns.size());
    LastRowSink discarded;
    m_current = AsTemporaryDefinition(into.CreateTable(described.columns, copies));
    m_session.RunStatement(m_current, discarded, SecondsLeft());
    try {
        m_current = into.Insert(described.columns);
        if (std::any_of(copies.begin(), copies.end(), [](const auto& c) { return c.identity; }))
            InsertCopiedIdentities(into.target);
        else
            m_session.RunStatement(m_current, m_sink, SecondsLeft());
    } catch (const ado::AdoError&) {
        try {
            m_session.RunStatement(
                Tokenize(QStringLiteral("DROP TABLE ") + TokensToSql(into.target)), discarded, 0);
        } catch (const ado::AdoError&) {
            // a failed transaction is rolled back whole, the new table with it
        }
        throw;
    }
}

// The identities are copied as IDENTITY_INSERT writes them, the next one following them; the
// table the session had IDENTITY_INSERT on for keeps it.
void TsqlBatchInterpreter::InsertCopiedIdentities(const Tokens& table) {
    const QString kept = m_session.m_identityInsertTable;
    const QString name = TokensToSql(table).trimmed();
    LastRowSink discarded;
    m_session.RunStatement(Tokenize(QStringLiteral("SET IDENTITY_INSERT %1 ON").arg(name)),
                           discarded, 0);
    try {
        m_session.RunStatement(m_current, m_sink, SecondsLeft());
    } catch (const ado::AdoError&) {
        m_session.m_identityInsertTable = kept;
        throw;
    }
    const std::int64_t copied = m_session.m_rowCount;
    m_session.RunStatement(Tokenize(QStringLiteral("SET IDENTITY_INSERT %1 OFF").arg(name)),
                           discarded, 0);
    m_session.m_identityInsertTable = kept;
    m_session.m_rowCount = copied;
}

void TsqlBatchInterpreter::PrintValue(const Tokens& statement) {
    const std::vector<Variant> value = RowOf(SelectOf(statement, 1));
    const Variant& text = value.empty() ? Variant::Null() : value.front();
    Tokens literal{statement.front(),
                   Token{TokenKind::String, text.IsNull() ? QString() : text.ToInvariantString(),
                         QStringLiteral(" ")}};
    m_sink.Info(PrintMessage(literal));
    m_session.m_rowCount = 0;
}

// A condition that is not true (false or unknown) does not hold.
bool TsqlBatchInterpreter::Holds(const Tokens& condition, int line) {
    m_line = line;
    m_current = Bound(condition);
    try {
        const QString sql = TsqlTranslator(m_session.Context()).Expression(m_current).trimmed();
        std::vector<std::vector<Variant>> rows;
        m_session.RunUndoable([&] {
            rows =
                m_session.Query(QStringLiteral("SELECT CASE WHEN %1 THEN 1 ELSE 0 END").arg(sql));
        });
        return !rows.empty() && rows.front().at(0).ToLong() == 1;
    } catch (const ado::AdoError& error) {
        throw Noted(error);
    }
}

std::vector<Variant> TsqlBatchInterpreter::RowOf(const Tokens& query) {
    LastRowSink row;
    m_session.ExecuteMapped(EngineSql(query), row, SecondsLeft());
    return row.last;
}

Tokens TsqlBatchInterpreter::Bound(const Tokens& statement, bool placeholders) const {
    return m_errors.Substitute(m_variables.Substitute(statement, placeholders), TransactionState(),
                               placeholders);
}

int TsqlBatchInterpreter::TransactionState() const {
    if (m_session.m_tranCount == 0) return 0;
    return m_session.m_uncommittable ? -1 : 1;
}

QString TsqlBatchInterpreter::EngineSql(const Tokens& statement) {
    return TsqlTranslator(m_session.Context()).Translate(statement).sql;
}

int TsqlBatchInterpreter::SecondsLeft() {
    if (m_session.m_cancelled) ado::ThrowCanceled(m_session.EngineName());
    if (m_timeoutSeconds <= 0) return 0;
    const qint64 left = qint64(m_timeoutSeconds) * 1000 - m_clock.elapsed();
    if (left <= 0) ado::ThrowTimeout(m_session.EngineName());
    return static_cast<int>((left + 999) / 1000);
}

} // namespace zlx::tsql
