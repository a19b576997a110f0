#include "platform/engines/WorkerExecution.h"

#include "platform/variant/ZlxAssert.h"

namespace zlx::ado {

WorkerExecution::~WorkerExecution() {
    Abandon();
}

void WorkerExecution::Start(std::function<void(ResultSink&)> work) {
    Abandon();
    m_buffer = std::make_unique<BufferedSink>();
    m_done = false;
    m_error = nullptr;
    m_thread = std::thread([this, work = std::move(work)] {
        try {
            work(*m_buffer);
        } catch (...) {
            m_error = std::current_exception();
        }
        m_done = true;
    });
}

bool WorkerExecution::Poll(ResultSink& target) {
    if (!m_thread.joinable()) return true;
    ZLX_ASSERT(m_buffer, "a running batch has a buffer for its results");
    const bool finished = m_done; // read before draining so no late event is lost
    m_buffer->Drain(target);
    if (!finished) return false;
    m_thread.join();
    if (auto error = std::exchange(m_error, nullptr)) std::rethrow_exception(error);
    return true;
}

void WorkerExecution::Abandon() {
    if (m_thread.joinable()) m_thread.join();
    m_error = nullptr;
}

} // namespace zlx::ado
