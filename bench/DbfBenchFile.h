#pragma once
// The DBF benchmark table: NAME C(20), PRICE N(10,2), QTY N(8), BORN D, ACTIVE L, written
// through cDBF once at ZLX_DBF_BENCH_FILE (default /tmp/zlx-dbf-bench-1m.dbf) and reused by
// dbf_bench, table_bench and the peers that bench/run_dbf.sh runs on the same file.

#include "dbf/cDBF.h"

#include <QFile>
#include <QString>

namespace zlx::bench {

constexpr int kDbfRecords = 1'000'000;

inline void DefineDbfColumns(cDBF& dbf) {
    QString c = "C", n = "N", d = "D", l = "L";
    dbf.CreateColumn("NAME", c, 20);
    dbf.CreateColumn("PRICE", n, 10, 2);
    dbf.CreateColumn("QTY", n, 8);
    dbf.CreateColumn("BORN", d);
    dbf.CreateColumn("ACTIVE", l);
}

inline void AppendDbfRecord(cDBF& dbf, int i) {
    dbf.BeginInsert();
    dbf.Field("NAME", QStringLiteral("Cliente %1").arg(i));
    dbf.Field("PRICE", (i % 100000) / 100.0);
    dbf.Field("QTY", std::int32_t(i % 1000));
    dbf.Field("BORN", MakeDate(1950 + i % 60, 1 + i % 12, 1 + i % 28));
    dbf.Field("ACTIVE", i % 2 == 0);
    dbf.EndInsert();
}

inline QString DbfBenchPath() {
    const QString configured = qEnvironmentVariable("ZLX_DBF_BENCH_FILE");
    return configured.isEmpty() ? QStringLiteral("/tmp/zlx-dbf-bench-1m.dbf") : configured;
}

// The path of the 1,000,000-record file, written the first time it is asked for.
inline QString EnsureDbfBenchFile() {
    const QString path = DbfBenchPath();
    if (QFile::exists(path)) return path;
    cDBF dbf;
    dbf.ShowErrors(false);
    dbf.BeginCreateDBF(path);
    DefineDbfColumns(dbf);
    dbf.EndCreateDBF();
    for (int i = 0; i < kDbfRecords; ++i)
        AppendDbfRecord(dbf, i);
    dbf.CloseDBF();
    return path;
}

} // namespace zlx::bench
