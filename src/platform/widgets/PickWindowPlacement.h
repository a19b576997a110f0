#pragma once
// Where a pick window appears (zlxAlineacionConstants): below the control that has the
// focus, or centred over the active window.

class QWidget;

namespace zlx {

void PlacePickWindow(QWidget& window, int alignment);

} // namespace zlx
