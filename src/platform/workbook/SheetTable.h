#pragma once
// A worksheet seen as a table: the first row that holds anything gives the column names,
// the rows under it are the records, and each column's type is guessed from its first
// values. Writes change the sheet's cells and remember which ones changed.

#include "platform/workbook/Sheet.h"

#include <QString>
#include <vector>

namespace zlx::workbook {

struct TableColumn {
    QString name;
    CellValue::Kind type = CellValue::Kind::Text;
    bool longText = false; // a text column holding more than 255 characters
    int sheetColumn = 1;
};

class SheetTable {
public:
    // How many records the column types are guessed from (Jet read as many by default).
    static constexpr int kGuessedRows = 8;
    // Columns past this many from the first are not part of the table, as with Jet.
    static constexpr int kMaxColumns = 255;

    explicit SheetTable(Sheet& sheet);

    const QString& Name() const { return m_sheet.name; }
    const std::vector<TableColumn>& Columns() const { return m_columns; }
    int RowCount() const { return m_rowCount; }

    // The value of a record's column in the column's type; Empty when the cell is empty or
    // holds a value that does not convert (a text in a number column).
    CellValue Value(int row, int column) const;
    // Stores a value, already in the column's type or left as the caller gave it.
    void Set(int row, int column, CellValue value);
    // Adds an empty record after the last one; answers its index.
    int AppendRow();

    // What a rolled-back transaction goes back to.
    struct Snapshot {
        SheetCells cells;
        std::set<std::pair<int, int>> dirty;
        int rowCount = 0;
    };
    Snapshot Save() const { return {m_sheet.cells, m_sheet.dirty, m_rowCount}; }
    void Restore(const Snapshot& snapshot);

private:
    void FindRange();
    void GuessTypes();
    int SheetRow(int row) const { return m_headerRow + 1 + row; }
    const CellValue* Cell(int sheetRow, int sheetColumn) const;
    int StyleAbove(int sheetRow, int sheetColumn) const;

    Sheet& m_sheet;
    std::vector<TableColumn> m_columns;
    int m_headerRow = 1;
    int m_rowCount = 0;
};

} // namespace zlx::workbook
