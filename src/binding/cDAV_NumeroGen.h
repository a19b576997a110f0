#pragma once
// The field descriptor of a number column: its type, mask and display width come from
// Configure; whole-number types keep whole values only.

#include "binding/cDAV_Base.h"

namespace zlx {

class cDAV_NumeroGen : public cDAV_Base {
public:
    QString TypeName() const override { return QStringLiteral("cDAV_NumeroGen"); }
    using cDAV_Base::Value;

    void Configure(const QString& cNombre, std::int32_t nAncho, const QString& cTip,
                   const QString& cMascara = QStringLiteral("(7,0)"),
                   std::int32_t nTblColumnType = 3, bool lIndexar = false);

    QString Name() const override { return m_name; }
    // The storage size of the column type, not the display width.
    std::int32_t Width() const override;
    std::int32_t DataType() const override { return m_dataType; }
    bool Indexed() const override { return m_indexed; }
    Variant Value() const override { return Variant(m_value); }
    // Whole-number descriptors round to the nearest whole number (halves to even) and refuse
    // values outside the 32-bit range; the others keep the double.
    void Value(const Variant& xValue) override;
    QString Mask() const override { return m_mask; }
    // An identity-like column (a name beginning with "ID_") gets a right-aligned text box of
    // 7 characters in the numeric font; any other a number box with the mask.
    void ConfigureControl(QObject* oCtl) override;

private:
    QString m_name, m_tip;
    QString m_mask = QStringLiteral("(7,0)");
    std::int32_t m_dataType = 3;
    std::int32_t m_displayWidth = 0;
    bool m_indexed = false;
    bool m_integer = true;
    double m_value = 0;
};

} // namespace zlx
