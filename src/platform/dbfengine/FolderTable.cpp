#include "platform/dbfengine/FolderTable.h"

#include "platform/dbfengine/FieldWriter.h"
#include "platform/dbfformat/DbfNewTable.h"
#include "platform/dbfformat/DbfRecordLock.h"

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace zlx::dbfengine {

namespace {

constexpr std::size_t kBlockBytes = 256 * 1024;
constexpr char kEndOfFile = 0x1A;

using Lock = DbfRecordLock;

std::size_t ReadAt(int fd, std::uint64_t position, char* buffer, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n =
            ::pread(fd, buffer + done, size - done, static_cast<off_t>(position + done));
        if (n <= 0) break;
        done += static_cast<std::size_t>(n);
    }
    return done;
}

bool WriteAt(int fd, std::uint64_t position, const char* buffer, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n =
            ::pwrite(fd, buffer + done, size - done, static_cast<off_t>(position + done));
        if (n <= 0) return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

} // namespace

bool FolderTable::Open(QString& problem) {
    if (m_table.IsOpen()) return true;
    QString refusal;
    if (m_table.Open(m_path, 0, refusal, true)) return true;
    problem = !refusal.isEmpty() ? refusal
                                 : QStringLiteral("File '") + m_path +
                                       QStringLiteral("' is not accessible or is in use.");
    return false;
}

void FolderTable::Release() {
    m_table.Close();
    m_blockRows = 0;
}

// A table rewritten by another connection (ALTER TABLE, PACK) is a new file under the same
// name, and the old one, held open here, has no name left: writing to it would be lost.
bool FolderTable::ReopenIfReplaced() {
    struct stat held {};
    if (::fstat(m_table.Handle(), &held) != 0 || held.st_nlink > 0) return false;
    Release();
    QString problem;
    return Open(problem);
}

std::uint32_t FolderTable::StartReading() {
    m_blockRows = 0;
    for (;;) {
        const Lock lock(m_table.Handle(), Lock::Kind::Shared, 0, DbfLayout::kHeaderSize);
        if (ReopenIfReplaced()) continue;
        m_table.ReadHeader();
        break;
    }
    m_count = m_table.RecordCount();
    return m_count;
}

const char* FolderTable::Record(std::uint32_t row) {
    const std::size_t length = m_table.RecordLength();
    if (row < 1 || row > m_count || length == 0) return nullptr;
    if (row < m_blockFirst || row >= m_blockFirst + m_blockRows) {
        const std::uint32_t rows = std::min<std::uint32_t>(
            m_count - row + 1,
            static_cast<std::uint32_t>(std::max<std::size_t>(1, kBlockBytes / length)));
        m_block.resize(std::size_t{rows} * length);
        const std::uint64_t position = Layout().RecordPosition(row);
        const Lock lock(m_table.Handle(), Lock::Kind::Shared, position, m_block.size());
        const std::size_t got = ReadAt(m_table.Handle(), position, m_block.data(), m_block.size());
        m_blockFirst = row;
        m_blockRows = static_cast<std::uint32_t>(got / length);
        if (m_blockRows == 0) return nullptr;
    }
    return &m_block[(row - m_blockFirst) * length];
}

Variant FolderTable::Value(const DbfField& field, const char* record, QString& problem) const {
    return m_table.Value(field, record, problem);
}

bool FolderTable::SetValue(const DbfField& field, char* record, const Variant& value) {
    return WriteField(m_table, DbfNewTable::MemoPath(m_path), field, record, value);
}

std::uint32_t FolderTable::Append(const char* record) {
    for (;;) {
        const Lock lock(m_table.Handle(), Lock::Kind::Exclusive, 0, DbfLayout::kHeaderSize);
        if (!lock.Held()) return 0;
        if (ReopenIfReplaced()) continue;
        if (!m_table.ReadHeader()) return 0;
        const std::uint32_t row = m_table.RecordCount() + 1;
        const std::uint64_t position = Layout().RecordPosition(row);
        const std::size_t length = m_table.RecordLength();
        m_appended.assign(record, record + length);
        m_appended.push_back(kEndOfFile);
        if (!WriteAt(m_table.Handle(), position, m_appended.data(), m_appended.size())) return 0;
        m_table.SetRecordCount(row);
        if (!m_table.WriteHeader()) return 0;
        m_blockRows = 0;
        return row;
    }
}

bool FolderTable::Modify(std::uint32_t row, const std::function<bool(char*)>& change) {
    std::vector<char> record(m_table.RecordLength());
    for (;;) {
        const std::uint64_t position = Layout().RecordPosition(row);
        const Lock lock(m_table.Handle(), Lock::Kind::Exclusive, position, record.size());
        if (!lock.Held()) return false;
        if (ReopenIfReplaced()) {
            record.resize(m_table.RecordLength());
            continue;
        }
        m_blockRows = 0;
        if (ReadAt(m_table.Handle(), position, record.data(), record.size()) != record.size() ||
            !change(record.data()))
            return false;
        return WriteAt(m_table.Handle(), position, record.data(), record.size());
    }
}

} // namespace zlx::dbfengine
