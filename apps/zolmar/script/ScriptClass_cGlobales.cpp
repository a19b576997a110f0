#include "frame/cGlobales.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cGlobales>& c) {
    c.Method("Configure", 5, 7, [](cGlobales& o, ScriptArgs& a) {
        o.Configure(a.AnyObject(0), a.AnyObject(1), a.Object<cKeyboard>(2), a.Object<cLogFile>(3),
                    a.AnyObject(4), a.AnyObject(5), a.Value(6, Variant(std::int16_t(0))));
    });
    c.Property(
        "oCn", [](cGlobales& o) { return o.oCn(); },
        [](cGlobales& o, const Variant& v) { o.oCn(v.ToObject()); });
    c.Property(
        "oIdioma", [](cGlobales& o) { return o.oIdioma(); },
        [](cGlobales& o, const Variant& v) { o.oIdioma(v.ToObject()); });
    c.Property(
        "oKeyboard", [](cGlobales& o) { return o.oKeyboard(); },
        [](cGlobales& o, const Variant& v) { o.oKeyboard(v.As<cKeyboard>()); });
    c.Property(
        "oLogFile", [](cGlobales& o) { return o.oLogFile(); },
        [](cGlobales& o, const Variant& v) { o.oLogFile(v.As<cLogFile>()); });
    c.Property(
        "oApp", [](cGlobales& o) { return o.oApp(); },
        [](cGlobales& o, const Variant& v) { o.oApp(v.ToObject()); });
    c.Property(
        "oAppClass", [](cGlobales& o) { return o.oAppClass(); },
        [](cGlobales& o, const Variant& v) { o.oAppClass(v.ToObject()); });
    c.Property(
        "xOtros", [](cGlobales& o) { return o.xOtros(); },
        [](cGlobales& o, const Variant& v) { o.xOtros(v); });
}

const ScriptRegistration<cGlobales> registration(QStringLiteral("cGlobales"), Members);

} // namespace
} // namespace zlx
