#include "binding/cDAV_FechaGen.h"
#include "script/ScriptDavMembers.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cDAV_FechaGen>& c) {
    c.Method("Configure", 2, 3, [](cDAV_FechaGen& o, ScriptArgs& a) {
        o.Configure(a.String(0), a.String(1), a.Bool(2, false));
    });
    c.Property("oFecha", [](cDAV_FechaGen& o) { return o.oFecha(); });
    DavMembers(c);
}

const ScriptRegistration<cDAV_FechaGen> registration(QStringLiteral("cDAV_FechaGen"), Members);

} // namespace
} // namespace zlx
