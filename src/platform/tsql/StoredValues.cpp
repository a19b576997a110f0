#include "platform/tsql/StoredValues.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/SelectList.h"
#include "platform/tsql/TsqlDateFunctions.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlLiterals.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TsqlTranslator.h"
#include "platform/tsql/TypeNames.h"

#include <algorithm>

namespace zlx::tsql {

StoredValues::StoredValues(StatementTokens& tokens, const TranslationContext& context)
    : m_t(tokens), m_context(context), m_dialect(DialectOf(context)) {}

void StoredValues::PrepareStoredValues() {
    const bool insert = m_t.WordAt(0, u"INSERT");
    if (!m_context.tableColumns || (!insert && !m_t.WordAt(0, u"UPDATE"))) return;
    if (const size_t select = insert ? m_t.DepthZeroWord(0, u"SELECT") : m_t.size();
        select < m_t.size())
        return ConvertSelectedValues(select);
    const QString x = QStringLiteral("x");
    if (m_dialect.ScaledDecimal(x, 1, 0).isEmpty() && m_dialect.PaddedText(x, 1).isEmpty() &&
        m_dialect.StoredBit(x).isEmpty())
        return;
    m_target = StoreTarget(insert);
    if (std::none_of(m_target->columns.begin(), m_target->columns.end(),
                     [this](const TableColumn& c) { return !StoringCall(c).isEmpty(); }))
        return;
    WrapItems(insert ? InsertedItems() : SetItems(), false);
}

void StoredValues::ConvertSelectedValues(size_t select) {
    m_target = StoreTarget(true);
    const SelectList list = SelectList::Read(Tokens(m_t.begin() + select, m_t.end()));
    std::vector<StoredItem> items;
    for (size_t position = 0; position < list.items.size(); ++position) {
        const size_t first = select + list.items[position].first;
        const size_t last = ValueEnd(first, select + list.items[position].second);
        const QString column =
            m_target->listed ? m_target->listed->value(static_cast<qsizetype>(position))
            : position < m_target->columns.size() ? m_target->columns[position].name
                                                  : QString();
        if (last > first && !m_t[last - 1].IsSymbol(u"*")) items.push_back({first, last, column});
    }
    WrapItems(items, true);
}

size_t StoredValues::ValueEnd(size_t first, size_t last) const {
    if (last >= first + 3 && m_t[last - 2].IsWord(u"AS")) return last - 2;
    const Token& before = m_t[last - 2];
    const bool aliased = last >= first + 2 && IsName(m_t[last - 1]) &&
                         !m_t[last - 1].IsWord(u"END") &&
                         (IsName(before) || before.IsSymbol(u")") ||
                          before.kind == TokenKind::Number || before.kind == TokenKind::String);
    return aliased ? last - 1 : last;
}

void StoredValues::WrapItems(const std::vector<StoredItem>& items, bool converting) {
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        const TableColumn* column = FindColumn(m_target->columns, item->column);
        if (!column) continue;
        const QString call = converting ? ConvertingCall(*column) : StoringCall(*column);
        // DEFAULT stays as written; a blank text of VALUES or SET is StoredText's, and so is a
        // text stored in a date column, read as the column's type.
        const Token& value = m_t[item->first];
        const bool single = item->last == item->first + 1;
        const bool storedText =
            !converting && value.kind == TokenKind::String &&
            (value.text.trimmed().isEmpty() || column->kind == ColumnKind::Date);
        if (call.isEmpty() || (single && (value.IsWord(u"DEFAULT") ||
                                          (storedText && column->kind != ColumnKind::Text))))
            continue;
        Wrap(item->first, item->last, call);
    }
}

// The call's own parentheses around the value are tokens of their own, so that the values after
// it in a VALUES row keep their places.
void StoredValues::Wrap(size_t first, size_t last, const QString& call) {
    const QString before = call.section(u'\x01', 0, 0);
    const QString after = call.section(u'\x01', 1);
    const bool parenthesised = before.endsWith(u'(') && after.endsWith(u')');
    Tokens opening{Raw(parenthesised ? before.chopped(1) : before, m_t[first].leading)};
    Tokens closing{Raw(parenthesised ? after.chopped(1) : after)};
    if (parenthesised) {
        opening.push_back(Token{TokenKind::Symbol, QStringLiteral("("), QString()});
        closing.push_back(Token{TokenKind::Symbol, QStringLiteral(")"), QString()});
    }
    std::erase_if(opening, [](const Token& t) { return t.text.isEmpty(); });
    std::erase_if(closing, [](const Token& t) { return t.text.isEmpty(); });
    m_t[first].leading.clear();
    for (auto t = closing.rbegin(); t != closing.rend(); ++t)
        m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(last), *t);
    for (auto t = opening.rbegin(); t != opening.rend(); ++t)
        m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(first), *t);
}

QString StoredValues::ConvertingCall(const TableColumn& column) const {
    switch (column.kind) {
    case ColumnKind::Integer:
    case ColumnKind::Decimal:
    case ColumnKind::Money:
        return m_dialect.Cast(QStringLiteral("\x01"), column.type.simplified().toUpper(), false);
    default:
        return StoringCall(column);
    }
}

