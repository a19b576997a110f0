#include "support/TemporaryFolder.h"

#include <QDir>

namespace zlx::test {

namespace {

QString TestRoot() {
    const QString root = qEnvironmentVariable("ZLX_TEST_TMP", QDir::tempPath());
    QDir().mkpath(root);
    return root;
}

} // namespace

TemporaryFolder::TemporaryFolder(const QString& prefix)
    : QTemporaryDir(TestRoot() + u'/' + prefix + QStringLiteral("-XXXXXX")) {}

} // namespace zlx::test
