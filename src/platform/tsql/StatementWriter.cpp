#include "platform/tsql/StatementWriter.h"

#include "platform/tsql/DateOperands.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/SelectList.h"
#include "platform/tsql/TsqlDateFunctions.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlLiterals.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TsqlTranslator.h"

#include <algorithm>
#include <limits>

namespace zlx::tsql {
namespace {

constexpr std::int32_t kTiesWithoutOrder = 1062; // SQL Server's number for TOP WITH TIES alone

} // namespace

StatementWriter::StatementWriter(StatementTokens& tokens, const TranslationContext& context,
                                 StoredValues& stored)
    : m_context(context), m_dialect(DialectOf(context)), m_t(tokens), m_stored(stored),
      m_names(tokens, context), m_columns(tokens, context) {}

QString StatementWriter::Write() {
    if (m_t.WordAt(0, u"SELECT"))
        m_selected = SelectList::Read(Tokens(m_t.begin(), m_t.end())).items;
    const size_t index = IndexKeyword();
    return index ? IndexDefinition(index) : Range(0, m_t.size());
}

size_t StatementWriter::IndexKeyword() const {
    if (!m_t.WordAt(0, u"CREATE")) return 0;
    size_t k = 1;
    if (m_t.WordAt(k, u"UNIQUE")) ++k;
    if (m_t.WordAt(k, u"CLUSTERED") || m_t.WordAt(k, u"NONCLUSTERED")) ++k;
    return m_t.WordAt(k, u"INDEX") && m_t.WordAt(k + 2, u"ON") ? k : 0;
}

QString StatementWriter::IndexDefinition(size_t index) {
    const size_t name = index + 1;
    const size_t table = index + 3;
    size_t open = table;
    while (open < m_t.size() && !m_t[open].IsSymbol(u"("))
        ++open;
    if (open == table || open == m_t.size())
        return Range(0, m_t.size()); // malformed: left to the engine
    QString engineTable = Range(table, open).trimmed();
    QString schema;
    const qsizetype dot = engineTable.lastIndexOf(u'.');
    if (m_dialect.SchemaOnIndexName() && dot >= 0) {
        schema = engineTable.left(dot + 1);
        engineTable = engineTable.mid(dot + 1);
    }
    QString indexName = EngineIndexName(m_t[open - 1].text, m_t[name].text);
    if (m_t[name].kind == TokenKind::QuotedName || m_t[open - 1].kind == TokenKind::QuotedName)
        indexName = m_dialect.QuoteName(indexName);
    // The keys are ordered as ORDER BY orders them, so that the engine can read in the
    // index's order.
    const size_t close = m_t.Close(open);
    QString keys;
    EmitOrderedItems(open + 1, close, keys);
    // Columns an index only carries change no answer: an engine without them leaves them out.
    size_t rest = close + 1;
    if (m_t.WordAt(rest, u"INCLUDE") && m_t.SymbolAt(rest + 1, u"(") &&
        m_dialect.LacksClause(QStringLiteral("INCLUDE")))
        rest = m_t.Close(rest + 1) + 1;
    return Range(0, name) + m_t[name].leading + schema + indexName + QStringLiteral(" ON ") +
           engineTable + m_t[open].leading + m_t[open].text + keys + m_t[close].leading +
           m_t[close].text + Range(rest, m_t.size());
}

QString StatementWriter::Range(size_t begin, size_t end) {
    QString out;
    std::multimap<size_t, QString> limits; // " LIMIT n" written before the token at the key
    for (size_t i = begin; i < end;) {
        for (auto [from, to] = limits.equal_range(i); from != to; ++from)
            out += from->second;
        limits.erase(i);
        i = Emit(i, end, out, limits);
    }
    for (auto [from, to] = limits.equal_range(end); from != to; ++from)
        out += from->second;
    return out;
}

size_t StatementWriter::Emit(size_t i, size_t end, QString& out,
                             std::multimap<size_t, QString>& limits) {
    const Token& t = m_t[i];
    if (i != m_dateValue)
        if (const size_t dateEnd = SelectedDateEnd(i); dateEnd != 0 && dateEnd <= end)
            return EmitSelectedDate(i, dateEnd, out);
    switch (t.kind) {
    case TokenKind::QuotedName:
    case TokenKind::Word:
        return EmitName(i, end, out, limits);
    case TokenKind::String: {
        if (const Token* number = NumberOperandBeside(i)) {
            out += t.leading + TextAsNumber(t.text, *number);
            return i + 1;
        }
        if (const QString stored = m_stored.StoredText(i); !stored.isEmpty()) {
            out += t.leading + stored;
            return i + 1;
        }
        if (const QString typed = ComparedDateLiteral(i); !typed.isEmpty()) {
            out += t.leading + typed;
            return i + 1;
        }
        if (DateWriterFor(m_context).NamesMonth(t.text) &&
            DateOperands(m_t, m_context, m_stored, m_columns).ReadsAsDate(i)) {
            out += t.leading + DateWriterFor(m_context).CastLiteral(
                                   CallArgument::TextLiteral(t.text), QStringLiteral("DATETIME"));
            return i + 1;
        }
        QString iso = NormalizedDateLiteral(t.text, m_context.dayMonthYear);
        if (!iso.isEmpty() && !DateOperands(m_t, m_context, m_stored, m_columns).ReadsAsDate(i))
            iso.clear();
        out += t.leading + QuoteString(!iso.isEmpty() ? iso
                                       : m_stored.DropsTrailingBlanks(i)
                                           ? WithoutTrailingBlanks(t.text)
                                           : t.text);
        // Two literals compared have no column to give them the database collation.
        const size_t in = m_t.WordAt(i + 1, u"NOT") ? i + 2 : i + 1;
        if ((m_t.IsComparison(i + 1) && m_t.At(i + 2) &&
             m_t.At(i + 2)->kind == TokenKind::String) ||
            (m_t.WordAt(in, u"IN") && m_t.SymbolAt(in + 1, u"(") && m_t.At(in + 2) &&
             m_t.At(in + 2)->kind == TokenKind::String))
            out += u' ' + m_dialect.CaseInsensitiveCollation();
        return i + 1;
    }
    case TokenKind::Global:
        out += t.leading + GlobalValue(t.text);
        return i + 1;
    case TokenKind::Variable:
        ThrowUnsupported(QStringLiteral("variable ") + t.text);
    case TokenKind::Symbol:
        if (t.IsSymbol(u"+") && IsConcatenation(i)) {
            out += t.leading + QStringLiteral("||");
            return i + 1;
        }
        if ((t.IsSymbol(u"/") || t.IsSymbol(u"%")) && !m_dialect.CheckedDivisor({}).isEmpty())
            return EmitCheckedDivisor(i, out);
        if (t.IsSymbol(u"(") && IsTableHint(i + 1) && i > 0 &&
            (m_t[i - 1].kind == TokenKind::Word || m_t[i - 1].kind == TokenKind::QuotedName))
            return SkipBareHints(i);
        if (t.IsSymbol(u"(") && m_t.WordAt(i + 1, u"SELECT")) MarkSingleValue(i, limits);
        out += t.leading + t.text;
        return i + 1;
    case TokenKind::Number:
        if (IsBinaryLiteral(t)) {
            out += t.leading + m_dialect.BinaryLiteral(HexDigits(t.text));
            return i + 1;
        }
        CheckIntegerLiterals(i);
        break;
    }
    out += t.leading + t.text;
    return i + 1;
}

QString StatementWriter::GlobalValue(const QString& name) const {
    const QString value = m_context.globalValue ? m_context.globalValue(name.toUpper()) : QString();
    if (value.isEmpty()) ThrowUnsupported(name);
    return value;
}

const Token* StatementWriter::NumberOperandBeside(size_t i) const {
    static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs, u"/"_qs, u"%"_qs};
    const auto isNumber = [](const Token* token) {
        return token && token->kind == TokenKind::Number && !IsBinaryLiteral(*token);
    };
    const auto isOperator = [&](size_t k) {
        return m_t.At(k) && m_t.At(k)->kind == TokenKind::Symbol &&
               operators.contains(m_t.At(k)->text);
    };
    if (i >= 2 && isOperator(i - 1) && isNumber(m_t.At(i - 2))) return m_t.At(i - 2);
    if (isOperator(i + 1) && isNumber(m_t.At(i + 2))) return m_t.At(i + 2);
    return nullptr;
}

