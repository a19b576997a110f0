#include "platform/companion/FechaPresetList.h"

#include "platform/companion/cServiciosFecha.h"

namespace zlx {

const std::vector<FechaPresetRow>& FechaPresetList::UnaFecha() {
    static const std::vector<FechaPresetRow> rows = {
        {QStringLiteral("\"Hoy\""), zlxFecha_Hoy},
        {QStringLiteral("\"Ayer\""), zlxFecha_Ayer},
        {QStringLiteral("\"Mañana\""), zlxFecha_Manana},
        {QStringLiteral("Primer día de la semana en curso"), zlxFecha_PrimerDiaSemana},
        {QStringLiteral("Último día de la semana en curso"), zlxFecha_UltimoDiaSemana},
        {QStringLiteral("Primer día del mes en curso"), zlxFecha_PrimerDiaMes},
        {QStringLiteral("Último día del mes en curso"), zlxFecha_UltimoDiaMes},
        {QStringLiteral("Primer día del trimestre en curso"), zlxFecha_PrimerDiaTrimestre},
        {QStringLiteral("Último día del trimestre en curso"), zlxFecha_UltimoDiaTrimestre},
        {QStringLiteral("Primer día del año en curso"), zlxFecha_PrimerDiaAnio},
        {QStringLiteral("Último día del año en curso"), zlxFecha_UltimoDiaAnio},
        {QStringLiteral("Primer día del ejercicio en curso"), zlxFecha_PrimerDiaEjercicio},
        {QStringLiteral("Último día del ejercicio en curso"), zlxFecha_UltimoDiaEjercicio},
        {QStringLiteral("Primer día del ejercicio anterior"), zlxFecha_PrimerDiaEjercicioAnterior},
        {QStringLiteral("Último día del ejercicio anterior"), zlxFecha_UltimoDiaEjercicioAnterior},
        {QStringLiteral("Primer día del mes anterior"), zlxFecha_PrimerDiaMesAnterior},
        {QStringLiteral("Último día del mes anterior"), zlxFecha_UltimoDiaMesAnterior},
        {QStringLiteral("Primer día del trimestre anterior"), zlxFecha_PrimerDiaTrimestreAnterior},
        {QStringLiteral("Último día del trimestre anterior"), zlxFecha_UltimoDiaTrimestreAnterior},
        {QStringLiteral("Primer día del año anterior"), zlxFecha_PrimerDiaAnioAnterior},
        {QStringLiteral("Último día del año anterior"), zlxFecha_UltimoDiaAnioAnterior},
    };
    return rows;
}

const std::vector<FechaPresetRow>& FechaPresetList::Rango() {
    static const std::vector<FechaPresetRow> rows = {
        {QStringLiteral("En blanco"), zlxFecha_EnBlanco, zlxFecha_EnBlanco},
        {QStringLiteral("Ayer y Hoy"), zlxFecha_Ayer, zlxFecha_Hoy},
        {QStringLiteral("Hoy - Mañana"), zlxFecha_Hoy, zlxFecha_Manana},
        {QStringLiteral("Semana en curso"), zlxFecha_PrimerDiaSemana, zlxFecha_UltimoDiaSemana},
        {QStringLiteral("Mes en curso"), zlxFecha_PrimerDiaMes, zlxFecha_UltimoDiaMes},
        {QStringLiteral("Trimestre en curso"), zlxFecha_PrimerDiaTrimestre,
         zlxFecha_UltimoDiaTrimestre},
        {QStringLiteral("Año en curso"), zlxFecha_PrimerDiaAnio, zlxFecha_UltimoDiaAnio},
        {QStringLiteral("Ejercicio en curso"), zlxFecha_PrimerDiaEjercicio,
         zlxFecha_UltimoDiaEjercicio},
        {QStringLiteral("Mes anterior"), zlxFecha_PrimerDiaMesAnterior,
         zlxFecha_UltimoDiaMesAnterior},
        {QStringLiteral("Trimestre anterior"), zlxFecha_PrimerDiaTrimestreAnterior,
         zlxFecha_UltimoDiaTrimestreAnterior},
        {QStringLiteral("Año anterior"), zlxFecha_PrimerDiaAnioAnterior,
         zlxFecha_UltimoDiaAnioAnterior},
        {QStringLiteral("Ejercicio anterior"), zlxFecha_PrimerDiaEjercicioAnterior,
         zlxFecha_UltimoDiaEjercicioAnterior},
    };
    return rows;
}

} // namespace zlx
