// The library's overhead over the bare engine: Insert of a 100,000-row matrix and 10,000
// single-row Execute calls in mode 2, through cConexion and through sqlite3 / libpq directly,
// with the same SQL texts. PostgreSQL runs when ZLX_BENCH_PG holds a libpq conninfo.

#include "connection/StatementText.h"
#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/companion/cMatriz.h"

#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <sqlite3.h>

using namespace zlx;

namespace {

constexpr int kRows = 100000;
constexpr int kLookups = 10000;

QString InsertBatch(int first, int last) {
    QString batch;
    for (int i = first; i <= last; ++i)
        batch +=
            QStringLiteral("INSERT INTO t (ZolmarID,nombre,importe) VALUES (%1,'cliente %1',%2) ")
                .arg(i)
                .arg(i * 0.25);
    return batch;
}

std::shared_ptr<cMatriz> Rows() {
    auto rows = std::make_shared<cMatriz>();
    rows->Dimension(1, 3, 1, 0);
    for (int i = 1; i <= kRows; ++i)
        rows->AddRow(Variant::Array(
            {Variant(i), Variant(QStringLiteral("cliente %1").arg(i)), Variant(i * 0.25)}));
    return rows;
}

const char* kCreate = "CREATE TABLE t (ZolmarID INT NOT NULL, nombre VARCHAR(40), importe FLOAT)";
// Application tables have a unique index on ZolmarID: a lookup by it then finds its one row
// without scanning the table, whether or not the statement is stepped to its end.
const char* kIndex = "CREATE UNIQUE INDEX t_ZolmarID ON t (ZolmarID)";

// cConexion on a fresh database of the given server ("sqlite:<folder>" or "postgres:...").
struct LibraryDatabase {
    explicit LibraryDatabase(const QString& server) {
        InstallMsgPresenter(&messages);
        cn.Init(zlxDataProvider_MSDE, {}, server);
        cn.Execute(QStringLiteral("IF EXISTS (SELECT name FROM sysdatabases WHERE name='bench') "
                                  "DROP DATABASE bench"));
        cn.Execute(QStringLiteral("CREATE DATABASE bench"));
        cn.DBName(QStringLiteral("bench"));
        cn.Execute(QString::fromUtf8(kCreate));
    }
    ~LibraryDatabase() { InstallMsgPresenter(nullptr); }
    RecordingMsgPresenter messages;
    cConexion cn;
};

QString PostgresServer() {
    return QString::fromLocal8Bit(qgetenv("ZLX_BENCH_PG"));
}

void LibraryInsert(benchmark::State& state, const QString& server) {
    const auto rows = Rows();
    const Variant fields =
        Variant::Array({Variant("ZolmarID"), Variant("nombre"), Variant("importe")});
    for (auto _ : state) {
        LibraryDatabase db(server);
        benchmark::DoNotOptimize(db.cn.Insert(QStringLiteral("t"), fields, Variant(rows)));
        if (db.cn.RecCount(QStringLiteral("t")) != kRows) state.SkipWithError("rows missing");
    }
}

void LibraryLookups(benchmark::State& state, const QString& server, bool keyed = false) {
    LibraryDatabase db(server);
    if (keyed) db.cn.Execute(QString::fromUtf8(kIndex));
    for (int first = 1; first <= kLookups; first += 50)
        db.cn.Execute(InsertBatch(first, first + 49), zlxExecuteReturn_Nothing_NoRowCount);
    for (auto _ : state)
        for (int i = 1; i <= kLookups; ++i)
            benchmark::DoNotOptimize(
                db.cn.Execute(QStringLiteral("SELECT nombre FROM t WHERE ZolmarID = %1").arg(i),
                              zlxExecuteReturn_Value));
}

void BM_Library_Insert_SQLite(benchmark::State& state) {
    QTemporaryDir folder;
    LibraryInsert(state, QStringLiteral("sqlite:") + folder.path());
}

void BM_Library_Lookups_SQLite(benchmark::State& state) {
    QTemporaryDir folder;
    LibraryLookups(state, QStringLiteral("sqlite:") + folder.path());
}

void BM_Library_KeyedLookups_SQLite(benchmark::State& state) {
    QTemporaryDir folder;
    LibraryLookups(state, QStringLiteral("sqlite:") + folder.path(), true);
}

void BM_Library_Insert_PostgreSQL(benchmark::State& state) {
    if (PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    LibraryInsert(state, QStringLiteral("postgres:") + PostgresServer());
}

void BM_Library_Lookups_PostgreSQL(benchmark::State& state) {
    if (PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    LibraryLookups(state, QStringLiteral("postgres:") + PostgresServer());
}

// The same batches of 50 INSERT statements and the same SELECT texts on sqlite3 itself.
sqlite3* OpenSqlite(const QTemporaryDir& folder) {
    sqlite3* db = nullptr;
    sqlite3_open(QDir(folder.path()).filePath(QStringLiteral("bench.sqlite")).toUtf8().constData(),
                 &db);
    sqlite3_exec(db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
    sqlite3_exec(db, kCreate, nullptr, nullptr, nullptr);
    return db;
}

QString SqliteBatch(int first, int last) {
    return InsertBatch(first, last).replace(QStringLiteral(") I"), QStringLiteral("); I"));
}

void BM_Bare_Insert_SQLite(benchmark::State& state) {
    for (auto _ : state) {
        QTemporaryDir folder;
        sqlite3* db = OpenSqlite(folder);
        for (int first = 1; first <= kRows; first += 50)
            sqlite3_exec(db, SqliteBatch(first, first + 49).toUtf8().constData(), nullptr, nullptr,
                         nullptr);
        sqlite3_close(db);
    }
}

// The same SELECT texts, each prepared, stepped and finalised. `toEnd`: stepped until the
// statement is done, as the library does to know @@ROWCOUNT and any later error; otherwise
// only its first row is read, which spares the engine the rest of the table's scan.
void BareSqliteLookups(benchmark::State& state, bool toEnd, bool keyed = false) {
    QTemporaryDir folder;
    sqlite3* db = OpenSqlite(folder);
    if (keyed) sqlite3_exec(db, kIndex, nullptr, nullptr, nullptr);
    for (int first = 1; first <= kLookups; first += 50)
        sqlite3_exec(db, SqliteBatch(first, first + 49).toUtf8().constData(), nullptr, nullptr,
                     nullptr);
    for (auto _ : state)
        for (int i = 1; i <= kLookups; ++i) {
            sqlite3_stmt* statement = nullptr;
            const QByteArray sql =
                QStringLiteral("SELECT nombre FROM t WHERE ZolmarID = %1").arg(i).toUtf8();
            sqlite3_prepare_v2(db, sql.constData(), -1, &statement, nullptr);
            if (sqlite3_step(statement) == SQLITE_ROW) {
                benchmark::DoNotOptimize(QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))));
                while (toEnd && sqlite3_step(statement) == SQLITE_ROW) {
                }
            }
            sqlite3_finalize(statement);
        }
    sqlite3_close(db);
}

void BM_Bare_Lookups_SQLite(benchmark::State& state) {
    BareSqliteLookups(state, false);
}

void BM_Bare_LookupsToEnd_SQLite(benchmark::State& state) {
    BareSqliteLookups(state, true);
}

void BM_Bare_KeyedLookups_SQLite(benchmark::State& state) {
    BareSqliteLookups(state, false, true);
}

PGconn* OpenPostgres() {
    PGconn* db = PQconnectdb(PostgresServer().toUtf8().constData());
    PQclear(PQexec(db, "DROP SCHEMA IF EXISTS barebench CASCADE; CREATE SCHEMA barebench; SET "
                       "search_path TO barebench"));
    PQclear(PQexec(db, kCreate));
    return db;
}

void BM_Bare_Insert_PostgreSQL(benchmark::State& state) {
    if (PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    for (auto _ : state) {
        PGconn* db = OpenPostgres();
        for (int first = 1; first <= kRows; first += 50)
            PQclear(PQexec(db, SqliteBatch(first, first + 49).toUtf8().constData()));
        PQfinish(db);
    }
}

void BM_Bare_Lookups_PostgreSQL(benchmark::State& state) {
    if (PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    PGconn* db = OpenPostgres();
    for (int first = 1; first <= kLookups; first += 50)
        PQclear(PQexec(db, SqliteBatch(first, first + 49).toUtf8().constData()));
    for (auto _ : state)
        for (int i = 1; i <= kLookups; ++i) {
            PGresult* result = PQexec(db, QStringLiteral("SELECT nombre FROM t WHERE ZolmarID = %1")
                                              .arg(i)
                                              .toUtf8()
                                              .constData());
            if (PQntuples(result) > 0)
                benchmark::DoNotOptimize(QString::fromUtf8(PQgetvalue(result, 0, 0)));
            PQclear(result);
        }
    PQfinish(db);
}

} // namespace

BENCHMARK(BM_Library_Insert_SQLite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bare_Insert_SQLite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Library_Lookups_SQLite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bare_Lookups_SQLite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bare_LookupsToEnd_SQLite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Library_KeyedLookups_SQLite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bare_KeyedLookups_SQLite)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Library_Insert_PostgreSQL)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bare_Insert_PostgreSQL)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Library_Lookups_PostgreSQL)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bare_Lookups_PostgreSQL)->Iterations(1)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
