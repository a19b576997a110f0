#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "frame/cGlobales.h"
#include "support/MessageRecorder.h"
#include "ui/cAppUI.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

// A form with two validated controls, as an application writes it.
class Form : public QWidget {
    Q_OBJECT
public:
    bool refuseName = false;
    QStringList calls;
    Q_INVOKABLE void getNombre_Validate(bool& Cancel) {
        calls << "getNombre";
        Cancel = refuseName;
    }
    Q_INVOKABLE void btnOpcion_Validate(int Index, bool& Cancel) {
        calls << QStringLiteral("btnOpcion(%1)").arg(Index);
        Cancel = false;
    }
};

// A control class named as the library's bound controls are.
class get : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;
};

class AppUI : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }
    cAppUI ui;
};

} // namespace

TEST_F(AppUI, MessagesCarryTheLibraryDefaults) {
    test::MessageRecorder recorder;
    recorder.QueueAnswers({1, 1, 2, 6});
    EXPECT_EQ(ui.OK_Message("Hecho"), 1);
    EXPECT_EQ(recorder.Last().title, "Información");
    EXPECT_EQ(recorder.Last().icon, 32516);
    EXPECT_EQ(recorder.Last().buttons, 0);
    EXPECT_TRUE(recorder.Last().fontName.isEmpty());
    EXPECT_TRUE(ui.YN_Message("¿Seguir?", 4, "Confirmación", 32514, true));
    EXPECT_EQ(recorder.Last().title, "Confirmación");
    EXPECT_EQ(recorder.Last().icon, 32514);
    EXPECT_EQ(recorder.Last().buttons, 4);
    EXPECT_EQ(recorder.Last().fontName, "Verdana");
    EXPECT_EQ(recorder.Last().fontSize, 13);
    EXPECT_FALSE(ui.YN_Message("¿Seguir?"));
    EXPECT_FALSE(ui.YN_Message("¿Seguir?")); // only 1 means yes
}

TEST_F(AppUI, ValidarNombreChecksInOrder) {
    const QString required = "Este dato es necesario; no puede quedar sin introducir";
    EXPECT_EQ(ui.ValidarNombre(Variant("   ")), required);
    EXPECT_EQ(ui.ValidarNombre(Variant("a*b")), "Este dato no puede contener el símbolo \"*\"");
    EXPECT_EQ(ui.ValidarNombre(Variant("a*b"), false), "");
    EXPECT_EQ(ui.ValidarNombre(Variant("+a")), "Este dato no puede comenzar por el símbolo \"+\"");
    EXPECT_EQ(ui.ValidarNombre(Variant("-5")), "Este dato no puede comenzar por el símbolo \"-\"");
    EXPECT_EQ(ui.ValidarNombre(Variant("-5"), true, true, true, false), "");
    EXPECT_EQ(ui.ValidarNombre(Variant("12abc")), "Este dato no puede comenzar por un número");
    EXPECT_EQ(ui.ValidarNombre(Variant("12abc"), true, false), "");
    EXPECT_EQ(ui.ValidarNombre(Variant("0abc")), "");
    EXPECT_EQ(ui.ValidarNombre(Variant(" *12")), "Este dato no puede contener el símbolo \"*\"");
    EXPECT_EQ(ui.ValidarNombre(Variant(BlankDate())),
              "Esta fecha es necesaria; no puede quedar sin introducir");
    EXPECT_EQ(ui.ValidarNombre(Variant(MakeDate(2024, 1, 1))), "");
    EXPECT_EQ(ui.ValidarNombre(Variant(0)), required);
    EXPECT_EQ(ui.ValidarNombre(Variant()), required);
    EXPECT_EQ(ui.ValidarNombre(Variant(7)), "");
}

TEST_F(AppUI, String2IDReadsIdentitiesAfterADash) {
    EXPECT_EQ(ui.String2ID("-123x"), 123);
    EXPECT_EQ(ui.String2ID("-"), 0);
    EXPECT_EQ(ui.String2ID("123"), 0);
    EXPECT_EQ(ui.String2ID("-1234567890"), 0);
    EXPECT_EQ(ui.String2ID("-123456789"), 123456789);
    EXPECT_EQ(ui.String2ID("-x1"), 0);
    EXPECT_EQ(ui.String2ID(" -1"), 0);
}

TEST_F(AppUI, ControlArraysAndSwitches) {
    QWidget parent;
    QList<QWidget*> buttons;
    QList<QObject*> values;
    for (int i = 0; i < 4; ++i) {
        auto* edit = new QLineEdit(QString::number(i % 2), &parent);
        buttons << edit;
        values << edit;
    }
    EXPECT_EQ(ui.CountZerosInCtls(values), 2);
    ui.DisableBtnFicha(buttons, true, false, 1, 2);
    EXPECT_TRUE(buttons[0]->isEnabled());
    EXPECT_FALSE(buttons[1]->isEnabled());
    EXPECT_FALSE(buttons[2]->isEnabled());
    EXPECT_TRUE(buttons[3]->isEnabled());
    ui.DisableBtnFicha(buttons, false, true);
    EXPECT_TRUE(buttons[0]->isHidden() && buttons[3]->isHidden());
    EXPECT_FALSE(buttons[1]->isEnabled()); // hidden buttons keep their state

    cAppUI other;
    ui.AutoReconectar(true);
    EXPECT_TRUE(other.AutoReconectar());
    ui.AutoReconectar(false);
    EXPECT_FALSE(other.CtlFichaReadOnly());
}

TEST_F(AppUI, FormsWithBusyControlsCloseOnlyWhenTheKeyboardSaysSo) {
    Form form;
    auto* name = new get(&form);
    EXPECT_TRUE(ui.CanUnloadForm(&form));
    name->setProperty("UncompletedEvents", 1);
    EXPECT_FALSE(ui.CanUnloadForm(&form)); // no keyboard to ask
    auto globales = std::make_shared<cGlobales>();
    globales->oKeyboard(std::make_shared<cKeyboard>());
    form.setProperty("oAppGlobal", QVariant::fromValue(globales));
    EXPECT_FALSE(ui.CanUnloadForm(&form)); // the escape chord is not held
}

TEST_F(AppUI, ValidateLastControlCallsTheFormsProceduresByName) {
    Form form;
    auto* name = new get(&form);
    name->setObjectName("getNombre");
    name->setProperty("ShownEnabled", true);
    auto* option = new QPushButton(&form);
    option->setObjectName("btnOpcion");
    option->setProperty("Index", 2);
    auto* other = new QLineEdit(&form);
    other->setObjectName("txtLibre");
    form.show();

    EXPECT_TRUE(ui.ValidateLastControl(&form, true));
    EXPECT_EQ(form.calls, (QStringList{"getNombre", "btnOpcion(2)"}));
    form.refuseName = true;
    form.calls.clear();
    EXPECT_FALSE(ui.ValidateLastControl(&form, true));
    EXPECT_EQ(form.calls, QStringList{"getNombre"});
    name->setProperty("ShownEnabled", false);
    EXPECT_TRUE(ui.ValidateLastControl(&form, true));
    EXPECT_TRUE(ui.ValidateLastControl(&form)); // nothing has had the focus
}

#include "appui_test.moc"
