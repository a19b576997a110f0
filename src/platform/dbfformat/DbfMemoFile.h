#pragma once
// The memo file beside a table: .dbt (dBASE III: text up to 0x1A in 512-byte blocks; dBASE
// IV: blocks that begin with their length) or .fpt (FoxPro: blocks that begin with a type and
// a length, big-endian). Opened for reading only.

#include "platform/dbfformat/DbfLayout.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>

namespace zlx {

class DbfMemoFile {
public:
    struct Memo {
        QByteArray bytes;
        bool binary = false; // FoxPro's picture and object blocks
    };

    // The memo file of the table at `tablePath` (the same name, extension in any case); an
    // empty text when there is none. EitherOne looks for .fpt, then .dbt.
    static QString FindBeside(const QString& tablePath, DbfMemoStyle style);

    bool Open(const QString& path, DbfMemoStyle style);
    bool IsOpen() const { return m_file && m_file->isOpen(); }
    QString Path() const { return m_file ? m_file->fileName() : QString(); }
    // The memo that begins at block `block`; nothing when the file does not hold it.
    std::optional<Memo> Read(std::uint32_t block) const;

private:
    std::optional<Memo> ReadDbt(std::uint64_t position) const;
    std::optional<Memo> ReadFpt(std::uint64_t position) const;

    std::unique_ptr<QFile> m_file;
    bool m_fpt = false;
    std::uint32_t m_blockSize = 512;
};

} // namespace zlx
