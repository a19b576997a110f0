#pragma once
// The library's waits poll every millisecond while letting the application's window
// messages run, so that the user interface stays alive during a connect or a query.

#include <QCoreApplication>
#include <QThread>

namespace zlx {

inline void YieldToEventLoop() {
    if (QCoreApplication::instance()) QCoreApplication::processEvents();
    QThread::msleep(1);
}

} // namespace zlx
