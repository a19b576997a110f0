#pragma once
// The message boxes of a program with a user interface: a Qt dialog with the library's
// icons, markup, button sets, time-out and confirmation check box.

#include "platform/companion/MsgPresenter.h"

class QDialog;

namespace zlx {

class QtMsgPresenter : public MsgPresenter {
public:
    std::int32_t Present(const MsgRequest& request) override;

    // Builds the dialog without showing it, so that it can be inspected; the caller owns it.
    // Its result code after exec() is the presenter's answer.
    static QDialog* BuildDialog(const MsgRequest& request);
};

} // namespace zlx
