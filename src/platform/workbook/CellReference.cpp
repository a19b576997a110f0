#include "platform/workbook/CellReference.h"

namespace zlx::workbook {

std::optional<CellReference> CellReference::Parse(QStringView text) {
    CellReference reference;
    qsizetype i = 0;
    for (; i < text.size() && text[i] >= u'A' && text[i] <= u'Z'; ++i) {
        reference.column = reference.column * 26 + (text[i].unicode() - u'A' + 1);
        if (reference.column > kLastColumn) return std::nullopt;
    }
    const qsizetype letters = i;
    for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
        reference.row = reference.row * 10 + (text[i].unicode() - u'0');
        if (reference.row > kLastRow) return std::nullopt;
    }
    if (letters == 0 || i == letters || i != text.size() || reference.row == 0) return std::nullopt;
    return reference;
}

QString CellReference::ColumnLetters(int column) {
    QString letters;
    for (; column > 0; column = (column - 1) / 26)
        letters.prepend(QChar(u'A' + (column - 1) % 26));
    return letters;
}

} // namespace zlx::workbook
