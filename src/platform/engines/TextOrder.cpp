#include "platform/engines/TextOrder.h"

namespace zlx::ado::TextOrder {

namespace {

constexpr char16_t kEnye = u'\u00f1';

QChar KeyOf(QChar c) {
    const QChar folded = c.toCaseFolded();
    if (folded == kEnye || folded.decompositionTag() != QChar::Canonical) return folded;
    return folded.decomposition().front();
}

// The place of a key character in the order: ñ right after n, every other character by its
// code.
int Weight(QChar key) {
    return key == kEnye ? u'n' * 2 + 1 : key.unicode() * 2;
}

} // namespace

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

QString SearchKey(const QString& text) {
    QString key(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        key[i] = KeyOf(text[i]);
    return key;
}

QStringView WithoutTrailingBlanks(QStringView text) {
    qsizetype size = text.size();
    while (size > 0 && text[size - 1] == u' ')
        --size;
    return text.first(size);
}

int CollationCompare(const QString& a, const QString& b) {
    const QStringView x = WithoutTrailingBlanks(a);
    const QStringView y = WithoutTrailingBlanks(b);
    const qsizetype common = std::min(x.size(), y.size());
    for (qsizetype i = 0; i < common; ++i) {
        const int difference = Weight(KeyOf(x[i])) - Weight(KeyOf(y[i]));
        if (difference != 0) return difference;
    }
    return x.size() < y.size() ? -1 : (x.size() > y.size() ? 1 : 0);
}

} // namespace zlx::ado::TextOrder
