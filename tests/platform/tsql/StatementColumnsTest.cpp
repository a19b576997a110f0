// Which table's column a statement's name stands for when several tables have a column of that
// name with different types: qualified names, aliases, joins, subqueries and what is answered by
// name alone.
#include "platform/tsql/StatementColumns.h"

#include "QtPrinters.h"
#include "platform/tsql/SqliteDialect.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <gtest/gtest.h>

using namespace zlx::tsql;

namespace {

// Clientes.Codigo is a text, Facturas.Codigo an INT that may not be NULL, Pedidos.Codigo a
// DATETIME; Vista is a view whose columns the session cannot read. By name alone every Codigo
// is taken for text and Precio for BIGINT.
class StatementColumnsTest : public ::testing::Test {
protected:
    StatementColumnsTest() {
        m_context.dialect = &m_dialect;
        m_context.tableColumns = [this](const QString& written) {
            m_read << written;
            const QString table = QString(written).remove(u'[').remove(u']');
            TableColumns columns;
            if (table.compare(u"Clientes", Qt::CaseInsensitive) == 0)
                columns = {ColumnOfType(u"Codigo"_qs, u"varchar(10)"_qs),
                           ColumnOfType(u"Nombre"_qs, u"VARCHAR(20)"_qs)};
            if (table.endsWith(u"Facturas", Qt::CaseInsensitive)) {
                columns = {ColumnOfType(u"Codigo"_qs, u"INT"_qs),
                           ColumnOfType(u"Cliente"_qs, u"VARCHAR(10)"_qs),
                           ColumnOfType(u"Total"_qs, u"MONEY"_qs)};
                columns[0].notNull = true;
            }
            if (table.compare(u"Pedidos", Qt::CaseInsensitive) == 0)
                columns = {ColumnOfType(u"Codigo"_qs, u"DATETIME"_qs)};
            return columns;
        };
        m_context.isTextColumn = [](const QString& name) { return name == u"Codigo"; };
        m_context.columnType = [](const QString& name) {
            return name == u"Precio" ? u"BIGINT"_qs : QString();
        };
        m_context.mayBeNull = [](const QString&) { return true; };
    }

    // The type of the `occurrence`th (from 0) token `name` of `sql`.
    QString TypeOf(const QString& sql, const QString& name, int occurrence = 0) {
        const StatementTokens tokens(Tokenize(sql));
        return StatementColumns(tokens, m_context).Type(Position(tokens, name, occurrence));
    }

    static size_t Position(const StatementTokens& tokens, const QString& name, int occurrence) {
        for (size_t i = 0; i < tokens.size(); ++i)
            if (tokens[i].text == name && occurrence-- == 0) return i;
        ADD_FAILURE() << "no " << name.toStdString();
        return 0;
    }

    SqliteDialect m_dialect;
    TranslationContext m_context;
    QStringList m_read; // the tables whose columns were asked for
};

} // namespace

TEST_F(StatementColumnsTest, BareNamesAreTheColumnsOfTheStatementsTable) {
    EXPECT_EQ(TypeOf(u"SELECT Codigo + 1 FROM Facturas"_qs, u"Codigo"_qs), u"INT"_qs);
    EXPECT_EQ(TypeOf(u"SELECT Codigo + 1 FROM Clientes"_qs, u"Codigo"_qs), u"VARCHAR(10)"_qs);
    EXPECT_EQ(TypeOf(u"UPDATE Facturas SET Codigo = Codigo + 1"_qs, u"Codigo"_qs, 1), u"INT"_qs);
    EXPECT_EQ(TypeOf(u"DELETE FROM Pedidos WHERE Codigo + 1 > 0"_qs, u"Codigo"_qs), u"DATETIME"_qs);
    EXPECT_EQ(TypeOf(u"DELETE Facturas WHERE Codigo * 2 > 0"_qs, u"Codigo"_qs), u"INT"_qs);
    EXPECT_EQ(TypeOf(u"SELECT Codigo FROM dbo.Facturas"_qs, u"Codigo"_qs), u"INT"_qs);
    EXPECT_EQ(TypeOf(u"SELECT [Codigo] FROM [Facturas] WITH (NOLOCK)"_qs, u"Codigo"_qs), u"INT"_qs);
}

TEST_F(StatementColumnsTest, QualifiedNamesAreTheColumnsOfTheirTableOrAlias) {
    const QString join = u"SELECT f.Codigo, c.Codigo, Clientes.Codigo FROM Facturas AS f "
                         "JOIN Clientes c ON c.Codigo = f.Cliente, Pedidos p"_qs;
    EXPECT_EQ(TypeOf(join, u"Codigo"_qs, 0), u"INT"_qs);
    EXPECT_EQ(TypeOf(join, u"Codigo"_qs, 1), u"VARCHAR(10)"_qs);
    // A table with an alias is named by its alias alone: Clientes.Codigo is answered by name.
    EXPECT_EQ(TypeOf(join, u"Codigo"_qs, 2), QString());
    EXPECT_EQ(TypeOf(u"SELECT p.Codigo FROM Facturas, Pedidos p"_qs, u"Codigo"_qs), u"DATETIME"_qs);
    EXPECT_EQ(TypeOf(u"SELECT Facturas.Codigo FROM Clientes, Facturas"_qs, u"Codigo"_qs),
              u"INT"_qs);
}

