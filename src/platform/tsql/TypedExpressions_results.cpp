// CASE, IIF, COALESCE and ISNULL answer one type: ISNULL its first argument's, the others the
// type of highest precedence among their values. A text value among numbers becomes that
// number ('' is 0, a word is 245 for an integer), where SQLite would hand the text back and
// PostgreSQL refuses to mix a text with a number; one whose values are all texts is a text,
// which a number beside it in arithmetic converts (CASE ... THEN '1' END + 1 is 2).

#include "platform/tsql/TypeNames.h"
#include "platform/tsql/TypedExpressions.h"

#include <algorithm>

namespace zlx::tsql {

void TypedExpressions::ConvertResultTexts() {
    for (size_t i = 0; i + 1 < m_t.size(); ++i) {
        if (m_t[i].IsWord(u"CASE"))
            ConvertResultValues(CaseValues(i), false);
        else if (m_t.SymbolAt(i + 1, u"(") && IsAnyWord(m_t[i], {u"COALESCE", u"ISNULL", u"IIF"}))
            ConvertResultValues(CallValues(i), m_t[i].IsWord(u"ISNULL"));
    }
}

// Where each value of the COALESCE, ISNULL or IIF call at `name` begins (IIF's condition is
// none).
std::vector<size_t> TypedExpressions::CallValues(size_t name) const {
    std::vector<size_t> starts{name + 2};
    for (size_t comma : m_t.Commas(name + 1, m_t.Close(name + 1)))
        starts.push_back(comma + 1);
    if (m_t[name].IsWord(u"IIF")) starts.erase(starts.begin());
    return starts;
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

size_t TypedExpressions::CaseEnd(size_t at) const {
    int depth = 0;
    for (size_t k = at + 1; k < m_t.size(); ++k) {
        if (m_t[k].IsSymbol(u"(") || m_t[k].IsWord(u"CASE"))
            ++depth;
        else if ((m_t[k].IsSymbol(u")") || m_t[k].IsWord(u"END")) && depth-- == 0)
            return m_t[k].IsWord(u"END") ? k + 1 : k;
    }
    return m_t.size();
}

// The values beginning at `starts`, NULLs left out; nullopt unless each is a text or a number.
std::optional<std::vector<TypedExpressions::Typed>>
TypedExpressions::ResultValues(const std::vector<size_t>& starts) {
    std::vector<Typed> values;
    for (size_t start : starts) {
        if (m_t.WordAt(start, u"NULL")) continue;
        const auto value = OperandAt(start) ? Chain(start, false) : std::nullopt;
        const Token* after = value ? m_t.At(value->last) : nullptr;
        if (!after || !(after->IsSymbol(u",") || after->IsSymbol(u")") ||
                        IsAnyWord(*after, {u"WHEN", u"ELSE", u"END"})))
            return std::nullopt;
        if (!IsTextType(value->type) && NumberTypeOf(*value).isEmpty()) return std::nullopt;
        values.push_back(*value);
    }
    return values;
}

std::vector<QString> TypedExpressions::NumberTypesOf(const std::vector<Typed>& values) const {
    std::vector<QString> numbers;
    for (const Typed& value : values)
        if (!IsTextType(value.type)) numbers.push_back(NumberTypeOf(value));
    return numbers;
}

// The type of CASE, IIF or COALESCE whose values begin at `starts`: their common number type,
// a text type when they are all texts; empty when it is neither.
QString TypedExpressions::ResultType(const std::vector<size_t>& starts) {
    const auto values = ResultValues(starts);
    if (!values || values->empty()) return {};
    if (const std::vector<QString> numbers = NumberTypesOf(*values); !numbers.empty())
        return CommonNumberType(numbers);
    const bool national = std::any_of(values->begin(), values->end(), [](const Typed& value) {
        return IsNationalType(value.type);
    });
    return national ? QStringLiteral("NVARCHAR") : QStringLiteral("VARCHAR");
}

// The values beginning at `starts` take their common number type (`first`: the first value's);
// nothing changes unless every value is a text, a number or NULL.
void TypedExpressions::ConvertResultValues(const std::vector<size_t>& starts, bool first) {
    const auto values = ResultValues(starts);
    if (!values || values->empty() || (first && IsTextType(values->front().type))) return;
    const std::vector<QString> numbers = NumberTypesOf(*values);
    if (numbers.empty()) return;
    const QString type = first ? numbers.front() : CommonNumberType(numbers);
    if (type.isEmpty()) return;
    for (const Typed& value : *values)
        if (IsTextType(value.type)) WrapAsNumber(value, type);
}

} // namespace zlx::tsql
