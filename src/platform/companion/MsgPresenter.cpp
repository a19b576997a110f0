#include "platform/companion/MsgPresenter.h"

#include <QRegularExpression>
#include <cstdio>

namespace zlx {

namespace {

// Without a user interface: the message goes to standard error; questions are answered
// negatively so that nothing is retried or destroyed without a person saying so.
class ConsolePresenter : public MsgPresenter {
public:
    std::int32_t Present(const MsgRequest& request) override {
        const QString line =
            QStringLiteral("[%1] %2\n").arg(request.title, MsgMarkupToPlainText(request.text));
        std::fputs(line.toLocal8Bit().constData(), stderr);
        const bool question = request.buttons == MsgButtonsRetryCancel ||
                              request.buttons == MsgButtonsYesNo || !request.checkText.isEmpty();
        return question ? MsgAnswerNegative : MsgAnswerAffirmative;
    }
};

ConsolePresenter g_console;
// Constant-initialised: other libraries register their defaults while the program loads.
constinit PresenterSlot<MsgPresenter> g_slot(g_console);

} // namespace

MsgPresenter& CurrentMsgPresenter() {
    return g_slot.Current();
}

MsgPresenter* InstallMsgPresenter(MsgPresenter* presenter) {
    return g_slot.Install(presenter);
}

void RegisterDefaultMsgPresenter(MsgPresenter* presenter) {
    g_slot.RegisterDefault(presenter);
}

MsgPresenter& ConsoleMsgPresenter() {
    return g_console;
}

QString MsgMarkupToPlainText(const QString& text) {
    static const QRegularExpression breaks(QStringLiteral("<BR>"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tags(QStringLiteral("</?[BI]>"),
                                         QRegularExpression::CaseInsensitiveOption);
    QString plain = text;
    plain.replace(breaks, QStringLiteral("\n"));
    return plain.remove(tags);
}

QString MsgMarkupToRichText(const QString& text) {
    static const QRegularExpression markup(QStringLiteral("(<BR>|</?[BI]>)"),
                                           QRegularExpression::CaseInsensitiveOption);
    QString rich;
    qsizetype last = 0;
    for (auto it = markup.globalMatch(text); it.hasNext();) {
        const auto match = it.next();
        rich += text.mid(last, match.capturedStart() - last).toHtmlEscaped();
        const QString tag = match.captured().toLower();
        rich += tag == QStringLiteral("<br>") ? QStringLiteral("<br/>") : tag;
        last = match.capturedEnd();
    }
    rich += text.mid(last).toHtmlEscaped();
    // Plain line breaks occur in the library's texts too.
    return rich.replace(QStringLiteral("\r\n"), QStringLiteral("<br/>"))
        .replace(u'\r', QStringLiteral("<br/>"))
        .replace(u'\n', QStringLiteral("<br/>"));
}

} // namespace zlx
