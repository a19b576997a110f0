#include "platform/companion/cServiciosFecha.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cServiciosFecha>& c) {
    c.Property(
        "PrimerMesEjercicio", [](cServiciosFecha& o) { return o.PrimerMesEjercicio(); },
        [](cServiciosFecha& o, const Variant& v) { o.PrimerMesEjercicio(v.ToLong()); });
    c.Property(
        "Hoy", [](cServiciosFecha& o) { return cServiciosFecha::FromQDate(o.Hoy()); },
        [](cServiciosFecha& o, const Variant& v) { o.Hoy(cServiciosFecha::ToQDate(v.ToDate())); });
    c.Method("FechaPreset", 1, 1,
             [](cServiciosFecha& o, ScriptArgs& a) { return o.FechaPreset(a.Long(0)); });
    c.Method("FechaEnBlanco", 0, 0,
             [](cServiciosFecha&, ScriptArgs&) { return cServiciosFecha::FechaEnBlanco(); });
}

const ScriptRegistration<cServiciosFecha> registration(QStringLiteral("cServiciosFecha"), Members);

} // namespace
} // namespace zlx
