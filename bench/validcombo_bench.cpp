// The lookup combo on a 100,000-row list: cValidCombo.Run from the typed text to the list
// request (query, result rows and the matrix the grid shows), and to the first painted rows of
// the real lookup window (offscreen), against the same query fetched through the bare sqlite3 /
// libpq API. PostgreSQL runs when ZLX_BENCH_PG holds a libpq conninfo.

#include "BenchData.h"
#include "binding/cValidCombo.h"
#include "cursor/cFichaDB.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/widgets/LookupGridWindow.h"
#include "support/TableDescriptor.h"

#include <QApplication>
#include <QDir>
#include <QTableView>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <sqlite3.h>

using namespace zlx;

namespace {

constexpr int kRows = 100000;
const char* const kQuery = "SELECT ZolmarID, Nombre FROM t";

QString PostgresServer() {
    return QString::fromLocal8Bit(qgetenv("ZLX_BENCH_PG"));
}

// A library database "combobench" holding table t (ZolmarID, Nombre) of kRows rows.
struct BenchDatabase {
    explicit BenchDatabase(const QString& server) {
        InstallMsgPresenter(&messages);
        cn->Init(zlxDataProvider_MSDE, {}, server);
        cn->Execute(QStringLiteral("IF EXISTS (SELECT name FROM sysdatabases WHERE "
                                   "name='combobench') DROP DATABASE combobench"));
        cn->Execute(QStringLiteral("CREATE DATABASE combobench"));
        cn->DBName(QStringLiteral("combobench"));
        cn->Execute(QStringLiteral(
            "CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), Nombre VARCHAR(40))"));
        for (int first = 0; first < kRows; first += 1000) {
            QStringList values;
            for (int i = first; i < first + 1000; ++i)
                values << QStringLiteral("('%1')").arg(QString::fromStdString(bench::Name(i)));
            cn->Execute(QStringLiteral("INSERT INTO t (Nombre) VALUES ") + values.join(u','),
                        zlxExecuteReturn_Nothing_NoRowCount);
        }
        auto globales = std::make_shared<cGlobales>();
        globales->oCn(cn);
        cursor->Init(cn, QStringLiteral("t"), QStringLiteral("Nombre"));
        table = std::make_shared<test::TableDescriptor>(cursor, globales);
    }

    RecordingMsgPresenter messages;
    cConexionPtr cn = std::make_shared<cConexion>();
    cFichaDBPtr cursor = std::make_shared<cFichaDB>();
    I_TAVPtr table;
};

QTemporaryDir& SqliteFolder() {
    static QTemporaryDir folder;
    return folder;
}

BenchDatabase& Database(bool postgres) {
    static std::unique_ptr<BenchDatabase> databases[2];
    auto& database = databases[postgres ? 1 : 0];
    if (!database) {
        databases[postgres ? 0 : 1].reset(); // one database of that name at a time on a server
        database = std::make_unique<BenchDatabase>(
            postgres ? QStringLiteral("postgres:") + PostgresServer()
                     : QStringLiteral("sqlite:") + SqliteFolder().path());
    }
    return *database;
}

// Answers the list without a pick, having only seen the request.
class ListRequested : public LookupGridPresenter {
public:
    std::int32_t Present(const LookupGridRequest& request) override {
        benchmark::DoNotOptimize(request.data->Rows());
        return 0;
    }
};

// Opens the real lookup window and closes it once its rows have been painted.
class FirstPaint : public LookupGridPresenter, public QObject {
public:
    std::int32_t Present(const LookupGridRequest& request) override {
        LookupGridWindow window(request);
        m_painted = false;
        window.View()->viewport()->installEventFilter(this);
        window.show();
        for (int turn = 0; turn < 100 && !m_painted; ++turn)
            QCoreApplication::processEvents();
        if (!m_painted) window.grab(); // a platform that never exposes the window
        return 0;
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) m_painted = true;
        return false;
    }

private:
    bool m_painted = false;
};

void RunCombo(benchmark::State& state, bool postgres, LookupGridPresenter& presenter) {
    if (postgres && PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    BenchDatabase& db = Database(postgres);
    ScopedLookupGridPresenter scope(presenter);
    QObject typed;
    typed.setProperty("Text", QString());
    cValidCombo combo;
    bool update = true;
    for (auto _ : state)
        benchmark::DoNotOptimize(combo.Run(db.table, &typed, update));
    if (!combo.MostroLista()) state.SkipWithError("the list was not shown");
}

// The same query's rows fetched into memory through the bare engine.
std::size_t BareSqliteRows() {
    sqlite3* db = nullptr;
    sqlite3_open(QDir(SqliteFolder().path()).filePath("combobench.sqlite").toUtf8().constData(),
                 &db);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, kQuery, -1, &statement, nullptr);
    std::vector<std::pair<int, std::string>> rows;
    while (sqlite3_step(statement) == SQLITE_ROW)
        rows.emplace_back(sqlite3_column_int(statement, 0),
                          reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)));
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows.size();
}

std::size_t BarePostgresRows() {
    PGconn* db = PQconnectdb(PostgresServer().toUtf8().constData());
    PQclear(PQexec(db, "SET search_path TO combobench"));
    PGresult* result = PQexec(db, kQuery);
    std::vector<std::pair<int, std::string>> rows;
    for (int row = 0; row < PQntuples(result); ++row)
        rows.emplace_back(std::atoi(PQgetvalue(result, row, 0)), PQgetvalue(result, row, 1));
    PQclear(result);
    PQfinish(db);
    return rows.size();
}

void BM_Bare_Fetch_SQLite(benchmark::State& state) {
    Database(false);
    for (auto _ : state)
        benchmark::DoNotOptimize(BareSqliteRows());
}
void BM_Bare_Fetch_PostgreSQL(benchmark::State& state) {
    if (PostgresServer().isEmpty()) return state.SkipWithError("ZLX_BENCH_PG not set");
    Database(true);
    for (auto _ : state)
        benchmark::DoNotOptimize(BarePostgresRows());
}
void BM_Combo_List_SQLite(benchmark::State& state) {
    ListRequested presenter;
    RunCombo(state, false, presenter);
}
void BM_Combo_List_PostgreSQL(benchmark::State& state) {
    ListRequested presenter;
    RunCombo(state, true, presenter);
}
void BM_Combo_FirstPaint_SQLite(benchmark::State& state) {
    FirstPaint presenter;
    RunCombo(state, false, presenter);
}
void BM_Combo_FirstPaint_PostgreSQL(benchmark::State& state) {
    FirstPaint presenter;
    RunCombo(state, true, presenter);
}

} // namespace

// Grouped by engine so that each table is built once.
BENCHMARK(BM_Bare_Fetch_SQLite)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Combo_List_SQLite)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Combo_FirstPaint_SQLite)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bare_Fetch_PostgreSQL)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Combo_List_PostgreSQL)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Combo_FirstPaint_PostgreSQL)->Iterations(5)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
