#pragma once
// The keyboard as the library asks about it: which keys are held down right now.
// Key numbers are the virtual-key codes the library uses (16 Shift, 17 Ctrl, 65-90 letters).

#include "platform/variant/Variant.h"

#include <QtCore/qnamespace.h>
#include <initializer_list>

namespace zlx {

class cKeyboard : public Object {
public:
    cKeyboard();
    QString TypeName() const override { return QStringLiteral("cKeyboard"); }

    bool IsKeyDown(int nVirtualKey) const;
    bool AreKeysDown(std::initializer_list<int> keys) const;
    // Ctrl+Shift+U: the user's way out of a wait that would otherwise go on.
    bool EscapeChordDown() const { return AreKeysDown({17, 16, 85}); }
    // Whether a form whose controls are still busy may close: only when the user insists
    // with the escape chord.
    bool CheckUnload() const { return EscapeChordDown(); }

    // The virtual-key code of a Qt key (0 when it has none).
    static int VirtualKeyOf(int qtKey);
    // The modifier mask of the key handlers: 1 Shift, 2 Ctrl, 4 Alt.
    static std::int16_t ShiftMaskOf(Qt::KeyboardModifiers modifiers);
};

using cKeyboardPtr = std::shared_ptr<cKeyboard>;

} // namespace zlx
