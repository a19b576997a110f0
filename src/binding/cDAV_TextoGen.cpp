#include "binding/cDAV_TextoGen.h"

namespace zlx {

namespace {

constexpr std::int32_t kChar = 7, kMemo = 9;

} // namespace

void cDAV_TextoGen::Configure(const QString& cNombre, std::int32_t nAncho, const QString& cTip,
                              const QString& cMascara, bool lIndexar) {
    m_name = cNombre;
    m_width = nAncho;
    m_tip = cTip;
    if (!cMascara.isEmpty()) m_mask = cMascara;
    m_indexed = lIndexar;
    m_dataType = m_width >= 1 ? kChar : kMemo;
}

void cDAV_TextoGen::ConfigureControl(QObject* oCtl) {
    ConfigureMaskedBox(oCtl, kText, m_width, m_mask, m_tip);
}

} // namespace zlx
