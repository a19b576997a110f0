#pragma once
// The one QApplication a widget test program needs, created on first use and deleted when
// the tests end (left to the exit handlers it would outlive the input devices Qt hangs on it).

#include <QApplication>
#include <gtest/gtest.h>

class WidgetsApplicationEnvironment : public ::testing::Environment {
public:
    explicit WidgetsApplicationEnvironment(QApplication* app) : m_app(app) {}
    void TearDown() override {
        delete m_app;
        m_app = nullptr;
    }

private:
    QApplication* m_app;
};

inline void EnsureWidgetsApplication() {
    if (QApplication::instance()) return;
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name};
    ::testing::AddGlobalTestEnvironment(
        new WidgetsApplicationEnvironment(new QApplication(argc, argv)));
}
