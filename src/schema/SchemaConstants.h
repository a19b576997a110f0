#pragma once
// The result codes and enumerations of schema management.

namespace zlx {

// The result of the definition operations of cBaseDatos.
enum zlxDBConstants {
    zlxDBConstantsNoError = 0,
    zlxDBConstantsErrorGrave = 1,
    zlxDBConstantsConexionFallida = 2,
    zlxDBConstantsNoSoporte = 3,
    zlxDBConstantsExisteDB = 4,
    zlxDBConstantsExisteTabla = 5,
    zlxDBConstantsExisteCampo = 6,
    zlxDBConstantsExisteIndice = 7,
    zlxDBConstantsNoExisteDB = 8,
    zlxDBConstantsNoExisteTabla = 9,
    zlxDBConstantsNoExisteCampo = 10,
    zlxDBConstantsNoExisteIndice = 11
};

enum zlxIndexType { zlxIndexTypeNo = 0, zlxIndexTypeYes = 1, zlxIndexTypePrimary = 2 };

enum zlxChkCampoConstants {
    zlxChkCampo_OK = 0,
    zlxChkCampo_No_Existe = -1,
    zlxChkCampo_Diferente = 1
};

// Positions of one row of a field description.
enum ConstArrayDictionary {
    FIELD_NAME = 0,
    FIELD_TYPE = 1,
    FIELD_SIZE = 2,
    FIELD_PICTURE = 3,
    FIELD_INDEX = 4,
    FIELD_TOOLTIPTEXT = 5
};

} // namespace zlx
