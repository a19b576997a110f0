#include "form/QtFichaButton.h"

namespace zlx {

// The whole toolbar stops repainting, not just the button.
void QtFichaButton::Redraw(bool on) {
    QWidget* bar = m_button->parentWidget();
    (bar ? bar : m_button)->setUpdatesEnabled(on);
}

} // namespace zlx
