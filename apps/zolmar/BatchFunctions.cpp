#include "BatchFunctions.h"

#include <stdexcept>

namespace zlx {

void BatchFunctions::Add(const QString& name, int minArgs, int maxArgs, BatchHandler handler) {
    m_functions.insert(name, Function{minArgs, maxArgs, std::move(handler)});
}

const BatchFunctions::Function* BatchFunctions::Find(const QString& name) const {
    const auto found = m_functions.constFind(name);
    return found == m_functions.constEnd() ? nullptr : &found.value();
}

Variant BatchFunctions::Call(const QString& name, const BatchArguments& args) const {
    const Function* function = Find(name);
    if (!function) throw std::invalid_argument("unknown function \"" + name.toStdString() + "\"");
    const auto count = static_cast<int>(args.Count());
    if (count < function->minArgs || count > function->maxArgs) {
        const QString expected =
            function->minArgs == function->maxArgs
                ? QString::number(function->minArgs)
                : QStringLiteral("%1 to %2").arg(function->minArgs).arg(function->maxArgs);
        throw std::invalid_argument(QStringLiteral("%1 takes %2 arguments, got %3")
                                        .arg(name, expected)
                                        .arg(count)
                                        .toStdString());
    }
    return function->handler(args);
}

} // namespace zlx
