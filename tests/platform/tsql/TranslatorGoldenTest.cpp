#include "GoldenCorpus.h"
#include "QtPrinters.h"
#include "platform/engines/AdoError.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/ConstraintNames.h"
#include "platform/tsql/PostgresDialect.h"
#include "platform/tsql/SqliteDialect.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TsqlTranslator.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace zlx::tsql;

namespace {

enum class Target { SQLite, PostgreSQL };

const EngineDialect& DialectOf(Target target) {
    static const SqliteDialect sqlite;
    static const PostgresDialect postgres;
    return target == Target::SQLite ? static_cast<const EngineDialect&>(sqlite) : postgres;
}

TranslationContext Context(Target target) {
    TranslationContext context;
    context.dialect = &DialectOf(target);
    context.globalValue = [](const QString& name) {
        if (name == u"@@IDENTITY") return QStringLiteral("41");
        if (name == u"@@ROWCOUNT") return QStringLiteral("3");
        return QString();
    };
    context.columnDefault = [](const QString& table, const QString& column) {
        return table == u"clientes" && column == u"Activo" ? QStringLiteral("1") : QString();
    };
    context.isTextColumn = [](const QString& column) {
        static const QStringList text = {QStringLiteral("Nombre"), QStringLiteral("Apellidos"),
                                         QStringLiteral("texto"), QStringLiteral("Nota")};
        return text.contains(column, Qt::CaseInsensitive);
    };
    // The identity columns are NOT NULL; other columns may hold NULLs.
    context.mayBeNull = [](const QString& column) {
        return column.compare(u"zolmarID", Qt::CaseInsensitive) != 0;
    };
    if (target == Target::SQLite) {
        context.locksSchema = [](const QString& database) {
            return (database.isEmpty() ? QStringLiteral("empresa") : database.toLower()) +
                   QStringLiteral("_locks");
        };
    }
    context.databaseAlias = [target](const QString& database) {
        if (target == Target::SQLite && database.compare(u"empresa", Qt::CaseInsensitive) == 0)
            return QStringLiteral("main");
        return database.toLower();
    };
    return context;
}

QString Translated(const QString& tsql, Target target) {
    const auto statements = SplitBatch(Tokenize(tsql));
    EXPECT_EQ(statements.size(), 1u) << tsql.toStdString();
    return TsqlTranslator(Context(target)).Translate(statements.front()).sql;
}

} // namespace

TEST(TsqlTranslator, GoldenStatementsForSqlite) {
    ASSERT_GE(zlx::test::GoldenCorpus().size(), 104u); // the corpus is read
    for (const zlx::test::GoldenCase& golden : zlx::test::GoldenCorpus())
        EXPECT_EQ(Translated(golden.tsql, Target::SQLite), golden.sqlite)
            << golden.name.toStdString();
}

TEST(TsqlTranslator, GoldenStatementsForPostgres) {
    ASSERT_GE(zlx::test::GoldenCorpus().size(), 104u);
    for (const zlx::test::GoldenCase& golden : zlx::test::GoldenCorpus())
        EXPECT_EQ(Translated(golden.tsql, Target::PostgreSQL), golden.postgres)
            << golden.name.toStdString();
}

// A date column's default 0 is the date numbered 0: 1900-01-01 on SQL Server, 1899-12-30 in
// a Jet file.
TEST(TsqlTranslator, DateDefaultZeroIsTheDateNumberedZero) {
    const auto statement = SplitBatch(
        Tokenize(QStringLiteral("ALTER TABLE t ADD Alta DATETIME NOT NULL DEFAULT 0, n INT "
                                "DEFAULT 0")));
    TranslationContext jet = Context(Target::SQLite);
    jet.jetDates = true;
    EXPECT_EQ(TsqlTranslator(jet).Translate(statement.front()).sql,
              "ALTER TABLE t ADD Alta DATETIME NOT NULL DEFAULT '1899-12-30 00:00:00', n INT "
              "CONSTRAINT \"zlx_8115_n\" CHECK (n BETWEEN -2147483648 AND 2147483647) DEFAULT 0");
    EXPECT_EQ(TsqlTranslator(Context(Target::PostgreSQL)).Translate(statement.front()).sql,
              "ALTER TABLE t ADD Alta timestamp(3) NOT NULL DEFAULT '1900-01-01 00:00:00', n INT "
              "DEFAULT 0");
}

