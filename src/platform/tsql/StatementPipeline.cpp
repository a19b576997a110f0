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
    if (m_pending.empty()) return;
    const std::vector<Pending> pending = std::move(m_pending);
    const std::vector<QByteArray> texts = std::move(m_texts);
    m_pending.clear();
    m_texts.clear();
    const ado::PipelineRun run =
        m_driver.RunPipeline(texts, !counts.inTransaction, timeoutSeconds, sink);
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

} // namespace zlx::tsql
