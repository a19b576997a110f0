#include "QtPrinters.h"
#include "platform/companion/cKeyboard.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

void Send(QObject* target, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(type, key, modifiers);
    QCoreApplication::sendEvent(target, &event);
}

} // namespace

TEST(cKeyboard, TracksTheEscapeChordThroughKeyEvents) {
    int argc = 1;
    char name[] = "test";
    char* argv[] = {name};
    cKeyboard keyboard; // created before the application, as at library start-up
    QGuiApplication app(argc, argv);
    QWindow window;
    EXPECT_FALSE(keyboard.EscapeChordDown());
    Send(&window, QEvent::KeyPress, Qt::Key_Control);
    Send(&window, QEvent::KeyPress, Qt::Key_Shift);
    EXPECT_FALSE(keyboard.EscapeChordDown());
    Send(&window, QEvent::KeyPress, Qt::Key_U);
    EXPECT_TRUE(keyboard.IsKeyDown(85));
    EXPECT_TRUE(keyboard.EscapeChordDown());
    EXPECT_TRUE(keyboard.CheckUnload());
    Send(&window, QEvent::KeyRelease, Qt::Key_U);
    EXPECT_FALSE(keyboard.EscapeChordDown());
    EXPECT_EQ(cKeyboard::VirtualKeyOf(Qt::Key_PageDown), 34);
    EXPECT_EQ(cKeyboard::VirtualKeyOf(Qt::Key_F2), 113);
}
