// A short, repeatable fuzz run for the test suite: each seed file of a folder, then
// thousands of mutations of it, through the same entry point the libFuzzer targets use.
// A crash, a sanitizer report or an unexpected exception fails the test.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <cstdint>
#include <cstdio>
#include <random>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

QByteArray Mutate(QByteArray bytes, std::mt19937& random) {
    static const char kInteresting[] = {'\0', '\xFF', '\'', '#', '*', '0', '9', '.', ' ', '<'};
    const auto pick = [&](std::size_t n) {
        return n == 0
                   ? 0
                   : static_cast<int>(std::uniform_int_distribution<std::size_t>(0, n - 1)(random));
    };
    const int changes = 1 + pick(4);
    for (int i = 0; i < changes; ++i) {
        const int at = pick(static_cast<std::size_t>(bytes.size()) + 1);
        switch (pick(6)) {
        case 0:
            if (at < bytes.size()) bytes[at] = static_cast<char>(bytes[at] ^ (1 << pick(8)));
            break;
        case 1:
            if (at < bytes.size()) bytes[at] = kInteresting[pick(sizeof kInteresting)];
            break;
        case 2:
            bytes.remove(at, 1 + pick(16));
            break;
        case 3:
            bytes.insert(at,
                         bytes.mid(pick(static_cast<std::size_t>(bytes.size()) + 1), 1 + pick(16)));
            break;
        case 4:
            bytes.truncate(at);
            break;
        default:
            bytes.insert(at, kInteresting[pick(sizeof kInteresting)]);
        }
    }
    return bytes;
}

void Run(const QByteArray& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s SEED_FOLDER [RUNS_PER_SEED]\n", argv[0]);
        return 2;
    }
    const int runs = argc > 2 ? std::atoi(argv[2]) : 2000;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QStringList seeds = folder.entryList(QDir::Files, QDir::Name);
    if (seeds.isEmpty()) {
        std::fprintf(stderr, "no seed files in %s\n", argv[1]);
        return 2;
    }
    std::mt19937 random(20261123);
    for (const QString& name : seeds) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) return 2;
        const QByteArray seed = file.readAll();
        Run(seed);
        for (int i = 0; i < runs; ++i)
            Run(Mutate(seed, random));
    }
    std::printf("%lld inputs run\n", static_cast<long long>(seeds.size()) * (runs + 1));
    return 0;
}
