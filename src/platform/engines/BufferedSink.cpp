#include "platform/engines/BufferedSink.h"

namespace zlx::ado {

void BufferedSink::Push(Event event) {
    std::lock_guard lock(m_mutex);
    m_events.push_back(std::move(event));
}

void BufferedSink::BeginRowset(const std::vector<ColumnInfo>& columns) {
    Push(Begin{columns});
}

bool BufferedSink::Row(std::vector<Variant>& values) {
    std::lock_guard lock(m_mutex);
    if (m_refused) return false;
    m_events.push_back(RowEvent{std::move(values)});
    return true;
}

void BufferedSink::EndRowset() {
    Push(End{});
}

void BufferedSink::RowsAffected(std::int64_t count) {
    Push(Affected{count});
}

void BufferedSink::Info(const ErrorRecord& record) {
    Push(record);
}

bool BufferedSink::Drain(ResultSink& target) {
    std::deque<Event> events;
    {
        std::lock_guard lock(m_mutex);
        events.swap(m_events);
    }
    for (auto& event : events) {
        if (auto* row = std::get_if<RowEvent>(&event)) {
            if (m_refused) continue;
            if (!target.Row(row->values)) {
                std::lock_guard lock(m_mutex);
                m_refused = true;
            }
        } else if (auto* begin = std::get_if<Begin>(&event)) {
            target.BeginRowset(begin->columns);
        } else if (std::holds_alternative<End>(event)) {
            target.EndRowset();
        } else if (auto* affected = std::get_if<Affected>(&event)) {
            target.RowsAffected(affected->count);
        } else {
            target.Info(std::get<ErrorRecord>(event));
        }
    }
    return !m_refused;
}

} // namespace zlx::ado