bool StatementWriter::IsTextWithNumber(size_t i) const {
    return m_t.At(i) && m_t.At(i)->kind == TokenKind::String && NumberOperandBeside(i);
}

void StatementWriter::CheckIntegerLiterals(size_t i) const {
    static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs};
    const auto isOperator = [&](size_t k) {
        return m_t.At(k) && m_t.At(k)->kind == TokenKind::Symbol &&
               operators.contains(m_t.At(k)->text);
    };
    if (!isOperator(i + 1) ||
        (i > 0 && (isOperator(i - 1) || m_t.SymbolAt(i - 1, u"/") || m_t.SymbolAt(i - 1, u"%"))))
        return;
    std::vector<qint64> terms; // the chain's sum, its products worked out first
    qint64 product = 0;
    QChar sign = u'+';
    size_t k = i;
    for (;; k += 2) {
        bool integer = false;
        const qint64 value =
            m_t.At(k) && m_t.At(k)->kind == TokenKind::Number && !IsBinaryLiteral(*m_t.At(k))
                ? m_t.At(k)->text.toLongLong(&integer)
                : 0;
        if (!integer || value > std::numeric_limits<std::int32_t>::max()) return;
        product = k == i || !m_t.SymbolAt(k - 1, u"*") ? value : CheckedInt(product * value);
        const bool productEnds = !m_t.SymbolAt(k + 1, u"*");
        if (productEnds) {
            terms.push_back(sign == u'-' ? -product : product);
            if (!isOperator(k + 1)) break;
            sign = m_t[k + 1].text[0];
        }
        if (m_t.SymbolAt(k + 2, u"(") || m_t.SymbolAt(k + 2, u".")) return;
    }
    // A division or modulo of the last literal binds first: the chain is no sum of these.
    if (m_t.SymbolAt(k + 1, u"/") || m_t.SymbolAt(k + 1, u"%")) return;
    qint64 sum = 0;
    for (const qint64 term : terms)
        sum = CheckedInt(sum + term);
}

