#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "platform/companion/cMatriz.h"
#include "platform/widgets/GridWindow.h"
#include "platform/widgets/QtMsgPresenter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QTableWidget>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

using namespace zlx;

class Widgets : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }
};

TEST_F(Widgets, DialogRendersMarkupAndTheButtonSet) {
    MsgRequest request;
    request.text = "Uno<BR><B>dos</B>";
    request.buttons = MsgButtonsYesNo;
    request.title = "Confirmación";
    std::unique_ptr<QDialog> dialog(QtMsgPresenter::BuildDialog(request));
    EXPECT_EQ(dialog->windowTitle(), "Confirmación");
    EXPECT_EQ(dialog->findChild<QLabel*>("text")->text(), "Uno<br/><b>dos</b>");
    QStringList captions;
    for (auto* button : dialog->findChildren<QAbstractButton*>())
        captions << button->text();
    EXPECT_EQ(captions, (QStringList{"&Sí", "&No"}));
    QTimer::singleShot(0, [&] { dialog->findChildren<QAbstractButton*>()[1]->click(); });
    EXPECT_EQ(dialog->exec(), MsgAnswerNegative);
}

TEST_F(Widgets, TimedMessageClosesItselfAndConfirmationNeedsTheTick) {
    MsgRequest timed;
    timed.text = "Espere";
    timed.timeoutMs = 50;
    QtMsgPresenter presenter;
    EXPECT_EQ(presenter.Present(timed), MsgAnswerAffirmative);

    MsgRequest confirm;
    confirm.text = "Borrar";
    confirm.checkText = "Entendido";
    std::unique_ptr<QDialog> dialog(QtMsgPresenter::BuildDialog(confirm));
    QAbstractButton* accept = dialog->findChildren<QAbstractButton*>().constFirst();
    auto* tick = dialog->findChild<QCheckBox*>("confirmation");
    ASSERT_NE(tick, nullptr);
    EXPECT_FALSE(accept->isEnabled());
    tick->setChecked(true);
    EXPECT_TRUE(accept->isEnabled());
}

TEST_F(Widgets, GridWindowShowsEveryCellWithItsBounds) {
    cMatriz m;
    m.Dimension(0, 1, 0, 1);
    m.SetValue(0, 0, Variant("a"));
    m.SetValue(1, 1, Variant::Null());
    m.SetValue(1, 0, Variant(2.5));
    GridWindow window(m, "Datos");
    const QTableWidget* table = window.Table();
    EXPECT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->columnCount(), 2);
    EXPECT_EQ(table->item(0, 0)->text(), "a");
    EXPECT_EQ(table->item(0, 1)->text(), "2,5");
    EXPECT_EQ(table->item(1, 1)->text(), "Null");
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), "0");
}

// Linking the widgets replaces the console stand-ins by dialogs and grid windows.
TEST_F(Widgets, LinkedWidgetsBecomeTheDefaultPresenterAndViewer) {
    EXPECT_NE(dynamic_cast<QtMsgPresenter*>(&CurrentMsgPresenter()), nullptr);
    cMatriz m;
    m.Dimension(1, 2, 1, 1);
    m.SetValue(2, 1, Variant("celda"));
    QString shownTitle, shownCell;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* window = dynamic_cast<GridWindow*>(QApplication::activeModalWidget());
        if (!window) return;
        shownTitle = window->windowTitle();
        shownCell = window->Table()->item(0, 1)->text();
        window->done(0);
    });
    poll.start(10);
    m.ShowData("Ver datos (1 filas)");
    EXPECT_EQ(shownTitle, "Ver datos (1 filas)");
    EXPECT_EQ(shownCell, "celda");
}
