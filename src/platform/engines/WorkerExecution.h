#pragma once
// Runs a blocking batch on a worker thread for drivers whose engine has no asynchronous
// API of its own; the caller polls and receives the results on its own thread.

#include "platform/engines/BufferedSink.h"

#include <atomic>
#include <exception>
#include <functional>
#include <thread>

namespace zlx::ado {

class WorkerExecution {
public:
    ~WorkerExecution();

    // Starts `work` on a new thread; it writes its results to the sink it is given.
    void Start(std::function<void(ResultSink&)> work);
    // Delivers what is ready; true once the work has finished (its error is rethrown then).
    bool Poll(ResultSink& target);
    bool Running() const { return m_thread.joinable(); }
    // Waits for the worker to end, dropping its results (used when closing).
    void Abandon();

private:
    std::thread m_thread;
    std::unique_ptr<BufferedSink> m_buffer;
    std::atomic<bool> m_done{false};
    std::exception_ptr m_error;
};

} // namespace zlx::ado
