// How engine type names and texts become ADO types and Variants, and how buffered results
// replay across threads.

#include "RecordingSink.h"
#include "platform/engines/BufferedSink.h"
#include "platform/engines/DeclaredType.h"
#include "platform/engines/IsoDate.h"
#include "platform/engines/TextValue.h"

#include <gtest/gtest.h>

namespace zlx::ado {
namespace {

ColumnInfo Declared(const char* type) {
    ColumnInfo column;
    EXPECT_TRUE(ApplyDeclaredType(QString::fromLatin1(type), column)) << type;
    return column;
}

TEST(DeclaredTypeTest, SqlServerTypeNamesMapToAdoTypesAndSizes) {
    const ColumnInfo money = Declared("money");
    EXPECT_EQ(money.type, adCurrency);
    EXPECT_TRUE(money.attributes & adFldFixed);

    const ColumnInfo decimal = Declared("DECIMAL ( 10 , 4 )");
    EXPECT_EQ(decimal.type, adNumeric);
    EXPECT_EQ(decimal.precision, 10);
    EXPECT_EQ(decimal.numericScale, 4);
    EXPECT_EQ(Declared("NUMERIC").precision, 18);

    const ColumnInfo nvarcharMax = Declared("NVARCHAR(MAX)");
    EXPECT_EQ(nvarcharMax.type, adLongVarWChar);
    EXPECT_TRUE(nvarcharMax.attributes & adFldLong);
    const ColumnInfo nchar = Declared("nchar(3)");
    EXPECT_EQ(nchar.type, adWChar);
    EXPECT_EQ(nchar.definedSize, 3);
    EXPECT_EQ(Declared("CHAR").definedSize, 1);

    EXPECT_EQ(Declared("VARBINARY(16)").type, adVarBinary);
    EXPECT_EQ(Declared("VARBINARY(16)").definedSize, 16);
    EXPECT_EQ(Declared("IMAGE").type, adLongVarBinary);
    EXPECT_EQ(Declared("SMALLDATETIME").type, adDBTimeStamp);
    EXPECT_EQ(Declared("DATE").type, adDBDate);
    EXPECT_EQ(Declared("TINYINT").type, adUnsignedTinyInt);
    EXPECT_EQ(Declared("BIT").type, adBoolean);
    EXPECT_EQ(Declared("REAL").type, adSingle);
    EXPECT_EQ(Declared("FLOAT").type, adDouble);
    EXPECT_EQ(Declared("UNIQUEIDENTIFIER").type, adGUID);
    EXPECT_EQ(Declared("MEDIUMINT").type, adInteger); // SQLite's integer affinity rule

    ColumnInfo untouched;
    untouched.type = adBigInt;
    EXPECT_FALSE(ApplyDeclaredType(QString(), untouched));
    EXPECT_EQ(untouched.type, adBigInt);
}

TEST(IsoDateTest, ReadsDatesTimesFractionsAndIgnoresZones) {
    EXPECT_DOUBLE_EQ(ParseIsoDate("2024-03-15")->value, MakeDate(2024, 3, 15).value);
    EXPECT_DOUBLE_EQ(ParseIsoDate("2024-03-15T10:20:30+01")->value,
                     MakeDate(2024, 3, 15, 10, 20, 30).value);
    EXPECT_DOUBLE_EQ(ParseIsoDate("1753-01-01 00:00:00")->value, BlankDate().value);
    EXPECT_NEAR(ParseIsoDate("2024-03-15 10:20:30.5")->value,
                MakeDate(2024, 3, 15, 10, 20, 30).value + 0.5 / 86400.0, 1e-9);
    EXPECT_DOUBLE_EQ(ParseIsoDate("18:00")->value, 0.75); // a time alone lies on day zero
    EXPECT_FALSE(ParseIsoDate("mañana").has_value());
    EXPECT_FALSE(ParseIsoDate("").has_value());
}

TEST(TextValueTest, EngineTextsBecomeAdoVariantKinds) {
    EXPECT_TRUE(ValueFromText("t", adBoolean).ToBool());
    EXPECT_TRUE(ValueFromText("1", adBoolean).ToBool());
    EXPECT_FALSE(ValueFromText("f", adBoolean).ToBool());
    EXPECT_EQ(ValueFromText("-7", adSmallInt).VarType(), vbInteger);
    EXPECT_EQ(ValueFromText("2147483647", adInteger).VarType(), vbLong);
    EXPECT_EQ(ValueFromText("2147483648", adInteger).ToInt64(), 2147483648LL);
    EXPECT_EQ(ValueFromText("-0.0500", adNumeric).ToDecimal().Compare(Decimal::FromString("-0.05")),
              0);
    EXPECT_EQ(ValueFromText("$1,234.56", adCurrency).ToCurrency().scaled, 12345600);
    EXPECT_EQ(ValueFromText("2024-01-02", adDBDate).VarType(), vbDate);
    EXPECT_EQ(ValueFromText("no es fecha", adDBDate).ToString(), "no es fecha");
    EXPECT_EQ(ValueFromText("texto", adVarWChar).VarType(), vbString);
}

TEST(BufferedSinkTest, ReplaysInOrderAndReportsARefusedRow) {
    BufferedSink buffer;
    ColumnInfo column;
    column.name = "n";
    buffer.RowsAffected(3);
    buffer.BeginRowset({column});
    for (int i = 1; i <= 3; ++i) {
        std::vector<Variant> row{Variant(i)};
        EXPECT_TRUE(buffer.Row(row));
    }
    buffer.EndRowset();

    testing::RecordingSink target;
    target.stopAfter = 2;
    EXPECT_FALSE(buffer.Drain(target));
    EXPECT_EQ(target.events, QStringList({"affected 3", "rowset 2"}));
    ASSERT_EQ(target.rowsets.at(0).rows.size(), 2u);
    EXPECT_EQ(target.rowsets[0].rows[1][0].ToLong(), 2);
    std::vector<Variant> late{Variant(4)};
    EXPECT_FALSE(buffer.Row(late)); // the producer learns that fetching stopped
}

} // namespace
} // namespace zlx::ado
