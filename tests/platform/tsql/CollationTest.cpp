// The database collation Modern_Spanish_CI_AI on every engine: text columns compare without
// regard to case, accents or trailing blanks, ñ is a letter of its own after n, and LIKE,
// REPLACE, CHARINDEX, UPPER and LOWER follow the same rules.
#include "SessionFixture.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

class CollationTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (Stopped()) return;
        Exec(QStringLiteral("CREATE TABLE personas (ZolmarID INT NOT NULL IDENTITY(1,1), "
                            "Nombre VARCHAR(30) NOT NULL)"));
    }

    void Insert(const QStringList& names) {
        for (const QString& name : names)
            Exec(QStringLiteral("INSERT INTO personas (Nombre) VALUES ('%1')").arg(name));
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(CollationTest);

TEST_P(CollationTest, CaseAccentsAndTrailingBlanksDoNotMakeTextsDiffer) {
    Insert({"José", "JOSE", "jose", "Peña", "Ana"});
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE Nombre = 'josé'")),
              QStringLiteral("3"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE Nombre = 'ANA   '")),
              QStringLiteral("1"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE Nombre <> 'Ana '")),
              QStringLiteral("4"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE 'pena' = Nombre")),
              QStringLiteral("0"));
    EXPECT_EQ(Value(QStringLiteral("SELECT CASE WHEN 'jose' = 'JOSÉ  ' AND 'ñ' > 'n' AND 'ñ' < 'O' "
                                   "AND 'JOSÉ' IN ('ana', 'jose') THEN 1 ELSE 0 END")),
              QStringLiteral("1"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE RTRIM(Nombre) = 'JOSE'")),
              QStringLiteral("3"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(DISTINCT Nombre) FROM personas")),
              QStringLiteral("3"));
    EXPECT_EQ(Column(QStringLiteral(
                  "SELECT count(*) FROM personas GROUP BY Nombre ORDER BY count(*) DESC")),
              (QStringList{"3", "1", "1"}));
    // Blanks that end a stored text do not count either.
    Exec(QStringLiteral("UPDATE personas SET Nombre = 'Ana  ' WHERE Nombre = 'ana'"));
    EXPECT_EQ(Value(QStringLiteral("SELECT LEN(Nombre) FROM personas WHERE ZolmarID = 5")),
              QStringLiteral("3"));
    Exec(QStringLiteral("INSERT INTO personas (Nombre) VALUES ('Eva   ')"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE Nombre = 'ana'")),
              QStringLiteral("1"));
    Exec(QStringLiteral("UPDATE personas SET Nombre = 'Rosa' WHERE Nombre = 'Ana'"));
    Exec(QStringLiteral("DELETE FROM personas WHERE Nombre = 'JOSÉ'"));
    Exec(QStringLiteral("CREATE UNIQUE INDEX personas_nombre ON personas (Nombre)"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO personas (Nombre) VALUES ('EVA')")), 2601);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE Nombre = 'rosa'")),
              QStringLiteral("1"));
}

TEST_P(CollationTest, EnyeSortsAfterNAndAccentedLettersNextToTheirBase) {
    Insert({"Nuo", "Nuñez", "Nunez", "ñu", "oca", "Álvaro", "Alonso", "nz", "Amor"});
    EXPECT_EQ(
        Column(QStringLiteral("SELECT Nombre FROM personas ORDER BY Nombre")),
        (QStringList{"Alonso", "Álvaro", "Amor", "Nunez", "Nuñez", "Nuo", "nz", "ñu", "oca"}));
    EXPECT_EQ(Value(QStringLiteral(
                  "SELECT TOP 1 Nombre FROM personas WHERE Nombre > 'nunez' ORDER BY Nombre")),
              QStringLiteral("Nuñez"));
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM personas WHERE Nombre < 'Ñ'")),
              QStringLiteral("7"));
}

TEST_P(CollationTest, SearchesInsideTextFollowTheCollation) {
    Insert({"José Pérez", "Peña", "Pena", "10%", "ÁLVAREZ"});
    EXPECT_EQ(Column(QStringLiteral("SELECT Nombre FROM personas WHERE Nombre LIKE 'jose p%'")),
              QStringList{"José Pérez"});
    EXPECT_EQ(Column(QStringLiteral("SELECT Nombre FROM personas WHERE Nombre LIKE 'PE[Ñ]A'")),
              QStringList{"Peña"});
    EXPECT_EQ(Value(QStringLiteral(
                  "SELECT count(*) FROM personas WHERE Nombre NOT LIKE 'p%' AND Nombre LIKE '%'")),
              QStringLiteral("3"));
    EXPECT_EQ(
        Column(QStringLiteral("SELECT Nombre FROM personas WHERE Nombre LIKE '10|%' ESCAPE '|'")),
        QStringList{"10%"});
    EXPECT_EQ(Column(QStringLiteral("SELECT Nombre FROM personas WHERE Nombre LIKE 'alv' + '%'")),
              QStringList{"ÁLVAREZ"});
    EXPECT_EQ(
        Value(QStringLiteral("SELECT CHARINDEX('PEREZ', Nombre) FROM personas WHERE ZolmarID = 1")),
        QStringLiteral("6"));
    EXPECT_EQ(Value(QStringLiteral(
                  "SELECT REPLACE(Nombre, 'alvarez', 'Á.') FROM personas WHERE ZolmarID = 5")),
              QStringLiteral("Á."));
    EXPECT_EQ(Value(QStringLiteral(
                  "SELECT REPLACE(Nombre, 'pena', 'x') FROM personas WHERE ZolmarID = 3")),
              QStringLiteral("x"));
    EXPECT_EQ(Value(QStringLiteral(
                  "SELECT UPPER(Nombre) + '/' + LOWER(Nombre) FROM personas WHERE ZolmarID = 2")),
              QStringLiteral("PEÑA/peña"));
}

// The record cursor moves by comparing its order value with = and >: texts equal under the
// collation are visited in the order of their key, as on SQL Server.
TEST_P(CollationTest, MovesByOrderValueVisitEqualTextsByKey) {
    Insert({"Amor", "alvarez", "Álvarez", "ALVAREZ "});
    QStringList visited;
    QString name = QStringLiteral("''");
    QString id = QStringLiteral("0");
    for (int move = 0; move < 5; ++move) {
        const QStringList row =
            Value(QStringLiteral("SELECT TOP 1 ZolmarID, Nombre FROM personas WHERE Nombre > %1 "
                                 "OR (Nombre = %1 AND ZolmarID > %2) ORDER BY Nombre, ZolmarID")
                      .arg(name, id))
                .split(u'|');
        if (row.size() < 2) break;
        visited << row[0];
        id = row[0];
        name = u'\'' + row[1] + u'\'';
    }
    EXPECT_EQ(visited, (QStringList{"2", "3", "4", "1"}));
}
