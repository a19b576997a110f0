#pragma once
// A folder of one test's own, removed with everything in it when the test ends. It lies under
// the build's test folder (ZLX_TEST_TMP) when the test command names one, else under the
// system's temporary folder.

#include <QTemporaryDir>

namespace zlx::test {

class TemporaryFolder : public QTemporaryDir {
public:
    explicit TemporaryFolder(const QString& prefix = QStringLiteral("zlx"));
};

} // namespace zlx::test
