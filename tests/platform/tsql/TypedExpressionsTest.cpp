// Where the engine's calls go around typed arithmetic: each operation as SQL Server's
// precedence groups it, and only operations whose operands' types ask for one.
#include "QtPrinters.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/PostgresDialect.h"
#include "platform/tsql/SqliteDialect.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TsqlTranslator.h"

#include <QHash>
#include <gtest/gtest.h>

using namespace zlx::tsql;

namespace {

QString Translated(const QString& tsql, const EngineDialect& dialect) {
    TranslationContext context;
    context.dialect = &dialect;
    context.columnType = [](const QString& column) {
        static const QHash<QString, QString> types = {
            {u"i"_qs, u"INT"_qs},          {u"j"_qs, u"INTEGER"_qs},
            {u"s"_qs, u"SMALLINT"_qs},     {u"b"_qs, u"BIGINT"_qs},
            {u"m"_qs, u"MONEY"_qs},        {u"v"_qs, u"VARCHAR(10)"_qs},
            {u"d"_qs, u"DECIMAL(6,2)"_qs}, {u"nv"_qs, u"NVARCHAR(10)"_qs},
            {u"f"_qs, u"BIT"_qs},          {u"t"_qs, u"TINYINT"_qs}};
        return types.value(column.toLower());
    };
    const auto statements = SplitBatch(Tokenize(tsql));
    return TsqlTranslator(context).Translate(statements.front()).sql;
}

QString Sqlite(const QString& tsql) {
    static const SqliteDialect dialect;
    return Translated(tsql, dialect);
}

QString Postgres(const QString& tsql) {
    static const PostgresDialect dialect;
    return Translated(tsql, dialect);
}

} // namespace

TEST(TypedExpressions, IntegerStepsAreCheckedInPrecedenceOrderOnSqlite) {
    EXPECT_EQ(Sqlite(u"SELECT i + j * 3 - s FROM t"_qs),
              u"SELECT zlx_integer_result(zlx_integer_result(i + zlx_integer_result(j * 3, "
              u"'int'), 'int') - s, 'int') FROM t"_qs);
    EXPECT_EQ(Sqlite(u"SELECT -(i + 1) * 2, t.b * 2 FROM t WHERE s + 1 > 0"_qs),
              u"SELECT zlx_integer_result(-(zlx_integer_result(i + 1, 'int')) * 2, 'int'), "
              u"zlx_integer_result(t.b * 2, 'bigint') FROM t WHERE zlx_integer_result(s + 1, "
              u"'int') > 0"_qs);
    // A division can only leave the range at its one corner, which is left to the engine.
    EXPECT_EQ(Sqlite(u"SELECT i / 2 % 3 FROM t"_qs),
              u"SELECT i / zlx_divisor(2) % zlx_divisor(3) FROM t"_qs);
}

TEST(TypedExpressions, OperationsOfOtherTypesStayAsWritten) {
    const QString untyped = u"SELECT x * i, 2 * 3, v + nv, COUNT(*) FROM t"_qs;
    EXPECT_EQ(Sqlite(untyped), untyped);
    EXPECT_EQ(Postgres(u"SELECT i * 3, s - 1 FROM t"_qs), u"SELECT i * 3, s - 1 FROM t"_qs);
}

// DECIMAL(6,2) * INT is DECIMAL(17,2); DECIMAL(6,2) / INT is DECIMAL(17,13), and INT / 1.5
// (DECIMAL(2,1)) is DECIMAL(17,6): each rounded to that scale, a division on SQLite made on
// reals because a whole DECIMAL may be stored as an integer.
TEST(TypedExpressions, DecimalResultsTakeSqlServersPrecisionAndScale) {
    EXPECT_EQ(
        Sqlite(u"SELECT d * i, d / i, i / 1.5 FROM t"_qs),
        u"SELECT zlx_decimal(d * i, 17, 2), zlx_decimal(CAST(d AS REAL) / zlx_divisor(i), 17, "
        u"13), zlx_decimal(CAST(i AS REAL) / zlx_divisor(1.5), 17, 6) FROM t"_qs);
    EXPECT_EQ(Postgres(u"SELECT d - 0.005 FROM t"_qs),
              u"SELECT CAST(d - 0.005 AS decimal(8,3)) FROM t"_qs);
}

