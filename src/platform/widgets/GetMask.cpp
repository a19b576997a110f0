#include "platform/widgets/GetMask.h"

#include "platform/widgets/SearchGridWindow.h"

#include <QRegularExpression>

namespace zlx {

GetMask::GetMask(const QString& mask) : m_text(mask) {
    static const QRegularExpression numberMask(
        QStringLiteral(R"(^\((\d+)(?:,(\d+))?\)(?:;(.+))?$)"));
    const QRegularExpressionMatch match = numberMask.match(mask.trimmed());
    if (!match.hasMatch()) return;
    m_number = true;
    m_digits = match.captured(1).toInt();
    m_decimals = match.captured(2).isEmpty() ? 0 : match.captured(2).toInt();
    m_layout = match.captured(3);
    if (m_layout.isEmpty())
        m_layout = QStringLiteral("#,##0") +
                   (m_decimals > 0 ? u'.' + QString(m_decimals, u'0') : QString());
}

QString GetMask::Display(double value) const {
    return SearchGridWindow::FormatNumber(Variant(value), m_layout);
}

std::optional<double> GetMask::Parse(const QString& typed) const {
    QString text = typed.trimmed();
    if (text.isEmpty() || text == u'-') return 0.0;
    text.remove(u'.');
    text.replace(u',', u'.');
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok) return std::nullopt;
    return value;
}

bool GetMask::Accepts(const QString& text) const {
    if (!m_number) return true;
    static const QRegularExpression shape(QStringLiteral(R"(^-?([0-9.]*)(?:,([0-9]*))?$)"));
    const QRegularExpressionMatch match = shape.match(text);
    if (!match.hasMatch()) return false;
    const QString integer = match.captured(1).remove(u'.');
    const bool hasComma = text.contains(u',');
    if (hasComma && m_decimals == 0) return false;
    return integer.size() <= m_digits && match.captured(2).size() <= m_decimals;
}

} // namespace zlx
