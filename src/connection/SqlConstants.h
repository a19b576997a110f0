#pragma once
// Enumerations of the connection subsystem, with their original values.

namespace zlx {

enum zlxDataProviderConstants {
    zlxDataProvider_None = 0,
    zlxDataProvider_JET40 = 1,
    zlxDataProvider_MSDE = 2,
    zlxDataProvider_FOX = 3,
    zlxDataProvider_EXCEL = 4
};

enum zlxLikeConstants {
    zlxLikeConstantsNone = 0,
    zlxLikeConstantsBefore = 1,
    zlxLikeConstantsAfter = 2,
    zlxLikeConstantsAll = 3
};

enum zlxTblColumnType {
    zlxTblColumnTypeNone = 0,
    zlxTblColumnTypeI1 = 1,
    zlxTblColumnTypeI2 = 2,
    zlxTblColumnTypeI4 = 3,
    zlxTblColumnTypeI8 = 4,
    zlxTblColumnTypeSingle = 5,
    zlxTblColumnTypeDouble = 6,
    zlxTblColumnTypeChar = 7,
    zlxTblColumnTypeCharFixed = 8,
    zlxTblColumnTypeMemo = 9,
    zlxTblColumnTypeDate = 10,
    zlxTblColumnTypeTime = 11,
    zlxTblColumnTypeDateTime = 12,
    zlxTblColumnTypeImage = 13,
    zlxTblColumnTypeCurrency = 14,
    zlxTblColumnTypeDecimal = 15
};

// Display type of the companion controls: what kind of text box shows a column.
enum zlxDisplayType { zlxDisplayText = 0, zlxDisplayNumber = 1, zlxDisplayDate = 2 };

enum zlxWhereConstants {
    zlxWhere_Like = 0,
    zlxWhere_Menor = 1,
    zlxWhere_MenorIgual = 2,
    zlxWhere_Igual = 3,
    zlxWhere_MayorIgual = 4,
    zlxWhere_Mayor = 5,
    zlxWhere_Distinto = 6,
    zlxWhere_Codigos = 7,
    zlxWhere_ListaPalabras = 8
};

enum zlxChk2WhereConstants {
    zlxChk2Where_Enumerados = 0,
    zlxChk2Where_Alguno = 1,
    zlxChk2Where_Todos = 2
};

enum zlxConexionErrors {
    zlxConexionError_None = 0,
    zlxConexionError_GenericErr = 1,
    zlxConexionError_ConnectionBroken = 2,
    zlxConexionError_InitExclusiveFailed = 3,
    zlxConexionError_InitBadServer = 4,
    zlxConexionError_InitBadUser = 5,
    zlxConexionError_InsertBadParameter = 6,
    zlxConexionError_InsertBadValue = 7,
    zlxConexionError_CadInsertNull = 8,
    zlxConexionError_XLockError = 9,
    zlxConexionError_XLockNotSet = 10,
    zlxConexionError_XLockLockUpdated = 11,
    zlxConexionError_RegReadFailed = 12,
    zlxConexionError_ExecuteFailed = 13,
    zlxConexionError_ExecuteAsyncFailed = 14
};

enum zlxExecuteReturnConstants {
    zlxExecuteReturn_Nothing = 0,
    zlxExecuteReturn_Nothing_NoRowCount = 1,
    zlxExecuteReturn_Value = 2,
    zlxExecuteReturn_RecordSet = 3,
    zlxExecuteReturn_Array = 4,
    zlxExecuteReturn_cMatriz = 5,
    zlxExecuteReturn_cDatos_Copy = 6,
    zlxExecuteReturn_cDatos_Disconnected = 7,
    zlxExecuteReturn_cDatos_Connected = 8,
    zlxExecuteReturn_NewID = 9
};

enum zlxLockType { zlxLockTypeEdit = 1, zlxLockTypeNew = 2, zlxLockTypeTable = 3 };

enum zlxLockRetry {
    zlxLockRetryCheck = 1,
    zlxLockRetryOnce = 2,
    zlxLockRetryUntilCancel = 3,
    zlxLockRetryForever = 4
};

} // namespace zlx
