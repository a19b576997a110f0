// A form's controls answer to their own type names; any name is one of their Qt properties.

#include "script/ScriptControl.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<ScriptControl>& c) {
    c.OtherProperties(
        [](ScriptControl& o, const QString& name) { return o.Property(name); },
        [](ScriptControl& o, const QString& name, const Variant& v) { o.SetProperty(name, v); });
}

const ScriptRegistration<ScriptControl> getRegistration(QStringLiteral("get"), nullptr, Members);
const ScriptRegistration<ScriptControl> btnRegistration(QStringLiteral("btn"), nullptr, Members);
const ScriptRegistration<ScriptControl> lblRegistration(QStringLiteral("lbl"), nullptr, Members);

} // namespace
} // namespace zlx
