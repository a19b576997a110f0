// The same work on SQLite's in-memory database: loading the rows, the filter, the sort and a
// lookup by an indexed column, each collecting the row ids it finds.

#include "BenchData.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdexcept>
#include <sys/resource.h>
#include <vector>

namespace {

sqlite3* Open() {
    sqlite3* db = nullptr;
    if (sqlite3_open(":memory:", &db) != SQLITE_OK) throw std::runtime_error("sqlite open");
    return db;
}

void Exec(sqlite3* db, const char* sql) {
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(db));
    }
}

void Load(sqlite3* db) {
    Exec(db, "CREATE TABLE t (nombre VARCHAR(40), ciudad VARCHAR(25), codigo INTEGER, "
             "importe NUMERIC(12,2), fecha DATE, activo BOOLEAN)");
    Exec(db, "BEGIN");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO t VALUES (?, ?, ?, ?, date('2015-01-01', ?), ?)", -1,
                       &insert, nullptr);
    for (int i = 0; i < zlx::bench::kRows; ++i) {
        const std::string name = zlx::bench::Name(i);
        const std::string days = "+" + std::to_string(zlx::bench::DayOffset(i)) + " days";
        sqlite3_bind_text(insert, 1, name.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 2, zlx::bench::City(i), -1, SQLITE_STATIC);
        sqlite3_bind_int(insert, 3, i);
        sqlite3_bind_double(insert, 4, zlx::bench::AmountCents(i) / 100.0);
        sqlite3_bind_text(insert, 5, days.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_int(insert, 6, zlx::bench::Flag(i));
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    Exec(db, "COMMIT");
}

std::vector<sqlite3_int64> RowIds(sqlite3* db, const char* sql, int parameter = -1) {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr);
    if (parameter >= 0) sqlite3_bind_int(stmt, 1, parameter);
    std::vector<sqlite3_int64> ids;
    while (sqlite3_step(stmt) == SQLITE_ROW)
        ids.push_back(sqlite3_column_int64(stmt, 0));
    sqlite3_finalize(stmt);
    return ids;
}

sqlite3* Shared() {
    static sqlite3* db = [] {
        sqlite3* d = Open();
        Load(d);
        Exec(d, "CREATE INDEX t_codigo ON t (codigo)");
        return d;
    }();
    return db;
}

void BM_Load(benchmark::State& state) {
    for (auto _ : state) {
        sqlite3* db = Open();
        Load(db);
        sqlite3_close(db);
    }
}

void BM_Filter(benchmark::State& state) {
    sqlite3* db = Shared();
    std::size_t count = 0;
    for (auto _ : state) {
        count = RowIds(db, "SELECT rowid FROM t WHERE nombre LIKE 'GAR%' AND importe > 100").size();
        benchmark::DoNotOptimize(count);
    }
    state.counters["rows"] = static_cast<double>(count);
}

void BM_Sort(benchmark::State& state) {
    sqlite3* db = Shared();
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            RowIds(db, "SELECT rowid FROM t ORDER BY ciudad, importe DESC").size());
    }
}

void BM_FindOptimized(benchmark::State& state) {
    sqlite3* db = Shared();
    int code = 0;
    for (auto _ : state) {
        code = (code + 654321) % zlx::bench::kRows;
        benchmark::DoNotOptimize(RowIds(db, "SELECT rowid FROM t WHERE codigo = ? LIMIT 1", code));
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_rss_mb"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}

} // namespace

BENCHMARK(BM_Load)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_Filter)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Sort)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_FindOptimized)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
