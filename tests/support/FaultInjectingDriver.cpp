#include "support/FaultInjectingDriver.h"

namespace zlx::test {

// Passes the results on until the planned row count, then stops the fetch and reports nothing
// more of the batch.
class FaultInjectingDriver::CuttingSink : public ado::ResultSink {
public:
    CuttingSink(ado::ResultSink& target, int limit, int& rows)
        : m_target(target), m_limit(limit), m_rows(rows) {}
    bool Cut() const { return m_cut; }

    void BeginRowset(const std::vector<ado::ColumnInfo>& columns) override {
        if (!m_cut) m_target.BeginRowset(columns);
    }
    bool Row(std::vector<Variant>& values) override {
        if (m_limit >= 0 && m_rows >= m_limit) m_cut = true;
        if (m_cut) return false;
        ++m_rows;
        return m_target.Row(values);
    }
    void EndRowset() override {
        if (!m_cut) m_target.EndRowset();
    }
    void RowsAffected(std::int64_t count) override {
        if (!m_cut) m_target.RowsAffected(count);
    }
    void Info(const ado::ErrorRecord& record) override {
        if (!m_cut) m_target.Info(record);
    }

private:
    ado::ResultSink& m_target;
    int m_limit;
    int& m_rows;
    bool m_cut = false;
};

FaultInjectingDriver::FaultInjectingDriver(ado::DriverPtr inner) : m_inner(std::move(inner)) {}

void FaultInjectingDriver::FailCall(int n, ado::AdoError error) {
    m_callsToFailure = n;
    m_failure = std::move(error);
}

ado::AdoError FaultInjectingDriver::LinkLost() {
    const QString text = QStringLiteral("General network error. Check your network documentation.");
    ado::ErrorRecord record;
    record.number = ado::adHrConnectFailed;
    record.description = text;
    record.source = QStringLiteral("FaultInjectingDriver");
    record.nativeError = 11; // SQL Server's "General network error"
    record.sqlState = QStringLiteral("08S01");
    return ado::AdoError(ado::adHrConnectFailed, text, {record});
}

void FaultInjectingDriver::Connect(const ado::ConnectParams& params) {
    m_inner->Connect(params);
    m_linkLost = false;
}

void FaultInjectingDriver::StartConnect(const ado::ConnectParams& params) {
    m_inner->StartConnect(params);
}

bool FaultInjectingDriver::PollConnect() {
    const bool connected = m_inner->PollConnect();
    if (connected) m_linkLost = false;
    return connected;
}

void FaultInjectingDriver::Disconnect() {
    m_inner->Disconnect();
}

void FaultInjectingDriver::RequireLink() const {
    if (m_linkLost) throw LinkLost();
}

void FaultInjectingDriver::StartBatch() {
    RequireLink();
    if (m_callsToFailure > 0 && --m_callsToFailure == 0) throw *m_failure;
}

void FaultInjectingDriver::EndBatch(const CuttingSink& sink) {
    if (!sink.Cut()) return;
    m_inner->Disconnect();
    m_linkLost = true;
    throw LinkLost();
}

void FaultInjectingDriver::Execute(const QString& batch, ado::ResultSink& sink,
                                   int timeoutSeconds) {
    StartBatch();
    int rows = 0;
    CuttingSink cutting(sink, m_rowsBeforeLoss, rows);
    m_inner->Execute(batch, cutting, timeoutSeconds);
    EndBatch(cutting);
}

void FaultInjectingDriver::StartExecute(const QString& batch) {
    StartBatch();
    m_asyncRows = 0;
    m_inner->StartExecute(batch);
}

bool FaultInjectingDriver::PollExecute(ado::ResultSink& sink) {
    RequireLink();
    CuttingSink cutting(sink, m_rowsBeforeLoss, m_asyncRows);
    const bool finished = m_inner->PollExecute(cutting);
    if (cutting.Cut() && !finished) {
        // The rest of the batch is stopped and dropped; its outcome no longer matters.
        m_inner->Cancel();
        try {
            while (!m_inner->PollExecute(cutting)) {
            }
        } catch (const ado::AdoError&) {
        }
    }
    EndBatch(cutting);
    return finished;
}

void FaultInjectingDriver::UseDatabase(const QString& database) {
    RequireLink();
    m_inner->UseDatabase(database);
}

void FaultInjectingDriver::BeginTransaction() {
    RequireLink();
    m_inner->BeginTransaction();
}

void FaultInjectingDriver::Commit() {
    RequireLink();
    m_inner->Commit();
}

void FaultInjectingDriver::Rollback() {
    RequireLink();
    m_inner->Rollback();
}

} // namespace zlx::test
