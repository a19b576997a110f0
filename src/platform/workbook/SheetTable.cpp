#include "platform/workbook/SheetTable.h"

#include "platform/workbook/CellConversion.h"

#include <QSet>
#include <algorithm>
#include <climits>

namespace zlx::workbook {

namespace {

constexpr qsizetype kShortTextLimit = 255;

} // namespace

SheetTable::SheetTable(Sheet& sheet) : m_sheet(sheet) {
    FindRange();
    GuessTypes();
}

// The header is the first row that holds a value; the columns span every column used below
// it, and the records run to the last row that holds a value.
void SheetTable::FindRange() {
    int first = INT_MAX, last = 0, lastRow = 0, header = 0;
    for (const auto& [row, cells] : m_sheet.cells) {
        for (const auto& [column, cell] : cells) {
            if (cell.IsEmpty()) continue;
            if (header == 0) header = row;
            first = std::min(first, column);
            last = std::max(last, column);
            lastRow = row;
        }
    }
    if (header == 0) {
        m_columns.push_back({QStringLiteral("F1"), CellValue::Kind::Text, false, 1});
        return;
    }
    m_headerRow = header;
    m_rowCount = lastRow - header;
    last = std::min(last, first + kMaxColumns - 1);
    QSet<QString> taken;
    for (int column = first; column <= last; ++column) {
        const CellValue* title = Cell(header, column);
        QString name = title ? CellConversion::AsText(*title).trimmed() : QString();
        if (name.isEmpty() || taken.contains(name.toLower()))
            name = QStringLiteral("F") + QString::number(column - first + 1);
        taken.insert(name.toLower());
        m_columns.push_back({name, CellValue::Kind::Text, false, column});
    }
}

void SheetTable::GuessTypes() {
    const int rows = std::min(m_rowCount, kGuessedRows);
    for (TableColumn& column : m_columns) {
        std::optional<CellValue::Kind> kind;
        bool mixed = false;
        for (int row = 0; row < rows; ++row) {
            const CellValue* cell = Cell(SheetRow(row), column.sheetColumn);
            if (!cell || cell->IsEmpty()) continue;
            if (kind && *kind != cell->kind) mixed = true;
            kind = cell->kind;
            if (cell->kind == CellValue::Kind::Text && cell->text.size() > kShortTextLimit)
                column.longText = true;
        }
        column.type = kind && !mixed ? *kind : CellValue::Kind::Text;
    }
}

const CellValue* SheetTable::Cell(int sheetRow, int sheetColumn) const {
    const auto row = m_sheet.cells.find(sheetRow);
    if (row == m_sheet.cells.end()) return nullptr;
    const auto cell = row->second.find(sheetColumn);
    return cell == row->second.end() ? nullptr : &cell->second;
}

CellValue SheetTable::Value(int row, int column) const {
    const TableColumn& info = m_columns[static_cast<std::size_t>(column)];
    const CellValue* cell = Cell(SheetRow(row), info.sheetColumn);
    return cell ? CellConversion::To(info.type, *cell) : CellValue{};
}

// A new cell looks like the nearest record's cell above it in the same column (a date keeps
// its date format, a price its currency).
int SheetTable::StyleAbove(int sheetRow, int sheetColumn) const {
    for (int row = sheetRow - 1; row > m_headerRow; --row)
        if (const CellValue* cell = Cell(row, sheetColumn)) return cell->style;
    return -1;
}

void SheetTable::Set(int row, int column, CellValue value) {
    const int sheetRow = SheetRow(row);
    const int sheetColumn = m_columns[static_cast<std::size_t>(column)].sheetColumn;
    const CellValue* current = Cell(sheetRow, sheetColumn);
    if (current ? current->SameValue(value) : value.IsEmpty()) return;
    value.style = current ? current->style : StyleAbove(sheetRow, sheetColumn);
    m_sheet.cells[sheetRow][sheetColumn] = value;
    m_sheet.dirty.insert({sheetRow, sheetColumn});
}

int SheetTable::AppendRow() {
    return m_rowCount++;
}

void SheetTable::Restore(const Snapshot& snapshot) {
    m_sheet.cells = snapshot.cells;
    m_sheet.dirty = snapshot.dirty;
    m_rowCount = snapshot.rowCount;
}

} // namespace zlx::workbook
