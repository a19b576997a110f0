#include "platform/variant/NumberText.h"

#include <QRegularExpression>

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
    const QString t = text.trimmed();
    qsizetype end = 0;
    if (end < t.size() && (t[end] == u'-' || t[end] == u'+')) ++end;
    bool seenDot = false;
    for (; end < t.size(); ++end) {
        if (t[end] == u'.' && !seenDot)
            seenDot = true;
        else if (!t[end].isDigit() || t[end].unicode() > 127)
            break;
    }
    bool ok = false;
    const double value = t.left(end).toDouble(&ok);
    return ok ? value : 0.0;
}

} // namespace zlx::NumberText
