// The members that take forms and controls (CountZerosInCtls, DisableBtnFicha,
// CanUnloadForm, ValidateLastControl) need widgets, which a script has none of.

#include "script/ScriptRegistry.h"
#include "ui/cAppUI.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cAppUI>& c) {
    c.Method("OK_Message", 1, 5, [](cAppUI& o, ScriptArgs& a) {
        return o.OK_Message(a.String(0), a.Long(1), a.String(2, QStringLiteral("Información")),
                            a.Long(3, 32516), a.Bool(4));
    });
    c.Method("YN_Message", 1, 5, [](cAppUI& o, ScriptArgs& a) {
        return o.YN_Message(a.String(0), a.Long(1, 4), a.String(2, QStringLiteral("Confirmación")),
                            a.Long(3, 32514), a.Bool(4));
    });
    c.Method("ValidarNombre", 1, 5, [](cAppUI& o, ScriptArgs& a) {
        return o.ValidarNombre(a.Value(0), a.Bool(1, true), a.Bool(2, true), a.Bool(3, true),
                               a.Bool(4, true));
    });
    c.Method("String2ID", 1, 1, [](cAppUI& o, ScriptArgs& a) { return o.String2ID(a.String(0)); });
    c.Method("RepeatLastSearch", 5, 6, [](cAppUI& o, ScriptArgs& a) {
        return o.RepeatLastSearch(a.Value(0), a.Value(1), a.Value(2), a.Long(3), a.String(4),
                                  a.Double(5, 1.0));
    });
    c.Property(
        "HabilitarRegistro_LogFichas", [](cAppUI& o) { return o.HabilitarRegistro_LogFichas(); },
        [](cAppUI& o, const Variant& v) { o.HabilitarRegistro_LogFichas(v.ToBool()); });
    c.Property(
        "CtlFichaReadOnly", [](cAppUI& o) { return o.CtlFichaReadOnly(); },
        [](cAppUI& o, const Variant& v) { o.CtlFichaReadOnly(v.ToBool()); });
    c.Property(
        "AutoReconectar", [](cAppUI& o) { return o.AutoReconectar(); },
        [](cAppUI& o, const Variant& v) { o.AutoReconectar(v.ToBool()); });
}

const ScriptRegistration<cAppUI> registration(QStringLiteral("cAppUI"), Members);

} // namespace
} // namespace zlx
