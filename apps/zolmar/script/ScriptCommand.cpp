#include "script/ScriptCommand.h"

#include "script/ScriptSession.h"

#include <cstdlib>
#include <unistd.h>

namespace zlx {

int RunScript(std::FILE* in, std::FILE* out) {
    ScriptSession session;
    char* buffer = nullptr;
    std::size_t capacity = 0;
    ssize_t length;
    while ((length = getline(&buffer, &capacity, in)) >= 0) {
        const QByteArray line = QByteArray(buffer, length).trimmed();
        const QByteArray answer = session.Answer(line) + '\n';
        std::fwrite(answer.constData(), 1, static_cast<std::size_t>(answer.size()), out);
        std::fflush(out);
    }
    std::free(buffer);
    return std::ferror(out) ? 1 : 0;
}

int RunScriptCommand() {
    std::fflush(stdout);
    const int answers = dup(STDOUT_FILENO);
    if (answers < 0 || dup2(STDERR_FILENO, STDOUT_FILENO) < 0) return 1;
    std::FILE* out = fdopen(answers, "w");
    if (!out) return 1;
    const int status = RunScript(stdin, out);
    std::fclose(out);
    return status;
}

} // namespace zlx
