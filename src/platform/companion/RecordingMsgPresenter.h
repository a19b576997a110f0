#pragma once
// A presenter for tests: records every message and answers from a script.

#include "platform/companion/MsgPresenter.h"

#include <deque>
#include <vector>

namespace zlx {

class RecordingMsgPresenter : public MsgPresenter {
public:
    std::int32_t Present(const MsgRequest& request) override;

    // The next answers, in order; when they run out, DefaultAnswer is given.
    void QueueAnswers(std::initializer_list<std::int32_t> answers);
    void SetDefaultAnswer(std::int32_t answer) { m_defaultAnswer = answer; }

    const std::vector<MsgRequest>& Messages() const { return m_messages; }
    const MsgRequest& Last() const { return m_messages.back(); }
    void Clear() { m_messages.clear(); }

private:
    std::vector<MsgRequest> m_messages;
    std::deque<std::int32_t> m_answers;
    std::int32_t m_defaultAnswer = MsgAnswerAffirmative;
};

} // namespace zlx
