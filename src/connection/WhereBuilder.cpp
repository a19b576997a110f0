#include "connection/WhereBuilder.h"

#include "connection/SqlText.h"
#include "platform/variant/NumberText.h"

#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QVariant>
#include <cmath>

namespace zlx::WhereBuilder {

namespace {

// The search text after the wildcard preparation, the escapes and the special texts.
struct PreparedText {
    QString text;
    int mode = zlxWhere_Like;
    bool escape = false;  // a "|%" or "|_" remains: the condition needs ESCAPE '|'
    bool special = false; // "*" or "''" turned into the empty text
};

// A typed % or _ is searched literally unless the user escaped it already.
void EscapeLikeCharacters(QString& text) {
    if (text.contains(u'%') && !text.contains(QStringLiteral("|%")))
        text.replace(u'%', QStringLiteral("|%"));
    if (text.contains(u'_') && !text.contains(QStringLiteral("|_")))
        text.replace(u'_', QStringLiteral("|_"));
}

bool AsteriskIsWildcard(const QString& text, qsizetype i) {
    if (i == 0) return text != QStringLiteral("*");
    if (i == 1) return text.at(0) != u'|';
    return (text.at(i - 2) == u'|' && text.at(i - 1) == u'|') || text.at(i - 1) != u'|';
}

void AsterisksToWildcards(QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i)
        if (text.at(i) == u'*' && AsteriskIsWildcard(text, i)) text[i] = u'%';
}

void PrepareLike(QString& text) {
    text = text.trimmed();
    EscapeLikeCharacters(text);
    // A word list keeps its leading "**" and its words as typed.
    if (!text.startsWith(QStringLiteral("**"))) AsterisksToWildcards(text);
    if (!text.contains(u'*') && !text.contains(u'%') && !text.isEmpty() &&
        text != QStringLiteral("''"))
        text += u'%';
}

// Resolves "|*", "||", "|%" and "|_"; answers whether an escaped asterisk was seen.
bool ResolveEscapes(PreparedText& prepared) {
    const QString& in = prepared.text;
    QString out;
    out.reserve(in.size());
    bool escapedAsterisk = false;
    for (qsizetype i = 0; i < in.size(); ++i) {
        const QChar c = in.at(i);
        if (c != u'|' || i + 1 >= in.size()) {
            out += c;
            continue;
        }
        const QChar next = in.at(++i);
        if (next == u'*') {
            escapedAsterisk = true;
        } else if (next == u'%' || next == u'_') {
            out += u'|';
            prepared.escape = true;
        } else if (next != u'|') {
            out += u'|';
        }
        out += next;
    }
    prepared.text = out;
    return escapedAsterisk;
}

PreparedText PrepareText(QString text, int nModo) {
    PreparedText prepared{std::move(text), nModo};
    if (nModo == zlxWhere_Like) PrepareLike(prepared.text);
    const bool escapedAsterisk = ResolveEscapes(prepared);
    if (prepared.text.startsWith(QStringLiteral("**"))) {
        if (nModo == zlxWhere_Like) prepared.mode = zlxWhere_ListaPalabras;
    } else if (prepared.text == QStringLiteral("*") && !escapedAsterisk) {
        prepared = {QString(), zlxWhere_Distinto, false, true};
    } else if (prepared.text == QStringLiteral("''")) {
        prepared = {QString(), zlxWhere_Igual, false, true};
    } else if (nModo == zlxWhere_ListaPalabras) {
        prepared.text.prepend(QStringLiteral("**"));
    }
    return prepared;
}

QString Operator(int nModo) {
    switch (nModo) {
    case zlxWhere_Menor:
        return QStringLiteral("<");
    case zlxWhere_MenorIgual:
        return QStringLiteral("<=");
    case zlxWhere_Igual:
        return QStringLiteral("=");
    case zlxWhere_MayorIgual:
        return QStringLiteral(">=");
    case zlxWhere_Mayor:
        return QStringLiteral(">");
    default:
        return QStringLiteral("<>");
    }
}

bool IsBlankDate(const Variant& value) {
    const Date* date = value.Get<Date>();
    return date && date->value == BlankDate().value;
}

QString Comparison(const QString& cField, const Variant& value, int nModo, bool special) {
    const QString op = QStringLiteral(" AND ") + cField + Operator(nModo);
    if (value.VarType() == vbDate)
        return IsBlankDate(value) ? QString() : op + SqlText::PonComillas(value);
    if (value.VarType() == vbString) {
        QString text = value.ToString();
        while (text.endsWith(u' '))
            text.chop(1);
        return text.isEmpty() && !special ? QString() : op + SqlText::PonComillas(text);
    }
    // Numbers go into the statement as SQL numbers, with "." whatever the regional settings.
    return op + value.ToInvariantString();
}

// A number goes into a statement as it was written; any other text only as a quoted literal.
QString NumberOrQuoted(const QString& text) {
    static const QRegularExpression number(QStringLiteral(R"(^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)$)"));
    return number.match(text).hasMatch() ? text : SqlText::PonComillas(Variant(text));
}

QString CodeList(const QString& cField, const QString& text) {
    QString ranges;
    QStringList codes;
    for (const QString& rawPiece : text.trimmed().split(u',')) {
        const QString piece = rawPiece.trimmed();
        if (piece.isEmpty()) continue;
        const qsizetype dash = piece.indexOf(u'-');
        if (dash < 0) {
            if (piece != QStringLiteral("0")) codes << NumberOrQuoted(piece);
            continue;
        }
        const auto a = static_cast<long long>(std::trunc(NumberText::Val(piece.left(dash))));
        const auto b = static_cast<long long>(std::trunc(NumberText::Val(piece.mid(dash + 1))));
        if (a != 0 && b != 0)
            ranges += QStringLiteral(" OR (%1 BETWEEN %2 AND %3)").arg(cField).arg(a).arg(b);
        else if (b != 0)
            ranges += QStringLiteral(" OR %1<=%2").arg(cField).arg(b);
        else
            ranges += QStringLiteral(" OR %1>=%2").arg(cField).arg(a);
    }
    if (!codes.isEmpty())
        ranges += QStringLiteral(" OR ") + cField + QStringLiteral(" IN (") +
                  codes.join(QStringLiteral(", ")) + u')';
    return ranges.isEmpty() ? QString() : QStringLiteral(" AND (") + ranges.mid(4) + u')';
}

QString WordList(const QString& cField, const QString& text) {
    QString filter;
    return SqlText::FiltroPorPalabras(cField, text, filter) ? QStringLiteral(" AND") + filter
                                                            : QString();
}

QString Build(const QString& cField, const Variant& value, int nModo, const PreparedText* text) {
    switch (nModo) {
    case zlxWhere_Like: {
        const QString literal = text ? text->text : value.ToString();
        if (literal.isEmpty()) return QString();
        QString condition = QStringLiteral(" AND ") + cField + QStringLiteral(" LIKE ") +
                            SqlText::PonComillas(literal);
        if (text && text->escape)
            condition += QStringLiteral(" ESCAPE ") + SqlText::PonComillas(QStringLiteral("|"));
        return condition;
    }
    case zlxWhere_Menor:
    case zlxWhere_MenorIgual:
    case zlxWhere_Igual:
    case zlxWhere_MayorIgual:
    case zlxWhere_Mayor:
    case zlxWhere_Distinto:
        return text ? Comparison(cField, Variant(text->text), nModo, text->special)
                    : Comparison(cField, value, nModo, false);
    case zlxWhere_Codigos:
        return CodeList(cField, text ? text->text : value.ToInvariantString());
    case zlxWhere_ListaPalabras:
        return WordList(cField, text ? text->text : value.ToString());
    default:
        return QString();
    }
}

} // namespace

