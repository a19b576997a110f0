#include "platform/workbook/XlsxSheetParser.h"

#include "platform/workbook/CellReference.h"
#include "platform/workbook/SerialDate.h"
#include "platform/workbook/WorkbookError.h"

#include <QXmlStreamReader>

namespace zlx::workbook {

namespace {

// Walks the XML keeping where the current token starts, which QXmlStreamReader does not
// tell directly: the end of the token before it.
class Scanner {
public:
    explicit Scanner(const QString& text) : m_xml(text) {}
    bool Next() {
        if (m_xml.atEnd()) return false;
        m_tokenStart = m_xml.characterOffset();
        m_xml.readNext();
        return !m_xml.hasError();
    }
    QXmlStreamReader& Xml() { return m_xml; }
    qsizetype TokenStart() const { return m_tokenStart; }
    qsizetype TokenEnd() const { return m_xml.characterOffset(); }
    bool Is(QXmlStreamReader::TokenType type, QStringView name) const {
        return m_xml.tokenType() == type && m_xml.name() == name;
    }

private:
    QXmlStreamReader m_xml;
    qsizetype m_tokenStart = 0;
};

struct RawCell {
    QString type;
    int style = -1;
    QString value;
    QString inlineText;
};

// Reads the children of a <c> up to its end tag: the <v> value and the texts of an inline
// string (phonetic runs left out).
void ReadCellChildren(Scanner& scanner, RawCell& cell) {
    int phonetic = 0;
    bool inValue = false, inInlineText = false;
    while (scanner.Next()) {
        auto& xml = scanner.Xml();
        if (xml.isStartElement()) {
            if (xml.name() == u"rPh") ++phonetic;
            inValue = xml.name() == u"v";
            inInlineText = xml.name() == u"t" && phonetic == 0;
        } else if (xml.isEndElement()) {
            if (xml.name() == u"c") return;
            if (xml.name() == u"rPh") --phonetic;
            inValue = inInlineText = false;
        } else if (xml.isCharacters()) {
            if (inValue) cell.value += xml.text();
            if (inInlineText) cell.inlineText += xml.text();
        }
    }
}

} // namespace

CellValue XlsxSheetParser::Decode(const QString& type, int style, const QString& value,
                                  const QString& inlineText) const {
    CellValue cell;
    if (type == u"inlineStr") {
        cell = CellValue::Text(inlineText);
    } else if (value.isEmpty()) {
        cell = CellValue{};
    } else if (type == u"s") {
        const int index = value.toInt();
        cell = CellValue::Text(index >= 0 && index < m_sharedStrings.size() ? m_sharedStrings[index]
                                                                            : QString());
    } else if (type == u"str") {
        cell = CellValue::Text(value);
    } else if (type == u"b") {
        cell = CellValue::Boolean(value.trimmed() != u"0");
    } else if (type == u"e") {
        cell = CellValue{}; // an error value (#N/A, #DIV/0!) reads as nothing
    } else if (type == u"d") {
        const auto serial = SerialDate::FromIso(value);
        cell = serial ? CellValue::Date(*serial) : CellValue::Text(value);
    } else {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (!ok)
            cell = CellValue::Text(value);
        else if (m_styles.IsDateStyle(style))
            cell = CellValue::Date(number + m_dateOffset);
        else
            cell = CellValue::Number(number);
    }
    cell.style = style;
    return cell;
}

void XlsxSheetParser::Parse(Sheet& sheet) const {
    SheetXmlLayout& layout = sheet.layout;
    layout.rows.clear();
    layout.dimension = {};
    layout.sheetData = {};
    layout.sheetDataClose = -1;
    sheet.cells.clear();
    Scanner scanner(layout.text);
    int rowNumber = 0, columnNumber = 0;
    RowLayout* row = nullptr;
    while (scanner.Next()) {
        auto& xml = scanner.Xml();
        if (xml.isStartElement()) {
            const auto attributes = xml.attributes();
            if (xml.name() == u"dimension") {
                layout.dimension = {scanner.TokenStart(), -1};
            } else if (xml.name() == u"sheetData") {
                layout.sheetData = {scanner.TokenStart(), -1};
                layout.prefix = xml.prefix().isEmpty() ? QString() : xml.prefix().toString() + u':';
            } else if (xml.name() == u"row" && !row && layout.sheetData.Found() &&
                       layout.sheetData.end < 0) {
                const int number = attributes.value(QLatin1String("r")).toInt();
                rowNumber =
                    number > 0 && number <= CellReference::kLastRow ? number : rowNumber + 1;
                columnNumber = 0;
                row = &layout.rows[rowNumber];
                row->element = {scanner.TokenStart(), -1};
                row->startTagEnd = scanner.TokenEnd();
                row->selfClosing =
                    QStringView(layout.text)
                        .mid(scanner.TokenStart(), scanner.TokenEnd() - scanner.TokenStart())
                        .endsWith(u"/>");
            } else if (xml.name() == u"c" && row) {
                const auto reference = CellReference::Parse(attributes.value(QLatin1String("r")));
                columnNumber = reference ? reference->column : columnNumber + 1;
                const qsizetype start = scanner.TokenStart();
                RawCell raw;
                raw.type = attributes.value(QLatin1String("t")).toString();
                raw.style = attributes.hasAttribute(QLatin1String("s"))
                                ? attributes.value(QLatin1String("s")).toInt()
                                : -1;
                ReadCellChildren(scanner, raw);
                row->cells[columnNumber] = {start, scanner.TokenEnd()};
                const CellValue value = Decode(raw.type, raw.style, raw.value, raw.inlineText);
                if (!value.IsEmpty() || value.style >= 0)
                    sheet.cells[rowNumber][columnNumber] = value;
            }
        } else if (xml.isEndElement()) {
            if (xml.name() == u"dimension") {
                layout.dimension.end = scanner.TokenEnd();
            } else if (xml.name() == u"row" && row) {
                row->element.end = scanner.TokenEnd();
                row->closeTag = scanner.TokenStart();
                row = nullptr;
            } else if (xml.name() == u"sheetData") {
                layout.sheetData.end = scanner.TokenEnd();
                // A self-closing <sheetData/> has an end token of no characters.
                if (scanner.TokenEnd() > scanner.TokenStart())
                    layout.sheetDataClose = scanner.TokenStart();
            }
        }
    }
    if (scanner.Xml().hasError())
        throw WorkbookError(QStringLiteral("External table is not in the expected format."));
}

} // namespace zlx::workbook
