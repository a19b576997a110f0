#pragma once
// The lists of named date presets a user picks from: one date ("Primer día del mes en
// curso") or a from/to range ("Mes en curso"), with the preset codes each row stands for.

#include <QString>
#include <cstdint>
#include <vector>

namespace zlx {

struct FechaPresetRow {
    QString label;
    std::int32_t desde = 0; // the code of the date, or of the range's first day
    std::int32_t hasta = 0; // the code of the range's last day (0 in the single-date list)
};

class FechaPresetList {
public:
    // 21 rows: "\"Hoy\"" to "Último día del año anterior".
    static const std::vector<FechaPresetRow>& UnaFecha();
    // 12 rows: "En blanco" to "Ejercicio anterior".
    static const std::vector<FechaPresetRow>& Rango();
};

} // namespace zlx
