// Batches whose last run of data statements is left running on the engine while the caller
// prepares its next batch (ExecuteDeferred), and the reading of that run's answers.
#include "platform/engines/EarlierBatchFailure.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlSession.h"
#include "platform/tsql/TsqlTokenizer.h"

namespace zlx::tsql {

void TsqlSession::ExecuteDeferred(const QString& batch, int timeoutSeconds) {
    m_worker.Abandon();
    m_cancelled = false;
    m_deferring = batch;
    ado::DiscardingSink none;
    try {
        RunBatch(batch, none, timeoutSeconds);
    } catch (...) {
        // The run sent before this batch is answered before this batch's own failure is told;
        // if it failed, its failure is the one to report.
        m_deferring.clear();
        SettleSentRun();
        throw;
    }
    // A batch that left nothing running answers for the one before it at once.
    m_deferring.clear();
    if (!m_sentBatch.isSharedWith(batch)) SettleSentRun();
}

void TsqlSession::SettleSentRun() {
    if (m_pipeline && m_pipeline->Sent()) {
        ado::DiscardingSink none;
        try {
            m_pipeline->Receive({m_rowCount, m_identity, m_noCount, m_tranCount > 0}, none);
        } catch (const StatementPipeline::Failure& failure) {
            AbortTransactionAfter(failure.error);
            const std::vector<Tokens> statements = SplitBatch(Tokenize(m_sentBatch));
            m_earlierFailure = SqlServerError(failure.error, statements[failure.index]);
        }
        m_sentBatch.clear();
    }
    if (!m_earlierFailure) return;
    m_pipeline->Forget();
    const ado::EarlierBatchFailure failure(*m_earlierFailure);
    // Inside a deferred batch every later use of the engine refuses as well, so that none of
    // that batch reaches it; ExecuteDeferred reports the failure once.
    if (m_deferring.isEmpty()) m_earlierFailure.reset();
    throw failure;
}

// A run still sent is read first: Close waits for the engine's answers as a statement would.
void TsqlSession::Disconnect() {
    try {
        SettleSentRun();
    } catch (const ado::AdoError&) {
        // nobody is left to report it to
    }
    Cancel();
    m_worker.Abandon();
    m_inner->Disconnect();
}

} // namespace zlx::tsql
