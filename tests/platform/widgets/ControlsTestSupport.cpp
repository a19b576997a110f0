#include "ControlsTestSupport.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QPixmap>

void Type(QWidget* widget, const QString& text, bool enter) {
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &press);
    }
    if (enter) Press(widget, Qt::Key_Return);
}

void Press(QWidget* widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
}

QString SaveScreenshot(QWidget& widget, const QString& name) {
    const QString tmp = qEnvironmentVariable("ZLX_TEST_TMP", QDir::tempPath());
    QDir().mkpath(tmp);
    const QString path = tmp + u'/' + name + QStringLiteral(".png");
    widget.grab().save(path, "PNG");
    const QString docs = QStringLiteral(ZLX_SOURCE_DIR "/docs/screenshots");
    QDir().mkpath(docs);
    QFile::remove(docs + u'/' + name + QStringLiteral(".png"));
    QFile::copy(path, docs + u'/' + name + QStringLiteral(".png"));
    return path;
}
