#include "platform/companion/cLogFile.h"
#include "script/ScriptRegistry.h"

namespace zlx {
namespace {

void Members(ScriptClassBuilder<cLogFile>& c) {
    c.Method("OpenLog", 2, 5, [](cLogFile& o, ScriptArgs& a) {
        return o.OpenLog(a.String(0), a.String(1), a.Long(2), a.Bool(3, true), a.Long(4, 1024));
    });
    c.Method("WriteLine", 1, 2,
             [](cLogFile& o, ScriptArgs& a) { o.WriteLine(a.String(0), a.Bool(1, true)); });
    c.Property("FileName", [](cLogFile& o) { return o.FileName(); });
    c.Property("ComputerName", [](cLogFile& o) { return o.ComputerName(); });
    c.Property("UserName", [](cLogFile& o) { return o.UserName(); });
}

const ScriptRegistration<cLogFile> registration(QStringLiteral("cLogFile"), Members);

} // namespace
} // namespace zlx
