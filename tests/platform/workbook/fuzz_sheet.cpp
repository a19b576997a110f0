// libFuzzer target: arbitrary worksheet XML read as a table, one record changed and added,
// and the change written into the XML and read again.

#include "platform/workbook/SheetTable.h"
#include "platform/workbook/WorkbookError.h"
#include "platform/workbook/XlsxSheetEditor.h"
#include "platform/workbook/XlsxSheetParser.h"

#include <cstddef>
#include <cstdint>

using namespace zlx::workbook;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QStringList strings{QStringLiteral("uno"), QStringLiteral("dos")};
    static const XlsxStyles styles(
        "<styleSheet><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/></cellXfs></styleSheet>");
    const XlsxSheetParser parser(strings, styles, 0);
    Sheet sheet;
    sheet.layout.text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        parser.Parse(sheet);
    } catch (const WorkbookError&) {
        return 0;
    }
    SheetTable table(sheet);
    const int columns = static_cast<int>(table.Columns().size());
    for (int row = 0; row < std::min(table.RowCount(), 64); ++row)
        for (int column = 0; column < columns; ++column)
            table.Value(row, column);
    if (table.RowCount() > 0) table.Set(0, 0, CellValue::Text(QStringLiteral("<&>")));
    const int added = table.AppendRow();
    table.Set(added, columns - 1, CellValue::Date(45000.25));
    sheet.layout.text = XlsxSheetEditor::Apply(sheet, 0);
    sheet.dirty.clear();
    try {
        parser.Parse(sheet);
    } catch (const WorkbookError&) {
    }
    return 0;
}
