#include "QtPrinters.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/companion/cMsgBox.h"

#include <gtest/gtest.h>

using namespace zlx;

TEST(cMsgBox, EveryMessageReachesThePresenterWithItsSettings) {
    RecordingMsgPresenter recorder;
    ScopedMsgPresenter scope(recorder);
    recorder.QueueAnswers({2, 1});
    cMsgBox box;
    box.SetIcon(32514);
    box.SetFont("Verdana", 13);
    EXPECT_EQ(box.ShowMessage("¿Seguro?<BR><B>Sí</B>", 4, "Confirmación"), 2);
    EXPECT_EQ(box.ShowTimedMessage("Bloqueado", "Aviso"), 1);
    EXPECT_EQ(box.ShowConfirmation("Borrar todo", "Lo he entendido", "Peligro"), 1); // default
    ASSERT_EQ(recorder.Messages().size(), 3u);
    const MsgRequest& first = recorder.Messages()[0];
    EXPECT_EQ(first.icon, 32514);
    EXPECT_EQ(first.text, "¿Seguro?<BR><B>Sí</B>");
    EXPECT_EQ(first.buttons, 4);
    EXPECT_EQ(first.title, "Confirmación");
    EXPECT_EQ(first.fontName, "Verdana");
    EXPECT_EQ(recorder.Messages()[1].timeoutMs, 5000);
    EXPECT_EQ(recorder.Last().checkText, "Lo he entendido");
    EXPECT_EQ(recorder.Last().captions.yes, "&Sí");
    box.SetButtonCaptions("&Yes", "&No", "&Cancel", "&Retry", "&Continue");
    box.ShowMessage("x");
    EXPECT_EQ(recorder.Last().captions.retry, "&Retry");
    EXPECT_EQ(recorder.Last().captions.ok, "&Continue");
}

TEST(cMsgBox, WithoutAPresenterQuestionsAreAnsweredNo) {
    ASSERT_EQ(InstallMsgPresenter(nullptr), nullptr);
    cMsgBox box;
    EXPECT_EQ(box.ShowMessage("Error", 0, "t"), 1);
    EXPECT_EQ(box.ShowMessage("¿Reintentar?", 3, "t"), 2);
    EXPECT_EQ(box.ShowMessage("¿Seguro?", 4, "t"), 2);
}

TEST(MsgMarkup, ConvertsTheLibraryTagsAndEscapesTheRest) {
    EXPECT_EQ(MsgMarkupToRichText("a < b<BR><B>x</B> & <I>y</I>\r\nz"),
              "a &lt; b<br/><b>x</b> &amp; <i>y</i><br/>z");
    EXPECT_EQ(MsgMarkupToPlainText("Uno<BR><B>dos</B> <i>tres</i>"), "Uno\ndos tres");
}
