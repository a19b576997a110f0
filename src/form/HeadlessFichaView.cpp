#include "form/HeadlessFichaView.h"

namespace zlx {

HeadlessFichaView::HeadlessFichaView() {
    m_buttons.reserve(kFichaRecordButtons + kFichaMoveButtons);
    for (int index = 0; index < kFichaRecordButtons + kFichaMoveButtons; ++index)
        m_buttons.emplace_back(*this, index);
}

// Like a real button, a disabled or hidden one does not run its click.
void HeadlessFichaView::PlainButton::Click() {
    CtlFichaLogic* logic = m_view.m_logic;
    if (!logic || !m_enabled || !m_visible) return;
    if (m_index < kFichaRecordButtons)
        logic->ButtonClick(m_index);
    else
        logic->MoveButtonClick(m_index - kFichaRecordButtons);
}

} // namespace zlx
