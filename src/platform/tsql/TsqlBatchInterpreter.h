#pragma once
// Runs the batches that SQL Server runs as a small program: local variables (DECLARE, SET,
// SELECT @v = ...), BEGIN ... END, IF ... ELSE, WHILE with BREAK and CONTINUE, RETURN,
// #temporary tables and SELECT ... INTO. The batch is read and checked whole before any of it
// runs; then each statement runs through the session as in any other batch, its variables
// replaced by literals of their values, and each condition is a SELECT the engine answers.

#include "platform/engines/Driver.h"
#include "platform/tsql/BatchParser.h"
#include "platform/tsql/TsqlVariables.h"

#include <QElapsedTimer>

namespace zlx::tsql {

class TsqlSession;
struct SelectInto;
struct VariableAssignment;

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

    void Check(const BatchNode& node);
    void CheckStatement(const Tokens& statement);
    Flow Execute(const BatchNode& node);
    Flow ExecuteAll(const std::vector<BatchNode>& nodes);
    void ExecuteStatement(const Tokens& statement);
    void Assign(const VariableAssignment& assignment);
    void CreateFromQuery(const SelectInto& into);
    void InsertCopiedIdentities(const Tokens& table);
    void PrintValue(const Tokens& statement);
    bool Holds(const Tokens& condition);
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
};

} // namespace zlx::tsql
