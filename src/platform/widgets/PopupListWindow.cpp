#include "platform/widgets/PopupListWindow.h"

#include "platform/widgets/PickWindowPlacement.h"

#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace zlx {

PopupListWindow::PopupListWindow(const PopupListRequest& request, QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)) {
    setWindowTitle(request.title);
    m_list->addItems(request.items);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_list);
    connect(m_list, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    if (m_list->count() > 0)
        m_list->setCurrentRow(std::clamp(request.defaultRow - 1, 0, m_list->count() - 1));
    int width = m_list->fontMetrics().horizontalAdvance(request.title) + 80;
    for (const QString& item : request.items)
        width = std::max(width, m_list->fontMetrics().horizontalAdvance(item) + 48);
    const int rowHeight = std::max(m_list->sizeHintForRow(0), m_list->fontMetrics().height());
    resize(std::min(width, 600),
           std::min(static_cast<int>(request.items.size()), 22) * rowHeight + 16);
    PlacePickWindow(*this, request.alignment);
}

std::int32_t PopupListWindow::SelectedRow() const {
    return m_list->currentRow() + 1;
}

} // namespace zlx
