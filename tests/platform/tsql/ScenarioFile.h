#pragma once
// The differential scenarios of scenarios/: what SQL Server answers to ordinary application
// statements, one scenario a file, run on every engine through the T-SQL session.
//
// A file starts with "--" lines that describe it; "-- gap <engine>: <reason>" among them marks
// a known difference on that engine ("sqlite" or "postgres"). Then come batches, each opened by
// "-- run" and followed by its statement lines; an optional "-- expect" after a batch lists what
// SQL Server answers, one line per event as the golden corpus writes them ("rowset",
// "row a|b", "end", "count <n>", "error <native number>"; "{any}" for any one value). A batch
// without "-- expect" only has to succeed.

#include <QString>
#include <QStringList>
#include <vector>

namespace zlx::test {

struct ScenarioBatch {
    QString sql;
    bool checked = false; // an "-- expect" section follows
    QStringList expected;
};

struct Scenario {
    QString name; // the file name
    QStringList gapEngines;
    std::vector<ScenarioBatch> batches;
};

// Every scenario file, in the order of their names.
const std::vector<Scenario>& Scenarios();

} // namespace zlx::test