// A text in arithmetic with an integer is read as the integer's type: v + 1 adds.
TEST(TypedExpressions, TextsBesideIntegersAreReadAsIntegers) {
    EXPECT_EQ(Sqlite(u"SELECT v - i, 1 + v FROM t"_qs),
              u"SELECT zlx_integer_result(zlx_integer(v, 'int') - i, 'int'), "
              u"zlx_integer_result(1 + zlx_integer(v, 'int'), 'int') FROM t"_qs);
    EXPECT_EQ(Postgres(u"SELECT v + b FROM t WHERE v > 10"_qs),
              u"SELECT CAST(zlx_trunc(v, 'bigint') AS bigint) + b FROM t WHERE "
              u"CAST(zlx_trunc(v, 'int') AS integer) > 10"_qs);
}

TEST(TypedExpressions, SumsOfIntegersAreOfTheirSqlServerType) {
    EXPECT_EQ(Postgres(u"SELECT SUM(s) / 2, SUM(b), SUM(d) FROM t"_qs),
              u"SELECT CAST(SUM(s) AS integer) / 2, CAST(SUM(b) AS bigint), SUM(d) FROM t"_qs);
    EXPECT_EQ(Sqlite(u"SELECT SUM(i * 2) FROM t"_qs),
              u"SELECT zlx_integer_result(SUM(zlx_integer_result(i * 2, 'int')), 'int') FROM t"_qs);
}

// A quotient goes to the engine's call that truncates it, its operands in place of the "/".
TEST(TypedExpressions, MoneyResultsKeepFourPlaces) {
    EXPECT_EQ(Sqlite(u"SELECT m / i, AVG(m), (m + 1) / -m FROM t"_qs),
              u"SELECT zlx_decimal(zlx_money_quotient(m, i), 19, 4), zlx_decimal(AVG(m), 19, 4), "
              u"zlx_decimal(zlx_money_quotient((zlx_decimal(m + 1, 19, 4)), -m), 19, 4) FROM t"_qs);
    EXPECT_EQ(
        Postgres(u"SELECT m * m + 1, CAST(2 AS MONEY) / 3 FROM t"_qs),
        u"SELECT CAST(CAST(m * m AS numeric(19,4)) + 1 AS numeric(19,4)), CAST((div(CAST(CAST("
        u"2 AS numeric(19,4)) AS numeric) * 10000, 3) / 10000) AS numeric(19,4)) FROM t"_qs);
}

TEST(TypedExpressions, NationalTextsCountTwoBytesACharacter) {
    EXPECT_EQ(Sqlite(u"SELECT DATALENGTH(nv), DATALENGTH(LEFT(nv, 2)), DATALENGTH(N'ab'), "
                     u"DATALENGTH(v) FROM t"_qs),
              u"SELECT (2 * zlx_datalength(nv)), (2 * zlx_datalength(zlx_left(nv, 2))), (2 * "
              u"zlx_datalength('ab')), zlx_datalength(v) FROM t"_qs);
}

// ~ of a BIT is kept to one bit; TINYINT and SMALLINT steps are checked where PostgreSQL's
// smallint would pass 255 or fail with an error of its own.
TEST(TypedExpressions, BitNegationsAndSmallIntegerStepsKeepTheirType) {
    EXPECT_EQ(Sqlite(u"UPDATE x SET f = ~f WHERE ~f = 1 AND ~i = -2"_qs),
              "UPDATE x SET f = (1 & ~f) WHERE (1 & ~f) = 1 AND ~i = -2");
    EXPECT_EQ(Postgres(u"SELECT t + t - t, s * s, t + i FROM x"_qs),
              "SELECT zlx_int_result(CAST(zlx_int_result(CAST(t AS integer) + t, 'tinyint') AS "
              "integer) - t, 'tinyint'), zlx_int_result(CAST(s AS integer) * s, 'smallint'), t + "
              "i FROM x");
    EXPECT_EQ(Sqlite(u"SELECT t + t FROM x"_qs),
              "SELECT zlx_integer_result(t + t, 'tinyint') FROM x");
}
