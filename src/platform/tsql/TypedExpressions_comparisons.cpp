// A text met by an integer: SQL Server converts the text to the integer's type (data type
// precedence), so '10' > 4 holds and a text that is no number is error 245, where SQLite would
// compare texts and PostgreSQL refuses the operator. The same holds between the branches of
// UNION, EXCEPT and INTERSECT, whose columns take the type of highest precedence.

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/SelectList.h"
#include "platform/tsql/TypeNames.h"
#include "platform/tsql/TypedExpressions.h"

#include <map>

namespace zlx::tsql {
// Whether the operand at `i` stands in a condition (WHERE, ON, HAVING, WHEN, IF, WHILE), not in
// a SET or select-list assignment (SET c = x, SELECT name = x).
bool TypedExpressions::InCondition(size_t i) const {
    int depth = 0;
    for (size_t k = i; k-- > 0;) {
        const Token& t = m_t[k];
        if (t.IsSymbol(u")")) {
            ++depth;
        } else if (t.IsSymbol(u"(")) {
            depth = std::max(0, depth - 1);
        } else if (depth == 0) {
            if (IsAnyWord(t, {u"WHERE", u"ON", u"HAVING", u"WHEN", u"IF", u"WHILE", u"AND", u"OR",
                              u"NOT"}))
                return true;
            if (t.IsSymbol(u",") || IsAnyWord(t, {u"SET", u"SELECT", u"VALUES", u"THEN", u"ELSE"}))
                return false;
        }
    }
    return false;
}

bool TypedExpressions::HasComparison() const {
    for (size_t i = 0; i < m_t.size(); ++i) {
        if (m_t.IsComparison(i) ||
            IsAnyWord(m_t[i], {u"IN", u"BETWEEN", u"UNION", u"EXCEPT", u"INTERSECT"}))
            return true;
    }
    return false;
}

void TypedExpressions::ConvertComparedTexts() {
    for (size_t i = 0; i < m_t.size(); ++i) {
        if (!BeginsChain(i) || !InCondition(i)) continue;
        const auto left = Chain(i, false);
        if (!left) continue;
        std::vector<Typed> others;
        size_t next = left->last;
        if (m_t.IsComparison(next)) {
            if (OperandAt(next + 1)) others.push_back(*Chain(next + 1, false));
        } else if (m_t.WordAt(next, u"BETWEEN")) {
            others = ComparedList(next + 1, u"AND");
        } else if (m_t.WordAt(next, u"IN") ||
                   (m_t.WordAt(next, u"NOT") && m_t.WordAt(next + 1, u"IN"))) {
            const size_t in = m_t.WordAt(next, u"IN") ? next : next + 1;
            if (m_t.SymbolAt(in + 1, u"(") && !m_t.WordAt(in + 2, u"SELECT"))
                others = ComparedList(in + 2, u",");
        }
        ConvertTextSide(*left, others);
    }
}

// The operands separated by `separator` from `first` on (an IN list's values, BETWEEN's two).
std::vector<TypedExpressions::Typed> TypedExpressions::ComparedList(size_t first,
                                                                    QStringView separator) {
    std::vector<Typed> list;
    for (size_t at = first; OperandAt(at);) {
        list.push_back(*Chain(at, false));
        const Token* after = m_t.At(list.back().last);
        const bool more =
            after && (separator == u"," ? after->IsSymbol(u",") : after->IsWord(separator));
        if (!more || separator != u",") {
            if (more) list.push_back(*Chain(list.back().last + 1, false));
            break;
        }
        at = list.back().last + 1;
    }
    return list;
}

// A text compared with numbers only becomes their type; a number compared with a text makes
// the text a number of its type.
void TypedExpressions::ConvertTextSide(const Typed& left, const std::vector<Typed>& others) {
    if (others.empty()) return;
    if (IsTextType(left.type)) {
        std::vector<QString> types;
        for (const Typed& other : others)
            types.push_back(NumberTypeOf(other));
        if (const QString type = CommonNumberType(types); !type.isEmpty()) WrapAsNumber(left, type);
        return;
    }
    const QString type = NumberTypeOf(left);
    if (type.isEmpty()) return;
    for (const Typed& other : others) {
        if (IsTextType(other.type)) WrapAsNumber(other, type);
    }
}

// ISNULL(text, 0): the result has the first argument's type, so a number in second place is
// the text of its digits (COALESCE on PostgreSQL would refuse a text and an integer).
void TypedExpressions::ConvertIsNullReplacements() {
    for (size_t i = 0; i + 1 < m_t.size(); ++i) {
        if (!m_t[i].IsWord(u"ISNULL") || !m_t.SymbolAt(i + 1, u"(")) continue;
        const size_t close = m_t.Close(i + 1);
        const std::vector<size_t> commas = m_t.Commas(i + 1, close);
        if (commas.size() != 1 || commas.front() + 2 != close ||
            m_t[commas.front() + 1].kind != TokenKind::Number || !OperandAt(i + 2))
            continue;
        const auto first = Chain(i + 2, false);
        if (first && first->last == commas.front() && IsTextType(first->type))
            m_t[commas.front() + 1].kind = TokenKind::String;
    }
}

void TypedExpressions::ConvertUnionTexts() {
    std::map<size_t, std::vector<size_t>> compounds; // first SELECT -> every branch's SELECT
    for (size_t i = 0; i < m_t.size(); ++i) {
        if (!IsAnyWord(m_t[i], {u"UNION", u"EXCEPT", u"INTERSECT"})) continue;
        const size_t next = m_t.WordAt(i + 1, u"ALL") ? i + 2 : i + 1;
        const size_t open = m_t.Open(i);
        const size_t first = m_t.DepthZeroWord(open == i ? 0 : open + 1, u"SELECT");
        if (!m_t.WordAt(next, u"SELECT") || first >= i) continue;
        auto& branches = compounds[first];
        if (branches.empty()) branches.push_back(first);
        branches.push_back(next);
    }
    for (const auto& [first, branches] : compounds)
        ConvertBranchColumns(branches);
}

// Each column of the branches: its texts become the column's number type when the others are
// numbers.
void TypedExpressions::ConvertBranchColumns(const std::vector<size_t>& selects) {
    std::vector<std::vector<Typed>> columns;
    for (size_t select : selects) {
        const SelectList list = SelectList::Read(Tokens(m_t.begin() + select, m_t.end()));
        for (size_t k = 0; k < list.items.size(); ++k) {
            const size_t first = select + list.items[k].first;
            const size_t end = select + list.items[k].second;
            const auto whole = OperandAt(first) ? Chain(first, false) : std::nullopt;
            // The value may be followed by its alias: AS name, or the name alone.
            const size_t alias = whole && m_t.WordAt(whole->last, u"AS") ? whole->last + 1
                                 : whole                                 ? whole->last
                                                                         : end;
            const bool valueAlone =
                whole && (whole->last == end || (alias + 1 == end && IsName(m_t[alias])));
            if (columns.size() <= k) columns.emplace_back();
            columns[k].push_back(valueAlone ? *whole : Typed{first, end, {}, false});
        }
    }
    for (const std::vector<Typed>& column : columns) {
        std::vector<QString> numbers; // an integer by its own type, which counts its digits
        std::vector<Typed> texts;
        bool other = false; // a type of other precedence, or one not known
        for (const Typed& item : column) {
            if (const QString number = NumberTypeOf(item); !number.isEmpty())
                numbers.push_back(IntegerTypeOf(item.type).isEmpty() ? number : item.type);
            else if (IsTextType(item.type))
                texts.push_back(item);
            else
                other = other || !(item.last == item.first + 1 && m_t[item.first].IsWord(u"NULL"));
        }
        if (other || numbers.empty()) continue;
        const QString type = SetColumnType(numbers);
        for (const Typed& text : texts)
            WrapAsNumber(text, type);
    }
}

} // namespace zlx::tsql
