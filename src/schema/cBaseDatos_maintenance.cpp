// cBaseDatos: compaction, re-indexing and the library's base tables.

#include "schema/DdlText.h"
#include "schema/cBaseDatos.h"

#include <QFile>

namespace zlx {
namespace {

struct BaseColumn {
    const char* name;
    int type;
    std::int32_t size;
    bool indexed;
};

struct BaseTable {
    const char* name;
    std::vector<BaseColumn> columns;
};

// clang-format off
const BaseTable kDiccionario{"diccionario", {
    {"tipo", zlxTblColumnTypeI1, 0, true},
    {"tabla", zlxTblColumnTypeChar, 30, true},
    {"campo", zlxTblColumnTypeChar, 35, true},
    {"tipo_dato", zlxTblColumnTypeI1, 0, false},
    {"ancho", zlxTblColumnTypeI2, 0, false},
    {"mascara", zlxTblColumnTypeChar, 15, false},
    {"control", zlxTblColumnTypeI1, 0, false},
    {"tooltip", zlxTblColumnTypeChar, 50, false},
}};
const BaseTable kIdioma{"idioma", {
    {"clave", zlxTblColumnTypeChar, 50, true},
    {"idioma", zlxTblColumnTypeI4, 0, true},
    {"tipo", zlxTblColumnTypeI4, 0, true},
    {"revisar", zlxTblColumnTypeI1, 0, false},
    {"texto", zlxTblColumnTypeChar, 500, true},
    {"traduccion", zlxTblColumnTypeChar, 500, false},
}};
const BaseTable kLocks{"locks", {
    {"tabla", zlxTblColumnTypeChar, 50, true},
    {"id_zolmar", zlxTblColumnTypeI4, 0, true},
    {"tipo", zlxTblColumnTypeI4, 0, true},
    {"subtipo", zlxTblColumnTypeChar, 20, true},
    {"maquina", zlxTblColumnTypeChar, 20, false},
    {"usr_windows", zlxTblColumnTypeChar, 20, false},
    {"usr_zolmar", zlxTblColumnTypeI4, 0, false},
    {"PID", zlxTblColumnTypeI4, 0, false},
    {"cuando", zlxTblColumnTypeDateTime, 0, false},
    {"ClientName", zlxTblColumnTypeChar, 20, false},
}};
// clang-format on

} // namespace

bool cBaseDatos::Reindex() {
    try {
        ado::Catalog catalog = OpenCatalog();
        for (const ado::CatalogTable& table : catalog.Tables()) {
            if (table.Type != u"TABLE") continue;
            m_table = table.Name;
            for (const ado::CatalogIndex& index : catalog.Indexes(table.Name))
                Create_Index(index.Name, zlxIndexTypeYes, {}, false);
        }
    } catch (const ado::AdoError&) {
        ReportError();
        return false;
    }
    return true;
}

void cBaseDatos::Pack(bool lReindex, const QString& cDBFile) {
    try {
        if (IsJet())
            PackJet();
        else if (IsServer())
            PackServer(lReindex, cDBFile);
        else
            ShowMessage(QStringLiteral("Con este proveedor no se puede hacer un Pack"),
                        QStringLiteral("Información"));
    } catch (const ado::AdoError& error) {
        ShowMessage("Error en CompactarDB: Error nº " + QString::number(error.Number()) + ": " +
                        error.Description(),
                    QStringLiteral("Información"));
    }
}

// The file is copied compacted into "<file>[zlx]", which then takes the original's place.
void cBaseDatos::PackJet() {
    const QString compacted = m_pathAndFile + QStringLiteral("[zlx]");
    QFile::remove(compacted);
    // The connection holds the file (exclusively): it is released before the file is replaced.
    Close_Connection();
    cConexion strings;
    int provider = zlxDataProvider_JET40;
    ado::Connection engine;
    engine.Open(strings.Connection_String(provider, m_pathAndFile) +
                QStringLiteral(";SQL Dialect=Native"));
    long affected = -1;
    const long noRecords = static_cast<long>(ado::adCmdText) | ado::adExecuteNoRecords;
    // The write-ahead log is emptied first, so that what is left of it beside the new file
    // holds nothing of the old one.
    engine.Execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"), affected, noRecords);
    engine.Execute("VACUUM INTO '" + QString(compacted).replace(u'\'', QStringLiteral("''")) + "'",
                   affected, noRecords);
    engine.Close();
    if (!QFile::exists(compacted)) {
        ShowMessage(QStringLiteral("No se ha podido compactar la base de datos"),
                    QStringLiteral("Información"));
        return;
    }
    for (const char* companion : {"", "-wal", "-shm"})
        QFile::remove(m_pathAndFile + QString::fromLatin1(companion));
    QFile::rename(compacted, m_pathAndFile);
}

void cBaseDatos::PackServer(bool lReindex, const QString& cDBFile) {
    const QString database = cDBFile.isEmpty() ? m_database : cDBFile;
    ado::Connection& cn = Cn();
    const QString previous = cn.DefaultDatabase();
    // Switched only when it is another database: the switch is not free on the engines.
    const bool other = previous.compare(database, Qt::CaseInsensitive) != 0;
    if (other) cn.DefaultDatabase(database);
    try {
        if (lReindex) {
            for (const ado::CatalogTable& table : OpenCatalog().Tables())
                if (table.Type == u"TABLE") Run(DdlText::Reindex(database, table.Name));
        }
        Run(DdlText::Shrink(database));
    } catch (const ado::AdoError&) {
        if (other) cn.DefaultDatabase(previous);
        throw;
    }
    if (other) cn.DefaultDatabase(previous);
}

bool cBaseDatos::ChkTablasBase(bool lDiccionario, bool lIdioma, bool lLocks) {
    const std::pair<bool, const BaseTable*> wanted[] = {
        {lDiccionario, &kDiccionario}, {lIdioma, &kIdioma}, {lLocks, &kLocks}};
    for (const auto& [flag, table] : wanted) {
        if (!flag) continue;
        m_table = QString::fromLatin1(table->name);
        if (Create_Table({}, true) == zlxDBConstantsErrorGrave) return false;
        for (const BaseColumn& column : table->columns)
            Create_Column(QString::fromLatin1(column.name), column.type, column.size, 0,
                          Variant(DdlText::kNoDefault), column.indexed, true);
    }
    return true;
}

} // namespace zlx
