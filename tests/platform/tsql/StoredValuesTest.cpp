// Values stored as SQL Server stores them whatever the engine keeps: a blank text in a number
// or date column, a DECIMAL rounded to its scale, a duplicate told as a constraint's or an
// index's.
#include "SessionFixture.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

class StoredValuesTest : public test::SessionFixture {};

} // namespace

ZLX_ON_SERVER_ENGINES(StoredValuesTest);

TEST_P(StoredValuesTest, ABlankTextTakesItsColumnsType) {
    Exec(QStringLiteral("CREATE TABLE [mis datos] (id INT, cantidad SMALLINT, nota VARCHAR(5), "
                        "alta DATETIME, precio MONEY)"));
    Exec(QStringLiteral("INSERT INTO [mis datos] VALUES (1, '', '', '', ''), (2, 4, 'x', "
                        "'01/02/2024', 1.5)"));
    Exec(QStringLiteral("INSERT INTO [mis datos] (precio, alta, nota, cantidad, id) VALUES ('  ', "
                        "'', '  ', '', 3)"));
    Exec(QStringLiteral("UPDATE [mis datos] SET cantidad = '', precio = '' WHERE id = 2"));
    EXPECT_EQ(Column(QStringLiteral("SELECT cantidad FROM [mis datos] ORDER BY id")),
              (QStringList{"0", "0", "0"}));
    EXPECT_EQ(Column(QStringLiteral("SELECT YEAR(alta) FROM [mis datos] ORDER BY id")),
              (QStringList{"1900", "2024", "1900"}));
    // The text column keeps its texts, blank ones included.
    EXPECT_EQ(Value(QStringLiteral("SELECT COUNT(*) FROM [mis datos] WHERE precio = 0 AND nota "
                                   "= '' AND LEN(nota) = 0")),
              QStringLiteral("2"));
}

TEST_P(StoredValuesTest, ABlankTextIsNoDecimalAndStoresNothing) {
    Exec(QStringLiteral("CREATE TABLE importes (id INT, total DECIMAL(8,2))"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO importes VALUES (1, '')")), 8114);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT 2.5 + ''")), 8114);
    EXPECT_EQ(Value(QStringLiteral("SELECT COUNT(*) FROM importes")), QStringLiteral("0"));
}

TEST_P(StoredValuesTest, DecimalsRoundHalfAwayFromZeroAndKeepTheirPrecision) {
    const auto yes = [this](const QString& condition) {
        return Value(QStringLiteral("SELECT CASE WHEN %1 THEN 'si' ELSE 'no' END").arg(condition));
    };
    EXPECT_EQ(yes(QStringLiteral("CAST(9.995 AS DECIMAL(5,2)) = 10")), QStringLiteral("si"));
    EXPECT_EQ(yes(QStringLiteral("CAST(-0.005 AS DECIMAL(5,2)) = -0.01")), QStringLiteral("si"));
    EXPECT_EQ(yes(QStringLiteral("CAST('1.005' AS NUMERIC(4,2)) = 1.01")), QStringLiteral("si"));
    EXPECT_EQ(yes(QStringLiteral("CAST(2.5 AS DECIMAL(3,0)) = 3")), QStringLiteral("si"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT CAST(999.995 AS DECIMAL(5,2))")), 8115);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT CAST('doce' AS DECIMAL(5,2))")), 8114);
}

