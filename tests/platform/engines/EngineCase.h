#pragma once
// Test helper: the engines the same test bodies run on, each with a throwaway database.

#include <QString>
#include <functional>
#include <memory>

namespace zlx::ado::testing {

// One database made for one test and removed after it.
class ScratchDatabase {
public:
    virtual ~ScratchDatabase() = default;
    virtual QString ConnectionString() const = 0;
};

struct EngineCase {
    const char* name;
    QString errorSource; // the source of the engine's error records
    // Makes a scratch database; nullptr when the engine is not available here (the test
    // is then skipped, or failed when the environment demands the engine).
    std::function<std::unique_ptr<ScratchDatabase>()> makeDatabase;
    QString slowQuery; // runs for far longer than a second
};

EngineCase SqliteCase();
EngineCase PostgresCase();
EngineCase OdbcPostgresCase();

} // namespace zlx::ado::testing