QString StoredValues::StoringCall(const TableColumn& column) const {
    const QString marker = QStringLiteral("\x01");
    if (column.kind == ColumnKind::Bit) return m_dialect.StoredBit(marker);
    if (const auto date = ado::DateType::Named(column.type);
        date && date->kind != ado::DateTypeKind::DateTime)
        return m_dialect.AsDateType(marker, *date);
    if (const auto digits = DecimalType(column.type))
        return m_dialect.ScaledDecimal(marker, digits->precision, digits->scale);
    const auto text = SizedTextType(column.type.trimmed().toUpper());
    return text && !text->variable ? m_dialect.PaddedText(marker, text->length.toInt()) : QString();
}

void StoredValues::NameInsertedColumns() {
    if (!m_context.tableColumns || !m_t.WordAt(0, u"INSERT")) return;
    const size_t name = m_t.WordAt(1, u"INTO") ? 2 : 1;
    const size_t end = m_t.QualifiedNameEnd(name);
    if (end == name || !(m_t.WordAt(end, u"VALUES") || m_t.WordAt(end, u"SELECT"))) return;
    const TableColumns columns = StoreTarget(true).columns;
    if (std::none_of(columns.begin(), columns.end(),
                     [](const TableColumn& c) { return c.identity; }))
        return;
    QStringList names;
    for (const TableColumn& column : columns)
        if (!column.identity) names << u'[' + column.name + u']';
    const Tokens list = Tokenize(u" ("_qs + names.join(u", "_qs) + u')');
    for (auto token = list.rbegin(); token != list.rend(); ++token)
        m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(end), *token);
}

std::vector<StoredValues::StoredItem> StoredValues::InsertedItems() const {
    std::vector<StoredItem> items;
    for (size_t open = m_t.DepthZeroWord(0, u"VALUES") + 1; m_t.SymbolAt(open, u"("); open += 2) {
        const size_t close = m_t.Close(open);
        size_t position = 0;
        for (const auto& [first, last] : m_t.Items(open, close, m_t.Commas(open, close))) {
            const QString column =
                m_target->listed ? m_target->listed->value(static_cast<qsizetype>(position))
                : position < m_target->columns.size() ? m_target->columns[position].name
                                                      : QString();
            if (last > first) items.push_back({first, last, column});
            ++position;
        }
        open = close;
        if (!m_t.SymbolAt(open + 1, u",")) break;
    }
    return items;
}

std::vector<StoredValues::StoredItem> StoredValues::SetItems() const {
    std::vector<StoredItem> items;
    size_t first = m_t.DepthZeroWord(0, u"SET") + 1;
    for (size_t i = first, depth = 0; i <= m_t.size(); ++i) {
        const bool end =
            i == m_t.size() || (depth == 0 && (m_t[i].IsSymbol(u",") || m_t[i].IsWord(u"WHERE") ||
                                               m_t[i].IsWord(u"FROM") || m_t[i].IsWord(u"OPTION")));
        if (end) {
            if (i > first + 2 && m_t[first + 1].IsSymbol(u"=") && IsName(m_t[first]))
                items.push_back({first + 2, i, m_t[first].text});
            if (i == m_t.size() || !m_t[i].IsSymbol(u",")) break;
            first = i + 1;
        } else if (m_t[i].IsSymbol(u"(")) {
            ++depth;
        } else if (m_t[i].IsSymbol(u")")) {
            --depth;
        }
    }
    return items;
}

bool StoredValues::DropsTrailingBlanks(size_t i) const {
    if (!m_dialect.TrailingBlanksCount() || InSetList(i)) return false;
    if (m_t.IsComparison(i - 1) || m_t.IsComparison(i + 1)) return true;
    if (m_t.WordAt(m_t.WordAt(i + 1, u"NOT") ? i + 2 : i + 1, u"IN")) return true;
    // A whole value of an IN list is compared too.
    const size_t open = m_t.Open(i);
    return open != i && m_t.WordAt(open - 1, u"IN") &&
           (m_t.SymbolAt(i - 1, u"(") || m_t.SymbolAt(i - 1, u",")) &&
           (m_t.SymbolAt(i + 1, u")") || m_t.SymbolAt(i + 1, u","));
}

bool StoredValues::IsInsertedValue(size_t i) const {
    return m_t.WordAt(0, u"INSERT") && m_t.IsValuesRowItem(i);
}

