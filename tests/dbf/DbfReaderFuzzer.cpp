// libFuzzer target: any bytes as a DBF file, opened and read field by field.

#include "dbf/cDBF.h"

#include <QDir>
#include <QFile>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QString path = QDir::tempPath() + QStringLiteral("/zlx-dbf-fuzz.dbf");
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
    zlx::cDBF dbf;
    dbf.ShowErrors(false);
    if (!dbf.OpenRaw(path)) return 0;
    const std::uint32_t count = std::min<std::uint32_t>(dbf.RecordCount(), 64);
    for (std::uint32_t row = 1; row <= count; ++row) {
        dbf.CurrentRow(row);
        for (int f = 1; f <= dbf.FieldCount(); ++f)
            dbf.Field(dbf.GetFieldInfo(f).cFieldName);
    }
    return 0;
}
