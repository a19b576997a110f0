#pragma once
// Which cell styles of an .xlsx show their number as a date: a sheet stores a date as a
// serial day number, and only the number format of the cell's style tells it apart.

#include <QByteArray>
#include <QString>
#include <vector>

namespace zlx::workbook {

class XlsxStyles {
public:
    XlsxStyles() = default;
    // Reads styles.xml; an empty text means no styles (every number is a number).
    explicit XlsxStyles(const QByteArray& stylesXml);

    bool IsDateStyle(int style) const;
    // A number format shows a date when it is one of the built-in date formats or its code
    // has day, month, year or time parts outside quoted text and [..] sections.
    static bool IsDateFormat(int formatId, const QString& code);

private:
    std::vector<bool> m_dateStyles; // by cellXfs index
};

} // namespace zlx::workbook
