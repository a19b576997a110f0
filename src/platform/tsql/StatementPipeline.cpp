#include "platform/tsql/StatementPipeline.h"

namespace zlx::tsql {

bool StatementPipeline::MayJoin(const Tokens& statement) {
    const Token& first = statement.front();
    if (!first.IsWord(u"INSERT") && !first.IsWord(u"UPDATE") && !first.IsWord(u"DELETE"))
        return false;
    for (const Token& token : statement) {
        if (token.kind == TokenKind::Global) return false;
    }
    return true;
}

void StatementPipeline::Add(std::size_t index, const QString& sql, IdentityEffect identity) {
    m_pending.push_back({index, identity});
    m_texts.push_back(sql.toUtf8());
}

void StatementPipeline::Flush(SessionCounts counts, ado::ResultSink& sink, int timeoutSeconds) {
    Send(counts.inTransaction, timeoutSeconds);
    Receive(counts, sink);
}

void StatementPipeline::Send(bool inTransaction, int timeoutSeconds) {
    if (m_pending.empty()) return;
    std::vector<Pending> pending = std::move(m_pending);
    std::vector<QByteArray> texts = std::move(m_texts);
    m_pending.clear();
    m_texts.clear();
    m_driver.SendPipeline(std::move(texts), Guard(pending, inTransaction), timeoutSeconds);
    m_sent = std::move(pending);
}

void StatementPipeline::Receive(SessionCounts counts, ado::ResultSink& sink) {
    if (m_sent.empty()) return;
    const std::vector<Pending> pending = std::move(m_sent);
    m_sent.clear();
    const ado::PipelineRun run = m_driver.FinishPipeline(sink);
    for (std::size_t i = 0; i < run.done.size(); ++i) {
        const ado::PipelinedOutcome& outcome = run.done[i];
        counts.rowCount = outcome.count;
        if (pending[i].identity == IdentityEffect::Answers && outcome.lastValue)
            counts.identity = outcome.lastValue;
        else if (pending[i].identity == IdentityEffect::Clears)
            counts.identity.reset();
        if (!counts.noCount) sink.RowsAffected(outcome.count);
    }
    if (run.failure)
        throw Failure{pending[run.done.size()].index, m_dialect.MapError(*run.failure)};
}

// Outside a transaction a run is undone and partly run again after a failure, unless that
// would take identity values the statements before the failure already had: those keep a
// savepoint after each statement instead.
ado::RunGuard StatementPipeline::Guard(const std::vector<Pending>& pending, bool inTransaction) {
    if (inTransaction) return ado::RunGuard::None;
    for (const Pending& statement : pending)
        if (statement.identity == IdentityEffect::Answers) return ado::RunGuard::Savepoints;
    return ado::RunGuard::Replay;
}

} // namespace zlx::tsql
