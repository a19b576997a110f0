// cDBF speed: reading every field of a 1,000,000-record table and writing 100,000 records.
// The table is generated once (DbfBenchFile.h) so that bench/run_dbf.sh can hand the same
// file to the peers.

#include "DbfBenchFile.h"
#include "dbf/cDBF.h"

#include <QDir>
#include <QFile>
#include <benchmark/benchmark.h>

namespace {

using namespace zlx::bench;

constexpr int kWriteRecords = 100'000;
const char* const kFieldNames[] = {"NAME", "PRICE", "QTY", "BORN", "ACTIVE"};

void BM_ReadEveryField(benchmark::State& state) {
    const QString path = EnsureDbfBenchFile();
    const QString names[] = {kFieldNames[0], kFieldNames[1], kFieldNames[2], kFieldNames[3],
                             kFieldNames[4]};
    for (auto _ : state) {
        zlx::cDBF dbf;
        dbf.ShowErrors(false);
        dbf.OpenRaw(path);
        const auto count = static_cast<std::int64_t>(dbf.RecordCount());
        for (std::int64_t row = 1; row <= count; ++row) {
            dbf.CurrentRow(row);
            for (const QString& name : names)
                benchmark::DoNotOptimize(dbf.Field(name));
        }
        state.counters["records"] = static_cast<double>(count);
    }
}
BENCHMARK(BM_ReadEveryField)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_Write100k(benchmark::State& state) {
    const QString path = QDir::tempPath() + QStringLiteral("/zlx-dbf-bench-write.dbf");
    for (auto _ : state) {
        zlx::cDBF dbf;
        dbf.ShowErrors(false);
        dbf.BeginCreateDBF(path);
        DefineDbfColumns(dbf);
        dbf.EndCreateDBF();
        for (int i = 0; i < kWriteRecords; ++i)
            AppendDbfRecord(dbf, i);
        dbf.CloseDBF();
    }
    QFile::remove(path);
}
BENCHMARK(BM_Write100k)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

BENCHMARK_MAIN();
