#pragma once
// A ResultSink that records what a worker thread produces so that the caller's thread can
// replay it later, in order, into the real sink.

#include "platform/engines/Driver.h"

#include <deque>
#include <mutex>
#include <variant>

namespace zlx::ado {

class BufferedSink : public ResultSink {
public:
    void BeginRowset(const std::vector<ColumnInfo>& columns) override;
    bool Row(std::vector<Variant>& values) override;
    void EndRowset() override;
    void RowsAffected(std::int64_t count) override;
    void Info(const ErrorRecord& record) override;

    // Replays every recorded event into `target`. Answers false once the target refused a
    // row; the producer sees that refusal on its next Row call.
    bool Drain(ResultSink& target);

private:
    struct Begin {
        std::vector<ColumnInfo> columns;
    };
    struct RowEvent {
        std::vector<Variant> values;
    };
    struct End {};
    struct Affected {
        std::int64_t count;
    };
    using Event = std::variant<Begin, RowEvent, End, Affected, ErrorRecord>;

    void Push(Event event);

    std::mutex m_mutex;
    std::deque<Event> m_events;
    bool m_refused = false;
};

} // namespace zlx::ado
