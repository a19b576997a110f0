#include "form/QtFichaView.h"

#include <QApplication>
#include <QVBoxLayout>

namespace zlx {

QtFichaView::QtFichaView(QWidget* owner) : m_owner(owner), m_toolbar(new FichaToolbar(owner)) {
    auto* layout = new QVBoxLayout(owner);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_toolbar);
    for (int n = 0; n < FichaToolbar::kRecordButtons; ++n)
        m_buttons.emplace_back(m_toolbar->RecordButton(n));
    for (int n = 0; n < FichaToolbar::kMoveButtons; ++n)
        m_buttons.emplace_back(m_toolbar->MoveButton(n));
}

void QtFichaView::Relayout() {
    m_toolbar->layout()->invalidate();
    m_owner->updateGeometry();
}

std::int32_t QtFichaView::ButtonFaceColor() const {
    const QColor face = m_owner->palette().color(QPalette::Button);
    return face.red() | (face.green() << 8) | (face.blue() << 16);
}

void QtFichaView::Beep() {
    QApplication::beep();
}

} // namespace zlx
