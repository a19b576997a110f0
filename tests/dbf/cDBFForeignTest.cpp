// Tables written by other programs (dBASE, FoxPro, Visual FoxPro, and the loose writers),
// each shape built byte by byte and read field by field.

#include "DbfForeignShapes.h"
#include "DbfTestFiles.h"
#include "dbf/cDBF.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <gtest/gtest.h>

namespace zlx {
namespace {

using test::ForeignShapeNamed;
using test::HandTable;

class cDBFForeign : public testing::Test {
protected:
    void SetUp() override { dbf.ShowErrors(false); }
    void Open(const char* shape) {
        path = test::WriteShape(ForeignShapeNamed(shape));
        ASSERT_TRUE(dbf.OpenRaw(path)) << dbf.GetLastErrorMsg().toStdString();
    }
    QString Error() const {
        QString title;
        const QString message = dbf.GetLastErrorMsg(&title);
        return message.isEmpty() ? QString() : title + QStringLiteral(": ") + message;
    }
    std::vector<QString> Names() const {
        std::vector<QString> names;
        for (int f = 1; f <= dbf.FieldCount(); ++f)
            names.push_back(dbf.GetFieldInfo(f).cFieldName);
        return names;
    }

    cDBF dbf;
    QString path;
};

TEST_F(cDBFForeign, NamesInLowerOrMixedCaseAreFoundWhateverTheCase) {
    Open("lowercase");
    EXPECT_EQ(Names(), (std::vector<QString>{"code", "Amount"}));
    for (const char* name : {"code", "CODE", "Code"})
        EXPECT_EQ(dbf.Field(name).ToString(), QStringLiteral("ab  ")) << name;
    EXPECT_EQ(dbf.Field("AMOUNT").ToCurrency().scaled, 125000);
    dbf.Field("amount", 7.5);
    dbf.Commit();
    dbf.CloseDBF();
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.Field("Amount").ToCurrency().scaled, 75000);
    EXPECT_EQ(Error(), QString());
}

TEST_F(cDBFForeign, AnExactNameWinsOverOneThatDiffersInCase) {
    HandTable t;
    t.fields = {{"Name", 'C', 2}, {"NAME", 'C', 2}};
    t.records = {"abcd"};
    path = test::ScratchPath(QStringLiteral("twice.dbf"));
    test::WriteAll(path, test::BuildTable(t));
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.Field("Name").ToString(), QStringLiteral("ab"));
    EXPECT_EQ(dbf.Field("NAME").ToString(), QStringLiteral("cd"));
    EXPECT_EQ(dbf.Field("name").ToString(), QStringLiteral("cd")); // the upper-case key first
}

TEST_F(cDBFForeign, VisualFoxProTablesReadTheirBinaryFieldsAndNulls) {
    Open("visualfoxpro");
    EXPECT_EQ(dbf.Version(), 0x30);
    EXPECT_EQ(Names(), (std::vector<QString>{"NAME", "QTY", "PRICE", "STAMP", "RATIO", "NOTE",
                                             "DISC"})); // _NullFlags is hidden
    EXPECT_EQ(dbf.Field("NAME").ToString(), QStringLiteral("Peña  "));
    EXPECT_EQ(dbf.Field("QTY").VarType(), vbLong);
    EXPECT_EQ(dbf.Field("QTY").ToLong(), -42);
    EXPECT_EQ(dbf.Field("PRICE").VarType(), vbCurrency);
    EXPECT_EQ(dbf.Field("PRICE").ToCurrency().scaled, 123456);
    EXPECT_EQ(dbf.Field("STAMP").ToDate(), MakeDate(2023, 2, 24, 12, 34, 57));
    EXPECT_EQ(dbf.Field("RATIO").VarType(), vbDouble);
    EXPECT_EQ(dbf.Field("RATIO").ToDouble(), 0.5);
    EXPECT_EQ(dbf.Field("NOTE").ToString(), QStringLiteral("hola")); // length in its last byte
    EXPECT_EQ(dbf.Field("DISC").ToCurrency().scaled, 12500);

    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field("QTY").ToLong(), 0);
    EXPECT_EQ(dbf.Field("PRICE").ToCurrency().scaled, 0);
    EXPECT_TRUE(dbf.Field("STAMP").IsNull());
    EXPECT_TRUE(dbf.Field("NOTE").IsNull());
    EXPECT_TRUE(dbf.Field("DISC").IsNull());
    EXPECT_EQ(Error(), QString());
}

