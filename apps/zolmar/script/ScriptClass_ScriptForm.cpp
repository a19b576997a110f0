#include "script/ScriptControl.h"
#include "script/ScriptFicha.h"
#include "script/ScriptForm.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

template <class Member>
void AppSetting(ScriptClassBuilder<ScriptForm>& c, const char* name, Member member) {
    c.Property(
        QString::fromUtf8(name), [member](ScriptForm& o) { return Variant(o.App().*member); },
        [member](ScriptForm& o, const Variant& v) {
            if constexpr (std::is_same_v<std::remove_reference_t<decltype(o.App().*member)>,
                                         QString>)
                o.App().*member = v.ToString();
            else
                o.App().*member = v.ToLong();
        });
}

void Members(ScriptClassBuilder<ScriptForm>& c) {
    c.Method("AddControl", 3, 3, [](ScriptForm& o, ScriptArgs& a) {
        return o.AddControl(a.String(0), a.String(1), a.String(2));
    });
    c.Method("AddFicha", 0, 0, [](ScriptForm& o, ScriptArgs&) { return o.Ficha(); });
    c.Property("Ficha", [](ScriptForm& o) { return o.Ficha(); });
    c.Method("Show", 0, 0, [](ScriptForm& o, ScriptArgs&) { o.show(); });
    c.Property(
        "Caption", [](ScriptForm& o) { return o.windowTitle(); },
        [](ScriptForm& o, const Variant& v) { o.setWindowTitle(v.ToString()); });
    AppSetting(c, "ID_User", &ScriptAppGlobal::idUser);
    AppSetting(c, "ID_Station", &ScriptAppGlobal::idStation);
    AppSetting(c, "MainDB", &ScriptAppGlobal::mainDB);
}

const ScriptRegistration<ScriptForm> registration(QStringLiteral("ScriptForm"), Members);

} // namespace
} // namespace zlx
