#include "connection/TypeMapping.h"

#include "platform/engines/AdoConstants.h"

namespace zlx::TypeMapping {

using namespace zlx::ado;

std::optional<zlxTblColumnType> AdoToZlx(int nTipo) {
    switch (nTipo) {
    case adSmallInt:
        return zlxTblColumnTypeI2;
    case adInteger:
        return zlxTblColumnTypeI4;
    case adSingle:
        return zlxTblColumnTypeSingle;
    case adDouble:
        return zlxTblColumnTypeDouble;
    case adCurrency:
        return zlxTblColumnTypeCurrency;
    case adDate:
    case adDBTimeStamp:
        return zlxTblColumnTypeDateTime;
    case adBoolean:
    case adUnsignedTinyInt:
        return zlxTblColumnTypeI1;
    case adBigInt:
        return zlxTblColumnTypeI8;
    case adGUID:
    case adBinary:
    case adVarChar:
    case adVarWChar:
    case adVarBinary:
        return zlxTblColumnTypeChar;
    case adChar:
    case adWChar:
        return zlxTblColumnTypeCharFixed;
    case adNumeric:
        return zlxTblColumnTypeDecimal;
    case adDBDate:
        return zlxTblColumnTypeDate;
    case adDBTime:
        return zlxTblColumnTypeTime;
    case adLongVarChar:
    case adLongVarWChar:
        return zlxTblColumnTypeMemo;
    case adLongVarBinary:
        return zlxTblColumnTypeImage;
    default:
        return std::nullopt;
    }
}

int ZlxToAdo(int nTipo, int nProveedor) {
    const bool jet = nProveedor == zlxDataProvider_JET40;
    switch (nTipo) {
    case zlxTblColumnTypeI1:
        return adUnsignedTinyInt;
    case zlxTblColumnTypeI2:
        return adSmallInt;
    case zlxTblColumnTypeI4:
        return adInteger;
    case zlxTblColumnTypeI8:
        return adBigInt;
    case zlxTblColumnTypeSingle:
        return adSingle;
    case zlxTblColumnTypeDouble:
        return adDouble;
    case zlxTblColumnTypeChar:
        return adVarChar;
    case zlxTblColumnTypeCharFixed:
        return adChar;
    case zlxTblColumnTypeMemo:
        return adLongVarChar;
    case zlxTblColumnTypeDate:
        return jet ? adDate : adDBDate;
    case zlxTblColumnTypeTime:
        return adDBTime;
    case zlxTblColumnTypeDateTime:
        return jet ? adDate : adDBTimeStamp;
    case zlxTblColumnTypeImage:
        return adLongVarBinary;
    case zlxTblColumnTypeCurrency:
        return adCurrency;
    case zlxTblColumnTypeDecimal:
        return adNumeric;
    default:
        return 0;
    }
}

std::optional<zlxDisplayType> AdoToDisplay(int nTipo) {
    switch (nTipo) {
    case adSmallInt:
    case adInteger:
    case adSingle:
    case adDouble:
    case adCurrency:
    case adBoolean:
    case adUnsignedTinyInt:
    case adBigInt:
    case adNumeric:
        return zlxDisplayNumber;
    case adDate:
    case adDBDate:
    case adDBTimeStamp:
        return zlxDisplayDate;
    case adVariant:
    case adGUID:
    case adBinary:
    case adChar:
    case adWChar:
    case adVarChar:
    case adLongVarChar:
    case adVarWChar:
    case adLongVarWChar:
    case adVarBinary:
    case adLongVarBinary:
        return zlxDisplayText;
    default:
        return std::nullopt;
    }
}

zlxDisplayType ZlxToDisplay(int nTipo) {
    if ((nTipo >= zlxTblColumnTypeI1 && nTipo <= zlxTblColumnTypeDouble) ||
        nTipo == zlxTblColumnTypeCurrency || nTipo == zlxTblColumnTypeDecimal)
        return zlxDisplayNumber;
    if (nTipo >= zlxTblColumnTypeDate && nTipo <= zlxTblColumnTypeDateTime) return zlxDisplayDate;
    return zlxDisplayText;
}

zlxTblColumnType SqlServerToZlx(int nTipo) {
    switch (nTipo) {
    case 34:
        return zlxTblColumnTypeImage;
    case 35:
        return zlxTblColumnTypeMemo;
    case 48:
        return zlxTblColumnTypeI1;
    case 52:
        return zlxTblColumnTypeI2;
    case 56:
        return zlxTblColumnTypeI4;
    case 59:
        return zlxTblColumnTypeSingle;
    case 60:
        return zlxTblColumnTypeCurrency;
    case 61:
        return zlxTblColumnTypeDateTime;
    case 62:
        return zlxTblColumnTypeDouble;
    case 131:
        return zlxTblColumnTypeDecimal;
    case 167:
        return zlxTblColumnTypeChar;
    case 175:
        return zlxTblColumnTypeCharFixed;
    default:
        return zlxTblColumnTypeNone;
    }
}

} // namespace zlx::TypeMapping