TEST_F(cDBFForeign, WritingAVisualFoxProTableKeepsItsNullFlagsAndBinaryFields) {
    Open("visualfoxpro");
    dbf.CurrentRow(2);
    dbf.Field("DISC", 2.5); // no longer Null
    dbf.BeginInsert();
    dbf.Field("NAME", "nuevo");
    dbf.Field("DISC", Variant::Null());
    ASSERT_TRUE(dbf.EndInsert());
    dbf.CloseDBF();
    ASSERT_TRUE(dbf.OpenRaw(path));
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field("DISC").ToCurrency().scaled, 25000);
    EXPECT_TRUE(dbf.Field("NOTE").IsNull());
    dbf.CurrentRow(3);
    EXPECT_EQ(dbf.Field("NAME").ToString(), QStringLiteral("nuevo "));
    EXPECT_EQ(dbf.Field("QTY").ToLong(), 0); // binary zeros, not blanks
    EXPECT_EQ(dbf.Field("PRICE").ToCurrency().scaled, 0);
    EXPECT_TRUE(dbf.Field("STAMP").IsNull());
    EXPECT_TRUE(dbf.Field("DISC").IsNull());
    EXPECT_EQ(dbf.Field("NOTE").ToString(), QString(10, u' '));
    dbf.Field("QTY", std::int32_t(5)); // binary fields are not written
    EXPECT_EQ(dbf.Field("QTY").ToLong(), 0);
    EXPECT_EQ(Error(), QString());
}

TEST_F(cDBFForeign, LooseHeadersAndRecordsAreReadByTheirFields) {
    Open("linefeed"); // the field list ends at a 0x0A, padding follows
    EXPECT_EQ(Names(), (std::vector<QString>{"A", "B"}));
    EXPECT_EQ(dbf.Field("A").ToString(), QStringLiteral("xyz"));
    EXPECT_EQ(dbf.Field("B").ToLong(), 17);

    Open("nooffsets"); // offsets 0, a record length of 40 for fields of 21 bytes, no 0x1A
    EXPECT_EQ(dbf.Field("CODE").ToString(), QStringLiteral("A1  "));
    EXPECT_EQ(dbf.Field("TOTAL").ToCurrency().scaled, -32500);
    EXPECT_EQ(dbf.Field("WHEN").ToDate(), MakeDate(2024, 1, 31));
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field("CODE").ToString(), QStringLiteral("B2  "));
    EXPECT_EQ(dbf.Field("TOTAL").ToCurrency().scaled, 1000000);
    EXPECT_EQ(dbf.Field("WHEN").ToDate(), MakeDate(1999, 12, 31));

    Open("junk");
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field("CODE").ToString(), QStringLiteral("BBBB"));
    EXPECT_EQ(dbf.Field("N").ToLong(), 2);
    EXPECT_EQ(Error(), QString());
}

TEST_F(cDBFForeign, CharacterFieldsLongerThan255KeepTheHighByteInTheDecimals) {
    Open("longchar");
    const DBF_FieldInfo_Type info = dbf.GetFieldInfo(1);
    EXPECT_EQ(info.nFieldLength, 300 % 256);
    EXPECT_EQ(info.nDecimalPlaces, 1);
    const QString text = dbf.Field("TEXT").ToString();
    EXPECT_EQ(text.size(), 300);
    EXPECT_TRUE(text.startsWith(QStringLiteral("Largo xxx")));
    EXPECT_EQ(text.trimmed().right(4), QStringLiteral("xfin"));
    EXPECT_EQ(dbf.Field("N").ToLong(), 7);
}

TEST_F(cDBFForeign, NumbersPaddedWithNulsAndEmptyDates) {
    Open("nulpadded");
    EXPECT_EQ(dbf.Field("QTY").ToLong(), 42);
    EXPECT_EQ(dbf.Field("PRICE").ToCurrency().scaled, 35000);
    EXPECT_TRUE(dbf.Field("D1").IsNull()); // eight blanks
    EXPECT_TRUE(dbf.Field("D2").IsNull()); // eight NULs
    EXPECT_EQ(dbf.Field("D3").ToDate(), MakeDate(2024, 2, 29));
    EXPECT_EQ(Error(), QString());
}

