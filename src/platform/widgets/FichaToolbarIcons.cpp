#include "platform/widgets/FichaToolbarIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace zlx {

namespace {

constexpr int kSize = 32; // drawn large, scaled down by the button

const QColor kArrow(0x2f, 0x5d, 0x9e);
const QColor kOutline(0x40, 0x40, 0x40);

void Triangle(QPainter& p, bool pointsLeft, qreal x) {
    QPainterPath path;
    if (pointsLeft) {
        path.moveTo(x, 16);
        path.lineTo(x + 11, 6);
        path.lineTo(x + 11, 26);
    } else {
        path.moveTo(x + 11, 16);
        path.lineTo(x, 6);
        path.lineTo(x, 26);
    }
    path.closeSubpath();
    p.fillPath(path, kArrow);
}

void DrawMove(QPainter& p, int nImage) {
    switch (nImage) {
    case 201: // first: a bar and a triangle pointing left
        p.fillRect(QRectF(6, 6, 4, 20), kArrow);
        Triangle(p, true, 12);
        break;
    case 202:
        Triangle(p, true, 10);
        break;
    case 203:
        Triangle(p, false, 11);
        break;
    default: // last
        Triangle(p, false, 9);
        p.fillRect(QRectF(22, 6, 4, 20), kArrow);
        break;
    }
}

// A sheet of paper with a folded corner.
void Sheet(QPainter& p) {
    QPainterPath sheet;
    sheet.moveTo(6, 3);
    sheet.lineTo(20, 3);
    sheet.lineTo(26, 9);
    sheet.lineTo(26, 29);
    sheet.lineTo(6, 29);
    sheet.closeSubpath();
    p.setPen(QPen(kOutline, 1.5));
    p.setBrush(Qt::white);
    p.drawPath(sheet);
    p.drawLine(QPointF(20, 3), QPointF(20, 9));
    p.drawLine(QPointF(20, 9), QPointF(26, 9));
}

void DrawNew(QPainter& p) {
    Sheet(p);
    p.setPen(QPen(QColor(0x2e, 0x8b, 0x3a), 4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(16, 13), QPointF(16, 25));
    p.drawLine(QPointF(10, 19), QPointF(22, 19));
}

void DrawEdit(QPainter& p) {
    Sheet(p);
    p.setPen(QPen(QColor(0xb8, 0x86, 0x0b), 5, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(12, 25), QPointF(27, 10));
    p.setPen(QPen(kOutline, 2));
    p.drawLine(QPointF(9, 28), QPointF(12, 25));
}

void DrawDelete(QPainter& p) {
    p.setPen(QPen(QColor(0xc0, 0x20, 0x20), 5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(8, 8), QPointF(24, 24));
    p.drawLine(QPointF(24, 8), QPointF(8, 24));
}

void DrawSearch(QPainter& p) {
    p.setPen(QPen(kOutline, 3));
    p.setBrush(QColor(0xd8, 0xea, 0xfa));
    p.drawEllipse(QPointF(13, 13), 8, 8);
    p.setPen(QPen(QColor(0x6b, 0x4a, 0x2b), 5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(19, 19), QPointF(27, 27));
}

void DrawComment(QPainter& p) {
    QPainterPath bubble;
    bubble.addRoundedRect(QRectF(4, 5, 24, 16), 5, 5);
    QPainterPath tail;
    tail.moveTo(9, 20);
    tail.lineTo(8, 28);
    tail.lineTo(16, 20);
    tail.closeSubpath();
    p.setPen(QPen(kOutline, 1.5));
    p.setBrush(QColor(0xff, 0xf4, 0xc2));
    p.drawPath(bubble.united(tail));
    p.setPen(QPen(kOutline, 1.5));
    p.drawLine(QPointF(9, 11), QPointF(23, 11));
    p.drawLine(QPointF(9, 15), QPointF(19, 15));
}

} // namespace

QIcon FichaToolbarIcons::Icon(int nImage) {
    if (nImage < 201 || nImage > 209) return {};
    QPixmap picture(kSize, kSize);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    switch (nImage) {
    case 205:
        DrawNew(p);
        break;
    case 206:
        DrawEdit(p);
        break;
    case 207:
        DrawDelete(p);
        break;
    case 208:
        DrawSearch(p);
        break;
    case 209:
        DrawComment(p);
        break;
    default:
        DrawMove(p, nImage);
        break;
    }
    p.end();
    return QIcon(picture);
}

} // namespace zlx
