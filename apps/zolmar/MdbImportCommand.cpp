#include "MdbImportCommand.h"

#include "MdbImportSource.h"
#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <mdbtools.h>
#include <sqlite3.h>
#include <stdexcept>

namespace zlx {

namespace {

constexpr int kBarWidth = 30;
constexpr qint64 kRowsPerRedraw = 500;

[[noreturn]] void Fail(const QString& message) {
    throw std::runtime_error(message.toStdString());
}

QString Quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString Bracketed(const QString& name) {
    return u'[' + QString(name).replace(u']', QStringLiteral("]]")) + u']';
}

// The types the Jet provider's own tables are made with, so that the columns read back as
// they would from a table the library created.
QString JetType(const MdbImportColumn& column) {
    switch (column.type) {
    case MDB_BOOL:
        return QStringLiteral("BIT");
    case MDB_BYTE:
        return QStringLiteral("TINYINT");
    case MDB_INT:
        return QStringLiteral("SMALLINT");
    case MDB_LONGINT:
        return QStringLiteral("INTEGER");
    case MDB_MONEY:
        return QStringLiteral("MONEY");
    case MDB_FLOAT:
        return QStringLiteral("FLOAT4");
    case MDB_DOUBLE:
        return QStringLiteral("FLOAT8");
    case MDB_DATETIME:
        return QStringLiteral("DATETIME");
    case MDB_BINARY:
        return QStringLiteral("VARBINARY(%1)").arg(std::max(column.size, 1));
    case MDB_TEXT: {
        const int characters = std::max(column.size / 2, 1); // stored as UCS-2
        return characters >= 256 ? QStringLiteral("TEXT")
                                 : QStringLiteral("VARCHAR(%1)").arg(characters);
    }
    case MDB_OLE:
        return QStringLiteral("IMAGE");
    case MDB_REPID:
        return QStringLiteral("UNIQUEIDENTIFIER");
    case MDB_NUMERIC:
        return QStringLiteral("DECIMAL(%1,%2)").arg(column.precision).arg(column.scale);
    default: // memos and the kinds kept as their text
        return QStringLiteral("TEXT");
    }
}

const MdbImportIndex* PrimaryKey(const MdbImportTable& table) {
    for (const MdbImportIndex& index : table.indexes)
        if (index.primary) return &index;
    return nullptr;
}

QString KeyColumns(const MdbImportIndex& index) {
    QStringList columns;
    for (qsizetype i = 0; i < index.columns.size(); ++i)
        columns << Bracketed(index.columns[i]) +
                       (index.descending[static_cast<size_t>(i)] ? QStringLiteral(" DESC") : "");
    return columns.join(QStringLiteral(", "));
}

// An autonumber that is the whole primary key stays an autonumber; elsewhere it is a number.
bool IsAutoNumberKey(const MdbImportColumn& column, const MdbImportIndex* key) {
    return column.autoNumber && key && key->columns == QStringList{column.name};
}

QString CreateTableSql(const MdbImportTable& table) {
    const MdbImportIndex* key = PrimaryKey(table);
    QStringList parts;
    for (const MdbImportColumn& column : table.columns) {
        if (IsAutoNumberKey(column, key)) {
            parts << Bracketed(column.name) + QStringLiteral(" AUTOINCREMENT CONSTRAINT ") +
                         Bracketed(key->name) + QStringLiteral(" PRIMARY KEY");
            key = nullptr;
            continue;
        }
        parts << Bracketed(column.name) + u' ' + JetType(column) +
                     (column.required ? QStringLiteral(" NOT NULL") : QString());
    }
    if (key)
        parts << QStringLiteral("CONSTRAINT ") + Bracketed(key->name) +
                     QStringLiteral(" PRIMARY KEY (") + KeyColumns(*key) + u')';
    return QStringLiteral("CREATE TABLE ") + Bracketed(table.name) + QStringLiteral(" (") +
           parts.join(QStringLiteral(", ")) + u')';
}

QStringList CreateIndexSql(const MdbImportTable& table) {
    QStringList statements;
    for (const MdbImportIndex& index : table.indexes) {
        if (index.primary) continue;
        statements << QStringLiteral("CREATE ") +
                          (index.unique ? QStringLiteral("UNIQUE ") : QString()) +
                          QStringLiteral("INDEX ") + Bracketed(index.name) +
                          QStringLiteral(" ON ") + Bracketed(table.name) + QStringLiteral(" (") +
                          KeyColumns(index) + u')';
    }
    return statements;
}

// The tables and indexes made through the Jet provider itself, as the library makes them.
void CreateSchema(const QString& file, const std::vector<MdbImportTable>& tables) {
    RecordingMsgPresenter recorder;
    ScopedMsgPresenter scope(recorder);
    cConexion cn;
    QString errors;
    if (!cn.Init(zlxDataProvider_JET40, file, {}, {}, {}, 16, true, &errors))
        Fail(QStringLiteral("cannot create ") + file + QStringLiteral(": ") + errors);
    for (const MdbImportTable& table : tables)
        for (const QString& sql : QStringList{CreateTableSql(table)} + CreateIndexSql(table)) {
            cn.Execute(sql);
            if (cn.GetLastError() != 0)
                Fail(sql + QStringLiteral(": ") + cn.GetLastErrorDescription());
        }
    cn.Close_Connection();
}

class Progress {
public:
    Progress(std::FILE* err, bool terminal, qint64 total)
        : m_err(err), m_terminal(terminal), m_total(std::max<qint64>(total, 1)) {}

