#include "platform/tsql/DistinctTexts.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/LargeTextRefusals.h"
#include "platform/tsql/SelectList.h"
#include "platform/tsql/TsqlErrors.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr std::int32_t kNotComparable = 421;

} // namespace

void DistinctTexts::Collate() {
    std::vector<size_t> done; // the SELECTs of set operations already seen
    for (size_t i = 0; i + 2 < m_t.size(); ++i) {
        const bool distinct = m_t.WordAt(i + 1, u"DISTINCT");
        if (m_t[i].IsWord(u"SELECT") && distinct) {
            for (const Range& value : Values(i)) {
                RefuseLargeText(value);
                if (IsLooseText(value)) m_values.push_back(value);
            }
        } else if (m_t[i].IsWord(u"SELECT") &&
                   std::find(done.begin(), done.end(), i) == done.end()) {
            const std::vector<size_t> branches = DistinctBranches(i);
            done.insert(done.end(), branches.begin(), branches.end());
            CollateBranches(branches);
        } else if (m_t[i].IsWord(u"COUNT") && m_t.SymbolAt(i + 1, u"(") &&
                   m_t.WordAt(i + 2, u"DISTINCT")) {
            const Range value{i + 3, m_t.ExpressionEnd(i + 3)};
            if (m_t.SymbolAt(value.second, u")") && IsLooseText(value)) m_values.push_back(value);
        }
    }
    if (m_values.empty()) return;
    const QString call = DialectOf(m_context).CollatedText(QStringLiteral("\x01"));
    // From the last on, so that the positions before stay where they are.
    std::sort(m_values.begin(), m_values.end());
    for (auto value = m_values.rbegin(); value != m_values.rend(); ++value) {
        m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(value->second),
                   Raw(call.section(u'\x01', 1)));
        QString leading = std::exchange(m_t[value->first].leading, QString());
        m_t.insert(m_t.begin() + static_cast<std::ptrdiff_t>(value->first),
                   Raw(call.section(u'\x01', 0, 0), leading));
    }
}

std::vector<DistinctTexts::Range> DistinctTexts::Values(size_t select) const {
    std::vector<Range> values;
    const SelectList list = SelectList::Read(Tokens(m_t.begin() + select, m_t.end()));
    for (const auto& [first, end] : list.items) {
        const size_t valueEnd = m_t.ExpressionEnd(select + first);
        values.push_back({select + first, std::min(valueEnd, select + end)});
    }
    return values;
}

std::vector<size_t> DistinctTexts::DistinctBranches(size_t select) const {
    const size_t open = m_t.Open(select);
    const size_t first = open == select ? 0 : open + 1;
    const size_t end = open == select ? m_t.size() : m_t.Close(open);
    std::vector<size_t> selects;
    bool distinct = false;
    int depth = 0;
    for (size_t k = first; k < end; ++k) {
        if (m_t[k].IsSymbol(u"(")) {
            ++depth;
        } else if (m_t[k].IsSymbol(u")")) {
            --depth;
        } else if (depth == 0 && m_t[k].IsWord(u"SELECT")) {
            selects.push_back(k);
        } else if (depth == 0 && IsAnyWord(m_t[k], {u"UNION", u"EXCEPT", u"INTERSECT"})) {
            distinct = distinct || !m_t.WordAt(k + 1, u"ALL");
        }
    }
    return distinct && selects.size() > 1 ? selects : std::vector<size_t>{};
}

// A column is collated when every branch gives it a text: a number beside a text makes the
// text a number.
void DistinctTexts::CollateBranches(const std::vector<size_t>& selects) {
    if (selects.empty()) return;
    std::vector<std::vector<Range>> rows;
    for (size_t select : selects) {
        rows.push_back(Values(select));
        std::for_each(rows.back().begin(), rows.back().end(),
                      [this](Range value) { RefuseLargeText(value); });
    }
    for (size_t column = 0; column < rows.front().size(); ++column) {
        const bool texts = std::all_of(rows.begin(), rows.end(), [&](const auto& row) {
            return column < row.size() && IsText(row[column]);
        });
        for (const auto& row : rows)
            if (texts && IsLooseText(row[column])) m_values.push_back(row[column]);
    }
}

// A text literal, NULL, a text column, a text function's call or texts joined by "+".
bool DistinctTexts::IsText(Range value) const {
    for (size_t k = value.first; k < value.second;) {
        const size_t end = m_t.PrimaryEnd(k);
        if (end == k) return false;
        const bool text = m_t[k].kind == TokenKind::String || m_t[k].IsWord(u"NULL") ||
                          (IsTextFunction(m_t[k]) && m_t.SymbolAt(k + 1, u"(")) ||
                          (m_t.NamedColumn(k, end) && m_columns.IsText(end - 1));
        if (!text || (end < value.second && !m_t.SymbolAt(end, u"+"))) return false;
        k = end + 1;
    }
    return value.second > value.first;
}

// TEXT and NTEXT values are not comparable: SQL Server's error 421.
void DistinctTexts::RefuseLargeText(Range value) const {
    if (!m_t.NamedColumn(value.first, value.second)) return;
    const QString type =
        LargeTextRefusals::LargeTextType(m_t, m_columns, m_context, value.second - 1);
    if (!type.isEmpty())
        ThrowStatementError(
            QStringLiteral("The %1 data type cannot be selected as DISTINCT because it is not "
                           "comparable.")
                .arg(type),
            kNotComparable);
}

bool DistinctTexts::IsLooseText(Range value) const {
    const bool literal =
        value.second == value.first + 1 && m_t[value.first].kind == TokenKind::String;
    const bool joined = std::any_of(m_t.begin() + static_cast<std::ptrdiff_t>(value.first),
                                    m_t.begin() + static_cast<std::ptrdiff_t>(value.second),
                                    [](const Token& token) { return token.IsSymbol(u"+"); });
    return (literal || joined) && IsText(value);
}

} // namespace zlx::tsql