TEST_F(StatementColumnsTest, SubqueriesLookInTheirOwnTablesFirstThenOutward) {
    const QString nested = u"SELECT Codigo FROM Clientes WHERE Codigo IN (SELECT Codigo FROM "
                           "Facturas WHERE Total > (SELECT MAX(Codigo) FROM Pedidos)) AND "
                           "Codigo <> ''"_qs;
    EXPECT_EQ(TypeOf(nested, u"Codigo"_qs, 0), u"VARCHAR(10)"_qs);
    EXPECT_EQ(TypeOf(nested, u"Codigo"_qs, 1), u"VARCHAR(10)"_qs);
    EXPECT_EQ(TypeOf(nested, u"Codigo"_qs, 2), u"INT"_qs);
    EXPECT_EQ(TypeOf(nested, u"Codigo"_qs, 3), u"DATETIME"_qs);
    EXPECT_EQ(TypeOf(nested, u"Codigo"_qs, 4), u"VARCHAR(10)"_qs);
    // A name the subquery's tables lack is the outer query's (a correlated reference).
    EXPECT_EQ(TypeOf(u"SELECT Codigo FROM Facturas WHERE EXISTS (SELECT 1 FROM Clientes WHERE "
                     "Nombre = Total)"_qs,
                     u"Total"_qs),
              u"MONEY"_qs);
    // Each SELECT of a UNION reads its own tables.
    const QString united = u"SELECT Codigo FROM Facturas UNION SELECT Codigo FROM Pedidos"_qs;
    EXPECT_EQ(TypeOf(united, u"Codigo"_qs, 0), u"INT"_qs);
    EXPECT_EQ(TypeOf(united, u"Codigo"_qs, 1), u"DATETIME"_qs);
}

TEST_F(StatementColumnsTest, InsertSelectReadsTheSelectsTablesNotTheTarget) {
    const QString insert =
        u"INSERT INTO Clientes (Codigo, Nombre) SELECT Codigo + 1, Cliente FROM Facturas"_qs;
    EXPECT_EQ(TypeOf(insert, u"Codigo"_qs, 1), u"INT"_qs);
    EXPECT_FALSE(m_read.contains(u"Clientes"_qs));
}

TEST_F(StatementColumnsTest, NamesNoReadableTableHoldsAreAnsweredByName) {
    EXPECT_EQ(TypeOf(u"SELECT Precio FROM Facturas"_qs, u"Precio"_qs), u"BIGINT"_qs);
    // The view may hold Codigo: the outer query's Facturas is not asked.
    EXPECT_EQ(
        TypeOf(u"SELECT 1 FROM Facturas WHERE EXISTS (SELECT Codigo FROM Vista)"_qs, u"Codigo"_qs),
        QString());
    EXPECT_EQ(TypeOf(u"SELECT x.Codigo FROM (SELECT Codigo FROM Facturas) x"_qs, u"Codigo"_qs),
              QString());
    // Another database's tables are not read.
    EXPECT_EQ(TypeOf(u"SELECT Codigo FROM otra..Facturas"_qs, u"Codigo"_qs), QString());
    EXPECT_EQ(TypeOf(u"SELECT f.Codigo FROM otra.dbo.Facturas f"_qs, u"Codigo"_qs), QString());
    EXPECT_FALSE(m_read.contains(u"otra..Facturas"_qs));
    const StatementTokens tokens(Tokenize(u"SELECT Codigo + 1 FROM Vista"_qs));
    const StatementColumns columns(tokens, m_context);
    EXPECT_EQ(columns.Find(1), nullptr);
    EXPECT_TRUE(columns.IsText(1));
}

TEST_F(StatementColumnsTest, KindsAndNullsComeFromTheResolvedColumn) {
    const StatementTokens tokens(
        Tokenize(u"SELECT f.Codigo, c.Codigo, p.Codigo FROM Facturas f, Clientes c, Pedidos p"_qs));
    const StatementColumns columns(tokens, m_context);
    EXPECT_TRUE(columns.IsInteger(3));
    EXPECT_FALSE(columns.IsText(3));
    EXPECT_FALSE(columns.MayBeNull(3));
    EXPECT_TRUE(columns.IsText(7));
    EXPECT_TRUE(columns.MayBeNull(7));
    EXPECT_TRUE(columns.IsDate(11));
    EXPECT_FALSE(columns.IsInteger(11));
    // The tables are read once each, at the first question.
    EXPECT_EQ(m_read.size(), 3);
}

TEST_F(StatementColumnsTest, OuterJoinsLetNotNullColumnsReadAsNull) {
    const QString joined = u"SELECT f.Codigo FROM Clientes c LEFT JOIN Facturas f ON f.Cliente "
                           "= c.Codigo ORDER BY f.Codigo"_qs;
    const StatementTokens tokens(Tokenize(joined));
    EXPECT_TRUE(StatementColumns(tokens, m_context).MayBeNull(Position(tokens, u"Codigo"_qs, 2)));
    // LEFT the function is no join.
    const StatementTokens called(Tokenize(u"SELECT LEFT(Cliente, 1), Codigo FROM Facturas"_qs));
    EXPECT_FALSE(StatementColumns(called, m_context).MayBeNull(Position(called, u"Codigo"_qs, 0)));
}
