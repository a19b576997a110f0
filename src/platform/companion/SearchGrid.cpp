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
SearchGridPresenter* g_installed = nullptr;
SearchGridPresenter* g_default = nullptr;

} // namespace

SearchGridPresenter& CurrentSearchGridPresenter() {
    if (g_installed) return *g_installed;
    return g_default ? *g_default : g_console;
}

SearchGridPresenter* InstallSearchGridPresenter(SearchGridPresenter* presenter) {
    SearchGridPresenter* previous = g_installed;
    g_installed = presenter;
    return previous;
}

void RegisterDefaultSearchGridPresenter(SearchGridPresenter* presenter) {
    g_default = presenter;
}

SearchGridPresenter& ConsoleSearchGridPresenter() {
    return g_console;
}

} // namespace zlx
