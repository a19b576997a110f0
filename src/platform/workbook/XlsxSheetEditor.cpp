#include "platform/workbook/XlsxSheetEditor.h"

#include "platform/workbook/CellReference.h"

#include <QStringList>
#include <algorithm>
#include <climits>

namespace zlx::workbook {

namespace {

// What to do at one place of the text: remove `removed` characters and put `text` there.
struct Splice {
    qsizetype removed = 0;
    QString text;
};

using Splices = std::map<qsizetype, Splice>;

QString Escaped(const QString& text) {
    return text.toHtmlEscaped();
}

QString Number(double value) {
    return QString::number(value, 'g', 17);
}

QString UsedRange(const SheetCells& cells) {
    int top = INT_MAX, bottom = 0, left = INT_MAX, right = 0;
    for (const auto& [row, columns] : cells)
        for (const auto& [column, cell] : columns) {
            if (cell.IsEmpty()) continue;
            top = std::min(top, row);
            bottom = std::max(bottom, row);
            left = std::min(left, column);
            right = std::max(right, column);
        }
    if (bottom == 0) return QStringLiteral("A1");
    return CellReference{top, left}.Text() + u':' + CellReference{bottom, right}.Text();
}

// The changed cells of one row that the row does not have yet go before the first cell to
// their right; the ones it has are replaced where they are.
void EditRow(Splices& splices, const RowLayout& layout,
             const std::vector<std::pair<int, QString>>& cells, const QString& text,
             const QString& prefix) {
    if (layout.selfClosing) {
        // <row r="3" .../> becomes <row r="3" ...>cells</row>
        QString replacement =
            text.mid(layout.element.start, layout.startTagEnd - layout.element.start);
        replacement.chop(2);
        replacement += u'>';
        for (const auto& [column, xml] : cells)
            replacement += xml;
        splices[layout.element.start] = {layout.element.end - layout.element.start,
                                         replacement + QStringLiteral("</") + prefix +
                                             QStringLiteral("row>")};
        return;
    }
    for (const auto& [column, xml] : cells) {
        const auto existing = layout.cells.find(column);
        if (existing != layout.cells.end()) {
            Splice& splice = splices[existing->second.start];
            splice.removed = existing->second.end - existing->second.start;
            splice.text += xml;
            continue;
        }
        const auto right = layout.cells.upper_bound(column);
        splices[right == layout.cells.end() ? layout.closeTag : right->second.start].text += xml;
    }
}

} // namespace

QString XlsxSheetEditor::CellXml(int row, int column, const CellValue& value, double dateOffset,
                                 const QString& prefix) {
    const QString c = prefix + u'c', is = prefix + QStringLiteral("is"), t = prefix + u't',
                  v = prefix + u'v';
    QString xml = u'<' + c + QStringLiteral(" r=\"") + CellReference{row, column}.Text() + u'"';
    if (value.style >= 0) xml += QStringLiteral(" s=\"") + QString::number(value.style) + u'"';
    switch (value.kind) {
    case CellValue::Kind::Empty:
        return xml + QStringLiteral("/>");
    case CellValue::Kind::Text:
        return xml +
               QStringLiteral(" t=\"inlineStr\"><%1><%2 xml:space=\"preserve\">%3</%2></%1></%4>")
                   .arg(is, t, Escaped(value.text), c);
    case CellValue::Kind::Boolean:
        return xml + QStringLiteral(" t=\"b\"><%1>%2</%1></%3>")
                         .arg(v, value.number != 0 ? QStringLiteral("1") : QStringLiteral("0"), c);
    case CellValue::Kind::Date:
        return xml +
               QStringLiteral("><%1>%2</%1></%3>").arg(v, Number(value.number - dateOffset), c);
    case CellValue::Kind::Number:
        break;
    }
    return xml + QStringLiteral("><%1>%2</%1></%3>").arg(v, Number(value.number), c);
}

QString XlsxSheetEditor::Apply(const Sheet& sheet, double dateOffset) {
    const SheetXmlLayout& layout = sheet.layout;
    // The changed cells, row by row, each row's in column order.
    std::map<int, std::vector<std::pair<int, QString>>> changed;
    for (const auto& [row, column] : sheet.dirty) {
        const CellValue& value = sheet.cells.at(row).at(column);
        changed[row].emplace_back(column, CellXml(row, column, value, dateOffset, layout.prefix));
    }
    Splices splices;
    QString newRows;
    for (const auto& [row, cells] : changed) {
        const auto existing = layout.rows.find(row);
        if (existing != layout.rows.end()) {
            EditRow(splices, existing->second, cells, layout.text, layout.prefix);
            continue;
        }
        QString xml = QStringLiteral("<%1row r=\"%2\">").arg(layout.prefix).arg(row);
        for (const auto& [column, cellXml] : cells)
            xml += cellXml;
        xml += QStringLiteral("</%1row>").arg(layout.prefix);
        const auto below = layout.rows.upper_bound(row);
        if (below != layout.rows.end())
            splices[below->second.element.start].text += xml;
        else
            newRows += xml;
    }
    if (!newRows.isEmpty()) {
        if (layout.sheetDataClose >= 0)
            splices[layout.sheetDataClose].text += newRows;
        else // <sheetData/>
            splices[layout.sheetData.start] = {
                layout.sheetData.end - layout.sheetData.start,
                QStringLiteral("<%1sheetData>%2</%1sheetData>").arg(layout.prefix, newRows)};
    }
    if (layout.dimension.Found() && layout.dimension.end > layout.dimension.start)
        splices[layout.dimension.start] = {
            layout.dimension.end - layout.dimension.start,
            QStringLiteral("<%1dimension ref=\"%2\"/>").arg(layout.prefix, UsedRange(sheet.cells))};
    QString text = layout.text;
    for (auto it = splices.rbegin(); it != splices.rend(); ++it)
        text.replace(it->first, it->second.removed, it->second.text);
    return text;
}

} // namespace zlx::workbook
