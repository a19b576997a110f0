#pragma once
// The table descriptor interface: the field descriptors of one table, its record cursor and
// the shared context. Application classes implement it; the library's own operations here
// do nothing and answer the empty value of their type.

#include "binding/I_DAV.h"
#include "frame/cGlobales.h"

#include <vector>

namespace zlx {

class cFichaDB;
using cFichaDBPtr = std::shared_ptr<cFichaDB>;

class I_TAV : public Object {
public:
    QString TypeName() const override { return QStringLiteral("I_TAV"); }

    virtual bool Configure(cGlobalesPtr /*oGlobalesActual*/,
                           ObjectPtr /*oAppGlobalActual*/ = nullptr,
                           const QString& /*cTabla*/ = QString(), bool /*lCrear*/ = false) {
        return false;
    }
    virtual std::vector<I_DAVPtr> EnumerateDAVs() { return {}; }
    virtual I_DAVPtr Str2DAV(const QString& /*cCampo*/) { return nullptr; }
    virtual QString Name() const { return {}; }
    virtual std::int32_t SeekID(std::int32_t /*nID*/) { return 0; }
    // The default member: the value of a field of the current record.
    virtual Variant Field(const QString& /*cFieldName*/) { return {}; }
    virtual cFichaDBPtr FichaDB() const { return nullptr; }
    virtual cGlobalesPtr Globales() const { return nullptr; }
};

using I_TAVPtr = std::shared_ptr<I_TAV>;

} // namespace zlx
