#include "platform/variant/DateLiteral.h"

namespace zlx {

QString ServerDateLiteral(Date d) {
    int y, m, day, h, n, s;
    SplitDate(d, y, m, day, h, n, s);
    return QStringLiteral("'%1%2%3 %4:%5:%6'")
        .arg(y, 4, 10, QChar(u'0'))
        .arg(m, 2, 10, QChar(u'0'))
        .arg(day, 2, 10, QChar(u'0'))
        .arg(h, 2, 10, QChar(u'0'))
        .arg(n, 2, 10, QChar(u'0'))
        .arg(s, 2, 10, QChar(u'0'));
}

} // namespace zlx
