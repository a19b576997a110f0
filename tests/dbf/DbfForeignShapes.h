#pragma once
// Tables as other programs write them, one for each shape the reader must take: built byte
// by byte here, read field by field by the tests, dumped by `zolmar dbf dump`, and kept as
// seeds of the reader's fuzz run (fuzz-seeds/<name>.dbf).

#include <QByteArray>
#include <QString>
#include <vector>

namespace zlx::test {

struct ForeignShape {
    const char* name; // the file's base name
    QByteArray table; // the .dbf bytes
    QByteArray memo;  // the memo file's bytes; empty when the table has none
    const char* memoExtension = "";
    QByteArray dumpedRecords; // what `zolmar dbf dump` prints after "records": (the lines)
};

std::vector<ForeignShape> ForeignShapes();
const ForeignShape& ForeignShapeNamed(const char* name);
// Writes the table (and its memo file) into a fresh scratch folder; the table's path.
QString WriteShape(const ForeignShape& shape);

} // namespace zlx::test
