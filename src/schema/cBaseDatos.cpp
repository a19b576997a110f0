#include "schema/cBaseDatos.h"

#include "schema/DdlText.h"
#include "schema/SchemaErrors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace zlx {
namespace {

// The folder part of a path, "" when the path names no folder (a SQL Server database name).
QString ParentFolder(const QString& path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash < 0 ? QString() : path.left(slash);
}

QString BaseName(const QString& path) {
    return QFileInfo(path).completeBaseName();
}

} // namespace

cBaseDatos::cBaseDatos() : m_msgBox(std::make_shared<cMsgBox>()) {}

cBaseDatos::~cBaseDatos() {
    Close_Connection();
}

std::int32_t cBaseDatos::ShowMessage(const QString& cText, const QString& cTitle) {
    return m_msgBox->ShowMessage(cText, MsgButtonsOk, cTitle);
}

void cBaseDatos::Path(const QString& value) {
    m_path = value;
    if (!m_path.isEmpty() && !m_path.endsWith(u'/')) m_path += u'/';
    if (!QFileInfo(m_path).isDir()) {
        m_path.clear();
        ShowMessage(QStringLiteral("La ruta no existe"), QStringLiteral("Información"));
    }
}

void cBaseDatos::PathAndFile(const QString& value) {
    m_pathAndFile = value;
    m_path = ParentFolder(value);
    m_database = BaseName(value);
}

void cBaseDatos::Database(const QString& value) {
    m_database = value;
    if (m_cn) m_cn->DBName(value);
}

void cBaseDatos::InitFromExistingConnection(const cConexionPtr& oExisting, const QString& cDB) {
    if (!oExisting) return;
    Init_Connection(oExisting->nDBProvider(), cDB.isEmpty() ? oExisting->DBName() : cDB, {},
                    oExisting->cDBUser(), oExisting->cDBPassword(), oExisting->cDBServer());
}

void cBaseDatos::Init_Connection(int nProveedor, const QString& cRutaMasFichero,
                                 const QString& cTabla, const QString& cUsuario,
                                 const QString& cClave, const QString& cServidor) {
    m_pathAndFile = cRutaMasFichero;
    if (nProveedor == zlxDataProvider_FOX) {
        m_path = m_pathAndFile;
        m_database.clear();
    } else {
        m_path = ParentFolder(m_pathAndFile);
        m_database = BaseName(m_pathAndFile);
    }
    m_provider = nProveedor;
    m_server = cServidor;
    m_table = cTabla;
    m_user = cUsuario;
    m_password = cClave;
}

bool cBaseDatos::Open_Connection(bool lDefaultDatabase) {
    QString target;
    if (IsJet())
        target = m_pathAndFile;
    else if (IsServer())
        target = lDefaultDatabase ? m_database : QString();
    else if (m_provider == zlxDataProvider_FOX)
        target = m_path;
    Close_Connection();
    m_cn = std::make_shared<cConexion>();
    QString errors;
    constexpr int kShareExclusive = 12;
    if (!m_cn->Init(m_provider, target, m_server, m_user, m_password, kShareExclusive, false,
                    &errors, 60))
        return false;
    m_cn->cn()->CommandTimeout(0);
    return true;
}

void cBaseDatos::Close_Connection() {
    if (!m_cn) return;
    if (IsServer() && m_cn->cn() && m_cn->cn()->State() == ado::adStateOpen) {
        try {
            m_cn->cn()->DefaultDatabase(QStringLiteral("master"));
        } catch (const ado::AdoError&) {
            // a connection that cannot switch any more is released all the same
        }
    }
    m_cn.reset();
}

ado::Connection& cBaseDatos::Cn() const {
    if (!m_cn || !m_cn->cn())
        throw ado::AdoError(ado::adErrObjectClosed,
                            QStringLiteral("Operation is not allowed when the object is closed."));
    return *m_cn->cn();
}

void cBaseDatos::Run(const QString& cSQL) {
    long affected = -1;
    Cn().Execute(cSQL, affected, -1);
}

