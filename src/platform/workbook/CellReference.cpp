#include "platform/workbook/CellReference.h"

namespace zlx::workbook {

std::optional<CellReference> CellReference::Parse(QStringView text) {
    CellReference reference;
    qsizetype i = 0;
    for (; i < text.size() && text[i].isLetter(); ++i)
        reference.column = reference.column * 26 + (text[i].toUpper().unicode() - u'A' + 1);
    const qsizetype letters = i;
    for (; i < text.size() && text[i].isDigit(); ++i)
        reference.row = reference.row * 10 + text[i].digitValue();
    if (letters == 0 || i == letters || i != text.size()) return std::nullopt;
    return reference;
}

QString CellReference::ColumnLetters(int column) {
    QString letters;
    for (; column > 0; column = (column - 1) / 26)
        letters.prepend(QChar(u'A' + (column - 1) % 26));
    return letters;
}

} // namespace zlx::workbook