    void Row(const QString& table, qint64 tableRows) {
        ++m_done;
        if (m_terminal && tableRows % kRowsPerRedraw == 0) Draw(table, tableRows);
    }

    void TableDone(const QString& table, qint64 tableRows) {
        if (m_terminal)
            Draw(table, tableRows);
        else
            std::fprintf(m_err, "%s: %lld rows\n", table.toUtf8().constData(),
                         static_cast<long long>(tableRows));
    }

    void Finish() {
        if (m_terminal) std::fputc('\n', m_err);
        std::fflush(m_err);
    }

private:
    void Draw(const QString& table, qint64 tableRows) {
        const qint64 percent = std::min<qint64>(100, m_done * 100 / m_total);
        const int filled = static_cast<int>(percent * kBarWidth / 100);
        const QByteArray bar = QByteArray(filled, '#') + QByteArray(kBarWidth - filled, '-');
        std::fprintf(m_err, "\r[%s] %3lld%%  %s: %lld rows\033[K", bar.constData(),
                     static_cast<long long>(percent), table.toUtf8().constData(),
                     static_cast<long long>(tableRows));
        std::fflush(m_err);
    }

    std::FILE* m_err;
    bool m_terminal;
    qint64 m_total;
    qint64 m_done = 0;
};

class SqliteFile {
public:
    explicit SqliteFile(const QString& path) {
        if (sqlite3_open_v2(path.toUtf8().constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr) !=
            SQLITE_OK)
            Fail(QStringLiteral("cannot open ") + path);
    }
    ~SqliteFile() {
        sqlite3_finalize(m_insert);
        sqlite3_close(m_db);
    }
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    void Run(const char* sql) { Check(sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr)); }

    void PrepareInsert(const MdbImportTable& table) {
        sqlite3_finalize(m_insert);
        m_insert = nullptr;
        QStringList columns, marks;
        for (const MdbImportColumn& column : table.columns) {
            columns << Quoted(column.name);
            marks << QStringLiteral("?");
        }
        const QByteArray sql = (QStringLiteral("INSERT INTO ") + Quoted(table.name) + " (" +
                                columns.join(u',') + ") VALUES (" + marks.join(u',') + u')')
                                   .toUtf8();
        Check(sqlite3_prepare_v2(m_db, sql.constData(), -1, &m_insert, nullptr));
    }

    void Insert(const std::vector<QVariant>& values) {
        for (std::size_t i = 0; i < values.size(); ++i)
            Bind(static_cast<int>(i + 1), values[i]);
        if (sqlite3_step(m_insert) != SQLITE_DONE) Check(sqlite3_errcode(m_db));
        sqlite3_reset(m_insert);
    }

private:
    void Bind(int slot, const QVariant& value) {
        switch (value.typeId()) {
        case QMetaType::LongLong:
            sqlite3_bind_int64(m_insert, slot, value.toLongLong());
            break;
        case QMetaType::Double:
            sqlite3_bind_double(m_insert, slot, value.toDouble());
            break;
        case QMetaType::QString: {
            const QByteArray text = value.toString().toUtf8();
            sqlite3_bind_text(m_insert, slot, text.constData(), static_cast<int>(text.size()),
                              SQLITE_TRANSIENT);
            break;
        }
        case QMetaType::QByteArray: {
            const QByteArray bytes = value.toByteArray();
            sqlite3_bind_blob(m_insert, slot, bytes.constData(), static_cast<int>(bytes.size()),
                              SQLITE_TRANSIENT);
            break;
        }
        default:
            sqlite3_bind_null(m_insert, slot);
        }
    }

