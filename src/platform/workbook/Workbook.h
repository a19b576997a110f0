#pragma once
// An open workbook file: its sheets as tables, and the writing back of changed cells. An
// .xlsx is read and written; an .xls is read only.

#include "platform/workbook/Sheet.h"
#include "platform/workbook/SheetTable.h"
#include "platform/workbook/XlsxReader.h"

#include <QString>
#include <deque>
#include <memory>

namespace zlx::workbook {

class Workbook {
public:
    // Throws WorkbookError when the file is missing or is not a workbook.
    static std::unique_ptr<Workbook> Open(const QString& path);

    const QString& Path() const { return m_path; }
    bool ReadOnly() const { return m_readOnly; }
    // Another program saved the file after this workbook read or wrote it.
    bool ChangedOnDisk() const { return FileStamp() != m_stamp; }
    std::deque<SheetTable>& Tables() { return m_tables; }

    // Writes every changed sheet into the file. Throws WorkbookError, leaving the file as it
    // was, also when another program saved the file after this one read or wrote it: writing
    // the sheets read before would undo that program's changes.
    void Save();

private:
    Workbook(const QString& path, std::vector<Sheet> sheets, bool readOnly);
    // What tells that the file changed: its time of change and size.
    QString FileStamp() const;

    QString m_path;
    QString m_stamp;
    bool m_readOnly;
    XlsxContents m_xlsx; // the .xlsx parts the sheets are read with (its sheets moved out)
    std::deque<Sheet> m_sheets;
    std::deque<SheetTable> m_tables;
};

} // namespace zlx::workbook
