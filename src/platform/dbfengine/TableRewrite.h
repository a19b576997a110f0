#pragma once
// Rewrites a table of the folder as a new file renamed over the old one, so that the table on
// disk is always whole: either as it was or as it becomes, whatever stops the rewrite. Used by
// ALTER TABLE (new fields, values carried over by name) and PACK (deleted records left out).
// The whole old file is locked meanwhile; writers waiting for it find the new file after.
// The memo file is kept: the new records point at the same memo blocks.

#include "platform/dbfformat/DbfLayout.h"

#include <QString>
#include <vector>

namespace zlx::dbfengine {

struct TableRewrite {
    QString path;
    std::vector<DbfFieldDefinition> fields;
    // For each new field, the old field its values come from (-1 for none: blank).
    std::vector<int> sources;
    bool dropDeleted = false;

    // Throws AdoError when the table cannot be read or the new one written.
    void Run() const;
    // The fields of the table at `path` as definitions, in order; throws when unreadable.
    static std::vector<DbfFieldDefinition> FieldsOf(const QString& path);
};

} // namespace zlx::dbfengine
