#include "platform/tsql/QueryHints.h"

#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {

void QueryHints::Remove() {
    const size_t option = m_t.DepthZeroWord(0, u"OPTION");
    if (option == m_t.size() || !m_t.SymbolAt(option + 1, u"(")) return;
    const size_t close = m_t.Close(option + 1);
    for (const auto& [first, end] : m_t.Items(option + 1, close, m_t.Commas(option + 1, close)))
        CheckHint(first, end);
    m_t.erase(m_t.begin() + option, m_t.begin() + std::min(close + 1, m_t.size()));
}

void QueryHints::CheckHint(size_t first, size_t end) const {
    // MAXRECURSION is held by RecursionLimit before the hints leave.
    static const std::initializer_list<QStringView> planHints = {
        u"RECOMPILE",
        u"MAXDOP",
        u"FAST",
        u"FORCE",
        u"KEEP",
        u"KEEPFIXED",
        u"OPTIMIZE",
        u"LOOP",
        u"MERGE",
        u"HASH",
        u"ORDER",
        u"CONCAT",
        u"ROBUST",
        u"EXPAND",
        u"MAXRECURSION",
        u"DISABLE_OPTIMIZED_PLAN_FORCING",
        u"NO_PERFORMANCE_SPOOL",
        u"QUERYTRACEON",
        u"IGNORE_NONCLUSTERED_COLUMNSTORE_INDEX"};
    if (first < end && IsAnyWord(m_t[first], planHints)) return;
    QString hint;
    for (size_t k = first; k < end; ++k)
        hint += (k == first ? QString() : m_t[k].leading) + m_t[k].text;
    ThrowUnsupported(u"OPTION ("_qs + hint + u')');
}

} // namespace zlx::tsql
