#include "binding/cDAV_Base.h"

#include "platform/companion/LateBinding.h"

namespace zlx {

void cDAV_Base::ConfigureIdentityBox(QObject* oCtl, const QString& cTip, bool lTipBeforeFont) {
    CallControl(oCtl, "BeginRefresh");
    SetControlProperty(oCtl, "TipoDato", Variant(std::int32_t(kText)));
    SetControlProperty(oCtl, "MaxLength", Variant(std::int32_t(7)));
    SetControlProperty(oCtl, "Alignment", Variant(std::int32_t(1)));
    if (lTipBeforeFont) SetControlProperty(oCtl, "ToolTip", Variant(cTip));
    CallControl(oCtl, "FntNumbers");
    if (!lTipBeforeFont) SetControlProperty(oCtl, "ToolTip", Variant(cTip));
    CallControl(oCtl, "EndRefresh");
}

void cDAV_Base::ConfigureMaskedBox(QObject* oCtl, int nKind, std::int32_t nMaxLength,
                                   const QString& cMask, const QString& cTip) {
    CallControl(oCtl, "BeginRefresh");
    SetControlProperty(oCtl, "TipoDato", Variant(std::int32_t(nKind)));
    SetControlProperty(oCtl, "MaxLength", Variant(nMaxLength));
    CallControl(oCtl, "FormatoMascara", cMask);
    SetControlProperty(oCtl, "ToolTip", Variant(cTip));
    CallControl(oCtl, "EndRefresh");
}

} // namespace zlx
