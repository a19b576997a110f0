#pragma once
// One button of the record form's toolbar as the record form's logic drives it. The Qt toolbar
// implements it with tool buttons; a program without a display can implement it with plain
// state (HeadlessFichaView).

#include <QString>
#include <cstdint>

class QObject;

namespace zlx {

class I_CtlFichaButton {
public:
    virtual ~I_CtlFichaButton() = default;

    virtual bool Enabled() const = 0;
    virtual void Enabled(bool value) = 0;
    // Whether the button is shown when its toolbar is (not whether it is on screen now).
    virtual bool Visible() const = 0;
    virtual void Visible(bool value) = 0;
    virtual QString Caption() const = 0;
    virtual void Caption(const QString& value) = 0;
    virtual QString ToolTip() const = 0;
    virtual void ToolTip(const QString& value) = 0;
    // The face colour as 0x00BBGGRR; -1 is the automatic colour.
    virtual std::int32_t BackColor() const = 0;
    virtual void BackColor(std::int32_t value) = 0;

    virtual void SetFocus() = 0;
    // Runs the button's click now.
    virtual void Click() = 0;
    // Runs the button's click later, from the event queue.
    virtual void PostClick() = 0;
    // Repainting off while the whole bar changes, and on again.
    virtual void Redraw(bool) {}
    virtual void ShowFocus() {}
    // Asks the window with this handle to close, later, from the event queue.
    virtual void PostClose(std::int64_t) {}
    virtual void StatusBar(QObject*) {}
    // Pressed down at the moment.
    virtual bool Highlighted() const { return false; }
    // Back to its normal look after its action ran.
    virtual void ResetAppearance() {}
};

} // namespace zlx
