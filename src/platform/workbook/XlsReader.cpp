#include "platform/workbook/XlsReader.h"

#include "platform/workbook/SerialDate.h"
#include "platform/workbook/WorkbookError.h"

#include <freexl.h>
#include <memory>

namespace zlx::workbook {

namespace {

struct FreeXlClose {
    void operator()(const void* handle) const { freexl_close(handle); }
};
using FreeXlHandle = std::unique_ptr<const void, FreeXlClose>;

[[noreturn]] void NotAWorkbook() {
    throw WorkbookError(QStringLiteral("External table is not in the expected format."));
}

CellValue ToCell(const FreeXL_CellValue& cell) {
    switch (cell.type) {
    case FREEXL_CELL_INT:
        return CellValue::Number(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return CellValue::Number(cell.value.double_value);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
        return CellValue::Text(QString::fromUtf8(cell.value.text_value));
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME: {
        const QString text = QString::fromUtf8(cell.value.text_value);
        const auto serial = SerialDate::FromIso(text);
        return serial ? CellValue::Date(*serial) : CellValue::Text(text);
    }
    case FREEXL_CELL_TIME: {
        const auto serial = SerialDate::FromIso(QStringLiteral("1899-12-30 ") +
                                                QString::fromUtf8(cell.value.text_value));
        return serial ? CellValue::Date(*serial) : CellValue{};
    }
    default:
        return CellValue{};
    }
}

Sheet ReadSheet(const void* handle, unsigned short index) {
    Sheet sheet;
    const char* name = nullptr;
    if (freexl_get_worksheet_name(handle, index, &name) != FREEXL_OK ||
        freexl_select_active_worksheet(handle, index) != FREEXL_OK)
        NotAWorkbook();
    sheet.name = QString::fromUtf8(name);
    unsigned int rows = 0;
    unsigned short columns = 0;
    if (freexl_worksheet_dimensions(handle, &rows, &columns) != FREEXL_OK) NotAWorkbook();
    for (unsigned int row = 0; row < rows; ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue cell;
            if (freexl_get_cell_value(handle, row, column, &cell) != FREEXL_OK) continue;
            const CellValue value = ToCell(cell);
            if (!value.IsEmpty()) sheet.cells[int(row) + 1][int(column) + 1] = value;
        }
    }
    return sheet;
}

} // namespace

std::vector<Sheet> XlsReader::Read(const QString& path) {
    const void* raw = nullptr;
    const int opened = freexl_open(path.toUtf8().constData(), &raw);
    FreeXlHandle handle(raw);
    if (opened != FREEXL_OK) NotAWorkbook();
    unsigned int count = 0;
    if (freexl_get_info(raw, FREEXL_BIFF_SHEET_COUNT, &count) != FREEXL_OK) NotAWorkbook();
    std::vector<Sheet> sheets;
    for (unsigned int i = 0; i < count; ++i)
        sheets.push_back(ReadSheet(raw, static_cast<unsigned short>(i)));
    return sheets;
}

} // namespace zlx::workbook
