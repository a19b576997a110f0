// A statement sent again, or checked before its batch runs, is not translated again while
// nothing that changes its translation has changed. Each test sends one text again after such
// a change: in a batch of its own, and at the end of the batch that makes the change (checked
// before the change, run after it).
#include "QtPrinters.h"
#include "SessionFixture.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

class TranslationReuseTest : public test::SessionFixture {
protected:
    static QStringList Row(const QString& value) {
        return {QStringLiteral("rowset"), QStringLiteral("row ") + value, QStringLiteral("end")};
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(TranslationReuseTest);

TEST_P(TranslationReuseTest, DateFormatReadsTheSameTextAgain) {
    const QString cast = QStringLiteral("SELECT CAST('01/02/2024' AS DATETIME)");
    const QStringList dayFirst = Row(QStringLiteral("2024-02-01 00:00:00"));
    Exec(QStringLiteral("SET DATEFORMAT mdy"));
    const QStringList monthFirst = Outcome(cast);
    ASSERT_NE(monthFirst, dayFirst);
    EXPECT_EQ(Outcome(QStringLiteral("SET DATEFORMAT dmy ") + cast), dayFirst);
    EXPECT_EQ(Outcome(cast), dayFirst);
    EXPECT_EQ(Outcome(QStringLiteral("SET DATEFORMAT mdy ") + cast), monthFirst);
    EXPECT_EQ(Outcome(cast), monthFirst);
}

TEST_P(TranslationReuseTest, LanguageAndFirstDayNameTheSameDateAgain) {
    const QString names =
        QStringLiteral("SELECT DATENAME(mm, '20240131'), DATEPART(dw, '20240131')");
    EXPECT_EQ(Value(names), QStringLiteral("January|4"));
    EXPECT_EQ(Value(QStringLiteral("SET LANGUAGE Español ") + names), QStringLiteral("enero|4"));
    EXPECT_EQ(Value(QStringLiteral("SET DATEFIRST 1 ") + names), QStringLiteral("enero|3"));
    EXPECT_EQ(Value(names), QStringLiteral("enero|3"));
    Exec(QStringLiteral("SET LANGUAGE us_english SET DATEFIRST 7"));
    EXPECT_EQ(Value(names), QStringLiteral("January|4"));
}

TEST_P(TranslationReuseTest, NewTablesAndColumnsChangeWhatPlusMeans) {
    const QString plus = QStringLiteral("SELECT a + b FROM p");
    Exec(QStringLiteral("CREATE TABLE p (a INT, b INT) INSERT INTO p VALUES (1, 2)"));
    EXPECT_EQ(Value(plus), QStringLiteral("3"));
    EXPECT_EQ(Value(QStringLiteral("DROP TABLE p CREATE TABLE p (a VARCHAR(5), b VARCHAR(5)) "
                                   "INSERT INTO p VALUES ('1', '2') ") +
                    plus),
              QStringLiteral("12"));
    EXPECT_EQ(Value(plus), QStringLiteral("12"));
    const QString later = QStringLiteral("SELECT c + 1 FROM p");
    Exec(QStringLiteral("ALTER TABLE p ADD c INT NULL UPDATE p SET c = 5"));
    EXPECT_EQ(Value(later), QStringLiteral("6"));
    Exec(QStringLiteral("ALTER TABLE p ADD d DATETIME NULL"));
    EXPECT_EQ(Value(QStringLiteral("UPDATE p SET d = '20240131' SELECT d + 1 FROM p")),
              QStringLiteral("2024-02-01 00:00:00"));
}

TEST_P(TranslationReuseTest, TheCurrentDatabaseIsNamedAfterEachUse) {
    const QString name = QStringLiteral("SELECT DB_NAME()");
    EXPECT_EQ(Value(name), QStringLiteral("empresa"));
    Exec(QStringLiteral("IF NOT EXISTS (SELECT name FROM sysdatabases WHERE name = 'grupo') "
                        "CREATE DATABASE grupo"));
    EXPECT_EQ(Value(QStringLiteral("USE grupo ") + name), QStringLiteral("grupo"));
    EXPECT_EQ(Value(name), QStringLiteral("grupo"));
    m_session->UseDatabase(QStringLiteral("empresa"));
    EXPECT_EQ(Value(name), QStringLiteral("empresa"));
}

TEST_P(TranslationReuseTest, SessionValuesAreReadEachTime) {
    Exec(QStringLiteral("CREATE TABLE r (id INT NOT NULL IDENTITY(1,1), n INT)"));
    const QString insert = QStringLiteral("INSERT INTO r (n) VALUES (1)");
    const QString identity = QStringLiteral("SELECT @@IDENTITY");
    EXPECT_EQ(Exec(insert), QStringList{"count 1"});
    EXPECT_EQ(Value(identity), QStringLiteral("1"));
    EXPECT_EQ(Exec(insert), QStringList{"count 1"});
    EXPECT_EQ(Value(identity), QStringLiteral("2"));
    EXPECT_EQ(Value(insert + u' ' + insert + u' ' + identity), QStringLiteral("4"));
    const QString rowCount = QStringLiteral("SELECT @@ROWCOUNT");
    Exec(QStringLiteral("UPDATE r SET n = 2"));
    EXPECT_EQ(Value(rowCount), QStringLiteral("4"));
    Exec(QStringLiteral("UPDATE r SET n = 3 WHERE id > 2"));
    EXPECT_EQ(Value(rowCount), QStringLiteral("2"));
    const QString tranCount = QStringLiteral("SELECT @@TRANCOUNT");
    EXPECT_EQ(Value(QStringLiteral("BEGIN TRAN ") + tranCount), QStringLiteral("1"));
    EXPECT_EQ(Value(QStringLiteral("COMMIT ") + tranCount), QStringLiteral("0"));
}

TEST_P(TranslationReuseTest, AOneStatementBatchFailsTheSameEachTime) {
    // Refused before reaching the engine: nothing is kept of it.
    const QString refused = QStringLiteral("SELECT CAST(n AS GEOGRAPHY) FROM r");
    Exec(QStringLiteral("CREATE TABLE r (n INT)"));
    const std::int32_t refusedNumber = NativeErrorOf(refused);
    EXPECT_NE(refusedNumber, 0);
    EXPECT_EQ(NativeErrorOf(refused), refusedNumber);
    // Refused by the engine, then run once the table exists.
    const QString missing = QStringLiteral("SELECT nombre FROM faltan");
    EXPECT_EQ(NativeErrorOf(missing), 208);
    EXPECT_EQ(NativeErrorOf(missing), 208);
    Exec(QStringLiteral("CREATE TABLE faltan (nombre VARCHAR(5)) INSERT INTO faltan VALUES ('x')"));
    EXPECT_EQ(Value(missing), QStringLiteral("x"));
    // The error names the statement that failed; the one before it ran.
    const QString pair = QStringLiteral("INSERT INTO r VALUES (1) SELECT nada FROM r");
    for (int time = 1; time <= 2; ++time) {
        EXPECT_EQ(NativeErrorOf(pair), 207) << time;
        EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM r")), QString::number(time));
    }
    // A text that does not convert to the column's type fails when its statement runs.
    const QString stored =
        QStringLiteral("INSERT INTO r VALUES (5) INSERT INTO r VALUES ('cinco')");
    for (int time = 1; time <= 2; ++time) {
        EXPECT_EQ(NativeErrorOf(stored), 245) << time;
        EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM r WHERE n = 5")),
                  QString::number(time));
    }
}
