// TRY ... CATCH, RAISERROR and THROW in a batch, and the statements the interpreter runs itself.
#include "platform/engines/AdoConstants.h"
#include "platform/tsql/ExecuteSqlCall.h"
#include "platform/tsql/ExecuteText.h"
#include "platform/tsql/RaiseStatement.h"
#include "platform/tsql/ThrowStatement.h"
#include "platform/tsql/TsqlBatchInterpreter.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlSession.h"

#include <QScopeGuard>

namespace zlx::tsql {
namespace {

// CATCH handles the errors of statements: not the command time-out nor Cancel (an attention
// on SQL Server), nor a construct this layer refuses.
bool Catchable(const ado::AdoError& error) {
    return error.Number() != ado::adHrTimeout && error.Number() != ado::adHrCanceled &&
           !IsRefusal(error);
}

} // namespace

bool TsqlBatchInterpreter::ChecksOwnStatement(const Tokens& statement) {
    if (const auto raise = RaiseStatement::Read(statement)) {
        TsqlTranslator(m_session.CheckingContext()).Translate(Bound(raise->Query(), true));
        return true;
    }
    if (const auto thrown = ThrowStatement::Read(statement)) {
        if (!thrown->Rethrows())
            TsqlTranslator(m_session.CheckingContext()).Translate(Bound(thrown->Query(), true));
        return true;
    }
    // A text is checked when it runs; the values passed are literals or variables.
    return ExecuteText::Read(statement) || ExecuteSqlCall::Read(statement);
}

bool TsqlBatchInterpreter::RunsOwnStatement(const Tokens& statement) {
    if (const auto raise = RaiseStatement::Read(statement)) {
        Raise(*raise);
        return true;
    }
    if (const auto thrown = ThrowStatement::Read(statement)) Throw(*thrown);
    if (const auto text = ExecuteText::Read(statement)) {
        RunText(*text);
        return true;
    }
    if (const auto call = ExecuteSqlCall::Read(statement)) {
        RunExecuteSql(*call);
        return true;
    }
    return false;
}

TsqlBatchInterpreter::Flow TsqlBatchInterpreter::ExecuteTry(const BatchNode& node) {
    std::optional<BatchError> caught;
    {
        ++m_session.m_tryDepth;
        const auto leave = qScopeGuard([this] { --m_session.m_tryDepth; });
        try {
            return Execute(node.children.front());
        } catch (const ado::AdoError& error) {
            if (!Catchable(error)) throw;
            caught.emplace(m_errors.Take(error, m_line));
            // Still inside TRY: an open transaction becomes uncommittable.
            if (!caught->keepsTransaction) m_session.AbortTransactionAfter(error);
        }
    }
    m_errors.EnterCatch(std::move(*caught));
    const auto leave = qScopeGuard([this] { m_errors.LeaveCatch(); });
    return Execute(node.children.back());
}

ado::AdoError TsqlBatchInterpreter::Noted(const ado::AdoError& error) {
    // A text run with EXEC names its own statements (m_current is empty then).
    const ado::AdoError mapped =
        m_current.empty() ? error : m_session.SqlServerError(error, m_current);
    if (Catchable(mapped)) m_errors.Note(BatchError{mapped, 16, 1, m_line, false});
    return mapped;
}

// Severity 0 to 10 is an informational message; an error goes to CATCH inside TRY and
// otherwise lets the batch go on, which then ends with it (RAISERROR neither ends the batch
// nor, whatever XACT_ABORT says, the transaction).
void TsqlBatchInterpreter::Raise(const RaiseStatement& raise) {
    const RaisedMessage message = raise.Message(RowOf(Bound(raise.Query())));
    if (!message.IsError()) {
        m_sink.Info(message.record);
        return;
    }
    if (m_session.m_tryDepth == 0) {
        m_errors.Defer(message.record);
        return;
    }
    const ado::AdoError error(message.record.number, message.record.description, {message.record});
    m_errors.Note(BatchError{error, message.severity, message.state, m_line, true});
    throw error;
}

// THROW ends the batch (and, under XACT_ABORT, the transaction) unless CATCH handles it.
void TsqlBatchInterpreter::Throw(const ThrowStatement& thrown) {
    if (thrown.Rethrows()) {
        const BatchError* handled = m_errors.Current();
        if (!handled)
            ThrowStatementError(QStringLiteral("To rethrow an error, a THROW statement must be "
                                               "used inside a CATCH block."),
                                10704);
        m_errors.Note(*handled);
        throw handled->error;
    }
    int state = 1;
    const ado::AdoError error = thrown.Error(RowOf(Bound(thrown.Query())), state);
    m_errors.Note(BatchError{error, 16, state, m_line, false});
    throw error;
}

} // namespace zlx::tsql
