#include "platform/widgets/RefreshBracket.h"

#include <QWidget>

namespace zlx {

void RefreshBracket::Begin() {
    if (m_depth++ == 0) m_widget.setUpdatesEnabled(false);
}

void RefreshBracket::End() {
    if (m_depth == 0 || --m_depth > 0) return;
    m_widget.setUpdatesEnabled(true);
    m_widget.update();
}

} // namespace zlx
