// Reading tables written by other programs, and damaged ones.

#include "DbfTestFiles.h"
#include "dbf/cDBF.h"

#include <QFile>
#include <gtest/gtest.h>
#include <random>

namespace zlx {
namespace {

using test::HandBuiltTable;
using test::ScratchPath;

const std::vector<test::HandField> kForeignFields = {{"CODE", 'C', 4},    {"AMOUNT", 'N', 8, 2},
                                                     {"PAID", 'L', 1},    {"NOTES", 'X', 10},
                                                     {"RATE", 'F', 6, 1}, {"WHEN", 'D', 8}};

const std::vector<QByteArray> kForeignRecords = {
    QByteArray("A\xF1o ") + "   12.50" + "S" + "         7" + "  -1.5" + "20230115",
    QByteArray("B2  ") + "        " + "y" + "          " + "      " + "        "};

class cDBFVersions : public testing::TestWithParam<std::tuple<int, bool>> {};

TEST_P(cDBFVersions, ReadsEveryFieldWhateverTheVersionAndEndByte) {
    const auto [version, endByte] = GetParam();
    const QString path = ScratchPath(QStringLiteral("foreign.dbf"));
    const QByteArray original = HandBuiltTable(static_cast<std::uint8_t>(version), kForeignFields,
                                               kForeignRecords, endByte, {false, true});
    test::WriteAll(path, original);

    cDBF dbf;
    dbf.ShowErrors(false);
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.Version(), version);
    ASSERT_EQ(dbf.FieldCount(), 6);
    EXPECT_EQ(dbf.GetFieldInfo(4).cFieldName, QStringLiteral("NOTES"));
    EXPECT_EQ(dbf.GetFieldInfo(4).cDataType, QStringLiteral("X"));
    EXPECT_EQ(dbf.GetFieldInfo(2).nDecimalPlaces, 2);
    ASSERT_EQ(dbf.RecordCount(), 2u);

