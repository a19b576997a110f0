#include "ScenarioFile.h"

#include <QDir>
#include <QFile>
#include <stdexcept>

namespace zlx::test {

namespace {

QStringList Lines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    QString text = QString::fromUtf8(file.readAll());
    if (text.endsWith(u'\n')) text.chop(1);
    return text.split(u'\n');
}

// "-- gap sqlite: reason" names sqlite.
QString GapEngine(const QString& line) {
    static const QString prefix = QStringLiteral("-- gap ");
    if (!line.startsWith(prefix)) return QString();
    return line.mid(prefix.size()).section(u':', 0, 0).trimmed();
}

Scenario ReadScenario(const QDir& folder, const QString& name) {
    Scenario scenario{name, {}, {}};
    enum class Section { Description, Statement, Expected } section = Section::Description;
    QStringList statement;
    for (const QString& line : Lines(folder.filePath(name))) {
        if (line == u"-- run") {
            scenario.batches.emplace_back();
            section = Section::Statement;
        } else if (line == u"-- expect" && section == Section::Statement) {
            scenario.batches.back().checked = true;
            section = Section::Expected;
        } else if (section == Section::Description) {
            if (const QString engine = GapEngine(line); !engine.isEmpty())
                scenario.gapEngines << engine;
        } else if (section == Section::Statement) {
            QString& sql = scenario.batches.back().sql;
            sql += (sql.isEmpty() ? QString() : QStringLiteral("\n")) + line;
        } else if (!line.isEmpty()) {
            scenario.batches.back().expected << line;
        }
    }
    if (scenario.batches.empty())
        throw std::runtime_error("scenarios/" + name.toStdString() + " has no batch");
    return scenario;
}

std::vector<Scenario> ReadScenarios() {
    const QDir folder(QStringLiteral(ZLX_SCENARIO_DIR));
    std::vector<Scenario> scenarios;
    for (const QString& name :
         folder.entryList({QStringLiteral("[0-9][0-9][0-9]-*.sql")}, QDir::Files, QDir::Name))
        scenarios.push_back(ReadScenario(folder, name));
    return scenarios;
}

} // namespace

const std::vector<Scenario>& Scenarios() {
    static const std::vector<Scenario> scenarios = ReadScenarios();
    return scenarios;
}

} // namespace zlx::test
