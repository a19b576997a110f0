#pragma once
// The language service. For now: numbers written out in Spanish words.

#include "platform/variant/Variant.h"

namespace zlx {

class cIdioma : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cIdioma"); }

    // nNum in words with its unit and fraction unit ("un euro con cincuenta céntimos").
    // With lMoneda the empty unit texts become euro/euros and céntimo/céntimos.
    QString Num2Text(double nNum, int nDecimals = 2, const QString& cUnidad = QString(),
                     const QString& cUnidades = QString(), const QString& cFraccion = QString(),
                     const QString& cFracciones = QString(), bool lGeneroFemenino = false,
                     bool lMoneda = true);
    // A whole number alone, masculine ("mil quinientos quince").
    QString Long2Text(std::int32_t nNum);

private:
    QString Units(int n) const;
    QString Tens(int n) const;
    QString Hundreds(int n) const;
    QString Thousands(std::int64_t n) const;
    QString OneWord() const { return m_feminine ? QStringLiteral("una") : QStringLiteral("un"); }
    bool m_feminine = false;
};

using cIdiomaPtr = std::shared_ptr<cIdioma>;

} // namespace zlx
