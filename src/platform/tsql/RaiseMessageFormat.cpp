#include "platform/tsql/RaiseMessageFormat.h"

#include "platform/tsql/TsqlErrors.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr qsizetype kMessageLimit = 2047;

struct Conversion {
    bool left = false, plus = false, space = false, zero = false, alternate = false;
    int width = 0;
    int precision = -1;
    QChar type;
};

struct Flag {
    char16_t sign;
    bool Conversion::*set;
};

constexpr Flag kFlags[] = {{u'-', &Conversion::left},
                           {u'+', &Conversion::plus},
                           {u' ', &Conversion::space},
                           {u'0', &Conversion::zero},
                           {u'#', &Conversion::alternate}};

class MessageWriter {
public:
    MessageWriter(const QString& format, const std::vector<Variant>& arguments)
        : m_format(format), m_arguments(arguments) {}

    QString Write() {
        QString out;
        while (m_pos < m_format.size()) {
            const QChar c = m_format[m_pos++];
            if (c != u'%' || m_pos >= m_format.size()) {
                out += c;
                continue;
            }
            if (m_format[m_pos] == u'%') {
                out += u'%';
                ++m_pos;
                continue;
            }
            const qsizetype start = m_pos - 1;
            const std::optional<Conversion> conversion = ReadConversion();
            out += conversion ? Convert(*conversion) : m_format.mid(start, m_pos - start);
        }
        return out.size() > kMessageLimit ? out.left(kMessageLimit - 3) + QStringLiteral("...")
                                          : out;
    }

private:
    std::optional<Conversion> ReadConversion() {
        Conversion conversion;
        for (; m_pos < m_format.size(); ++m_pos) {
            const auto flag =
                std::find_if(std::begin(kFlags), std::end(kFlags),
                             [&](const Flag& f) { return f.sign == m_format[m_pos]; });
            if (flag == std::end(kFlags)) break;
            conversion.*(flag->set) = true;
        }
        conversion.width = ReadCount(0);
        if (m_pos < m_format.size() && m_format[m_pos] == u'.') {
            ++m_pos;
            conversion.precision = ReadCount(0);
        }
        while (m_pos < m_format.size() && (m_format[m_pos] == u'h' || m_format[m_pos] == u'l'))
            ++m_pos;
        if (m_pos >= m_format.size()) return std::nullopt;
        conversion.type = m_format[m_pos++];
        if (!QStringView(u"diuoxXs").contains(conversion.type)) return std::nullopt;
        return conversion;
    }

    // A width or precision: digits, or * to take it from the next argument.
    int ReadCount(int none) {
        if (m_pos < m_format.size() && m_format[m_pos] == u'*') {
            ++m_pos;
            const Variant* argument = Next();
            return argument && !argument->IsNull() ? static_cast<int>(argument->ToInt64()) : none;
        }
        const qsizetype start = m_pos;
        while (m_pos < m_format.size() && m_format[m_pos].isDigit())
            ++m_pos;
        return start == m_pos ? none : m_format.mid(start, m_pos - start).toInt();
    }

    const Variant* Next() {
        ++m_used;
        return m_used <= m_arguments.size() ? &m_arguments[m_used - 1] : nullptr;
    }

    QString Convert(const Conversion& conversion) {
        const Variant* argument = Next();
        if (!argument || argument->IsNull()) return Padded(QStringLiteral("(null)"), conversion);
        const bool text = argument->VarType() == vbString;
        if (text != (conversion.type == u's'))
            ThrowStatementError(QStringLiteral("The data type of substitution parameter %1 does "
                                               "not match the type its conversion in the "
                                               "message expects.")
                                    .arg(m_used),
                                2786);
        if (text) {
            const QString value = argument->ToInvariantString();
            return Padded(conversion.precision >= 0 ? value.left(conversion.precision) : value,
                          conversion);
        }
        return Padded(Integer(argument->ToInt64(), conversion), conversion);
    }

    static QString Integer(std::int64_t value, const Conversion& conversion) {
        const QChar type = conversion.type;
        QString digits, sign;
        if (type == u'd' || type == u'i') {
            digits = QString::number(value < 0 ? -static_cast<quint64>(value)
                                               : static_cast<quint64>(value));
            sign = value < 0          ? u"-"_qs
                   : conversion.plus  ? u"+"_qs
                   : conversion.space ? u" "_qs
                                      : QString();
        } else {
            // The unsigned conversions read the value as a 32-bit unsigned number, as C does.
            const auto bits = static_cast<quint32>(value);
            const int base = type == u'u' ? 10 : type == u'o' ? 8 : 16;
            digits = QString::number(bits, base);
            if (type == u'X') digits = digits.toUpper();
            if (conversion.alternate && bits != 0 && base != 10)
                sign = base == 8 ? u"0"_qs : type == u'X' ? u"0X"_qs : u"0x"_qs;
        }
        if (conversion.precision > digits.size())
            digits = digits.rightJustified(conversion.precision, u'0');
        if (conversion.zero && !conversion.left && conversion.precision < 0)
            digits = digits.rightJustified(conversion.width - sign.size(), u'0');
        return sign + digits;
    }

    static QString Padded(const QString& value, const Conversion& conversion) {
        return conversion.left ? value.leftJustified(conversion.width)
                               : value.rightJustified(conversion.width);
    }

    const QString& m_format;
    const std::vector<Variant>& m_arguments;
    qsizetype m_pos = 0;
    size_t m_used = 0;
};

} // namespace

QString FormatRaisedText(const QString& format, const std::vector<Variant>& arguments) {
    return MessageWriter(format, arguments).Write();
}

} // namespace zlx::tsql
