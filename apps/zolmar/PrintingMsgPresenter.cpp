#include "PrintingMsgPresenter.h"

namespace zlx {

namespace {

const char* IconWord(std::int32_t icon) {
    switch (icon) {
    case MsgIconError:
        return "error";
    case MsgIconQuestion:
        return "pregunta";
    case MsgIconWarning:
        return "aviso";
    default:
        return "información";
    }
}

} // namespace

std::int32_t PrintingMsgPresenter::Present(const MsgRequest& request) {
    std::fprintf(m_out, "[%s] %s\n%s\n", IconWord(request.icon), request.title.toUtf8().constData(),
                 MsgMarkupToPlainText(request.text).toUtf8().constData());
    return MsgAnswerAffirmative;
}

} // namespace zlx
