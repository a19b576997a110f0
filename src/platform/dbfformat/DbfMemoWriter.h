#pragma once
// Appends memos to a .fpt file shared by several writers: each memo goes into fresh blocks at
// the file's next free block, taken and advanced under a lock of the memo file's header. Old
// blocks are never reused, so a reader of an older record still finds its memo.

#include <QByteArray>
#include <QString>
#include <cstdint>

namespace zlx {

class DbfMemoWriter {
public:
    explicit DbfMemoWriter(const QString& path) : m_path(path) {}
    // The number of the first block of the stored text; 0 (nothing stored) when the memo file
    // cannot be written.
    std::uint32_t Append(const QByteArray& text);

private:
    QString m_path;
};

} // namespace zlx