// A FOREIGN KEY without a name takes SQL Server's: FK__, the table cut to nine characters, the
// first column cut to what thirty characters leave, eight hexadecimal digits; a named one keeps
// its name, in both forms of the column's key and in the table's.
TEST(TsqlTranslator, UnnamedForeignKeysTakeSqlServersNames) {
    const QString created = Translated(
        QStringLiteral("CREATE TABLE OrderDetails (id INT, OrderId INT REFERENCES Orders (id), "
                       "ProductId INT FOREIGN KEY REFERENCES Products, Batch INT CONSTRAINT "
                       "fk_batch REFERENCES Batches, FOREIGN KEY (Batch, id) REFERENCES Lots)"),
        Target::PostgreSQL);
    // PostgreSQL keeps each name as written, quoted.
    const QRegularExpression names(QStringLiteral("CONSTRAINT \"(\\w+)\" (REFERENCES|FOREIGN)"));
    QStringList found;
    for (const auto& match : names.globalMatch(created))
        found << match.captured(1);
    ASSERT_EQ(found.size(), 4) << created.toStdString();
    EXPECT_TRUE(found[0].startsWith(u"FK__OrderDeta__Order__"));
    EXPECT_TRUE(found[1].startsWith(u"FK__OrderDeta__Produ__"));
    EXPECT_EQ(found[2], QStringLiteral("fk_batch"));
    EXPECT_TRUE(found[3].startsWith(u"FK__OrderDeta__Batch__"));
    for (const QString& name : {found[0], found[1], found[3]})
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^FK__\\w+__\\w+__[0-9A-F]{8}$"))
                        .match(name)
                        .hasMatch())
            << name.toStdString();
    EXPECT_EQ(SqlServerForeignKeyName(QStringLiteral("Cart"), QStringLiteral("ID_CUSTOMER"),
                                      QStringLiteral("Customers"), 1)
                  .left(20),
              QStringLiteral("FK__Cart__ID_CUSTOME"));
    EXPECT_NE(
        SqlServerForeignKeyName(QStringLiteral("t"), QStringLiteral("a"), QStringLiteral("p"), 1),
        SqlServerForeignKeyName(QStringLiteral("t"), QStringLiteral("a"), QStringLiteral("p"), 2));
    EXPECT_TRUE(
        Translated(QStringLiteral("ALTER TABLE t ADD FOREIGN KEY (a) REFERENCES p"), Target::SQLite)
            .startsWith(u"ALTER TABLE t ADD CONSTRAINT FK__t__a__"));
}

// A CHECK without a name is named by its column: the one it is declared on, else the one a
// table's CHECK names; one over several columns by the table alone.
TEST(TsqlTranslator, NamesUnnamedChecksAsSqlServer) {
    const QString created = Translated(
        QStringLiteral("CREATE TABLE Pedidos_de_clientes (cantidad INT CHECK (cantidad > 0), "
                       "minimo INT, maximo INT, CHECK (minimo <= maximo), CHECK (ISNULL(minimo, "
                       "0) >= 0), CONSTRAINT ck_propio CHECK (maximo < 9))"),
        Target::SQLite);
    const QRegularExpression names(QStringLiteral("CONSTRAINT (\\w+) CHECK"));
    QStringList found;
    for (auto match = names.globalMatch(created); match.hasNext();)
        found << match.next().captured(1);
    ASSERT_EQ(found.size(), 4) << created.toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^CK__Pedidos_d__canti__[0-9A-F]{8}$"))
                    .match(found[0])
                    .hasMatch())
        << found[0].toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^CK__Pedidos_d__[0-9A-F]{8}$"))
                    .match(found[1])
                    .hasMatch())
        << found[1].toStdString();
    EXPECT_TRUE(found[2].startsWith(u"CK__Pedidos_d__minim__")) << found[2].toStdString();
    EXPECT_EQ(found[3], QStringLiteral("ck_propio"));
    EXPECT_NE(SqlServerCheckName(QStringLiteral("t"), QString(), 1),
              SqlServerCheckName(QStringLiteral("t"), QString(), 2));
    EXPECT_TRUE(Translated(QStringLiteral("ALTER TABLE t ADD CHECK (a > 0)"), Target::PostgreSQL)
                    .contains(u"CONSTRAINT \"CK__t__a__"));
    EXPECT_FALSE(Translated(QStringLiteral("ALTER TABLE t CHECK CONSTRAINT ALL"), Target::SQLite)
                     .contains(u"CK__"));
}

