// A query with a filter and a sort over the 1,000,000-record DBF benchmark file: through the
// FoxPro folder provider (an ADO connection on the file's folder), and through SQLite after
// loading the file into an in-memory table (the load timed apart). bench/run_fox.sh runs it
// next to GDAL's ogrinfo on the same file and prints the ratios.

#include "DbfBenchFile.h"
#include "platform/ado/Connection.h"
#include "platform/dbfformat/DbfTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace zlx::bench {
namespace {

// Clients with fewer than 100 units bought and still active, dearest first: 50,000 rows.
const QString kFoxQuery = QStringLiteral(
    "SELECT name, price FROM bench WHERE qty < 100 AND active = .T. ORDER BY price DESC, name");
const char* const kSqliteQuery =
    "SELECT name, price FROM bench WHERE qty < 100 AND active = 1 ORDER BY price DESC, name";

class CountingSink : public ado::ResultSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>&) override {}
    bool Row(std::vector<Variant>&) override {
        ++rows;
        return true;
    }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}
    std::int64_t rows = 0;
};

// A folder holding the benchmark file alone, as bench.dbf.
QString BenchFolder() {
    const QString folder = QDir::tempPath() + QStringLiteral("/zlx-fox-bench");
    QDir().mkpath(folder);
    const QString link = folder + QStringLiteral("/bench.dbf");
    if (!QFileInfo::exists(link)) QFile::link(EnsureDbfBenchFile(), link);
    return folder;
}

void BM_Provider_FilterSort(benchmark::State& state) {
    ado::Connection connection;
    connection.Open(QStringLiteral("Provider=MSDASQL;Driver={Microsoft Visual FoxPro Driver};"
                                   "SourceType=DBF;Deleted=Yes;SourceDB=") +
                    BenchFolder());
    for (auto _ : state) {
        CountingSink sink;
        connection.ExecuteInto(kFoxQuery, sink);
        state.counters["rows"] = static_cast<double>(sink.rows);
    }
}
BENCHMARK(BM_Provider_FilterSort)->Unit(benchmark::kMillisecond)->Iterations(3);

// Reads every record of the file into an in-memory SQLite table.
sqlite3* LoadIntoSqlite() {
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    sqlite3_exec(db,
                 "CREATE TABLE bench (name TEXT, price REAL, qty INTEGER, born TEXT, active "
                 "INTEGER); BEGIN",
                 nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO bench VALUES (?, ?, ?, ?, ?)", -1, &insert, nullptr);
    DbfTable table;
    QString refusal;
    table.Open(EnsureDbfBenchFile(), 0, refusal);
    std::vector<char> record(table.RecordLength());
    const auto& fields = table.Layout().fields;
    for (std::uint32_t row = 1; row <= table.RecordCount(); ++row) {
        table.ReadRecord(row, record.data());
        QString problem;
        const QByteArray name = table.Value(fields[0], record.data(), problem).ToString().toUtf8();
        sqlite3_bind_text(insert, 1, name.constData(), static_cast<int>(name.size()),
                          SQLITE_TRANSIENT);
        sqlite3_bind_double(insert, 2, table.Value(fields[1], record.data(), problem).ToDouble());
        sqlite3_bind_int(insert, 3, table.Value(fields[2], record.data(), problem).ToLong());
        sqlite3_bind_text(insert, 4, record.data() + fields[3].offset, 8, SQLITE_TRANSIENT);
        sqlite3_bind_int(insert, 5, table.Value(fields[4], record.data(), problem).ToBool());
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    return db;
}

void BM_SqliteLoaded_Load(benchmark::State& state) {
    for (auto _ : state)
        sqlite3_close(LoadIntoSqlite());
}
BENCHMARK(BM_SqliteLoaded_Load)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_SqliteLoaded_FilterSort(benchmark::State& state) {
    sqlite3* db = LoadIntoSqlite();
    for (auto _ : state) {
        sqlite3_stmt* query = nullptr;
        sqlite3_prepare_v2(db, kSqliteQuery, -1, &query, nullptr);
        std::int64_t rows = 0;
        while (sqlite3_step(query) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_text(query, 0));
            ++rows;
        }
        sqlite3_finalize(query);
        state.counters["rows"] = static_cast<double>(rows);
    }
    sqlite3_close(db);
}
BENCHMARK(BM_SqliteLoaded_FilterSort)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
} // namespace zlx::bench

BENCHMARK_MAIN();
