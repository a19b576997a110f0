#pragma once
// A window with a read-only grid of a matrix's cells, headed by the column numbers.

#include <QDialog>

class QTableWidget;

namespace zlx {

class cMatriz;

class GridWindow : public QDialog {
public:
    GridWindow(const cMatriz& matrix, const QString& title, QWidget* parent = nullptr);
    const QTableWidget* Table() const { return m_table; }

private:
    QTableWidget* m_table;
};

} // namespace zlx
