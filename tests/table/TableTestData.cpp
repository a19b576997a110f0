#include "TableTestData.h"

#include <QDir>
#include <QStandardPaths>
#include <unistd.h>

namespace zlx::test {

std::shared_ptr<cDatos> PeopleTable(const std::vector<Person>& rows) {
    auto table = std::make_shared<cDatos>();
    table->BeginDefineColumns();
    table->AddColumn("nombre", zlxTblColumnTypeChar, 20);
    table->AddColumn("ciudad", zlxTblColumnTypeChar, 15);
    table->AddColumn("importe", zlxTblColumnTypeCurrency);
    table->AddColumn("unidades", zlxTblColumnTypeI4);
    table->AddColumn("alta", zlxTblColumnTypeDateTime);
    table->EndDefineColumns();
    const Variant fields = Variant::Array({"nombre", "ciudad", "importe", "unidades", "alta"});
    for (const Person& p : rows) {
        table->InsertRow(fields,
                         Variant::Array({p.nombre, p.ciudad, Variant(p.importe),
                                         Variant(p.unidades), Variant(MakeDate(2024, 3, p.day))}));
    }
    return table;
}

std::shared_ptr<cDatos> FivePeople() {
    return PeopleTable({{"ANA", "Madrid", 10.5, 1, 1},
                        {"BEA", "Sevilla", 20, 2, 2},
                        {"CARLOS", "Madrid", 30.25, 3, 3},
                        {"DAVID", "Bilbao", 40, 4, 4},
                        {"EVA", "Madrid", 50, 5, 5}});
}

QStringList ColumnTexts(cDatos& table, const QString& column) {
    QStringList texts;
    const std::int32_t saved = table.CurrentRow();
    for (std::int32_t row = 1; row <= table.RecCount(); ++row) {
        const Variant value = table.DataCell(column, row);
        texts << (value.IsNull() ? QStringLiteral("<null>") : value.ToString());
    }
    table.CurrentRow(saved);
    return texts;
}

QString TestScratchPath(const QString& fileName) {
    QString base = qEnvironmentVariable("ZLX_TEST_TMP");
    if (base.isEmpty()) base = QDir::tempPath();
    const QString folder = base + QStringLiteral("/table-%1").arg(getpid());
    QDir().mkpath(folder);
    QFile::remove(folder + u'/' + fileName);
    return folder + u'/' + fileName;
}

} // namespace zlx::test
