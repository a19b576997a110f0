// libFuzzer target: arbitrary Filter criteria against a small recordset.

#include "platform/engines/AdoError.h"
#include "platform/ado/Recordset.h"

#include <cstddef>
#include <cstdint>

using namespace zlx;
using namespace zlx::ado;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Recordset* rs = [] {
        auto* r = new Recordset();
        r->GetFields().Append("nombre", adVarWChar, 40);
        r->GetFields().Append("codigo", adInteger);
        r->GetFields().Append("fecha", adDate);
        r->GetFields().Append("importe", adNumeric);
        r->Open();
        r->AddNew();
        r->Update();
        return r;
    }();
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        rs->SetFilter(Variant(text));
        rs->RecordCount();
    } catch (const AdoError&) {
    }
    try {
        rs->Find(text, 0, adSearchForward, Variant(std::int32_t(adBookmarkFirst)));
    } catch (const AdoError&) {
    }
    return 0;
}
