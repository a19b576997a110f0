#pragma once
// The key constraints (PRIMARY KEY, UNIQUE) of the tables a dialect has looked up, each as the
// engine's duplicate-key message names it, so that a duplicate of a constraint (SQL Server's
// 2627) is told from a duplicate of a unique index (2601).

#include <QHash>
#include <QStringList>

namespace zlx::tsql {

class KeyConstraints {
public:
    // What the table's constraints are now; replaces what was noted for it before.
    void Note(const QString& table, const QStringList& keys);
    bool Contains(const QString& key) const;

private:
    QHash<QString, QStringList> m_keys; // engine table -> its keys, in lower case
};

} // namespace zlx::tsql