TEST_F(cDBFForeign, MemosAreReadFromTheDbtOrFptFileBeside) {
    Open("dbase3memo");
    EXPECT_EQ(dbf.Field("NOTES").ToString(), QStringLiteral("Texto de año\r\nsegunda línea"));
    dbf.CurrentRow(2);
    EXPECT_EQ(dbf.Field("NOTES").VarType(), vbString);
    EXPECT_EQ(dbf.Field("NOTES").ToString(), QString());

    Open("dbase4memo");
    EXPECT_EQ(dbf.Field("NOTES").ToString(), QStringLiteral("Nota de dBASE IV"));

    Open("foxpromemo");
    EXPECT_EQ(dbf.Field("NOTES").ToString(), QStringLiteral("Línea uno\r\nLínea dos"));
    const VariantArrayPtr picture = dbf.Field("PIC").ToArray();
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->Size(), 3u);
    EXPECT_EQ(picture->At(2).ToLong(), 255);

    Open("vfpmemo"); // four-byte block numbers; the memo file's extension in capitals
    EXPECT_EQ(dbf.Field("NOTES").ToString(), QStringLiteral("Memo de Visual FoxPro"));
    const VariantArrayPtr blob = dbf.Field("BLOB").ToArray();
    ASSERT_TRUE(blob);
    ASSERT_EQ(blob->Size(), 3u);
    EXPECT_EQ(blob->At(0).ToLong(), 0);
    EXPECT_EQ(blob->At(1).ToLong(), 16);
    EXPECT_EQ(blob->At(2).ToLong(), 32);
    EXPECT_EQ(Error(), QString());
}

TEST_F(cDBFForeign, AMissingOrShortMemoFileIsReportedAndTheMemoReadsNull) {
    const test::ForeignShape& shape = ForeignShapeNamed("dbase3memo");
    path = test::ScratchPath(QStringLiteral("dbase3memo.dbf"));
    test::WriteAll(path, shape.table);
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.Field("NAME").ToString(), QStringLiteral("uno "));
    EXPECT_EQ(Error(), QString());
    EXPECT_TRUE(dbf.Field("NOTES").IsNull());
    EXPECT_EQ(Error(), QStringLiteral("Error leyendo el fichero DBF: No se encuentra el fichero de "
                                      "memos de 'dbase3memo.dbf': el campo 'NOTES' no puede "
                                      "leerse."));
    dbf.CloseDBF();
    test::WriteAll(path.chopped(3) + QStringLiteral("dbt"), shape.memo.left(512));
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_TRUE(dbf.Field("NOTES").IsNull());
    EXPECT_EQ(Error(), QStringLiteral("Error leyendo el fichero DBF: No ha podido leerse el memo "
                                      "del campo 'NOTES' (bloque 1) en 'dbase3memo.dbt'."));
}

struct CodePageCase {
    const char* shape;
    int codePage;
    const char* text;
};

class cDBFCodePages : public cDBFForeign, public testing::WithParamInterface<CodePageCase> {};

TEST_P(cDBFCodePages, TextIsReadInThePageTheLanguageDriverByteNames) {
    Open(GetParam().shape);
    EXPECT_EQ(dbf.CodePage(), GetParam().codePage);
    EXPECT_EQ(dbf.Field("TEXTO").ToString(), QString::fromUtf8(GetParam().text));
    // Writing uses the same page: the text comes back.
    dbf.Field("TEXTO", QString::fromUtf8(GetParam().text));
    dbf.Commit();
    dbf.CloseDBF();
    EXPECT_EQ(test::ReadAll(path), ForeignShapeNamed(GetParam().shape).table);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, cDBFCodePages,
    testing::Values(CodePageCase{"cp437", 437, "Año"}, CodePageCase{"cp850", 850, "Ñandú"},
                    CodePageCase{"cp852", 852, "Łódź"}, CodePageCase{"cp866", 866, "Мир"},
                    CodePageCase{"cp1250", 1250, "Łódź"}, CodePageCase{"cp1251", 1251, "Мир"},
                    CodePageCase{"cp1252", 1252, "Peña €"}, CodePageCase{"cp936", 936, "中文"}),
    [](const auto& info) { return std::string(info.param.shape); });

TEST_F(cDBFForeign, ACodePageCanBeNamedWhenTheByteIsMissingOrWrong) {
    HandTable t;
    t.fields = {{"TEXTO", 'C', 3}};
    t.records = {"\x8C\xA8\xE0"}; // "Мир" in 866, no language-driver byte
    path = test::ScratchPath(QStringLiteral("unmarked.dbf"));
    test::WriteAll(path, test::BuildTable(t));
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.CodePage(), 1252);
    EXPECT_EQ(dbf.Field("TEXTO").ToString(), QStringLiteral("Œ¨à"));
    dbf.CodePage(866); // the open file, and the ones opened afterwards
    EXPECT_EQ(dbf.Field("TEXTO").ToString(), QStringLiteral("Мир"));
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.CodePage(), 866);
    EXPECT_EQ(dbf.Field("TEXTO").ToString(), QStringLiteral("Мир"));

    dbf.CodePage(12345);
    EXPECT_EQ(Error(), QStringLiteral("Error abriendo el fichero DBF: La página de códigos 12345 "
                                      "no está disponible."));
    EXPECT_EQ(dbf.CodePage(), 866);
    dbf.CodePage(0); // back to the file's byte
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.CodePage(), 1252);
}

