#pragma once
// A toolbar button of the Qt record form, as the record form's logic drives it.

#include "form/I_CtlFichaButton.h"
#include "platform/widgets/FichaToolButton.h"

namespace zlx {

class QtFichaButton : public I_CtlFichaButton {
public:
    explicit QtFichaButton(FichaToolButton* button) : m_button(button) {}

    // Enabled and visible as the button itself is set, whatever its toolbar is.
    bool Enabled() const override { return !m_button->testAttribute(Qt::WA_ForceDisabled); }
    void Enabled(bool value) override { m_button->setEnabled(value); }
    bool Visible() const override { return !m_button->isHidden(); }
    void Visible(bool value) override { m_button->setVisible(value); }
    QString Caption() const override { return m_button->text(); }
    void Caption(const QString& value) override { m_button->setText(value); }
    QString ToolTip() const override { return m_button->toolTip(); }
    void ToolTip(const QString& value) override { m_button->setToolTip(value); }
    std::int32_t BackColor() const override { return m_button->BackColor(); }
    void BackColor(std::int32_t value) override { m_button->SetBackColor(value); }

    void SetFocus() override { m_button->setFocus(Qt::OtherFocusReason); }
    void Click() override { m_button->click(); }
    void PostClick() override { m_button->PostClick(); }
    void Redraw(bool on) override;
    void ShowFocus() override { m_button->update(); }
    void PostClose(std::int64_t windowId) override { m_button->PostClose(windowId); }
    void StatusBar(QObject* statusBar) override { m_button->SetStatusBar(statusBar); }
    bool Highlighted() const override { return m_button->isDown(); }
    void ResetAppearance() override { m_button->setDown(false); }

private:
    FichaToolButton* m_button;
};

} // namespace zlx
