// Files written by cDBF, compared byte by byte, and values read back.

#include "DbfTestFiles.h"
#include "dbf/cDBF.h"

#include <QDate>
#include <gtest/gtest.h>

namespace zlx {
namespace {

using test::ReadAll;
using test::ScratchPath;

// NAME C(20), PRICE N(10,2), BORN D.
void CreateThreeColumnTable(cDBF& dbf, const QString& path) {
    ASSERT_TRUE(dbf.BeginCreateDBF(path));
    QString c = QStringLiteral("c"), n = QStringLiteral("Numeric"), d = QStringLiteral("d");
    dbf.CreateColumn(QStringLiteral("name"), c, 20);
    dbf.CreateColumn(QStringLiteral("price"), n, 10, 2);
    dbf.CreateColumn(QStringLiteral("born"), d);
    EXPECT_EQ(c, QStringLiteral("C"));
    EXPECT_EQ(n, QStringLiteral("N"));
    ASSERT_TRUE(dbf.EndCreateDBF());
}

QByteArray Descriptor(const char* name, char type, int offset, int length, int decimals) {
    QByteArray d(32, '\0');
    d.replace(0, static_cast<int>(qstrlen(name)), name);
    d[11] = type;
    test::PutU32(d, 12, offset);
    d[16] = static_cast<char>(length);
    d[17] = static_cast<char>(decimals);
    return d;
}

TEST(cDBFCreate, WritesHeaderDescriptorsAndRecordsByteForByte) {
    const QString path = ScratchPath(QStringLiteral("three.dbf"));
    {
        cDBF dbf;
        dbf.ShowErrors(false);
        CreateThreeColumnTable(dbf, path);
        EXPECT_EQ(dbf.RecordCount(), 0u);
        EXPECT_EQ(dbf.CurrentRow(), 0);
        dbf.BeginInsert();
        dbf.Field(QStringLiteral("NAME"), QStringLiteral("Peña €"));
        dbf.Field(QStringLiteral("price"), 3.5);
        dbf.Field(QStringLiteral("born"), MakeDate(2024, 2, 29));
        EXPECT_TRUE(dbf.EndInsert());
        dbf.BeginInsert();
        dbf.Field(QStringLiteral("price"), std::int32_t(-12));
        EXPECT_TRUE(dbf.EndInsert());
        EXPECT_EQ(dbf.GetLastErrorMsg(), QString());
    } // the destructor writes the record count

    const QDate today = QDate::currentDate();
    QByteArray expected(32, '\0');
    expected[0] = 0x03;
    expected[1] = static_cast<char>(today.year() % 100);
    expected[2] = static_cast<char>(today.month());
    expected[3] = static_cast<char>(today.day());
    expected[4] = 2;                      // records
    expected[8] = static_cast<char>(129); // 32 + 3 * 32 + 1
    expected[10] = 39;                    // 1 + 20 + 10 + 8
    expected[29] = 0x03;
    expected += Descriptor("NAME", 'C', 1, 20, 0);
    expected += Descriptor("PRICE", 'N', 21, 10, 2);
    expected += Descriptor("BORN", 'D', 31, 8, 0);
    expected += '\x0D';
    expected += QByteArray(" Pe\xF1"
                           "a \x80              "
                           "      3.50"
                           "20240229");
    expected +=
        QByteArray(" ") + QByteArray(20, ' ') + QByteArray("    -12.00") + QByteArray(8, ' ');
    EXPECT_EQ(ReadAll(path).toHex(' '), expected.toHex(' '));
}

TEST(cDBFCreate, FormatsEachValueKindAndReadsItBackByFieldType) {
    const QString path = ScratchPath(QStringLiteral("kinds.dbf"));
    cDBF dbf;
    dbf.ShowErrors(false);
    ASSERT_TRUE(dbf.BeginCreateDBF(path));
    QString c = "C", n = "N", l = "L", d = "D";
    dbf.CreateColumn("TEXT", c, 5);
    dbf.CreateColumn("SMALL", n, 5);
    dbf.CreateColumn("WHOLE9", n, 9);
    dbf.CreateColumn("WHOLE12", n, 12);
    dbf.CreateColumn("WHOLE16", n, 16);
    dbf.CreateColumn("MONEY", n, 16, 4);
    dbf.CreateColumn("RATIO", n, 12, 6);
    dbf.CreateColumn("FLAG", l, 7); // the size is ignored for L
    dbf.CreateColumn("DAY", d);
    dbf.CreateColumn("NUMTEXT", n, 6);
    ASSERT_TRUE(dbf.EndCreateDBF());
    EXPECT_EQ(dbf.FieldCount(), 10);
    EXPECT_EQ(dbf.GetFieldInfo(8).nFieldLength, 1);
    EXPECT_EQ(dbf.GetFieldInfo(8).nDecimalPlaces, 0);

    dbf.BeginInsert();
    dbf.Field("TEXT", "abcdefg");
    dbf.Field("SMALL", std::int32_t(1234567)); // too wide: stays blank
    dbf.Field("SMALL", std::int16_t(-42));
    dbf.Field("WHOLE9", 2.5); // halves away from zero
    dbf.Field("WHOLE12", Currency{1234567890120000});
    dbf.Field("WHOLE16", Variant::FromInt64(123456789012345));
    dbf.Field("MONEY", Currency{-1234567});
    dbf.Field("RATIO", 0.1234567);
    dbf.Field("FLAG", true);
    dbf.Field("DAY", MakeDate(1999, 12, 31, 23, 59, 59));
    dbf.Field("NUMTEXT", "12"); // a text is written as text whatever the field type
    ASSERT_TRUE(dbf.EndInsert());
    dbf.BeginInsert();
    dbf.Field("TEXT", "ab");
    dbf.Field("FLAG", false);
    dbf.Field("RATIO", Variant::Null());
    ASSERT_TRUE(dbf.EndInsert());
    dbf.CloseDBF();

    const QByteArray bytes = ReadAll(path);
    const int headerLength = 32 + 32 * 10 + 1;
    const int recordLength = 1 + 5 + 5 + 9 + 12 + 16 + 16 + 12 + 1 + 8 + 6;
    ASSERT_EQ(bytes.size(), headerLength + 2 * recordLength);
    EXPECT_EQ(bytes.mid(headerLength, recordLength),
              QByteArray(" ") + "abcde" + "  -42" + "        3" + "123456789012" +
                  " 123456789012345" + "       -123.4567" + "    0.123457" + "T" + "19991231" +
                  "12    ");
    EXPECT_EQ(bytes.mid(headerLength + recordLength, 6), QByteArray(" ab   "));

    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.RecordCount(), 2u);
    EXPECT_EQ(dbf.CurrentRow(), 1);
    EXPECT_EQ(dbf.Field("text").ToString(), QStringLiteral("abcde"));
    EXPECT_EQ(dbf.Field("SMALL").VarType(), vbLong);
    EXPECT_EQ(dbf.Field("SMALL").ToLong(), -42);
    EXPECT_EQ(dbf.Field("WHOLE9").ToLong(), 3);
    EXPECT_EQ(dbf.Field("WHOLE12").VarType(), vbCurrency);
    EXPECT_EQ(dbf.Field("WHOLE12").ToCurrency().scaled, 1234567890120000);
    EXPECT_EQ(dbf.Field("WHOLE16").VarType(), vbDecimal);
    EXPECT_EQ(dbf.Field("WHOLE16").ToDecimal().ToString(), QStringLiteral("123456789012345"));
    EXPECT_EQ(dbf.Field("MONEY").VarType(), vbCurrency);
    EXPECT_EQ(dbf.Field("MONEY").ToCurrency().scaled, -1234567);
    EXPECT_EQ(dbf.Field("RATIO").VarType(), vbDouble);
    EXPECT_DOUBLE_EQ(dbf.Field("RATIO").ToDouble(), 0.123457);
    EXPECT_EQ(dbf.Field("FLAG").VarType(), vbBoolean);
    EXPECT_TRUE(dbf.Field("FLAG").ToBool());
    EXPECT_EQ(dbf.Field("DAY").ToDate(), MakeDate(1999, 12, 31));
    EXPECT_EQ(dbf.Field("NUMTEXT").ToLong(), 12);
    dbf.CurrentRow(2);
    EXPECT_FALSE(dbf.Field("FLAG").ToBool());
    EXPECT_EQ(dbf.Field("WHOLE9").ToLong(), 0);
    EXPECT_TRUE(dbf.Field("DAY").IsNull());
    EXPECT_EQ(dbf.GetLastErrorMsg(), QString());
}

TEST(cDBFCreate, UpdatesAnExistingRecordAndKeepsRecordsOnInsert) {
    const QString path = ScratchPath(QStringLiteral("update.dbf"));
    cDBF dbf;
    dbf.ShowErrors(false);
    CreateThreeColumnTable(dbf, path);
    for (const char* name : {"uno", "dos", "tres"}) {
        dbf.BeginInsert();
        dbf.Field("NAME", name);
    }
    dbf.BeginInsert(); // a second BeginInsert appends the pending record first
    EXPECT_EQ(dbf.RecordCount(), 3u);
    dbf.Field("NAME", "cuatro");
    dbf.Commit();
    EXPECT_EQ(dbf.RecordCount(), 4u);

    dbf.CurrentRow(2);
    dbf.Field("PRICE", 99.999);
    dbf.CurrentRow(3); // moving writes the changed record
    dbf.Field("NAME", "TRES");
    dbf.BeginInsert(); // starting an insertion keeps the change too
    dbf.Field("NAME", "cinco");
    dbf.CloseDBF(); // the header is unchanged since Commit: the pending record is dropped

    ASSERT_TRUE(dbf.OpenRaw(path));
    ASSERT_EQ(dbf.RecordCount(), 4u);
    QStringList names;
    for (int row = 1; row <= 4; ++row) {
        dbf.CurrentRow(row);
        names << dbf.Field("NAME").ToString().trimmed();
    }
    EXPECT_EQ(names.join(','), QStringLiteral("uno,dos,TRES,cuatro"));
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field("PRICE").ToCurrency().scaled, 1000000);
    EXPECT_EQ(dbf.GetLastErrorMsg(), QString());
}

TEST(cDBFCreate, OpenHoldsTheFileExclusively) {
    const QString path = ScratchPath(QStringLiteral("locked.dbf"));
    cDBF first;
    CreateThreeColumnTable(first, path);
    cDBF second;
    EXPECT_FALSE(second.OpenRaw(path));
    EXPECT_FALSE(second.BeginCreateDBF(path));
    EXPECT_EQ(ReadAll(path).size(), 129); // the holder's file was not emptied
    first.CloseDBF();
    EXPECT_TRUE(second.OpenRaw(path));
    EXPECT_EQ(second.FieldCount(), 3);
}

} // namespace
} // namespace zlx
