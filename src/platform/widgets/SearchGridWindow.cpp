#include "platform/widgets/SearchGridWindow.h"

#include "platform/widgets/DateMask.h"
#include "platform/widgets/SearchBox.h"

#include <QCollator>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace zlx {

namespace {

constexpr int kNumberColumn = 1; // display types: 0 text, 1 number, 2 date

// Adds one to a string of decimal digits ("199" gives "200", "99" gives "100").
QString Increment(QString digits) {
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        if (digits[i] != u'9') {
            digits[i] = QChar(digits[i].unicode() + 1);
            return digits;
        }
        digits[i] = u'0';
    }
    return u'1' + digits;
}

// The number written out in full with "." as decimal point: currency and decimal values
// exactly, doubles by their 15 significant digits; empty when only an exponent form exists.
QString PlainDigits(const Variant& value) {
    if (value.VarType() == vbCurrency || value.VarType() == vbDecimal)
        return value.ToDecimal().ToString();
    const QString text = DoubleToString(value.ToDouble());
    return text.contains(u'E') ? QString() : text;
}

// Rows compare by the search column's values: Null and Empty first, numbers and dates by
// value before text, text in Spanish dictionary order without regard to case.
bool Less(const Variant& a, const Variant& b, const QCollator& collator) {
    const bool aBlank = a.IsNull() || a.IsEmpty(), bBlank = b.IsNull() || b.IsEmpty();
    if (aBlank || bBlank) return aBlank && !bBlank;
    if (const QString* x = a.Get<QString>(), *y = b.Get<QString>(); x && y)
        return collator.compare(*x, *y) < 0;
    return a.Compare(b, true) == -1;
}

} // namespace

QString SearchGridWindow::FormatNumber(const Variant& value, const QString& fullMask) {
    const QString mask = fullMask.section(u';', 0, 0);
    static const QString placeholders = QStringLiteral("#0,.");
    qsizetype first = -1, last = -1;
    for (qsizetype i = 0; i < mask.size(); ++i) {
        if (!placeholders.contains(mask[i])) continue;
        if (first < 0) first = i;
        last = i;
    }
    if (first < 0) return mask;
    const QString prefix = mask.left(first), suffix = mask.mid(last + 1);
    const QString body = mask.mid(first, last - first + 1);
    const qsizetype point = body.indexOf(u'.');
    const QString integerMask = point < 0 ? body : body.left(point);
    const QString fractionMask = point < 0 ? QString() : body.mid(point + 1);
    const bool grouping = integerMask.contains(u',');
    const qsizetype minimumDigits = integerMask.count(u'0');
    const qsizetype required = fractionMask.count(u'0');
    const qsizetype decimals = required + fractionMask.count(u'#');

    QString text = PlainDigits(value);
    if (text.isEmpty()) text = QString::number(value.ToDouble(), 'f', int(decimals));
    const bool negative = text.startsWith(u'-');
    if (negative) text.remove(0, 1);
    const qsizetype dot = text.indexOf(u'.');
    QString integer = dot < 0 ? text : text.left(dot);
    QString fraction = dot < 0 ? QString() : text.mid(dot + 1);
    // Round half away from zero to the mask's decimals.
    if (fraction.size() > decimals) {
        const bool up = fraction[decimals] >= u'5';
        fraction.truncate(decimals);
        if (up) {
            const QString rounded = Increment(integer + fraction);
            integer = rounded.left(rounded.size() - decimals);
            fraction = rounded.right(decimals);
        }
    }
    fraction = fraction.leftJustified(decimals, u'0');
    while (fraction.size() > required && fraction.endsWith(u'0'))
        fraction.chop(1);
    while (integer.startsWith(u'0'))
        integer.remove(0, 1);
    integer = integer.rightJustified(minimumDigits, u'0');
    const bool zero = !(integer + fraction).contains(QRegularExpression(QStringLiteral("[1-9]")));
    if (grouping)
        for (qsizetype i = integer.size() - 3; i > 0; i -= 3)
            integer.insert(i, u'.');
    QString result = integer;
    if (!fraction.isEmpty()) result += u',' + fraction;
    return (negative && !zero ? QStringLiteral("-") : QString()) + prefix + result + suffix;
}

QString SearchGridWindow::CellText(const Variant& value, const QString& mask) {
    if (value.IsNull() || value.IsEmpty()) return {};
    if (!mask.isEmpty() && value.IsNumber() && !IsDateMask(mask)) return FormatNumber(value, mask);
    if (value.VarType() == vbDate && IsDateMask(mask)) return FormatDateMask(value.ToDate(), mask);
    return cMatriz::CellText(value);
}

