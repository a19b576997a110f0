// A column added to a table of a million rows: cBaseDatos.Create_Column (add, bind the shared
// default, fill the existing rows in statements of 50,000 identities from the top) against
// the engine's own single ALTER TABLE ... ADD ... NOT NULL DEFAULT, on the embedded server
// and on PostgreSQL (when ZLX_BENCH_PG holds a libpq conninfo). While the fill runs, a reader
// on a second connection counts the table's rows; its longest wait is reported as the
// counter "reader_max_ms".

#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "schema/cBaseDatos.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <benchmark/benchmark.h>
#include <memory>
#include <stdexcept>

using namespace zlx;

namespace {

constexpr int kRows = 1000000;

// The embedded PostgreSQL server form of ZLX_BENCH_PG; empty when it is not set.
QString PostgresServer() {
    const QString conninfo = QString::fromLocal8Bit(qgetenv("ZLX_BENCH_PG"));
    return conninfo.isEmpty() ? QString() : QStringLiteral("postgres:") + conninfo;
}

// A fresh database "benchcol" with its shared defaults and a table t of kRows rows.
struct BigTable {
    explicit BigTable(const QString& server) {
        InstallMsgPresenter(&messages);
        cConexion admin;
        admin.Init(zlxDataProvider_MSDE, {}, server);
        admin.Execute(QStringLiteral("IF EXISTS (SELECT name FROM sysdatabases WHERE "
                                     "name='benchcol') DROP DATABASE benchcol"));
        db.Init_Connection(zlxDataProvider_MSDE, QStringLiteral("benchcol"), {}, {}, {}, server);
        if (db.Create_Database() != zlxDBConstantsNoError || !db.oCn())
            throw std::runtime_error("the benchmark database could not be created");
        db.Create_Table(QStringLiteral("t"));
        db.Create_Column(QStringLiteral("numero"), zlxTblColumnTypeI4);
        db.oCn()->Execute(QStringLiteral("INSERT INTO t (numero) SELECT 1"));
        // Doubling the rows twenty times gives 2^20; the top is cut back to a million.
        for (int i = 0; i < 20; ++i)
            db.oCn()->Execute(QStringLiteral("INSERT INTO t (numero) SELECT numero FROM t"));
        db.oCn()->Execute(QStringLiteral("DELETE FROM t WHERE zolmarID > %1").arg(kRows));
    }
    ~BigTable() {
        db.Close_Connection();
        InstallMsgPresenter(nullptr);
    }
    RecordingMsgPresenter messages;
    cBaseDatos db;
};

// Counts the rows again and again on its own connection while `work` runs; answers the
// longest single count in milliseconds.
template <class Work> double LongestRead(const QString& server, Work&& work) {
    std::atomic<bool> done{false};
    std::atomic<qint64> longest{0};
    // A QThread, so that the connection's timers have a thread Qt knows.
    std::unique_ptr<QThread> reader(QThread::create([&] {
        ado::Connection cn; // plain ADO: the reader's thread has no event loop
        cn.Open(QStringLiteral("Provider=SQLOLEDB.1;Database=benchcol;Server=") + server);
        while (!done) {
            QElapsedTimer timer;
            timer.start();
            long affected = -1;
            cn.Execute(QStringLiteral("SELECT count(*) FROM t WHERE zolmarID < 10"), affected);
            longest = std::max(longest.load(), timer.elapsed());
        }
    }));
    reader->start();
    work();
    done = true;
    reader->wait();
    return static_cast<double>(longest.load());
}

void AddColumn(benchmark::State& state, const QString& server, bool library) {
    if (server.isEmpty()) {
        state.SkipWithError("ZLX_BENCH_PG is not set");
        return;
    }
    for (auto _ : state) {
        state.PauseTiming();
        BigTable table(server);
        state.ResumeTiming();
        const double longest = LongestRead(server, [&] {
            if (library)
                table.db.Create_Column(QStringLiteral("importe"), zlxTblColumnTypeCurrency);
            else
                table.db.oCn()->Execute(
                    QStringLiteral("ALTER TABLE t ADD importe MONEY NOT NULL DEFAULT 0"));
        });
        state.counters["reader_max_ms"] = longest;
        state.PauseTiming();
        if (table.db.oCn()->RecCount(QStringLiteral("t"), QStringLiteral("importe = 0")) != kRows)
            state.SkipWithError("rows not filled");
        state.ResumeTiming();
    }
}

QString SqliteServer() {
    static QTemporaryDir folder;
    return QStringLiteral("sqlite:") + folder.path();
}

} // namespace

BENCHMARK_CAPTURE(AddColumn, Library_SQLite, SqliteServer(), true)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
BENCHMARK_CAPTURE(AddColumn, Engine_SQLite, SqliteServer(), false)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
BENCHMARK_CAPTURE(AddColumn, Library_PostgreSQL, PostgresServer(), true)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
BENCHMARK_CAPTURE(AddColumn, Engine_PostgreSQL, PostgresServer(), false)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();

BENCHMARK_MAIN();
