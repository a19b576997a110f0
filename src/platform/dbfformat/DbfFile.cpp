#include "platform/dbfformat/DbfFile.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zlx {

bool DbfFile::Open(const QString& path, bool truncate, bool shared) {
    Close();
    const QByteArray native = QFile::encodeName(path);
    const int fd = ::open(native.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) return false;
    // Truncating only after the lock is held keeps another holder's file intact.
    if (::flock(fd, (shared ? LOCK_SH : LOCK_EX) | LOCK_NB) != 0 ||
        (truncate && ::ftruncate(fd, 0) != 0)) {
        ::close(fd);
        return false;
    }
    m_fd = fd;
    return true;
}

void DbfFile::Close() {
    if (m_fd >= 0) ::close(m_fd);
    m_fd = -1;
}

std::size_t DbfFile::ReadAt(std::uint64_t position, void* buffer, std::size_t size) const {
    std::size_t done = 0;
    while (m_fd >= 0 && done < size) {
        const ssize_t n = ::pread(m_fd, static_cast<char*>(buffer) + done, size - done,
                                  static_cast<off_t>(position + done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        done += static_cast<std::size_t>(n);
    }
    return done;
}

std::size_t DbfFile::WriteAt(std::uint64_t position, const void* buffer, std::size_t size) {
    std::size_t done = 0;
    while (m_fd >= 0 && done < size) {
        const ssize_t n = ::pwrite(m_fd, static_cast<const char*>(buffer) + done, size - done,
                                   static_cast<off_t>(position + done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        done += static_cast<std::size_t>(n);
    }
    return done;
}

std::uint64_t DbfFile::Size() const {
    struct stat status {};
    if (m_fd < 0 || ::fstat(m_fd, &status) != 0) return 0;
    return static_cast<std::uint64_t>(status.st_size);
}

} // namespace zlx