QString Condition(const QString& cField, const Variant& xValor, int nModo) {
    if (xValor.IsNull() || xValor.IsEmpty()) return QString();
    if (xValor.VarType() != vbString) return Build(cField, xValor, nModo, nullptr);
    const PreparedText prepared = PrepareText(xValor.ToString(), nModo);
    return Build(cField, xValor, prepared.mode, &prepared);
}

QString ControlCondition(const QObject& oControl, int nModo) {
    const QString field =
        oControl.property("Alias").toString() + u'.' + oControl.property("Campo").toString();
    return Condition(field, Variant(oControl.property("Text").toString()), nModo);
}

QString CheckBoxes(const std::vector<Variant>& aBoxValues, const QString& cField, int nModo,
                   const std::vector<Variant>& aValues) {
    std::int64_t mask = 0;
    QString list;
    for (std::size_t i = 0; i < aBoxValues.size() && i < aValues.size(); ++i) {
        if (aBoxValues[i].ToDouble() == 0) continue;
        const Variant& value = aValues[i];
        // A value that is not a number adds no bit, and is listed as a quoted text.
        if (value.IsNumeric()) mask |= value.ToInt64();
        list += u',' + NumberOrQuoted(value.ToInvariantString());
    }
    if (nModo == zlxChk2Where_Enumerados)
        return list.isEmpty() ? QString()
                              : QStringLiteral(" AND ") + cField + QStringLiteral(" IN (") +
                                    list.mid(1) + u')';
    if (mask == 0) return QString();
    const QString test = QStringLiteral(" AND (%1 & %2)").arg(cField).arg(mask);
    return nModo == zlxChk2Where_Alguno ? test + QStringLiteral(">0")
                                        : test + QStringLiteral("=%1").arg(mask);
}

QString ReplaceWhere(const QString& cFiltroOriginal, const std::vector<QString>& aSustituidos,
                     const std::vector<QString>& aSustitutos) {
    // The blank after AND makes the first condition read " AND x", like every other one.
    const QString dummy = QStringLiteral("WHERE <Dummy> AND ");
    QString filter = cFiltroOriginal;
    filter.replace(QStringLiteral("WHERE "), dummy);
    for (const QString& piece : aSustituidos)
        if (!piece.isEmpty()) filter.remove(piece);
    for (const QString& piece : aSustitutos)
        filter += piece;
    return filter.replace(dummy, QStringLiteral("WHERE "));
}

} // namespace zlx::WhereBuilder