size_t StatementWriter::EmitCheckedDivisor(size_t i, QString& out) {
    const size_t end = m_t.PrimaryEnd(i + 1);
    if (end == i + 1) {
        out += m_t[i].leading + m_t[i].text;
        return i + 1;
    }
    out += m_t[i].leading + m_t[i].text + m_t[i + 1].leading +
           m_dialect.CheckedDivisor(Range(i + 1, end).trimmed());
    return end;
}

bool StatementWriter::IsConcatenation(size_t plus) const {
    if ((plus > 0 && IsTextWithNumber(plus - 1)) || IsTextWithNumber(plus + 1)) return false;
    const Token* next = m_t.At(plus + 1);
    if (next && (next->kind == TokenKind::String || IsTextFunction(*next) || IsTextCast(plus + 1)))
        return true;
    // The column of a following t.column is two tokens further on.
    if (IsTextColumnName(m_t.SymbolAt(plus + 2, u".") ? plus + 3 : plus + 1)) return true;
    if (plus == 0) return false;
    const Token& previous = m_t[plus - 1];
    if (previous.kind == TokenKind::String || IsTextColumnName(plus - 1)) return true;
    if (!previous.IsSymbol(u")")) return false;
    for (size_t j = plus - 1; j-- > 0;) {
        if (m_t[j].IsSymbol(u"(") && m_t.Close(j) == plus - 1)
            return j > 0 && (IsTextFunction(m_t[j - 1]) || IsTextCast(j - 1));
    }
    return false;
}

size_t StatementWriter::EmitLike(size_t like, bool negated, QString& out) {
    const size_t patternEnd = m_t.ExpressionEnd(like + 1);
    out += (negated ? m_t[like - 1].leading : m_t[like].leading) + m_dialect.LikeOperator(negated) +
           QStringLiteral(" (");
    if (!m_t.WordAt(patternEnd, u"ESCAPE")) {
        out += Range(like + 1, patternEnd).trimmed() + u')';
        return patternEnd;
    }
    const Token* escape = m_t.At(patternEnd + 1);
    if (patternEnd == like + 2 && m_t[like + 1].kind == TokenKind::String && escape &&
        escape->kind == TokenKind::String && escape->text.size() == 1) {
        out += QuoteString(WithoutEscapes(m_t[like + 1].text, escape->text[0])) + u')';
        return patternEnd + 2;
    }
    const size_t escapeEnd = m_t.ExpressionEnd(patternEnd + 1);
    out += m_dialect.EscapedPattern(Range(like + 1, patternEnd).trimmed(),
                                    Range(patternEnd + 1, escapeEnd).trimmed()) +
           u')';
    return escapeEnd;
}

