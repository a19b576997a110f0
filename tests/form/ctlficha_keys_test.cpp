// The record form's keyboard, captions, hot keys, search-list mode and validation checks.

#include "FichaFormTest.h"
#include "QtPrinters.h"

#include <QKeyEvent>

using namespace zlx;
using namespace zlx::test;

namespace {

class FichaKeys : public FichaFormTest {
protected:
    // Def_KeyDown's answer, and whether the key was consumed.
    std::pair<int, bool> Key(int code, int shift = 0) {
        std::int16_t keyCode = static_cast<std::int16_t>(code);
        std::int16_t mask = static_cast<std::int16_t>(shift);
        const int status = Ctl().Def_KeyDown(keyCode, mask);
        return {status, keyCode == 0};
    }
};

using Answer = std::pair<int, bool>;

TEST_P(FichaKeys, KeysGiveTheStatusTheFormActsOn) {
    EXPECT_EQ(Key(27), Answer(zlxFormStat_Salir, true));
    EXPECT_EQ(Key(27, 2), Answer(zlxFormStat_Normal, false)); // Ctrl+Escape
    EXPECT_EQ(Key(13, 2), Answer(zlxFormStat_Normal, false)); // Ctrl+Enter in show state
    EXPECT_EQ(Key(18, 4), Answer(zlxFormStat_Normal, true));
    EXPECT_EQ(Key(18, 5), Answer(zlxFormStat_Normal, false));
    EXPECT_EQ(Key('X'), Answer(zlxFormStat_Normal, false)); // not a hot key
    EXPECT_EQ(Key('N', 2), Answer(zlxFormStat_Normal, false));
    EXPECT_TRUE(TakeEvents().isEmpty());

    EXPECT_EQ(Key('M'), Answer(zlxFormStat_Normal, true)); // clicks Modificar
    EXPECT_EQ(Ctl().FileStatus(), zlxFileStat_EditRecord);
    EXPECT_EQ(TakeEvents().value(1), "Modificar");
    EXPECT_EQ(Key(13, 2), Answer(zlxFormStat_Guardando, true));
    EXPECT_EQ(Key(27), Answer(zlxFormStat_Cancelando, true));
    EXPECT_EQ(Key(34), Answer(zlxFormStat_Normal, false)); // no moves while editing
    EXPECT_EQ(Key('N'), Answer(zlxFormStat_Normal, false));
    EXPECT_EQ(Ctl().UncompletedEvents(), 0);
}

TEST_P(FichaKeys, PageKeysClickTheMovementButtons) {
    EXPECT_EQ(Key(34), Answer(zlxFormStat_Normal, true));
    EXPECT_EQ(TakeEvents(), QStringList({"BeforeMove(2)", "AfterMove(2)"}) + kShowButtonsEvents);
    EXPECT_EQ(m_ficha->ID(), 2);
    Key(34, 2);
    EXPECT_EQ(m_ficha->ID(), 3);
    Key(33);
    EXPECT_EQ(m_ficha->ID(), 2);
    Key(33, 2);
    EXPECT_EQ(m_ficha->ID(), 1);
    EXPECT_EQ(TakeEvents().last(), "ShowForm");
}

TEST_P(FichaKeys, TheToolbarsOwnKeysReachTheForm) {
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&Ctl(), &escape);
    EXPECT_EQ(TakeEvents(), QStringList({"TeclaPulsada(3)"}));
    EXPECT_TRUE(escape.isAccepted());

    // A disabled window gets no key events from Qt; the handler itself still refuses them.
    m_form.setEnabled(false);
    std::int16_t letter = 'N', mask = 0;
    Ctl().ControlKeyDown(letter, mask);
    EXPECT_EQ(letter, 0);
    EXPECT_EQ(m_form.app.alerts, 1);
    EXPECT_TRUE(Ctl().IsShowing());
    EXPECT_TRUE(TakeEvents().isEmpty());
}

TEST_P(FichaKeys, ShiftTintsTheSearchButtonsUntilReleased) {
    auto* first = Ctl().Toolbar()->MoveButton(zlxCtlFichaMove_First);
    auto* buscar = Ctl().Toolbar()->RecordButton(zlxCtlFichaBtn_Buscar);
    EXPECT_EQ(Key(16, 1), Answer(zlxFormStat_Normal, false));
    EXPECT_TRUE(Ctl().SearchListMode());
    EXPECT_NE(first->BackColor(), -1);
    EXPECT_EQ(first->BackColor() & 0xFFFF, 0xE8FF); // red 255, green 232
    EXPECT_EQ(buscar->BackColor(), first->BackColor());
    EXPECT_EQ(Ctl().Toolbar()->RecordButton(zlxCtlFichaBtn_Nuevo)->BackColor(), -1);

    std::int16_t shift = 16, mask = 0;
    Ctl().Def_KeyUp(shift, mask);
    EXPECT_FALSE(Ctl().SearchListMode());
    EXPECT_NE(first->BackColor(), buscar->BackColor());
    EXPECT_EQ(buscar->BackColor(), -1); // the Nuevo button's colour
}

