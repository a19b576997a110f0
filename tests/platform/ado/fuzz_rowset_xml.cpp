// libFuzzer target: arbitrary bytes read as an XML rowset file.

#include "platform/engines/AdoError.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/RecordsetXml.h"

#include <QBuffer>
#include <cstddef>
#include <cstdint>

using namespace zlx::ado;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Recordset rs;
    try {
        RecordsetXml::Read(rs, buffer);
        rs.GetRows();
    } catch (const AdoError&) {
    }
    return 0;
}
