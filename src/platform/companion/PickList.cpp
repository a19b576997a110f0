#include "platform/companion/PickList.h"

#include <cstdio>

namespace zlx {

namespace {

// Without a user interface the lists are printed and nothing is picked.
class ConsolePopupList : public PopupListPresenter {
public:
    std::int32_t Present(const PopupListRequest& request) override {
        std::fprintf(stdout, "%s\n", qPrintable(request.title));
        for (qsizetype i = 0; i < request.items.size(); ++i)
            std::fprintf(stdout, "%lld\t%s\n", static_cast<long long>(i + 1),
                         qPrintable(request.items[i]));
        return 0;
    }
};

class ConsoleLookupGrid : public LookupGridPresenter {
public:
    std::int32_t Present(const LookupGridRequest& request) override {
        cMatriz::PrintToConsole(request.data ? *request.data : cMatriz(), request.title);
        return 0;
    }
};

ConsolePopupList g_consolePopup;
ConsoleLookupGrid g_consoleLookup;
constinit PresenterSlot<PopupListPresenter> g_popupSlot(g_consolePopup);
constinit PresenterSlot<LookupGridPresenter> g_lookupSlot(g_consoleLookup);

} // namespace

PopupListPresenter& ConsolePopupListPresenter() {
    return g_consolePopup;
}
LookupGridPresenter& ConsoleLookupGridPresenter() {
    return g_consoleLookup;
}
PopupListPresenter& CurrentPopupListPresenter() {
    return g_popupSlot.Current();
}
PopupListPresenter* InstallPopupListPresenter(PopupListPresenter* presenter) {
    return g_popupSlot.Install(presenter);
}
void RegisterDefaultPopupListPresenter(PopupListPresenter* presenter) {
    g_popupSlot.RegisterDefault(presenter);
}
LookupGridPresenter& CurrentLookupGridPresenter() {
    return g_lookupSlot.Current();
}
LookupGridPresenter* InstallLookupGridPresenter(LookupGridPresenter* presenter) {
    return g_lookupSlot.Install(presenter);
}
void RegisterDefaultLookupGridPresenter(LookupGridPresenter* presenter) {
    g_lookupSlot.RegisterDefault(presenter);
}

std::int32_t ShowPopupList(const cMatriz& oItems, const QString& cTitle, std::int32_t nAlineacion) {
    PopupListRequest request;
    request.title = cTitle;
    request.alignment = nAlineacion;
    for (std::int32_t row = oItems.FirstRow(); row <= oItems.LastRow(); ++row)
        request.items << cMatriz::CellText(oItems.GetValue(oItems.FirstCol(), row));
    return CurrentPopupListPresenter().Present(request);
}

} // namespace zlx
