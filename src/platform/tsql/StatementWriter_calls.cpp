#include "platform/tsql/BuiltinFunctions.h"
#include "platform/tsql/ColumnProperties.h"
#include "platform/tsql/DateOperands.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/RandomSequence.h"
#include "platform/tsql/StatementWriter.h"
#include "platform/tsql/TsqlDateFunctions.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlLiterals.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TsqlTranslator.h"
#include "platform/tsql/TypeNames.h"

#include <algorithm>

namespace zlx::tsql {

size_t StatementWriter::EmitFunction(size_t i, QString& out) {
    const Token& t = m_t[i];
    const size_t open = i + 1;
    const size_t close = m_t.Close(open);
    const auto commas = m_t.Commas(open, close);
    auto arg = [&](size_t k) {
        if (k > commas.size())
            ThrowStatementError(
                QStringLiteral("The %1 function requires more arguments.").arg(t.text), 174);
        const size_t from = k == 0 ? open + 1 : commas[k - 1] + 1;
        const size_t to = k < commas.size() ? commas[k] : close;
        return Range(from, to).trimmed();
    };
    const QString lead = t.leading;
    if (t.IsWord(u"RAND")) return EmitRandom(i, close, out);
    if (t.IsWord(u"STRING_AGG")) return EmitStringAggregate(i, close, out);
    if (const FunctionSpelling* spelling = m_dialect.FindFunction(t.text)) {
        const int count = close == open + 1 ? 0 : static_cast<int>(commas.size()) + 1;
        if (!spelling->exact || count == spelling->arguments) {
            QStringList arguments;
            for (int k = 0; k < spelling->arguments; ++k)
                arguments << arg(static_cast<size_t>(k));
            out += lead + FillPattern(spelling->pattern, arguments);
            return close + 1;
        }
    }
    if (t.IsWord(u"COLUMNPROPERTY")) {
        out += lead + ColumnProperty(open, close, commas);
        return close + 1;
    }
    if (t.IsWord(u"SERVERPROPERTY")) {
        if (arg(0).compare(u"'ProductVersion'", Qt::CaseInsensitive) != 0)
            ThrowUnsupported(QStringLiteral("ServerProperty(") + arg(0) + u')');
        out += lead + QuoteString(QString::fromLatin1(kProductVersion));
        return close + 1;
    }
    if (t.IsWord(u"DATABASEPROPERTY")) {
        // The engines have no offline or shut-down databases.
        const QString property = arg(1);
        if (property.compare(u"'IsShutDown'", Qt::CaseInsensitive) != 0 &&
            property.compare(u"'IsOffline'", Qt::CaseInsensitive) != 0)
            ThrowUnsupported(QStringLiteral("DATABASEPROPERTY(") + property + u')');
        out += lead + QStringLiteral("0");
        return close + 1;
    }
    if (t.IsWord(u"SCOPE_IDENTITY") && close == open + 1) {
        // Without triggers the last identity of the scope is the session's.
        out += lead + GlobalValue(QStringLiteral("@@IDENTITY"));
        return close + 1;
    }
    if (t.IsWord(u"DB_NAME") && close == open + 1) {
        out += lead + m_dialect.CurrentDatabaseName();
        return close + 1;
    }
    if (t.IsWord(u"AVG") && IsIntegerColumn(open + 1, close)) {
        // The average of integers is an integer, its fraction dropped.
        const size_t end = m_t.WindowEnd(close + 1);
        out += lead + m_dialect.TruncatingCast(
                          QStringLiteral("AVG(%1)%2")
                              .arg(Range(open + 1, close).trimmed(), Range(close + 1, end)),
                          m_dialect.CastType(QStringLiteral("BIGINT")));
        return end;
    }
    if (DateFunctionWriter::Handles(t.text)) {
        out += lead + DateWriterFor(m_context).Call(t.text, CallArguments(open, close, commas));
        return close + 1;
    }
    if (BuiltinFunctionWriter::Handles(t.text) && !IsTypeName(i)) {
        out += lead +
               BuiltinFunctionWriter(m_context).Call(t.text, CallArguments(open, close, commas));
        return close + 1;
    }
    if (t.IsWord(u"CAST")) return EmitCast(i, close, out);
    if (t.IsWord(u"TRY_CAST") || t.IsWord(u"TRY_CONVERT")) return EmitTryConversion(i, close, out);
    if (t.IsWord(u"LEN")) {
        out += lead + QStringLiteral("length(rtrim(%1))").arg(arg(0));
        return close + 1;
    }
    return i;
}

// The value is drawn when the statement is written, so that every row of the statement reads
// the same one, as in SQL Server. A seed must be a whole number SQL Server's values are known for.
size_t StatementWriter::EmitRandom(size_t name, size_t close, QString& out) {
    auto drawn = m_randoms.find(name);
    if (drawn == m_randoms.end()) {
        const QString seedText = Range(name + 2, close).simplified().remove(u' ');
        bool whole = seedText.isEmpty();
        const std::int64_t seed = whole ? 0 : seedText.toLongLong(&whole);
        if (!m_context.randomValue || !whole ||
            (!seedText.isEmpty() && !RandomSequence::KnowsSeed(seed)))
            ThrowUnsupported(QStringLiteral("RAND(%1)").arg(seedText));
        const double value = m_context.randomValue(
            seedText.isEmpty() ? std::nullopt : std::optional<std::int64_t>(seed));
        drawn = m_randoms.emplace(name, QString::number(value, 'g', 17)).first;
    }
    out += m_t[name].leading + m_dialect.Cast(drawn->second, QStringLiteral("FLOAT"), false);
    return close + 1;
}

// Texts and integers are joined as SQL Server writes them on both engines; a value of another
// type would be written as the engine writes it (a date, a decimal on SQLite), so it is refused.
size_t StatementWriter::EmitStringAggregate(size_t name, size_t close, QString& out) {
    const auto commas = m_t.Commas(name + 1, close);
    if (commas.size() != 1)
        ThrowStatementError(QStringLiteral("The STRING_AGG function requires 2 argument(s)."),
                            ado::kNativeArgumentCount);
    const size_t valueEnd = commas.front();
    const QString type =
        m_t.NamedColumn(name + 2, valueEnd) ? m_columns.Type(valueEnd - 1) : QString();
    if (IsDateOperand(name + 2, valueEnd) ||
        (!type.isEmpty() && !IsTextType(type) && IntegerTypeOf(type).isEmpty()))
        ThrowUnsupported(
            QStringLiteral("STRING_AGG de %1").arg(type.isEmpty() ? u"una fecha"_qs : type));
    QString order;
    size_t end = close + 1;
    if (m_t.WordAt(end, u"WITHIN") && m_t.WordAt(end + 1, u"GROUP") &&
        m_t.SymbolAt(end + 2, u"(")) {
        const size_t orderClose = m_t.Close(end + 2);
        order = Range(end + 3, orderClose).trimmed();
        end = orderClose + 1;
    }
    out +=
        m_t[name].leading + m_dialect.StringAggregate(Range(name + 2, valueEnd).trimmed(),
                                                      Range(valueEnd + 1, close).trimmed(), order);
    return end;
}

bool StatementWriter::IsTypeName(size_t i) const {
    if (i == 0 || !(m_t[i].IsWord(u"CHAR") || m_t[i].IsWord(u"NCHAR"))) return false;
    const Token& before = m_t[i - 1];
    if (before.IsWord(u"AS") || before.kind == TokenKind::Variable) return true;
    if (before.IsSymbol(u"(")) return i >= 2 && m_t[i - 2].IsWord(u"CONVERT");
    return (m_t.WordAt(0, u"CREATE") || m_t.WordAt(0, u"ALTER")) && IsName(before) &&
           !before.IsWord(u"DEFAULT");
}

// COLUMNPROPERTY(OBJECT_ID('t'), 'c', 'property'), the table, column and property literals:
// answered from the table's columns as the statement is written.
QString StatementWriter::ColumnProperty(size_t open, size_t close,
                                        const std::vector<size_t>& commas) const {
    if (commas.size() != 2)
        ThrowStatementError(QStringLiteral("The columnproperty function requires 3 argument(s)."),
                            ado::kNativeArgumentCount);
    const size_t id = open + 1;
    const bool tableNamed = commas[0] == id + 4 && m_t[id].IsWord(u"OBJECT_ID") &&
                            m_t.SymbolAt(id + 1, u"(") && m_t[id + 2].kind == TokenKind::String &&
                            !m_t[id + 2].text.contains(u'.');
    const auto literal = [&](size_t from, size_t to) {
        return to == from + 1 && m_t[from].kind == TokenKind::String;
    };
    if (!tableNamed || !literal(commas[0] + 1, commas[1]) || !literal(commas[1] + 1, close) ||
        !m_context.tableColumns)
        ThrowUnsupported(QStringLiteral("COLUMNPROPERTY de una expresión"));
    const TableColumns columns = m_context.tableColumns(m_t[id + 2].text);
    return ColumnProperties(columns).Value(m_t[commas[0] + 1].text, m_t[commas[1] + 1].text);
}

CallArgument StatementWriter::ArgumentOf(size_t from, size_t to) {
    const bool text = to == from + 1 && m_t[from].kind == TokenKind::String;
    const bool date = !text && IsDateOperand(from, to);
    return CallArgument{
        Range(from, to), text, text ? m_t[from].text : QString(), date,
        date ? DateOperands(m_t, m_context, m_stored, m_columns).DeclaredType(from, to)
             : std::nullopt};
}

std::vector<CallArgument> StatementWriter::CallArguments(size_t open, size_t close,
                                                         const std::vector<size_t>& commas) {
    std::vector<CallArgument> arguments;
    if (close == open + 1) return arguments;
    for (const auto& [from, to] : m_t.Items(open, close, commas))
        arguments.push_back(ArgumentOf(from, to));
    return arguments;
}

size_t StatementWriter::EmitDateArithmetic(size_t i, QString& out) {
    const size_t end = m_t.PrimaryEnd(i);
    const bool plus = m_t.SymbolAt(end, u"+");
    if (end == i || !(plus || m_t.SymbolAt(end, u"-"))) return i;
    if (!plus)
        if (const size_t after = EmitDateDifference(i, end, out); after != i) return after;
    QString days;
    const size_t daysEnd = DaysOperandEnd(end + 1, days);
    if (daysEnd == end + 1 || m_t.SymbolAt(daysEnd, u"*") || m_t.SymbolAt(daysEnd, u"/") ||
        m_t.SymbolAt(daysEnd, u"%") || !IsDateOperand(i, end))
        return i;
    RefuseDayArithmetic(i, end, days);
    m_plainOperand = i;
    const QString value = Range(i, end).trimmed();
    m_plainOperand = kNone;
    if (!plus) days = days.startsWith(u'-') ? days.mid(1) : u'-' + days;
    out += m_t[i].leading + m_dialect.DatePlusDays(value, days);
    return daysEnd;
}

// SQL Server takes the text for a DATETIME; DATE, TIME and DATETIME2 take no subtraction (8117).
size_t StatementWriter::EmitDateDifference(size_t first, size_t minus, QString& out) {
    const size_t right = minus + 1;
    const size_t end = m_t.PrimaryEnd(right);
    const bool text = end == right + 1 && m_t[right].kind == TokenKind::String;
    if (end == right || m_t.SymbolAt(end, u"*") || m_t.SymbolAt(end, u"/") ||
        m_t.SymbolAt(end, u"%") || !IsDateOperand(first, minus) ||
        !(text || IsDateOperand(right, end)))
        return first;
    const DateOperands operands(m_t, m_context, m_stored, m_columns);
    for (const auto type : {operands.DeclaredType(first, minus), operands.DeclaredType(right, end)})
        if (type && type->kind != ado::DateTypeKind::DateTime &&
            type->kind != ado::DateTypeKind::SmallDateTime)
            ThrowStatementError(QStringLiteral("Operand data type %1 is invalid for subtract "
                                               "operator.")
                                    .arg(type->Name()),
                                ado::kNativeInvalidOperand);
    m_plainOperand = first;
    const QString later = Range(first, minus).trimmed();
    m_plainOperand = right;
    const QString earlier = text ? DateWriterFor(m_context).CastLiteral(ArgumentOf(right, end),
                                                                        QStringLiteral("DATETIME"))
                                 : Range(right, end).trimmed();
    m_plainOperand = kNone;
    out += m_t[first].leading + m_dialect.DateDifference(later, earlier);
    return end;
}

// DATE, TIME and DATETIME2 take no days by + or - (DATETIME and SMALLDATETIME do).
void StatementWriter::RefuseDayArithmetic(size_t first, size_t end, const QString& days) const {
    const auto type = DateOperands(m_t, m_context, m_stored, m_columns).DeclaredType(first, end);
    if (!type || type->kind == ado::DateTypeKind::DateTime ||
        type->kind == ado::DateTypeKind::SmallDateTime)
        return;
    ThrowStatementError(QStringLiteral("Operand type clash: %1 is incompatible with %2")
                            .arg(type->Name(), days.contains(u'.') ? QStringLiteral("numeric")
                                                                   : QStringLiteral("int")),
                        ado::kNativeOperandClash);
}

size_t StatementWriter::DaysOperandEnd(size_t at, QString& days) const {
    const Token* number = m_t.At(at);
    if (number && number->kind == TokenKind::Number && !IsBinaryLiteral(*number)) {
        days = number->text;
        return at + 1;
    }
    // CAST([-]n AS SMALLINT): the literal of an integer variable of a type other than INT.
    if (!m_t.WordAt(at, u"CAST") || !m_t.SymbolAt(at + 1, u"(")) return at;
    const bool negative = m_t.SymbolAt(at + 2, u"-");
    const size_t digits = at + 2 + (negative ? 1 : 0);
    number = m_t.At(digits);
    if (!number || number->kind != TokenKind::Number || IsBinaryLiteral(*number) ||
        !m_t.WordAt(digits + 1, u"AS") || !m_t.At(digits + 2) ||
        KindOfTsqlType(m_t[digits + 2].text.toUpper()) != ColumnKind::Integer ||
        !m_t.SymbolAt(digits + 3, u")"))
        return at;
    days = (negative ? QStringLiteral("-") : QString()) + number->text;
    return digits + 4;
}

bool StatementWriter::IsDateOperand(size_t i, size_t end) const {
    return DateOperands(m_t, m_context, m_stored, m_columns).IsDate(i, end);
}

QString StatementWriter::ComparedDateLiteral(size_t i) const {
    const auto type = DateOperands(m_t, m_context, m_stored, m_columns).ComparedType(i);
    if (!type || type->kind == ado::DateTypeKind::DateTime) return {};
    return DateWriterFor(m_context).CastLiteral(CallArgument::TextLiteral(m_t[i].text),
                                                type->Spelling());
}

size_t StatementWriter::SelectedDateEnd(size_t first) const {
    const auto item = std::find_if(m_selected.begin(), m_selected.end(),
                                   [&](const auto& value) { return value.first == first; });
    if (item == m_selected.end()) return 0;
    size_t end = item->second;
    const auto endsOperand = [&](size_t i) {
        const Token& t = m_t[i];
        return t.kind == TokenKind::QuotedName || t.kind == TokenKind::Number ||
               t.kind == TokenKind::String || t.IsSymbol(u")") ||
               (t.kind == TokenKind::Word && !IsClauseWord(t));
    };
    if (end >= first + 3 && m_t.WordAt(end - 2, u"AS"))
        end -= 2;
    else if (end >= first + 2 && IsName(m_t[end - 1]) && !m_t.WordAt(end - 1, u"END") &&
             endsOperand(end - 2))
        end -= 1;
    // A column is read back in its own type. A value in parentheses is answered as the engine
    // holds it: the batch reads a date variable's value so, to the tick.
    if (m_t.NamedColumn(first, end) || (m_t.SymbolAt(first, u"(") && m_t.Close(first) + 1 == end) ||
        !IsDateOperand(first, end))
        return 0;
    return end;
}

size_t StatementWriter::EmitSelectedDate(size_t first, size_t end, QString& out) {
    m_dateValue = first;
    const QString value = Range(first, end).trimmed();
    m_dateValue = kNone;
    const auto type = DateOperands(m_t, m_context, m_stored, m_columns).DeclaredType(first, end);
    out += m_t[first].leading + m_dialect.TypedDateResult(value, type.value_or(ado::DateType{}));
    return end;
}

size_t StatementWriter::EmitCast(size_t cast, size_t close, QString& out) {
    const size_t as = std::min(m_t.DepthZeroWord(cast + 2, u"AS"), close);
    if (as == close)
        ThrowStatementError(QStringLiteral("Incorrect syntax near 'CAST'."), ado::kNativeSyntax);
    const QString type =
        TokensToSql(Tokens(m_t.begin() + as + 1, m_t.begin() + close)).simplified().toUpper();
    const QString lead = m_t[cast].leading;
    if (type == u"DATETIME" && m_t.WordAt(cast + 2, u"FLOOR") && m_t.WordAt(cast + 4, u"CAST")) {
        const size_t innerClose = m_t.Close(cast + 5);
        size_t innerAs = innerClose - 2;
        if (m_t[innerAs].IsWord(u"AS") && m_t[innerAs + 1].IsWord(u"FLOAT")) {
            const QString value = Range(cast + 6, innerAs).trimmed();
            out += lead + m_dialect.DateOnly(value);
            return close + 1;
        }
    }
    if (as == cast + 3 && m_t[cast + 2].kind == TokenKind::String &&
        m_t[cast + 2].text.trimmed().isEmpty()) {
        // CAST('' AS INT) is 0, CAST('' AS DATETIME) the date numbered 0.
        const ColumnKind kind = KindOfTsqlType(type);
        const QString blank = m_stored.BlankAs(kind);
        if (!blank.isEmpty()) {
            const QString cast =
                kind == ColumnKind::Date ? QString() : m_dialect.Cast(blank, type, false);
            out += lead + (cast.isEmpty() ? blank : cast);
            return close + 1;
        }
    }
    if (as == cast + 3 && m_t[cast + 2].kind == TokenKind::String) {
        if (const QString date =
                DateWriterFor(m_context).CastLiteral(ArgumentOf(cast + 2, as), type);
            !date.isEmpty()) {
            out += lead + date;
            return close + 1;
        }
    }
    if (const QString typed = DateWriterFor(m_context).CastValue(ArgumentOf(cast + 2, as), type);
        !typed.isEmpty()) {
        out += lead + typed;
        return close + 1;
    }
    if (const QString converted =
            DateWriterFor(m_context).DateCast(ArgumentOf(cast + 2, as), MaxAsLength(type));
        !converted.isEmpty()) {
        out += lead + converted;
        return close + 1;
    }
    const bool textLiteral = as == cast + 3 && m_t[cast + 2].kind == TokenKind::String;
    if (textLiteral && KindOfTsqlType(type) == ColumnKind::Integer)
        RequireIntegerText(m_t[cast + 2].text);
    const QString value = Range(cast + 2, as).trimmed();
    // A BIT in arithmetic is the number 0 or 1 (a Boolean on PostgreSQL would take no operator).
    const QString sql =
        type == u"BIT" && IsArithmeticOperand(cast, close) && !m_dialect.StoredBit(value).isEmpty()
            ? m_dialect.StoredBit(value)
            : m_dialect.Cast(value, type, textLiteral);
    if (sql.isEmpty()) ThrowUnsupported(QStringLiteral("CAST AS ") + type);
    out += lead + sql;
    return close + 1;
}

bool StatementWriter::IsArithmeticOperand(size_t first, size_t last) const {
    const auto isOperator = [&](size_t i) {
        const Token* t = m_t.At(i);
        return t && t->kind == TokenKind::Symbol &&
               (t->IsSymbol(u"+") || t->IsSymbol(u"-") || t->IsSymbol(u"*") || t->IsSymbol(u"/") ||
                t->IsSymbol(u"%"));
    };
    return isOperator(first - 1) || isOperator(last + 1);
}

// TRY_CAST(x AS type) and TRY_CONVERT(type, x[, style]) to a number type: CAST's answer, NULL
// where it fails (a style changes nothing for numbers). A DATE, TIME or DATETIME2 may not become
// a number (529); other conversions are refused.
size_t StatementWriter::EmitTryConversion(size_t name, size_t close, QString& out) {
    const QString function = m_t[name].text.toUpper();
    const bool cast = function == u"TRY_CAST";
    const std::vector<size_t> commas = m_t.Commas(name + 1, close);
    const size_t as = std::min(m_t.DepthZeroWord(name + 2, u"AS"), close);
    if (cast ? as == close : commas.empty() || commas.size() > 2)
        ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.").arg(m_t[name].text),
                            ado::kNativeSyntax);
    const size_t first = cast ? name + 2 : commas.front() + 1;
    const size_t end = cast ? as : commas.size() == 2 ? commas.back() : close;
    const QString type = TokensToSql(Tokens(m_t.begin() + (cast ? as + 1 : name + 2),
                                            m_t.begin() + (cast ? close : commas.front())))
                             .simplified()
                             .toUpper();
    const QString sql = m_dialect.TryConversion(Range(first, end).trimmed(), type);
    if (!sql.isEmpty() && IsDateOperand(first, end)) {
        const auto date =
            DateOperands(m_t, m_context, m_stored, m_columns).DeclaredType(first, end);
        if (!date || date->kind == ado::DateTypeKind::DateTime ||
            date->kind == ado::DateTypeKind::SmallDateTime)
            ThrowUnsupported(function + QStringLiteral(" de una fecha"));
        ThrowStatementError(
            QStringLiteral("Explicit conversion from data type %1 to %2 is not allowed.")
                .arg(date->Name().toLower(), type.section(u'(', 0, 0).toLower()),
            529);
    }
    if (sql.isEmpty()) ThrowUnsupported(function + QStringLiteral(" AS ") + type);
    out += m_t[name].leading + sql;
    return close + 1;
}

} // namespace zlx::tsql
