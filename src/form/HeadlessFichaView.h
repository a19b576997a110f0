#pragma once
// The record form's toolbar without a display: nine buttons that only keep their state and
// run their clicks at once (a posted click too). For programs that drive a record form with
// no window system, such as a workstation in a test of concurrent saves.

#include "form/CtlFichaLogic.h"

#include <vector>

namespace zlx {

class HeadlessFichaView : public I_CtlFichaView {
public:
    HeadlessFichaView();
    // The logic whose clicks the buttons run.
    void Attach(CtlFichaLogic* logic) { m_logic = logic; }

    I_CtlFichaButton& Button(int nBtn) override { return m_buttons.at(nBtn); }
    I_CtlFichaButton& MovementButton(int nBtn) override {
        return m_buttons.at(kFichaRecordButtons + nBtn);
    }
    void Beep() override { ++m_beeps; }
    int Beeps() const { return m_beeps; }

private:
    class PlainButton : public I_CtlFichaButton {
    public:
        PlainButton(HeadlessFichaView& view, int index) : m_view(view), m_index(index) {}
        bool Enabled() const override { return m_enabled; }
        void Enabled(bool value) override { m_enabled = value; }
        bool Visible() const override { return m_visible; }
        void Visible(bool value) override { m_visible = value; }
        QString Caption() const override { return m_caption; }
        void Caption(const QString& value) override { m_caption = value; }
        QString ToolTip() const override { return m_toolTip; }
        void ToolTip(const QString& value) override { m_toolTip = value; }
        std::int32_t BackColor() const override { return m_color; }
        void BackColor(std::int32_t value) override { m_color = value; }
        void SetFocus() override {}
        void Click() override;
        void PostClick() override { Click(); }

    private:
        HeadlessFichaView& m_view;
        int m_index;
        bool m_enabled = true;
        bool m_visible = true;
        QString m_caption, m_toolTip;
        std::int32_t m_color = -1;
    };

    CtlFichaLogic* m_logic = nullptr;
    std::vector<PlainButton> m_buttons;
    int m_beeps = 0;
};

} // namespace zlx
