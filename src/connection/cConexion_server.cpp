#include "connection/SqlText.h"
#include "connection/cConexion.h"

#include <QDir>
#include <QFileInfo>

namespace zlx {

namespace {

const QString kCr = QStringLiteral("\r");

QString ParentFolder(const QString& path) {
    const qsizetype cut = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return cut < 0 ? QString() : path.left(cut);
}

} // namespace

ado::SqlDialect cConexion::ServerEngine() const {
    if (m_server.startsWith(QStringLiteral("sqlite:"), Qt::CaseInsensitive))
        return ado::SqlDialect::SQLite;
    if (m_server.startsWith(QStringLiteral("postgres:"), Qt::CaseInsensitive))
        return ado::SqlDialect::PostgreSQL;
    return ado::SqlDialect::SqlServer;
}

cMatrizPtr cConexion::ServerRegRead(const QString& cHKEY, const QString& cKeyPath,
                                    const QString& cKeyName) {
    Failure failure;
    if (ServerEngine() != ado::SqlDialect::SqlServer) {
        failure = {ado::adErrFeatureNotAvailable,
                   QStringLiteral("Este servidor de datos no tiene un registro que leer.")};
    } else {
        try {
            const ado::RecordsetPtr rs = RunQuery(
                QStringLiteral("xp_regread N'%1',N'%2',N'%3'").arg(cHKEY, cKeyPath, cKeyName));
            if (!rs || rs->State() != ado::adStateOpen) return nullptr;
            auto matrix = std::make_shared<cMatriz>();
            try {
                matrix->LoadFromArray(rs->GetRows());
            } catch (const std::exception&) {
                // a registry value that cannot be read leaves the matrix as it is
            }
            return matrix;
        } catch (const ado::AdoError& e) {
            failure = {e.Number(), e.Description()};
        }
    }
    ShowConexionError(zlxConexionError_RegReadFailed, failure,
                      QStringLiteral("Excepción Nº %1").arg(failure.number) + kCr +
                          QStringLiteral("Descripción: ") + failure.description);
    return nullptr;
}

QString cConexion::RegistryPathForData(const QString& cSQLSrvInstance) {
    const Currency version = GetSQLVersion();
    QString key, valueName;
    if (version.scaled >= 100000) {
        QString cVer = Variant(version).ToInvariantString().replace(u'.', u'_');
        if (cVer.size() >= 2 && cVer[cVer.size() - 2] == u'_') cVer += u'0';
        key = QStringLiteral("Software\\Microsoft\\Microsoft SQL Server\\MSSQL") + cVer +
              (cSQLSrvInstance.isEmpty() ? QStringLiteral(".MSSQLServer\\Setup")
                                         : u'.' + cSQLSrvInstance + QStringLiteral("\\Setup"));
        valueName = QStringLiteral("SQLDataRoot");
    } else {
        key = cSQLSrvInstance.isEmpty()
                  ? QStringLiteral("Software\\Microsoft\\MSSQLServer\\MSSQLServer")
                  : QStringLiteral("Software\\Microsoft\\Microsoft SQL Server\\") +
                        cSQLSrvInstance + QStringLiteral("\\MSSQLServer");
        valueName = QStringLiteral("DefaultData");
    }
    const QString database = DBName();
    DBName(QStringLiteral("master"));
    const cMatrizPtr matrix = ServerRegRead(QStringLiteral("HKEY_LOCAL_MACHINE"), key, valueName);
    DBName(database);
    QString path;
    if (matrix && matrix->LastCol() >= 1 && matrix->LastRow() >= 0) {
        const Variant cell = matrix->GetValue(1, 0);
        path = cell.IsNull() ? QString() : cell.ToString();
    }
    if (!path.isEmpty() && version.scaled >= 100000) path += QStringLiteral("\\Data");
    return path;
}

// The embedded server keeps its databases in the server folder; PostgreSQL in its data
// directory when this user may read the setting.
QString cConexion::EngineDataFolder() {
    if (ServerEngine() == ado::SqlDialect::SQLite)
        return QDir(m_server.mid(m_server.indexOf(u':') + 1)).absolutePath();
    return Execute(QStringLiteral("SHOW data_directory"), zlxExecuteReturn_Value,
                   Variant(QString()), true)
        .ToString();
}

QString cConexion::GetSQLDefaultPathForData(const QString& cSQLSrvInstance) {
    if (!IsServer() || !m_cn) return {};
    const bool sqlServer = ServerEngine() == ado::SqlDialect::SqlServer;
    QString path = sqlServer ? RegistryPathForData(cSQLSrvInstance) : EngineDataFolder();
    if (path.isEmpty())
        path = ParentFolder(Execute(QStringLiteral("SELECT filename FROM master..sysdatabases "
                                                   "WHERE name='master'"),
                                    zlxExecuteReturn_Value, Variant(QString()))
                                .ToString());
    const QChar separator = sqlServer ? u'\\' : u'/';
    if (!path.endsWith(separator)) path += separator;
    return path;
}

bool cConexion::AddLinkedServer(const QString& cServer, const QString& cTipoServidor,
                                const QString& cUsr, const QString& cPsw) {
    m_lastNativeError = 0;
    if (ServerEngine() != ado::SqlDialect::SqlServer) {
        m_lastErrorDescription = QStringLiteral("Este servidor de datos no admite servidores "
                                                "vinculados.");
        return false;
    }
    Execute(QStringLiteral("master.dbo.sp_addlinkedserver [") + cServer + QStringLiteral("],") +
                SqlText::PonComillas(cTipoServidor),
            zlxExecuteReturn_Nothing_NoRowCount, Variant(0), true);
    if (GetLastError() != 0 && m_lastNativeError != 15028) return false;
    Execute(QStringLiteral("master.dbo.sp_addlinkedsrvlogin [") + cServer +
                QStringLiteral("], 'false', NULL, ") + SqlText::PonComillas(cUsr) + u',' +
                SqlText::PonComillas(cPsw),
            zlxExecuteReturn_Nothing_NoRowCount);
    return GetLastError() == 0;
}

bool cConexion::DropLinkedServer(const QString& cServer, bool lBorrarLogins) {
    m_lastNativeError = 0;
    if (ServerEngine() != ado::SqlDialect::SqlServer) {
        m_lastErrorDescription = QStringLiteral("Este servidor de datos no admite servidores "
                                                "vinculados.");
        return false;
    }
    Execute(QStringLiteral("master.dbo.sp_dropserver [") + cServer + u']' +
                (lBorrarLogins ? QStringLiteral(", 'droplogins'") : QString()),
            zlxExecuteReturn_Nothing_NoRowCount, Variant(0), true);
    return GetLastError() == 0 || m_lastNativeError == 15015;
}

} // namespace zlx
