#include "connection/cConexion.h"
#include "language/cIdioma.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cIdioma>& c) {
    c.Property(
        "oMatrizIdiomas", [](cIdioma& o) { return o.oMatrizIdiomas(); },
        [](cIdioma& o, const Variant& v) { o.oMatrizIdiomas(v.As<cMatriz>()); });
    c.Method("Init", 3, 3, [](cIdioma& o, ScriptArgs& a) {
        o.Init(a.Object<cConexion>(0), a.Long(1), a.String(2));
    });
    c.Property(
        "Idioma", [](cIdioma& o) { return o.Idioma(); },
        [](cIdioma& o, const Variant& v) { o.Idioma(v.ToLong()); });
    c.Property("Name", [](cIdioma& o) { return o.Name(); });
    c.Property(
        "ModoAprendizaje", [](cIdioma& o) { return o.ModoAprendizaje(); },
        [](cIdioma& o, const Variant& v) { o.ModoAprendizaje(v.ToBool()); });
    c.Method("Msg", 1, 2,
             [](cIdioma& o, ScriptArgs& a) { return o.Msg(a.String(0), a.String(1)); });
    c.Method("SetMsgBoxStrings", 1, 1, [](cIdioma& o, ScriptArgs& a) {
        const cMsgBoxPtr box = a.Object<cMsgBox>(0);
        if (!box) throw ScriptError(QStringLiteral("argument 1: a cMsgBox is needed"));
        o.SetMsgBoxStrings(*box);
    });
    c.Method("Num2Text", 1, 8, [](cIdioma& o, ScriptArgs& a) {
        return o.Num2Text(a.Double(0), a.Long(1, 2), a.String(2), a.String(3), a.String(4),
                          a.String(5), a.Bool(6), a.Bool(7, true));
    });
    c.Method("Long2Text", 1, 1, [](cIdioma& o, ScriptArgs& a) { return o.Long2Text(a.Long(0)); });
}

const ScriptRegistration<cIdioma> registration(QStringLiteral("cIdioma"), Members);

} // namespace
} // namespace zlx
