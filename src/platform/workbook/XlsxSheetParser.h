#pragma once
// Reads a worksheet part of an .xlsx: each cell's value (shared and inline strings, numbers,
// booleans, dates by their style, formula results) and where every row and cell is in the
// XML text.

#include "platform/workbook/Sheet.h"
#include "platform/workbook/XlsxStyles.h"

#include <QStringList>

namespace zlx::workbook {

class XlsxSheetParser {
public:
    // `dateOffset` turns the workbook's serial days into the 1900 system's (1462 for a
    // workbook in the 1904 system, 0 otherwise).
    XlsxSheetParser(const QStringList& sharedStrings, const XlsxStyles& styles, double dateOffset)
        : m_sharedStrings(sharedStrings), m_styles(styles), m_dateOffset(dateOffset) {}

    // Fills `sheet.cells` and `sheet.layout` from `sheet.layout.text`. Throws WorkbookError
    // when the XML is not well formed.
    void Parse(Sheet& sheet) const;

    // The value a <c> element stores, from its type attribute and its texts.
    CellValue Decode(const QString& type, int style, const QString& value,
                     const QString& inlineText) const;

private:
    const QStringList& m_sharedStrings;
    const XlsxStyles& m_styles;
    double m_dateOffset;
};

} // namespace zlx::workbook
