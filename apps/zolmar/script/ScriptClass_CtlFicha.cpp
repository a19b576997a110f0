// The record toolbar of a script's form; it comes from the form (AddFicha or Ficha).

#include "cursor/cFichaDB.h"
#include "frame/cGlobales.h"
#include "script/ScriptFicha.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Setup(ScriptClassBuilder<ScriptFicha>& c) {
    c.Method("BindControls", 1, 1,
             [](ScriptFicha& o, ScriptArgs& a) { o.BindControls(a.Object<cFichaDB>(0)); });
    c.Method("AsociarFicha", 5, 6, [](ScriptFicha& o, ScriptArgs& a) {
        o.Ctl().AsociarFicha(a.Object<cFichaDB>(0), a.String(1), a.Long(2), a.Long(3),
                             a.Object<cGlobales>(4), a.String(5));
    });
    c.Property(
        "MostrarBotonComentario", [](ScriptFicha& o) { return o.Ctl().MostrarBotonComentario(); },
        [](ScriptFicha& o, const Variant& v) { o.Ctl().MostrarBotonComentario(v.ToBool()); });
    c.Method("BtnCaption", 1, 1,
             [](ScriptFicha& o, ScriptArgs& a) { return o.Ctl().BtnCaption(a.Long(0)); });
    c.Method("BtnEnabled", 1, 1,
             [](ScriptFicha& o, ScriptArgs& a) { return o.Ctl().BtnEnabled(a.Long(0)); });
    c.Method("BtnVisible", 1, 1,
             [](ScriptFicha& o, ScriptArgs& a) { return o.Ctl().BtnVisible(a.Long(0)); });
}

void Editing(ScriptClassBuilder<ScriptFicha>& c) {
    // The action taken comes back as the answer (an unknown one becomes none).
    c.Method("DoAction", 1, 1, [](ScriptFicha& o, ScriptArgs& a) {
        int nAccion = a.Long(0);
        o.Ctl().DoAction(nAccion);
        return nAccion;
    });
    c.Method("ButtonClick", 1, 1,
             [](ScriptFicha& o, ScriptArgs& a) { o.Ctl().ButtonClick(a.Long(0)); });
    c.Method("MoveButtonClick", 1, 1,
             [](ScriptFicha& o, ScriptArgs& a) { o.Ctl().MoveButtonClick(a.Long(0)); });
    c.Method("Def_Guardar", 0, 1,
             [](ScriptFicha& o, ScriptArgs& a) { return o.Ctl().Def_Guardar(a.Bool(0, false)); });
    c.Method("Def_Cancelar", 0, 0,
             [](ScriptFicha& o, ScriptArgs&) { return o.Ctl().Def_Cancelar(); });
    c.Method("Def_Borrar", 0, 3, [](ScriptFicha& o, ScriptArgs& a) {
        return o.Ctl().Def_Borrar(a.String(0, {}), a.String(1, {}), a.String(2, {}));
    });
    c.Property(
        "FileStatus", [](ScriptFicha& o) { return o.Ctl().FileStatus(); },
        [](ScriptFicha& o, const Variant& v) { o.Ctl().FileStatus(v.ToLong()); });
    c.Property(
        "FormStatus", [](ScriptFicha& o) { return o.Ctl().FormStatus(); },
        [](ScriptFicha& o, const Variant& v) { o.Ctl().FormStatus(v.ToLong()); });
    c.Property("IsNewRecord", [](ScriptFicha& o) { return o.Ctl().IsNewRecord(); });
    c.Property("IsShowing", [](ScriptFicha& o) { return o.Ctl().IsShowing(); });
    c.Property("UncompletedEvents", [](ScriptFicha& o) { return o.Ctl().UncompletedEvents(); });
}

void Members(ScriptClassBuilder<ScriptFicha>& c) {
    Setup(c);
    Editing(c);
}

const ScriptRegistration<ScriptFicha> registration(QStringLiteral("CtlFicha"), nullptr, Members);

} // namespace
} // namespace zlx
