#pragma once
// An open DBF file held exclusively (an flock on the descriptor): no other process or object
// can open the same file while this one is open. Opened shared, any number of shared holders
// may have it at once (the folder engine, which locks records itself), but no exclusive one.
// Reads and writes by byte position.

#include <QString>
#include <cstddef>
#include <cstdint>

namespace zlx {

class DbfFile {
public:
    DbfFile() = default;
    ~DbfFile() { Close(); }
    DbfFile(const DbfFile&) = delete;
    DbfFile& operator=(const DbfFile&) = delete;

    // Opens for reading and writing, creating the file when missing; `truncate` empties it.
    // False when the file cannot be opened or another holder has it.
    bool Open(const QString& path, bool truncate, bool shared = false);
    void Close();
    bool IsOpen() const { return m_fd >= 0; }
    int Handle() const { return m_fd; }

    // Bytes actually transferred (short at the end of the file or on failure).
    std::size_t ReadAt(std::uint64_t position, void* buffer, std::size_t size) const;
    std::size_t WriteAt(std::uint64_t position, const void* buffer, std::size_t size);
    // The file's size in bytes (0 when closed).
    std::uint64_t Size() const;

private:
    int m_fd = -1;
};

} // namespace zlx
