// Linking the widgets makes the library's message boxes and grid windows real dialogs.

#include "platform/companion/SearchGrid.h"
#include "platform/companion/cMatriz.h"
#include "platform/widgets/GridWindow.h"
#include "platform/widgets/QtMsgPresenter.h"
#include "platform/widgets/SearchGridWindow.h"

#include <QApplication>

namespace zlx {

namespace {

void ShowMatrix(const cMatriz& matrix, const QString& title) {
    GridWindow window(matrix, title);
    window.exec();
}

bool HasWidgets() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

// The search grid as a modal window; the console when there is no user interface.
class QtSearchGridPresenter : public SearchGridPresenter {
public:
    std::optional<std::int32_t> Present(const SearchGridRequest& request) override {
        if (!HasWidgets()) return ConsoleSearchGridPresenter().Present(request);
        SearchGridWindow window(request);
        if (window.exec() != QDialog::Accepted) return std::nullopt;
        return window.SelectedMatrixRow();
    }
};

const bool registered = [] {
    static QtMsgPresenter presenter;
    RegisterDefaultMsgPresenter(&presenter);
    static QtSearchGridPresenter searchGrid;
    RegisterDefaultSearchGridPresenter(&searchGrid);
    cMatriz::RegisterViewer([](const cMatriz& matrix, const QString& title) {
        if (HasWidgets())
            ShowMatrix(matrix, title);
        else
            cMatriz::PrintToConsole(matrix, title);
    });
    return true;
}();

} // namespace

} // namespace zlx
