#include "platform/variant/NumberText.h"

#include <QRegularExpression>
#include <cstdint>

namespace zlx::NumberText {

namespace {

std::optional<QString> FromHex(const QString& text) {
    bool ok = false;
    const qlonglong value = text.mid(2).toLongLong(&ok, 16);
    if (!ok || text.size() > 18) return std::nullopt;
    return QString::number(value);
}

QString ResolveSeparators(QString text) {
    const qsizetype comma = text.lastIndexOf(u','), dot = text.lastIndexOf(u'.');
    if (comma >= 0 && dot >= 0) {
        const QChar thousands = comma > dot ? u'.' : u',';
        text.remove(thousands);
        return text.replace(u',', u'.');
    }
    const QChar only = comma >= 0 ? u',' : u'.';
    if (text.count(only) > 1) return text.remove(only);
    return text.replace(u',', u'.');
}

bool IsAsciiDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Where a number's exponent ("E+3", "d-2") ends, or `end` when none follows it.
qsizetype AfterExponent(const QString& t, qsizetype end) {
    if (end >= t.size() || !QStringLiteral("eEdD").contains(t[end])) return end;
    qsizetype i = end + 1;
    if (i < t.size() && (t[i] == u'-' || t[i] == u'+')) ++i;
    const qsizetype digits = i;
    while (i < t.size() && IsAsciiDigit(t[i]))
        ++i;
    return i > digits ? i : end;
}

// "&H" and "&O" numbers: up to four hex digits (six octal) read as a 16-bit integer, longer
// ones as a 32-bit integer, so that &HFFFF is -1.
double RadixValue(const QString& digits, int base) {
    qsizetype length = 0;
    const QString valid =
        base == 16 ? QStringLiteral("0123456789abcdefABCDEF") : QStringLiteral("01234567");
    while (length < digits.size() && valid.contains(digits[length]))
        ++length;
    bool ok = false;
    const qulonglong value = digits.left(length).toULongLong(&ok, base);
    if (!ok) return 0.0;
    if (value <= 0xFFFF && length <= (base == 16 ? 4 : 6)) return static_cast<std::int16_t>(value);
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

} // namespace

std::optional<QString> Normalise(const QString& input) {
    static const QRegularExpression number(
        QStringLiteral(R"(^[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?$)"));
    const QString text = input.trimmed();
    if (text.startsWith(u"&H", Qt::CaseInsensitive)) return FromHex(text);
    QString candidate = ResolveSeparators(text);
    if (!number.match(candidate).hasMatch()) return std::nullopt;
    if (candidate.startsWith(u'+')) candidate.remove(0, 1);
    return candidate;
}

double Val(const QString& text) {
    QString t;
    t.reserve(text.size());
    for (const QChar c : text)
        if (c != u' ' && c != u'\t' && c != u'\n') t += c;
    if (t.startsWith(u"&H", Qt::CaseInsensitive)) return RadixValue(t.mid(2), 16);
    if (t.startsWith(u"&O", Qt::CaseInsensitive)) return RadixValue(t.mid(2), 8);
    qsizetype end = 0;
    if (end < t.size() && (t[end] == u'-' || t[end] == u'+')) ++end;
    bool seenDot = false;
    for (; end < t.size(); ++end) {
        if (t[end] == u'.' && !seenDot)
            seenDot = true;
        else if (!IsAsciiDigit(t[end]))
            break;
    }
    end = AfterExponent(t, end);
    bool ok = false;
    const double value = t.left(end).replace(u'd', u'e').replace(u'D', u'e').toDouble(&ok);
    return ok ? value : 0.0;
}

} // namespace zlx::NumberText
