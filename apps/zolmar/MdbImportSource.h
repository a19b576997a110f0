#pragma once
// An Access (Jet) database read through mdbtools' library: its user tables with their columns,
// indexes and primary keys, and their rows as plain values.

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

namespace zlx {

struct MdbImportColumn {
    QString name;
    int type = 0;      // mdbtools' MDB_* column type
    int size = 0;      // in bytes as stored (text: two per character)
    int precision = 0; // decimal columns
    int scale = 0;
    bool autoNumber = false;
    bool required = false;
};

struct MdbImportIndex {
    QString name;
    QStringList columns;
    std::vector<bool> descending;
    bool unique = false;
    bool primary = false;
};

struct MdbImportTable {
    QString name;
    std::vector<MdbImportColumn> columns;
    std::vector<MdbImportIndex> indexes; // foreign key entries are left out
    qint64 rowCount = 0;                 // as the table definition counts them
};

class MdbImportSource {
public:
    // Throws std::runtime_error when the file cannot be read as an Access database.
    explicit MdbImportSource(const QString& path);
    ~MdbImportSource();
    MdbImportSource(const MdbImportSource&) = delete;
    MdbImportSource& operator=(const MdbImportSource&) = delete;

    const std::vector<MdbImportTable>& Tables() const { return m_tables; }

    // Calls `row` with each row of table `table`, one value per column: an invalid QVariant
    // for NULL, qint64 for whole numbers and yes/no, double, QString (dates as
    // "yyyy-MM-dd hh:mm:ss", decimals and GUIDs as text) or QByteArray.
    void ReadRows(std::size_t table, const std::function<void(const std::vector<QVariant>&)>& row);

private:
    struct Database; // the open file and the catalog entries of its user tables
    std::unique_ptr<Database> m_database;
    std::vector<MdbImportTable> m_tables;
};

} // namespace zlx
