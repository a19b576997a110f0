// Reported errors: exact texts and titles, shown or stored.

#include "DbfTestFiles.h"
#include "dbf/cDBF.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <gtest/gtest.h>

namespace zlx {
namespace {

class cDBFErrors : public testing::Test {
protected:
    void SetUp() override {
        path = test::ScratchPath(QStringLiteral("errors.dbf"));
        dbf.ShowErrors(false);
        ASSERT_TRUE(dbf.BeginCreateDBF(path));
        QString c = "C";
        dbf.CreateColumn("NAME", c, 5);
    }
    void ExpectError(const QString& message, const QString& title) {
        QString storedTitle;
        EXPECT_EQ(dbf.GetLastErrorMsg(&storedTitle), message);
        EXPECT_EQ(storedTitle, title);
        dbf.ClearErrors();
    }

    QString path;
    cDBF dbf;
};

TEST_F(cDBFErrors, CreateColumnRefusesBadDefinitions) {
    const QString title = QStringLiteral("Error creando DBF");
    QString type = "xyz";
    dbf.CreateColumn("BAD", type, 5);
    EXPECT_EQ(type, QStringLiteral("X"));
    ExpectError(QStringLiteral("Error en 'cDBF.AddColumn()': tipo <X> no soportado.'"), title);
    type = "n";
    dbf.CreateColumn("NUM", type);
    ExpectError(QStringLiteral("Error en 'cDBF.AddColumn()': debe especificar la longitud para "
                               "los datos de tipo <C> y <N>.'"),
                title);
    dbf.CreateColumn("NUM", type, 5, 5);
    ExpectError(QStringLiteral("Error en 'cDBF.AddColumn()': argumentos incorrectos.'"), title);
    dbf.CreateColumn("NUM", type, -3);
    ExpectError(QStringLiteral("Error en 'cDBF.AddColumn()': argumentos incorrectos.'"), title);
    type = "d";
    dbf.CreateColumn("a_very_long_name", type);
    ASSERT_TRUE(dbf.EndCreateDBF());
    EXPECT_EQ(dbf.FieldCount(), 2);
    EXPECT_EQ(dbf.GetFieldInfo(2).cFieldName, QStringLiteral("A_VERY_LON"));
    EXPECT_EQ(dbf.GetFieldInfo(2).nFieldLength, 8);
    EXPECT_EQ(dbf.Field("a_very_long_name_indeed").VarType(), vbNull); // first 10 characters
}

TEST_F(cDBFErrors, RecordAndFieldErrorsKeepTheState) {
    ASSERT_TRUE(dbf.EndCreateDBF());
    EXPECT_FALSE(dbf.EndInsert());
    ExpectError(QStringLiteral("No está insertando un registro. Debe ejecutarse el método "
                               "BeginInsert()."),
                QStringLiteral("Error añadiendo registro al fichero DBF"));
    EXPECT_EQ(dbf.RecordCount(), 0u);

    dbf.Field("NAME", "x"); // no current record to write it to
    dbf.FlushRecord();
    ExpectError(QStringLiteral("No existe un registro actual válido. Por lo tanto no puede "
                               "actualizarse."),
                QStringLiteral("Error actualizando el fichero DBF"));

    dbf.BeginInsert();
    dbf.Field("NAME", "uno");
    ASSERT_TRUE(dbf.EndInsert());
    dbf.CurrentRow(2);
    ExpectError(QStringLiteral("El fichero tiene actualmente 1 registros."),
                QStringLiteral("Número de registro incorrecto"));
    EXPECT_EQ(dbf.CurrentRow(), 1);
    dbf.CurrentRow(0);
    ExpectError(QStringLiteral("El fichero tiene actualmente 1 registros."),
                QStringLiteral("Número de registro incorrecto"));

    EXPECT_EQ(dbf.Field("NAM").ToString(), QString()); // a prefix is not the field
    ExpectError(QStringLiteral("No existe el campo: 'NAM'"),
                QStringLiteral("Error accediendo al registro actual. Offset=-1"));
    dbf.Field("Other", 1.0);
    ExpectError(QStringLiteral("No existe el campo: 'Other'"),
                QStringLiteral("Error actualizando el registro actual. Offset=-1"));
    EXPECT_EQ(dbf.Field("name").ToString(), QStringLiteral("uno  "));
}

TEST_F(cDBFErrors, ShownErrorsGoToTheMessageBoxAndAreNotStored) {
    ASSERT_TRUE(dbf.EndCreateDBF());
    RecordingMsgPresenter presenter;
    ScopedMsgPresenter scope(presenter);
    dbf.ShowErrors(true);
    dbf.CurrentRow(1);
    ASSERT_EQ(presenter.Messages().size(), 1u);
    EXPECT_EQ(presenter.Last().text, QStringLiteral("El fichero tiene actualmente 0 registros."));
    EXPECT_EQ(presenter.Last().title, QStringLiteral("Número de registro incorrecto"));
    EXPECT_EQ(dbf.GetLastErrorMsg(), QString());
}

} // namespace
} // namespace zlx
