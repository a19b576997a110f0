// The built-in functions the translator writes for the engines: what it refuses rather than
// answer otherwise than SQL Server, the type of their results, RAND's one value per statement,
// and CHAR and NCHAR still read as types where a type is due.
#include "SessionFixture.h"
#include "platform/engines/SqlServerErrors.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

class TypesSink : public test::RecordingSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>& described) override {
        if (columns.empty()) columns = described;
        RecordingSink::BeginRowset(described);
    }
    std::vector<ado::ColumnInfo> columns;
};

class BuiltinFunctionsTest : public test::SessionFixture {
protected:
    std::vector<ado::DataTypeEnum> Types(const QString& query) {
        TypesSink sink;
        m_session->Execute(query, sink, 0);
        std::vector<ado::DataTypeEnum> types;
        for (const ado::ColumnInfo& column : sink.columns)
            types.push_back(column.type);
        return types;
    }

    // The refusal's description, which names what was refused.
    QString Refusal(const QString& batch) {
        try {
            Exec(batch);
        } catch (const ado::AdoError& error) {
            EXPECT_EQ(error.Records().front().nativeError, ado::kNativeSyntax);
            return error.Records().front().description;
        }
        return QStringLiteral("<no error>");
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(BuiltinFunctionsTest);

TEST_P(BuiltinFunctionsTest, FormatRefusesWhatItCannotFormatAsSqlServerDoes) {
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT FORMAT(255, 'X')")).contains(u"FORMAT 'X'"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT FORMAT(1.5, 'N', 'fr-FR')")).contains(u"FORMAT"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT FORMAT(1.5, CAST('N2' AS VARCHAR(5)))"))
                    .contains(u"FORMAT"));
    EXPECT_TRUE(
        Refusal(QStringLiteral("SELECT FORMAT(GETDATE(), 'MMM', 'es-ES')")).contains(u"MMM"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT FORMAT(1.5, '0;(0)')")).contains(u"FORMAT"));
    // 'D' is for integers: .NET fails on a decimal, which FORMAT answers as NULL.
    EXPECT_EQ(Value(QStringLiteral("SELECT FORMAT(1.5, 'D2')")), "NULL");
}

TEST_P(BuiltinFunctionsTest, WrongArgumentCountsAreSqlServersErrors) {
    EXPECT_EQ(Outcome(QStringLiteral("SELECT REPLICATE('a')")), QStringList({"error 174"}));
    EXPECT_EQ(Outcome(QStringLiteral("SELECT STR(1, 2, 3, 4)")), QStringList({"error 174"}));
    EXPECT_EQ(Outcome(QStringLiteral("SELECT CONCAT('a')")), QStringList({"error 189"}));
    EXPECT_EQ(Outcome(QStringLiteral("SELECT STR('abc')")), QStringList({"error 8114"}));
}

TEST_P(BuiltinFunctionsTest, ResultsHaveSqlServersTypes) {
    const auto types =
        Types(QStringLiteral("SELECT STR(1.5, 5, 1), ISNUMERIC('1'), RAND(), SQUARE(2), LOG(10)"));
    ASSERT_EQ(types.size(), 5u);
    EXPECT_TRUE(types[0] == ado::adVarChar || types[0] == ado::adVarWChar);
    EXPECT_EQ(types[1], ado::adInteger);
    EXPECT_EQ(types[2], ado::adDouble);
    EXPECT_EQ(types[3], ado::adDouble);
    EXPECT_EQ(types[4], ado::adDouble);
}

TEST_P(BuiltinFunctionsTest, RandIsOneValuePerStatementAndRepeatsForASeed) {
    Exec(QStringLiteral("CREATE TABLE r (id INT)"));
    for (int id = 1; id <= 3; ++id)
        Exec(QStringLiteral("INSERT INTO r VALUES (%1)").arg(id));
    const QStringList values = Column(QStringLiteral("SELECT RAND() FROM r"));
    ASSERT_EQ(values.size(), 3);
    EXPECT_EQ(values[0], values[1]);
    EXPECT_EQ(values[1], values[2]);
    const double value = values[0].toDouble();
    EXPECT_TRUE(value >= 0 && value < 1) << value;
    const QString seeded = Value(QStringLiteral("SELECT RAND(42)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT RAND(42)")), seeded);
    EXPECT_NE(Value(QStringLiteral("SELECT RAND(7)")), seeded);
}

// The connection's sequence goes on from a seed in its next statements (a WHILE's too), and a
// seed whose values SQL Server's are not known for is refused.
TEST_P(BuiltinFunctionsTest, RandGoesOnFromTheLastSeed) {
    Exec(QStringLiteral("SELECT RAND(5)"));
    const QStringList after = {Value(QStringLiteral("SELECT RAND()")),
                               Value(QStringLiteral("SELECT RAND()"))};
    EXPECT_NE(after[0], after[1]);
    EXPECT_EQ(Value(QStringLiteral("DECLARE @i INT, @x FLOAT\nSET @i = 0\nSET @x = RAND(5)\n"
                                   "WHILE @i < 2 BEGIN SET @x = RAND() SET @i = @i + 1 END\n"
                                   "SELECT @x")),
              after[1]);
    try {
        Exec(QStringLiteral("SELECT RAND(-1)"));
        ADD_FAILURE() << "RAND(-1) answered";
    } catch (const ado::AdoError& error) {
        EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14));
        EXPECT_TRUE(error.Description().endsWith(u"RAND(-1)")) << error.Description().toStdString();
    }
}

