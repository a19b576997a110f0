#pragma once
// Reads an .xls (BIFF) workbook through FreeXL: every worksheet with its cells.

#include "platform/workbook/Sheet.h"

#include <QString>
#include <vector>

namespace zlx::workbook {

class XlsReader {
public:
    // Throws WorkbookError when the file is not an .xls workbook FreeXL can read.
    static std::vector<Sheet> Read(const QString& path);
};

} // namespace zlx::workbook
