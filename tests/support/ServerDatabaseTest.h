#pragma once
// A cConexion on a scratch database of its own on each server engine (EngineTest): the
// database is made before each test and dropped after it; the library's messages are
// recorded.

#include "connection/cConexion.h"
#include "support/EngineTest.h"
#include "support/MessageRecorder.h"

#include <unistd.h>

namespace zlx::test {

class ServerDatabaseTest : public EngineTest {
protected:
    // `prefix` + the process id names the database, so parallel test programs never meet.
    explicit ServerDatabaseTest(const char* prefix)
        : m_database(QString::fromUtf8(prefix) + QString::number(getpid())) {}

    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        ASSERT_TRUE(m_cn->Init(zlxDataProvider_MSDE, {}, Server()));
        m_cn->Execute("IF EXISTS (SELECT name FROM sysdatabases WHERE name='" + m_database +
                      "') DROP DATABASE " + m_database);
        ASSERT_TRUE(m_cn->Execute("CREATE DATABASE " + m_database).ToBool());
        m_cn->DBName(m_database);
    }
    void TearDown() override {
        if (m_cn->cn() && m_cn->cn()->State() == 1) {
            m_cn->DBName("master");
            m_cn->Execute("DROP DATABASE " + m_database, 0, Variant(0), true);
        }
    }

    // For tests whose own sessions the server may have ended: a new session drops the
    // database.
    void DropDatabaseFromNewSession() {
        if (Target().isEmpty()) return;
        cConexion cleanup;
        cleanup.Init(zlxDataProvider_MSDE, {}, Server());
        cleanup.Execute("DROP DATABASE " + m_database, 0, Variant(0), true);
    }

    // A session of the server in its own dialect, outside the library.
    ado::ConnectionPtr NativeSession() const {
        auto session = std::make_shared<ado::Connection>();
        session->Open("Provider=SQLOLEDB.1;SQL Dialect=Native;Server=" + Server());
        return session;
    }

    void Run(const QString& sql) {
        m_cn->Execute(sql);
        ASSERT_EQ(m_cn->GetLastError(), 0) << sql.toStdString();
    }

    MessageRecorder m_messages;
    QString m_database;
    cConexionPtr m_cn = std::make_shared<cConexion>();
};

} // namespace zlx::test
