#pragma once
// Pick-list presenters for tests: they record every request and answer from a script
// (0, the window closed without a pick, when the script runs out).

#include "platform/companion/PickList.h"

#include <deque>

namespace zlx {

template <class Presenter, class Request> class ScriptedPicks : public Presenter {
public:
    std::int32_t Present(const Request& request) override {
        m_requests.push_back(request);
        if (m_picks.empty()) return 0;
        const std::int32_t pick = m_picks.front();
        m_picks.pop_front();
        return pick;
    }
    void QueuePicks(std::initializer_list<std::int32_t> picks) {
        m_picks.insert(m_picks.end(), picks);
    }
    const std::vector<Request>& Requests() const { return m_requests; }
    const Request& Last() const { return m_requests.back(); }

private:
    std::vector<Request> m_requests;
    std::deque<std::int32_t> m_picks;
};

using ScriptedPopupList = ScriptedPicks<PopupListPresenter, PopupListRequest>;
using ScriptedLookupGrid = ScriptedPicks<LookupGridPresenter, LookupGridRequest>;

} // namespace zlx
