#pragma once
// One .dbf table of a folder shared with other connections and processes. The file is open
// only while a statement uses it (Release closes it), shared with other holders. Reading takes
// the header's record count under a shared lock of the header, then reads records in blocks
// under shared locks of each block; an insert writes the record first and the new count last
// under an exclusive lock of the header, and an update holds its record: so a reader never
// sees a record half written, and two inserters never take the same place.

#include "platform/dbfformat/DbfTable.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

namespace zlx::dbfengine {

class FolderTable {
public:
    explicit FolderTable(QString path) : m_path(std::move(path)) {}

    const QString& Path() const { return m_path; }
    // Opens the file when it is not open; false with `problem` when it cannot be.
    bool Open(QString& problem);
    void Release();
    const DbfLayout& Layout() const { return m_table.Layout(); }

    // The record count now on disk; reading starts over from it.
    std::uint32_t StartReading();
    // Record `row` (1-based, at most the count StartReading answered); null when unreadable.
    const char* Record(std::uint32_t row);
    static bool IsDeleted(const char* record) { return record[0] == '*'; }

    Variant Value(const DbfField& field, const char* record, QString& problem) const;
    // Puts the value in the record's field (memos go into the memo file first); false when
    // it does not convert or does not fit.
    bool SetValue(const DbfField& field, char* record, const Variant& value);
    void BlankRecord(char* record) const { m_table.BlankRecord(record); }

    // Appends the record; its row number, 0 when it could not be written.
    std::uint32_t Append(const char* record);
    // Changes record `row` under its lock: `change` receives the record as it is on disk now
    // and edits it; false when it could not be read or written back.
    bool Modify(std::uint32_t row, const std::function<bool(char*)>& change);

private:
    bool ReopenIfReplaced();

    QString m_path;
    DbfTable m_table;
    std::vector<char> m_block;
    std::vector<char> m_appended; // the record an insert writes, and the end-of-file mark
    std::uint32_t m_blockFirst = 0;
    std::uint32_t m_blockRows = 0;
    std::uint32_t m_count = 0;
};

} // namespace zlx::dbfengine
