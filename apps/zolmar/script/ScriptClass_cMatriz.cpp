#include "platform/companion/cMatriz.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cMatriz>& c) {
    c.Property("Rows", [](cMatriz& o) { return o.Rows(); });
    c.Property("Cols", [](cMatriz& o) { return o.Cols(); });
    c.Property("FirstRow", [](cMatriz& o) { return o.FirstRow(); });
    c.Property("LastRow", [](cMatriz& o) { return o.LastRow(); });
    c.Property("FirstCol", [](cMatriz& o) { return o.FirstCol(); });
    c.Property("LastCol", [](cMatriz& o) { return o.LastCol(); });
    c.Method("Item", 2, 2, [](cMatriz& o, ScriptArgs& a) { return o.Item(a.Long(0), a.Long(1)); });
    c.Method("GetVariant", 0, 0, [](cMatriz& o, ScriptArgs&) { return o.GetVariant(); });
    c.Method("Dimension", 4, 4, [](cMatriz& o, ScriptArgs& a) {
        o.Dimension(a.Long(0), a.Long(1), a.Long(2), a.Long(3));
    });
    c.Method("GetValue", 2, 2,
             [](cMatriz& o, ScriptArgs& a) { return o.GetValue(a.Long(0), a.Long(1)); });
    c.Method("SetValue", 3, 3,
             [](cMatriz& o, ScriptArgs& a) { o.SetValue(a.Long(0), a.Long(1), a.Value(2)); });
    c.Method("LoadFromArray", 1, 1, [](cMatriz& o, ScriptArgs& a) { o.LoadFromArray(a.Value(0)); });
    c.Method("AddRow", 1, 1, [](cMatriz& o, ScriptArgs& a) { o.AddRow(a.Value(0)); });
    c.Method("LookupValue", 3, 5, [](cMatriz& o, ScriptArgs& a) {
        return o.LookupValue(a.Value(0), a.Long(1), a.Long(2), a.Value(3), a.Bool(4));
    });
    c.Method("ShowData", 0, 1, [](cMatriz& o, ScriptArgs& a) { o.ShowData(a.String(0)); });
}

const ScriptRegistration<cMatriz> registration(QStringLiteral("cMatriz"), Members);

} // namespace
} // namespace zlx
