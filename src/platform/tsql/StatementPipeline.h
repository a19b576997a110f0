#pragma once
// Runs of data statements (INSERT, UPDATE, DELETE) of one batch that a PostgreSQL session
// sends as one round trip: each statement's count and identity still come back, in order,
// so @@ROWCOUNT, @@IDENTITY and the counts the caller sees are those of one at a time.

#include "platform/engines/PostgresDriver.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlToken.h"

#include <cstdint>
#include <optional>

namespace zlx::tsql {

class StatementPipeline {
public:
    // A statement of the run failed: `index` is its place in the batch.
    struct Failure {
        std::size_t index;
        ado::AdoError error;
    };
    // What the session keeps of each statement that ran.
    struct SessionCounts {
        std::int64_t& rowCount;
        std::optional<std::int64_t>& identity;
        bool noCount;
        bool inTransaction;
    };

    StatementPipeline(ado::PostgresDriver& driver, const EngineDialect& dialect)
        : m_driver(driver), m_dialect(dialect) {}

    // Whether the statement may wait in a run: it changes data and reads no session value
    // (@@IDENTITY, @@ROWCOUNT) that the statements before it set.
    static bool MayJoin(const Tokens& statement);
    // What a statement does to @@IDENTITY: an INSERT into a table with an identity returns
    // the new identities, one into a table without sets it to NULL, others leave it.
    enum class IdentityEffect { Keeps, Answers, Clears };
    // `sql` is single engine statement.
    void Add(std::size_t index, const QString& sql, IdentityEffect identity);
    bool Full() const { return m_pending.size() >= kLongestRun; }
    bool Waiting() const { return !m_pending.empty(); }
    // Drops what waits: the batch it belongs to stops before reaching the engine.
    void Forget() {
        m_pending.clear();
        m_texts.clear();
    }
    // Runs what waits, if anything; throws Failure at the first statement that fails, after
    // counting those before it.
    void Flush(SessionCounts counts, ado::ResultSink& sink, int timeoutSeconds);
    // Flush in two steps: Send hands what waits to the engine and returns; Receive, which
    // must come before anything else is done on the connection, counts its answers and throws
    // its Failure as Flush does.
    void Send(bool inTransaction, int timeoutSeconds);
    bool Sent() const { return !m_sent.empty(); }
    void Receive(SessionCounts counts, ado::ResultSink& sink);

private:
    // The engine keeps a few dozen subtransactions per transaction in memory.
    static constexpr std::size_t kLongestRun = 50;
    struct Pending {
        std::size_t index;
        IdentityEffect identity;
    };
    static ado::RunGuard Guard(const std::vector<Pending>& pending, bool inTransaction);
    ado::PostgresDriver& m_driver;
    const EngineDialect& m_dialect;
    std::vector<Pending> m_pending;
    std::vector<QByteArray> m_texts;
    std::vector<Pending> m_sent; // the statements of the run sent, until Receive
};

} // namespace zlx::tsql
