#pragma once
// The one QApplication a widget test program needs, created on first use and kept to the
// end of the process (destroyed at exit it would outlive the input devices Qt hangs on it).

#include <QApplication>

inline void EnsureWidgetsApplication() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name};
    static QApplication* app = new QApplication(argc, argv);
    (void)app;
}
