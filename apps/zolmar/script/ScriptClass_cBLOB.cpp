#include "binding/cBLOB.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cBLOB>& c) {
    c.Method("Init", 2, 3, [](cBLOB& o, ScriptArgs& a) {
        return o.Init(a.Object<cConexion>(0), a.String(1), a.String(2, QStringLiteral("BLOBs")));
    });
    c.IndexedProperty(
        "Value", 2, [](cBLOB& o, ScriptArgs& a) { return o.Value(a.Long(0), a.String(1)); },
        [](cBLOB& o, ScriptArgs& a, const Variant& v) { o.Value(a.Long(0), a.String(1), v); });
    c.Method("Delete", 2, 2,
             [](cBLOB& o, ScriptArgs& a) { return o.Delete(a.Long(0), a.String(1)); });
}

const ScriptRegistration<cBLOB> registration(QStringLiteral("cBLOB"), Members);

} // namespace
} // namespace zlx
