// Linking the widgets makes the pop-up selection list and the lookup grid real windows.

#include "platform/companion/PickList.h"
#include "platform/widgets/LookupGridWindow.h"
#include "platform/widgets/PopupListWindow.h"

#include <QApplication>

namespace zlx {

namespace {

bool HasWidgets() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

template <class Window, class Presenter, class Request> class QtPickPresenter : public Presenter {
public:
    explicit QtPickPresenter(Presenter& console) : m_console(console) {}
    std::int32_t Present(const Request& request) override {
        if (!HasWidgets()) return m_console.Present(request);
        Window window(request);
        return window.exec() == QDialog::Accepted ? Selected(window) : 0;
    }

private:
    static std::int32_t Selected(const PopupListWindow& window) { return window.SelectedRow(); }
    static std::int32_t Selected(const LookupGridWindow& window) {
        return window.SelectedMatrixRow();
    }
    Presenter& m_console;
};

const bool registered = [] {
    static QtPickPresenter<PopupListWindow, PopupListPresenter, PopupListRequest> popup(
        ConsolePopupListPresenter());
    RegisterDefaultPopupListPresenter(&popup);
    static QtPickPresenter<LookupGridWindow, LookupGridPresenter, LookupGridRequest> lookup(
        ConsoleLookupGridPresenter());
    RegisterDefaultLookupGridPresenter(&lookup);
    return true;
}();

} // namespace

} // namespace zlx