TEST(TsqlTranslator, ExclusiveHintNamesTheTable) {
    const auto statement = SplitBatch(
        Tokenize(QStringLiteral("SELECT * FROM empresa..locks WITH (TABLOCKX) WHERE pid=1")));
    const Translation translation =
        TsqlTranslator(Context(Target::PostgreSQL)).Translate(statement.front());
    EXPECT_EQ(translation.exclusiveTables, QStringList{QStringLiteral("empresa.locks")});
    EXPECT_EQ(translation.databases, QStringList{QStringLiteral("empresa")});
}

TEST(TsqlTranslator, HintsWithoutWithAreDroppedToo) {
    const auto statement = SplitBatch(
        Tokenize(QStringLiteral("SELECT COUNT(*) FROM pedidos (TABLOCKX, HOLDLOCK) WHERE n > 0")));
    const Translation translation =
        TsqlTranslator(Context(Target::SQLite)).Translate(statement.front());
    EXPECT_EQ(translation.sql, QStringLiteral("SELECT COUNT(*) FROM pedidos WHERE n > 0"));
    EXPECT_EQ(translation.exclusiveTables, QStringList{QStringLiteral("pedidos")});
}

TEST(TsqlTranslator, DateLiteralsAreNormalisedOnlyWhenValid) {
    EXPECT_EQ(NormalizedDateLiteral(QStringLiteral("20240229"), true),
              QStringLiteral("2024-02-29 00:00:00"));
    EXPECT_EQ(NormalizedDateLiteral(QStringLiteral("1/2/2024 7:05"), true),
              QStringLiteral("2024-02-01 07:05:00"));
    EXPECT_EQ(NormalizedDateLiteral(QStringLiteral("20230229"), true), QString());
    EXPECT_EQ(NormalizedDateLiteral(QStringLiteral("1/2/2024"), false), QString());
    EXPECT_EQ(NormalizedDateLiteral(QStringLiteral("12345678"), true), QString());
    EXPECT_EQ(NormalizedDateLiteral(QStringLiteral("20240131 25:00:00"), true), QString());
}

TEST(TsqlTranslator, UnsupportedConstructsNameThemselves) {
    for (const char* sql :
         {"SELECT TOP 3 PERCENT WITH TIES * FROM t ORDER BY a", "SELECT @local",
          "SELECT TOP 10 PERCENT * FROM t GROUP BY a", "SELECT DATEPART(fortnight, f) FROM t",
          "CREATE TABLE t (id INT IDENTITY(5,0))", "SELECT @@SPID",
          "INSERT INTO t (a) OUTPUT inserted.a VALUES (1)",
          "DELETE FROM t OUTPUT DELETED.a WHERE a = 1",
          "MERGE t USING u ON t.b = u.b WHEN MATCHED THEN DELETE",
          "SELECT * FROM t CROSS APPLY (SELECT c FROM u WHERE u.b = t.b) x",
          "SELECT * FROM t OUTER APPLY (SELECT c FROM u WHERE u.b = t.b) x",
          "SELECT * FROM (SELECT a, n FROM t) s PIVOT (SUM(n) FOR a IN ([1], [2])) p",
          "SELECT a, SUM(n) FROM t GROUP BY a WITH ROLLUP",
          "SELECT STUFF((SELECT ',' + a FROM t FOR XML PATH('')), 1, 1, '')",
          "SELECT name FROM sys.tables", "CREATE TABLE calculos (a INT, doble AS (a * 2))",
          "ALTER TABLE calculos ADD triple AS a * 3",
          "SELECT * FROM INFORMATION_SCHEMA.TABLE_CONSTRAINTS",
          "SELECT name FROM sysindexes WHERE id = 1", "SELECT COLUMNPROPERTY(1, 'a', 'AllowsNull')",
          "SELECT COLUMNPROPERTY(OBJECT_ID('t'), a, 'Precision') FROM t",
          // What SQLite lacks itself.
          "SELECT a, SUM(n) FROM t GROUP BY ROLLUP(a)",
          "SELECT GROUPING(a), SUM(n) FROM t GROUP BY GROUPING SETS ((a), ())",
          "SELECT a FROM t WHERE n > ALL (SELECT c FROM u)",
          "SELECT a FROM t WHERE n = ANY (SELECT c FROM u)"}) {
        const auto statement = SplitBatch(Tokenize(QString::fromUtf8(sql)));
        try {
            TsqlTranslator(Context(Target::SQLite)).Translate(statement.front());
            ADD_FAILURE() << sql;
        } catch (const zlx::ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14));
            EXPECT_TRUE(
                error.Description().startsWith(QStringLiteral("Construcción T-SQL no soportada: ")))
                << sql;
        }
    }
}

