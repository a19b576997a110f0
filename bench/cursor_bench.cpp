// The record cursor's cost per move: 10,000 MoveNext and 1,000 SeekID on tables of 10,000 and
// 1,000,000 rows whose order column holds 100 distinct values (many duplicates), through
// cFichaDB and through sqlite3 / libpq running the same one-row keyset queries directly.
// PostgreSQL runs when ZLX_BENCH_PG holds a libpq conninfo.

#include "cursor/OrderIndex.h"
#include "cursor/cFichaDB.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <libpq-fe.h>
#include <map>
#include <sqlite3.h>

using namespace zlx;

namespace {

constexpr int kMoves = 10000;
constexpr int kSeeks = 1000;
constexpr int kGroups = 100;

QString PostgresServer() {
    return QString::fromLocal8Bit(qgetenv("ZLX_BENCH_PG"));
}

// A library database "cursorbench" holding table t of `rows` rows, indexed for its order; one
// per server and size for the whole run.
struct BenchDatabase {
    BenchDatabase(const QString& server, int rows) {
        InstallMsgPresenter(&messages);
        cn->Init(zlxDataProvider_MSDE, {}, server);
        cn->Execute(QStringLiteral("IF EXISTS (SELECT name FROM sysdatabases WHERE "
                                   "name='cursorbench') DROP DATABASE cursorbench"));
        cn->Execute(QStringLiteral("CREATE DATABASE cursorbench"));
        cn->DBName(QStringLiteral("cursorbench"));
        cn->Execute(QStringLiteral(
            "CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), grupo INT, importe FLOAT)"));
        for (int first = 0; first < rows; first += 1000) {
            QStringList values;
            for (int i = first; i < first + 1000 && i < rows; ++i)
                values << QStringLiteral("(%1,%2)").arg(i % kGroups).arg(i * 0.5);
            cn->Execute(QStringLiteral("INSERT INTO t (grupo, importe) VALUES ") +
                            values.join(u','),
                        zlxExecuteReturn_Nothing_NoRowCount);
        }
        // The primary key that the schema layer gives every table it creates.
        cn->Execute(QStringLiteral("ALTER TABLE t ADD CONSTRAINT t_PKEY_zolmarID PRIMARY KEY "
                                   "NONCLUSTERED (zolmarID) ON [PRIMARY]"));
        OrderIndex::Ensure(*cn, QStringLiteral("t"), QStringLiteral("GRUPO"));
    }
    RecordingMsgPresenter messages;
    cConexionPtr cn = std::make_shared<cConexion>();
};

QTemporaryDir& SqliteFolder(int rows) {
    static std::map<int, std::unique_ptr<QTemporaryDir>> folders;
    auto& folder = folders[rows];
    if (!folder) folder = std::make_unique<QTemporaryDir>();
    return *folder;
}

QString Server(bool postgres, int rows) {
    return postgres ? QStringLiteral("postgres:") + PostgresServer()
                    : QStringLiteral("sqlite:") + SqliteFolder(rows).path();
}

BenchDatabase& Database(bool postgres, int rows) {
    static std::map<std::pair<bool, int>, std::unique_ptr<BenchDatabase>> databases;
    const auto key = std::make_pair(postgres, rows);
    auto found = databases.find(key);
    if (found == databases.end()) {
        databases.clear(); // one database of that name at a time on a server
        found =
            databases.emplace(key, std::make_unique<BenchDatabase>(Server(postgres, rows), rows))
                .first;
    }
    return *found->second;
}

std::vector<std::int32_t> SeekTargets(int rows) {
    QRandomGenerator random(11);
    std::vector<std::int32_t> ids;
    for (int i = 0; i < kSeeks; ++i)
        ids.push_back(1 + static_cast<std::int32_t>(random.bounded(rows)));
    return ids;
}

void LibraryMoves(benchmark::State& state, bool postgres) {
    if (postgres && PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    BenchDatabase& db = Database(postgres, static_cast<int>(state.range(0)));
    cFichaDB ficha;
    ficha.Init(db.cn, QStringLiteral("t"), QStringLiteral("grupo"));
    for (auto _ : state) {
        ficha.MoveFirst();
        for (int i = 0; i < kMoves; ++i)
            benchmark::DoNotOptimize(ficha.MoveNext());
    }
    state.counters["us_per_move"] = benchmark::Counter(
        kMoves, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void LibrarySeeks(benchmark::State& state, bool postgres) {
    if (postgres && PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    const int rows = static_cast<int>(state.range(0));
    BenchDatabase& db = Database(postgres, rows);
    cFichaDB ficha;
    ficha.Init(db.cn, QStringLiteral("t"), QStringLiteral("grupo"));
    const auto ids = SeekTargets(rows);
    for (auto _ : state)
        for (const std::int32_t id : ids)
            benchmark::DoNotOptimize(ficha.SeekID(id));
}

// The same moves on the bare engine: the statements the cursor's moves run, as the engine
// receives them, each one prepared, stepped once and finalised.
class BareEngine {
public:
    virtual ~BareEngine() = default;
    // The first row's (ZolmarID, grupo), false when there is none.
    virtual bool Row(const QByteArray& sql, std::int32_t& id, std::int32_t& grupo) = 0;

    // One MoveNext from (id, grupo): the same value and a higher identity, else the next value
    // and its lowest identity.
    void Next(std::int32_t& id, std::int32_t& grupo) {
        std::int32_t nextId = 0, nextGrupo = 0;
        if (Row(QStringLiteral("SELECT * FROM t WHERE GRUPO = '%1' AND  zolmarID > %2 ORDER BY "
                               "zolmarID LIMIT 1")
                    .arg(grupo)
                    .arg(id)
                    .toUtf8(),
                nextId, nextGrupo) ||
            (Row(QStringLiteral("SELECT ZolmarID, GRUPO FROM t WHERE GRUPO > '%1' ORDER BY GRUPO "
                                "LIMIT 1")
                     .arg(grupo)
                     .toUtf8(),
                 nextId, nextGrupo) &&
             Row(QStringLiteral("SELECT * FROM t WHERE GRUPO = '%1' ORDER BY ZolmarID LIMIT 1")
                     .arg(nextGrupo)
                     .toUtf8(),
                 nextId, nextGrupo))) {
            id = nextId;
            grupo = nextGrupo;
        }
    }
    void Moves(benchmark::State& state) {
        for (auto _ : state) {
            std::int32_t id = 0, grupo = 0;
            Row("SELECT * FROM t WHERE GRUPO = '0' ORDER BY ZolmarID LIMIT 1", id, grupo);
            for (int i = 0; i < kMoves; ++i)
                Next(id, grupo);
            benchmark::DoNotOptimize(id);
        }
        state.counters["us_per_move"] = benchmark::Counter(
            kMoves, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    }
    void Seeks(benchmark::State& state, int rows) {
        const auto ids = SeekTargets(rows);
        for (auto _ : state)
            for (const std::int32_t target : ids) {
                std::int32_t id = 0, grupo = 0;
                Row(QStringLiteral("SELECT * FROM t WHERE zolmarID = %1").arg(target).toUtf8(), id,
                    grupo);
                benchmark::DoNotOptimize(id);
            }
    }
};

class BareSqlite : public BareEngine {
public:
    explicit BareSqlite(const QString& file) { sqlite3_open(file.toUtf8().constData(), &m_db); }
    ~BareSqlite() override { sqlite3_close(m_db); }
    bool Row(const QByteArray& sql, std::int32_t& id, std::int32_t& grupo) override {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_db, sql.constData(), -1, &statement, nullptr);
        const bool found = sqlite3_step(statement) == SQLITE_ROW;
        if (found) {
            id = sqlite3_column_int(statement, 0);
            grupo = sqlite3_column_int(statement, 1);
        }
        sqlite3_finalize(statement);
        return found;
    }

private:
    sqlite3* m_db = nullptr;
};

class BarePostgres : public BareEngine {
public:
    BarePostgres() {
        m_db = PQconnectdb(PostgresServer().toUtf8().constData());
        PQclear(PQexec(m_db, "SET search_path TO cursorbench"));
    }
    ~BarePostgres() override { PQfinish(m_db); }
    bool Row(const QByteArray& sql, std::int32_t& id, std::int32_t& grupo) override {
        PGresult* result = PQexec(m_db, sql.constData());
        const bool found = PQntuples(result) > 0;
        if (found) {
            id = std::atoi(PQgetvalue(result, 0, 0));
            grupo = std::atoi(PQgetvalue(result, 0, 1));
        }
        PQclear(result);
        return found;
    }

private:
    PGconn* m_db = nullptr;
};

std::unique_ptr<BareEngine> Bare(bool postgres, int rows) {
    Database(postgres, rows); // the same table the library walks
    if (postgres) return std::make_unique<BarePostgres>();
    return std::make_unique<BareSqlite>(
        QDir(SqliteFolder(rows).path()).filePath(QStringLiteral("cursorbench.sqlite")));
}

void BM_Library_MoveNext_SQLite(benchmark::State& state) {
    LibraryMoves(state, false);
}
void BM_Library_MoveNext_PostgreSQL(benchmark::State& state) {
    LibraryMoves(state, true);
}
void BM_Library_SeekID_SQLite(benchmark::State& state) {
    LibrarySeeks(state, false);
}
void BM_Library_SeekID_PostgreSQL(benchmark::State& state) {
    LibrarySeeks(state, true);
}
void BM_Bare_MoveNext_SQLite(benchmark::State& state) {
    Bare(false, static_cast<int>(state.range(0)))->Moves(state);
}
void BM_Bare_MoveNext_PostgreSQL(benchmark::State& state) {
    if (PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    Bare(true, static_cast<int>(state.range(0)))->Moves(state);
}
void BM_Bare_SeekID_SQLite(benchmark::State& state) {
    Bare(false, static_cast<int>(state.range(0)))->Seeks(state, static_cast<int>(state.range(0)));
}
void BM_Bare_SeekID_PostgreSQL(benchmark::State& state) {
    if (PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    Bare(true, static_cast<int>(state.range(0)))->Seeks(state, static_cast<int>(state.range(0)));
}

} // namespace

// Grouped by engine and size so that each table is built once.
#define ZLX_CURSOR_BENCH(engine, rows)                                                             \
    BENCHMARK(BM_Library_MoveNext_##engine)                                                        \
        ->Arg(rows)                                                                                \
        ->Iterations(3)                                                                            \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK(BM_Bare_MoveNext_##engine)->Arg(rows)->Iterations(3)->Unit(benchmark::kMillisecond); \
    BENCHMARK(BM_Library_SeekID_##engine)                                                          \
        ->Arg(rows)                                                                                \
        ->Iterations(3)                                                                            \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK(BM_Bare_SeekID_##engine)->Arg(rows)->Iterations(3)->Unit(benchmark::kMillisecond)

ZLX_CURSOR_BENCH(SQLite, 10000);
ZLX_CURSOR_BENCH(SQLite, 1000000);
ZLX_CURSOR_BENCH(PostgreSQL, 10000);
ZLX_CURSOR_BENCH(PostgreSQL, 1000000);

BENCHMARK_MAIN();
