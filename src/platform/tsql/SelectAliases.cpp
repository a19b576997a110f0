#include "platform/tsql/SelectAliases.h"

#include "platform/tsql/SelectList.h"

namespace zlx::tsql {

void SelectAliases::Rewrite() {
    // From the last SELECT back, so that the rewriting leaves the earlier positions in place.
    for (size_t i = m_t.size(); i-- > 0;) {
        if (m_t[i].IsWord(u"SELECT")) RewriteList(i);
    }
}

void SelectAliases::RewriteList(size_t select) {
    const SelectList list = SelectList::Read(Tokens(m_t.begin() + select, m_t.end()));
    for (auto item = list.items.rbegin(); item != list.items.rend(); ++item) {
        const size_t first = select + item->first;
        const size_t end = select + item->second;
        const Token& name = m_t[first];
        const bool alias = name.kind == TokenKind::QuotedName || name.kind == TokenKind::String ||
                           (name.kind == TokenKind::Word && !IsClauseWord(name));
        if (end < first + 3 || !alias || !m_t.SymbolAt(first + 1, u"=")) continue;
        Token named{TokenKind::QuotedName, name.text, u" "_qs};
        const QString leading = name.leading;
        m_t.erase(m_t.begin() + first, m_t.begin() + first + 2);
        m_t[first].leading = leading;
        m_t.insert(m_t.begin() + end - 2, Token{TokenKind::Word, u"AS"_qs, u" "_qs});
        m_t.insert(m_t.begin() + end - 1, named);
    }
}

} // namespace zlx::tsql