// A built-in function the layer does not write is refused by its name on both engines, also
// where the engine has a function of that name (PostgreSQL's translate answers otherwise); a
// function of a schema is left to the engine.
TEST(TsqlTranslator, UnwrittenBuiltinFunctionsAreRefusedByName) {
    for (const Target target : {Target::SQLite, Target::PostgreSQL}) {
        for (const char* name : {"TRANSLATE", "HASHBYTES", "JSON_VALUE", "STRING_SPLIT", "PARSE"}) {
            const QString sql = QStringLiteral("SELECT * FROM %1('a', 'b') x").arg(name);
            try {
                TsqlTranslator(Context(target)).Translate(SplitBatch(Tokenize(sql)).front());
                ADD_FAILURE() << sql.toStdString();
            } catch (const zlx::ado::AdoError& error) {
                EXPECT_EQ(error.Description(),
                          QStringLiteral("Construcción T-SQL no soportada: ") + name);
            }
        }
        EXPECT_EQ(Translated(QStringLiteral("SELECT ventas.translate(a) FROM t"), target),
                  QStringLiteral("SELECT ventas.translate(a) FROM t"));
    }
}

// PostgreSQL has grouping sets and comparisons with a subquery's ALL, ANY and SOME as SQL Server.
TEST(TsqlTranslator, PostgresKeepsGroupingSetsAndQuantifiedComparisons) {
    for (const char* sql : {"SELECT a, SUM(n) FROM t GROUP BY ROLLUP(a)",
                            "SELECT a FROM t WHERE n > ALL (SELECT c FROM u) UNION ALL SELECT 1"}) {
        const auto statement = SplitBatch(Tokenize(QString::fromUtf8(sql)));
        EXPECT_EQ(TsqlTranslator(Context(Target::PostgreSQL)).Translate(statement.front()).sql,
                  QString::fromUtf8(sql));
    }
}

// The recursion limit needs the names * stands for: one table's known columns, or a refusal.
TEST(TsqlTranslator, RecursiveExpressionOverStarCountsLevelsOrIsRefused) {
    TranslationContext context = Context(Target::SQLite);
    context.tableColumns = [](const QString& table) {
        if (table == u"a") return TableColumns{ColumnOfType(u"x"_qs, u"INT"_qs)};
        if (table == u"b") return TableColumns{ColumnOfType(u"y"_qs, u"INT"_qs)};
        return TableColumns();
    };
    const auto translate = [&](const char* sql) {
        return TsqlTranslator(context)
            .Translate(SplitBatch(Tokenize(QString::fromUtf8(sql))).front())
            .sql;
    };
    EXPECT_TRUE(translate("WITH r AS (SELECT * FROM a UNION ALL SELECT x + 1 FROM r WHERE x < 3) "
                          "SELECT x FROM r")
                    .contains(u"zlx_recursion(r.zlx_level + 1, 100)"));
    for (const char* sql : {"WITH r AS (SELECT * FROM a JOIN b ON a.x = b.y UNION ALL SELECT x, y "
                            "FROM r) SELECT x FROM r",
                            "WITH r AS (SELECT * FROM a, b UNION ALL SELECT x, y FROM r) SELECT x "
                            "FROM r",
                            "WITH r AS (SELECT * FROM nada UNION ALL SELECT * FROM r) SELECT 1 "
                            "FROM r"}) {
        try {
            translate(sql);
            ADD_FAILURE() << sql;
        } catch (const zlx::ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14));
            EXPECT_TRUE(error.Description().endsWith(
                QStringLiteral("SELECT * en una expresión de tabla común recursiva")))
                << sql;
        }
    }
    // MAXRECURSION 0 counts nothing: the expression is left as written.
    EXPECT_FALSE(translate("WITH r AS (SELECT * FROM nada UNION ALL SELECT * FROM r) SELECT 1 "
                           "FROM r OPTION (MAXRECURSION 0)")
                     .contains(u"zlx_recursion"));
}

