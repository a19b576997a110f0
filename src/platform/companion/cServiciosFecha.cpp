#include "platform/companion/cServiciosFecha.h"

namespace zlx {

namespace {

QDate QuarterStart(const QDate& day) {
    return QDate(day.year(), (day.month() - 1) / 3 * 3 + 1, 1);
}

QDate MonthStart(const QDate& day) {
    return QDate(day.year(), day.month(), 1);
}

QDate YearStart(const QDate& day) {
    return QDate(day.year(), 1, 1);
}

// The last day of the period of `months` months that begins on `start`.
QDate PeriodEnd(const QDate& start, int months) {
    return start.addMonths(months).addDays(-1);
}

} // namespace

void cServiciosFecha::PrimerMesEjercicio(std::int32_t nMes) {
    m_firstFiscalMonth = nMes >= 1 && nMes <= 12 ? nMes : 1;
}

QDate cServiciosFecha::Hoy() const {
    return m_today.isValid() ? m_today : QDate::currentDate();
}

QDate cServiciosFecha::FiscalYearStart(const QDate& day) const {
    const int year = day.month() >= m_firstFiscalMonth ? day.year() : day.year() - 1;
    return QDate(year, m_firstFiscalMonth, 1);
}

QDate cServiciosFecha::PresetDay(std::int32_t nPreset) const {
    const QDate today = Hoy();
    const QDate week = today.addDays(1 - today.dayOfWeek()); // weeks begin on Monday
    const QDate fiscal = FiscalYearStart(today);
    switch (nPreset) {
    case zlxFecha_Hoy:
        return today;
    case zlxFecha_Ayer:
        return today.addDays(-1);
    case zlxFecha_Manana:
        return today.addDays(1);
    case zlxFecha_PrimerDiaSemana:
        return week;
    case zlxFecha_UltimoDiaSemana:
        return week.addDays(6);
    case zlxFecha_PrimerDiaMes:
        return MonthStart(today);
    case zlxFecha_UltimoDiaMes:
        return PeriodEnd(MonthStart(today), 1);
    case zlxFecha_PrimerDiaTrimestre:
        return QuarterStart(today);
    case zlxFecha_UltimoDiaTrimestre:
        return PeriodEnd(QuarterStart(today), 3);
    case zlxFecha_PrimerDiaAnio:
        return YearStart(today);
    case zlxFecha_UltimoDiaAnio:
        return PeriodEnd(YearStart(today), 12);
    case zlxFecha_PrimerDiaEjercicio:
        return fiscal;
    case zlxFecha_UltimoDiaEjercicio:
        return PeriodEnd(fiscal, 12);
    case zlxFecha_PrimerDiaEjercicioAnterior:
        return fiscal.addYears(-1);
    case zlxFecha_UltimoDiaEjercicioAnterior:
        return fiscal.addDays(-1);
    case zlxFecha_PrimerDiaMesAnterior:
        return MonthStart(today).addMonths(-1);
    case zlxFecha_UltimoDiaMesAnterior:
        return MonthStart(today).addDays(-1);
    case zlxFecha_PrimerDiaTrimestreAnterior:
        return QuarterStart(today).addMonths(-3);
    case zlxFecha_UltimoDiaTrimestreAnterior:
        return QuarterStart(today).addDays(-1);
    case zlxFecha_PrimerDiaAnioAnterior:
        return YearStart(today).addYears(-1);
    case zlxFecha_UltimoDiaAnioAnterior:
        return YearStart(today).addDays(-1);
    default:
        return {};
    }
}

Date cServiciosFecha::FechaPreset(std::int32_t nPreset) const {
    const QDate day = PresetDay(nPreset);
    return day.isValid() ? FromQDate(day) : BlankDate();
}

QDate cServiciosFecha::ToQDate(const Date& d) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    SplitDate(d, year, month, day, hour, minute, second);
    return QDate(year, month, day);
}

Date cServiciosFecha::FromQDate(const QDate& d) {
    return MakeDate(d.year(), d.month(), d.day());
}

} // namespace zlx
