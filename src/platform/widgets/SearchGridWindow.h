#pragma once
// The grid window of a search request: the cells with their headers, widths, masks and
// alignment, the rows ordered by the search column, a box where typing the start of a value
// moves to the first row that begins with it, and Enter or a double click to pick a row.

#include "platform/companion/SearchGrid.h"

#include <QDialog>

class QLineEdit;
class QTableWidget;

namespace zlx {

class SearchGridWindow : public QDialog {
    Q_OBJECT
public:
    explicit SearchGridWindow(const SearchGridRequest& request, QWidget* parent = nullptr);

    QTableWidget* Table() const { return m_table; }
    // The type-to-search box; nullptr when the request is not in search mode.
    QLineEdit* SearchBox() const { return m_search; }
    // The matrix row shown on a row of the grid.
    std::int32_t MatrixRow(int tableRow) const;
    // The matrix row of the selected grid row; nullopt when no row is selected.
    std::optional<std::int32_t> SelectedMatrixRow() const;

    // A cell as the grid shows it: numbers through the mask ("#,##0.00": "." groups
    // thousands and "," separates decimals), dates through a date mask ("dd/mm/yyyy"), Null
    // and Empty as blanks.
    static QString CellText(const Variant& value, const QString& mask);
    // A number laid out by a "#,##0.00" style mask: "0" a digit always shown, "#" a digit
    // shown when needed, "," thousands grouping, "." the decimal point; text around the
    // digits is kept. Only the first ";" section is used.
    static QString FormatNumber(const Variant& value, const QString& mask);

private:
    void MoveToMatch(const QString& text);

    QTableWidget* m_table;
    QLineEdit* m_search = nullptr;
    int m_searchColumn = 0; // 0-based
    std::vector<std::int32_t> m_rows;
};

} // namespace zlx
