#include "DbfForeignShapes.h"
#include "DbfTestFiles.h"
#include "QtPrinters.h"
#include "TableTestData.h"
#include "dbf/cDBF.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::test;

namespace {

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// NOMBRE C(30), CODIGO N(8,0), PRECIO N(12,2), ALTA D, ACTIVO L with three records.
void WriteArticles(const QString& path) {
    cDBF dbf;
    ASSERT_TRUE(dbf.BeginCreateDBF(path));
    const std::vector<std::tuple<const char*, const char*, int, int>> fields = {
        {"NOMBRE", "C", 30, 0},
        {"CODIGO", "N", 8, 0},
        {"PRECIO", "N", 12, 2},
        {"ALTA", "D", 0, 0},
        {"ACTIVO", "L", 0, 0}};
    for (const auto& [name, type, length, decimals] : fields) {
        QString t = type;
        dbf.CreateColumn(name, t, length, decimals);
    }
    ASSERT_TRUE(dbf.EndCreateDBF());
    for (int i = 1; i <= 3; ++i) {
        dbf.BeginInsert();
        dbf.Field("NOMBRE", Variant(QString("Artículo %1").arg(i)));
        dbf.Field("CODIGO", Variant(i * 1000));
        dbf.Field("PRECIO", Variant(i * 1.25));
        dbf.Field("ALTA", Variant(MakeDate(2023, 12, i)));
        dbf.Field("ACTIVO", Variant(i != 2));
        ASSERT_TRUE(dbf.EndInsert());
    }
    dbf.CloseDBF();
}

// Each cell of the table loaded from the file holds what the file reader reads from the same
// field, in the column's type (a logical as 1 or 0).
void ExpectWhatTheFileReaderReads(const QString& path, const HandTable& shape, cDatos& table) {
    cDBF dbf;
    dbf.ShowErrors(false);
    ASSERT_TRUE(dbf.OpenRaw(path));
    const auto records = static_cast<std::int32_t>(shape.records.size());
    for (std::int32_t row = 1; row <= records; ++row) {
        dbf.CurrentRow(row);
        for (const HandField& field : shape.fields) {
            const Variant read = dbf.Field(field.name);
            const Variant cell = table.DataCell(field.name, row);
            const std::string where = std::string(field.name) + " " + std::to_string(row);
            ASSERT_EQ(cell.IsNull(), read.IsNull()) << where;
            if (read.IsNull()) continue;
            if (field.type == 'L') {
                ASSERT_EQ(cell.ToLong(), read.ToBool() ? 1 : 0) << where;
            } else {
                ASSERT_EQ(cell.Compare(read), 0) << where << " " << cell.ToString().toStdString();
            }
        }
    }
}

} // namespace

TEST(TableFiles, XmlRoundTripKeepsEveryRowTypeAndValue) {
    auto people = FivePeople();
    people->Filter(Variant("ciudad = 'Madrid'"));
    const QString path = TestScratchPath("people.xml");
    ASSERT_TRUE(people->SaveToXMLFile(path));
    ASSERT_TRUE(people->SaveToXMLFile(path)); // an existing file is replaced
    cDatos loaded;
    EXPECT_EQ(loaded.LoadFromXMLFile(path), 1);
    EXPECT_EQ(loaded.RecCount(), 5);
    EXPECT_EQ(loaded.FieldCount(), 5);
    for (int c = 0; c < 5; ++c) {
        people->Filter(Variant(""));
        EXPECT_EQ(loaded.ColumnInfo(c).nType, people->ColumnInfo(c).nType) << c;
        EXPECT_EQ(loaded.ColumnInfo(c).nSize, people->ColumnInfo(c).nSize) << c;
    }
    EXPECT_EQ(ColumnTexts(loaded, "importe"), ColumnTexts(*people, "importe"));
    EXPECT_EQ(ColumnTexts(loaded, "alta"), ColumnTexts(*people, "alta"));
    QFile::remove(path);
    QFile::remove(path);

    EXPECT_FALSE(people->SaveToXMLFile(TestScratchPath("no/such/folder/x.xml")));
    cDatos bad;
    EXPECT_EQ(bad.LoadFromXMLFile(TestScratchPath("missing.xml")), 0);
    EXPECT_EQ(bad.LastError(), zlxDatosError_Err_LoadXML);
    const QString corrupt = TestScratchPath("corrupt.xml");
    QFile file(corrupt);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'><s:Schema");
    file.close();
    EXPECT_EQ(bad.LoadFromXMLFile(corrupt), 0);
    EXPECT_EQ(bad.LastError(), zlxDatosError_Err_LoadXML);
}

