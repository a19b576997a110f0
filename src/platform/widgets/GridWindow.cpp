#include "platform/widgets/GridWindow.h"

#include "platform/companion/cMatriz.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace zlx {

GridWindow::GridWindow(const cMatriz& matrix, const QString& title, QWidget* parent)
    : QDialog(parent), m_table(new QTableWidget(matrix.Rows(), matrix.Cols(), this)) {
    setWindowTitle(title);
    QStringList columnHeaders, rowHeaders;
    for (std::int32_t col = matrix.FirstCol(); col <= matrix.LastCol(); ++col)
        columnHeaders << QString::number(col);
    for (std::int32_t row = matrix.FirstRow(); row <= matrix.LastRow(); ++row)
        rowHeaders << QString::number(row);
    m_table->setHorizontalHeaderLabels(columnHeaders);
    m_table->setVerticalHeaderLabels(rowHeaders);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int r = 0; r < matrix.Rows(); ++r)
        for (int c = 0; c < matrix.Cols(); ++c)
            m_table->setItem(r, c,
                             new QTableWidgetItem(cMatriz::CellText(
                                 matrix.GetValue(matrix.FirstCol() + c, matrix.FirstRow() + r))));
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    resize(640, 400);
}

} // namespace zlx
