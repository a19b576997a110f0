// Run takes a table descriptor and the form's controls, which a script has none of: a script
// reaches the settings and what the last Run left.

#include "binding/cValidCombo.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

template <class Member>
void Setting(ScriptClassBuilder<cValidCombo>& c, const char* name, Member member) {
    c.Property(
        QString::fromUtf8(name), [member](cValidCombo& o) { return Variant(o.*member); },
        [member](cValidCombo& o, const Variant& v) {
            using T = std::remove_reference_t<decltype(o.*member)>;
            if constexpr (std::is_same_v<T, QString>)
                o.*member = v.ToString();
            else if constexpr (std::is_same_v<T, bool>)
                o.*member = v.ToBool();
            else if constexpr (std::is_same_v<T, Variant>)
                o.*member = v;
            else
                o.*member = v.ToLong();
        });
}

void Members(ScriptClassBuilder<cValidCombo>& c) {
    Setting(c, "nID_SinControlSay", &cValidCombo::nID_SinControlSay);
    Setting(c, "cNombre", &cValidCombo::cNombre);
    Setting(c, "cCodigo", &cValidCombo::cCodigo);
    Setting(c, "cSQLSelect", &cValidCombo::cSQLSelect);
    Setting(c, "cSQLActivo", &cValidCombo::cSQLActivo);
    Setting(c, "nDefault", &cValidCombo::nDefault);
    Setting(c, "nAlineacion", &cValidCombo::nAlineacion);
    Setting(c, "lHideID", &cValidCombo::lHideID);
    Setting(c, "lBuscarID", &cValidCombo::lBuscarID);
    Setting(c, "lCrearSiNoEncontrado", &cValidCombo::lCrearSiNoEncontrado);
    Setting(c, "lMostrarListaAunqueNombreCoincida",
            &cValidCombo::lMostrarListaAunqueNombreCoincida);
    Setting(c, "lFlagActivo", &cValidCombo::lFlagActivo);
    Setting(c, "nSearchColumn", &cValidCombo::nSearchColumn);
    Setting(c, "aHeaders", &cValidCombo::aHeaders);
    Setting(c, "aWidths", &cValidCombo::aWidths);
    c.Method("GetSelectedRow", 0, 0,
             [](cValidCombo& o, ScriptArgs&) { return o.GetSelectedRow(); });
    c.Method("GetSelectedCell", 1, 1,
             [](cValidCombo& o, ScriptArgs& a) { return o.GetSelectedCell(a.String(0)); });
    c.Method("MostroLista", 0, 0, [](cValidCombo& o, ScriptArgs&) { return o.MostroLista(); });
}

const ScriptRegistration<cValidCombo> registration(QStringLiteral("cValidCombo"), Members);

} // namespace
} // namespace zlx
