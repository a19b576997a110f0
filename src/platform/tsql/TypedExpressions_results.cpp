// CASE, IIF, COALESCE and ISNULL answer one type: ISNULL its first argument's, the others the
// type of highest precedence among their values. A text value among numbers becomes that
// number ('' is 0, a word is 245 for an integer), where SQLite would hand the text back and
// PostgreSQL refuses to mix a text with a number.

#include "platform/tsql/TypeNames.h"
#include "platform/tsql/TypedExpressions.h"

namespace zlx::tsql {

void TypedExpressions::ConvertResultTexts() {
    for (size_t i = 0; i + 1 < m_t.size(); ++i) {
        if (m_t[i].IsWord(u"CASE")) {
            ConvertResultValues(CaseValues(i), false);
        } else if (m_t.SymbolAt(i + 1, u"(") &&
                   IsAnyWord(m_t[i], {u"COALESCE", u"ISNULL", u"IIF"})) {
            std::vector<size_t> starts{i + 2};
            for (size_t comma : m_t.Commas(i + 1, m_t.Close(i + 1)))
                starts.push_back(comma + 1);
            if (m_t[i].IsWord(u"IIF")) starts.erase(starts.begin());
            ConvertResultValues(starts, m_t[i].IsWord(u"ISNULL"));
        }
    }
}

// Where each value of the CASE at `at` begins: after its THENs and its ELSE.
std::vector<size_t> TypedExpressions::CaseValues(size_t at) const {
    std::vector<size_t> starts;
    int depth = 0;
    for (size_t k = at + 1; k < m_t.size(); ++k) {
        const Token& t = m_t[k];
        if (t.IsSymbol(u"(") || t.IsWord(u"CASE")) {
            ++depth;
        } else if (t.IsSymbol(u")") || t.IsWord(u"END")) {
            if (depth-- == 0) break;
        } else if (depth == 0 && (t.IsWord(u"THEN") || t.IsWord(u"ELSE"))) {
            starts.push_back(k + 1);
        }
    }
    return starts;
}

// The values beginning at `starts` take their common number type (`first`: the first value's);
// nothing changes unless every value is a text, a number or NULL.
void TypedExpressions::ConvertResultValues(const std::vector<size_t>& starts, bool first) {
    std::vector<Typed> texts;
    std::vector<QString> numbers;
    for (size_t start : starts) {
        if (m_t.WordAt(start, u"NULL")) continue;
        const auto value = OperandAt(start) ? Chain(start, false) : std::nullopt;
        const Token* after = value ? m_t.At(value->last) : nullptr;
        if (!after || !(after->IsSymbol(u",") || after->IsSymbol(u")") ||
                        IsAnyWord(*after, {u"WHEN", u"ELSE", u"END"})))
            return;
        if (IsTextType(value->type)) {
            texts.push_back(*value);
        } else if (const QString number = NumberTypeOf(*value); !number.isEmpty()) {
            numbers.push_back(number);
        } else {
            return;
        }
        if (first && numbers.empty()) return;
    }
    if (numbers.empty()) return;
    const QString type = first ? numbers.front() : CommonNumberType(numbers);
    if (type.isEmpty()) return;
    for (const Typed& text : texts)
        WrapAsNumber(text, type);
}

} // namespace zlx::tsql
