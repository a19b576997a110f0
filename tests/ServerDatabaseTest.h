#pragma once
// A connection to a scratch database of its own on each server engine a test runs on: the
// embedded server folder and, when the test environment names one, PostgreSQL. The database
// is made before each test and dropped after it.

#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace zlx::test {

class ServerDatabaseTest : public ::testing::TestWithParam<const char*> {
protected:
    // `prefix` + the process id names the database, so parallel test programs never meet.
    explicit ServerDatabaseTest(const char* prefix)
        : m_database(QString::fromUtf8(prefix) + QString::number(getpid())) {}

    void SetUp() override {
        QString server = "sqlite:" + m_dir.path();
        if (Postgres()) {
            const QByteArray conninfo = qgetenv("ZLX_TEST_PG");
            if (conninfo.isEmpty()) {
                if (qgetenv("ZLX_REQUIRE_PG") == "1") FAIL() << "ZLX_TEST_PG is not set";
                GTEST_SKIP() << "no PostgreSQL server";
            }
            server = "postgres:" + QString::fromUtf8(conninfo);
        }
        ASSERT_TRUE(m_cn->Init(zlxDataProvider_MSDE, {}, server));
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

    bool Postgres() const { return QString(GetParam()) == "postgres"; }
    void Run(const QString& sql) {
        m_cn->Execute(sql);
        ASSERT_EQ(m_cn->GetLastError(), 0) << sql.toStdString();
    }

    QTemporaryDir m_dir;
    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_scope{m_messages};
    QString m_database;
    cConexionPtr m_cn = std::make_shared<cConexion>();
};

inline std::string ServerEngineName(const ::testing::TestParamInfo<const char*>& info) {
    return info.param;
}

} // namespace zlx::test

// Runs the suite on both server engines.
#define ZLX_ON_SERVER_ENGINES(Suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, ::testing::Values("sqlite", "postgres"),              \
                             zlx::test::ServerEngineName)
