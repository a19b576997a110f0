#include "binding/cDAV_ZolmarID.h"
#include "script/ScriptDavMembers.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cDAV_ZolmarID>& c) {
    DavMembers(c);
}

const ScriptRegistration<cDAV_ZolmarID> registration(QStringLiteral("cDAV_ZolmarID"), Members);

} // namespace
} // namespace zlx
