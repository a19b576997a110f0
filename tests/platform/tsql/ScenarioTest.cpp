// The differential scenarios: every file of scenarios/ on each engine, compared with what SQL
// Server answers. A scenario marked as a gap on an engine must still differ there, so that a
// fixed difference loses its mark.
#include "GoldenCorpus.h"
#include "ScenarioFile.h"
#include "SessionFixture.h"

#include <exception>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

class ScenarioTest : public test::SessionFixture {
protected:
    // Only the database "escenario" is made and dropped: the session tests, which may run at
    // the same time on the same PostgreSQL server, keep theirs.
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        m_session = Open(QStringLiteral("master"));
    }

    QString EngineName() const {
        return Postgres() ? QStringLiteral("postgres") : QStringLiteral("sqlite");
    }

    // Each scenario starts on an empty database, with the session set as the library sets its
    // sessions (one session for all: a connection to PostgreSQL costs more than a scenario).
    void StartScenario() {
        if (m_session->TranCount() > 0) Exec(QStringLiteral("ROLLBACK TRAN"));
        Exec(QStringLiteral("SET NOCOUNT OFF"));
        m_session->UseDatabase(QStringLiteral("master"));
        Exec(QStringLiteral("IF EXISTS (SELECT name FROM sysdatabases WHERE name = 'escenario') "
                            "DROP DATABASE escenario"));
        Exec(QStringLiteral("CREATE DATABASE escenario"));
        m_session->UseDatabase(QStringLiteral("escenario"));
        for (const char* option :
             {"SET XACT_ABORT ON", "SET LANGUAGE Español", "SET DATEFORMAT dmy", "SET DATEFIRST 1"})
            Exec(QString::fromUtf8(option));
    }

    // The first answer that differs from SQL Server's, empty when there is none.
    QString Difference(const test::Scenario& scenario) {
        StartScenario();
        for (const test::ScenarioBatch& batch : scenario.batches) {
            const QStringList answer = Answer(batch.sql);
            const bool failed = !answer.isEmpty() && answer.front().startsWith(u"error");
            if (batch.checked ? !Matches(batch.expected, answer) : failed)
                return QStringLiteral("%1\n  expected: %2\n  answered: %3")
                    .arg(batch.sql, batch.checked ? batch.expected.join(u" / ") : "success",
                         answer.join(u" / "));
        }
        return QString();
    }

    QStringList Answer(const QString& sql) {
        try {
            return Outcome(sql);
        } catch (const std::exception& error) {
            return {QStringLiteral("error (%1)").arg(QString::fromUtf8(error.what()))};
        }
    }

    static bool Matches(const QStringList& expected, const QStringList& answer) {
        if (expected.size() != answer.size()) return false;
        for (qsizetype i = 0; i < expected.size(); ++i)
            if (!test::ResultLineMatches(expected[i], answer[i])) return false;
        return true;
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(ScenarioTest);

TEST_P(ScenarioTest, AnswersAsSqlServerExceptForTheMarkedGaps) {
    ASSERT_FALSE(test::Scenarios().empty());
    // ZLX_SCENARIO=text runs only the scenarios whose file names hold it.
    const QString only = qEnvironmentVariable("ZLX_SCENARIO");
    for (const test::Scenario& scenario : test::Scenarios()) {
        if (!scenario.name.contains(only)) continue;
        const QString difference = Difference(scenario);
        const bool gap = scenario.gapEngines.contains(EngineName());
        if (gap && difference.isEmpty())
            ADD_FAILURE() << scenario.name.toStdString()
                          << ": answers as SQL Server now, remove its gap line";
        if (!gap && !difference.isEmpty())
            ADD_FAILURE() << scenario.name.toStdString() << ": " << difference.toStdString();
    }
}
