#pragma once
// Runs the batches that SQL Server runs as a small program: local variables (DECLARE, SET,
// SELECT @v = ...), BEGIN ... END, IF ... ELSE, WHILE with BREAK and CONTINUE, RETURN,
// #temporary tables and SELECT ... INTO, TRY ... CATCH with RAISERROR and THROW, and texts run
// with EXEC (...) or sp_executesql. The batch is read and checked whole before any of it
// runs; then each statement runs through the session as in any other batch, its variables
// replaced by literals of their values, and each condition is a SELECT the engine answers.
// A text run with EXEC is a batch of its own, with its own variables, checked when it runs.

#include "platform/engines/Driver.h"
#include "platform/tsql/BatchErrors.h"
#include "platform/tsql/BatchParser.h"
#include "platform/tsql/TsqlVariables.h"

#include <QElapsedTimer>

namespace zlx::tsql {

class TsqlSession;
struct SelectInto;
struct VariableAssignment;
struct CarriedAssignment;
struct RaiseStatement;
struct ThrowStatement;
struct ExecuteText;
struct ExecuteSqlCall;

class TsqlBatchInterpreter {
public:
    // `timeoutSeconds` (0: none) bounds the whole batch, loops included.
    TsqlBatchInterpreter(TsqlSession& session, ado::ResultSink& sink, int timeoutSeconds);

    // Whether `batch` needs the interpreter; other batches run as the session always ran them.
    static bool Needed(const Tokens& batch);
    // `text` is the batch as sent, `batch` its tokens.
    void Run(const QString& text, const Tokens& batch);

private:
    enum class Flow { Next, Break, Continue, Return };

    // A text that `caller` runs with EXEC or sp_executesql: its errors go to the caller.
    explicit TsqlBatchInterpreter(TsqlBatchInterpreter& caller);
    // `declared` and `prologue`: sp_executesql's parameters and the statements giving their
    // values.
    void RunWith(const QString& text, const Tokens& batch, TsqlVariables declared,
                 std::vector<BatchNode> prologue);
    // The error a batch ends with: RAISERROR's errors first, then `error` (if any).
    ado::AdoError WithDeferred(const ado::AdoError* error) const;

    void CheckAll(const std::vector<BatchNode>& nodes);
    void Check(const BatchNode& node);
    void CheckStatement(const Tokens& statement);
    bool ChecksOwnStatement(const Tokens& statement);
    Flow Execute(const BatchNode& node);
    Flow ExecuteTry(const BatchNode& node);
    // `error` as the failure of the current statement: SQL Server's numbers, noted for CATCH.
    ado::AdoError Noted(const ado::AdoError& error);
    // RAISERROR, THROW, EXEC of a text and sp_executesql; false for other statements.
    bool RunsOwnStatement(const Tokens& statement);
    void Raise(const RaiseStatement& raise);
    [[noreturn]] void Throw(const ThrowStatement& thrown);
    void RunText(const ExecuteText& text);
    void RunExecuteSql(const ExecuteSqlCall& call);
    // sp_executesql's statement or parameters: an N'...' text or an NVARCHAR/NCHAR variable.
    std::optional<QString> ParameterText(const Tokens& value, const QString& parameter) const;
    // The one row of a query without FROM.
    std::vector<Variant> RowOf(const Tokens& query);
    // `statement` with its variables, error functions and XACT_STATE() replaced by literals.
    Tokens Bound(const Tokens& statement, bool placeholders = false) const;
    int TransactionState() const;
    Flow ExecuteAll(const std::vector<BatchNode>& nodes);
    void ExecuteStatement(const Tokens& statement);
    // A statement with its variables bound, run by the session or by the interpreter itself.
    void RunBound(const Tokens& bound);
    void Assign(const VariableAssignment& assignment);
    void AssignRowByRow(const CarriedAssignment& carried);
    void CreateFromQuery(const SelectInto& into);
    void InsertCopiedIdentities(const Tokens& table);
    void PrintValue(const Tokens& statement);
    // `line`: where the condition starts in the batch.
    bool Holds(const Tokens& condition, int line);
    QString EngineSql(const Tokens& statement);
    // Throws the time-out or cancel error once the batch has run out of time or was cancelled;
    // answers the seconds left for the next statement (0: no limit).
    int SecondsLeft();

    TsqlSession& m_session;
    ado::ResultSink& m_sink;
    int m_timeoutSeconds;
    QElapsedTimer m_clock;
    TsqlVariables m_variables;
    Tokens m_current; // the statement running, named by its error
    int m_line = 1;   // where it starts in the batch
    TsqlBatchInterpreter* m_caller = nullptr;
    BatchErrors m_ownErrors;
    BatchErrors& m_errors; // the outermost batch's
};

} // namespace zlx::tsql
