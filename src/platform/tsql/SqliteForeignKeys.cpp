#include "platform/tsql/SqliteForeignKeys.h"

#include "platform/tsql/SqliteTableRebuild.h"

#include <algorithm>
#include <set>

namespace zlx::tsql {
namespace {

const QString kSavepoint = QStringLiteral("zlx_key_check");

// The keys left broken in every database of the connection, as schema, table and key number.
std::set<QStringList> BrokenKeys(EngineAccess& access) {
    std::set<QStringList> broken;
    for (const auto& database : access.Query(QStringLiteral("PRAGMA database_list"))) {
        const QString schema = database.at(1).ToString();
        for (const auto& row :
             access.Query(QStringLiteral("PRAGMA \"%1\".foreign_key_check").arg(schema)))
            broken.insert(QStringList{schema, row.at(0).ToString(), row.at(3).ToString()});
    }
    return broken;
}

QString KeyName(EngineAccess& access, const QStringList& key) {
    const QString& schema = key[0];
    const QString& table = key[1];
    const QString& id = key[2];
    const auto created = access.Query(
        QStringLiteral("SELECT sql FROM \"%1\".sqlite_master WHERE type = 'table' AND name = %2")
            .arg(schema, SqlString(table)));
    const auto column = access.Query(
        QStringLiteral("SELECT \"from\" FROM pragma_foreign_key_list(%1, '%2') WHERE id = %3 "
                       "ORDER BY seq")
            .arg(SqlString(table), schema, id));
    if (created.empty() || column.empty()) return {};
    return SqliteForeignKeyName(created[0][0].ToString(), table, column[0][0].ToString());
}

} // namespace

QString SqliteForeignKeyName(const QString& created, const QString& table, const QString& column) {
    for (const Tokens& piece : SqliteTableRebuild::DefinitionPieces(created)) {
        const auto key = std::find_if(piece.begin(), piece.end(), [](const Token& token) {
            return token.IsWord(u"FOREIGN") || token.IsWord(u"REFERENCES");
        });
        if (key == piece.end()) continue;
        const bool tableKey = key->IsWord(u"FOREIGN");
        // A table's key names its columns after FOREIGN KEY (; a column's is the column.
        const Token& first = tableKey && key + 3 < piece.end() ? *(key + 3) : piece.front();
        if (first.text.compare(column, Qt::CaseInsensitive) != 0) continue;
        const auto at = static_cast<std::size_t>(key - piece.begin());
        if (at >= 2 && piece[at - 2].IsWord(u"CONSTRAINT")) return piece[at - 1].text;
    }
    return QStringLiteral("%1_%2_fkey").arg(table, column);
}

QString BrokenForeignKeyName(EngineAccess& access, const std::function<void()>& rerun) {
    access.Run(QStringLiteral("SAVEPOINT ") + kSavepoint);
    QString name;
    try {
        const std::set<QStringList> before = BrokenKeys(access);
        access.Run(QStringLiteral("PRAGMA defer_foreign_keys = ON"));
        rerun();
        for (const QStringList& key : BrokenKeys(access))
            if (!before.contains(key) && name.isEmpty()) name = KeyName(access, key);
    } catch (const ado::AdoError&) {
        name.clear(); // the statement failed otherwise: no key is told
    }
    access.Run(QStringLiteral("ROLLBACK TO ") + kSavepoint);
    access.Run(QStringLiteral("PRAGMA defer_foreign_keys = OFF"));
    access.Run(QStringLiteral("RELEASE ") + kSavepoint);
    return name;
}

} // namespace zlx::tsql
