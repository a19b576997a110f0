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
    // Renamed by sp_rename (called with EXEC or without) or made again by SELECT ... INTO, the
    // table the statement names is read again.
    Exec(QStringLiteral("CREATE TABLE q (a INT, b INT) INSERT INTO q VALUES (1, 2)"));
    EXPECT_EQ(Value(plus), QStringLiteral("12"));
    Exec(QStringLiteral("sp_rename 'p', 'textos'"));
    Exec(QStringLiteral("sp_rename 'q', 'p'"));
    EXPECT_EQ(Value(plus), QStringLiteral("3"));
    EXPECT_EQ(Value(QStringLiteral("EXEC sp_rename 'p', 'q' EXEC sp_rename 'textos', 'p' ") + plus),
              QStringLiteral("12"));
    EXPECT_EQ(Value(QStringLiteral("DROP TABLE p SELECT a, b INTO p FROM q ") + plus),
              QStringLiteral("3"));
    EXPECT_EQ(Value(plus), QStringLiteral("3"));
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

// Statements that differ only in a literal compared with a column share one translation; each
// is still answered for its own literal, and a literal that the translation rewrites (a date,
// trailing blanks, arithmetic) is not taken for another's.
TEST_P(TranslationReuseTest, ComparedLiteralsAnswerForThemselves) {
    Exec(QStringLiteral("CREATE TABLE c (id INT, grupo INT, nombre VARCHAR(20), alta DATETIME) "
                        "INSERT INTO c VALUES (1, 5, 'Ana', '20240131') "
                        "INSERT INTO c VALUES (2, 5, 'O''Brien', '20240201') "
                        "INSERT INTO c VALUES (3, 7, 'Luis', '20240202')"));
    const auto next = [this](const QString& grupo, int id) {
        return Value(QStringLiteral("SELECT TOP 1 id FROM c WHERE grupo = '%1' AND  id > %2 "
                                    "ORDER BY id")
                         .arg(grupo)
                         .arg(id));
    };
    EXPECT_EQ(next(QStringLiteral("5"), 1), QStringLiteral("2"));
    EXPECT_EQ(next(QStringLiteral("5"), 2), QStringLiteral("<no row>"));
    EXPECT_EQ(next(QStringLiteral("7"), 1), QStringLiteral("3"));
    EXPECT_EQ(next(QStringLiteral("7"), 3), QStringLiteral("<no row>"));
    const auto named = [this](const QString& literal) {
        return Column(QStringLiteral("SELECT id FROM c WHERE nombre = ") + literal +
                      QStringLiteral(" ORDER BY id"));
    };
    EXPECT_EQ(named(QStringLiteral("'Luis'")), QStringList{"3"});
    EXPECT_EQ(named(QStringLiteral("'O''Brien'")), QStringList{"2"});
    EXPECT_EQ(named(QStringLiteral("'ANA'")), QStringList{"1"});
    EXPECT_EQ(named(QStringLiteral("'Ana   '")), QStringList{"1"});
    EXPECT_EQ(named(QStringLiteral("'nadie'")), QStringList{});
    const auto since = [this](const QString& literal) {
        return Column(QStringLiteral("SELECT id FROM c WHERE alta >= ") + literal +
                      QStringLiteral(" ORDER BY id"));
    };
    Exec(QStringLiteral("SET DATEFORMAT dmy"));
    EXPECT_EQ(since(QStringLiteral("'20240201'")), (QStringList{"2", "3"}));
    EXPECT_EQ(since(QStringLiteral("'02/02/2024'")), QStringList{"3"});
    const auto byId = [this](const QString& literal) {
        return Column(QStringLiteral("SELECT nombre FROM c WHERE id = ") + literal);
    };
    EXPECT_EQ(byId(QStringLiteral("2")), QStringList{"O'Brien"});
    EXPECT_EQ(byId(QStringLiteral("3")), QStringList{"Luis"});
    EXPECT_EQ(byId(QStringLiteral("1 + 2")), QStringList{"Luis"});
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT nombre FROM c WHERE id = 2147483647 + 1")),
              8115);
    EXPECT_EQ(Exec(QStringLiteral("DELETE FROM c WHERE id = 3")), QStringList{"count 1"});
    EXPECT_EQ(Exec(QStringLiteral("DELETE FROM c WHERE id = 2")), QStringList{"count 1"});
    EXPECT_EQ(Column(QStringLiteral("SELECT id FROM c")), QStringList{"1"});
}

// The check before a batch reads the columns of the table an INSERT stores in, so that the
// run does not translate the INSERT again; a table made or remade by the batch is read anew.
TEST_P(TranslationReuseTest, StoredTextsFollowTheColumnsTheBatchMakes) {
    Exec(QStringLiteral("CREATE TABLE n (v INT)"));
    const QString blank = QStringLiteral("INSERT INTO n VALUES ('') SELECT v FROM n");
    EXPECT_EQ(Column(blank), QStringList{"0"});
    EXPECT_EQ(Column(QStringLiteral("DROP TABLE n CREATE TABLE n (v VARCHAR(5)) ") + blank),
              QStringList{""});
    EXPECT_EQ(Column(QStringLiteral("SELECT v INTO m FROM n WHERE 1 = 0 "
                                    "INSERT INTO m VALUES ('x') SELECT v FROM m")),
              QStringList{"x"});
    Exec(QStringLiteral("CREATE TABLE k (v INT)"));
    EXPECT_EQ(Column(QStringLiteral("SELECT v INTO j FROM k WHERE 1 = 0 "
                                    "INSERT INTO j VALUES ('') SELECT v FROM j")),
              QStringList{"0"});
}
