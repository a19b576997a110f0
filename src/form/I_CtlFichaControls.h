#pragma once
// The form's own controls (edit boxes, option groups, the identity box) as the record form's
// logic touches them: whether they can take the focus, giving it, their names, and the text
// of the identity box.

#include <QString>

class QObject;

namespace zlx {

class I_CtlFichaControls {
public:
    virtual ~I_CtlFichaControls() = default;

    virtual bool Enabled(QObject* oCtl) const = 0;
    virtual void Enabled(QObject* oCtl, bool value) = 0;
    virtual bool Visible(QObject* oCtl) const = 0;
    virtual void Visible(QObject* oCtl, bool value) = 0;
    virtual QString Name(QObject* oCtl) const = 0;
    virtual void SetFocus(QObject* oCtl) = 0;
    virtual void SetText(QObject* oCtl, const QString& cText) = 0;
};

} // namespace zlx
