#include "platform/widgets/PickWindowPlacement.h"

#include "platform/companion/PickList.h"

#include <QApplication>
#include <QWidget>

namespace zlx {

void PlacePickWindow(QWidget& window, int alignment) {
    QWidget* focus = QApplication::focusWidget();
    if (alignment == zlxAlineacion_BajoControl && focus && focus->window() != &window) {
        window.move(focus->mapToGlobal(QPoint(0, focus->height())));
        return;
    }
    if (QWidget* active = QApplication::activeWindow(); active && active != &window)
        window.move(active->geometry().center() - window.rect().center());
}

} // namespace zlx
