#include "platform/companion/cMsgBox.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cMsgBox>& c) {
    c.Property(
        "Icon", [](cMsgBox& o) { return o.Icon(); },
        [](cMsgBox& o, const Variant& v) { o.SetIcon(v.ToLong()); });
    c.Method("SetIcon", 1, 1, [](cMsgBox& o, ScriptArgs& a) { o.SetIcon(a.Long(0)); });
    c.Method("SetFont", 2, 2, [](cMsgBox& o, ScriptArgs& a) { o.SetFont(a.String(0), a.Long(1)); });
    c.Method("SetButtonCaptions", 5, 5, [](cMsgBox& o, ScriptArgs& a) {
        o.SetButtonCaptions(a.String(0), a.String(1), a.String(2), a.String(3), a.String(4));
    });
    c.Method("ShowMessage", 1, 3, [](cMsgBox& o, ScriptArgs& a) {
        return o.ShowMessage(a.String(0), a.Long(1), a.String(2));
    });
    c.Method("ShowTimedMessage", 1, 3, [](cMsgBox& o, ScriptArgs& a) {
        return o.ShowTimedMessage(a.String(0), a.String(1), a.Long(2, 5000));
    });
    c.Method("ShowConfirmation", 2, 3, [](cMsgBox& o, ScriptArgs& a) {
        return o.ShowConfirmation(a.String(0), a.String(1), a.String(2));
    });
}

const ScriptRegistration<cMsgBox> registration(QStringLiteral("cMsgBox"), Members);

} // namespace
} // namespace zlx
