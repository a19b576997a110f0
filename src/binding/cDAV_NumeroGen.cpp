#include "binding/cDAV_NumeroGen.h"

namespace zlx {

namespace {

constexpr std::int32_t kSingle = 5, kDouble = 6;

} // namespace

void cDAV_NumeroGen::Configure(const QString& cNombre, std::int32_t nAncho, const QString& cTip,
                               const QString& cMascara, std::int32_t nTblColumnType,
                               bool lIndexar) {
    m_name = cNombre;
    m_displayWidth = nAncho;
    m_tip = cTip;
    if (!cMascara.isEmpty()) m_mask = cMascara;
    m_dataType = nTblColumnType;
    m_indexed = lIndexar;
    m_integer = m_dataType != kSingle && m_dataType != kDouble;
}

std::int32_t cDAV_NumeroGen::Width() const {
    switch (m_dataType) {
    case 1:
        return 1;
    case 2:
        return 2;
    case 3:
        return 4;
    case 4:
        return 8;
    case 5:
        return 4;
    case 6:
        return 8;
    case 14:
        return 8;
    case 15:
        return 12;
    default:
        return 0;
    }
}

void cDAV_NumeroGen::Value(const Variant& xValue) {
    m_value = m_integer ? static_cast<double>(xValue.ToLong()) : xValue.ToDouble();
}

void cDAV_NumeroGen::ConfigureControl(QObject* oCtl) {
    if (m_name.left(3).toUpper() == u"ID_")
        ConfigureIdentityBox(oCtl, m_tip, false);
    else
        ConfigureMaskedBox(oCtl, kNumber, m_displayWidth, m_mask, m_tip);
}

} // namespace zlx
