#include "TestWorkbooks.h"

#include "XlsFile.h"

#include <stdexcept>
#include <xlsxwriter.h>

namespace zlx::test {

namespace {

void Close(lxw_workbook* workbook) {
    if (workbook_close(workbook) != LXW_NO_ERROR)
        throw std::runtime_error("libxlsxwriter could not write the test workbook");
}

void WriteRow(lxw_worksheet* sheet, int row, const char* code, const char* name, double amount,
              lxw_datetime date, bool active, lxw_format* dateFormat) {
    worksheet_write_string(sheet, row, 0, code, nullptr);
    worksheet_write_string(sheet, row, 1, name, nullptr);
    worksheet_write_number(sheet, row, 2, amount, nullptr);
    worksheet_write_datetime(sheet, row, 3, &date, dateFormat);
    worksheet_write_boolean(sheet, row, 4, active, nullptr);
    const std::string formula = "=C" + std::to_string(row + 1) + "*2";
    worksheet_write_formula_num(sheet, row, 5, formula.c_str(), nullptr, amount * 2);
}

} // namespace

void WriteClientesXlsx(const QString& path) {
    lxw_workbook* workbook = workbook_new(path.toUtf8().constData());
    lxw_worksheet* sheet = workbook_add_worksheet(workbook, "Clientes");
    lxw_format* dateFormat = workbook_add_format(workbook);
    format_set_num_format(dateFormat, "dd/mm/yyyy");
    const char* titles[] = {"Codigo", "Nombre", "Importe", "Alta", "Activo", "Doble"};
    for (int column = 0; column < 6; ++column)
        worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(column), titles[column], nullptr);
    WriteRow(sheet, 1, "C1", "Ana", 150.5, {2024, 3, 15, 0, 0, 0}, true, dateFormat);
    WriteRow(sheet, 2, "C2", "Bernardo", 80, {2023, 12, 1, 0, 0, 0}, false, dateFormat);
    WriteRow(sheet, 3, "C3", "Carmen", 1200, {2024, 1, 20, 10, 30, 0}, true, dateFormat);
    lxw_worksheet* notes = workbook_add_worksheet(workbook, "Notas");
    worksheet_write_string(notes, 0, 0, "Nota", nullptr);
    worksheet_write_string(notes, 1, 0, "Revisar precios", nullptr);
    Close(workbook);
}

void WriteMezclaXlsx(const QString& path) {
    lxw_workbook* workbook = workbook_new(path.toUtf8().constData());
    lxw_worksheet* sheet = workbook_add_worksheet(workbook, "Mezcla");
    worksheet_write_string(sheet, 0, 0, "Valor", nullptr);
    worksheet_write_string(sheet, 0, 2, "Mixta", nullptr);
    for (int row = 1; row <= 8; ++row) {
        worksheet_write_number(sheet, static_cast<lxw_row_t>(row), 0, row * 10, nullptr);
        worksheet_write_string(sheet, static_cast<lxw_row_t>(row), 1, "sin título", nullptr);
        if (row % 2 == 0)
            worksheet_write_number(sheet, static_cast<lxw_row_t>(row), 2, row, nullptr);
        else
            worksheet_write_string(sheet, static_cast<lxw_row_t>(row), 2, "texto", nullptr);
    }
    worksheet_write_string(sheet, 9, 0, "noventa", nullptr);
    worksheet_write_string(sheet, 10, 0, "100", nullptr);
    Close(workbook);
}

void WriteClientesXls(const QString& path) {
    XlsFile file;
    XlsSheet& sheet = file.AddSheet("Clientes");
    sheet.Text(0, 0, "Codigo").Text(0, 1, "Nombre").Text(0, 2, "Importe").Text(0, 3, "Alta");
    sheet.Text(1, 0, "C1").Text(1, 1, "Ana").Number(1, 2, 150.5).Date(1, 3, 45366);   // 2024-03-15
    sheet.Text(2, 0, "C2").Text(2, 1, "Bernardo").Number(2, 2, 80).Date(2, 3, 45261); // 2023-12-01
    sheet.Text(3, 0, "C3").Text(3, 1, "Carmen").Number(3, 2, 1200).Date(3, 3, 45311); // 2024-01-20
    XlsSheet& notes = file.AddSheet("Notas");
    notes.Text(0, 0, "Nota").Text(1, 0, "Revisar precios");
    file.Save(path);
}

} // namespace zlx::test
