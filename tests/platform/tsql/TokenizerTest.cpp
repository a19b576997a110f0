#include "QtPrinters.h"
#include "platform/engines/AdoError.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace zlx::tsql;

namespace {

QStringList Statements(const QString& batch) {
    QStringList out;
    for (const Tokens& statement : SplitBatch(Tokenize(batch)))
        out << TokensToSql(statement).trimmed();
    return out;
}

} // namespace

TEST(TsqlTokenizer, ReadsNamesStringsNumbersAndVariables) {
    const Tokens tokens = Tokenize(
        QStringLiteral("SELECT [Nombre de]]x], \"q\", N'D''Ana', 1.5e3, 0x1F, @v, @@Identity>=2 "
                       "-- note\n/* block */ FROM t"));
    ASSERT_EQ(tokens.size(), 18u);
    EXPECT_EQ(tokens[1].kind, TokenKind::QuotedName);
    EXPECT_EQ(tokens[1].text, QStringLiteral("Nombre de]x"));
    EXPECT_EQ(tokens[3].kind, TokenKind::QuotedName);
    EXPECT_EQ(tokens[3].text, QStringLiteral("q"));
    EXPECT_EQ(tokens[5].kind, TokenKind::String);
    EXPECT_TRUE(tokens[5].national);
    EXPECT_EQ(tokens[5].text, QStringLiteral("D'Ana"));
    EXPECT_EQ(tokens[7].text, QStringLiteral("1.5e3"));
    EXPECT_EQ(tokens[9].text, QStringLiteral("0x1F"));
    EXPECT_EQ(tokens[11].kind, TokenKind::Variable);
    EXPECT_EQ(tokens[13].kind, TokenKind::Global);
    EXPECT_EQ(tokens[13].text, QStringLiteral("@@Identity"));
    EXPECT_EQ(tokens[14].text, QStringLiteral(">="));
    EXPECT_EQ(tokens[16].text, QStringLiteral("FROM"));
    EXPECT_EQ(tokens[16].leading, QStringLiteral(" -- note\n/* block */ "));
}

TEST(TsqlTokenizer, WritesBackTheSameText) {
    const QString sql = QStringLiteral("INSERT INTO [a b] (x) VALUES (N'it''s', 'x')  -- end\n");
    EXPECT_EQ(TokensToSql(Tokenize(sql)), sql);
}

TEST(TsqlTokenizer, UnterminatedTextIsAnError) {
    for (const char* sql : {"SELECT 'abc", "SELECT [abc", "SELECT 1 /* open"}) {
        try {
            Tokenize(QString::fromUtf8(sql));
            ADD_FAILURE() << sql;
        } catch (const zlx::ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14)) << sql;
        }
    }
}

TEST(TsqlBatchSplitter, CutsAtSemicolonsAndAtKeywordsThatCannotContinue) {
    EXPECT_EQ(
        Statements(QStringLiteral(
            "SET NOCOUNT ON ; INSERT INTO t (a) VALUES (1) ; SELECT @@Identity; SET NOCOUNT OFF")),
        (QStringList{"SET NOCOUNT ON", "INSERT INTO t (a) VALUES (1)", "SELECT @@Identity",
                     "SET NOCOUNT OFF"}));
    EXPECT_EQ(
        Statements(QStringLiteral(
            "SET NOCOUNT ON INSERT INTO t DEFAULT VALUES SELECT @@Identity  SET NOCOUNT OFF")),
        (QStringList{"SET NOCOUNT ON", "INSERT INTO t DEFAULT VALUES", "SELECT @@Identity",
                     "SET NOCOUNT OFF"}));
    EXPECT_EQ(
        Statements(
            QStringLiteral("UPDATE t SET a = 1 WHERE b IN (SELECT c FROM u) SELECT @@RowCount")),
        (QStringList{"UPDATE t SET a = 1 WHERE b IN (SELECT c FROM u)", "SELECT @@RowCount"}));
    EXPECT_EQ(Statements(
                  QStringLiteral("INSERT INTO t (a) SELECT a FROM u UNION SELECT 2 DELETE FROM u")),
              (QStringList{"INSERT INTO t (a) SELECT a FROM u UNION SELECT 2", "DELETE FROM u"}));
    EXPECT_EQ(
        Statements(QStringLiteral("ALTER TABLE t ALTER COLUMN a INT ALTER TABLE t DROP COLUMN b")),
        (QStringList{"ALTER TABLE t ALTER COLUMN a INT", "ALTER TABLE t DROP COLUMN b"}));
    EXPECT_EQ(Statements(QStringLiteral(
                  "ALTER DATABASE d SET AUTO_CLOSE OFF, RECOVERY SIMPLE BEGIN TRANSACTION x")),
              (QStringList{"ALTER DATABASE d SET AUTO_CLOSE OFF, RECOVERY SIMPLE",
                           "BEGIN TRANSACTION x"}));
    EXPECT_EQ(Statements(QStringLiteral("SELECT ';' AS [;] ;;  ")),
              (QStringList{"SELECT ';' AS [;]"}));
}

TEST(TsqlBatchSplitter, KeepsAnIfWithItsStatement) {
    EXPECT_EQ(
        Statements(QStringLiteral(
            "SELECT ZolmarID FROM locks WITH (TABLOCKX) IF @@ROWCOUNT=0 TRUNCATE TABLE locks")),
        (QStringList{"SELECT ZolmarID FROM locks WITH (TABLOCKX)",
                     "IF @@ROWCOUNT=0 TRUNCATE TABLE locks"}));
    const QString ifNotExists = QStringLiteral("IF NOT EXISTS (SELECT name FROM sysdatabases WHERE "
                                               "name = 'emp') CREATE DATABASE emp SELECT 1");
    EXPECT_EQ(
        Statements(ifNotExists),
        (QStringList{
            "IF NOT EXISTS (SELECT name FROM sysdatabases WHERE name = 'emp') CREATE DATABASE emp",
            "SELECT 1"}));
    const IfParts parts = SplitIf(SplitBatch(Tokenize(ifNotExists)).front());
    EXPECT_EQ(TokensToSql(parts.condition).trimmed(),
              QStringLiteral("NOT EXISTS (SELECT name FROM sysdatabases WHERE name = 'emp')"));
    EXPECT_EQ(TokensToSql(parts.body).trimmed(), QStringLiteral("CREATE DATABASE emp"));
}

// Keywords and names are compared as QString compares them without case, ASCII or not: letters
// match their other case only, other characters only themselves.
TEST(TsqlTokenizer, ComparesWordsWithoutCaseAsQStringDoes) {
    using namespace Qt::StringLiterals;
    const QStringList texts = {
        u"SELECT"_s, u"select"_s, u"SeLeCt"_s, u"SELECTS"_s, u"@"_s,   u"`"_s,      u"["_s,
        u"{"_s,      u"Árbol"_s,  u"árbol"_s,  u"ARBOL"_s,   u"Año"_s, u"AÑO"_s,    u"ano"_s,
        u""_s,       u"_x"_s,     u"\x7fx"_s,  u"1a"_s,      u"1A"_s,  u"straße"_s, u"STRASSE"_s};
    for (const QString& a : texts)
        for (const QString& b : texts)
            EXPECT_EQ(zlx::tsql::SameTextIgnoringCase(a, b), a.compare(b, Qt::CaseInsensitive) == 0)
                << a.toStdString() << " / " << b.toStdString();
}
