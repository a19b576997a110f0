// Linking the widgets makes the library's message boxes and grid windows real dialogs.

#include "platform/companion/cMatriz.h"
#include "platform/widgets/GridWindow.h"
#include "platform/widgets/QtMsgPresenter.h"

#include <QApplication>

namespace zlx {

namespace {

void ShowMatrix(const cMatriz& matrix, const QString& title) {
    GridWindow window(matrix, title);
    window.exec();
}

const bool registered = [] {
    static QtMsgPresenter presenter;
    RegisterDefaultMsgPresenter(&presenter);
    cMatriz::RegisterViewer([](const cMatriz& matrix, const QString& title) {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()))
            ShowMatrix(matrix, title);
        else
            cMatriz::PrintToConsole(matrix, title);
    });
    return true;
}();

} // namespace

} // namespace zlx