    void Check(int code) {
        if (code != SQLITE_OK) Fail(QString::fromUtf8(sqlite3_errmsg(m_db)));
    }

    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_insert = nullptr;
};

// Rows written straight into the new file, in one transaction; answers the rows per table.
std::vector<qint64> CopyRows(const QString& file, MdbImportSource& source, Progress& progress) {
    SqliteFile target(file);
    target.Run("BEGIN");
    std::vector<qint64> counts;
    for (std::size_t t = 0; t < source.Tables().size(); ++t) {
        const MdbImportTable& table = source.Tables()[t];
        target.PrepareInsert(table);
        qint64 rows = 0;
        source.ReadRows(t, [&](const std::vector<QVariant>& values) {
            target.Insert(values);
            progress.Row(table.name, ++rows);
        });
        progress.TableDone(table.name, rows);
        counts.push_back(rows);
    }
    target.Run("COMMIT");
    return counts;
}

void RemoveDatabaseFile(const QString& path) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(path + QLatin1String(suffix));
}

// FILE.jet, or FILE.1.jet, FILE.2.jet ... when the earlier names are taken.
QString BackupPath(const QString& path) {
    QString backup = path + QStringLiteral(".jet");
    for (int n = 1; QFileInfo::exists(backup); ++n)
        backup = path + QStringLiteral(".%1.jet").arg(n);
    return backup;
}

void CheckIsAccessFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) Fail(QStringLiteral("cannot open ") + path);
    if (file.read(16) == QByteArray("SQLite format 3", 16))
        Fail(path + QStringLiteral(" is already a Jet provider database; there is nothing to "
                                   "convert"));
}

// The original moves aside first, so that FILE is never missing and never overwritten.
void PutInPlace(const QString& path, const QString& converted, const QString& backup) {
    if (!QFile::rename(path, backup))
        Fail(QStringLiteral("cannot rename ") + path + " to " + backup);
    if (!QFile::rename(converted, path)) {
        QFile::rename(backup, path);
        Fail(QStringLiteral("cannot rename ") + converted + " to " + path);
    }
}

QString TableSummary(const MdbImportTable& table, qint64 rows) {
    QStringList indexes;
    for (const MdbImportIndex& index : table.indexes)
        indexes << index.name + (index.primary ? QStringLiteral(" (primary key)") : QString());
    return QStringLiteral("  %1: %2 columns, %3 rows, indexes: %4\n")
        .arg(table.name)
        .arg(table.columns.size())
        .arg(rows)
        .arg(indexes.isEmpty() ? QStringLiteral("none") : indexes.join(QStringLiteral(", ")));
}

void PrintSummary(std::FILE* out, const QString& path, const QString& backup,
                  const std::vector<MdbImportTable>& tables, const std::vector<qint64>& rows) {
    qint64 totalRows = 0, indexes = 0, keys = 0;
    QString details;
    for (std::size_t t = 0; t < tables.size(); ++t) {
        totalRows += rows[t];
        indexes += static_cast<qint64>(tables[t].indexes.size());
        keys += PrimaryKey(tables[t]) ? 1 : 0;
        details += TableSummary(tables[t], rows[t]);
    }
    const QString head =
        QStringLiteral("%1 converted: %2 tables, %3 rows, %4 indexes (%5 primary keys); the "
                       "original is kept as %6\n")
            .arg(path)
            .arg(tables.size())
            .arg(totalRows)
            .arg(indexes)
            .arg(keys)
            .arg(backup);
    std::fputs((head + details).toUtf8().constData(), out);
    std::fflush(out);
}

void Import(const QString& path, std::FILE* out, std::FILE* err, bool terminal) {
    CheckIsAccessFile(path);
    MdbImportSource source(path);
    const QString converted = path + QStringLiteral(".importing");
    RemoveDatabaseFile(converted);
    try {
        CreateSchema(converted, source.Tables());
        qint64 total = 0;
        for (const MdbImportTable& table : source.Tables())
            total += table.rowCount;
        Progress progress(err, terminal, total);
        const std::vector<qint64> rows = CopyRows(converted, source, progress);
        progress.Finish();
        const QString backup = BackupPath(path);
        PutInPlace(path, converted, backup);
        PrintSummary(out, path, backup, source.Tables(), rows);
    } catch (...) {
        RemoveDatabaseFile(converted);
        throw;
    }
}

} // namespace

int RunMdbImportCommand(const QStringList& args, std::FILE* out, std::FILE* err, bool terminal) {
    if (args.size() != 1 || args[0].startsWith(QStringLiteral("-"))) {
        std::fputs("usage: zolmar mdb-import FILE\n", err);
        return 2;
    }
    try {
        Import(args[0], out, err, terminal);
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(err, "zolmar mdb-import: %s\n", e.what());
        return 1;
    }
}

} // namespace zlx
