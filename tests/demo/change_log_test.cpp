// The demo's change log text: the Valores items written for an edit and a deletion, and the
// readable lines the form lists for them.

#include "ChangeLog.h"

#include <gtest/gtest.h>

using namespace zlx::demo;

namespace {

const QString S = QString(QChar(2));
const QString V = QString(QChar(3));

RecordValues Values(std::initializer_list<std::pair<const char*, const char*>> fields) {
    RecordValues values;
    for (const auto& [name, value] : fields)
        values.emplace_back(QString::fromUtf8(name), QString::fromUtf8(value));
    return values;
}

} // namespace

TEST(DemoChangeLog, EditListsFilledChangedAndClearedFieldsOnly) {
    const RecordValues before =
        Values({{"codigo", "C0001"}, {"nombre", "Ana"}, {"nif", ""}, {"notas", "Vieja"}});
    const RecordValues after =
        Values({{"codigo", "C0001"}, {"nombre", "Ana María"}, {"nif", "123Z"}, {"notas", ""}});
    const QString valores = ChangeLog::Valores(before, after, false);
    EXPECT_EQ(valores, S + "*nombre" + V + "Ana" + V + "Ana María" + S + "+nif" + V + "123Z" + S +
                           "-notas" + V + "Vieja");
    EXPECT_EQ(ChangeLog::Describe(valores),
              QStringList({"nombre: «Ana» → «Ana María»", "nif: «123Z» (nuevo)",
                           "notas: «Vieja» (quitado)"}));
    EXPECT_TRUE(ChangeLog::Valores(before, before, false).isEmpty());
}

TEST(DemoChangeLog, DeletionSkipsEmptyZeroAndBlankDates) {
    const RecordValues record = Values(
        {{"codigo", "C0009"}, {"limite", "0"}, {"fnacimiento", "01/01/1753"}, {"notas", ""}});
    EXPECT_EQ(ChangeLog::Valores(record, {}, true), S + "-codigo" + V + "C0009");
    EXPECT_TRUE(ChangeLog::Valores(Values({{"limite", "0"}}), {}, true).isEmpty());
}

TEST(DemoChangeLog, LongTextsAreCutTo7900Characters) {
    const RecordValues before = Values({{"notas", ""}});
    RecordValues after = before;
    after[0].second = QString(9000, u'x');
    EXPECT_EQ(ChangeLog::Valores(before, after, false).size(), ChangeLog::nMaxValores);
}
