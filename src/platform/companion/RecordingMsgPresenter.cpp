#include "platform/companion/RecordingMsgPresenter.h"

namespace zlx {

std::int32_t RecordingMsgPresenter::Present(const MsgRequest& request) {
    m_messages.push_back(request);
    if (m_answers.empty()) return m_defaultAnswer;
    const std::int32_t answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

void RecordingMsgPresenter::QueueAnswers(std::initializer_list<std::int32_t> answers) {
    m_answers.insert(m_answers.end(), answers);
}

} // namespace zlx
