#include "form/I_CtlFichaForm.h"

#include "platform/companion/cMsgBox.h"

namespace zlx {

// Without an application object the question goes through the library's own message box.
bool I_CtlFichaForm::YN_TransMsg(const QString& cText, std::int32_t nIcon, const QString& cTitle) {
    cMsgBox box;
    box.SetIcon(nIcon);
    return box.ShowMessage(cText, MsgButtonsYesNo, cTitle) == MsgAnswerAffirmative;
}

} // namespace zlx
