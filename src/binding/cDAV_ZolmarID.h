#pragma once
// The field descriptor of the identity column "zolmarID".

#include "binding/cDAV_Base.h"

namespace zlx {

class cDAV_ZolmarID : public cDAV_Base {
public:
    QString TypeName() const override { return QStringLiteral("cDAV_ZolmarID"); }
    using cDAV_Base::Value;

    QString Name() const override { return QStringLiteral("zolmarID"); }
    std::int32_t Width() const override { return 4; }
    std::int32_t DataType() const override { return 3; }
    bool Indexed() const override { return true; }
    Variant Value() const override { return Variant(m_value); }
    void Value(const Variant& xValue) override { m_value = xValue.ToLong(); }
    QString Mask() const override { return QStringLiteral("(7)"); }
    void ConfigureControl(QObject* oCtl) override {
        ConfigureIdentityBox(oCtl, QStringLiteral("Identificador de la tabla"), true);
    }

private:
    std::int32_t m_value = 0;
};

} // namespace zlx
