#include "binding/cDAV_Activo.h"
#include "script/ScriptDavMembers.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cDAV_Activo>& c) {
    DavMembers(c);
}

const ScriptRegistration<cDAV_Activo> registration(QStringLiteral("cDAV_Activo"), Members);

} // namespace
} // namespace zlx
