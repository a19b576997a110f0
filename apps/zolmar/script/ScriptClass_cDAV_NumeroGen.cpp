#include "binding/cDAV_NumeroGen.h"
#include "script/ScriptDavMembers.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cDAV_NumeroGen>& c) {
    c.Method("Configure", 3, 6, [](cDAV_NumeroGen& o, ScriptArgs& a) {
        o.Configure(a.String(0), a.Long(1), a.String(2), a.String(3, QStringLiteral("(7,0)")),
                    a.Long(4, 3), a.Bool(5, false));
    });
    DavMembers(c);
}

const ScriptRegistration<cDAV_NumeroGen> registration(QStringLiteral("cDAV_NumeroGen"), Members);

} // namespace
} // namespace zlx
