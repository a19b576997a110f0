#pragma once
// The companion date services: the blank date that stands for an empty date field, and the
// dates that the named presets ("Hoy", "Primer día del trimestre en curso", ...) stand for.

#include "platform/variant/Variant.h"

#include <QDate>

namespace zlx {

// Preset codes. 0 is no date (the blank date); 16 is not used.
enum zlxFechaPresetConstants {
    zlxFecha_EnBlanco = 0,
    zlxFecha_Hoy = 1,
    zlxFecha_Ayer = 2,
    zlxFecha_Manana = 3,
    zlxFecha_PrimerDiaSemana = 4,
    zlxFecha_UltimoDiaSemana = 5,
    zlxFecha_PrimerDiaMes = 6,
    zlxFecha_UltimoDiaMes = 7,
    zlxFecha_PrimerDiaTrimestre = 8,
    zlxFecha_UltimoDiaTrimestre = 9,
    zlxFecha_PrimerDiaAnio = 10,
    zlxFecha_UltimoDiaAnio = 11,
    zlxFecha_PrimerDiaEjercicio = 12,
    zlxFecha_UltimoDiaEjercicio = 13,
    zlxFecha_PrimerDiaEjercicioAnterior = 14,
    zlxFecha_UltimoDiaEjercicioAnterior = 15,
    zlxFecha_PrimerDiaMesAnterior = 17,
    zlxFecha_UltimoDiaMesAnterior = 18,
    zlxFecha_PrimerDiaTrimestreAnterior = 19,
    zlxFecha_UltimoDiaTrimestreAnterior = 20,
    zlxFecha_PrimerDiaAnioAnterior = 21,
    zlxFecha_UltimoDiaAnioAnterior = 22
};

class cServiciosFecha : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cServiciosFecha"); }

    // The month (1 to 12) in which the fiscal year ("ejercicio") begins; 1 makes it the
    // calendar year. Values outside 1..12 are taken as 1.
    std::int32_t PrimerMesEjercicio() const { return m_firstFiscalMonth; }
    void PrimerMesEjercicio(std::int32_t nMes);
    // The day the presets are counted from; an invalid date (the default) means today.
    QDate Hoy() const;
    void Hoy(const QDate& dHoy) { m_today = dHoy; }

    // The date of a preset code; the blank date for 0 and for codes that name no date.
    Date FechaPreset(std::int32_t nPreset) const;
    static Date FechaEnBlanco() { return BlankDate(); }
    static bool EsFechaEnBlanco(const Date& d) { return d == BlankDate(); }
    // The calendar day of a date value, and back (midnight).
    static QDate ToQDate(const Date& d);
    static Date FromQDate(const QDate& d);

private:
    QDate PresetDay(std::int32_t nPreset) const;
    QDate FiscalYearStart(const QDate& day) const;

    std::int32_t m_firstFiscalMonth = 1;
    QDate m_today;
};

using cServiciosFechaPtr = std::shared_ptr<cServiciosFecha>;

} // namespace zlx
