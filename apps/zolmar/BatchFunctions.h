#pragma once
// The functions `zolmar batch` answers, by name. Each takes its arguments as Variants in
// the order the library method declares them; trailing optional ones may be left out.

#include "platform/variant/Variant.h"

#include <QHash>
#include <functional>
#include <vector>

namespace zlx {

// Positional arguments of one call, converted on demand with the library's rules (CLng,
// CStr, CBool), the method's default standing in for an argument not given.
class BatchArguments {
public:
    explicit BatchArguments(std::vector<Variant> values) : m_values(std::move(values)) {}

    std::size_t Count() const { return m_values.size(); }
    const Variant& At(std::size_t i) const { return m_values.at(i); }
    bool Given(std::size_t i) const { return i < m_values.size(); }

    double Double(std::size_t i) const { return At(i).ToDouble(); }
    std::int32_t Long(std::size_t i, std::int32_t fallback = 0) const {
        return Given(i) ? At(i).ToLong() : fallback;
    }
    QString String(std::size_t i, const QString& fallback = QString()) const {
        return Given(i) ? At(i).ToString() : fallback;
    }
    bool Bool(std::size_t i, bool fallback = false) const {
        return Given(i) ? At(i).ToBool() : fallback;
    }

private:
    std::vector<Variant> m_values;
};

using BatchHandler = std::function<Variant(const BatchArguments&)>;

class BatchFunctions {
public:
    struct Function {
        int minArgs = 0;
        int maxArgs = 0;
        BatchHandler handler;
    };

    void Add(const QString& name, int minArgs, int maxArgs, BatchHandler handler);
    const Function* Find(const QString& name) const;

    // Calls the named function; throws std::exception (VariantError among them) on failure,
    // with a message fit for the error line.
    Variant Call(const QString& name, const BatchArguments& args) const;

private:
    QHash<QString, Function> m_functions;
};

// Every library function the command line offers.
const BatchFunctions& LibraryBatchFunctions();

} // namespace zlx
