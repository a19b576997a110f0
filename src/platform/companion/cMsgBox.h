#pragma once
// The library's message box: icon, font and captions set beforehand, then a message shown
// through the current presenter.

#include "platform/companion/MsgPresenter.h"
#include "platform/variant/Variant.h"

namespace zlx {

class cMsgBox : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cMsgBox"); }

    void SetIcon(std::int32_t nIcon) { m_icon = nIcon; }
    std::int32_t Icon() const { return m_icon; }
    void SetFont(const QString& cName, int nSize);
    // Captions for yes, no, cancel, retry and continue (the OK button), in that order.
    void SetButtonCaptions(const QString& cYes, const QString& cNo, const QString& cCancel,
                           const QString& cRetry, const QString& cContinue);
    const MsgCaptions& Captions() const { return m_captions; }

    // Shows the text with button set nTipo; answers 1 for the affirmative button.
    std::int32_t ShowMessage(const QString& cText, std::int32_t nTipo = 0,
                             const QString& cTitle = QString());
    // Shows the text for at most nMilliseconds (OK closes it sooner).
    std::int32_t ShowTimedMessage(const QString& cText, const QString& cTitle = QString(),
                                  int nMilliseconds = 5000);
    // Asks for confirmation that needs the check box ticked; 1 when confirmed.
    std::int32_t ShowConfirmation(const QString& cText, const QString& cCheckText,
                                  const QString& cTitle = QString());

private:
    static MsgRequest Request(const QString& text, const QString& title);
    std::int32_t Present(MsgRequest request) const;
    std::int32_t m_icon = MsgIconInformation;
    QString m_fontName;
    int m_fontSize = 0;
    MsgCaptions m_captions;
};

using cMsgBoxPtr = std::shared_ptr<cMsgBox>;

} // namespace zlx