TEST(TableFiles, DbfFieldsLoadAsTheirColumnTypes) {
    const QString path = TestScratchPath("articulos.dbf");
    WriteArticles(path);
    cDatos table;
    EXPECT_EQ(table.LoadFile_DBF(path), 1);
    EXPECT_EQ(table.Tally(), 3);
    EXPECT_EQ(table.RecCount(), 3);
    const std::vector<std::pair<QString, std::int32_t>> expected = {
        {"NOMBRE", zlxTblColumnTypeChar},
        {"CODIGO", zlxTblColumnTypeI4},
        {"PRECIO", zlxTblColumnTypeCurrency},
        {"ALTA", zlxTblColumnTypeDateTime},
        {"ACTIVO", zlxTblColumnTypeI1}};
    for (int c = 0; c < 5; ++c) {
        EXPECT_EQ(table.ColumnInfo(c).cName, expected[c].first);
        EXPECT_EQ(table.ColumnInfo(c).nType, expected[c].second);
    }
    EXPECT_EQ(table.ColumnInfo(0).nSize, 30);
    EXPECT_EQ(table.DataCell("NOMBRE", 2).ToString().trimmed(), "Artículo 2");
    EXPECT_EQ(table.DataCell("CODIGO", 3).ToLong(), 3000);
    EXPECT_EQ(table.DataCell("PRECIO", 3).ToCurrency().scaled, 37500);
    EXPECT_EQ(table.DataCell("ALTA", 1).ToDate(), MakeDate(2023, 12, 1));
    EXPECT_EQ(table.DataCell("ACTIVO", 1).ToLong(), 1);
    EXPECT_EQ(table.DataCell("ACTIVO", 2).ToLong(), 0);
    EXPECT_EQ(table.CurrentRow(), 2);

    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    cDatos missing;
    EXPECT_EQ(missing.LoadFile_DBF(TestScratchPath("nada.dbf")), 0);
    EXPECT_EQ(missing.LastError(), zlxDatosError_Err_LoadDBF);

    // A file cut short in its last record: the read error is reported, the load fails and
    // the file is left as it was.
    const QString cut = TestScratchPath("cortado.dbf");
    QByteArray bytes = FileBytes(path);
    bytes.chop(30);
    QFile file(cut);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    messages.Clear();
    cDatos truncated;
    EXPECT_EQ(truncated.LoadFile_DBF(cut), 0);
    EXPECT_EQ(truncated.LastError(), zlxDatosError_Err_LoadDBF);
    ASSERT_FALSE(messages.Messages().empty());
    EXPECT_EQ(messages.Last().text, "No ha podido leerse el registro del disco.");
    EXPECT_EQ(FileBytes(cut), bytes);
}

