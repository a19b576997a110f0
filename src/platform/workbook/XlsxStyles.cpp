#include "platform/workbook/XlsxStyles.h"

#include <QXmlStreamReader>
#include <map>

namespace zlx::workbook {

namespace {

bool IsBuiltInDate(int formatId) {
    return (formatId >= 14 && formatId <= 22) || (formatId >= 27 && formatId <= 36) ||
           (formatId >= 45 && formatId <= 47) || (formatId >= 50 && formatId <= 58);
}

} // namespace

XlsxStyles::XlsxStyles(const QByteArray& stylesXml) {
    std::map<int, QString> codes;
    QXmlStreamReader xml(stylesXml);
    bool inCellXfs = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == u"cellXfs") inCellXfs = false;
        if (!xml.isStartElement()) continue;
        const auto attributes = xml.attributes();
        if (xml.name() == u"numFmt") {
            codes[attributes.value(QLatin1String("numFmtId")).toInt()] =
                attributes.value(QLatin1String("formatCode")).toString();
        } else if (xml.name() == u"cellXfs") {
            inCellXfs = true;
        } else if (inCellXfs && xml.name() == u"xf") {
            const int id = attributes.value(QLatin1String("numFmtId")).toInt();
            const auto code = codes.find(id);
            m_dateStyles.push_back(
                IsDateFormat(id, code == codes.end() ? QString() : code->second));
        }
    }
}

bool XlsxStyles::IsDateStyle(int style) const {
    return style >= 0 && static_cast<std::size_t>(style) < m_dateStyles.size() &&
           m_dateStyles[static_cast<std::size_t>(style)];
}

bool XlsxStyles::IsDateFormat(int formatId, const QString& code) {
    if (IsBuiltInDate(formatId)) return true;
    if (formatId < 164 || code.isEmpty()) return false;
    bool quoted = false;
    int bracket = 0;
    for (qsizetype i = 0; i < code.size(); ++i) {
        const QChar c = code[i];
        if (c == u'"') {
            quoted = !quoted;
        } else if (quoted) {
            continue;
        } else if (c == u'\\' || c == u'_' || c == u'*') {
            ++i; // the next character is shown as it is
        } else if (c == u'[') {
            ++bracket;
        } else if (c == u']') {
            --bracket;
        } else if (bracket == 0 && QStringLiteral("dmyhsDMYHS").contains(c)) {
            return true;
        } else if (c == u';') {
            break; // the first section decides
        }
    }
    return false;
}

} // namespace zlx::workbook
