#pragma once
// The Qt record form's toolbar behind the logic's view interface: a FichaToolbar laid into
// the owning widget, its nine buttons, and the owning widget's own state and geometry.

#include "form/I_CtlFichaView.h"
#include "form/QtFichaButton.h"
#include "platform/widgets/FichaToolbar.h"

#include <vector>

namespace zlx {

class QtFichaView : public I_CtlFichaView {
public:
    explicit QtFichaView(QWidget* owner);

    FichaToolbar* Toolbar() const { return m_toolbar; }

    I_CtlFichaButton& Button(int nBtn) override { return m_buttons.at(nBtn); }
    I_CtlFichaButton& MovementButton(int nBtn) override {
        return m_buttons.at(FichaToolbar::kRecordButtons + nBtn);
    }
    void Enabled(bool value) override { m_owner->setEnabled(value); }
    void Relayout() override;
    float Left() const override { return static_cast<float>(m_owner->x()); }
    float Top() const override { return static_cast<float>(m_owner->y()); }
    float Width() const override { return static_cast<float>(m_owner->width()); }
    float Height() const override { return static_cast<float>(m_owner->height()); }
    std::int32_t ButtonFaceColor() const override;
    void Beep() override;

private:
    QWidget* m_owner;
    FichaToolbar* m_toolbar;
    std::vector<QtFichaButton> m_buttons;
};

} // namespace zlx
