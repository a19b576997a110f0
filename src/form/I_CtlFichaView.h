#pragma once
// The record form's toolbar as its logic sees it: the five record buttons, the four movement
// buttons and the toolbar itself.

#include "form/I_CtlFichaButton.h"

namespace zlx {

class I_CtlFichaView {
public:
    virtual ~I_CtlFichaView() = default;

    // nBtn from zlxCtlFichaBtn_Constants (0 to 4) and zlxCtlFichaMove_Constants (0 to 3).
    virtual I_CtlFichaButton& Button(int nBtn) = 0;
    virtual I_CtlFichaButton& MovementButton(int nBtn) = 0;

    // The toolbar's own enabled state.
    virtual void Enabled(bool) {}
    // Lays the buttons out again (after the Comentario button came or went).
    virtual void Relayout() {}
    // Position and size in the form, in the form's units.
    virtual float Left() const { return 0; }
    virtual float Top() const { return 0; }
    virtual float Width() const { return 0; }
    virtual float Height() const { return 0; }
    // The face colour that the automatic colour stands for (0x00BBGGRR).
    virtual std::int32_t ButtonFaceColor() const { return 0xF0F0F0; }
    virtual void Beep() {}
};

} // namespace zlx