bool StatementWriter::IsTextColumnName(size_t i) const {
    const Token* name = m_t.At(i);
    if (!name || m_t.SymbolAt(i + 1, u"(") ||
        (name->kind != TokenKind::Word && name->kind != TokenKind::QuotedName))
        return false;
    return m_columns.IsText(i);
}

bool StatementWriter::IsTextCast(size_t i) const {
    if (!m_t.WordAt(i, u"CAST") || !m_t.SymbolAt(i + 1, u"(")) return false;
    const size_t close = m_t.Close(i + 1);
    for (size_t j = i + 2; j + 1 < close; ++j) {
        if (m_t[j].IsWord(u"AS")) {
            const Token& type = m_t[j + 1];
            return type.IsWord(u"CHAR") || type.IsWord(u"VARCHAR") || type.IsWord(u"NCHAR") ||
                   type.IsWord(u"NVARCHAR");
        }
    }
    return false;
}

size_t StatementWriter::EmitName(size_t i, size_t end, QString& out,
                                 std::multimap<size_t, QString>& limits) {
    const Token& t = m_t[i];
    if (i != m_plainOperand) {
        const size_t next = EmitDateArithmetic(i, out);
        if (next != i) return next;
    }
    const bool call = m_t.SymbolAt(i + 1, u"(");
    if (t.kind == TokenKind::Word) {
        if (t.IsWord(u"SELECT") && m_t.WordAt(i + 1, u"TOP")) return EmitTop(i, end, out, limits);
        if (call && IsTextFunction(t) && !m_dialect.TextResultCollation().isEmpty()) {
            const size_t after = m_t.Close(i + 1) + 1;
            // Written after the call, before a LIMIT that may follow it.
            if (m_t.IsComparison(i - 1) || m_t.IsComparison(after) || m_t.WordAt(i - 1, u"BY") ||
                m_t.WordAt(i - 1, u"DISTINCT"))
                limits.emplace_hint(limits.lower_bound(after), after,
                                    m_dialect.TextResultCollation());
        }
        if (call) {
            const size_t next = EmitFunction(i, out);
            if (next != i) return next;
        }
        if (t.IsWord(u"ORDER") && m_t.WordAt(i + 1, u"BY")) return EmitOrderBy(i, end, out);
        if (!m_dialect.LikeOperator(false).isEmpty()) {
            if (t.IsWord(u"LIKE")) return EmitLike(i, false, out);
            if (t.IsWord(u"NOT") && m_t.WordAt(i + 1, u"LIKE")) return EmitLike(i + 1, true, out);
        }
        if (t.IsWord(u"WITH") && m_t.SymbolAt(i + 1, u"(") && IsTableHint(i + 2))
            return SkipHints(i);
        if (t.IsWord(u"DEFAULT") && i >= 2 && m_t[i - 1].IsSymbol(u"=") &&
            !m_dialect.HasDefaultValues() && m_t.WordAt(0, u"UPDATE"))
            return EmitSetDefault(i, out);
        if (!m_dialect.AlterColumnTypeWord().isEmpty() && t.IsWord(u"COLUMN") && i > 0 &&
            m_t[i - 1].IsWord(u"ALTER") && i + 1 < end) {
            out += t.leading + t.text; // ALTER COLUMN c <word> t
            const size_t next = m_names.Write(i + 1, out);
            out += m_dialect.AlterColumnTypeWord();
            return next;
        }
        if (t.IsWord(u"NONCLUSTERED") || t.IsWord(u"CLUSTERED")) return i + 1;
        if (t.IsWord(u"ON") && m_t.At(i + 1) &&
            m_t.At(i + 1)->Is(TokenKind::QuotedName, u"PRIMARY"))
            return i + 2; // filegroup clause
        if (m_t.IsDdl()) {
            const QString type = m_dialect.ColumnType(t.text);
            if (!type.isEmpty() && i > 0 &&
                (m_t[i - 1].kind != TokenKind::Symbol || m_t[i - 1].text.isEmpty())) {
                out += t.leading + type;
                if (m_t.SymbolAt(i + 1, u"(") && !m_dialect.KeepsTypeLength(t.text))
                    return m_t.Close(i + 1) + 1;
                return i + 1;
            }
        }
    }
    return m_names.Write(i, out);
}

