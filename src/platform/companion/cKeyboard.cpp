#include "platform/companion/cKeyboard.h"

#include "platform/companion/KeyTracker.h"

#include <QGuiApplication>

namespace zlx {

cKeyboard::cKeyboard() {
    KeyTracker::Instance();
}

int cKeyboard::VirtualKeyOf(int qtKey) {
    if ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9))
        return qtKey; // the same codes as the virtual keys
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return 112 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    default:
        return 0;
    }
}

bool cKeyboard::IsKeyDown(int nVirtualKey) const {
    // Modifiers are asked of the window system, which knows them even without key events.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        const auto modifiers = QGuiApplication::queryKeyboardModifiers();
        if (nVirtualKey == 16 && modifiers.testFlag(Qt::ShiftModifier)) return true;
        if (nVirtualKey == 17 && modifiers.testFlag(Qt::ControlModifier)) return true;
        if (nVirtualKey == 18 && modifiers.testFlag(Qt::AltModifier)) return true;
    }
    return KeyTracker::Instance().IsDown(nVirtualKey);
}

bool cKeyboard::AreKeysDown(std::initializer_list<int> keys) const {
    for (int key : keys)
        if (!IsKeyDown(key)) return false;
    return true;
}

std::int16_t cKeyboard::ShiftMaskOf(Qt::KeyboardModifiers modifiers) {
    std::int16_t mask = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) mask |= 1;
    if (modifiers.testFlag(Qt::ControlModifier)) mask |= 2;
    if (modifiers.testFlag(Qt::AltModifier)) mask |= 4;
    return mask;
}

} // namespace zlx
