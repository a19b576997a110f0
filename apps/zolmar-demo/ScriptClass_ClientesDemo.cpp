#include "ScriptClientForm.h"
#include "script/ScriptControl.h"
#include "script/ScriptFicha.h"
#include "script/ScriptRegistry.h"

namespace zlx::demo {
namespace {

void Members(ScriptClassBuilder<ScriptClientForm>& c) {
    c.Method("Open", 2, 2,
             [](ScriptClientForm& o, ScriptArgs& a) { o.Open(a.String(0), a.String(1)); });
    c.Property("Ficha", [](ScriptClientForm& o) { return o.Ficha(); });
    c.Method("Control", 1, 1,
             [](ScriptClientForm& o, ScriptArgs& a) { return o.Control(a.String(0)); });
    c.Method("Guardar", 0, 0,
             [](ScriptClientForm& o, ScriptArgs&) { return o.Window().Guardar(); });
    c.Method("Cancelar", 0, 0,
             [](ScriptClientForm& o, ScriptArgs&) { return o.Window().Cancelar(); });
    c.Method("ExportClients", 1, 1, [](ScriptClientForm& o, ScriptArgs& a) {
        return o.Window().ExportClients(a.String(0));
    });
    c.Property("CurrentID", [](ScriptClientForm& o) { return o.Window().CurrentID(); });
    c.Property("ChangeLog", [](ScriptClientForm& o) { return o.ChangeLog(); });
}

const ScriptRegistration<ScriptClientForm> registration(QStringLiteral("ClientesDemo"), Members);

} // namespace
} // namespace zlx::demo
