#include "platform/engines/TextOrder.h"

namespace zlx::ado::TextOrder {

QString BaseLetters(const QString& folded) {
    QString base;
    const QString decomposed = folded.normalized(QString::NormalizationForm_D);
    base.reserve(decomposed.size());
    for (QChar c : decomposed)
        if (c.category() != QChar::Mark_NonSpacing) base += c;
    return base;
}

int Compare(const QString& a, const QString& b) {
    const QString foldedA = a.toCaseFolded();
    const QString foldedB = b.toCaseFolded();
    const int byBase = QString::compare(BaseLetters(foldedA), BaseLetters(foldedB));
    return byBase != 0 ? byBase : QString::compare(foldedA, foldedB);
}

} // namespace zlx::ado::TextOrder
