#pragma once
// The numbers of the record form's buttons, moves, states and actions; their values are part
// of the library's interface.

#include "cursor/cFichaDB.h" // zlxFileStat

namespace zlx {

enum zlxCtlFichaBtn_Constants {
    zlxCtlFichaBtn_Nuevo = 0,
    zlxCtlFichaBtn_Modificar = 1,
    zlxCtlFichaBtn_Eliminar = 2,
    zlxCtlFichaBtn_Buscar = 3,
    zlxCtlFichaBtn_Comentario = 4
};

enum zlxCtlFichaMove_Constants {
    zlxCtlFichaMove_First = 0,
    zlxCtlFichaMove_Previous = 1,
    zlxCtlFichaMove_Next = 2,
    zlxCtlFichaMove_Last = 3
};

enum zlxFormStat {
    zlxFormStat_Normal = 0,
    zlxFormStat_Guardando = 1,
    zlxFormStat_Cancelando = 2,
    zlxFormStat_Salir = 3,
    zlxFormStat_IgnorarValidate = 4,
    zlxFormStat_FallarValidate = 5
};

enum zlxFormAction {
    zlxFormAction_Nada = -1,
    zlxFormAction_Nuevo = 0,
    zlxFormAction_Modificar = 1,
    zlxFormAction_Eliminar = 2,
    zlxFormAction_Buscar = 3,
    zlxFormAction_Comentario = 4,
    zlxFormAction_DuplicarFicha = 100
};

enum zlxMostrarFichaConstants {
    zlxMostrarFichaActual = 0,
    zlxMostrarFichaPrimera = 1,
    zlxMostrarFichaUltima = 2
};

// How many buttons of each group the record form has.
constexpr int kFichaRecordButtons = 5;
constexpr int kFichaMoveButtons = 4;

} // namespace zlx
