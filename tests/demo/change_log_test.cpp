// The demo's reading of the change log: the Valores items the record toolbar writes, as the
// readable lines the client form lists.

#include "ChangeLog.h"

#include <gtest/gtest.h>

using namespace zlx::demo;

namespace {

const QString S = QString(QChar(2));
const QString V = QString(QChar(3));

} // namespace

TEST(DemoChangeLog, EachItemBecomesOneLineByItsOperation) {
    const QString valores = S + "*nombre" + V + "Ana" + V + "Ana María" + S + "+nif" + V + "123Z" +
                            S + "-notas" + V + "Vieja";
    EXPECT_EQ(ChangeLog::Describe(valores),
              QStringList({"nombre: «Ana» → «Ana María»", "nif: «123Z» (nuevo)",
                           "notas: «Vieja» (quitado)"}));
}

TEST(DemoChangeLog, EmptyValuesAndUnknownItemsAreKept) {
    EXPECT_EQ(ChangeLog::Describe(S + "*notas" + V + "" + V + "x" + S + "?raro"),
              QStringList({"notas: «» → «x»", "?raro"}));
    EXPECT_TRUE(ChangeLog::Describe(QString()).isEmpty());
}
