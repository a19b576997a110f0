#include "schema/DdlText.h"

#include "connection/SqlConstants.h"
#include "connection/SqlText.h"
#include "connection/TypeMapping.h"

namespace zlx::DdlText {
namespace {

QString Sized(const char* name, std::int32_t n) {
    return QString::fromLatin1(name) + u'(' + QString::number(n) + u')';
}

QString JetOrServerType(int nProvider, int nTipo, std::int32_t n, std::int32_t d) {
    const bool jet = nProvider == zlxDataProvider_JET40;
    switch (nTipo) {
    case zlxTblColumnTypeI1:
        return QStringLiteral("TINYINT");
    case zlxTblColumnTypeI2:
        return QStringLiteral("SMALLINT");
    case zlxTblColumnTypeI4:
    case zlxTblColumnTypeI8:
        return QStringLiteral("INTEGER");
    case zlxTblColumnTypeSingle:
        return jet ? QStringLiteral("FLOAT4") : QStringLiteral("REAL");
    case zlxTblColumnTypeDouble:
        return jet ? QStringLiteral("FLOAT8") : QStringLiteral("FLOAT");
    case zlxTblColumnTypeChar:
        return jet && n >= 256 ? QStringLiteral("TEXT") : Sized("VARCHAR", n);
    case zlxTblColumnTypeCharFixed:
        return Sized("CHAR", n);
    case zlxTblColumnTypeMemo:
        return QStringLiteral("TEXT");
    case zlxTblColumnTypeDate:
    case zlxTblColumnTypeDateTime:
        return QStringLiteral("DATETIME");
    case zlxTblColumnTypeTime:
        return QStringLiteral("TIME");
    case zlxTblColumnTypeImage:
        return QStringLiteral("IMAGE");
    case zlxTblColumnTypeCurrency:
        return QStringLiteral("MONEY");
    case zlxTblColumnTypeDecimal:
        return QStringLiteral("DECIMAL(%1,%2)").arg(n).arg(d);
    default:
        return QString();
    }
}

QString FoxProType(int nTipo, std::int32_t n, std::int32_t d) {
    switch (nTipo) {
    case zlxTblColumnTypeI1:
    case zlxTblColumnTypeI2:
    case zlxTblColumnTypeI4:
    case zlxTblColumnTypeI8:
        return Sized("N", n);
    case zlxTblColumnTypeSingle:
    case zlxTblColumnTypeDouble:
    case zlxTblColumnTypeCurrency:
    case zlxTblColumnTypeDecimal:
        return d == 0 ? Sized("N", n) : QStringLiteral("N(%1,%2)").arg(n).arg(d);
    case zlxTblColumnTypeChar:
        return Sized("C", n);
    case zlxTblColumnTypeMemo:
    case zlxTblColumnTypeImage:
        return QStringLiteral("M");
    case zlxTblColumnTypeDate:
        return QStringLiteral("D");
    case zlxTblColumnTypeDateTime:
        return QStringLiteral("T");
    default:
        return QString();
    }
}

} // namespace

bool IsNoDefault(const Variant& xDefault) {
    return xDefault.VarType() == vbString && xDefault.ToString() == kNoDefault;
}

QString ColumnType(int nProvider, int nTipo, std::int32_t nSize, std::int32_t nDec) {
    return nProvider == zlxDataProvider_FOX ? FoxProType(nTipo, nSize, nDec)
                                            : JetOrServerType(nProvider, nTipo, nSize, nDec);
}

QString DefaultLiteral(int nTipo, const Variant& xDefault) {
    if (!IsNoDefault(xDefault)) return u'\'' + xDefault.ToString() + u'\'';
    switch (nTipo) {
    case zlxTblColumnTypeI1:
    case zlxTblColumnTypeI2:
    case zlxTblColumnTypeI4:
    case zlxTblColumnTypeI8:
    case zlxTblColumnTypeSingle:
    case zlxTblColumnTypeDouble:
    case zlxTblColumnTypeCurrency:
    case zlxTblColumnTypeDecimal:
        return QStringLiteral("0");
    case zlxTblColumnTypeChar:
    case zlxTblColumnTypeMemo:
    case zlxTblColumnTypeTime:
        return QStringLiteral("''");
    case zlxTblColumnTypeDate:
    case zlxTblColumnTypeDateTime:
        return QStringLiteral("0");
    default:
        return QString();
    }
}

QString CreateDatabase(const QString& cDatabase, const QString& cPath, const QString& cPathAndFile,
                       const QString& cSize) {
    QString sql = "IF NOT EXISTS (SELECT name FROM sysdatabases WHERE name = '" + cDatabase + "')" +
                  " CREATE DATABASE " + cDatabase;
    if (!cPath.isEmpty())
        sql += " ON (NAME= " + cDatabase + ", FILENAME= '" + cPathAndFile + "'" +
               ", SIZE=" + cSize + ")" + " COLLATE Modern_Spanish_CI_AI";
    return sql;
}

QString AlterDatabase(const QString& cDatabase) {
    return "ALTER DATABASE " + cDatabase + " SET" + " AUTO_CLOSE OFF," +
           " AUTO_CREATE_STATISTICS OFF," + " AUTO_SHRINK ON," + " AUTO_UPDATE_STATISTICS OFF," +
           " RECOVERY SIMPLE";
}

QString CreateTable(int nProvider, const QString& cTable) {
    switch (nProvider) {
    case zlxDataProvider_JET40:
        return "CREATE TABLE " + cTable + " (zolmarID AUTOINCREMENT CONSTRAINT " + cTable +
               "_PKEY_" + "zolmarID PRIMARY KEY)";
    case zlxDataProvider_MSDE:
        return "CREATE TABLE " + cTable + " (zolmarID INT NOT NULL IDENTITY(1,1))";
    case zlxDataProvider_FOX:
        return "CREATE TABLE " + cTable + " (zolmarID N(10) UNIQUE)";
    default:
        return QString();
    }
}

bool IsIdentity(const QString& cCampo) {
    return cCampo.compare(QStringLiteral("ZolmarID"), Qt::CaseInsensitive) == 0;
}

QString PrimaryKeyName(const QString& cTable, const QString& cColumn) {
    return cTable + "_PKEY_" + cColumn;
}

QString AddColumn(int nProvider, const QString& cTable, const QString& cCampo, int nTipo,
                  std::int32_t nSize, std::int32_t nDec, const Variant& xDefault) {
    QString sql = "ALTER TABLE " + cTable + " ADD " + cCampo + " " +
                  ColumnType(nProvider, nTipo, nSize, nDec);
    if (nProvider == zlxDataProvider_FOX) return sql;
    if (nProvider == zlxDataProvider_MSDE && IsNoDefault(xDefault)) return sql;
    // A type without a default of its own (CharFixed, Image) is added without the clause.
    const QString literal = DefaultLiteral(nTipo, xDefault);
    return literal.isEmpty() ? sql : sql + " NOT NULL DEFAULT " + literal;
}

QString AlterColumn(int nProvider, const QString& cTable, const QString& cCampo, int nTipo,
                    std::int32_t nSize, std::int32_t nDec) {
    return "ALTER TABLE " + cTable + " ALTER COLUMN " + cCampo + " " +
           ColumnType(nProvider, nTipo, nSize, nDec);
}

QString DropColumn(const QString& cTable, const QString& cCampo) {
    return "ALTER TABLE " + cTable + " DROP COLUMN " + cCampo;
}

QString RenameColumn(const QString& cTable, const QString& cCampoOld, const QString& cCampo) {
    return "sp_rename '" + cTable + ".[" + cCampoOld + "]', '" + cCampo + "', 'COLUMN'";
}

QString DefaultObject(int nTipo) {
    switch (TypeMapping::ZlxToDisplay(nTipo)) {
    case zlxDisplayNumber:
        return QStringLiteral("DEFAULT_NUMERIC");
    case zlxDisplayDate:
        return QStringLiteral("DEFAULT_DATE");
    default:
        return QStringLiteral("DEFAULT_CHAR");
    }
}

// The stored procedures as ADO calls them when they are methods of the connection.
QString BindDefault(const QString& cObject, const QString& cTable, const QString& cCampo) {
    return "EXEC sp_bindefault " + SqlText::PonComillas(cObject) + ", " +
           SqlText::PonComillas(cTable + "." + cCampo);
}

QString UnbindDefault(const QString& cTable, const QString& cCampo) {
    return "EXEC sp_unbindefault " + SqlText::PonComillas(cTable + "." + cCampo);
}

QString UpdateDefaults(const QString& cTable, const QString& cAssignments, std::int64_t n) {
    return "UPDATE " + cTable + " SET " + cAssignments.mid(1) + " WHERE (ZolmarID BETWEEN " +
           QString::number(n - 49999) + " AND " + QString::number(n) + ")";
}

QString CreateIndex(const QString& cTable, const QString& cIndice, const QString& cExpresion) {
    return "CREATE INDEX " + cIndice + " ON " + cTable + "(" + cExpresion + ")";
}

QString AddPrimaryKey(const QString& cTable, const QString& cExpresion) {
    return "ALTER TABLE " + cTable + " ADD CONSTRAINT " + PrimaryKeyName(cTable, cExpresion) +
           " PRIMARY KEY NONCLUSTERED (zolmarID) ON [PRIMARY]";
}

QString IndexesRowset(const QString& cTable, const QString& cIndice) {
    return "EXEC sp_indexes_rowset " + SqlText::PonComillas(cTable) + "," +
           SqlText::PonComillas(cIndice);
}

QString DropIndex(const QString& cTable, const QString& cIndice) {
    if (cIndice.toUpper().contains(QStringLiteral("_PKEY_ZOLMARID")))
        return "ALTER TABLE " + cTable + " DROP CONSTRAINT " + cIndice;
    return "DROP INDEX " + cTable + "." + cIndice;
}

QString Reindex(const QString& cDatabase, const QString& cTable) {
    return "DBCC DBREINDEX ('" + cDatabase + ".dbo." + cTable + "')";
}

QString Shrink(const QString& cDatabase) {
    return "DBCC SHRINKDATABASE ('" + cDatabase + "')";
}

} // namespace zlx::DdlText
