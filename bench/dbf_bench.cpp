// cDBF speed: reading every field of a 1,000,000-record table and writing 100,000 records.
// The table is generated once at ZLX_DBF_BENCH_FILE (default /tmp/zlx-dbf-bench-1m.dbf) so
// that bench/run_dbf.sh can hand the same file to the peers.

#include "dbf/cDBF.h"

#include <QDir>
#include <QFile>
#include <benchmark/benchmark.h>

namespace {

constexpr int kReadRecords = 1'000'000;
constexpr int kWriteRecords = 100'000;
const char* const kFieldNames[] = {"NAME", "PRICE", "QTY", "BORN", "ACTIVE"};

void DefineColumns(zlx::cDBF& dbf) {
    QString c = "C", n = "N", d = "D", l = "L";
    dbf.CreateColumn("NAME", c, 20);
    dbf.CreateColumn("PRICE", n, 10, 2);
    dbf.CreateColumn("QTY", n, 8);
    dbf.CreateColumn("BORN", d);
    dbf.CreateColumn("ACTIVE", l);
}

void AppendRecord(zlx::cDBF& dbf, int i) {
    dbf.BeginInsert();
    dbf.SetField("NAME", QStringLiteral("Cliente %1").arg(i));
    dbf.SetField("PRICE", (i % 100000) / 100.0);
    dbf.SetField("QTY", std::int32_t(i % 1000));
    dbf.SetField("BORN", zlx::MakeDate(1950 + i % 60, 1 + i % 12, 1 + i % 28));
    dbf.SetField("ACTIVE", i % 2 == 0);
    dbf.EndInsert();
}

QString ReadFilePath() {
    const QString configured = qEnvironmentVariable("ZLX_DBF_BENCH_FILE");
    return configured.isEmpty() ? QStringLiteral("/tmp/zlx-dbf-bench-1m.dbf") : configured;
}

// Written once through cDBF itself; later runs reuse the file.
QString EnsureReadFile() {
    const QString path = ReadFilePath();
    if (QFile::exists(path)) return path;
    zlx::cDBF dbf;
    dbf.SetShowErrors(false);
    dbf.BeginCreateDBF(path);
    DefineColumns(dbf);
    dbf.EndCreateDBF();
    for (int i = 0; i < kReadRecords; ++i)
        AppendRecord(dbf, i);
    dbf.CloseDBF();
    return path;
}

void BM_ReadEveryField(benchmark::State& state) {
    const QString path = EnsureReadFile();
    const QString names[] = {kFieldNames[0], kFieldNames[1], kFieldNames[2], kFieldNames[3],
                             kFieldNames[4]};
    for (auto _ : state) {
        zlx::cDBF dbf;
        dbf.SetShowErrors(false);
        dbf.OpenRaw(path);
        const auto count = static_cast<std::int64_t>(dbf.RecordCount());
        for (std::int64_t row = 1; row <= count; ++row) {
            dbf.SetCurrentRow(row);
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
        dbf.SetShowErrors(false);
        dbf.BeginCreateDBF(path);
        DefineColumns(dbf);
        dbf.EndCreateDBF();
        for (int i = 0; i < kWriteRecords; ++i)
            AppendRecord(dbf, i);
        dbf.CloseDBF();
    }
    QFile::remove(path);
}
BENCHMARK(BM_Write100k)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

BENCHMARK_MAIN();