TEST(TsqlTranslator, MalformedStatementsAreCommandErrors) {
    for (const char* sql : {"SELECT isnull(a) FROM t", "SELECT RIGHT(", "SELECT TOP",
                            "SELECT CAST(x) FROM t", "INSERT INTO t (a, b) VALUES (DEFAULT, (1)"}) {
        try {
            const auto statement = SplitBatch(Tokenize(QString::fromUtf8(sql)));
            TsqlTranslator(Context(Target::SQLite)).Translate(statement.front());
            ADD_FAILURE() << sql;
        } catch (const zlx::ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14)) << sql;
        }
    }
}

// SQLite answers the first row of a scalar subquery that finds several: where one value is
// due and the subquery may find more than one row, its value goes through the aggregate that
// fails as error 512 (and compares under the database collation), reading the whole
// subquery when TOP, DISTINCT, GROUP BY or UNION make its rows; subqueries of sets and
// tables, and those of one row at most, stay.
TEST(TsqlTranslator, ScalarSubqueriesOfSeveralRowsFailOnSqlite) {
    const auto sqlite = [](const char* tsql) {
        return Translated(QString::fromUtf8(tsql), Target::SQLite);
    };
    EXPECT_EQ(sqlite("SELECT (SELECT n FROM t) + 1"),
              QStringLiteral("SELECT (SELECT zlx_single(n) FROM t) COLLATE NOCASE + 1"));
    EXPECT_EQ(sqlite("UPDATE a SET c = (SELECT n FROM t WHERE t.id = a.id)"),
              QStringLiteral("UPDATE a SET c = (SELECT zlx_single(n) FROM t WHERE t.id = a.id) "
                             "COLLATE NOCASE"));
    EXPECT_EQ(sqlite("SELECT x FROM a WHERE x = 1 AND (SELECT n FROM t) > 2"),
              QStringLiteral("SELECT x FROM a WHERE x = 1 AND (SELECT zlx_single(n) FROM t) "
                             "COLLATE NOCASE > 2"));
    EXPECT_EQ(sqlite("SELECT ISNULL((SELECT n FROM t), 0), (SELECT m FROM u)"),
              QStringLiteral("SELECT ifnull((SELECT zlx_single(n) FROM t) COLLATE NOCASE, 0), "
                             "(SELECT zlx_single(m) FROM u) COLLATE NOCASE"));
    for (const char* unchanged :
         {"SELECT x FROM a WHERE x IN (SELECT n FROM t)",
          "SELECT x FROM a WHERE EXISTS (SELECT n FROM t)", "SELECT x FROM (SELECT n FROM t) a",
          "SELECT x FROM a, (SELECT n FROM t) b", "SELECT (SELECT MAX(n) FROM t)",
          "SELECT (SELECT COUNT(*) + 1 FROM t)", "SELECT (SELECT TOP 1 n FROM t ORDER BY n)",
          "SELECT (SELECT 1)", "SELECT (SELECT n, m FROM t)"})
        EXPECT_FALSE(sqlite(unchanged).contains(u"zlx_single")) << unchanged;
    EXPECT_EQ(sqlite("SELECT (SELECT t.n FROM t GROUP BY t.n)"),
              QStringLiteral("SELECT (SELECT zlx_single(zlx_value) FROM (SELECT t.n AS zlx_value "
                             "FROM t GROUP BY t.n)) COLLATE NOCASE"));
    EXPECT_EQ(sqlite("SELECT (SELECT DISTINCT n k FROM t ORDER BY k) + 1"),
              QStringLiteral("SELECT (SELECT zlx_single(k) FROM (SELECT DISTINCT n k FROM t ORDER "
                             "BY k)) COLLATE NOCASE + 1"));
    EXPECT_EQ(sqlite("SELECT (SELECT TOP 2 n AS [v] FROM t ORDER BY n)"),
              QStringLiteral("SELECT (SELECT zlx_single(\"v\") FROM (SELECT n AS \"v\" FROM t "
                             "ORDER BY n LIMIT 2)) COLLATE NOCASE"));
    EXPECT_FALSE(Translated(QStringLiteral("SELECT (SELECT n FROM t) + 1"), Target::PostgreSQL)
                     .contains(u"zlx_single"));
}

