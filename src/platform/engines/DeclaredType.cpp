#include "platform/engines/DeclaredType.h"

#include <QHash>
#include <QRegularExpression>

namespace zlx::ado {

namespace {

constexpr std::int32_t kLongTextSize = 1073741823;
constexpr std::int32_t kLongBinarySize = 2147483647;

struct TypeText {
    QString base; // upper case, without arguments
    int first = -1;
    int second = -1;
};

TypeText ReadTypeText(const QString& declared) {
    static const QRegularExpression pattern(
        QStringLiteral(R"(^\s*([A-Za-z_ ]+?)\s*(?:\(\s*(\d+|max)\s*(?:,\s*(\d+)\s*)?\))?\s*$)"),
        QRegularExpression::CaseInsensitiveOption);
    TypeText text;
    const auto match = pattern.match(declared);
    if (!match.hasMatch()) {
        text.base = declared.trimmed().toUpper();
        return text;
    }
    text.base = match.captured(1).toUpper().simplified();
    if (match.hasCaptured(2))
        text.first = match.captured(2).compare(QStringLiteral("max"), Qt::CaseInsensitive) == 0
                         ? -2
                         : match.captured(2).toInt();
    if (match.hasCaptured(3)) text.second = match.captured(3).toInt();
    return text;
}

// Every statement describes its columns: a declared type is read once per thread.
TypeText Split(const QString& declared) {
    constexpr qsizetype kMostRemembered = 256;
    thread_local QHash<QString, TypeText> known;
    const auto found = known.constFind(declared);
    if (found != known.constEnd()) return *found;
    if (known.size() >= kMostRemembered) known.clear();
    return *known.insert(declared, ReadTypeText(declared));
}

void Set(ColumnInfo& column, DataTypeEnum type, std::int32_t size, int precision = 255,
         int scale = 255) {
    column.type = type;
    column.definedSize = size;
    column.precision = static_cast<std::uint8_t>(precision);
    column.numericScale = static_cast<std::uint8_t>(scale);
    column.attributes &= ~(adFldFixed | adFldLong);
    const bool variable = type == adVarWChar || type == adVarBinary || type == adLongVarWChar ||
                          type == adLongVarBinary || type == adVarChar;
    if (!variable) column.attributes |= adFldFixed;
    if (type == adLongVarWChar || type == adLongVarBinary) column.attributes |= adFldLong;
}

void SetText(ColumnInfo& column, const TypeText& text, bool fixed) {
    if (text.first == -2 || (text.first < 0 && !fixed))
        Set(column, adLongVarWChar, kLongTextSize);
    else
        Set(column, fixed ? adWChar : adVarWChar, text.first < 0 ? 1 : text.first);
}

void SetBinary(ColumnInfo& column, const TypeText& text, bool fixed) {
    if (text.first == -2 || (text.first < 0 && !fixed))
        Set(column, adLongVarBinary, kLongBinarySize);
    else
        Set(column, fixed ? adBinary : adVarBinary, text.first < 0 ? 1 : text.first);
}

} // namespace

void ApplyValueKind(DataTypeEnum type, ColumnInfo& column) {
    switch (type) {
    case adInteger:
        Set(column, adInteger, 4, 10);
        break;
    case adBigInt:
        Set(column, adBigInt, 8, 19);
        break;
    case adDouble:
        Set(column, adDouble, 8, 15);
        break;
    case adLongVarBinary:
        Set(column, adLongVarBinary, kLongBinarySize);
        break;
    default:
        Set(column, adVarWChar, 4000);
        break;
    }
}

bool ApplyDeclaredType(const QString& declared, ColumnInfo& column) {
    const TypeText text = Split(declared);
    const QString& b = text.base;
    if (b.isEmpty()) return false;
    if (b == "BIT" || b == "BOOLEAN" || b == "BOOL")
        Set(column, adBoolean, 2);
    else if (b == "TINYINT")
        Set(column, adUnsignedTinyInt, 1, 3);
    else if (b == "SMALLINT")
        Set(column, adSmallInt, 2, 5);
    else if (b == "BIGINT")
        Set(column, adBigInt, 8, 19);
    else if (b.contains("INT"))
        Set(column, adInteger, 4, 10);
    else if (b == "REAL")
        Set(column, adSingle, 4, 7);
    else if (b.startsWith("FLOAT") || b.startsWith("DOUBLE"))
        Set(column, adDouble, 8, 15);
    else if (b == "MONEY")
        Set(column, adCurrency, 8, 19);
    else if (b == "SMALLMONEY")
        Set(column, adCurrency, 8, 10);
    else if (b == "DECIMAL" || b == "NUMERIC")
        Set(column, adNumeric, 19, text.first < 0 ? 18 : text.first,
            text.second < 0 ? 0 : text.second);
    else if (b == "DATETIME" || b == "SMALLDATETIME" || b == "TIMESTAMP" || b == "DATETIME2")
        Set(column, adDBTimeStamp, 16, b == "SMALLDATETIME" ? 16 : 23, 3);
    else if (b == "DATE")
        Set(column, adDBDate, 6, 10, 0);
    else if (b == "TIME")
        Set(column, adDBTime, 6, 8, 0);
    else if (b == "UNIQUEIDENTIFIER")
        Set(column, adGUID, 16);
    else if (b == "CHAR" || b == "NCHAR" || b == "CHARACTER")
        SetText(column, text, true);
    else if (b.contains("CHAR") || b == "STRING")
        SetText(column, text, false);
    else if (b == "TEXT" || b == "NTEXT" || b == "CLOB" || b == "MEMO")
        Set(column, adLongVarWChar, kLongTextSize);
    else if (b == "BINARY")
        SetBinary(column, text, true);
    else if (b == "VARBINARY")
        SetBinary(column, text, false);
    else if (b == "IMAGE" || b == "BLOB")
        Set(column, adLongVarBinary, kLongBinarySize);
    else
        Set(column, adVarWChar, 4000);
    return true;
}

} // namespace zlx::ado