TEST_P(BuiltinFunctionsTest, CharAndNcharStayTypesWhereATypeIsDue) {
    Exec(QStringLiteral("CREATE TABLE k (id INT, c CHAR(3), n NCHAR(2))"));
    Exec(QStringLiteral("INSERT INTO k VALUES (1, CHAR(65), NCHAR(66))"));
    Exec(QStringLiteral("ALTER TABLE k ADD d CHAR(4) NULL"));
    EXPECT_EQ(Value(QStringLiteral("SELECT DATALENGTH(c), '[' + c + ']', '[' + n + ']', "
                                   "RTRIM(CAST(66 AS CHAR(4))), RTRIM(CONVERT(CHAR(2), 7)), "
                                   "COL_LENGTH('k', 'd') FROM k")),
              "3|[A  ]|[B ]|66|7|4");
}

// TRY_CAST and TRY_CONVERT answer only the conversions to numbers they can make as SQL Server
// does; IDENT_SEED, IDENT_INCR and IDENT_CURRENT only of a table named by a literal.
TEST_P(BuiltinFunctionsTest, TryConversionsAndIdentitiesRefuseWhatTheyCannotAnswer) {
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT TRY_CAST('2024-03-15' AS DATE)"))
                    .contains(u"TRY_CAST AS DATE"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT TRY_CONVERT(DATETIME, '15/03/2024', 103)"))
                    .contains(u"TRY_CONVERT AS DATETIME"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT TRY_CAST(1.5 AS MONEY)")).contains(u"MONEY"));
    EXPECT_TRUE(
        Refusal(QStringLiteral("SELECT TRY_CAST(GETDATE() AS INT)")).contains(u"de una fecha"));
    Exec(QStringLiteral("CREATE TABLE ident_t (id INT IDENTITY(10, 2), n INT)"));
    EXPECT_TRUE(
        Refusal(QStringLiteral("SELECT IDENT_SEED('dbo.ident_t')")).contains(u"IDENT_SEED"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT IDENT_CURRENT(CONCAT('ident', '_t'))"))
                    .contains(u"IDENT_CURRENT"));
    EXPECT_EQ(Value(QStringLiteral("SELECT IDENT_SEED('ident_t') * 100 + IDENT_INCR('ident_t')")),
              "1002");
}

// The failures of a TRY_ conversion are NULL; the operand's own errors are not.
TEST_P(BuiltinFunctionsTest, TryConversionsKeepTheOperandsOwnErrors) {
    EXPECT_EQ(Outcome(QStringLiteral("SELECT TRY_CAST(1 / 0 AS INT)")),
              QStringList{QStringLiteral("error 8134")});
    EXPECT_EQ(Value(QStringLiteral("SELECT ISNULL(TRY_CAST('x' + 'y' AS BIGINT), -1)")), "-1");
}

// SOUNDEX codes only texts of English letters alike on every engine; others are refused by name
// when the statement runs, DIFFERENCE's too.
TEST_P(BuiltinFunctionsTest, SoundexRefusesTextsOfOtherCharacters) {
    for (const char* sql : {"SELECT SOUNDEX('Muñoz')", "SELECT SOUNDEX('')",
                            "SELECT SOUNDEX(' Smith')", "SELECT DIFFERENCE('Smith', '1abc')"}) {
        try {
            Exec(QString::fromUtf8(sql));
            ADD_FAILURE() << sql;
        } catch (const ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14)) << sql;
            EXPECT_TRUE(error.Description().contains(u"no soportada: SOUNDEX")) << sql;
        }
    }
    EXPECT_EQ(Value(QStringLiteral("SELECT SOUNDEX('smith jones'), SOUNDEX('Lloyd-Ñ')")),
              "S530|L300");
}

// Conversions of binary values that SQL Server answers otherwise are refused by name: a style
// that is none of binary's, a number that is no integer, a national text of an odd count of
// bytes (the engine's function refuses it as it runs).
TEST_P(BuiltinFunctionsTest, BinaryConversionsRefuseWhatTheyCannotAnswerByName) {
    EXPECT_TRUE(
        Refusal(QStringLiteral("SELECT CONVERT(VARCHAR(10), 0x41, 3)")).contains(u"estilo 3"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT CAST(1.5 AS VARBINARY(4))"))
                    .contains(u"VARBINARY(4) de DECIMAL"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT CONVERT(VARBINARY(4), 'ab', 1)"))
                    .contains(u"VARBINARY(4) con estilo"));
    EXPECT_TRUE(Refusal(QStringLiteral("SELECT CAST(0x410042 AS NVARCHAR(4))")).contains(u"impar"));
    EXPECT_EQ(Value(QStringLiteral("SELECT CAST(0x41004200 AS NVARCHAR(4))")),
              QStringLiteral("AB"));
}
