#include "schema/cBaseDatos.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

// A text property of cBaseDatos read and written by name.
template <class Get, class Set>
void TextProperty(ScriptClassBuilder<cBaseDatos>& c, const char* name, Get get, Set set) {
    c.Property(
        QString::fromLatin1(name), [get](cBaseDatos& o) { return (o.*get)(); },
        [set](cBaseDatos& o, const Variant& v) { (o.*set)(v.ToString()); });
}

void Properties(ScriptClassBuilder<cBaseDatos>& c) {
    c.Property(
        "oCn", [](cBaseDatos& o) { return o.oCn(); },
        [](cBaseDatos& o, const Variant& v) { o.oCn(v.As<cConexion>()); });
    c.Property(
        "Provider", [](cBaseDatos& o) { return o.Provider(); },
        [](cBaseDatos& o, const Variant& v) { o.Provider(v.ToLong()); });
    using G = QString (cBaseDatos::*)() const;
    using S = void (cBaseDatos::*)(const QString&);
    TextProperty(c, "Server", G(&cBaseDatos::Server), S(&cBaseDatos::Server));
    TextProperty(c, "User", G(&cBaseDatos::User), S(&cBaseDatos::User));
    TextProperty(c, "Password", G(&cBaseDatos::Password), S(&cBaseDatos::Password));
    TextProperty(c, "Database_Size", G(&cBaseDatos::Database_Size), S(&cBaseDatos::Database_Size));
    TextProperty(c, "Path", G(&cBaseDatos::Path), S(&cBaseDatos::Path));
    TextProperty(c, "Database", G(&cBaseDatos::Database), S(&cBaseDatos::Database));
    TextProperty(c, "Table", G(&cBaseDatos::Table), S(&cBaseDatos::Table));
    TextProperty(c, "PathAndFile", G(&cBaseDatos::PathAndFile), S(&cBaseDatos::PathAndFile));
}

void Definitions(ScriptClassBuilder<cBaseDatos>& c) {
    c.Method("InitFromExistingConnection", 1, 2, [](cBaseDatos& o, ScriptArgs& a) {
        o.InitFromExistingConnection(a.Object<cConexion>(0), a.String(1));
    });
    c.Method("Init_Connection", 0, 6, [](cBaseDatos& o, ScriptArgs& a) {
        o.Init_Connection(a.Long(0, -1), a.String(1), a.String(2), a.String(3), a.String(4),
                          a.String(5));
    });
    c.Method("Open_Connection", 0, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.Open_Connection(a.Bool(0, true)); });
    c.Method("Close_Connection", 0, 0, [](cBaseDatos& o, ScriptArgs&) { o.Close_Connection(); });
    c.Method("Create_Database", 0, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.Create_Database(a.String(0)); });
    c.Method("CreateDefault", 2, 2,
             [](cBaseDatos& o, ScriptArgs& a) { o.CreateDefault(a.String(0), a.String(1)); });
    c.Method("Delete_Database", 0, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.Delete_Database(a.String(0)); });
    c.Method("Create_Table", 0, 2, [](cBaseDatos& o, ScriptArgs& a) {
        return o.Create_Table(a.String(0), a.Bool(1, true));
    });
    c.Method("Delete_Table", 0, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.Delete_Table(a.String(0)); });
    c.Method("Create_Column", 2, 7, [](cBaseDatos& o, ScriptArgs& a) {
        return o.Create_Column(a.String(0), a.Long(1), a.Long(2), a.Long(3),
                               a.Value(4, Variant("NO DEFAULT")), a.Bool(5), a.Bool(6, true));
    });
    c.Method("Create_Column_UpdateDefaults", 0, 0,
             [](cBaseDatos& o, ScriptArgs&) { return o.Create_Column_UpdateDefaults(); });
    c.Method("Create_Index", 1, 4, [](cBaseDatos& o, ScriptArgs& a) {
        return o.Create_Index(a.String(0), a.Long(1, zlxIndexTypeYes), a.String(2), a.Bool(3));
    });
    c.Method("Delete_Index", 1, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.Delete_Index(a.String(0)); });
    c.Method("Delete_Column", 1, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.Delete_Column(a.String(0)); });
    c.Method("Rename_Column", 2, 2, [](cBaseDatos& o, ScriptArgs& a) {
        return o.Rename_Column(a.String(0), a.String(1));
    });
}

void Inspection(ScriptClassBuilder<cBaseDatos>& c) {
    c.Method("ChkCampo", 1, 4, [](cBaseDatos& o, ScriptArgs& a) {
        return o.ChkCampo(a.String(0), a.Long(1), a.Long(2), a.Long(3));
    });
    c.Method("ExisteDatabase", 1, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.ExisteDatabase(a.Value(0)); });
    c.Method("ExisteIndice", 1, 2,
             [](cBaseDatos& o, ScriptArgs& a) { return o.ExisteIndice(a.Value(0), a.Bool(1)); });
    c.Method("ExisteTabla", 1, 1,
             [](cBaseDatos& o, ScriptArgs& a) { return o.ExisteTabla(a.String(0)); });
    c.Method("GetTableStructure", 0, 0,
             [](cBaseDatos& o, ScriptArgs&) { return o.GetTableStructure(); });
    c.Method("Reindex", 0, 0, [](cBaseDatos& o, ScriptArgs&) { return o.Reindex(); });
    c.Method("Pack", 0, 2, [](cBaseDatos& o, ScriptArgs& a) { o.Pack(a.Bool(0), a.String(1)); });
    c.Method("ChkTablasBase", 0, 3, [](cBaseDatos& o, ScriptArgs& a) {
        return o.ChkTablasBase(a.Bool(0, true), a.Bool(1, true), a.Bool(2, true));
    });
}

void Members(ScriptClassBuilder<cBaseDatos>& c) {
    Properties(c);
    Definitions(c);
    Inspection(c);
}

const ScriptRegistration<cBaseDatos> registration(QStringLiteral("cBaseDatos"), Members);

} // namespace
} // namespace zlx
