#pragma once
// The field descriptor of a text column: a width of 1 or more makes it a Char column, 0 a
// Memo column.

#include "binding/cDAV_Base.h"

namespace zlx {

class cDAV_TextoGen : public cDAV_Base {
public:
    QString TypeName() const override { return QStringLiteral("cDAV_TextoGen"); }
    using cDAV_Base::Value;

    void Configure(const QString& cNombre, std::int32_t nAncho, const QString& cTip,
                   const QString& cMascara = QStringLiteral("x"), bool lIndexar = false);

    QString Name() const override { return m_name; }
    std::int32_t Width() const override { return m_width; }
    std::int32_t DataType() const override { return m_dataType; }
    bool Indexed() const override { return m_indexed; }
    Variant Value() const override { return Variant(m_value); }
    void Value(const Variant& xValue) override { m_value = xValue.ToString(); }
    QString Mask() const override { return m_mask; }
    void ConfigureControl(QObject* oCtl) override;

private:
    QString m_name, m_tip, m_value;
    QString m_mask = QStringLiteral("x");
    std::int32_t m_width = 0;
    std::int32_t m_dataType = 7;
    bool m_indexed = false;
};

} // namespace zlx
