#pragma once
// One column of a Recordset: its definition (name, type, sizes, attributes), its dynamic
// properties ("Optimize" builds an index used by Find and Filter) and the value it holds on
// the recordset's current record.

#include "platform/ado/Properties.h"
#include "platform/engines/AdoConstants.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <cstdint>

namespace zlx::ado {

class Recordset;

// The definition of a field as Fields.Append or a driver's column metadata gives it.
struct FieldDefinition {
    QString name;
    DataTypeEnum type = adVarWChar;
    std::int32_t definedSize = 0;
    std::uint8_t precision = 0;
    std::uint8_t numericScale = 0;
    std::int32_t attributes = adFldUnspecified;
    QString baseTable;
    QString baseColumn;
    bool keyColumn = false;
    std::uint32_t baseTableId = 0; // the engine's ids, until the names are known
    std::int32_t baseColumnNumber = 0;
    bool autoIncrement = false;
};

class Field {
public:
    Field(Recordset& owner, int index, FieldDefinition definition);
    // The definition as a field keeps it: the sizes of the fixed-size types and the default
    // attributes filled in.
    static FieldDefinition Completed(FieldDefinition definition);
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;

    const QString& Name() const { return m_def.name; }
    DataTypeEnum Type() const { return m_def.type; }
    std::int32_t DefinedSize() const { return m_def.definedSize; }
    std::uint8_t Precision() const { return m_def.precision; }
    std::uint8_t NumericScale() const { return m_def.numericScale; }
    std::int32_t Attributes() const { return m_def.attributes; }
    // Precision and scale can be set while the recordset is closed (a column being defined).
    void SetPrecision(std::uint8_t precision);
    void SetNumericScale(std::uint8_t scale);
    const FieldDefinition& Definition() const { return m_def; }
    // The base table, column and key flag once the engine has named them.
    void SetBaseColumn(const QString& table, const QString& column, bool key);
    int Index() const { return m_index; }

    // The value on the current record; raise 3021 without a current record.
    Variant Value() const;
    void SetValue(const Variant& value);
    // The value the record had when it was read (before this session's changes).
    Variant OriginalValue() const;
    // Characters of a text value, bytes of a fixed-size type, 0 for Null.
    std::int32_t ActualSize() const;
    // Long fields only (3251 otherwise). AppendChunk adds text or bytes to the value being
    // written, the first call of an edit replacing it; GetChunk reads the current value
    // piece by piece from where the last call stopped (Null once it is all read).
    void AppendChunk(const Variant& data);
    Variant GetChunk(std::int32_t length);

    Properties& GetProperties() { return m_properties; }
    const Properties& GetProperties() const { return m_properties; }

private:
    Recordset& m_owner;
    int m_index;
    FieldDefinition m_def;
    Properties m_properties;
    Variant m_chunkRecord; // the record GetChunk is reading, and how far
    std::int32_t m_chunkOffset = 0;
};

} // namespace zlx::ado