QString StoredValues::StoredText(size_t i) {
    const QString& text = m_t[i].text;
    const bool blank = text.trimmed().isEmpty();
    const QString word = text.trimmed().toUpper();
    const bool truth = word == u"TRUE" || word == u"FALSE";
    if (!m_context.tableColumns) return {};
    const std::optional<StoredColumn> stored = StoredColumnOf(i);
    const std::optional<ColumnKind> kind = stored ? stored->kind : std::nullopt;
    if (!kind) return {};
    if (blank) return BlankAs(*kind);
    // DATE, TIME, DATETIME2 and SMALLDATETIME read the text as they keep it.
    if (*kind == ColumnKind::Date && stored->type.compare(u"DATETIME", Qt::CaseInsensitive) != 0)
        return DateWriterFor(m_context).CastValue(CallArgument::TextLiteral(text), stored->type);
    // An integer column takes a text of an integer only ('12.5' is error 245).
    if (*kind == ColumnKind::Integer) {
        RequireIntegerText(text);
        return text.trimmed();
    }
    // A BIT takes the words TRUE and FALSE.
    if (truth && *kind == ColumnKind::Bit)
        return word == u"TRUE" ? QStringLiteral("1") : QStringLiteral("0");
    // A text of a date's shape that is no date (30/02/2024) is refused as SQL Server does; one
    // with a month's name is read as SQL Server reads it.
    if (*kind == ColumnKind::Date &&
        ((HasDateShape(text) && NormalizedDateLiteral(text, m_context.dayMonthYear).isEmpty()) ||
         DateWriterFor(m_context).NamesMonth(text)))
        return DateWriterFor(m_context).CastLiteral(CallArgument::TextLiteral(text),
                                                    QStringLiteral("DATETIME"));
    return {};
}

QString StoredValues::BlankAs(ColumnKind kind) const {
    switch (kind) {
    case ColumnKind::Integer:
    case ColumnKind::Bit:
    case ColumnKind::Float:
    case ColumnKind::Money:
        return QStringLiteral("0");
    case ColumnKind::Decimal:
        ThrowStatementError(QStringLiteral("Error converting data type varchar to numeric."),
                            ado::kNativeNumericConversion, QStringLiteral("22018"));
    case ColumnKind::Date:
        return m_dialect.DateLiteral(QuoteString(m_context.jetDates
                                                     ? QStringLiteral("1899-12-30 00:00:00")
                                                     : QStringLiteral("1900-01-01 00:00:00")));
    case ColumnKind::Text:
    case ColumnKind::Other:
        break;
    }
    return {};
}

std::optional<StoredValues::StoredColumn> StoredValues::StoredColumnOf(size_t i) {
    const bool inserted = IsInsertedValue(i);
    const std::optional<size_t> selected = inserted ? std::nullopt : SelectedPosition(i);
    if (!inserted && !selected && !(IsWholeSetValue(i) && i >= 2 && IsName(m_t[i - 2])))
        return std::nullopt;
    // The target's columns are looked up once per statement.
    if (!m_target) m_target = StoreTarget(inserted || selected);
    StoredColumn stored;
    if (inserted || selected) {
        const size_t position = selected ? *selected : m_t.ValuePosition(i);
        if (m_target->listed)
            stored.name = m_target->listed->value(static_cast<qsizetype>(position));
        else if (position < m_target->columns.size())
            stored.name = m_target->columns[position].name;
    } else {
        stored.name = m_t[i - 2].text;
    }
    if (const TableColumn* found = FindColumn(m_target->columns, stored.name)) {
        stored.kind = found->kind;
        stored.type = found->type;
    }
    return stored;
}

std::optional<size_t> StoredValues::SelectedPosition(size_t i) const {
    if (!m_t.WordAt(0, u"INSERT") || m_t[i].kind != TokenKind::String) return std::nullopt;
    // Each SELECT outside parentheses (those joined by UNION too) fills the same columns.
    for (size_t select = m_t.DepthZeroWord(0, u"SELECT"); select < i;
         select = m_t.DepthZeroWord(select + 1, u"SELECT")) {
        const SelectList list =
            SelectList::Read(Tokens(m_t.begin() + static_cast<std::ptrdiff_t>(select), m_t.end()));
        for (size_t k = 0; k < list.items.size(); ++k)
            if (list.items[k] == std::pair(i - select, i - select + 1)) return k;
    }
    return std::nullopt;
}

StoredValues::StoreTargetColumns StoredValues::StoreTarget(bool insert) const {
    const size_t name = insert && m_t.WordAt(1, u"INTO") ? 2 : 1;
    const size_t end = m_t.QualifiedNameEnd(name);
    StoreTargetColumns target;
    if (end == name) return target;
    if (m_context.tableColumns)
        target.columns = m_context.tableColumns(
            TokensToSql(Tokens(m_t.begin() + name, m_t.begin() + end)).trimmed());
    if (insert && m_t.SymbolAt(end, u"(")) target.listed = m_t.ColumnList(end);
    return target;
}

bool StoredValues::IsWholeSetValue(size_t i) const {
    return InSetList(i) && m_t.SymbolAt(i - 1, u"=") &&
           (!m_t.At(i + 1) || m_t.SymbolAt(i + 1, u",") || m_t.WordAt(i + 1, u"WHERE") ||
            m_t.WordAt(i + 1, u"FROM"));
}

bool StoredValues::InSetList(size_t i) const {
    if (!m_t.WordAt(0, u"UPDATE")) return false;
    bool inSet = false;
    for (size_t j = 0; j < i; ++j) {
        if (m_t[j].IsWord(u"SET"))
            inSet = true;
        else if (m_t[j].IsWord(u"WHERE") || m_t[j].IsWord(u"FROM"))
            inSet = false;
    }
    return inSet;
}

} // namespace zlx::tsql
