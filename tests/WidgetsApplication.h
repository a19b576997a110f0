#pragma once
// The one QApplication a widget test program needs, created on first use.

#include <QApplication>

inline void EnsureWidgetsApplication() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name};
    static QApplication app(argc, argv);
}