TEST(TableFiles, DbfTablesOtherProgramsWriteLoadWithTheirValues) {
    cDatos table;
    ASSERT_EQ(table.LoadFile_DBF(WriteShape(ForeignShapeNamed("visualfoxpro"))), 1);
    const std::vector<std::pair<QString, std::int32_t>> expected = {
        {"NAME", zlxTblColumnTypeChar},      {"QTY", zlxTblColumnTypeI4},
        {"PRICE", zlxTblColumnTypeCurrency}, {"STAMP", zlxTblColumnTypeDateTime},
        {"RATIO", zlxTblColumnTypeDouble},   {"NOTE", zlxTblColumnTypeChar},
        {"DISC", zlxTblColumnTypeCurrency}};
    ASSERT_EQ(table.FieldCount(), 7);
    for (int c = 0; c < 7; ++c) {
        EXPECT_EQ(table.ColumnInfo(c).cName, expected[c].first);
        EXPECT_EQ(table.ColumnInfo(c).nType, expected[c].second);
    }
    EXPECT_EQ(table.DataCell("NAME", 1).ToString().trimmed(), "Peña");
    EXPECT_EQ(table.DataCell("QTY", 1).ToLong(), -42);
    EXPECT_EQ(table.DataCell("PRICE", 1).ToCurrency().scaled, 123456);
    EXPECT_EQ(table.DataCell("STAMP", 1).ToDate(), MakeDate(2023, 2, 24, 12, 34, 57));
    EXPECT_EQ(table.DataCell("RATIO", 1).ToDouble(), 0.5);
    EXPECT_EQ(table.DataCell("NOTE", 1).ToString(), "hola");
    EXPECT_EQ(table.DataCell("DISC", 1).ToCurrency().scaled, 12500);
    EXPECT_TRUE(table.DataCell("STAMP", 2).IsNull());
    EXPECT_TRUE(table.DataCell("NOTE", 2).IsNull());
    EXPECT_TRUE(table.DataCell("DISC", 2).IsNull());

    cDatos memos; // a text memo is a memo column; a picture has none
    ASSERT_EQ(memos.LoadFile_DBF(WriteShape(ForeignShapeNamed("foxpromemo"))), 1);
    ASSERT_EQ(memos.FieldCount(), 2);
    EXPECT_EQ(memos.ColumnInfo(1).nType, zlxTblColumnTypeMemo);
    EXPECT_EQ(memos.DataCell("NOTES", 1).ToString(), "Línea uno\r\nLínea dos");

    cDatos mixed; // lower-case names keep their spelling
    ASSERT_EQ(mixed.LoadFile_DBF(WriteShape(ForeignShapeNamed("lowercase"))), 1);
    EXPECT_EQ(mixed.ColumnInfo(1).cName, "Amount");
    EXPECT_EQ(mixed.DataCell("Amount", 1).ToCurrency().scaled, 125000);
}

// Each cell holds what the file reader reads from the same field, in the column's type:
// plain numbers, dates and texts, and the values only the general reading takes (exponents,
// decimals in a whole-number field, impossible dates, wide numbers), row after row.
TEST(TableFiles, DbfLoadHoldsWhatTheFileReaderReads) {
    HandTable shape;
    shape.fields = {{"NAME", 'C', 6},  {"QTY", 'N', 8},       {"PRICE", 'N', 10, 2},
                    {"WIDE", 'N', 16}, {"RATIO", 'N', 12, 6}, {"BORN", 'D', 8},
                    {"OK", 'L', 1}};
    const std::vector<QByteArray> odd = {"Ana   "
                                         "    12.5"
                                         "     1.5E2"
                                         "1234567890123456"
                                         "   0.5000000"
                                         "20230229"
                                         "?",
                                         "      "
                                         "        "
                                         "          "
                                         "                "
                                         "            "
                                         "        "
                                         " ",
                                         "\xd1u    "
                                         "-0000007"
                                         "    -0.01 "
                                         "    -12345678901"
                                         "  -3.1415926"
                                         "19000228"
                                         "t"};
    for (int i = 0; i < 300; ++i)
        shape.records.push_back(i % 100 < 3
                                    ? odd[i % 100]
                                    : QStringLiteral("C%1").arg(i, -5).toLatin1() +
                                          QByteArray::number(i * 7).rightJustified(8) +
                                          QByteArray::number(i * 0.25, 'f', 2).rightJustified(10) +
                                          QByteArray::number(i).rightJustified(16) +
                                          QByteArray::number(i / 8.0, 'f', 6).rightJustified(12) +
                                          QStringLiteral("2024%1%2")
                                              .arg(1 + i % 12, 2, 10, QLatin1Char('0'))
                                              .arg(1 + i % 28, 2, 10, QLatin1Char('0'))
                                              .toLatin1() +
                                          (i % 2 ? "T" : "F"));
    const QString path = TestScratchPath("mixed.dbf");
    WriteAll(path, BuildTable(shape));
    cDatos table;
    ASSERT_EQ(table.LoadFile_DBF(path), 1);
    ASSERT_EQ(table.RecCount(), 300);
    ExpectWhatTheFileReaderReads(path, shape, table);
    EXPECT_EQ(table.DataCell("QTY", 1).ToLong(), 12);
    EXPECT_EQ(table.DataCell("PRICE", 1).ToCurrency().scaled, 1500000);
    EXPECT_TRUE(table.DataCell("BORN", 1).IsNull());
    EXPECT_EQ(table.DataCell("NAME", 3).ToString(), QString::fromUtf8("Ñu    "));
}

