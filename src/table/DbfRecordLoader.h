#pragma once
// The records of an open DBF table appended to the recordset being loaded from it (after
// Recordset::BeginLoading), one column per field given, in order. When every field has a
// DbfColumnLoader the records go in a read block at a time, column by column, straight from
// the block; otherwise, and for a record holding a value only the general reading takes,
// record by record: each value read without a Variant where it can be, and through one where
// it cannot (memos, binary fields, numbers with exponents).

#include "platform/ado/Recordset.h"
#include "platform/dbfformat/DbfTable.h"
#include "table/DbfColumnLoader.h"

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace zlx {

class DbfRecordLoader {
public:
    DbfRecordLoader(DbfTable& dbf, ado::Recordset& rs) : m_dbf(dbf), m_rs(rs) {}

    // The next field, loaded into the recordset's next column, of type `columnType` (a table
    // column type: a logical goes into an I1 column as 1 or 0).
    void AddField(const DbfField& field, std::int32_t columnType);
    // Loads every record, counting in `tally` each one read. Answers the message of the
    // failure that ended the load (a record or a memo that cannot be read), empty when none:
    // the records before it stay loaded, one whose memo cannot be read with the fields before
    // that memo. Throws what the recordset throws, the record being added keeping the fields
    // stored before.
    QString LoadAll(std::int32_t& tally);

private:
    struct LoadedField {
        const DbfField* field = nullptr;
        std::int32_t type = 0;
        bool standsAlone = false; // its bytes are its whole value (see DbfTable::StandsAlone)
        ado::ColumnStore* column = nullptr;
        std::optional<DbfColumnLoader> runs;
        QString text; // the field's text buffer, reused record after record
        DbfFieldCodec::PlainValue plain;
        bool isPlain = false; // `plain` holds this record's value
        Variant value;        // this record's value, when only a Variant reads it
    };

    std::size_t LoadRun(const char* records, std::size_t count);
    QString LoadRecord(const char* record);
    bool ReadPlain(const char* record, LoadedField& loaded) const;
    Variant VariantOf(const char* record, LoadedField& loaded, QString& problem) const;
    void AppendRecord(const char* record);
    QString FailRecord(const char* record, std::size_t failed, const QString& problem);
    void AddStored(std::size_t more = 0);

    DbfTable& m_dbf;
    ado::Recordset& m_rs;
    std::vector<LoadedField> m_fields;
    std::size_t m_stored = 0; // records appended to the columns, not yet added
};

} // namespace zlx
