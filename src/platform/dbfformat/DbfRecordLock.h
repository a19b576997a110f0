#pragma once
// Byte-range locks on a shared DBF file, held by the open file (Linux open-file-description
// locks), so two connections of one process exclude each other as two processes do. Writers
// of a record hold its bytes; appending holds the header, where the record count lives;
// rewriting the table holds the whole file. Readers take the same ranges shared.

#include <cstdint>

namespace zlx {

class DbfRecordLock {
public:
    enum class Kind { Shared, Exclusive };
    // Waits until the range [start, start + length) is granted; length 0 reaches past the end.
    DbfRecordLock(int fd, Kind kind, std::uint64_t start, std::uint64_t length);
    ~DbfRecordLock();
    DbfRecordLock(const DbfRecordLock&) = delete;
    DbfRecordLock& operator=(const DbfRecordLock&) = delete;

    bool Held() const { return m_held; }

private:
    int m_fd;
    std::uint64_t m_start;
    std::uint64_t m_length;
    bool m_held = false;
};

} // namespace zlx
