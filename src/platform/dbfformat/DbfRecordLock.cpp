#include "platform/dbfformat/DbfRecordLock.h"

#include <cerrno>
#include <fcntl.h>

namespace zlx {

namespace {

bool SetLock(int fd, short type, std::uint64_t start, std::uint64_t length) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(start);
    lock.l_len = static_cast<off_t>(length);
    int result;
    do {
        result = ::fcntl(fd, F_OFD_SETLKW, &lock);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

DbfRecordLock::DbfRecordLock(int fd, Kind kind, std::uint64_t start, std::uint64_t length)
    : m_fd(fd), m_start(start), m_length(length) {
    m_held = fd >= 0 && SetLock(fd, kind == Kind::Shared ? F_RDLCK : F_WRLCK, start, length);
}

DbfRecordLock::~DbfRecordLock() {
    if (m_held) SetLock(m_fd, F_UNLCK, m_start, m_length);
}

} // namespace zlx
