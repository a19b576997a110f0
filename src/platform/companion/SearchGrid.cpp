#include "platform/companion/SearchGrid.h"

namespace zlx {

namespace {

class ConsolePresenter : public SearchGridPresenter {
public:
    std::optional<std::int32_t> Present(const SearchGridRequest& request) override {
        if (request.data)
            cMatriz::PrintToConsole(*request.data, request.title);
        else
            cMatriz::PrintToConsole(cMatriz(), request.title);
        return std::nullopt;
    }
};

ConsolePresenter g_console;
// Constant-initialised: other libraries register their defaults while the program loads.
constinit PresenterSlot<SearchGridPresenter> g_slot(g_console);

} // namespace

SearchGridPresenter& CurrentSearchGridPresenter() {
    return g_slot.Current();
}

SearchGridPresenter* InstallSearchGridPresenter(SearchGridPresenter* presenter) {
    return g_slot.Install(presenter);
}

void RegisterDefaultSearchGridPresenter(SearchGridPresenter* presenter) {
    g_slot.RegisterDefault(presenter);
}

SearchGridPresenter& ConsoleSearchGridPresenter() {
    return g_console;
}

} // namespace zlx
