#include "QtPrinters.h"
#include "platform/companion/cLogFile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

QStringList LinesOf(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

TEST(cLogFile, AppendsTimeStampedLinesAcrossOpenings) {
    QTemporaryDir dir;
    cLogFile log;
    ASSERT_TRUE(log.OpenLog(dir.path(), "ZolmarDataCtl", 0, true, 1024));
    EXPECT_EQ(log.FileName(), QDir(dir.path()).filePath("ZolmarDataCtl.log"));
    log.WriteLine("primera línea");
    log.WriteLine("sin salto, ", false);
    log.WriteLine("continuada");
    cLogFile again;
    again.OpenLog(dir.path(), "ZolmarDataCtl");
    again.WriteLine("segunda apertura");
    const QStringList lines = LinesOf(log.FileName());
    ASSERT_EQ(lines.size(), 3);
    const QRegularExpression stamp(R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )");
    EXPECT_TRUE(stamp.match(lines[0]).hasMatch());
    EXPECT_TRUE(lines[0].endsWith("primera línea"));
    EXPECT_TRUE(lines[1].endsWith("sin salto, continuada"));
    EXPECT_TRUE(lines[2].endsWith("segunda apertura"));

    cLogFile fresh;
    fresh.OpenLog(dir.path(), "ZolmarDataCtl", 1, false);
    fresh.WriteLine("nuevo");
    EXPECT_EQ(LinesOf(log.FileName()), QStringList{"nuevo"});
}

TEST(cLogFile, UnwritableFolderFallsBackToTheUserStateFolder) {
    QTemporaryDir state;
    qputenv("XDG_STATE_HOME", state.path().toUtf8());
    QTemporaryDir dir;
    const QString blocked = dir.filePath("not-a-folder");
    QFile(blocked).open(QIODevice::WriteOnly); // a file where the folder should be
    cLogFile log;
    ASSERT_TRUE(log.OpenLog(blocked, "app"));
    EXPECT_EQ(log.FileName(), state.path() + "/zolmar/app.log");
    log.WriteLine("x");
    EXPECT_EQ(LinesOf(log.FileName()).size(), 1);
    qunsetenv("XDG_STATE_HOME");
}

TEST(cLogFile, RollsOverPastItsSizeLimit) {
    QTemporaryDir dir;
    cLogFile log;
    log.OpenLog(dir.path(), "big", 0, false, 1);
    const QString line(200, u'x');
    for (int i = 0; i < 8; ++i)
        log.WriteLine(line);
    EXPECT_TRUE(QFile::exists(log.FileName() + ".1"));
    EXPECT_LT(QFileInfo(log.FileName()).size(), 1024 + 202);
    EXPECT_EQ(LinesOf(log.FileName()).size() + LinesOf(log.FileName() + ".1").size(), 8);
    EXPECT_FALSE(log.ComputerName().isEmpty());
}
