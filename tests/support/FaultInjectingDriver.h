#pragma once
// An engine driver that fails on purpose, for reliability tests: it wraps a real driver and
// passes every call through, except that the N-th batch from now fails with a given error, or
// that the link is lost after N rows: the rows before reach the sink, then the batch fails as
// a broken link (SQLSTATE 08S01) and the driver stays disconnected until it connects again.

#include "platform/engines/Driver.h"

#include <optional>

namespace zlx::test {

class FaultInjectingDriver : public ado::Driver {
public:
    explicit FaultInjectingDriver(ado::DriverPtr inner);

    // The n-th batch from now (1: the next one) fails with `error` instead of running.
    void FailCall(int n, ado::AdoError error);
    // From now on, a batch that has handed `rows` rows to its sink loses the link (what the
    // engine still sends of that batch is not reported); -1 keeps the link.
    void LoseLinkAfterRows(int rows) { m_rowsBeforeLoss = rows; }
    // The error of a lost link, as the engines raise it.
    static ado::AdoError LinkLost();

    ado::SqlDialect Dialect() const override { return m_inner->Dialect(); }
    void* NativeHandle() const override { return m_linkLost ? nullptr : m_inner->NativeHandle(); }
    void Connect(const ado::ConnectParams& params) override;
    void StartConnect(const ado::ConnectParams& params) override;
    bool PollConnect() override;
    void Disconnect() override;
    bool IsConnected() const override { return !m_linkLost && m_inner->IsConnected(); }
    void Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) override;
    void StartExecute(const QString& batch) override;
    bool PollExecute(ado::ResultSink& sink) override;
    void Cancel() override { m_inner->Cancel(); }
    void UseDatabase(const QString& database) override;
    QString CurrentDatabase() const override { return m_inner->CurrentDatabase(); }
    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;
    QString EngineName() const override { return m_inner->EngineName(); }
    void ResolveBaseColumns(std::vector<ado::ColumnInfo>& columns) override {
        m_inner->ResolveBaseColumns(columns);
    }

private:
    class CuttingSink;
    // Throws when the link is lost or the planned failure's turn has come.
    void StartBatch();
    void RequireLink() const;
    // After a batch: when its rows were cut, the link is lost now.
    void EndBatch(const CuttingSink& sink);

    ado::DriverPtr m_inner;
    int m_callsToFailure = 0; // 0: no failure planned
    std::optional<ado::AdoError> m_failure;
    int m_rowsBeforeLoss = -1; // -1: the link holds
    bool m_linkLost = false;
    int m_asyncRows = 0; // rows of the running asynchronous batch so far
};

} // namespace zlx::test
