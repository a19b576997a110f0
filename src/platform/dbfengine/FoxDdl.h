#pragma once
// The FoxPro statements that change files rather than records: CREATE TABLE with FoxPro's
// field types, ALTER TABLE ... ADD / ALTER / DROP [COLUMN], DROP TABLE and PACK.

#include "platform/dbfformat/DbfLayout.h"

#include <QString>
#include <optional>
#include <vector>

namespace zlx::dbfengine {

struct FoxDdl {
    enum class Kind { CreateTable, AddColumn, AlterColumn, DropColumn, DropTable, Pack };
    Kind kind = Kind::CreateTable;
    QString table;
    std::vector<DbfFieldDefinition> fields; // CREATE TABLE's fields; the one added or altered
    QString column;                         // the column dropped

    // The statement as one of these; nothing when it is none (an ordinary SQL statement).
    // A statement of these kinds that cannot be read throws AdoError.
    static std::optional<FoxDdl> Parse(const QString& statement);
};

} // namespace zlx::dbfengine
