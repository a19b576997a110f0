#include "dbf/cDBF.h"
#include "script/ScriptRegistry.h"
#include "table/cDatos.h"

namespace zlx {
namespace {

void Files(ScriptClassBuilder<cDBF>& c) {
    c.Method("OpenRaw", 1, 1, [](cDBF& o, ScriptArgs& a) { return o.OpenRaw(a.String(0)); });
    c.Method("OpenODBC", 1, 1, [](cDBF& o, ScriptArgs& a) { return o.OpenODBC(a.String(0)); });
    c.Method("CloseDBF", 0, 0, [](cDBF& o, ScriptArgs&) { o.CloseDBF(); });
    c.Method("Execute", 1, 4, [](cDBF& o, ScriptArgs& a) {
        return o.Execute(a.String(0), a.Long(1, 1), a.Value(2, Variant(std::int32_t(0))),
                         a.Bool(3));
    });
    c.Method("BeginCreateDBF", 1, 1,
             [](cDBF& o, ScriptArgs& a) { return o.BeginCreateDBF(a.String(0)); });
    // CreateColumn(cName, cType, nSize, nDecimales): the type as taken comes back in "out".
    c.Method("CreateColumn", 2, 4, [](cDBF& o, ScriptArgs& a) {
        QString type = a.String(1);
        o.CreateColumn(a.String(0), type, a.Long(2), a.Long(3));
        a.Out(1, type);
    });
    c.Method("EndCreateDBF", 0, 0, [](cDBF& o, ScriptArgs&) { return o.EndCreateDBF(); });
    c.Method("CreateFromDatos", 2, 3, [](cDBF& o, ScriptArgs& a) {
        const cDatosPtr table = a.Object<cDatos>(1);
        if (!table) throw ScriptError(QStringLiteral("argument 2: a cDatos is needed"));
        return o.CreateFromDatos(a.String(0), *table, a.Bool(2, true));
    });
}

void Records(ScriptClassBuilder<cDBF>& c) {
    c.Property("RecordCount", [](cDBF& o) { return static_cast<double>(o.RecordCount()); });
    c.Property("FieldCount", [](cDBF& o) { return o.FieldCount(); });
    // The field's DBF_FieldInfo_Type as the list [cFieldName, cDataType, nFieldLength,
    // nDecimalPlaces].
    c.Method("GetFieldInfo", 1, 1, [](cDBF& o, ScriptArgs& a) {
        const DBF_FieldInfo_Type info = o.GetFieldInfo(a.Long(0));
        return Variant::Array({info.cFieldName, info.cDataType, std::int32_t(info.nFieldLength),
                               std::int32_t(info.nDecimalPlaces)});
    });
    c.Property("Version", [](cDBF& o) { return o.Version(); });
    c.Property("Path", [](cDBF& o) { return o.Path(); });
    c.Property(
        "CodePage", [](cDBF& o) { return o.CodePage(); },
        [](cDBF& o, const Variant& v) { o.CodePage(v.ToLong()); });
    c.Property(
        "CurrentRow", [](cDBF& o) { return o.CurrentRow(); },
        [](cDBF& o, const Variant& v) { o.CurrentRow(v.ToLong()); });
    c.IndexedProperty(
        "Field", 1, [](cDBF& o, ScriptArgs& a) { return o.Field(a.String(0)); },
        [](cDBF& o, ScriptArgs& a, const Variant& v) { o.Field(a.String(0), v); });
    c.Method("BeginInsert", 0, 0, [](cDBF& o, ScriptArgs&) { o.BeginInsert(); });
    c.Method("EndInsert", 0, 0, [](cDBF& o, ScriptArgs&) { return o.EndInsert(); });
    c.Method("FlushRecord", 0, 0, [](cDBF& o, ScriptArgs&) { o.FlushRecord(); });
    c.Method("Commit", 0, 0, [](cDBF& o, ScriptArgs&) { o.Commit(); });
    c.Property(
        "ShowErrors", [](cDBF& o) { return o.ShowErrors(); },
        [](cDBF& o, const Variant& v) { o.ShowErrors(v.ToBool()); });
    // GetLastErrorMsg(cErrorTitle): the title comes back in "out" when asked for.
    c.Method("GetLastErrorMsg", 0, 1, [](cDBF& o, ScriptArgs& a) {
        QString title;
        const QString text = o.GetLastErrorMsg(a.Given(0) ? &title : nullptr);
        if (a.Given(0)) a.Out(0, title);
        return text;
    });
    c.Method("ClearErrors", 0, 0, [](cDBF& o, ScriptArgs&) { o.ClearErrors(); });
}

void Members(ScriptClassBuilder<cDBF>& c) {
    Files(c);
    Records(c);
}

const ScriptRegistration<cDBF> registration(QStringLiteral("cDBF"), Members);

} // namespace
} // namespace zlx
