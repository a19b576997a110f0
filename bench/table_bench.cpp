// cDatos on the 1,000,000-record DBF file of DbfBenchFile.h: LoadFile_DBF, then Filter, Sort
// on two columns (a number and a text, then two numbers) and Sum of a numeric column on the loaded
// table. bench/run_dbf.sh runs the same work on pandas and on SQLite's in-memory database and
// prints the ratios; the peak resident memory is reported as a counter.

#include "DbfBenchFile.h"
#include "table/cDatos.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>

using namespace zlx;

namespace {

// The condition, order and column every peer uses as well.
const char* const kFilter = "NAME LIKE 'Cliente 1*' AND PRICE > 500";
const char* const kSort = "QTY, NAME";
const char* const kSortNumbers = "ACTIVE, PRICE DESC";
const char* const kSumColumn = "PRICE";

cDatos& Shared() {
    static cDatos* table = [] {
        auto* t = new cDatos();
        t->LoadFile_DBF(bench::EnsureDbfBenchFile());
        return t;
    }();
    return *table;
}

double PeakRssMb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void BM_LoadFile_DBF(benchmark::State& state) {
    const QString path = bench::EnsureDbfBenchFile();
    std::int32_t rows = 0;
    for (auto _ : state) {
        cDatos table;
        if (table.LoadFile_DBF(path) != 1) state.SkipWithError("LoadFile_DBF failed");
        rows = table.RecCount();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = rows;
}

void BM_Filter(benchmark::State& state) {
    cDatos& table = Shared();
    std::int32_t rows = 0;
    for (auto _ : state) {
        table.Filter(Variant(kFilter));
        rows = table.RecCount();
        benchmark::DoNotOptimize(rows);
    }
    table.Filter(Variant());
    state.counters["rows"] = rows;
}

void SortBy(benchmark::State& state, const char* order) {
    cDatos& table = Shared();
    for (auto _ : state) {
        table.Sort(order);
        table.MoveFirst();
        benchmark::DoNotOptimize(table.Field_ByColumnNumber(0));
        state.PauseTiming();
        table.Sort(QString());
        state.ResumeTiming();
    }
}

// A number column and a text column of distinct values.
void BM_Sort(benchmark::State& state) {
    SortBy(state, kSort);
}

// Two number columns.
void BM_SortNumbers(benchmark::State& state) {
    SortBy(state, kSortNumbers);
}

void BM_Sum(benchmark::State& state) {
    cDatos& table = Shared();
    double total = 0;
    for (auto _ : state) {
        total = table.Sum(Variant(kSumColumn)).ToDouble();
        benchmark::DoNotOptimize(total);
    }
    state.counters["total"] = total;
    state.counters["peak_rss_mb"] = PeakRssMb();
}

} // namespace

BENCHMARK(BM_LoadFile_DBF)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Filter)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_Sort)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SortNumbers)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Sum)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_MAIN();