    EXPECT_EQ(dbf.Field("code").ToString(), QStringLiteral("Año "));
    EXPECT_EQ(dbf.Field("AMOUNT").ToCurrency().scaled, 125000);
    EXPECT_TRUE(dbf.Field("PAID").ToBool());
    EXPECT_EQ(dbf.Field("NOTES").ToString(), QStringLiteral("         7")); // unknown type: text
    EXPECT_EQ(dbf.Field("RATE").ToCurrency().scaled, -15000);               // F reads as N
    EXPECT_EQ(dbf.Field("WHEN").ToDate(), MakeDate(2023, 1, 15));
    dbf.CurrentRow(2); // deleted records read like any other
    EXPECT_EQ(dbf.Field("CODE").ToString(), QStringLiteral("B2  "));
    EXPECT_EQ(dbf.Field("AMOUNT").ToCurrency().scaled, 0);
    EXPECT_FALSE(dbf.Field("PAID").ToBool()); // only Y, T and S are true
    EXPECT_TRUE(dbf.Field("WHEN").IsNull());
    EXPECT_EQ(dbf.GetLastErrorMsg(), QString());
    dbf.CloseDBF();
    EXPECT_EQ(test::ReadAll(path), original); // reading writes nothing
}

INSTANTIATE_TEST_SUITE_P(VersionBytes, cDBFVersions,
                         testing::Combine(testing::Values(0x03, 0x83, 0x8B, 0x30, 0x31, 0x32, 0xF5,
                                                          0xFB, 0x43),
                                          testing::Bool()));

// Reading a field again reuses the text it gave last time only when nobody kept that value.
TEST(cDBFRead, TextsAlreadyReadKeepTheirValueWhateverIsReadNext) {
    const QString path = ScratchPath(QStringLiteral("kept.dbf"));
    test::WriteAll(path, HandBuiltTable(0x03, kForeignFields, kForeignRecords, true));
    for (const std::int32_t codePage : {0, 850}) {
        cDBF dbf;
        dbf.ShowErrors(false);
        dbf.CodePage(codePage);
        ASSERT_TRUE(dbf.OpenRaw(path));
        const QString expected = codePage == 850 ? QStringLiteral("A±o ") : QStringLiteral("Año ");
        const Variant first = dbf.Field("CODE");
        const QString firstText = dbf.Field("CODE").ToString();
        const Variant notes = dbf.Field("NOTES");
        dbf.CurrentRow(2);
        EXPECT_EQ(dbf.Field("CODE").ToString(), QStringLiteral("B2  "));
        EXPECT_EQ(dbf.Field("NOTES").ToString(), QStringLiteral("          "));
        EXPECT_EQ(first.ToString(), expected) << codePage;
        EXPECT_EQ(firstText, expected) << codePage;
        EXPECT_EQ(notes.ToString(), QStringLiteral("         7"));
        dbf.CurrentRow(1);
        for (int again = 0; again < 3; ++again)
            EXPECT_EQ(dbf.Field("code").ToString(), expected);
        dbf.CloseDBF();
        ASSERT_TRUE(dbf.OpenRaw(path)); // a second opening starts with fresh buffers
        EXPECT_EQ(dbf.Field("NOTES").ToString(), QStringLiteral("         7"));
    }
}

// Callers name fields in order with the same strings each record, but also out of order, with
// copies of the names and in another case: each name reads its own field every time.
TEST(cDBFRead, FieldsNamedInAnyOrderAndByAnyCopyOfTheNameReadTheirOwnValues) {
    const QString path = ScratchPath(QStringLiteral("order.dbf"));
    test::WriteAll(path, HandBuiltTable(0x03, kForeignFields, kForeignRecords, true));
    cDBF dbf;
    dbf.ShowErrors(false);
    ASSERT_TRUE(dbf.OpenRaw(path));
    const QString names[] = {"CODE", "AMOUNT", "PAID", "NOTES", "RATE", "WHEN"};
    const auto expectFirstRecord = [&](const QString& name) {
        const Variant value = dbf.Field(name);
        const QString key = name.toUpper();
        if (key == "CODE") {
            EXPECT_EQ(value.ToString(), QStringLiteral("Año "));
        }
        if (key == "AMOUNT") {
            EXPECT_EQ(value.ToCurrency().scaled, 125000);
        }
        if (key == "PAID") {
            EXPECT_TRUE(value.ToBool());
        }
        if (key == "NOTES") {
            EXPECT_EQ(value.ToString(), QStringLiteral("         7"));
        }
        if (key == "RATE") {
            EXPECT_EQ(value.ToCurrency().scaled, -15000);
        }
        if (key == "WHEN") {
            EXPECT_EQ(value.ToDate(), MakeDate(2023, 1, 15));
        }
    };
    for (int pass = 0; pass < 2; ++pass) {
        for (const QString& name : names)
            expectFirstRecord(name);
    }
    for (int i = 5; i >= 0; --i)
        expectFirstRecord(names[i]);
    for (int i : {3, 0, 5, 1, 1, 4, 2})
        expectFirstRecord(names[i]);
    for (const QString& name : names)
        expectFirstRecord(QString(name.data(), name.size())); // equal text, other characters
    for (const QString& name : names)
        expectFirstRecord(name.toLower());
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field(names[3]).ToString(), QStringLiteral("          "));
    EXPECT_TRUE(dbf.Field(names[5]).IsNull());
    EXPECT_EQ(dbf.Field(names[0]).ToString(), QStringLiteral("B2  "));
    EXPECT_EQ(dbf.GetLastErrorMsg(), QString());
}

TEST(cDBFRead, RecordsPastTheEndOfTheFileGiveTheReadError) {
    const QString path = ScratchPath(QStringLiteral("short.dbf"));
    const QByteArray original = HandBuiltTable(0x03, kForeignFields, kForeignRecords, false, {}, 5);
    test::WriteAll(path, original);
    cDBF dbf;
    dbf.ShowErrors(false);
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.RecordCount(), 5u);
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.CurrentRow(), 2);
    EXPECT_EQ(dbf.Field("CODE").ToString(), QStringLiteral("B2  "));
    dbf.CurrentRow(3);
    QString title;
    EXPECT_EQ(dbf.GetLastErrorMsg(&title),
              QStringLiteral("No ha podido leerse el registro del disco."));
    EXPECT_EQ(title, QStringLiteral("Error leyendo el fichero DBF"));
    EXPECT_EQ(dbf.CurrentRow(), 0);
    EXPECT_EQ(dbf.Field("CODE").ToString(), QStringLiteral("    ")); // buffer blanked
    dbf.CloseDBF();
    EXPECT_EQ(test::ReadAll(path), original);
}