SearchGridWindow::SearchGridWindow(const SearchGridRequest& request, QWidget* parent)
    : QDialog(parent), m_table(new QTableWidget(this)) {
    setWindowTitle(request.title);
    if (request.zoom > 0 && request.zoom != 1.0) {
        QFont zoomed = font();
        zoomed.setPointSizeF(zoomed.pointSizeF() * request.zoom);
        setFont(zoomed);
    }
    const cMatriz empty;
    const cMatriz& data = request.data ? *request.data : empty;
    const int columns = data.Cols();
    m_searchColumn = std::clamp(request.searchColumn - 1, 0, std::max(0, columns - 1));

    // The rows in the order shown: the matrix's, or sorted by the search column.
    for (std::int32_t row = data.FirstRow(); row <= data.LastRow(); ++row)
        m_rows.push_back(row);
    if (request.searchMode && columns > 0) {
        const std::int32_t col = data.FirstCol() + m_searchColumn;
        QCollator collator{QLocale(QLocale::Spanish, QLocale::Spain)};
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        std::stable_sort(m_rows.begin(), m_rows.end(), [&](std::int32_t a, std::int32_t b) {
            const Variant x = data.GetValue(col, a), y = data.GetValue(col, b);
            return request.descending ? Less(y, x, collator) : Less(x, y, collator);
        });
    }

    m_table->setColumnCount(columns);
    m_table->setRowCount(static_cast<int>(m_rows.size()));
    QStringList headers;
    for (int c = 0; c < columns; ++c)
        headers << (c < request.headers.size() ? request.headers[c] : QString::number(c + 1));
    m_table->setHorizontalHeaderLabels(headers);
    m_table->verticalHeader()->hide();
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    for (int c = 0; c < columns; ++c) {
        const QString mask = c < request.masks.size() ? request.masks[c] : QString();
        const bool number =
            c < static_cast<int>(request.types.size()) && request.types[c] == kNumberColumn;
        const Qt::Alignment align = (number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
        for (int r = 0; r < static_cast<int>(m_rows.size()); ++r) {
            auto* item =
                new QTableWidgetItem(CellText(data.GetValue(data.FirstCol() + c, m_rows[r]), mask));
            item->setTextAlignment(align);
            m_table->setItem(r, c, item);
        }
    }
    // Widths are in characters of the grid's font; 0 hides the column.
    const int charWidth = m_table->fontMetrics().averageCharWidth();
    int totalWidth = 0;
    for (int c = 0; c < columns; ++c) {
        if (c >= static_cast<int>(request.widths.size())) {
            m_table->resizeColumnToContents(c);
        } else if (request.widths[c] <= 0) {
            m_table->hideColumn(c);
            continue;
        } else {
            m_table->setColumnWidth(c, request.widths[c] * charWidth + 2 * charWidth);
        }
        totalWidth += m_table->columnWidth(c);
    }

    auto* layout = new QVBoxLayout(this);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* accept =
        buttons->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    accept->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    if (request.searchMode) {
        m_search = AddSearchBox(*this, *layout);
        connect(m_search, &QLineEdit::textChanged, this, &SearchGridWindow::MoveToMatch);
        buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(m_table, &QTableWidget::cellDoubleClicked, this, &QDialog::accept);
    }
    layout->addWidget(m_table);
    layout->addWidget(buttons);
    if (!m_rows.empty()) m_table->selectRow(0);
    if (m_search) m_search->setFocus();
    resize(std::clamp(totalWidth + 40, 320, 1200), int(420 * std::max(1.0, request.zoom)));
}

std::int32_t SearchGridWindow::MatrixRow(int tableRow) const {
    return m_rows.at(static_cast<std::size_t>(tableRow));
}

std::optional<std::int32_t> SearchGridWindow::SelectedMatrixRow() const {
    const int row = m_table->currentRow();
    if (row < 0 || row >= static_cast<int>(m_rows.size())) return std::nullopt;
    return MatrixRow(row);
}

void SearchGridWindow::MoveToMatch(const QString& text) {
    for (int r = 0; r < m_table->rowCount(); ++r) {
        const QTableWidgetItem* item = m_table->item(r, m_searchColumn);
        if (item && item->text().startsWith(text, Qt::CaseInsensitive)) {
            m_table->setCurrentCell(r, m_searchColumn);
            m_table->scrollToItem(item);
            return;
        }
    }
}

} // namespace zlx
