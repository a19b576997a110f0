#include "platform/widgets/MatrixTableModel.h"

#include "platform/widgets/SearchGridWindow.h"

namespace zlx {

MatrixTableModel::MatrixTableModel(cMatrizPtr data, QStringList headers, QStringList masks,
                                   QObject* parent)
    : QAbstractTableModel(parent), m_data(data ? std::move(data) : std::make_shared<cMatriz>()),
      m_headers(std::move(headers)), m_masks(std::move(masks)) {}

int MatrixTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_data->Rows();
}

int MatrixTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_data->Cols();
}

Variant MatrixTableModel::Cell(int row, int column) const {
    return m_data->GetValue(m_data->FirstCol() + column, m_data->FirstRow() + row);
}

QString MatrixTableModel::CellText(int row, int column) const {
    return SearchGridWindow::CellText(Cell(row, column), m_masks.value(column));
}

QVariant MatrixTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole) return CellText(index.row(), index.column());
    if (role == Qt::TextAlignmentRole) {
        const bool number = Cell(index.row(), index.column()).IsNumber();
        return int((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    return {};
}

QVariant MatrixTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return QString::number(MatrixRow(section));
    return section < m_headers.size() ? m_headers[section] : QString::number(section + 1);
}

} // namespace zlx