// A text written as a date is a date where SQL Server converts it to one: stored in a date
// column, compared with a date (=, BETWEEN, IN), an alternative to a date in ISNULL, a date
// column's DEFAULT. Met by a text, or by nothing, it stays the text as written.
TEST(TsqlTranslator, TextsWrittenAsDatesAreDatesOnlyWhereADateMeetsThem) {
    TranslationContext context = Context(Target::SQLite);
    context.isDateColumn = [](const QString& column) {
        return column.compare(u"Fecha", Qt::CaseInsensitive) == 0;
    };
    context.tableColumns = [](const QString& table) {
        if (table != u"t") return TableColumns();
        return TableColumns{ColumnOfType(QStringLiteral("Nota"), QStringLiteral("VARCHAR(20)")),
                            ColumnOfType(QStringLiteral("Fecha"), QStringLiteral("DATETIME"))};
    };
    const auto sqlite = [&context](const char* tsql) {
        const auto statements = SplitBatch(Tokenize(QString::fromUtf8(tsql)));
        return TsqlTranslator(context).Translate(statements.front()).sql;
    };
    EXPECT_EQ(sqlite("INSERT INTO t VALUES ('15/03/2024', '15/03/2024')"),
              QStringLiteral("INSERT INTO t VALUES ('15/03/2024', '2024-03-15 00:00:00')"));
    EXPECT_EQ(
        sqlite("INSERT INTO t (Fecha, Nota) SELECT '20240315', '20240315'"),
        QStringLiteral("INSERT INTO t (Fecha, Nota) SELECT '2024-03-15 00:00:00', '20240315'"));
    EXPECT_EQ(sqlite("UPDATE t SET Nota = '20240315', Fecha = '20240315' WHERE Nota = '20240315'"),
              QStringLiteral("UPDATE t SET Nota = '20240315', Fecha = '2024-03-15 00:00:00' WHERE "
                             "Nota = '20240315'"));
    EXPECT_EQ(sqlite("SELECT a.Nota FROM t a WHERE a.Fecha BETWEEN '01/03/2024' AND '31/03/2024' "
                     "AND a.Nota NOT IN ('01/03/2024', '20240301')"),
              QStringLiteral("SELECT a.Nota FROM t a WHERE a.Fecha BETWEEN '2024-03-01 00:00:00' "
                             "AND '2024-03-31 00:00:00' AND a.Nota NOT IN ('01/03/2024', "
                             "'20240301')"));
    EXPECT_EQ(sqlite("SELECT ISNULL(Fecha, '17530101'), ISNULL(Nota, '17530101'), '17530101' "
                     "FROM t WHERE '20240101' <= MAX(Fecha)"),
              QStringLiteral("SELECT (SELECT ifnull(Fecha, '1753-01-01 00:00:00') UNION ALL "
                             "SELECT datetime FROM temp.zlx_date_types), ifnull(Nota, "
                             "'17530101'), '17530101' FROM t WHERE '2024-01-01 00:00:00' <= "
                             "MAX(Fecha)"));
    EXPECT_EQ(sqlite("SELECT Nota FROM t WHERE CONVERT(VARCHAR(10), Fecha, 103) = '15/03/2024'"),
              QStringLiteral("SELECT Nota FROM t WHERE (substr(CAST(zlx_datestyle(Fecha, 103, 3, "
                             "0) AS TEXT), 1, 10) COLLATE NOCASE) = '15/03/2024'"));
    EXPECT_EQ(
        sqlite("CREATE TABLE d (f DATETIME DEFAULT '17530101', s CHAR(8) DEFAULT '17530101')"),
        QStringLiteral("CREATE TABLE d (f DATETIME DEFAULT '1753-01-01 00:00:00', s CHAR(8) "
                       "COLLATE NOCASE CONSTRAINT \"zlx_8152_s\" CHECK (length(rtrim(s)) <= 8) "
                       "DEFAULT '17530101')"));
}

