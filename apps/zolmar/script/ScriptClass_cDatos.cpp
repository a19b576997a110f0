#include "platform/ado/Recordset.h"
#include "script/ScriptRegistry.h"
#include "table/cDatos.h"

namespace zlx {
namespace {

void ColumnsAndFields(ScriptClassBuilder<cDatos>& c) {
    c.Method("Init", 0, 2, [](cDatos& o, ScriptArgs& a) {
        o.Init(a.Object<cConexion>(0), a.Object<ado::Recordset>(1));
    });
    c.Method("Get_RS", 0, 0, [](cDatos& o, ScriptArgs&) { return o.Get_RS(); });
    c.Method("BeginDefineColumns", 0, 0, [](cDatos& o, ScriptArgs&) { o.BeginDefineColumns(); });
    c.Method("AddColumn", 0, 5, [](cDatos& o, ScriptArgs& a) {
        o.AddColumn(a.String(0), a.Long(1, 7), a.Long(2), a.Long(3), a.Long(4, -1));
    });
    c.Method("EndDefineColumns", 0, 0, [](cDatos& o, ScriptArgs&) { o.EndDefineColumns(); });
    // The column's zlxDatoColumnInfo as the list [cName, nType, nSize].
    c.Method("ColumnInfo", 1, 1, [](cDatos& o, ScriptArgs& a) {
        const zlxDatoColumnInfo info = o.ColumnInfo(a.Long(0));
        return Variant::Array({info.cName, info.nType, info.nSize});
    });
    c.Method("FieldNumber", 1, 1,
             [](cDatos& o, ScriptArgs& a) { return o.FieldNumber(a.String(0)); });
    c.Method("FieldExist", 1, 1,
             [](cDatos& o, ScriptArgs& a) { return o.FieldExist(a.String(0)); });
    c.Property("FieldCount", [](cDatos& o) { return o.FieldCount(); });
    c.IndexedProperty(
        "Indexed", 1, [](cDatos& o, ScriptArgs& a) { return o.Indexed(a.String(0)); },
        [](cDatos& o, ScriptArgs& a, const Variant& v) { o.Indexed(a.String(0), v.ToBool()); });
    c.IndexedProperty(
        "Field", 1, [](cDatos& o, ScriptArgs& a) { return o.Field(a.String(0)); },
        [](cDatos& o, ScriptArgs& a, const Variant& v) { o.Field(a.String(0), v); });
    c.IndexedProperty(
        "Field_ByColumnNumber", 1,
        [](cDatos& o, ScriptArgs& a) { return o.Field_ByColumnNumber(a.Long(0)); },
        [](cDatos& o, ScriptArgs& a, const Variant& v) { o.Field_ByColumnNumber(a.Long(0), v); });
    c.IndexedProperty(
        "DataCell", 2, [](cDatos& o, ScriptArgs& a) { return o.DataCell(a.String(0), a.Long(1)); },
        [](cDatos& o, ScriptArgs& a, const Variant& v) { o.DataCell(a.String(0), a.Long(1), v); });
}

void Navigation(ScriptClassBuilder<cDatos>& c) {
    c.Property(
        "Filter", [](cDatos& o) { return o.Filter(); },
        [](cDatos& o, const Variant& v) { o.Filter(v); });
    c.Property(
        "Sort", [](cDatos& o) { return o.Sort(); },
        [](cDatos& o, const Variant& v) { o.Sort(v.ToString()); });
    c.Method("RecCount", 0, 1, [](cDatos& o, ScriptArgs& a) { return o.RecCount(a.String(0)); });
    c.Property(
        "CurrentRow", [](cDatos& o) { return o.CurrentRow(); },
        [](cDatos& o, const Variant& v) { o.CurrentRow(v.ToLong()); });
    c.Method("Move", 1, 1, [](cDatos& o, ScriptArgs& a) { return o.Move(a.Long(0)); });
    c.Method("MoveFirst", 0, 0, [](cDatos& o, ScriptArgs&) { return o.MoveFirst(); });
    c.Method("MoveLast", 0, 0, [](cDatos& o, ScriptArgs&) { return o.MoveLast(); });
    c.Method("MovePrevious", 0, 0, [](cDatos& o, ScriptArgs&) { return o.MovePrevious(); });
    c.Method("MoveNext", 0, 0, [](cDatos& o, ScriptArgs&) { return o.MoveNext(); });
    c.Property(
        "LastError", [](cDatos& o) { return o.LastError(); },
        [](cDatos& o, const Variant& v) { o.LastError(v.ToLong()); });
    c.Property(
        "Tally", [](cDatos& o) { return o.Tally(); },
        [](cDatos& o, const Variant& v) { o.Tally(v.ToLong()); });
    c.Property(
        "lUserCancel", [](cDatos& o) { return o.lUserCancel(); },
        [](cDatos& o, const Variant& v) { o.lUserCancel(v.ToBool()); });
}

void Loading(ScriptClassBuilder<cDatos>& c) {
    c.Method("LoadRecordSet", 1, 5, [](cDatos& o, ScriptArgs& a) {
        return o.LoadRecordSet(a.Object<ado::Recordset>(0), a.Bool(1, true), a.Bool(2),
                               a.Bool(3, true), a.Bool(4));
    });
    c.Method("AppendRecordSet", 1, 2, [](cDatos& o, ScriptArgs& a) {
        return o.AppendRecordSet(a.Object<ado::Recordset>(0), a.Bool(1));
    });
    c.Method("LoadcDatos", 1, 4, [](cDatos& o, ScriptArgs& a) {
        return o.LoadcDatos(a.Object<cDatos>(0).get(), a.Bool(1, true), a.Bool(2), a.Bool(3));
    });
    // LoadMatriz(oMatriz, nColumnaDetectadoNULL): the column comes back in "out" when given.
    c.Method("LoadMatriz", 1, 2, [](cDatos& o, ScriptArgs& a) {
        std::int32_t nullColumn = a.Long(1);
        const std::int32_t result =
            o.LoadMatriz(a.Object<cMatriz>(0).get(), a.Given(1) ? &nullColumn : nullptr);
        if (a.Given(1)) a.Out(1, nullColumn);
        return result;
    });
    c.Method("AsyncQuery", 1, 3, [](cDatos& o, ScriptArgs& a) {
        return o.AsyncQuery(a.String(0), a.Object<cConexion>(1), a.Bool(2));
    });
    c.Method("CancelAsyncQuery", 0, 0, [](cDatos& o, ScriptArgs&) { o.CancelAsyncQuery(); });
    c.Method("GetRows", 0, 3, [](cDatos& o, ScriptArgs& a) {
        return o.GetRows(a.Long(0, -1), a.Bool(1, true), a.Value(2, Variant(std::int32_t(0))));
    });
    c.Method("GetMatriz", 0, 3, [](cDatos& o, ScriptArgs& a) {
        return o.GetMatriz(a.Long(0, -1), a.Bool(1, true), a.Value(2, Variant(std::int32_t(0))));
    });
    c.Method("ChangeNULLs", 0, 0, [](cDatos& o, ScriptArgs&) { o.ChangeNULLs(); });
}

void RowsAndFiles(ScriptClassBuilder<cDatos>& c) {
    c.Method("InsertRow", 2, 2,
             [](cDatos& o, ScriptArgs& a) { return o.InsertRow(a.Value(0), a.Value(1)); });
    c.Method("InsertRowFromCDatos", 1, 3, [](cDatos& o, ScriptArgs& a) {
        const cDatosPtr source = a.Object<cDatos>(0);
        if (!source) throw ScriptError(QStringLiteral("argument 1: a cDatos is needed"));
        return o.InsertRowFromCDatos(*source, a.Value(1, Variant(false)),
                                     a.Value(2, Variant(false)));
    });
    c.Method("Delete", 0, 2,
             [](cDatos& o, ScriptArgs& a) { return o.Delete(a.String(0), a.Bool(1)); });
    c.Method("Update", 2, 3, [](cDatos& o, ScriptArgs& a) {
        return o.Update(a.Value(0), a.Value(1), a.String(2));
    });
    c.Method("Locate", 1, 2,
             [](cDatos& o, ScriptArgs& a) { return o.Locate(a.String(0), a.Bool(1)); });
    c.Method("Find", 1, 2, [](cDatos& o, ScriptArgs& a) { return o.Find(a.String(0), a.Bool(1)); });
    c.Method("SeekRow", 2, 3, [](cDatos& o, ScriptArgs& a) {
        return o.SeekRow(a.String(0), a.Value(1), a.Bool(2));
    });
    c.Method("Scan", 0, 2,
             [](cDatos& o, ScriptArgs& a) { return o.Scan(a.String(0), a.Bool(1, true)); });
    c.Method("EndScan", 0, 0, [](cDatos& o, ScriptArgs&) { o.EndScan(); });
    c.Method("Sum", 1, 2, [](cDatos& o, ScriptArgs& a) { return o.Sum(a.Value(0), a.String(1)); });
    c.Method("SaveToXMLFile", 1, 1,
             [](cDatos& o, ScriptArgs& a) { return o.SaveToXMLFile(a.String(0)); });
    c.Method("LoadFromXMLFile", 1, 1,
             [](cDatos& o, ScriptArgs& a) { return o.LoadFromXMLFile(a.String(0)); });
    c.Method("LoadFile_DBF", 1, 1,
             [](cDatos& o, ScriptArgs& a) { return o.LoadFile_DBF(a.String(0)); });
    c.Method("CreateDBF", 1, 2,
             [](cDatos& o, ScriptArgs& a) { return o.CreateDBF(a.String(0), a.Bool(1, true)); });
    c.Method("Show", 0, 4, [](cDatos& o, ScriptArgs& a) {
        o.Show(a.Long(0, zlxDatosShow_Grid), a.String(1), a.Long(2, 999999), a.String(3));
    });
    c.Method("Buscar", 1, 9, [](cDatos& o, ScriptArgs& a) {
        return o.Buscar(a.String(0), a.Value(1), a.Value(2), a.Long(3, 1), a.Long(4, 1),
                        a.Long(5, 500), a.Value(6), a.Double(7, 1.0), a.Bool(8));
    });
}

void Members(ScriptClassBuilder<cDatos>& c) {
    ColumnsAndFields(c);
    Navigation(c);
    Loading(c);
    RowsAndFiles(c);
}

const ScriptRegistration<cDatos> registration(QStringLiteral("cDatos"), Members);

} // namespace
} // namespace zlx
