#include "platform/dbfengine/FieldWriter.h"

#include "platform/dbfformat/DbfBinaryFields.h"
#include "platform/dbfformat/DbfMemoWriter.h"

#include <cstring>

namespace zlx::dbfengine {

namespace {

// The block number of a memo as its field stores it: four binary bytes in Visual FoxPro,
// ten right-aligned digits elsewhere; 0 leaves the field empty.
void PutMemoBlock(std::uint32_t block, char* bytes, std::uint32_t length) {
    if (length == 4) {
        for (int i = 0; i < 4; ++i, block >>= 8)
            bytes[i] = static_cast<char>(block & 0xff);
        return;
    }
    std::memset(bytes, ' ', length);
    if (block == 0) return;
    const QByteArray digits = QByteArray::number(block).rightJustified(length, ' ', true);
    std::memcpy(bytes, digits.constData(), length);
}

} // namespace

bool WriteField(const DbfTable& table, const QString& memoPath, const DbfField& field, char* record,
                const Variant& value) {
    const DbfLayout& layout = table.Layout();
    if (DbfBinaryFields::Handles(field.type) && (field.type != 'B' || layout.visualFoxPro))
        return DbfBinaryFields::Encode(field.type, value, record + field.offset, field.length);
    // Text that is no date does not go into a date field.
    if ((field.type == 'D' || field.type == 'T') && value.VarType() == vbString) return false;
    // A number in a character field is its text, as a person writes it.
    if (field.type == 'C' && value.IsNumber())
        return table.SetValue(field, record, Variant(value.ToInvariantString()));
    if (!layout.IsMemo(field)) return table.SetValue(field, record, value);
    std::uint32_t block = 0;
    const QString text = value.IsNull() || value.IsEmpty() ? QString() : value.ToString();
    if (!text.isEmpty()) {
        block = DbfMemoWriter(memoPath).Append(table.CodePage().Encode(text));
        if (block == 0) return false;
    }
    PutMemoBlock(block, record + field.offset, field.length);
    return true;
}

} // namespace zlx::dbfengine
