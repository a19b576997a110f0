#include "language/cIdioma.h"

#include <cmath>

namespace zlx {

namespace {

const char* const kUnits[] = {"",      "uno",  "dos",   "tres", "cuatro",
                              "cinco", "seis", "siete", "ocho", "nueve"};
const char* const kAfterVeinti[] = {"",      "uno",  "dós",   "trés", "cuatro",
                                    "cinco", "séis", "siete", "ocho", "nueve"};
const char* const kAfterDieci[] = {"", "", "", "", "", "", "séis", "siete", "ocho", "nueve"};
const char* const kTenToFifteen[] = {"diez", "once", "doce", "trece", "catorce", "quince"};
const char* const kTens[] = {"",          "diez",    "veinte",  "treinta", "cuarenta",
                             "cincuenta", "sesenta", "setenta", "ochenta", "noventa"};
const char* const kHundreds[] = {
    "",           "ciento",      "doscientas",  "trescientas", "cuatrocientas",
    "quinientas", "seiscientas", "setecientas", "ochocientas", "novecientas"};

constexpr std::int64_t kMillion = 1000000;

// The whole part and the fraction (in units of 10^-decimals, half away from zero) of |value|,
// read from the value's 15 significant digits so that 2.675 has 68 hundredths, as written.
// A fraction that rounds up to a whole unit is carried into the whole part.
bool SplitAmount(double value, int decimals, std::int64_t& whole, std::int64_t& fraction) {
    if (!std::isfinite(value) || std::fabs(value) >= 1e18) return false;
    const QString text = Decimal::FromDouble(std::fabs(value)).ToString();
    const qsizetype dot = text.indexOf(u'.');
    whole = text.left(dot < 0 ? text.size() : dot).toLongLong();
    QString digits = dot < 0 ? QString() : text.mid(dot + 1);
    const bool roundUp = digits.size() > decimals && digits[decimals] >= u'5';
    digits = digits.left(decimals).leftJustified(decimals, u'0');
    fraction = digits.isEmpty() ? 0 : digits.toLongLong();
    if (roundUp && ++fraction == static_cast<std::int64_t>(std::pow(10, decimals))) {
        fraction = 0;
        ++whole;
    }
    return true;
}

} // namespace

QString cIdioma::Units(int n) const {
    return n == 1 && m_feminine ? QStringLiteral("una") : QString::fromUtf8(kUnits[n]);
}

QString cIdioma::Tens(int n) const {
    if (n >= 10 && n <= 15) return QString::fromUtf8(kTenToFifteen[n - 10]);
    const int t = n / 10, u = n % 10;
    if (u == 0) return QString::fromUtf8(kTens[t]);
    if (t >= 3) return QString::fromUtf8(kTens[t]) + QStringLiteral(" y ") + Units(u);
    if (t == 2)
        return QStringLiteral("veinti") +
               (u == 1 && m_feminine ? QStringLiteral("una") : QString::fromUtf8(kAfterVeinti[u]));
    if (t == 1) return QStringLiteral("dieci") + QString::fromUtf8(kAfterDieci[u]);
    return Units(u);
}

QString cIdioma::Hundreds(int n) const {
    if (n == 100) return QStringLiteral("cien");
    const int h = n / 100;
    QString text = QString::fromUtf8(kHundreds[h]);
    if (!m_feminine && h >= 2) text.replace(text.size() - 2, 2, QStringLiteral("os"));
    if (n % 100 >= 1 && n >= 101) text += u' ';
    return text + Tens(n % 100);
}

QString cIdioma::Thousands(std::int64_t n) const {
    const int t = static_cast<int>(n / 1000), r = static_cast<int>(n % 1000);
    if (t == 0) return Hundreds(r);
    QString text;
    if (t >= 2) {
        text = Hundreds(t);
        // "veintiun mil", "treinta y un mil", but "once mil"
        if (!m_feminine && t % 100 != 11 && t % 10 == 1) text.chop(1);
        text += u' ';
    }
    text += QStringLiteral("mil");
    if (r == 1)
        text += u' ' + OneWord();
    else if (r >= 2)
        text += u' ' + Hundreds(r);
    return text;
}

QString cIdioma::Num2Text(double nNum, int nDecimals, const QString& cUnidad,
                          const QString& cUnidades, const QString& cFraccion,
                          const QString& cFracciones, bool lGeneroFemenino, bool lMoneda) {
    const auto orDefault = [lMoneda](const QString& given, const char* fallback) {
        return lMoneda && given.isEmpty() ? QString::fromUtf8(fallback) : given;
    };
    const QString unidad = orDefault(cUnidad, "euro"), unidades = orDefault(cUnidades, "euros");
    const QString fraccion = orDefault(cFraccion, "céntimo");
    const QString fracciones = orDefault(cFracciones, "céntimos");
    m_feminine = lGeneroFemenino;

    std::int64_t whole = 0, f = 0;
    if (!SplitAmount(nNum, std::clamp(nDecimals, 0, 15), whole, f)) return {};
    const std::int64_t units = whole % kMillion;
    const std::int64_t millions = (whole / kMillion) % kMillion;
    const std::int64_t billions = whole / kMillion / kMillion;
    if (whole == 0 && f == 0) return (QStringLiteral("cero ") + unidades).trimmed();

    QString s;
    const auto separator = [&s] { return s.isEmpty() ? QString() : QStringLiteral(", "); };
    if (billions >= 1)
        s += separator() + (billions == 1 ? QStringLiteral("un billón")
                                          : Thousands(billions) + QStringLiteral(" billones"));
    if (millions >= 1)
        s += separator() + (millions == 1 ? QStringLiteral("un millón")
                                          : Thousands(millions) + QStringLiteral(" millones"));
    if (units == 1)
        s += separator() + OneWord() + u' ' + unidad;
    else if (units == 0 && (billions >= 1 || millions >= 1))
        s += QStringLiteral(" de ") + unidades;
    else
        s += separator() + Thousands(units) + u' ' + unidades;

    if (f != 0) {
        const QString words =
            f == 1 ? OneWord() + u' ' + fraccion : Thousands(f) + u' ' + fracciones;
        if (whole != 0)
            s += QStringLiteral(" con ") + words;
        else
            s = words + QStringLiteral(" de ") + unidad;
    }
    if (nNum < 0) s.prepend(QStringLiteral("menos "));
    return s.trimmed();
}

QString cIdioma::Long2Text(std::int32_t nNum) {
    return Num2Text(nNum, 0, QString(), QString(), QString(), QString(), false, false);
}

} // namespace zlx