TEST(cDBFRead, MissingOrTruncatedHeadersAreRefused) {
    cDBF dbf;
    dbf.ShowErrors(false);
    const QString missing = ScratchPath(QStringLiteral("missing.dbf"));
    EXPECT_FALSE(dbf.OpenRaw(missing));
    EXPECT_TRUE(QFile::exists(missing)); // created empty, as the open mode says
    EXPECT_EQ(QFile(missing).size(), 0);

    const QByteArray whole = HandBuiltTable(0x03, kForeignFields, kForeignRecords, true);
    const QString path = ScratchPath(QStringLiteral("cut.dbf"));
    test::WriteAll(path, whole.left(31));
    EXPECT_FALSE(dbf.OpenRaw(path));
    test::WriteAll(path, whole.left(32 + 32 * 3)); // descriptors cut short
    EXPECT_FALSE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.FieldCount(), 0);
    EXPECT_EQ(dbf.Path(), QString());
}

TEST(cDBFRead, NumbersThatAreNotPlainDecimalsAreReadLikeVal) {
    const QString path = ScratchPath(QStringLiteral("numbers.dbf"));
    test::WriteAll(path, HandBuiltTable(0x03,
                                        {{"EXP", 'N', 8, 1},
                                         {"JUNK", 'N', 6},
                                         {"HUGE", 'N', 22},
                                         {"WIDE", 'N', 12, 6},
                                         {"BIGINT", 'N', 9, 2}},
                                        {QByteArray("   +7.25") + " 12abc" +
                                         "1234567890123456789012" + "-0.000001   " + "12.345678"},
                                        false));
    cDBF dbf;
    dbf.ShowErrors(false);
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.Field("EXP").ToCurrency().scaled, 72500);
    EXPECT_EQ(dbf.Field("JUNK").ToLong(), 12);
    EXPECT_EQ(dbf.Field("HUGE").ToDecimal().ToString(), QStringLiteral("1234567890123456789012"));
    EXPECT_DOUBLE_EQ(dbf.Field("WIDE").ToDouble(), -0.000001);
    EXPECT_EQ(dbf.Field("BIGINT").ToCurrency().scaled, 123457); // more places than currency keeps
    EXPECT_EQ(dbf.GetLastErrorMsg(), QString());
}

// Opens the file and reads every field of every record.
void ReadEverything(const QString& path) {
    cDBF dbf;
    dbf.ShowErrors(false);
    if (!dbf.OpenRaw(path)) return;
    const std::uint32_t count = std::min<std::uint32_t>(dbf.RecordCount(), 50);
    for (std::uint32_t row = 1; row <= count; ++row) {
        dbf.CurrentRow(row);
        for (int f = 1; f <= dbf.FieldCount(); ++f)
            dbf.Field(dbf.GetFieldInfo(f).cFieldName);
    }
}

TEST(cDBFRead, MutatedFilesNeverCrashAndAreNeverWritten) {
    const QByteArray original = HandBuiltTable(0x83, kForeignFields, kForeignRecords, true);
    const QString path = ScratchPath(QStringLiteral("mutated.dbf"));
    std::mt19937 random(20240229);
    for (int round = 0; round < 400; ++round) {
        QByteArray mutated = original;
        const int edits = 1 + static_cast<int>(random() % 8);
        for (int i = 0; i < edits; ++i) {
            const int at = static_cast<int>(random() % static_cast<unsigned>(mutated.size()));
            mutated[at] = static_cast<char>(random() % 256);
        }
        if (round % 5 == 0)
            mutated.truncate(static_cast<int>(random() % static_cast<unsigned>(mutated.size())));
        test::WriteAll(path, mutated);
        ReadEverything(path);
        ASSERT_EQ(test::ReadAll(path), mutated) << "round " << round;
    }
}

} // namespace
} // namespace zlx