TEST_F(cDBFForeign, APageThatIsNotAvailableIsRefusedUnlessAnotherIsNamed) {
    HandTable t;
    t.driverByte = 0x68; // Kamenický (895)
    t.fields = {{"TEXTO", 'C', 3}};
    t.records = {"abc"};
    path = test::ScratchPath(QStringLiteral("kamenicky.dbf"));
    test::WriteAll(path, test::BuildTable(t));
    EXPECT_FALSE(dbf.OpenRaw(path));
    EXPECT_EQ(Error(), QStringLiteral("Error abriendo el fichero DBF: No puede leerse el fichero "
                                      "DBF: la página de códigos 895 que indica su cabecera no "
                                      "está disponible."));
    dbf.CodePage(852);
    ASSERT_TRUE(dbf.OpenRaw(path));
    EXPECT_EQ(dbf.Field("TEXTO").ToString(), QStringLiteral("abc"));
}

TEST_F(cDBFForeign, VersionsTheReaderDoesNotKnowAreRefusedByName) {
    const std::vector<std::pair<std::uint8_t, QString>> cases = {
        {0x02, "es de la versión dBASE II (0x02), que no se admite."},
        {0x04, "es de la versión dBASE 7 (0x04), que no se admite."},
        {0x8C, "es de la versión dBASE 7 (0x8C), que no se admite."},
        {0x7F, "su versión (0x7F) es desconocida."}};
    for (const auto& [version, text] : cases) {
        HandTable t;
        t.version = version;
        t.fields = {{"CODE", 'C', 4}};
        t.records = {"abcd"};
        path = test::ScratchPath(QStringLiteral("old.dbf"));
        const QByteArray bytes = test::BuildTable(t);
        test::WriteAll(path, bytes);
        EXPECT_FALSE(dbf.OpenRaw(path));
        EXPECT_EQ(Error(), QStringLiteral("Error abriendo el fichero DBF: No puede leerse el "
                                          "fichero DBF: ") +
                               text);
        EXPECT_EQ(dbf.FieldCount(), 0);
        EXPECT_EQ(test::ReadAll(path), bytes);
    }
    RecordingMsgPresenter presenter;
    ScopedMsgPresenter scope(presenter);
    dbf.ShowErrors(true);
    EXPECT_FALSE(dbf.OpenRaw(path));
    ASSERT_EQ(presenter.Messages().size(), 1u);
    EXPECT_EQ(presenter.Last().title, QStringLiteral("Error abriendo el fichero DBF"));
}

TEST_F(cDBFForeign, ARecordShorterThanItsFieldsIsRefused) {
    HandTable t;
    t.fields = {{"CODE", 'C', 4}, {"TOTAL", 'N', 8, 2}, {"WHEN", 'D', 8}};
    t.records = {"A1", "B2"};
    t.declaredRecordLength = 10;
    t.trailer = "\x1A and more";
    path = test::ScratchPath(QStringLiteral("short.dbf"));
    test::WriteAll(path, test::BuildTable(t));
    EXPECT_FALSE(dbf.OpenRaw(path));
    EXPECT_EQ(Error(), QStringLiteral("Error abriendo el fichero DBF: No puede leerse el fichero "
                                      "DBF: sus campos ocupan 21 bytes por registro y la cabecera "
                                      "declara 10."));
}

// ZLX_WRITE_DBF_FUZZ_SEEDS=1 writes them after a shape is added or changed.
TEST(DbfFuzzSeeds, HoldEveryShapeOtherProgramsWrite) {
    for (const test::ForeignShape& shape : test::ForeignShapes()) {
        const QString seed = QStringLiteral(ZLX_DBF_FUZZ_SEEDS "/") +
                             QString::fromLatin1(shape.name) + QStringLiteral(".dbf");
        if (qEnvironmentVariableIsSet("ZLX_WRITE_DBF_FUZZ_SEEDS"))
            test::WriteAll(seed, shape.table);
        EXPECT_EQ(test::ReadAll(seed), shape.table) << shape.name;
    }
}

} // namespace
} // namespace zlx
