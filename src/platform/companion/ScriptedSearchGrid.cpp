#include "platform/companion/ScriptedSearchGrid.h"

namespace zlx {

std::optional<std::int32_t> ScriptedSearchGrid::Present(const SearchGridRequest& request) {
    // The request keeps a copy of the cells: the caller may reuse its matrix afterwards.
    SearchGridRequest copy = request;
    if (request.data) {
        copy.data = std::make_shared<cMatriz>();
        copy.data->LoadFromArray(request.data->GetVariant());
    }
    m_requests.push_back(std::move(copy));
    if (m_picks.empty()) return std::nullopt;
    const std::optional<std::int32_t> pick = m_picks.front();
    m_picks.pop_front();
    return pick;
}

void ScriptedSearchGrid::QueuePicks(std::initializer_list<std::optional<std::int32_t>> picks) {
    m_picks.insert(m_picks.end(), picks);
}

} // namespace zlx
