#pragma once
// One worksheet as read from a workbook: its name, its cells by row and column (both from 1),
// and, for an .xlsx, where each row and cell sits in the sheet's XML so that a change can be
// written back without touching the rest of the part.

#include "platform/workbook/CellValue.h"

#include <QString>
#include <map>
#include <set>
#include <utility>

namespace zlx::workbook {

// A stretch of the sheet's XML text, [start, end) in characters.
struct XmlSpan {
    qsizetype start = -1;
    qsizetype end = -1;
    bool Found() const { return start >= 0; }
};

struct RowLayout {
    XmlSpan element;           // the whole <row> element
    qsizetype startTagEnd = 0; // just after the start tag
    bool selfClosing = false;
    qsizetype closeTag = 0; // where "</row>" starts (when not self-closing)
    std::map<int, XmlSpan> cells;
};

struct SheetXmlLayout {
    QString part; // the sheet's file inside the package, e.g. "xl/worksheets/sheet1.xml"
    QString text;
    QString prefix; // the prefix of the sheet's elements with its colon ("x:"), usually ""
    XmlSpan dimension;
    XmlSpan sheetData;             // the whole element
    qsizetype sheetDataClose = -1; // where "</sheetData>" starts, -1 when self-closing
    std::map<int, RowLayout> rows;
};

using SheetCells = std::map<int, std::map<int, CellValue>>;

struct Sheet {
    QString name;
    SheetCells cells;
    SheetXmlLayout layout;               // empty for a format written nowhere
    std::set<std::pair<int, int>> dirty; // (row, column) of cells changed since the last save
};

} // namespace zlx::workbook
