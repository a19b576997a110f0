// SELECT @v = ... FROM ... whose values carry variables from row to row.
#include "platform/tsql/CarriedAssignment.h"
#include "platform/tsql/SelectInto.h"
#include "platform/tsql/TsqlBatchInterpreter.h"
#include "platform/tsql/TsqlSession.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QScopeGuard>

namespace zlx::tsql {
namespace {

class AllRowsSink : public ado::ResultSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>& described) override {
        columns = described;
    }
    bool Row(std::vector<Variant>& values) override {
        rows.push_back(values);
        return true;
    }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}

    std::vector<ado::ColumnInfo> columns;
    std::vector<std::vector<Variant>> rows;
};

// The type of the variable holding a row part: the column's, or what a variable can hold of it.
VariableType PartType(const ado::ColumnInfo& column) {
    QString type = ColumnTypeText(column);
    if (type == u"TEXT") type = QStringLiteral("VARCHAR(MAX)");
    if (type == u"NTEXT" || type == u"UNIQUEIDENTIFIER") type = QStringLiteral("NVARCHAR(MAX)");
    if (type == u"IMAGE") type = QStringLiteral("VARBINARY(MAX)");
    size_t end = 0;
    return VariableType::Read(Tokenize(type), 0, end);
}

} // namespace

// The rows come in one query; each row then gives its parts to the part variables and
// assigns the variables in the order written, a value naming the variables computed by the
// engine from their current values.
void TsqlBatchInterpreter::AssignRowByRow(const CarriedAssignment& carried) {
    m_current = Bound(carried.rowsQuery);
    AllRowsSink rows;
    m_session.ExecuteMapped(EngineSql(m_current), rows, SecondsLeft());
    const auto forget = qScopeGuard([&] {
        for (const QString& part : carried.parts)
            m_variables.Forget(part);
    });
    for (size_t k = 0; k < carried.parts.size(); ++k)
        m_variables.Declare(carried.parts[k], PartType(rows.columns.at(k)));
    for (const std::vector<Variant>& row : rows.rows) {
        for (size_t k = 0; k < carried.parts.size(); ++k)
            m_variables.Assign(carried.parts[k], row[k]);
        for (const CarriedAssignment::Step& step : carried.steps) {
            if (step.wholePart) {
                m_variables.Assign(step.variable, row[*step.wholePart]);
                continue;
            }
            const VariableAssignment single{{Token{TokenKind::Word, QStringLiteral("SELECT"), {}}},
                                            {{step.variable, step.value}},
                                            {}};
            m_variables.Assign(step.variable, RowOf(Bound(single.Query(m_variables))).at(0));
        }
    }
    m_session.m_rowCount = static_cast<std::int64_t>(rows.rows.size());
}

} // namespace zlx::tsql
