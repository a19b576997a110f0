#pragma once
// A message presenter for the command line: prints each message as plain text and answers
// with the affirmative button, so a scripted run never waits for a person.

#include "platform/companion/MsgPresenter.h"

#include <cstdio>

namespace zlx {

class PrintingMsgPresenter : public MsgPresenter {
public:
    explicit PrintingMsgPresenter(std::FILE* out) : m_out(out) {}
    std::int32_t Present(const MsgRequest& request) override;

private:
    std::FILE* m_out;
};

} // namespace zlx
