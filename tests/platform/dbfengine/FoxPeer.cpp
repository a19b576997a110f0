// A second process on a FoxPro folder, for the tests of processes sharing one:
//   fox_peer insert <folder> <table> <count> <tag>   inserts records (tag, 1..count)
//   fox_peer alter <folder> <statement>               runs one ALTER TABLE
// Prints "ready" before it starts writing and "done" when it has finished.

#include "platform/ado/Connection.h"

#include <QCoreApplication>
#include <cstdio>

using namespace zlx;

namespace {

QString FoxString(const QString& folder) {
    return QStringLiteral("Provider=MSDASQL;Driver={Microsoft Visual FoxPro Driver};"
                          "SourceType=DBF;Deleted=Yes;Exclusive=No;SourceDB=") +
           folder;
}

void Say(const char* word) {
    std::printf("%s\n", word);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 4) return 2;
    ado::Connection connection;
    ado::DiscardingSink discard;
    try {
        connection.Open(FoxString(args[2]));
        Say("ready");
        if (args[1] == u"insert" && args.size() >= 6) {
            for (int i = 1; i <= args[4].toInt(); ++i)
                connection.ExecuteInto(QStringLiteral("INSERT INTO %1 (tag, n) VALUES ('%2', %3)")
                                           .arg(args[3], args[5])
                                           .arg(i),
                                       discard);
        } else {
            connection.ExecuteInto(args[3], discard);
        }
    } catch (const ado::AdoError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    Say("done");
    return 0;
}