// A big file whose first names all differ loads them without a table of distinct values;
// names that repeat further on, texts that repeat from the start and the order and filters
// on them come out the same either way.
TEST(TableFiles, BigDbfFilesLoadTheirDistinctAndRepeatedTextsExactly) {
    HandTable shape;
    shape.fields = {{"NAME", 'C', 12}, {"CITY", 'C', 8}, {"QTY", 'N', 6}};
    const int records = 70'000; // more distinct names than a table of values keeps
    const auto nameOf = [](int i) {
        return QStringLiteral("N%1").arg(i < 60'000 ? i : i - 50'000, -11).toLatin1();
    };
    const char* const cities[] = {"Madrid  ", "Sevilla ", "Bilbao  "};
    for (int i = 0; i < records; ++i)
        shape.records.push_back(nameOf(i) + cities[i % 3] +
                                QByteArray::number(i % 1000).rightJustified(6));
    const QString path = TestScratchPath("big.dbf");
    WriteAll(path, BuildTable(shape));
    cDatos table;
    ASSERT_EQ(table.LoadFile_DBF(path), 1);
    ASSERT_EQ(table.RecCount(), records);
    for (int row = 1; row <= records; row += 997) {
        EXPECT_EQ(table.DataCell("NAME", row).ToString(), QString::fromLatin1(nameOf(row - 1)));
        EXPECT_EQ(table.DataCell("CITY", row).ToString(),
                  QString::fromLatin1(cities[(row - 1) % 3]));
    }
    EXPECT_EQ(table.DataCell("NAME", records).ToString(), QString::fromLatin1(nameOf(records - 1)));
    const QString repeated = QString::fromLatin1(nameOf(10'000));
    EXPECT_EQ(table.RecCount("NAME = '" + repeated + "'"), 2); // record 10,001 and its repeat
    EXPECT_EQ(table.RecCount("CITY = 'Bilbao  '"), records / 3);
    table.Sort("NAME DESC");
    table.MoveFirst();
    EXPECT_EQ(table.Field_ByColumnNumber(0).ToString(), QString::fromLatin1(nameOf(9'999)));
    table.DataCell("NAME", 1, Variant(QStringLiteral("Cambiado")));
    EXPECT_EQ(table.DataCell("NAME", 1).ToString(), QStringLiteral("Cambiado"));
}

// A file of several read blocks in code page 850: the load reads it a block at a time, and
// numbers only the general reading takes (exponents), at a block's edges and inside one,
// blank dates and the page's own letters come out as the file reader reads them.
TEST(TableFiles, DbfLoadOfManyBlocksHoldsWhatTheFileReaderReads) {
    HandTable shape;
    shape.driverByte = 0x02; // code page 850
    shape.fields = {{"NAME", 'C', 10},     {"QTY", 'N', 8},  {"PRICE", 'N', 10, 2},
                    {"RATIO", 'N', 12, 6}, {"BORN", 'D', 8}, {"OK", 'L', 1}};
    const int records = 12'000; // 50-byte records: over two blocks of 256 KB
    const std::vector<int> odd = {0, 5242, 5243, 7000, records - 1};
    for (int i = 0; i < records; ++i) {
        const bool general = std::find(odd.begin(), odd.end(), i) != odd.end();
        shape.records.push_back(
            QByteArray("Pe\x82"
                       "a\xa4") +
            QByteArray::number(i).leftJustified(5) +
            (general ? QByteArray("   1.5E2") : QByteArray::number(i * 3).rightJustified(8)) +
            (general ? QByteArray("   7.125E0")
                     : QByteArray::number(i / 4.0, 'f', 2).rightJustified(10)) +
            QByteArray::number(i / 64.0, 'f', 6).rightJustified(12) +
            (i % 10 == 3 ? QByteArray("        ")
                         : "2024" + QByteArray::number(101 + i % 12).right(2) + "15") +
            (i % 3 ? "T" : "F"));
    }
    const QString path = TestScratchPath("bloques.dbf");
    WriteAll(path, BuildTable(shape));
    cDatos table;
    ASSERT_EQ(table.LoadFile_DBF(path), 1);
    ASSERT_EQ(table.RecCount(), records);
    EXPECT_EQ(table.Tally(), records);
    ExpectWhatTheFileReaderReads(path, shape, table);
    EXPECT_EQ(table.DataCell("NAME", 2).ToString(), QString::fromUtf8("Peéañ1    "));
    EXPECT_EQ(table.DataCell("QTY", 5244).ToLong(), 150);
    EXPECT_EQ(table.DataCell("PRICE", records).ToCurrency().scaled, 71250);
    EXPECT_TRUE(table.DataCell("BORN", 4).IsNull());
}

// A value its column cannot hold ends a load read by blocks as it ends one read record by
// record: no message, the records before it loaded and its own with the fields before it.
TEST(TableFiles, DbfValueTooBigForItsColumnEndsTheLoadAtItsRecord) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    HandTable shape;
    shape.fields = {{"CODE", 'C', 4}, {"QTY", 'N', 6}, {"PRICE", 'N', 12, 2}, {"OK", 'L', 1}};
    for (int i = 0; i < 9000; ++i)
        shape.records.push_back(
            QByteArray::number(i).leftJustified(4) + "    12" +
            (i == 6000 ? QByteArray("    9.99E+20") : QByteArray("        1.25")) + "T");
    const QString path = TestScratchPath("desborde.dbf");
    WriteAll(path, BuildTable(shape));
    cDatos table;
    EXPECT_EQ(table.LoadFile_DBF(path), 0);
    EXPECT_EQ(table.LastError(), zlxDatosError_Err_LoadDBF);
    EXPECT_TRUE(messages.Messages().empty());
    const ado::RecordsetPtr rs = table.Get_RS();
    ASSERT_EQ(rs->RecordCount(), 6001);
    rs->MoveLast();
    EXPECT_EQ(rs->CurrentValue(0).ToString(), "6000");
    EXPECT_EQ(rs->CurrentValue(1).ToLong(), 12);
    EXPECT_TRUE(rs->CurrentValue(2).IsNull());
    EXPECT_TRUE(rs->CurrentValue(3).IsNull());
    rs->MovePrevious();
    EXPECT_EQ(rs->CurrentValue(2).ToCurrency().scaled, 12500);
}

TEST(TableFiles, DbfFilesThatCannotBeReadRightFailWithTheirMessage) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    HandTable old;
    old.version = 0x02;
    old.fields = {{"CODE", 'C', 4}};
    const QString dbase2 = TestScratchPath("dbase2.dbf");
    WriteAll(dbase2, BuildTable(old));
    cDatos table;
    EXPECT_EQ(table.LoadFile_DBF(dbase2), 0);
    EXPECT_EQ(table.LastError(), zlxDatosError_Err_LoadDBF);
    ASSERT_EQ(messages.Messages().size(), 1u);
    EXPECT_EQ(messages.Last().text, "No puede leerse el fichero DBF: es de la versión dBASE II "
                                    "(0x02), que no se admite.");
    EXPECT_EQ(messages.Last().title, "Error abriendo el fichero DBF");

    const QString noMemo = TestScratchPath("dbase3memo.dbf");
    WriteAll(noMemo, ForeignShapeNamed("dbase3memo").table);
    EXPECT_EQ(table.LoadFile_DBF(noMemo), 0);
    EXPECT_EQ(table.LastError(), zlxDatosError_Err_LoadDBF);
    ASSERT_EQ(messages.Messages().size(), 2u);
    EXPECT_EQ(messages.Last().text, "No se encuentra el fichero de memos de 'dbase3memo.dbf': el "
                                    "campo 'NOTES' no puede leerse.");
    EXPECT_EQ(messages.Last().title, "Error leyendo el fichero DBF");
}

TEST(TableFiles, DbfRoundTripWritesTheSameBytes) {
    const QString original = TestScratchPath("original.dbf");
    WriteArticles(original);
    cDatos table;
    ASSERT_EQ(table.LoadFile_DBF(original), 1);
    // The loaded types map back to the field shapes the table export writes.
    const QString exported = TestScratchPath("exported.dbf");
    ASSERT_TRUE(table.CreateDBF(exported));
    cDatos reloaded;
    ASSERT_EQ(reloaded.LoadFile_DBF(exported), 1);
    EXPECT_EQ(reloaded.RecCount(), 3);
    for (int c = 0; c < 5; ++c) {
        EXPECT_EQ(reloaded.ColumnInfo(c).cName, table.ColumnInfo(c).cName);
        EXPECT_EQ(ColumnTexts(reloaded, table.ColumnInfo(c).cName),
                  ColumnTexts(table, table.ColumnInfo(c).cName));
    }
    // Each column type has one field shape: N(8,0) loads as an integer and goes back as N(10,0).
    cDBF dbf;
    ASSERT_TRUE(dbf.OpenRaw(exported));
    const std::vector<std::tuple<QString, int, int>> shapes = {
        {"C", 30, 0}, {"N", 10, 0}, {"N", 16, 4}, {"D", 8, 0}, {"N", 3, 0}};
    for (int f = 1; f <= 5; ++f) {
        const DBF_FieldInfo_Type info = dbf.GetFieldInfo(f);
        EXPECT_EQ(std::make_tuple(info.cDataType, int(info.nFieldLength), int(info.nDecimalPlaces)),
                  shapes[f - 1]);
    }
    dbf.CloseDBF();
    const QByteArray bytes = FileBytes(exported);
    EXPECT_EQ(bytes.mid(6 * 32 + 1, 68), QByteArray(" ") + QString("Artículo 1").toLatin1() +
                                             QByteArray(20, ' ') + "      1000" +
                                             "          1.2500" + "20231201" + "  1");
}

TEST(TableFiles, TableExportLaysOutTheDbfHeader) {
    cDatos table;
    table.BeginDefineColumns();
    table.AddColumn("descripcion_larga", zlxTblColumnTypeChar, 20);
    table.AddColumn("importe", zlxTblColumnTypeCurrency);
    table.AddColumn("notas", zlxTblColumnTypeMemo);
    table.AddColumn("", zlxTblColumnTypeDate);
    table.EndDefineColumns();
    table.InsertRow(Variant::Array({0, 1, 3}), Variant::Array({"abc", Variant(Currency{35000}),
                                                               Variant(MakeDate(2024, 2, 29))}));
    const QString path = TestScratchPath("export.dbf");
    ASSERT_TRUE(table.CreateDBF(path));
    const QByteArray bytes = FileBytes(path);
    ASSERT_GE(bytes.size(), 32 * 4 + 1);
    // Three fields (the memo column has none): header 32 + 3 * 32 + 1, record 1 + 20 + 16 + 8.
    EXPECT_EQ(std::uint8_t(bytes[8]) | std::uint8_t(bytes[9]) << 8, 129);
    EXPECT_EQ(std::uint8_t(bytes[10]) | std::uint8_t(bytes[11]) << 8, 45);
    EXPECT_EQ(bytes.mid(32, 11), QByteArray("DESCRIPCIO\0", 11));
    EXPECT_EQ(bytes.mid(64, 8), QByteArray("IMPORTE\0", 8));
    EXPECT_EQ(bytes.at(64 + 11), 'N');
    EXPECT_EQ(bytes.mid(96, 11), QByteArray("FLD0000004\0", 11));
    EXPECT_EQ(bytes.at(96 + 11), 'D');
    EXPECT_EQ(bytes.mid(4, 4), QByteArray("\x01\0\0\0", 4));
    EXPECT_EQ(bytes.mid(129, 45), QByteArray(" abc") + QByteArray(17, ' ') + QByteArray(10, ' ') +
                                      "3.5000" + "20240229");

    ASSERT_TRUE(table.CreateDBF(path, false));
    EXPECT_EQ(FileBytes(path).mid(4, 4), QByteArray(4, '\0'));
}
