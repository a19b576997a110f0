#pragma once
// Workbooks the workbook tests read and write: .xlsx files made with libxlsxwriter, as Excel
// would save them, and a small .xls written record by record.

#include <QString>

namespace zlx::test {

// Sheet "Clientes": Codigo, Nombre, Importe, Alta (dd/mm/yyyy), Activo, Doble (=Importe*2)
// with C1 Ana 150.5 2024-03-15 TRUE, C2 Bernardo 80 2023-12-01 FALSE, C3 Carmen 1200
// 2024-01-20 10:30 TRUE; sheet "Notas": Nota / "Revisar precios".
void WriteClientesXlsx(const QString& path);

// Sheet "Mezcla": a column of eight numbers then a text ("Valor"), a column without a header,
// and a column mixing numbers and texts in its first records ("Mixta").
void WriteMezclaXlsx(const QString& path);

// The same "Clientes" records (without the formula and with Activo as 1/0) in an .xls.
void WriteClientesXls(const QString& path);

} // namespace zlx::test
