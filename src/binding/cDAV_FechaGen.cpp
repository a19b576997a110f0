#include "binding/cDAV_FechaGen.h"

#include "language/cIdioma.h"
#include "platform/companion/FechaPresetList.h"
#include "platform/companion/LateBinding.h"
#include "platform/companion/PickList.h"

namespace zlx {

namespace {

bool HasChanged(const QObject* oCtl) {
    return oCtl && oCtl->property("HasChanged").toBool();
}

void ClearChanged(QObject* oCtl) {
    SetControlProperty(oCtl, "HasChanged", Variant(false));
}

} // namespace

cDAV_FechaGen::cDAV_FechaGen() : m_fecha(std::make_shared<cServiciosFecha>()) {}

void cDAV_FechaGen::Configure(const QString& cNombre, const QString& cTip, bool lIndexar) {
    m_name = cNombre;
    m_tip = cTip;
    m_indexed = lIndexar;
}

void cDAV_FechaGen::ConfigureControl(QObject* oCtl) {
    SetControlProperty(oCtl, "TipoDato", Variant(std::int32_t(kDate)));
    SetControlProperty(oCtl, "ToolTip", Variant(m_tip));
}

bool cDAV_FechaGen::Validate(QObject* oCtlGET, bool lValidEmpty, Date dMin, Date dMax) {
    bool valid = false;
    QMetaObject::invokeMethod(oCtlGET, "ValidateFecha", Qt::DirectConnection,
                              Q_RETURN_ARG(bool, valid));
    if (!valid) return false;
    const Date d = GetDefaultValue(oCtlGET).ToDate();
    const bool afterMax = dMax.value != 0 && d.value > dMax.value;
    const bool beforeMin = dMin.value != 0 && d.value < dMin.value;
    const bool inRange = !afterMax && !beforeMin;
    if (!inRange && lValidEmpty) return d == cServiciosFecha().FechaEnBlanco();
    return inRange;
}

void cDAV_FechaGen::SetDate(QObject* oCtl, std::int32_t nPreset) const {
    SetDefaultValue(oCtl, Variant(m_fecha->FechaPreset(nPreset)));
}

void cDAV_FechaGen::SetBlank(QObject* oCtl) const {
    SetDefaultValue(oCtl, Variant(m_fecha->FechaEnBlanco()));
}

void cDAV_FechaGen::AjustarGetsDesdeCombos(cIdioma& oIdioma, bool lRango, QObject* oGetFecha,
                                           QObject* oGetDesde, QObject* oGetHasta,
                                           std::int32_t& nFechaEnum, std::int32_t& nDesdeEnum,
                                           std::int32_t& nHastaEnum) {
    const std::vector<FechaPresetRow>& rows =
        lRango ? FechaPresetList::Rango() : FechaPresetList::UnaFecha();
    cMatriz labels;
    labels.Dimension(1, 1, 1, static_cast<std::int32_t>(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i)
        labels.SetValue(1, static_cast<std::int32_t>(i + 1), Variant(oIdioma.Msg(rows[i].label)));
    const std::int32_t picked =
        ShowPopupList(labels, oIdioma.Msg(QStringLiteral("Fechas a elegir")));
    if (picked < 1 || picked > static_cast<std::int32_t>(rows.size())) return;
    const FechaPresetRow& row = rows[static_cast<std::size_t>(picked - 1)];
    if (lRango) {
        nDesdeEnum = row.desde;
        nHastaEnum = row.hasta;
        SetDate(oGetDesde, nDesdeEnum);
        SetDate(oGetHasta, nHastaEnum);
        ClearChanged(oGetDesde);
        ClearChanged(oGetHasta);
        if (oGetFecha && picked != 1) SetBlank(oGetFecha);
        nFechaEnum = 0;
        return;
    }
    nFechaEnum = row.desde;
    nDesdeEnum = 0;
    nHastaEnum = 0;
    SetDate(oGetFecha, nFechaEnum);
    ClearChanged(oGetFecha);
    if (oGetDesde) SetBlank(oGetDesde);
    if (oGetHasta) SetBlank(oGetHasta);
}

void cDAV_FechaGen::AjustarGetsDesdeCombos(cIdioma& oIdioma, bool lRango, QObject* oGetFecha,
                                           QObject* oGetDesde, QObject* oGetHasta) {
    std::int32_t fecha = 0, desde = 0, hasta = 0;
    AjustarGetsDesdeCombos(oIdioma, lRango, oGetFecha, oGetDesde, oGetHasta, fecha, desde, hasta);
}

bool cDAV_FechaGen::ValidateTripleFilter(std::int32_t nIndex,
                                         const QList<QObject*>& oArrayGetFechas,
                                         std::int32_t& nFechaEnum, std::int32_t& nDesdeEnum,
                                         std::int32_t& nHastaEnum) {
    QObject* changed =
        nIndex >= 0 && nIndex < oArrayGetFechas.size() ? oArrayGetFechas[nIndex] : nullptr;
    if (!HasChanged(changed)) return false;
    if (nIndex != 0) {
        nFechaEnum = 0;
        if (oArrayGetFechas.size() == 3) SetBlank(oArrayGetFechas[0]);
        (nIndex == 1 ? nDesdeEnum : nHastaEnum) = 0;
        return false;
    }
    for (qsizetype i = 1; i < std::min<qsizetype>(3, oArrayGetFechas.size()); ++i)
        SetBlank(oArrayGetFechas[i]);
    nFechaEnum = nDesdeEnum = nHastaEnum = 0;
    return false;
}

} // namespace zlx
