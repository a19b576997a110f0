#include "platform/widgets/LookupGridWindow.h"

#include "platform/widgets/MatrixTableModel.h"
#include "platform/widgets/PickWindowPlacement.h"
#include "platform/widgets/SearchBox.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace zlx {

LookupGridWindow::LookupGridWindow(const LookupGridRequest& request, QWidget* parent)
    : QDialog(parent),
      m_model(new MatrixTableModel(request.data, request.headers, request.masks, this)),
      m_view(new QTableView(this)) {
    setWindowTitle(request.title);
    m_view->setModel(m_model);
    m_view->verticalHeader()->hide();
    // Rows of one height need no measuring: a long result opens at once.
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() + 6);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->horizontalHeader()->setStretchLastSection(true);
    const int columns = m_model->columnCount();
    m_searchColumn = std::clamp(request.searchColumn - 1, 0, std::max(0, columns - 1));

    const int charWidth = m_view->fontMetrics().averageCharWidth();
    int totalWidth = 0;
    for (int c = 0; c < columns; ++c) {
        const std::int32_t width =
            c < static_cast<int>(request.widths.size()) ? request.widths[c] : -1;
        if (width == 0) {
            m_view->hideColumn(c);
            continue;
        }
        const int header = m_view->fontMetrics().horizontalAdvance(
                               m_model->headerData(c, Qt::Horizontal).toString()) +
                           2 * charWidth;
        m_view->setColumnWidth(c, width > 0 ? std::max(header, (width + 2) * charWidth)
                                            : std::max(header, 12 * charWidth));
        totalWidth += m_view->columnWidth(c);
    }

    auto* layout = new QVBoxLayout(this);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_view, &QTableView::doubleClicked, this, &QDialog::accept);
    if (request.style == zlxGridStyle_Buscar) {
        m_search = AddSearchBox(*this, *layout);
        connect(m_search, &QLineEdit::textChanged, this, &LookupGridWindow::MoveToMatch);
    }
    layout->addWidget(m_view);
    layout->addWidget(buttons);
    SelectRow(std::clamp(request.defaultRow - 1, 0, std::max(0, m_model->rowCount() - 1)));
    if (m_search) m_search->setFocus();
    const int rows = std::min(m_model->rowCount(), 15);
    resize(std::clamp(totalWidth + 40, 280, 1000),
           std::max(160, (rows + 1) * m_view->verticalHeader()->defaultSectionSize() + 90 +
                             (m_search ? 50 : 0)));
    PlaceAt(request.alignment);
}

void LookupGridWindow::PlaceAt(std::int32_t alignment) {
    PlacePickWindow(*this, alignment);
}

void LookupGridWindow::SelectRow(int row) {
    if (row < 0 || row >= m_model->rowCount()) return;
    const QModelIndex index = m_model->index(row, m_view->isColumnHidden(0) ? 1 : 0);
    m_view->setCurrentIndex(index);
    m_view->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

std::int32_t LookupGridWindow::SelectedMatrixRow() const {
    const QModelIndex current = m_view->currentIndex();
    return current.isValid() ? m_model->MatrixRow(current.row()) : 0;
}

void LookupGridWindow::MoveToMatch(const QString& text) {
    if (text.isEmpty()) return;
    for (int r = 0; r < m_model->rowCount(); ++r) {
        if (m_model->CellText(r, m_searchColumn).startsWith(text, Qt::CaseInsensitive)) {
            SelectRow(r);
            return;
        }
    }
}

} // namespace zlx
