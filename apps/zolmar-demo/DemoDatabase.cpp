#include "DemoDatabase.h"

#include "platform/companion/cMatriz.h"
#include "schema/cBaseDatos.h"
#include "table/cDatos.h"

namespace zlx::demo {

namespace {

struct ColumnSpec {
    const char* name;
    int type;
    std::int32_t size;
    std::int32_t decimals;
    bool indexed;
};

struct TableSpec {
    const char* name;
    std::vector<ColumnSpec> columns;
};

// The application's own tables. LogFichas is the change log the record form writes into.
const std::vector<TableSpec>& Tables() {
    static const std::vector<TableSpec> tables = {
        {"municipios",
         {{"codigo", zlxTblColumnTypeI4, 0, 0, true},
          {"nombre", zlxTblColumnTypeChar, 40, 0, true},
          {"provincia", zlxTblColumnTypeChar, 30, 0, false}}},
        {"clientes",
         {{"codigo", zlxTblColumnTypeChar, 10, 0, true},
          {"nombre", zlxTblColumnTypeChar, 60, 0, true},
          {"nif", zlxTblColumnTypeChar, 12, 0, true},
          {"tipo", zlxTblColumnTypeI2, 0, 0, false},
          {"municipio", zlxTblColumnTypeI4, 0, 0, false},
          {"fnacimiento", zlxTblColumnTypeDateTime, 0, 0, false},
          {"limite", zlxTblColumnTypeDouble, 0, 0, false},
          {"Activo", zlxTblColumnTypeI2, 0, 0, true},
          {"notas", zlxTblColumnTypeChar, 200, 0, false}}},
        {"LogFichas",
         {{"Fecha", zlxTblColumnTypeDateTime, 0, 0, false},
          {"ID_Usuario", zlxTblColumnTypeI4, 0, 0, false},
          {"ID_Puesto", zlxTblColumnTypeI4, 0, 0, false},
          {"Tabla", zlxTblColumnTypeChar, 60, 0, true},
          {"ID_Ficha", zlxTblColumnTypeI4, 0, 0, true},
          {"TipoOp", zlxTblColumnTypeI2, 0, 0, false},
          {"Valores", zlxTblColumnTypeChar, 7900, 0, false}}},
    };
    return tables;
}

cMatrizPtr Rows(std::initializer_list<std::initializer_list<Variant>> rows) {
    auto matrix = std::make_shared<cMatriz>();
    matrix->Dimension(1, static_cast<std::int32_t>(rows.begin()->size()), 1, 0);
    for (const auto& row : rows)
        matrix->AddRow(Variant::Array(std::vector<Variant>(row)));
    return matrix;
}

Variant Names(std::initializer_list<const char*> names) {
    std::vector<Variant> list;
    for (const char* name : names)
        list.emplace_back(QString::fromLatin1(name));
    return Variant::Array(list);
}

Variant Day(int year, int month, int day) {
    return Variant(MakeDate(year, month, day));
}

} // namespace

bool DemoDatabase::CreateSchema(const DemoDatabaseSettings& settings, QString& cError) {
    cBaseDatos db;
    db.Init_Connection(zlxDataProvider_MSDE, settings.database, {}, {}, {}, settings.server);
    const int created = db.Create_Database();
    if (created != zlxDBConstantsNoError && created != zlxDBConstantsExisteDB) {
        cError = QStringLiteral("No se pudo crear la base de datos %1").arg(settings.database);
        return false;
    }
    for (const TableSpec& table : Tables()) {
        if (db.Create_Table(QString::fromLatin1(table.name)) == zlxDBConstantsErrorGrave) {
            cError = QStringLiteral("No se pudo crear la tabla %1").arg(table.name);
            return false;
        }
        for (const ColumnSpec& column : table.columns)
            db.Create_Column(QString::fromLatin1(column.name), column.type, column.size,
                             column.decimals, Variant(QStringLiteral("NO DEFAULT")),
                             column.indexed);
    }
    const bool baseTables = db.ChkTablasBase();
    db.Close_Connection();
    if (!baseTables) cError = QStringLiteral("No se pudieron crear las tablas base");
    return baseTables;
}

void DemoDatabase::AddSampleRows(cConexion& oCn) {
    if (oCn.RecCount(QStringLiteral("municipios")) == 0)
        oCn.Insert(QStringLiteral("municipios"), Names({"codigo", "nombre", "provincia"}),
                   Variant(Rows({{Variant(41091), Variant("Sevilla"), Variant("Sevilla")},
                                 {Variant(48020), Variant("Bilbao"), Variant("Bizkaia")},
                                 {Variant(28079), Variant("Madrid"), Variant("Madrid")},
                                 {Variant(8019), Variant("Barcelona"), Variant("Barcelona")},
                                 {Variant(46250), Variant("Valencia"), Variant("Valencia")},
                                 {Variant(50297), Variant("Zaragoza"), Variant("Zaragoza")},
                                 {Variant(15030), Variant("A Coruña"), Variant("A Coruña")},
                                 {Variant(29067), Variant("Málaga"), Variant("Málaga")}})));
    if (oCn.RecCount(QStringLiteral("clientes")) > 0) return;
    oCn.Insert(
        QStringLiteral("clientes"),
        Names({"codigo", "nombre", "nif", "tipo", "municipio", "fnacimiento", "limite", "Activo",
               "notas"}),
        Variant(Rows({
            {Variant("C0001"), Variant("García Pérez, Ana"), Variant("12345678Z"), Variant(1),
             Variant(41091), Day(1978, 3, 14), Variant(1500.0), Variant(0),
             Variant("Paga por transferencia")},
            {Variant("C0002"), Variant("Núñez Ibáñez, Jorge"), Variant("87654321X"), Variant(1),
             Variant(48020), Day(1985, 11, 2), Variant(3200.5), Variant(0), Variant("")},
            {Variant("C0003"), Variant("Ferretería La Esquina, S.L."), Variant("B41234567"),
             Variant(2), Variant(41091), Day(1753, 1, 1), Variant(12000.0), Variant(0),
             Variant("Cliente desde 2009")},
            {Variant("C0004"), Variant("O'Brien Castro, Lucía"), Variant("45678912K"), Variant(1),
             Variant(28079), Day(1992, 6, 30), Variant(800.0), Variant(1),
             Variant("Inactivo desde el traslado")},
            {Variant("C0005"), Variant("Muñoz Gil, Pedro"), Variant("33445566L"), Variant(1),
             Variant(29067), Day(1969, 9, 21), Variant(2500.0), Variant(0), Variant("")},
            {Variant("C0006"), Variant("Distribuciones Ebro, S.A."), Variant("A50987654"),
             Variant(2), Variant(50297), Day(1753, 1, 1), Variant(45000.0), Variant(0),
             Variant("Pedidos los lunes")},
        })));
}

cConexionPtr DemoDatabase::Open(const DemoDatabaseSettings& settings, QString& cError) {
    if (!CreateSchema(settings, cError)) return nullptr;
    auto cn = std::make_shared<cConexion>();
    if (!cn->Init(zlxDataProvider_MSDE, settings.database, settings.server)) {
        cError = QStringLiteral("No se pudo abrir la base de datos %1").arg(settings.database);
        return nullptr;
    }
    AddSampleRows(*cn);
    return cn;
}

bool DemoDatabase::ExportClients(cConexion& oCn, const QString& cFileName) {
    const Variant result = oCn.Execute(
        QStringLiteral("SELECT codigo, nombre, nif, municipio, fnacimiento, limite, Activo "
                       "FROM clientes ORDER BY codigo"),
        zlxExecuteReturn_cDatos_Disconnected);
    const auto table = result.IsObject() ? result.As<cDatos>() : nullptr;
    return table && table->CreateDBF(cFileName);
}

} // namespace zlx::demo
