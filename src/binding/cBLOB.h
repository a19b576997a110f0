#pragma once
// Named binary objects kept in a table (ZolmarID, tipo, nombre, contenido), possibly in another
// database of the same server: report definitions and stored-procedure texts stored as
// Windows-1252 bytes and returned as strings, files stored and returned as bytes.

#include "connection/cConexion.h"

namespace zlx {

enum zlxBLOBTypeConstants {
    zlxBLOBTypeAny = 0,
    zlxBLOBTypeReport = 1,
    zlxBLOBTypeStoredProc = 2,
    zlxBLOBTypeFile = 3
};

class cBLOB : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cBLOB"); }

    // True when both names are given and there is a connection.
    bool Init(cConexionPtr oExistingCn, const QString& cDataBase,
              const QString& cTableName = QStringLiteral("BLOBs"));
    // The content: a string for the text types, a Byte array otherwise; "" when not found.
    Variant Value(int nTipo, const QString& cNombre);
    // Writes the content, adding the row when the object does not exist yet.
    void Value(int nTipo, const QString& cNombre, const Variant& xContenido);
    // The rows deleted.
    std::int32_t Delete(int nTipo, const QString& cNombre);

    // "database..table"
    QString QualifiedTable() const { return m_table; }

private:
    QString Selection(int nTipo, const QString& cNombre) const;
    std::int32_t FindOrAdd(int nTipo, const QString& cNombre);
    static bool IsText(int nTipo) {
        return nTipo == zlxBLOBTypeReport || nTipo == zlxBLOBTypeStoredProc;
    }

    cConexionPtr m_cn;
    QString m_table;
};

using cBLOBPtr = std::shared_ptr<cBLOB>;

} // namespace zlx
