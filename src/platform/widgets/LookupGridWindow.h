#pragma once
// The lookup grid: a modal pick list over the rows of a query, in the simple style (the rows
// alone) or the searchable one (a box where typing moves to the first row whose search
// column begins with the text). It opens on the preselected row, at the requested position;
// Enter or a double click picks, Escape closes without a pick.

#include "platform/companion/PickList.h"

#include <QDialog>

class QLineEdit;
class QTableView;

namespace zlx {

class MatrixTableModel;

class LookupGridWindow : public QDialog {
    Q_OBJECT
public:
    explicit LookupGridWindow(const LookupGridRequest& request, QWidget* parent = nullptr);

    QTableView* View() const { return m_view; }
    const MatrixTableModel* Model() const { return m_model; }
    // The type-to-search box; nullptr in the simple style.
    QLineEdit* SearchBox() const { return m_search; }
    // The matrix row of the current grid row; 0 when none.
    std::int32_t SelectedMatrixRow() const;

private:
    void MoveToMatch(const QString& text);
    void SelectRow(int row);
    void PlaceAt(std::int32_t alignment);

    MatrixTableModel* m_model;
    QTableView* m_view;
    QLineEdit* m_search = nullptr;
    int m_searchColumn = 0; // 0-based
};

} // namespace zlx
