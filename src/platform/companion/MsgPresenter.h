#pragma once
// Every message box of the library goes through one presenter: a Qt dialog in programs with
// a user interface, a recording presenter in tests, the console otherwise.

#include "platform/companion/PresenterSlot.h"

#include <QString>
#include <QStringList>
#include <cstdint>

namespace zlx {

// Icons and button sets of the library's message boxes.
enum MsgIcon : std::int32_t {
    MsgIconError = 32513,
    MsgIconQuestion = 32514,
    MsgIconWarning = 32515,
    MsgIconInformation = 32516
};
enum MsgButtons : std::int32_t {
    MsgButtonsOk = 0,
    MsgButtonsOkError = 1, // the connection's error messages: an OK button
    MsgButtonsRetryCancel = 3,
    MsgButtonsYesNo = 4
};
// Answers: 1 is always the affirmative one (OK, Yes, Retry, confirmed).
enum MsgAnswer : std::int32_t { MsgAnswerAffirmative = 1, MsgAnswerNegative = 2 };

// Button captions: yes, no, cancel, retry, continue; OK uses "continue".
struct MsgCaptions {
    QString yes = QStringLiteral("&Sí");
    QString no = QStringLiteral("&No");
    QString cancel = QStringLiteral("&Cancelar");
    QString retry = QStringLiteral("&Intentar de nuevo");
    QString ok = QStringLiteral("&Aceptar");
};

struct MsgRequest {
    std::int32_t icon = MsgIconInformation;
    QString text; // with the library's markup: <BR>, <B>, <I>
    std::int32_t buttons = MsgButtonsOk;
    QString title;
    int timeoutMs = 0; // > 0: the box closes itself after this time, answering 1
    QString checkText; // not empty: a confirmation that needs its check box ticked
    QString fontName;
    int fontSize = 0;
    MsgCaptions captions;
};

class MsgPresenter {
public:
    virtual ~MsgPresenter() = default;
    virtual std::int32_t Present(const MsgRequest& request) = 0;
};

// The presenter in use: the installed one, else the registered default (the Qt dialog when
// the widgets are linked and an application object exists), else the console.
MsgPresenter& CurrentMsgPresenter();
// Installs a presenter for the whole process (nullptr removes it); answers the previous one.
MsgPresenter* InstallMsgPresenter(MsgPresenter* presenter);
// Registers the presenter used when none is installed (the widgets library does this).
void RegisterDefaultMsgPresenter(MsgPresenter* presenter);
// Writes messages to standard error; questions get the negative answer.
MsgPresenter& ConsoleMsgPresenter();

// Installs a presenter for the lifetime of this object.
using ScopedMsgPresenter = ScopedPresenter<MsgPresenter, &InstallMsgPresenter>;

// Turns the library's markup into plain text: "<BR>" becomes a line break, tags go away.
QString MsgMarkupToPlainText(const QString& text);
// Turns the library's markup into Qt rich text, escaping everything else.
QString MsgMarkupToRichText(const QString& text);

} // namespace zlx
