// Feeds arbitrary text through the tokenizer, the splitter and both translations: any
// outcome but a clean result or an AdoError is a fault.
#include "platform/engines/AdoError.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/PostgresDialect.h"
#include "platform/tsql/SqliteDialect.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TsqlTranslator.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zlx::tsql;
    const QString batch =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static const SqliteDialect sqlite;
    static const PostgresDialect postgres;
    for (const EngineDialect* dialect : {static_cast<const EngineDialect*>(&sqlite),
                                         static_cast<const EngineDialect*>(&postgres)}) {
        TranslationContext context;
        context.dialect = dialect;
        context.globalValue = [](const QString&) { return QStringLiteral("1"); };
        const TsqlTranslator translator(context);
        try {
            for (const Tokens& statement : SplitBatch(Tokenize(batch))) {
                if (statement.front().IsWord(u"IF")) SplitIf(statement);
                translator.Translate(statement);
            }
        } catch (const zlx::ado::AdoError&) {
        }
    }
    return 0;
}
