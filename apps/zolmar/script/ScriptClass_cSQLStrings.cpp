#include "connection/cSQLStrings.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cSQLStrings>& c) {
    c.Method("BeginInsert", 2, 3, [](cSQLStrings& o, ScriptArgs& a) {
        o.BeginInsert(a.Object<cConexion>(0), a.String(1), a.Bool(2, true));
    });
    c.Method("BeginUpdate", 3, 3, [](cSQLStrings& o, ScriptArgs& a) {
        o.BeginUpdate(a.Object<cConexion>(0), a.String(1), a.String(2));
    });
    c.Method("AddField", 2, 6, [](cSQLStrings& o, ScriptArgs& a) {
        o.AddField(a.String(0), a.Value(1), a.Bool(2), a.Long(3), a.Bool(4, true),
                   a.Long(5, zlxTblColumnTypeNone));
    });
    c.Method("RecordStatus", 1, 1,
             [](cSQLStrings& o, ScriptArgs& a) { o.RecordStatus(a.Long(0)); });
    c.Method("EndStr", 0, 0, [](cSQLStrings& o, ScriptArgs&) { return o.EndStr(); });
    c.Method("Execute", 0, 3, [](cSQLStrings& o, ScriptArgs& a) {
        return o.Execute(a.Long(0, zlxExecuteReturn_Nothing), a.Value(1, Variant(std::int16_t(0))),
                         a.Bool(2));
    });
}

const ScriptRegistration<cSQLStrings> registration(QStringLiteral("cSQLStrings"), Members);

} // namespace
} // namespace zlx
