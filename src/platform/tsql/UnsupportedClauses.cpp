#include "platform/tsql/UnsupportedClauses.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"

#include <QSet>

namespace zlx::tsql {
namespace {

// SQL Server's built-in functions that the layer does not write: an engine would answer 195,
// or, where it has a function of the name (TRANSLATE, JSON_VALUE on newer engines), its own
// answer.
bool IsUnwrittenFunction(const QString& name) {
    static const QSet<QString> names = {
        // aggregates and analytics
        u"APPROX_COUNT_DISTINCT"_qs, u"CHECKSUM_AGG"_qs, u"GROUPING_ID"_qs, u"PERCENTILE_CONT"_qs,
        u"PERCENTILE_DISC"_qs,
        // conversions, hashing and encryption
        u"PARSE"_qs, u"TRY_PARSE"_qs, u"HASHBYTES"_qs, u"CHECKSUM"_qs, u"BINARY_CHECKSUM"_qs,
        u"COMPRESS"_qs, u"DECOMPRESS"_qs, u"CRYPT_GEN_RANDOM"_qs, u"ENCRYPTBYKEY"_qs,
        u"DECRYPTBYKEY"_qs, u"ENCRYPTBYPASSPHRASE"_qs, u"DECRYPTBYPASSPHRASE"_qs,
        u"ENCRYPTBYCERT"_qs, u"DECRYPTBYCERT"_qs, u"ENCRYPTBYASYMKEY"_qs, u"DECRYPTBYASYMKEY"_qs,
        u"SIGNBYCERT"_qs, u"VERIFYSIGNEDBYCERT"_qs, u"PWDCOMPARE"_qs, u"PWDENCRYPT"_qs,
        // dates
        u"DATEDIFF_BIG"_qs, u"DATETIME2FROMPARTS"_qs, u"DATETIMEFROMPARTS"_qs,
        u"SMALLDATETIMEFROMPARTS"_qs, u"TIMEFROMPARTS"_qs, u"DATETIMEOFFSETFROMPARTS"_qs,
        u"SWITCHOFFSET"_qs, u"SYSDATETIMEOFFSET"_qs, u"SYSUTCDATETIME"_qs, u"TODATETIMEOFFSET"_qs,
        // texts, numbers and JSON
        u"TRANSLATE"_qs, u"STRING_ESCAPE"_qs, u"STRING_SPLIT"_qs, u"FORMATMESSAGE"_qs, u"COT"_qs,
        u"ISJSON"_qs, u"JSON_VALUE"_qs, u"JSON_QUERY"_qs, u"JSON_MODIFY"_qs, u"OPENJSON"_qs,
        u"OPENROWSET"_qs, u"OPENQUERY"_qs, u"OPENDATASOURCE"_qs, u"OPENXML"_qs, u"CONTAINS"_qs,
        u"FREETEXT"_qs, u"CONTAINSTABLE"_qs, u"FREETEXTTABLE"_qs,
        // metadata, security and the server
        u"APPLOCK_MODE"_qs, u"APPLOCK_TEST"_qs, u"ASSEMBLYPROPERTY"_qs, u"COL_NAME"_qs,
        u"CURSOR_STATUS"_qs, u"DATABASE_PRINCIPAL_ID"_qs, u"DATABASEPROPERTYEX"_qs, u"DB_ID"_qs,
        u"FILE_ID"_qs, u"FILE_IDEX"_qs, u"FILE_NAME"_qs, u"FILEGROUP_ID"_qs, u"FILEGROUP_NAME"_qs,
        u"FILEGROUPPROPERTY"_qs, u"FILEPROPERTY"_qs, u"FULLTEXTCATALOGPROPERTY"_qs,
        u"FULLTEXTSERVICEPROPERTY"_qs, u"INDEX_COL"_qs, u"INDEXKEY_PROPERTY"_qs,
        u"INDEXPROPERTY"_qs, u"OBJECT_DEFINITION"_qs, u"OBJECT_SCHEMA_NAME"_qs,
        u"OBJECTPROPERTY"_qs, u"OBJECTPROPERTYEX"_qs, u"ORIGINAL_DB_NAME"_qs, u"PARSENAME"_qs,
        u"SCHEMA_ID"_qs, u"SCHEMA_NAME"_qs, u"STATS_DATE"_qs, u"TYPE_ID"_qs, u"TYPE_NAME"_qs,
        u"TYPEPROPERTY"_qs, u"SQL_VARIANT_PROPERTY"_qs, u"HAS_PERMS_BY_NAME"_qs, u"HAS_DBACCESS"_qs,
        u"IS_MEMBER"_qs, u"IS_ROLEMEMBER"_qs, u"IS_SRVROLEMEMBER"_qs, u"ORIGINAL_LOGIN"_qs,
        u"PERMISSIONS"_qs, u"SUSER_ID"_qs, u"SUSER_SID"_qs, u"USER_ID"_qs, u"CERT_ID"_qs,
        u"CERTPROPERTY"_qs, u"KEY_ID"_qs, u"KEY_GUID"_qs, u"CONNECTIONPROPERTY"_qs,
        u"CONTEXT_INFO"_qs, u"CURRENT_REQUEST_ID"_qs, u"CURRENT_TRANSACTION_ID"_qs,
        u"GETANSINULL"_qs, u"HOST_ID"_qs, u"MIN_ACTIVE_ROWVERSION"_qs, u"NEWSEQUENTIALID"_qs,
        u"ROWCOUNT_BIG"_qs, u"SESSION_CONTEXT"_qs, u"SESSIONPROPERTY"_qs, u"TEXTPTR"_qs,
        u"TEXTVALID"_qs, u"TRIGGER_NESTLEVEL"_qs, u"COLUMNS_UPDATED"_qs, u"EVENTDATA"_qs,
        u"GET_FILESTREAM_TRANSACTION_CONTEXT"_qs};
    return names.contains(name.toUpper());
}

} // namespace

void UnsupportedClauses::Check() const {
    for (size_t i = 0; i < m_t.size(); ++i) {
        QString clause = ClauseAt(i);
        if (clause.isEmpty()) clause = EngineClauseAt(i);
        if (!clause.isEmpty()) ThrowUnsupported(clause);
    }
}

QString UnsupportedClauses::ClauseAt(size_t i) const {
    const Token& token = m_t[i];
    if (token.kind != TokenKind::Word) return {};
    if (i == 0 && token.IsWord(u"MERGE")) return QStringLiteral("MERGE");
    if (token.IsWord(u"OUTPUT") &&
        (m_t.WordAt(i + 1, u"INSERTED") || m_t.WordAt(i + 1, u"DELETED")))
        return QStringLiteral("OUTPUT");
    if ((token.IsWord(u"PIVOT") || token.IsWord(u"UNPIVOT")) && m_t.SymbolAt(i + 1, u"("))
        return token.text.toUpper();
    if ((token.IsWord(u"CROSS") || token.IsWord(u"OUTER")) && m_t.WordAt(i + 1, u"APPLY"))
        return token.text.toUpper() + QStringLiteral(" APPLY");
    if (token.IsWord(u"FOR") &&
        (m_t.WordAt(i + 1, u"XML") || m_t.WordAt(i + 1, u"JSON") || m_t.WordAt(i + 1, u"BROWSE")))
        return QStringLiteral("FOR ") + m_t[i + 1].text.toUpper();
    if (token.IsWord(u"WITH") && (m_t.WordAt(i + 1, u"ROLLUP") || m_t.WordAt(i + 1, u"CUBE")))
        return QStringLiteral("WITH ") + m_t[i + 1].text.toUpper();
    // A name after a dot is some schema's own function, not a built-in one.
    if (m_t.SymbolAt(i + 1, u"(") && !m_t.SymbolAt(i - 1, u".") && IsUnwrittenFunction(token.text))
        return token.text.toUpper();
    return {};
}

QString UnsupportedClauses::EngineClauseAt(size_t i) const {
    const Token& token = m_t[i];
    if (token.kind != TokenKind::Word) return {};
    const bool call = m_t.SymbolAt(i + 1, u"(");
    QString clause;
    if (call && (token.IsWord(u"ROLLUP") || token.IsWord(u"CUBE") || token.IsWord(u"GROUPING")))
        clause = token.text.toUpper();
    else if (token.IsWord(u"GROUPING") && m_t.WordAt(i + 1, u"SETS"))
        clause = QStringLiteral("GROUPING SETS");
    else if (call && m_t.IsComparison(i - 1) &&
             (token.IsWord(u"ALL") || token.IsWord(u"ANY") || token.IsWord(u"SOME")))
        clause = token.text.toUpper();
    return !clause.isEmpty() && m_dialect.LacksClause(clause) ? clause : QString();
}

} // namespace zlx::tsql