std::vector<std::vector<Variant>> cBaseDatos::Query(const QString& cSQL) {
    return ado::Catalog::QueryRows(Cn(), cSQL);
}

ado::Catalog cBaseDatos::OpenCatalog() const {
    ado::Catalog catalog;
    catalog.ActiveConnection(m_cn ? m_cn->cn() : nullptr);
    return catalog;
}

void cBaseDatos::ReportError() {
    if (m_cn) m_cn->ChkError();
}

int cBaseDatos::Create_Database(const QString& cDB) {
    const QString title = ErrorTitle("Create_Database");
    if (!cDB.isEmpty()) m_database = cDB;
    if (m_provider == zlxDataProvider_FOX || m_provider == zlxDataProvider_EXCEL) {
        ShowMessage(QStringLiteral("Este proveedor (%1) no puede crear Bases de Datos")
                        .arg(m_provider == zlxDataProvider_FOX ? "FOX" : "EXCEL"),
                    title);
        return zlxDBConstantsNoSoporte;
    }
    int result = zlxDBConstantsNoError;
    // Each step runs on; a database that already exists is noted and passed over.
    const auto step = [&](auto&& action) {
        try {
            action();
            return true;
        } catch (const ado::AdoError& error) {
            if (error.Number() == kErrDatabaseExists) {
                result = zlxDBConstantsExisteDB;
                return true;
            }
            ShowMessage(QString::number(error.Number()) + ": " + error.Description(), title);
            Close_Connection();
            result = zlxDBConstantsErrorGrave;
            return false;
        }
    };
    if (IsJet()) {
        m_cn = std::make_shared<cConexion>();
        int provider = zlxDataProvider_JET40;
        const QString text = m_cn->Connection_String(provider, m_pathAndFile);
        step([&] { ado::Catalog::Create(text); });
        return result;
    }
    Open_Connection(false);
    if (!step([&] {
            Run(DdlText::CreateDatabase(m_database, m_path, m_pathAndFile, m_databaseSize));
        }) ||
        !step([&] { Run(DdlText::AlterDatabase(m_database)); }))
        return result;
    if (!Open_Connection(true)) return zlxDBConstantsErrorGrave;
    step([&] {
        CreateDefault(QStringLiteral("DEFAULT_CHAR"), QStringLiteral("''"));
        CreateDefault(QStringLiteral("DEFAULT_NUMERIC"), QStringLiteral("0"));
        CreateDefault(QStringLiteral("DEFAULT_DATE"), QStringLiteral("'17530101'"));
    });
    return result;
}

void cBaseDatos::CreateDefault(const QString& cName, const QString& cValor) {
    Run("CREATE DEFAULT " + cName + " AS " + cValor);
}

int cBaseDatos::Delete_Database(const QString& cDB) {
    const QString title = ErrorTitle("Delete_Database");
    if (!cDB.isEmpty()) m_database = cDB;
    int result = zlxDBConstantsNoError;
    try {
        if (IsJet()) {
            if (QFileInfo::exists(m_pathAndFile)) {
                Close_Connection(); // the file is held open by the connection
                QFile::remove(m_pathAndFile);
            } else {
                result = zlxDBConstantsErrorGrave;
            }
        } else if (IsServer()) {
            if (!m_cn) Open_Connection(false);
            if (m_cn && m_cn->cn()) m_cn->cn()->DefaultDatabase(QStringLiteral("master"));
            Run("DROP DATABASE " + m_database);
        } else {
            ShowMessage(QStringLiteral("Este proveedor (%1) no puede borrar Bases de Datos")
                            .arg(m_provider == zlxDataProvider_FOX ? "FOX" : "EXCEL"),
                        title);
            result = zlxDBConstantsNoSoporte;
        }
    } catch (const ado::AdoError& error) {
        result = error.Number() == kErrNoSuchDatabase ? zlxDBConstantsNoExisteDB
                                                      : zlxDBConstantsErrorGrave;
    }
    Close_Connection();
    return result;
}

} // namespace zlx
