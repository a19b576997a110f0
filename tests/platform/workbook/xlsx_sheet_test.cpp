#include "QtPrinters.h"
#include "platform/workbook/XlsxSheetEditor.h"
#include "platform/workbook/XlsxSheetParser.h"
#include "platform/workbook/XlsxStyles.h"

#include <gtest/gtest.h>

using namespace zlx::workbook;

TEST(XlsxStyles, OnlyDateFormatsMakeNumbersDates) {
    EXPECT_TRUE(XlsxStyles::IsDateFormat(14, {}));
    EXPECT_TRUE(XlsxStyles::IsDateFormat(22, {}));
    EXPECT_FALSE(XlsxStyles::IsDateFormat(2, {}));
    EXPECT_TRUE(XlsxStyles::IsDateFormat(164, "dd/mm/yyyy"));
    EXPECT_TRUE(XlsxStyles::IsDateFormat(165, "[$-C0A]hh:mm"));
    EXPECT_FALSE(XlsxStyles::IsDateFormat(166, "[Red]#,##0.00"));
    EXPECT_FALSE(XlsxStyles::IsDateFormat(167, "\"días:\" 0"));
    EXPECT_FALSE(XlsxStyles::IsDateFormat(168, "0.00\\d"));
    EXPECT_FALSE(XlsxStyles::IsDateFormat(169, "0;[Red]-0;\"d\""));

    const XlsxStyles styles(
        "<styleSheet><numFmts><numFmt numFmtId=\"170\" formatCode=\"d-mmm\"/></numFmts>"
        "<cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs>"
        "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"170\"/><xf numFmtId=\"4\"/></cellXfs>"
        "</styleSheet>");
    EXPECT_FALSE(styles.IsDateStyle(0));
    EXPECT_TRUE(styles.IsDateStyle(1));
    EXPECT_FALSE(styles.IsDateStyle(2));
    EXPECT_FALSE(styles.IsDateStyle(3));
}

namespace {

// A sheet in the prefixed form some writers use, with a self-closing row and cells out of
// the way of the ones the test changes.
const QString kSheetXml = QStringLiteral(
    "<?xml version=\"1.0\"?>\n"
    "<x:worksheet xmlns:x=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
    "<x:dimension ref=\"A1:C4\"/><x:sheetData>"
    "<x:row r=\"1\"><x:c r=\"A1\" t=\"inlineStr\"><x:is><x:t>Nombre</x:t></x:is></x:c>"
    "<x:c r=\"C1\" t=\"s\"><x:v>0</x:v></x:c></x:row>"
    "<x:row r=\"2\" ht=\"20\"/>"
    "<x:row r=\"4\"><x:c r=\"A4\" s=\"3\"><x:v>7</x:v></x:c>"
    "<x:c r=\"C4\"><x:f>A4*2</x:f><x:v>14</x:v></x:c></x:row>"
    "</x:sheetData><x:pageMargins left=\"0.7\"/></x:worksheet>");

} // namespace

TEST(XlsxSheetEditor, ChangesOnlyTheCellsWrittenAndKeepsTheRest) {
    const QStringList strings{"Importe"};
    const XlsxStyles styles;
    const XlsxSheetParser parser(strings, styles, 0);
    Sheet sheet;
    sheet.layout.text = kSheetXml;
    parser.Parse(sheet);
    ASSERT_EQ(sheet.cells[1][3].text, "Importe");
    ASSERT_EQ(sheet.cells[4][3].number, 14);

    const auto change = [&sheet](int row, int column, CellValue value) {
        sheet.cells[row][column] = value;
        sheet.dirty.insert({row, column});
    };
    change(1, 2, CellValue::Text("Alta & <baja>")); // a new cell between two
    change(2, 1, CellValue::Number(1.5));           // into a self-closing row
    change(3, 3, CellValue::Boolean(true));         // a new row between two
    CellValue seven = CellValue::Number(8);
    seven.style = 3;
    change(4, 1, seven);                     // an existing cell keeps its style
    change(6, 28, CellValue::Date(45366.5)); // a new last row, column AB
    const QString edited = XlsxSheetEditor::Apply(sheet, 0);
    EXPECT_EQ(
        edited,
        QStringLiteral(
            "<?xml version=\"1.0\"?>\n"
            "<x:worksheet xmlns:x=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
            "<x:dimension ref=\"A1:AB6\"/><x:sheetData>"
            "<x:row r=\"1\"><x:c r=\"A1\" t=\"inlineStr\"><x:is><x:t>Nombre</x:t></x:is></x:c>"
            "<x:c r=\"B1\" t=\"inlineStr\"><x:is><x:t xml:space=\"preserve\">Alta &amp; "
            "&lt;baja&gt;</x:t></x:is></x:c>"
            "<x:c r=\"C1\" t=\"s\"><x:v>0</x:v></x:c></x:row>"
            "<x:row r=\"2\" ht=\"20\"><x:c r=\"A2\"><x:v>1.5</x:v></x:c></x:row>"
            "<x:row r=\"3\"><x:c r=\"C3\" t=\"b\"><x:v>1</x:v></x:c></x:row>"
            "<x:row r=\"4\"><x:c r=\"A4\" s=\"3\"><x:v>8</x:v></x:c>"
            "<x:c r=\"C4\"><x:f>A4*2</x:f><x:v>14</x:v></x:c></x:row>"
            "<x:row r=\"6\"><x:c r=\"AB6\"><x:v>45366.5</x:v></x:c></x:row>"
            "</x:sheetData><x:pageMargins left=\"0.7\"/></x:worksheet>"));

    // What was written reads back as it was meant, and its layout takes the next change.
    sheet.layout.text = edited;
    sheet.dirty.clear();
    parser.Parse(sheet);
    EXPECT_EQ(sheet.cells[1][2].text, "Alta & <baja>");
    EXPECT_EQ(sheet.cells[3][3].kind, CellValue::Kind::Boolean);
    EXPECT_EQ(sheet.cells[6][28].number, 45366.5);
    change(6, 28, CellValue{});
    EXPECT_TRUE(XlsxSheetEditor::Apply(sheet, 0).contains(
        "<x:row r=\"6\"><x:c r=\"AB6\"/></x:row></x:sheetData>"));
}