size_t StatementWriter::EmitOrderBy(size_t order, size_t end, QString& out) {
    out += m_t[order].leading + m_t[order].text + m_t[order + 1].leading + m_t[order + 1].text;
    const size_t last = OrderByEnd(order + 2, end);
    EmitOrderedItems(order + 2, last, out);
    return last;
}

size_t StatementWriter::OrderByEnd(size_t from, size_t end) const {
    static const QStringList after = {QStringLiteral("FOR"),     QStringLiteral("OPTION"),
                                      QStringLiteral("OFFSET"),  QStringLiteral("UNION"),
                                      QStringLiteral("EXCEPT"),  QStringLiteral("INTERSECT"),
                                      QStringLiteral("COMPUTE"), QStringLiteral("LIMIT")};
    int depth = 0;
    for (size_t i = from; i < end; ++i) {
        if (m_t[i].IsSymbol(u"("))
            ++depth;
        else if (m_t[i].IsSymbol(u")") && --depth < 0)
            return i;
        else if (depth == 0 && m_t[i].kind == TokenKind::Word &&
                 after.contains(m_t[i].text, Qt::CaseInsensitive))
            return i;
    }
    return end;
}

void StatementWriter::EmitOrderedItems(size_t from, size_t end, QString& out) {
    for (size_t item = from; item < end;) {
        size_t next = item;
        for (int depth = 0; next < end && !(depth == 0 && m_t[next].IsSymbol(u",")); ++next) {
            if (m_t[next].IsSymbol(u"("))
                ++depth;
            else if (m_t[next].IsSymbol(u")"))
                --depth;
        }
        out += Range(item, next) + NullsOrder(item, next);
        if (next < end) out += m_t[next].leading + m_t[next].text;
        item = next + 1;
    }
}

QString StatementWriter::NullsOrder(size_t first, size_t last) const {
    if (first == last || m_dialect.NullsOrder(false).isEmpty()) return {};
    if (last - first >= 2 && m_t[last - 2].IsWord(u"NULLS")) return {};
    const bool descending = m_t[last - 1].IsWord(u"DESC");
    const size_t expressionEnd = descending || m_t[last - 1].IsWord(u"ASC") ? last - 1 : last;
    // A named column ends with its name.
    if (m_t.NamedColumn(first, expressionEnd) && !m_columns.MayBeNull(expressionEnd - 1)) return {};
    return m_dialect.NullsOrder(descending);
}

bool StatementWriter::IsIntegerColumn(size_t first, size_t end) const {
    return m_t.NamedColumn(first, end) && m_columns.IsInteger(end - 1);
}

size_t StatementWriter::EmitTop(size_t select, size_t end, QString& out,
                                std::multimap<size_t, QString>& limits) {
    size_t count = select + 2;
    QString n;
    size_t next;
    if (m_t.SymbolAt(count, u"(")) {
        const size_t close = m_t.Close(count);
        n = Range(count + 1, close).trimmed();
        next = close + 1;
    } else if (m_t.At(count) && m_t.At(count)->kind == TokenKind::Number) {
        n = m_t[count].text;
        next = count + 1;
    } else {
        ThrowStatementError(QStringLiteral("Incorrect syntax near 'TOP'."), ado::kNativeSyntax);
    }
    const size_t scopeEnd = ScopeEnd(select, end);
    QString limit = QStringLiteral(" LIMIT ") + n;
    if (m_t.WordAt(next, u"PERCENT")) {
        limit = QStringLiteral(" LIMIT ") + PercentCount(select, scopeEnd, n);
        ++next;
    }
    if (m_t.WordAt(next, u"WITH") && m_t.WordAt(next + 1, u"TIES")) {
        if (m_t.WordAt(next - 1, u"PERCENT")) ThrowUnsupported(QStringLiteral("TOP ... WITH TIES"));
        const size_t order = TiesOrderBy(select, scopeEnd);
        limit = m_dialect.FirstRowsWithTies(n);
        if (limit.isEmpty())
            limit = QStringLiteral(" LIMIT ") + TiedCount(select, order, scopeEnd, n);
        next += 2;
    }
    // Before what an enclosing subquery closes there.
    limits.emplace_hint(limits.lower_bound(scopeEnd), scopeEnd, limit);
    out += m_t[select].leading + m_t[select].text;
    return next;
}