TEST_P(FichaKeys, TheLastSearchListLeadsTheMovesWhileShiftIsHeld) {
    // One column of identities, rows 0 to 2: 3, 1, 2.
    auto list = std::make_shared<VariantArray>(std::vector<VariantArray::Bound>{{0, 1}, {0, 3}});
    list->At(0, 0) = Variant(3);
    list->At(0, 1) = Variant(1);
    list->At(0, 2) = Variant(2);
    Ctl().aLastSearchData(Variant(list));
    Key(16, 1);
    Ctl().MoveButtonClick(zlxCtlFichaMove_Next); // 1 is second in the list: its next is 2
    EXPECT_EQ(m_ficha->ID(), 2);
    // The record is shown when the list reaches it, and once more after AfterMove.
    EXPECT_EQ(TakeEvents(), QStringList({"BeforeMove(2)"}) + kShowButtonsEvents +
                                QStringList({"AfterMove(2)"}) + kShowButtonsEvents);
    EXPECT_EQ(m_form.getNombre->Text(), "Berta");
    Ctl().MoveButtonClick(zlxCtlFichaMove_First);
    EXPECT_EQ(m_ficha->ID(), 3);
    Ctl().MoveButtonClick(zlxCtlFichaMove_Previous); // nothing before the first row
    EXPECT_EQ(m_ficha->ID(), 3);
}

TEST_P(FichaKeys, CaptionsChangeTheHotKeysAndAreReachedByName) {
    EXPECT_EQ(Ctl().HotKeyLetters(), "NMBUO");
    EXPECT_EQ(Ctl().BtnCaption(zlxCtlFichaBtn_Eliminar), "&Borrar");
    QMetaObject::invokeMethod(&Ctl(), "SetBtnCaption", Q_ARG(int, 2), Q_ARG(QString, "Bo&rrar"));
    EXPECT_EQ(Ctl().HotKeyLetters(), "NMRUO");
    Ctl().BtnCaption(zlxCtlFichaBtn_Nuevo, "Alta");
    EXPECT_EQ(Ctl().HotKeyLetters(), "NMRUO");
    QString caption;
    QMetaObject::invokeMethod(&Ctl(), "BtnCaption", Q_RETURN_ARG(QString, caption), Q_ARG(int, 2));
    EXPECT_EQ(caption, "Bo&rrar");
    QMetaObject::invokeMethod(&Ctl(), "SetBtnMoveToolTip", Q_ARG(int, 3),
                              Q_ARG(QString, "Al final"));
    EXPECT_EQ(Ctl().Toolbar()->MoveButton(3)->toolTip(), "Al final");
    QMetaObject::invokeMethod(&Ctl(), "SetBtnToolTip", Q_ARG(int, 0), Q_ARG(QString, "Alta"));
    EXPECT_EQ(Ctl().BtnToolTip(0), "Alta");

    EXPECT_EQ(Key('R'), Answer(zlxFormStat_Normal, true)); // clicks Eliminar
    EXPECT_EQ(TakeEvents().value(0), "Borrar");
}

TEST_P(FichaKeys, CommentButtonStaysHiddenWhenNotWanted) {
    Ctl().MostrarBotonComentario(false);
    Ctl().BtnVisible(zlxCtlFichaBtn_Comentario, true);
    EXPECT_FALSE(Ctl().BtnVisible(zlxCtlFichaBtn_Comentario));
    Ctl().ShowButtons(true);
    EXPECT_FALSE(Ctl().BtnVisible(zlxCtlFichaBtn_Comentario));
    Ctl().MostrarBotonComentario(true);
    EXPECT_TRUE(Ctl().BtnVisible(zlxCtlFichaBtn_Comentario));
}

TEST_P(FichaKeys, ValidationIsSkippedWhileCancellingOrOnADisabledBox) {
    bool cancel = false;
    EXPECT_FALSE(Ctl().CheckValidate(cancel));
    Ctl().FormStatus(zlxFormStat_FallarValidate);
    EXPECT_TRUE(Ctl().CheckValidate(cancel));
    EXPECT_TRUE(cancel);
    EXPECT_EQ(Ctl().FormStatus(), zlxFormStat_IgnorarValidate);
    Ctl().FormStatus(zlxFormStat_Guardando);
    EXPECT_FALSE(Ctl().CancelValidate());

    Ctl().FormStatus(zlxFormStat_Normal);
    m_form.show();
    QApplication::setActiveWindow(&m_form);
    m_form.getNombre->setFocus();
    QCoreApplication::processEvents();
    cancel = false;
    EXPECT_TRUE(Ctl().CheckValidate(cancel)); // shown, the record is not being edited
    Action(zlxFormAction_Modificar);
    m_form.getNombre->setFocus();
    EXPECT_FALSE(Ctl().CheckValidate(cancel));
    EXPECT_FALSE(cancel);
}

TEST_P(FichaKeys, FocusRuleComplainsAboutAControlThatCannotTakeIt) {
    m_form.getNombre->setVisible(false);
    Action(zlxFormAction_Nuevo);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text,
              "El control getNombre no puede recibir el \"focus\" en este momento");
    EXPECT_EQ(m_messages.Last().title, "Error en CtlFicha");
    EXPECT_EQ(m_messages.Last().icon, 32515);
    EXPECT_TRUE(Ctl().IsNewRecord()); // the message does not stop the action
    Ctl().SetFocusToCtl(nullptr);
    EXPECT_EQ(m_messages.Last().text, "No puede pasarse el \"focus\" al objeto (nothing)");
    EXPECT_EQ(m_messages.Last().title, "Error en CtlFicha.SetFocusToCtl");
}

ZLX_ON_SERVER_ENGINES(FichaKeys);

} // namespace
