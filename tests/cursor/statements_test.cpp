// Every statement of the record cursor, compared with the texts of statements.golden.

#include "QtPrinters.h"
#include "connection/StatementText.h"
#include "cursor/FichaDBText.h"
#include "cursor/OrderIndex.h"

#include <QFile>
#include <QTextStream>
#include <functional>
#include <gtest/gtest.h>
#include <map>

using namespace zlx;
using namespace zlx::FichaDBText;

namespace {

QString ReseedText(const QString& table, std::int32_t seed) {
    const Reseed reseed = IdentityReseed(table, seed);
    return reseed.database.isEmpty() && !reseed.statement.isEmpty()
               ? reseed.statement
               : reseed.database + u'|' + reseed.statement;
}

const std::map<QString, std::function<QString()>>& Cases() {
    static const std::map<QString, std::function<QString()>> cases = {
        {"open", [] { return FirstInOrder("clientes", "Activo=1", "NOMBRE"); }},
        {"open_unfiltered_desc", [] { return FirstInOrder("clientes", "", "ZOLMARID", true); }},
        {"boundary_last", [] { return BoundaryValue("clientes", "Activo=1", "NOMBRE", true); }},
        {"empty_shape", [] { return AnyWithOrderValue("clientes", "Activo=1", "NOMBRE"); }},
        {"first_of_value",
         [] {
             return FirstOfValueWithOrderValue("clientes", "Activo=1", "NOMBRE", "'Ana'", false);
         }},
        {"last_of_value",
         [] { return FirstOfValueWithOrderValue("clientes", "", "NOMBRE", "'Ana'", true); }},
        {"next_by_identity", [] { return NextByIdentity("clientes", "Activo=1", "5", false); }},
        {"previous_by_identity", [] { return NextByIdentity("clientes", "", "5", true); }},
        {"expression_value", [] { return OrderValueOf("clientes", "APELLIDOS+NOMBRE", 5); }},
        {"same_value_next",
         [] {
             return SameValueNext("clientes", "Activo=1", "APELLIDOS+NOMBRE", "'GarcíaAna'", 5,
                                  false);
         }},
        {"same_value_previous",
         [] { return SameValueNext("clientes", "", "NOMBRE", "'Eva'", 7, true); }},
        {"next_value",
         [] {
             return NextValue("clientes", "Activo=1", "APELLIDOS+NOMBRE", "'GarcíaAna'", false);
         }},
        {"previous_value", [] { return NextValue("clientes", "", "NOMBRE", "'Eva'", true); }},
        {"value_first",
         [] { return FirstOfValue("clientes", "Activo=1", "NOMBRE", "'Eva'", false); }},
        {"value_last", [] { return FirstOfValue("clientes", "", "NOMBRE", "'Eva'", true); }},
        {"seek", [] { return Seek("clientes", 5); }},
        {"find", [] { return Find("clientes", "Nombre LIKE 'A%'", "Activo=1", "NOMBRE"); }},
        {"find_plain", [] { return Find("clientes", "grupo=3", "", ""); }},
        {"refresh", [] { return Refresh("clientes", 5); }},
        {"in_filter", [] { return InFilter("clientes", 5, "Activo=1"); }},
        {"insert",
         [] {
             return Insert("clientes", "Nombre,Flags,Alta,",
                           StatementText::ValuePiece(Variant("Eva"), zlxDataProvider_MSDE) +
                               StatementText::ValuePiece(Variant(4), zlxDataProvider_MSDE) +
                               StatementText::ValuePiece(Variant(MakeDate(2024, 1, 31, 10, 15, 0)),
                                                         zlxDataProvider_MSDE));
         }},
        {"insert_default", [] { return Insert("clientes", "", ""); }},
        {"insert_wrapped", [] { return WithIdentity(Insert("clientes", "Nombre,", "'Eva',")); }},
        {"delete_zero", [] { return DeleteZeroIdentity("clientes"); }},
        {"delete", [] { return Delete("clientes", 5); }},
        {"status", [] { return SetStatus("clientes", 2, 5); }},
        {"repes_edit", [] { return Repeated("clientes", "Nombre='Ana'", 5); }},
        {"repes_new", [] { return Repeated("clientes", "Nombre='Ana'", std::nullopt); }},
        {"max_id", [] { return MaxID("clientes"); }},
        {"reseed", [] { return ReseedText("clientes", 7); }},
        {"reseed_plain", [] { return ReseedText("clientes", -1); }},
        {"reseed_two_dots", [] { return ReseedText("datos..clientes", 0); }},
        {"reseed_dbo", [] { return ReseedText("datos.dbo.clientes", -1); }},
        {"reseed_four_parts", [] { return ReseedText("srv.datos.dbo.clientes", 3); }},
        {"order_index", [] { return OrderIndex::CreateStatement("clientes", "NOMBRE"); }},
        {"order_index_prefixed",
         [] { return OrderIndex::CreateStatement("datos..clientes", "FECHA_ALTA"); }},
        {"order_index_expression",
         [] { return OrderIndex::CreateStatement("clientes", "APELLIDOS+NOMBRE"); }},
    };
    return cases;
}

TEST(FichaDBStatements, MatchTheGoldenTexts) {
    QFile file(QStringLiteral(CURSOR_GOLDEN));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QTextStream in(&file);
    std::size_t checked = 0;
    while (!in.atEnd()) {
        const QString line = in.readLine();
        if (line.startsWith(u'#') || line.isEmpty()) continue;
        const qsizetype tab = line.indexOf(u'\t');
        ASSERT_GT(tab, 0) << line.toStdString();
        const QString name = line.left(tab);
        const auto found = Cases().find(name);
        ASSERT_NE(found, Cases().end()) << name.toStdString();
        EXPECT_EQ(found->second(), line.mid(tab + 1)) << name.toStdString();
        ++checked;
    }
    EXPECT_EQ(checked, Cases().size());
}

} // namespace
