#pragma once
// The field descriptor of the status column "Activo" (0 normal, 1 inactive, 2 deleted).

#include "binding/cDAV_Base.h"

namespace zlx {

class cDAV_Activo : public cDAV_Base {
public:
    QString TypeName() const override { return QStringLiteral("cDAV_Activo"); }
    using cDAV_Base::Value;

    QString Name() const override { return QStringLiteral("Activo"); }
    std::int32_t Width() const override { return 1; }
    std::int32_t DataType() const override { return 1; }
    bool Indexed() const override { return true; }
    Variant Value() const override { return Variant(m_value); }
    void Value(const Variant& xValue) override { m_value = xValue.ToLong(); }
    QString Mask() const override { return QStringLiteral("(2,0)"); }
    void ConfigureControl(QObject* oCtl) override {
        ConfigureMaskedBox(oCtl, kNumber, 2, Mask(), QStringLiteral("Activo"));
    }

private:
    double m_value = 0;
};

} // namespace zlx
