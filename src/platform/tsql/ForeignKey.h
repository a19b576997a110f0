#pragma once
// A FOREIGN KEY constraint as the engine's catalog describes it.

#include <QStringList>

namespace zlx::tsql {

struct ForeignKey {
    QString name;
    QString table; // the referring table, as the catalog names it
    QStringList columns;
    QString referenced;
    QStringList referencedColumns;
};

} // namespace zlx::tsql
