#include "QtPrinters.h"
#include "connection/StatementText.h"

#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::StatementText;

TEST(StatementText, RowCountAndIdentityWrappers) {
    EXPECT_EQ(WithRowCount("UPDATE t SET a=1;"),
              "SET NOCOUNT ON ; UPDATE t SET a=1; SELECT @@RowCount ; SET NOCOUNT OFF");
    EXPECT_EQ(WithRowCount("UPDATE t SET a=1 ; "),
              "SET NOCOUNT ON ; UPDATE t SET a=1 ;  SELECT @@RowCount ; SET NOCOUNT OFF");
    EXPECT_EQ(WithRowCount("UPDATE t SET a=1"),
              "SET NOCOUNT ON ; UPDATE t SET a=1 ; SELECT @@RowCount ; SET NOCOUNT OFF");
    EXPECT_EQ(WithIdentity("INSERT INTO t DEFAULT VALUES"),
              "SET NOCOUNT ON ; INSERT INTO t DEFAULT VALUES ; SELECT @@Identity; SET NOCOUNT OFF");
}

TEST(StatementText, ValuePiecesByTypeAndProvider) {
    const Variant date(MakeDate(2024, 3, 5, 9, 7, 0));
    EXPECT_EQ(ValuePiece(Variant(1.5), zlxDataProvider_MSDE), "1.5,");
    EXPECT_EQ(ValuePiece(Variant(std::int16_t(-3)), zlxDataProvider_JET40), "-3,");
    EXPECT_EQ(ValuePiece(Variant(Currency{12345}), zlxDataProvider_MSDE), "1.2345,");
    EXPECT_EQ(ValuePiece(Variant::Null(), zlxDataProvider_MSDE), "DEFAULT,");
    EXPECT_EQ(ValuePiece(Variant::Null(), zlxDataProvider_JET40), "");
    EXPECT_EQ(ValuePiece(date, zlxDataProvider_MSDE), "'20240305 09:07:00',");
    EXPECT_EQ(ValuePiece(date, zlxDataProvider_JET40), "'05/03/2024 09:07:00',");
    EXPECT_EQ(ValuePiece(Variant("O'Neil  "), zlxDataProvider_MSDE), "'O''Neil',");
    EXPECT_EQ(ValuePiece(Variant(true), zlxDataProvider_MSDE), "");
    EXPECT_EQ(ValuePiece(Variant(), zlxDataProvider_MSDE), "");
    EXPECT_EQ(ValuePiece(Variant::Array({1}), zlxDataProvider_MSDE), "");
}

TEST(StatementText, InsertCountAndMaximumTexts) {
    const QString fields = FieldList(Variant::Array({Variant("a"), Variant("b")}));
    EXPECT_EQ(fields, "(a,b)");
    EXPECT_EQ(InsertHead("t", fields), "INSERT INTO t (a,b) VALUES (");
    EXPECT_EQ(RecCount("t", ""), "SELECT count(*) AS cuantos FROM t");
    EXPECT_EQ(RecCount("t", "a>1"), "SELECT count(*) AS cuantos FROM t WHERE a>1");
    EXPECT_EQ(ValorMasAlto("t", "id", zlxDataProvider_MSDE),
              "SELECT isnull(max(id),0) AS ultimo FROM t");
    EXPECT_EQ(ValorMasAlto("t", "id", zlxDataProvider_FOX), "SELECT max(id) AS ultimo FROM t");
    EXPECT_EQ(StructureQuery("t", "*"), "SELECT TOP 1 * FROM t WHERE 1 = 0");
}

TEST(StatementText, LongStatementsWrapAtTheLastSeparator) {
    EXPECT_EQ(WrapLines("SELECT 1"), "SELECT 1\r");
    EXPECT_EQ(WrapLines(QString(120, u'x')), QString(120, u'x') + "\r");
    const QString list = "SELECT " + QString(100, u'a') + ", b, c " + QString(30, u'd');
    // The first line ends after the last ", " within 120 characters.
    EXPECT_EQ(WrapLines(list),
              "SELECT " + QString(100, u'a') + ", b, \rc " + QString(30, u'd') + "\r");
    const QString words = QString(110, u'a') + " bb,cc" + QString(20, u'e');
    EXPECT_EQ(WrapLines(words), QString(110, u'a') + " \rbb,cc" + QString(20, u'e') + "\r");
    const QString solid = QString(250, u'z');
    EXPECT_EQ(WrapLines(solid),
              QString(120, u'z') + "\r" + QString(120, u'z') + "\r" + QString(10, u'z') + "\r");
}

TEST(StatementText, ProductVersionsAndQuotedNames) {
    const Version v9 = ParseVersion("9.00.1399.06");
    EXPECT_EQ((std::vector<int>{v9.major, v9.minor, v9.build, v9.revision}),
              (std::vector<int>{9, 0, 1399, 6}));
    EXPECT_EQ(v9.number.scaled, 90000);
    EXPECT_EQ(ParseVersion("10.50.1600.1").number.scaled, 105000);
    const Version v8 = ParseVersion("8.00.2039");
    EXPECT_EQ(v8.build, 2039);
    EXPECT_EQ(v8.revision, 0);
    EXPECT_EQ(ParseVersion("12").major, 12);
    EXPECT_EQ(ParseVersion("").number.scaled, 0);
    EXPECT_EQ(QuotedName("Database 'ventas' cannot be opened. It's offline"),
              "ventas' cannot be opened. It");
    EXPECT_EQ(QuotedName("No se puede abrir 'ventas'"), "ventas");
    EXPECT_EQ(QuotedName("sin nombre"), "");
}
