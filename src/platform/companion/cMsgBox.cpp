#include "platform/companion/cMsgBox.h"

namespace zlx {

void cMsgBox::SetFont(const QString& cName, int nSize) {
    m_fontName = cName;
    m_fontSize = nSize;
}

void cMsgBox::SetButtonCaptions(const QString& cYes, const QString& cNo, const QString& cCancel,
                                const QString& cRetry, const QString& cContinue) {
    m_captions = {cYes, cNo, cCancel, cRetry, cContinue};
}

MsgRequest cMsgBox::Request(const QString& text, const QString& title) {
    MsgRequest request;
    request.text = text;
    request.title = title;
    return request;
}

std::int32_t cMsgBox::Present(MsgRequest request) const {
    request.icon = m_icon;
    request.fontName = m_fontName;
    request.fontSize = m_fontSize;
    request.captions = m_captions;
    return CurrentMsgPresenter().Present(request);
}

std::int32_t cMsgBox::ShowMessage(const QString& cText, std::int32_t nTipo, const QString& cTitle) {
    MsgRequest request = Request(cText, cTitle);
    request.buttons = nTipo;
    return Present(std::move(request));
}

std::int32_t cMsgBox::ShowTimedMessage(const QString& cText, const QString& cTitle,
                                       int nMilliseconds) {
    MsgRequest request = Request(cText, cTitle);
    request.timeoutMs = nMilliseconds;
    return Present(std::move(request));
}

std::int32_t cMsgBox::ShowConfirmation(const QString& cText, const QString& cCheckText,
                                       const QString& cTitle) {
    MsgRequest request = Request(cText, cTitle);
    request.checkText = cCheckText;
    return Present(std::move(request));
}

} // namespace zlx
