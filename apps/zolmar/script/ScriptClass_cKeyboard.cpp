#include "platform/companion/cKeyboard.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cKeyboard>& c) {
    c.Method("IsKeyDown", 1, 1, [](cKeyboard& o, ScriptArgs& a) { return o.IsKeyDown(a.Long(0)); });
    c.Method("CheckUnload", 0, 0, [](cKeyboard& o, ScriptArgs&) { return o.CheckUnload(); });
}

const ScriptRegistration<cKeyboard> registration(QStringLiteral("cKeyboard"), Members);

} // namespace
} // namespace zlx
