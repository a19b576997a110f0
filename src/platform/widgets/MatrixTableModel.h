#pragma once
// A read-only table model over a matrix's cells: the view asks for the cells it shows, so a
// grid of a hundred thousand rows opens at once. Cells are shown through the masks of the
// search grid; number cells are right-aligned.

#include "platform/companion/cMatriz.h"

#include <QAbstractTableModel>
#include <QStringList>

namespace zlx {

class MatrixTableModel : public QAbstractTableModel {
public:
    MatrixTableModel(cMatrizPtr data, QStringList headers, QStringList masks,
                     QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    // The cell shown at a model row and column (both from 0).
    Variant Cell(int row, int column) const;
    QString CellText(int row, int column) const;
    // The matrix row of a model row.
    std::int32_t MatrixRow(int row) const { return m_data->FirstRow() + row; }

private:
    cMatrizPtr m_data;
    QStringList m_headers, m_masks;
};

} // namespace zlx
