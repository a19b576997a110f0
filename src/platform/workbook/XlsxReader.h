#pragma once
// Reads an .xlsx package: the sheets the workbook lists, in its order, with their cells and
// the layout of their XML.

#include "platform/workbook/Sheet.h"
#include "platform/workbook/XlsxStyles.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace zlx::workbook {

class ZipPackage;

struct XlsxContents {
    std::vector<Sheet> sheets;
    double dateOffset = 0; // 1462 for a workbook that counts days from 1904
    QStringList sharedStrings;
    XlsxStyles styles;
};

class XlsxReader {
public:
    // Throws WorkbookError when a part the workbook needs is missing or not well formed.
    static XlsxContents Read(const ZipPackage& package);
};

} // namespace zlx::workbook
