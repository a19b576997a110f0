#pragma once
// A grid presenter for tests: records every request and picks rows from a script.

#include "platform/companion/SearchGrid.h"

#include <deque>

namespace zlx {

class ScriptedSearchGrid : public SearchGridPresenter {
public:
    std::optional<std::int32_t> Present(const SearchGridRequest& request) override;

    // The next picks, in order (nullopt: the user closes the window); when they run out,
    // nothing is picked.
    void QueuePicks(std::initializer_list<std::optional<std::int32_t>> picks);

    const std::vector<SearchGridRequest>& Requests() const { return m_requests; }
    const SearchGridRequest& Last() const { return m_requests.back(); }

private:
    std::vector<SearchGridRequest> m_requests;
    std::deque<std::optional<std::int32_t>> m_picks;
};

} // namespace zlx
