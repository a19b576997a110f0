#include "AppGlobal.h"

#include "ClientForm.h"

namespace zlx::demo {

void AppGlobal::RefrescarDatosLogFichas(QObject* form, zlx::cFichaDBPtr /*cursor*/) {
    if (auto* clients = qobject_cast<ClientForm*>(form)) clients->ShowChangeLog();
}

} // namespace zlx::demo
