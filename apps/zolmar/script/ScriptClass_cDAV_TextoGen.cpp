#include "binding/cDAV_TextoGen.h"
#include "script/ScriptDavMembers.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cDAV_TextoGen>& c) {
    c.Method("Configure", 3, 5, [](cDAV_TextoGen& o, ScriptArgs& a) {
        o.Configure(a.String(0), a.Long(1), a.String(2), a.String(3, QStringLiteral("x")),
                    a.Bool(4, false));
    });
    DavMembers(c);
}

const ScriptRegistration<cDAV_TextoGen> registration(QStringLiteral("cDAV_TextoGen"), Members);

} // namespace
} // namespace zlx