QString StatementWriter::PercentCount(size_t select, size_t scopeEnd, const QString& percent) {
    bool whole = false;
    percent.toInt(&whole);
    const size_t from = m_t.DepthZeroWord(select + 1, u"FROM");
    const size_t order = std::min(m_t.DepthZeroWord(from, u"ORDER"), scopeEnd);
    if (!whole || from >= scopeEnd || m_t.DepthZeroWord(from, u"GROUP") < scopeEnd)
        ThrowUnsupported(QStringLiteral("TOP ") + percent + QStringLiteral(" PERCENT"));
    return QStringLiteral("(SELECT (count(*) * %1 + 99) / 100 ").arg(percent) +
           Range(from, order).trimmed() + u')';
}

size_t StatementWriter::TiesOrderBy(size_t select, size_t scopeEnd) const {
    const size_t order = m_t.DepthZeroWord(m_t.DepthZeroWord(select + 1, u"FROM"), u"ORDER");
    if (order >= scopeEnd || !m_t.WordAt(order + 1, u"BY"))
        ThrowStatementError(QStringLiteral("The TOP N WITH TIES clause is not allowed without a "
                                           "corresponding ORDER BY clause."),
                            kTiesWithoutOrder);
    return order;
}

QString StatementWriter::TiedCount(size_t select, size_t order, size_t scopeEnd,
                                   const QString& count) {
    QString keys;
    EmitOrderedItems(order + 2, OrderByEnd(order + 2, scopeEnd), keys);
    const size_t from = std::min(m_t.DepthZeroWord(select + 1, u"FROM"), order);
    return QStringLiteral("(SELECT count(*) FROM (SELECT rank() OVER (ORDER BY %1) AS zlx_rank ")
               .arg(keys.trimmed()) +
           Range(from, order).trimmed() + QStringLiteral(") WHERE zlx_rank <= %1)").arg(count);
}

size_t StatementWriter::ScopeEnd(size_t select, size_t end) const {
    int depth = 0;
    for (size_t i = select + 1; i < end; ++i) {
        if (m_t[i].IsSymbol(u"("))
            ++depth;
        else if (m_t[i].IsSymbol(u")") && --depth < 0)
            return i;
        else if (depth == 0 && m_t[i].IsWord(u"UNION"))
            ThrowUnsupported(QStringLiteral("TOP con UNION"));
    }
    return end;
}

bool StatementWriter::IsTableHint(size_t i) const {
    static const QStringList hints = {QStringLiteral("TABLOCKX"), QStringLiteral("TABLOCK"),
                                      QStringLiteral("NOLOCK"),   QStringLiteral("HOLDLOCK"),
                                      QStringLiteral("UPDLOCK"),  QStringLiteral("ROWLOCK"),
                                      QStringLiteral("XLOCK"),    QStringLiteral("READPAST")};
    return m_t.At(i) && m_t.At(i)->kind == TokenKind::Word &&
           hints.contains(m_t.At(i)->text, Qt::CaseInsensitive);
}

size_t StatementWriter::SkipHints(size_t with) {
    const size_t close = m_t.Close(with + 1);
    for (size_t j = with + 2; j < close; ++j) {
        if (m_t[j].IsWord(u"TABLOCKX") || m_t[j].IsWord(u"XLOCK")) m_exclusive << HintedTable(with);
    }
    return close + 1;
}

