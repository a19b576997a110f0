#pragma once
// What the library's five field descriptors share: the I_DAV operations published also under
// their interface names (I_DAV_Name, I_DAV_Value, ...), and the late-bound calls that set up
// a "get" text box.

#include "binding/I_DAV.h"

namespace zlx {

class cDAV_Base : public I_DAV {
public:
    using I_DAV::Value;

    QString I_DAV_Name() const { return Name(); }
    QString I_DAV_Mask() const { return Mask(); }
    std::int32_t I_DAV_DataType() const { return DataType(); }
    std::int32_t I_DAV_Width() const { return Width(); }
    bool I_DAV_Indexed() const { return Indexed(); }
    Variant I_DAV_Value() const { return Value(); }
    void I_DAV_Value(const Variant& xValue) { Value(xValue); }

protected:
    // The text box's kinds.
    enum ControlKind { kText = 0, kNumber = 1, kDate = 2 };
    // The settings of an identity column's box: text kind, 7 characters, right-aligned.
    static void ConfigureIdentityBox(QObject* oCtl, const QString& cTip, bool lTipBeforeFont);
    // BeginRefresh; kind; MaxLength; FormatoMascara; ToolTip; EndRefresh.
    static void ConfigureMaskedBox(QObject* oCtl, int nKind, std::int32_t nMaxLength,
                                   const QString& cMask, const QString& cTip);
};

} // namespace zlx
