#pragma once
// Schema management: creates and changes an application database (the database, tables with
// the identity column ZolmarID, columns with their defaults, indexes) writing the definition
// statements of each provider itself, inspects tables and columns, compacts and re-indexes,
// and creates or completes the library's base tables diccionario, idioma and locks.

#include "connection/cConexion.h"
#include "platform/ado/Catalog.h"
#include "platform/companion/cMsgBox.h"
#include "schema/SchemaConstants.h"

namespace zlx {

class cBaseDatos : public Object {
public:
    cBaseDatos();
    ~cBaseDatos() override;
    QString TypeName() const override { return QStringLiteral("cBaseDatos"); }

    // Public variables
    cConexionPtr oCn() const { return m_cn; }
    void oCn(cConexionPtr value) { m_cn = std::move(value); }

    // Properties
    int Provider() const { return m_provider; }
    void Provider(int value) { m_provider = value; }
    QString Server() const { return m_server; }
    void Server(const QString& value) { m_server = value; }
    QString User() const { return m_user; }
    void User(const QString& value) { m_user = value; }
    QString Password() const { return m_password; }
    void Password(const QString& value) { m_password = value; }
    QString Database_Size() const { return m_databaseSize; }
    void Database_Size(const QString& value) { m_databaseSize = value; }
    QString Path() const { return m_path; }
    void Path(const QString& value);
    QString Database() const { return m_database; }
    void Database(const QString& value);
    QString Table() const { return m_table; }
    void Table(const QString& value) { m_table = value; }
    QString PathAndFile() const { return m_pathAndFile; }
    void PathAndFile(const QString& value);

    // Connection
    void InitFromExistingConnection(const cConexionPtr& oExisting, const QString& cDB = {});
    void Init_Connection(int nProveedor = -1, const QString& cRutaMasFichero = {},
                         const QString& cTabla = {}, const QString& cUsuario = {},
                         const QString& cClave = {}, const QString& cServidor = {});
    bool Open_Connection(bool lDefaultDatabase = true);
    void Close_Connection();

    // Definitions (zlxDBConstants results)
    int Create_Database(const QString& cDB = {});
    void CreateDefault(const QString& cName, const QString& cValor);
    int Delete_Database(const QString& cDB = {});
    int Create_Table(const QString& cTabla = {}, bool lCreateIndex = true);
    int Delete_Table(const QString& cTabla = {});
    int Create_Column(const QString& cCampo, int nTipo, std::int32_t nSize = 0,
                      std::int32_t nDec = 0, const Variant& xDefault = Variant("NO DEFAULT"),
                      bool lIndex = false, bool lUpdateDefaults = true);
    int Create_Column_UpdateDefaults();
    int Create_Index(const QString& cIndice, int nTipo = zlxIndexTypeYes,
                     const QString& cExpresion = {}, bool lBorrar = false);
    int Delete_Index(const QString& cIndice);
    int Delete_Column(const QString& cCampo);
    bool Rename_Column(const QString& cCampo, const QString& cCampoOld);

    // Inspection
    int ChkCampo(const QString& cCampo, int nTipo = zlxTblColumnTypeNone, std::int32_t nSize = 0,
                 std::int32_t nDec = 0);
    bool ExisteDatabase(const Variant& cDataBase);
    bool ExisteIndice(const Variant& cIndice, bool lDelete = false);
    bool ExisteTabla(const QString& cTabla);
    // (1 to columns, 1 to 6): name, zlxTblColumnType, ADO type, defined size, precision,
    // numeric scale; Empty without a table.
    Variant GetTableStructure();

    // Maintenance
    bool Reindex();
    void Pack(bool lReindex = false, const QString& cDBFile = {});
    bool ChkTablasBase(bool lDiccionario = true, bool lIdioma = true, bool lLocks = true);

private:
    bool IsServer() const { return m_provider == zlxDataProvider_MSDE; }
    bool IsJet() const { return m_provider == zlxDataProvider_JET40; }
    std::int32_t ShowMessage(const QString& cText, const QString& cTitle = {});
    // The connection's ADO connection; 3704 when there is none.
    ado::Connection& Cn() const;
    // Runs a statement on the connection's ADO connection; failures are raised.
    void Run(const QString& cSQL);
    std::vector<std::vector<Variant>> Query(const QString& cSQL);
    ado::Catalog OpenCatalog() const;
    // Reports a failure through the connection's error messages.
    void ReportError();

    // The raising forms of the inspections, for the operations that report failures.
    int ColumnState(const QString& cCampo, int nTipo, std::int32_t nSize, std::int32_t nDec);
    int ServerColumnState(const QString& cCampo, int nTipo, std::int32_t nSize);
    int CatalogColumnState(const QString& cCampo, int nTipo, std::int32_t nSize, std::int32_t nDec);
    bool TableExists(const QString& cTabla);
    bool IndexExists(const QString& cIndice, bool lDelete);
    int ColumnCount();

    int AddOrAlterColumn(const QString& cCampo, int nTipo, std::int32_t nSize, std::int32_t nDec,
                         const Variant& xDefault, bool lIndex, bool lUpdateDefaults);
    int AddServerColumn(const QString& cCampo, int nTipo, int state, const QString& cSQL,
                        bool lIndex, bool lUpdateDefaults);
    void RememberNewColumn(const QString& cCampo);
    void AppendCatalogIndex(const QString& cIndice, int nTipo, const QString& cExpresion);
    void PackJet();
    void PackServer(bool lReindex, const QString& cDBFile);

    cConexionPtr m_cn;
    cMsgBoxPtr m_msgBox;
    QString m_server, m_user, m_password;
    int m_provider = zlxDataProvider_MSDE;
    QString m_pathAndFile, m_path, m_database, m_table;
    QString m_databaseSize = QStringLiteral("10 MB");
    QString m_pendingDefaults;
    std::int32_t m_highestId = 0;
};

using cBaseDatosPtr = std::shared_ptr<cBaseDatos>;

} // namespace zlx