size_t StatementWriter::SkipBareHints(size_t open) {
    const size_t close = m_t.Close(open);
    for (size_t j = open + 1; j < close; ++j) {
        if (m_t[j].IsWord(u"TABLOCKX") || m_t[j].IsWord(u"XLOCK")) m_exclusive << HintedTable(open);
    }
    return close + 1;
}

QString StatementWriter::HintedTable(size_t with) const {
    size_t j = with;
    while (j > 0 && !(m_t[j - 1].IsWord(u"FROM") || m_t[j - 1].IsWord(u"UPDATE") ||
                      m_t[j - 1].IsWord(u"INTO")))
        --j;
    StatementTokens table(Tokens(m_t.begin() + j, m_t.begin() + with));
    StoredValues stored(table, m_context);
    return StatementWriter(table, m_context, stored).Range(0, with - j).trimmed();
}

size_t StatementWriter::EmitSetDefault(size_t i, QString& out) {
    const QString column = m_t[i - 2].text;
    const QString table = m_t[1].text;
    const QString value =
        m_context.columnDefault ? m_context.columnDefault(table, column) : QString();
    out += m_t[i].leading + (value.isEmpty() ? QStringLiteral("NULL") : value);
    return i + 1;
}

// Whether the subquery at `open` stands where one value is due: after an operator, a comma
// or "(" outside a FROM list, or a word that begins an expression.
bool StatementWriter::IsScalarSubquery(size_t open) const {
    static const QStringList operators = {u"="_qs,  u"<>"_qs, u"!="_qs, u"<"_qs, u">"_qs,
                                          u"<="_qs, u">="_qs, u"+"_qs,  u"-"_qs, u"*"_qs,
                                          u"/"_qs,  u"%"_qs,  u","_qs,  u"("_qs};
    static const QStringList words = {u"SELECT"_qs, u"THEN"_qs,   u"ELSE"_qs,   u"WHEN"_qs,
                                      u"WHERE"_qs,  u"AND"_qs,    u"OR"_qs,     u"NOT"_qs,
                                      u"ON"_qs,     u"HAVING"_qs, u"RETURN"_qs, u"BETWEEN"_qs};
    if (open == 0) return false;
    const Token& before = m_t[open - 1];
    if (before.kind == TokenKind::Word) return words.contains(before.text, Qt::CaseInsensitive);
    if (before.kind != TokenKind::Symbol || !operators.contains(before.text)) return false;
    if (before.IsSymbol(u"(")) {
        const Token* call = m_t.At(open - 2);
        return !(call && (call->IsWord(u"IN") || call->IsWord(u"EXISTS") || call->IsWord(u"FROM") ||
                          call->IsWord(u"JOIN")));
    }
    if (!before.IsSymbol(u",")) return true;
    // A comma of a FROM list separates tables.
    for (size_t k = open - 1, depth = 0; k-- > 0;) {
        if (m_t[k].IsSymbol(u")"))
            ++depth;
        else if (m_t[k].IsSymbol(u"(") && depth-- == 0)
            return true;
        else if (depth == 0 && (m_t[k].IsWord(u"FROM") || m_t[k].IsWord(u"JOIN")))
            return false;
        else if (depth == 0 && (m_t[k].IsWord(u"SELECT") || m_t[k].IsWord(u"SET") ||
                                m_t[k].IsWord(u"BY") || m_t[k].IsWord(u"VALUES")))
            return true;
    }
    return true;
}