// A condition written where a value goes is SQL Server's syntax error, near its operator (102)
// or keyword (156); conditions where conditions go, and name = value in a list, translate.
TEST(TsqlTranslator, ConditionsWrittenAsValuesAreSyntaxErrors) {
    const struct {
        const char* sql;
        std::int32_t native;
        const char* near;
    } misplaced[] = {
        {"SELECT a < b FROM t", 102, "'<'"},
        {"SELECT 1 = 1", 102, "'='"},
        {"SELECT t.a = 1 + 2 = 3 FROM t", 102, "'='"},
        {"SELECT id, a <> b AS distinto FROM t", 102, "'<>'"},
        {"SELECT x IS NULL FROM t", 156, "'IS'"},
        {"SELECT NOT x FROM t", 156, "'NOT'"},
        {"SELECT x BETWEEN 1 AND 2 FROM t", 156, "'BETWEEN'"},
        {"SELECT COALESCE(a >= b, 0) FROM t", 102, "'>='"},
        {"SELECT CASE WHEN a > 0 THEN b = 1 END FROM t", 102, "'='"},
        {"SELECT IIF(a > 0, b < 1, 0) FROM t", 102, "'<'"},
        {"SET @v = a > b", 102, "'>'"},
        {"SELECT @v = x LIKE 'a%' FROM t", 156, "'LIKE'"},
        {"INSERT INTO t (a) VALUES (1 != 2)", 102, "'!='"},
        {"UPDATE t SET a = b < c WHERE id = 1", 102, "'<'"},
        {"SELECT id FROM t WHERE a IN (SELECT b > 1 FROM u)", 102, "'>'"},
    };
    for (const auto& [sql, native, near] : misplaced) {
        const auto statement = SplitBatch(Tokenize(QString::fromUtf8(sql)));
        try {
            TsqlTranslator(Context(Target::PostgreSQL)).Translate(statement.front());
            ADD_FAILURE() << sql;
        } catch (const zlx::ado::AdoError& error) {
            EXPECT_EQ(error.Records().front().nativeError, native) << sql;
            EXPECT_TRUE(error.Description().contains(QString::fromUtf8(near))) << sql;
        }
    }
    for (const char* sql :
         {"SELECT CASE WHEN a < b THEN 1 ELSE 0 END, IIF(a = b, 'x', 'y') FROM t WHERE NOT a > b",
          "SELECT total = a + b, 'nombre' = c, t.d = 1 FROM t",
          "SELECT TOP (5) WITH TIES a FROM t ORDER BY CASE WHEN a IS NULL THEN 1 END",
          "SELECT (SELECT COUNT(*) FROM u WHERE u.a >= t.a) FROM t JOIN v ON (t.a = v.a)",
          "UPDATE t SET a = a + 1, t.b = 2 FROM t JOIN u ON u.id = t.id WHERE u.c LIKE 'x%'",
          "SELECT CASE WHEN EXISTS (SELECT 1 FROM t WHERE a <> 0) THEN 1 END",
          "SELECT id FROM t GROUP BY id HAVING COUNT(*) > 1",
          "CREATE TABLE t (a INT CHECK (a > 0))"}) {
        const auto statement = SplitBatch(Tokenize(QString::fromUtf8(sql)));
        EXPECT_NO_THROW(TsqlTranslator(Context(Target::SQLite)).Translate(statement.front()))
            << sql;
    }
}
