#pragma once
// The field descriptor of a date column, with the date-filter operations that fill one date
// box, or a from/to pair of date boxes, from a list of named presets ("Mes en curso",
// "Último día del año anterior", ...).

#include "binding/cDAV_Base.h"
#include "platform/companion/cServiciosFecha.h"

#include <QList>

namespace zlx {

class cIdioma;

class cDAV_FechaGen : public cDAV_Base {
public:
    cDAV_FechaGen();
    QString TypeName() const override { return QStringLiteral("cDAV_FechaGen"); }
    using cDAV_Base::Value;

    // The date calculator of the presets and of the blank date (created with the descriptor;
    // an application sets its fiscal year's first month here).
    cServiciosFechaPtr oFecha() const { return m_fecha; }
    void oFecha(cServiciosFechaPtr oFecha) { m_fecha = std::move(oFecha); }

    void Configure(const QString& cNombre, const QString& cTip, bool lIndexar = false);

    QString Name() const override { return m_name; }
    std::int32_t Width() const override { return 8; }
    std::int32_t DataType() const override { return 12; }
    bool Indexed() const override { return m_indexed; }
    Variant Value() const override { return Variant(m_value); }
    void Value(const Variant& xValue) override { m_value = xValue.ToDate(); }
    QString Mask() const override { return {}; }
    void ConfigureControl(QObject* oCtl) override;

    // Whether the date typed in the date box is a date within dMin and dMax (the zero date
    // means no bound); with lValidEmpty an out-of-range blank date passes.
    bool Validate(QObject* oCtlGET, bool lValidEmpty = true, Date dMin = Date{},
                  Date dMax = Date{});

    // Lets the user pick a preset ("Fechas a elegir") and writes its dates into the boxes:
    // the from/to pair with lRango, else the single-date box; the other boxes are blanked.
    // The codes picked are written back (0 for the boxes not filled).
    void AjustarGetsDesdeCombos(cIdioma& oIdioma, bool lRango, QObject* oGetFecha,
                                QObject* oGetDesde, QObject* oGetHasta, std::int32_t& nFechaEnum,
                                std::int32_t& nDesdeEnum, std::int32_t& nHastaEnum);
    void AjustarGetsDesdeCombos(cIdioma& oIdioma, bool lRango = false, QObject* oGetFecha = nullptr,
                                QObject* oGetDesde = nullptr, QObject* oGetHasta = nullptr);

    // Keeps the single-date box (element 0) and the from/to pair (elements 1 and 2) apart
    // after the user changed element nIndex: the other side is blanked and its codes cleared.
    // Always False.
    bool ValidateTripleFilter(std::int32_t nIndex, const QList<QObject*>& oArrayGetFechas,
                              std::int32_t& nFechaEnum, std::int32_t& nDesdeEnum,
                              std::int32_t& nHastaEnum);

private:
    void SetDate(QObject* oCtl, std::int32_t nPreset) const;
    void SetBlank(QObject* oCtl) const;

    cServiciosFechaPtr m_fecha;
    QString m_name, m_tip;
    bool m_indexed = false;
    Date m_value;
};

} // namespace zlx
