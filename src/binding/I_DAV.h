#pragma once
// The field descriptor interface: what one column of an application table is (name, column
// type, size, edit mask, index, current value) and how to set up the edit control that shows
// it. Application classes implement it; the library's own operations here do nothing and
// answer the empty value of their type.

#include "platform/variant/Variant.h"

class QObject;

namespace zlx {

class I_DAV : public Object {
public:
    QString TypeName() const override { return QStringLiteral("I_DAV"); }

    virtual QString Name() const { return {}; }
    virtual std::int32_t Width() const { return 0; }
    // A zlxTblColumnType value.
    virtual std::int32_t DataType() const { return 0; }
    virtual bool Indexed() const { return false; }
    virtual Variant Value() const { return {}; }
    virtual void Value(const Variant&) {}
    virtual QString Mask() const { return {}; }
    // Sets up the edit control (a "get" text box) that shows the column.
    virtual void ConfigureControl(QObject*) {}
};

using I_DAVPtr = std::shared_ptr<I_DAV>;

} // namespace zlx