// (SELECT x FROM ...) where one value is due: its value compares under the database
// collation (SQLite gives a subquery's value none), and on an engine that would answer the
// first of several rows, x goes through its aggregate that fails as SQL Server's error 512.
// A subquery whose rows come out of a TOP, DISTINCT, GROUP BY or set operator is read whole
// by the aggregate; one with an aggregate in x, more than one column or no FROM gives one row
// at most.
void StatementWriter::MarkSingleValue(size_t open, std::multimap<size_t, QString>& limits) {
    static const QStringList aggregates = {u"COUNT"_qs, u"SUM"_qs,   u"AVG"_qs, u"MIN"_qs,
                                           u"MAX"_qs,   u"STDEV"_qs, u"VAR"_qs, u"COUNT_BIG"_qs};
    const QString aggregate = m_dialect.SingleValueAggregate();
    if (aggregate.isEmpty() || !IsScalarSubquery(open)) return;
    const size_t select = open + 1;
    const size_t close = m_t.Close(open);
    limits.emplace(close + 1, m_dialect.TextResultCollation());
    const size_t from = m_t.DepthZeroWord(select + 1, u"FROM");
    size_t itemEnd = std::min(from, close);
    for (QStringView word : {u"UNION", u"EXCEPT", u"INTERSECT"})
        itemEnd = std::min(itemEnd, m_t.DepthZeroWord(select + 1, word));
    if (RowsComeWhole(select, from, itemEnd, close)) {
        ReadWhole(select, itemEnd, close, aggregate, limits);
        return;
    }
    if (from >= close || m_t.WordAt(select + 1, u"TOP")) return; // TOP 1
    for (size_t k = select + 1, depth = 0; k < from; ++k) {
        if (m_t[k].IsSymbol(u"("))
            ++depth;
        else if (m_t[k].IsSymbol(u")"))
            --depth;
        else if ((depth == 0 && m_t[k].IsSymbol(u",")) ||
                 (m_t[k].kind == TokenKind::Word && m_t.SymbolAt(k + 1, u"(") &&
                  aggregates.contains(m_t[k].text, Qt::CaseInsensitive)))
            return;
    }
    // The item's blanks go before the call (a part of a statement may be written twice).
    Token& item = m_t[select + 1];
    limits.emplace(select + 1,
                   (item.leading.isEmpty() ? u" "_qs : item.leading) + aggregate + u'(');
    item.leading.clear();
    limits.emplace(from, QStringLiteral(")"));
}

bool StatementWriter::RowsComeWhole(size_t select, size_t from, size_t itemEnd,
                                    size_t close) const {
    if (!m_t.Commas(select, itemEnd).empty()) return false; // several columns
    for (QStringView word : {u"UNION", u"EXCEPT", u"INTERSECT"})
        if (m_t.DepthZeroWord(select + 1, word) < close) return true;
    if (m_t.WordAt(select + 1, u"DISTINCT")) return true;
    if (m_t.WordAt(select + 1, u"TOP"))
        return !(m_t.At(select + 2) && m_t.At(select + 2)->Is(TokenKind::Number, u"1")) &&
               !(m_t.SymbolAt(select + 2, u"(") && m_t.At(select + 3) &&
                 m_t.At(select + 3)->Is(TokenKind::Number, u"1") && m_t.SymbolAt(select + 4, u")"));
    return from < close && m_t.DepthZeroWord(from, u"GROUP") < close;
}

void StatementWriter::ReadWhole(size_t select, size_t itemEnd, size_t close,
                                const QString& aggregate, std::multimap<size_t, QString>& limits) {
    QString column = ItemAlias(select, itemEnd);
    if (column.isEmpty()) {
        column = QStringLiteral("zlx_value");
        limits.emplace(itemEnd, QStringLiteral(" AS zlx_value"));
    }
    Token& first = m_t[select];
    limits.emplace(select,
                   QStringLiteral("%1SELECT %2(%3) FROM (").arg(first.leading, aggregate, column));
    first.leading.clear();
    limits.emplace(close, QStringLiteral(")"));
}

QString StatementWriter::ItemAlias(size_t select, size_t itemEnd) const {
    size_t item = select + 1;
    if (m_t.WordAt(item, u"DISTINCT")) ++item;
    if (m_t.WordAt(item, u"TOP"))
        item = m_t.SymbolAt(item + 1, u"(") ? m_t.Close(item + 1) + 1 : item + 2;
    if (m_t.WordAt(item, u"PERCENT")) ++item;
    if (m_t.WordAt(item, u"WITH") && m_t.WordAt(item + 1, u"TIES")) item += 2;
    const Token* last = m_t.At(itemEnd - 1);
    if (itemEnd < item + 2 || !last || !IsName(*last) || last->IsWord(u"END")) return {};
    const Token& before = m_t[itemEnd - 2];
    if (!before.IsWord(u"AS") && !IsName(before) && before.kind != TokenKind::Number &&
        before.kind != TokenKind::String && !before.IsSymbol(u")"))
        return {};
    return last->kind == TokenKind::QuotedName ? m_dialect.QuoteName(last->text) : last->text;
}

} // namespace zlx::tsql
