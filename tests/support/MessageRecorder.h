#pragma once
// Records every message box the library shows while it lives, and answers them from a script
// (RecordingMsgPresenter), in place of the dialogs.

#include "platform/companion/RecordingMsgPresenter.h"

namespace zlx::test {

class MessageRecorder : public RecordingMsgPresenter {
private:
    ScopedMsgPresenter m_scope{*this};
};

} // namespace zlx::test
