#include "dbf/cDBF.h"
#include "table/cDatos.h"

#include <QFile>

namespace zlx {

namespace {

struct DbfShape {
    QString type; // empty: the column has no DBF field
    std::int32_t length = 0;
    std::int32_t decimals = 0;
};

DbfShape ShapeOfColumn(const zlxDatoColumnInfo& column) {
    switch (column.nType) {
    case zlxTblColumnTypeI1:
        return {"N", 3, 0};
    case zlxTblColumnTypeI2:
        return {"N", 5, 0};
    case zlxTblColumnTypeI4:
        return {"N", 10, 0};
    case zlxTblColumnTypeI8:
        return {"N", 16, 0};
    case zlxTblColumnTypeSingle:
        return {"N", 11, 4};
    case zlxTblColumnTypeDouble:
    case zlxTblColumnTypeDecimal:
        return {"N", 16, 6};
    case zlxTblColumnTypeChar:
    case zlxTblColumnTypeCharFixed:
        return {"C", std::min(column.nSize, 255), 0};
    case zlxTblColumnTypeDate:
    case zlxTblColumnTypeDateTime:
        return {"D", 8, 0};
    case zlxTblColumnTypeTime:
        return {"C", 8, 0};
    case zlxTblColumnTypeCurrency:
        return {"N", 16, 4};
    default:
        return {};
    }
}

QString FieldNameOfColumn(const QString& name, std::int32_t number) {
    if (name.isEmpty()) return QStringLiteral("FLD%1").arg(number, 7, 10, QLatin1Char('0'));
    return name.left(10).toUpper();
}

} // namespace

bool cDBF::CreateFromDatos(const QString& cFileName, cDatos& oDatos, bool lCopyData) {
    struct Created {
        QString name;
        std::int32_t column;
    };
    std::vector<Created> created;
    const auto fail = [&] {
        CloseDBF();
        QFile::remove(cFileName);
        return false;
    };
    if (!BeginCreateDBF(cFileName)) return fail();
    for (std::int32_t c = 0; c < oDatos.FieldCount(); ++c) {
        const zlxDatoColumnInfo info = oDatos.ColumnInfo(c);
        DbfShape shape = ShapeOfColumn(info);
        if (shape.type.isEmpty()) continue;
        const QString name = FieldNameOfColumn(info.cName, c + 1);
        CreateColumn(name, shape.type, shape.length, shape.decimals);
        created.push_back({name, c});
    }
    if (!EndCreateDBF()) return fail();
    if (lCopyData) {
        while (oDatos.Scan()) {
            BeginInsert();
            for (const Created& field : created)
                SetField(field.name, oDatos.Field_ByColumnNumber(field.column));
            EndInsert();
        }
    }
    return true;
}

} // namespace zlx
