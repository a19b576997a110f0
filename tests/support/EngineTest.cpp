#include "support/EngineTest.h"

namespace zlx::test {

QString ServerSetting(const char* name) {
    const QString value = qEnvironmentVariable(name);
    if (!value.isEmpty()) return value;
    // FAIL and GTEST_SKIP return from the function they are written in, hence the lambda.
    [name] {
        if (qEnvironmentVariable("ZLX_REQUIRE_PG") == u"1")
            FAIL() << name << " is not set and ZLX_REQUIRE_PG=1 requires the server";
        GTEST_SKIP() << name << " is not set";
    }();
    return value;
}

void EngineTest::SetUp() {
    ASSERT_TRUE(m_dir.isValid());
    if (!Postgres()) {
        m_target = m_dir.path();
        return;
    }
    m_target = ServerSetting("ZLX_TEST_PG");
    if (m_target.isEmpty()) return;
    if (QString::fromLatin1(GetParam()) == u"odbc") m_odbc = ServerSetting("ZLX_TEST_ODBC_PG");
}

bool EngineTest::Postgres() const {
    return QString::fromLatin1(GetParam()) != u"sqlite";
}

QString EngineTest::Server() const {
    return (Postgres() ? QStringLiteral("postgres:") : QStringLiteral("sqlite:")) + m_target;
}

std::string ServerEngineName(const ::testing::TestParamInfo<const char*>& info) {
    return info.param;
}

} // namespace zlx::test
