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

std::int32_t cMsgBox::Present(MsgRequest request) const {
    request.icon = m_icon;
    request.fontName = m_fontName;
    request.fontSize = m_fontSize;
    request.captions = m_captions;
    return CurrentMsgPresenter().Present(request);
}

std::int32_t cMsgBox::ShowMessage(const QString& cText, std::int32_t nTipo, const QString& cTitle) {
    MsgRequest request;
    request.text = cText;
    request.buttons = nTipo;
    request.title = cTitle;
    return Present(std::move(request));
}

std::int32_t cMsgBox::ShowTimedMessage(const QString& cText, const QString& cTitle,
                                       int nMilliseconds) {
    MsgRequest request;
    request.text = cText;
    request.title = cTitle;
    request.timeoutMs = nMilliseconds;
    return Present(std::move(request));
}

std::int32_t cMsgBox::ShowConfirmation(const QString& cText, const QString& cCheckText,
                                       const QString& cTitle) {
    MsgRequest request;
    request.text = cText;
    request.title = cTitle;
    request.checkText = cCheckText;
    return Present(std::move(request));
}

} // namespace zlx