TEST_P(StoredValuesTest, ADuplicateIsTheConstraintsOrTheIndexsAsTheTableIsNow) {
    Exec(QStringLiteral("CREATE TABLE codigos (c INT, CONSTRAINT uq_codigos UNIQUE (c))"));
    Exec(QStringLiteral("INSERT INTO codigos VALUES (1)"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO codigos VALUES (1)")), 2627);
    // The same table made again with a unique index instead of the constraint.
    Exec(QStringLiteral("DROP TABLE codigos"));
    Exec(QStringLiteral("CREATE TABLE codigos (c INT)"));
    Exec(QStringLiteral("CREATE UNIQUE INDEX uq_codigos ON codigos (c)"));
    Exec(QStringLiteral("INSERT INTO codigos VALUES (1)"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO codigos VALUES (1)")), 2601);
}

// A default written as a date is a date in a date column and the text as written in any other:
// a column's own DEFAULT, one added with its column, and a bound default.
TEST_P(StoredValuesTest, ADefaultWrittenAsADateIsADateOnlyInADateColumn) {
    Exec(QStringLiteral("CREATE TABLE fichas (id INT, alta DATETIME DEFAULT '20240315', codigo "
                        "VARCHAR(10) DEFAULT '15/03/2024')"));
    Exec(QStringLiteral("INSERT INTO fichas (id) VALUES (1)"));
    Exec(QStringLiteral("ALTER TABLE fichas ADD baja DATETIME NULL DEFAULT '20241231 10:00'"));
    Exec(QStringLiteral("CREATE DEFAULT DEFAULT_FECHA AS '17530101'"));
    Exec(QStringLiteral("ALTER TABLE fichas ADD revision DATETIME NULL"));
    Exec(QStringLiteral("ALTER TABLE fichas ADD clave VARCHAR(10) NULL"));
    Exec(QStringLiteral("EXEC sp_bindefault 'DEFAULT_FECHA', 'fichas.revision'"));
    Exec(QStringLiteral("EXEC sp_bindefault 'DEFAULT_FECHA', 'fichas.clave'"));
    Exec(QStringLiteral("INSERT INTO fichas (id) VALUES (2)"));
    EXPECT_EQ(Exec(QStringLiteral("SELECT id, YEAR(alta), codigo, YEAR(baja), YEAR(revision), "
                                  "clave FROM fichas ORDER BY id")),
              (QStringList{"rowset", "row 1|2024|15/03/2024|NULL|NULL|NULL",
                           "row 2|2024|15/03/2024|2024|1753|17530101", "end"}));
}

// A duplicate identity is the key's 2627 where the identity has a key of its own (in its
// definition or added later); without one SQL Server keeps the value twice, as PostgreSQL does,
// while SQLite, whose identity is the row id, refuses it naming what it cannot do.
TEST_P(StoredValuesTest, AnIdentityHoldsAValueTwiceOnlyWithoutAKey) {
    Exec(QStringLiteral("CREATE TABLE con_clave (id INT IDENTITY(1,1) PRIMARY KEY, n INT)"));
    Exec(QStringLiteral("CREATE TABLE con_indice (id INT IDENTITY(1,1), n INT)"));
    Exec(QStringLiteral("ALTER TABLE con_indice ADD CONSTRAINT con_indice_PKEY_id PRIMARY KEY "
                        "NONCLUSTERED (id)"));
    Exec(QStringLiteral("CREATE TABLE sin_clave (id INT IDENTITY(1,1), n INT)"));
    const auto duplicate = [this](const char* table) {
        Exec(QStringLiteral("INSERT INTO %1 (n) VALUES (1)").arg(QLatin1String(table)));
        return QStringLiteral("SET IDENTITY_INSERT %1 ON INSERT INTO %1 (id, n) VALUES (1, 2)")
            .arg(QLatin1String(table));
    };
    EXPECT_EQ(NativeErrorOf(duplicate("con_clave")), 2627);
    EXPECT_EQ(NativeErrorOf(duplicate("con_indice")), 2627);
    if (Postgres()) {
        Exec(duplicate("sin_clave"));
        EXPECT_EQ(Column(QStringLiteral("SELECT id FROM sin_clave")), (QStringList{"1", "1"}));
        return;
    }
    try {
        Exec(duplicate("sin_clave"));
        ADD_FAILURE() << "the duplicate was stored";
    } catch (const ado::AdoError& error) {
        EXPECT_EQ(error.Records().front().description,
                  QStringLiteral("Construcción T-SQL no soportada: un valor repetido en la "
                                 "columna IDENTITY sin clave sin_clave.id"));
    }
    EXPECT_EQ(Column(QStringLiteral("SELECT n FROM sin_clave")), QStringList{"1"});
}
