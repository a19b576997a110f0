#pragma once
// The modal windows from which the user picks one row: the pop-up selection list (one column
// of texts, answering the 1-based row or 0) and the lookup grid (the rows of a query, in a
// simple or a searchable style, answering the matrix row or 0). Each goes through a presenter
// chosen as the message boxes' is: the Qt window when the widgets are linked and an
// application object exists, a scripted presenter in tests, the console otherwise.

#include "platform/companion/PresenterSlot.h"
#include "platform/companion/cMatriz.h"

#include <QStringList>
#include <vector>

namespace zlx {

// Where a pick window appears.
enum zlxAlineacionConstants {
    zlxAlineacion_Centrado = 0,   // centred over the active window
    zlxAlineacion_BajoControl = 8 // just below the control that has the focus
};

// Styles of the lookup grid.
enum zlxGridStyleConstants {
    zlxGridStyle_Buscar = 64, // with a box where typing moves to the first matching row
    zlxGridStyle_Simple = 72  // the rows alone
};

struct PopupListRequest {
    QString title;
    QStringList items;
    std::int32_t alignment = zlxAlineacion_Centrado;
    std::int32_t defaultRow = 1;
};

struct LookupGridRequest {
    QString title;
    cMatrizPtr data; // columns and rows numbered from 1
    QStringList headers;
    std::vector<std::int32_t> widths; // in characters; 0 hides the column, missing ones fit
    QStringList masks;                // number masks as the search grid reads them
    std::int32_t style = zlxGridStyle_Simple;
    std::int32_t searchColumn = 1;
    std::int32_t alignment = zlxAlineacion_BajoControl;
    std::int32_t defaultRow = 1;
};

class PopupListPresenter {
public:
    virtual ~PopupListPresenter() = default;
    // The 1-based row picked, 0 when the window is closed without a pick.
    virtual std::int32_t Present(const PopupListRequest& request) = 0;
};

class LookupGridPresenter {
public:
    virtual ~LookupGridPresenter() = default;
    // The matrix row picked, 0 when the window is closed without a pick.
    virtual std::int32_t Present(const LookupGridRequest& request) = 0;
};

PopupListPresenter& CurrentPopupListPresenter();
PopupListPresenter* InstallPopupListPresenter(PopupListPresenter* presenter);
void RegisterDefaultPopupListPresenter(PopupListPresenter* presenter);
LookupGridPresenter& CurrentLookupGridPresenter();
LookupGridPresenter* InstallLookupGridPresenter(LookupGridPresenter* presenter);
void RegisterDefaultLookupGridPresenter(LookupGridPresenter* presenter);

// The console fallbacks: they print the list and pick nothing.
PopupListPresenter& ConsolePopupListPresenter();
LookupGridPresenter& ConsoleLookupGridPresenter();

using ScopedPopupListPresenter = ScopedPresenter<PopupListPresenter, &InstallPopupListPresenter>;
using ScopedLookupGridPresenter = ScopedPresenter<LookupGridPresenter, &InstallLookupGridPresenter>;

// Shows the texts of the matrix's first column in the pop-up selection list.
std::int32_t ShowPopupList(const cMatriz& oItems, const QString& cTitle,
                           std::int32_t nAlineacion = zlxAlineacion_Centrado);

} // namespace zlx
