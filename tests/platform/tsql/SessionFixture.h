#pragma once
// A T-SQL session on each server engine for the tests: the server starts without the databases
// the tests make, batches run through the session and their result events come back as text.

#include "EventText.h"
#include "platform/engines/AdoError.h"
#include "platform/engines/PostgresDriver.h"
#include "platform/engines/SqliteDriver.h"
#include "platform/tsql/TsqlSession.h"
#include "support/EngineTest.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

namespace zlx::test {

class SessionFixture : public EngineTest {
protected:
    // The session starts in database "empresa", made afresh.
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        if (Postgres()) DropSchemas();
        m_session = Open(QStringLiteral("master"));
        Exec(QStringLiteral("IF NOT EXISTS (SELECT name FROM sysdatabases WHERE name = 'empresa') "
                            "CREATE DATABASE empresa"));
        m_session->UseDatabase(QStringLiteral("empresa"));
    }
    void TearDown() override { m_session.reset(); }

    // Each test starts from a server without the databases the tests make.
    void DropSchemas() {
        ado::PostgresDriver driver;
        ado::ConnectParams params;
        params.target = Target();
        driver.Connect(params);
        RecordingSink sink;
        driver.Execute(
            QStringLiteral(
                "DROP SCHEMA IF EXISTS empresa CASCADE; DROP SCHEMA IF EXISTS grupo CASCADE"),
            sink, 0);
    }

    std::unique_ptr<tsql::TsqlSession> Open(const QString& database) {
        ado::DriverPtr driver;
        if (Postgres())
            driver = std::make_unique<ado::PostgresDriver>();
        else
            driver = std::make_unique<ado::SqliteDriver>(ado::SqliteDriver::Layout::ServerFolder);
        auto session = std::make_unique<tsql::TsqlSession>(std::move(driver));
        ado::ConnectParams params;
        params.target = Target();
        params.defaultDatabase = database;
        session->Connect(params);
        return session;
    }

    QStringList Exec(const QString& batch, tsql::TsqlSession* session = nullptr) {
        RecordingSink sink;
        (session ? session : m_session.get())->Execute(batch, sink, 0);
        return sink.events;
    }

    // The columns and first row of the batch's first rowset.
    ColumnsSink Columns(const QString& batch) {
        ColumnsSink sink;
        m_session->Execute(batch, sink, 0);
        return sink;
    }

    QString Value(const QString& batch) {
        for (const QString& event : Exec(batch)) {
            if (event.startsWith(u"row ")) return event.mid(4);
        }
        return QStringLiteral("<no row>");
    }

    // The values of the first column of each row, in order.
    QStringList Column(const QString& query) {
        QStringList values;
        for (const QString& event : Exec(query))
            if (event.startsWith(u"row ")) values << event.mid(4).section(u'|', 0, 0);
        return values;
    }

    // The session's events for the batch, or "error <native number>" when it fails ("error"
    // when the failure carries no SQL Server number).
    QStringList Outcome(const QString& batch) {
        try {
            return Exec(batch);
        } catch (const ado::AdoError& error) {
            const std::int32_t native =
                error.Records().empty() ? 0 : error.Records().front().nativeError;
            return {native > 1 ? QStringLiteral("error %1").arg(native) : QStringLiteral("error")};
        }
    }

    std::int32_t NativeErrorOf(const QString& batch) {
        try {
            Exec(batch);
        } catch (const ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14)) << batch.toStdString();
            return error.Records().empty() ? -1 : error.Records().front().nativeError;
        }
        ADD_FAILURE() << "no error: " << batch.toStdString();
        return 0;
    }

    std::unique_ptr<tsql::TsqlSession> m_session;
};

} // namespace zlx::test
