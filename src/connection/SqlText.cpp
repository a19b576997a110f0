#include "connection/SqlText.h"

namespace zlx::SqlText {

namespace {

QString WithoutTrailingBlanks(const QString& text) {
    qsizetype end = text.size();
    while (end > 0 && text.at(end - 1) == u' ')
        --end;
    return text.left(end);
}

QString TwoDigitPart(const QString& part, const QString& cCampo) {
    return QStringLiteral("RIGHT('00'+RTRIM(CAST(DATEPART(%1,%2) AS CHAR)),2)").arg(part, cCampo);
}

} // namespace

QString PonComillas(const Variant& xValor, int nLike) {
    if (xValor.IsNull()) return QStringLiteral("''");
    QString text = xValor.ToString();
    text.replace(u'\'', QStringLiteral("''"));
    text.replace(QChar(0), u' ');
    if (nLike == zlxLikeConstantsBefore || nLike == zlxLikeConstantsAll) text.prepend(u'%');
    if (nLike == zlxLikeConstantsAfter || nLike == zlxLikeConstantsAll) text.append(u'%');
    return u'\'' + WithoutTrailingBlanks(text) + u'\'';
}

QString SoloFecha(const QString& cCampo) {
    return QStringLiteral("CAST(FLOOR(CAST(") + cCampo + QStringLiteral(" AS FLOAT)) AS DATETIME)");
}

QString SoloHora(const QString& cCampo, bool lSegundos) {
    QString text = TwoDigitPart(QStringLiteral("hh"), cCampo) + QStringLiteral(" + ':' + ") +
                   TwoDigitPart(QStringLiteral("mi"), cCampo);
    if (lSegundos) text += QStringLiteral(" + ':' + ") + TwoDigitPart(QStringLiteral("ss"), cCampo);
    return text;
}

bool FiltroPorPalabras(const QString& cCampo, const QString& cTextoBuscado,
                       QString& cFiltroPorPalabras) {
    if (!cTextoBuscado.startsWith(QStringLiteral("**"))) return false;
    const QString words = cTextoBuscado.mid(2);
    bool appended = false;
    qsizetype start = 0;
    while (start <= words.size()) {
        qsizetype blank = words.indexOf(u' ', start);
        if (blank < 0) blank = words.size();
        const QString word = words.mid(start, blank - start).trimmed();
        if (!word.isEmpty()) {
            cFiltroPorPalabras += QStringLiteral(" AND ((") + cCampo + QStringLiteral(") LIKE ") +
                                  PonComillas(word, zlxLikeConstantsAll) + u')';
            appended = true;
        }
        start = blank + 1;
    }
    // The first condition loses its leading " AND " and the whole is bracketed.
    if (appended) cFiltroPorPalabras = QStringLiteral(" (") + cFiltroPorPalabras.mid(5) + u')';
    return !cFiltroPorPalabras.isEmpty();
}

} // namespace zlx::SqlText
