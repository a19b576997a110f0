#pragma once
// Writes a sheet's changed cells into its XML text: each changed cell's element is replaced,
// a new cell goes into its row in column order, a new row into sheetData in row order, and
// the dimension follows the used range. Everything else (other cells, formulas, styles,
// column widths, anything the library does not read) stays byte for byte.

#include "platform/workbook/Sheet.h"

namespace zlx::workbook {

class XlsxSheetEditor {
public:
    // `dateOffset` as the reader took it (1462 for the 1904 system).
    static QString Apply(const Sheet& sheet, double dateOffset);
    // The <c> element of one cell; texts go inline, so the shared string table stays as it is.
    // `prefix` is the sheet's own for its elements ("x:" or "").
    static QString CellXml(int row, int column, const CellValue& value, double dateOffset,
                           const QString& prefix);
};

} // namespace zlx::workbook
