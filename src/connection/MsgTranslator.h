#pragma once
// What the connection asks of a translation service: its messages and titles translated,
// and the captions of its message box's buttons.

#include <QString>

namespace zlx {

class cMsgBox;

class MsgTranslator {
public:
    virtual ~MsgTranslator() = default;
    virtual QString Msg(const QString& cText, const QString& cExtra) = 0;
    virtual void SetMsgBoxStrings(cMsgBox& oMBox) = 0;
};

} // namespace zlx
