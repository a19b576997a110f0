#pragma once
// The grid window from which the user looks at rows or picks one. The library builds a
// request (the cells and how to show them) and hands it to one presenter: the Qt window when
// the widgets are linked and an application object exists, a scripted presenter in tests,
// the console otherwise.

#include "platform/companion/PresenterSlot.h"
#include "platform/companion/cMatriz.h"

#include <QStringList>
#include <optional>
#include <vector>

namespace zlx {

struct SearchGridRequest {
    QString title;
    // The cells: columns and rows numbered from 1.
    cMatrizPtr data;
    // One entry per column.
    QStringList headers;
    std::vector<std::int32_t> widths; // in characters; 0 hides the column
    QStringList masks;                // "#,##0.00" style for numbers; "" shows the plain value
    std::vector<std::int32_t> types;  // zlxDisplayType: 0 text, 1 number, 2 date
    double zoom = 1.0;                // the font size is multiplied by it
    // Search mode: the rows ordered by the search column (1-based), the user types the start
    // of a value to reach its row and picks one. Otherwise the rows are only looked at.
    bool searchMode = false;
    std::int32_t searchColumn = 1;
    bool descending = false;
};

class SearchGridPresenter {
public:
    virtual ~SearchGridPresenter() = default;
    // The matrix row the user picked; nullopt when the window was closed without a pick.
    virtual std::optional<std::int32_t> Present(const SearchGridRequest& request) = 0;
};

// The presenter in use: the installed one, else the registered default, else the console.
SearchGridPresenter& CurrentSearchGridPresenter();
// Installs a presenter for the whole process (nullptr removes it); answers the previous one.
SearchGridPresenter* InstallSearchGridPresenter(SearchGridPresenter* presenter);
// Registers the presenter used when none is installed (the widgets library does this).
void RegisterDefaultSearchGridPresenter(SearchGridPresenter* presenter);
// Prints the title and the cells on standard output; nothing is picked.
SearchGridPresenter& ConsoleSearchGridPresenter();

// Installs a presenter for the lifetime of this object.
using ScopedSearchGridPresenter = ScopedPresenter<SearchGridPresenter, &InstallSearchGridPresenter>;

} // namespace zlx
