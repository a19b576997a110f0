#include "cursor/cFichaDB.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Navigation(ScriptClassBuilder<cFichaDB>& c) {
    c.Property(
        "oCn", [](cFichaDB& o) { return o.oCn(); },
        [](cFichaDB& o, const Variant& v) { o.oCn(v.As<cConexion>()); });
    c.Method("Init", 3, 5, [](cFichaDB& o, ScriptArgs& a) {
        return o.Init(a.Object<cConexion>(0), a.String(1), a.String(2), a.String(3),
                      a.Long(4, zlxFichaDBOrigenCursorLigero));
    });
    c.Method("InitFromMatriz", 2, 3, [](cFichaDB& o, ScriptArgs& a) {
        return o.InitFromMatriz(a.Object<cMatriz>(0), a.String(1), a.String(2));
    });
    c.Method("MoveFirst", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.MoveFirst(); });
    c.Method("MoveLast", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.MoveLast(); });
    c.Method("MoveNext", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.MoveNext(); });
    c.Method("MovePrevious", 0, 1,
             [](cFichaDB& o, ScriptArgs& a) { return o.MovePrevious(a.Bool(0, true)); });
    c.Method("Query", 1, 2,
             [](cFichaDB& o, ScriptArgs& a) { return o.Query(a.String(0), a.Bool(1, true)); });
    c.Method("RecordUpdated", 1, 1, [](cFichaDB& o, ScriptArgs& a) {
        Date seen = a.Ref(0).IsEmpty() ? Date{0} : a.Ref(0).ToDate();
        const bool updated = o.RecordUpdated(seen);
        a.Out(0, Variant(seen));
        return updated;
    });
    c.Method("ResetUpdatedFlag", 0, 0, [](cFichaDB& o, ScriptArgs&) { o.ResetUpdatedFlag(); });
    c.Method("SeekID", 1, 1, [](cFichaDB& o, ScriptArgs& a) { return o.SeekID(a.Long(0)); });
    c.Method("Find", 1, 1, [](cFichaDB& o, ScriptArgs& a) { return o.Find(a.String(0)); });
    c.Method("Refresh", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.Refresh(); });
    c.Method("IsFiltered", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.IsFiltered(); });
    c.Method("IsValidRecord", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.IsValidRecord(); });
    c.Method("IsValidField", 1, 1,
             [](cFichaDB& o, ScriptArgs& a) { return o.IsValidField(a.String(0)); });
    c.Property(
        "Table", [](cFichaDB& o) { return o.Table(); },
        [](cFichaDB& o, const Variant& v) { o.Table(v.ToString()); });
    c.Property(
        "Order", [](cFichaDB& o) { return o.Order(); },
        [](cFichaDB& o, const Variant& v) { o.Order(v.ToString()); });
    c.Property(
        "Filter", [](cFichaDB& o) { return o.Filter(); },
        [](cFichaDB& o, const Variant& v) { o.Filter(v.ToString()); });
    c.Property("ID", [](cFichaDB& o) { return o.ID(); });
    c.Property("Get_RS", [](cFichaDB& o) { return o.Get_RS(); });
    c.IndexedProperty(
        "Field", 1, [](cFichaDB& o, ScriptArgs& a) { return o.Field(a.String(0)); },
        [](cFichaDB& o, ScriptArgs& a, const Variant& v) { o.Field(a.String(0), v); });
    c.Method("ShowValues", 0, 0, [](cFichaDB& o, ScriptArgs&) { o.ShowValues(); });
}

void Writes(ScriptClassBuilder<cFichaDB>& c) {
    c.Method("Update", 2, 3, [](cFichaDB& o, ScriptArgs& a) {
        return o.Update(a.Value(0), a.Value(1), a.Bool(2));
    });
    c.Method("AddNew", 0, 2, [](cFichaDB& o, ScriptArgs& a) {
        return o.AddNew(a.Value(0, Variant(std::int16_t(0))), a.Value(1, Variant(std::int16_t(0))));
    });
    c.Method("Delete", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.Delete(); });
    c.Method("xLock", 3, 7, [](cFichaDB& o, ScriptArgs& a) {
        return o.xLock(a.Long(0), a.Bool(1), a.Long(2), a.Long(3), a.Long(4), a.String(5),
                       a.Long(6, zlxLockRetryUntilCancel));
    });
    c.Method("MaxID", 0, 0, [](cFichaDB& o, ScriptArgs&) { return o.MaxID(); });
    c.Property(
        "RecordStatus", [](cFichaDB& o) { return o.RecordStatus(); },
        [](cFichaDB& o, const Variant& v) { o.RecordStatus(v.ToLong()); });
    c.Method("ChkRepes", 3, 4, [](cFichaDB& o, ScriptArgs& a) {
        return o.ChkRepes(a.String(0), a.Value(1), a.Long(2), a.String(3));
    });
}

void Members(ScriptClassBuilder<cFichaDB>& c) {
    Navigation(c);
    Writes(c);
}

const ScriptRegistration<cFichaDB> registration(QStringLiteral("cFichaDB"), Members);

} // namespace
} // namespace zlx
