#pragma once
// Tables built by hand for the in-memory table tests.

#include "table/cDatos.h"

#include <QString>

namespace zlx::test {

// Columns nombre Char(20), ciudad Char(15), importe Currency, unidades I4, alta DateTime,
// and the given rows ("nombre", "ciudad", importe, unidades, day of March 2024).
struct Person {
    const char* nombre;
    const char* ciudad;
    double importe;
    std::int32_t unidades;
    int day;
};
std::shared_ptr<cDatos> PeopleTable(const std::vector<Person>& rows);
// Five rows: ANA/Madrid, BEA/Sevilla, CARLOS/Madrid, DAVID/Bilbao, EVA/Madrid.
std::shared_ptr<cDatos> FivePeople();
// The values of one column over every visible row, in order, as text.
QStringList ColumnTexts(cDatos& table, const QString& column);

QString TestScratchPath(const QString& fileName);

} // namespace zlx::test
