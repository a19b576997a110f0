#pragma once
// Reads and writes a Recordset in ADO's XML persistence format: the rowset schema
// (s:Schema with one s:AttributeType per field and its s:datatype) followed by rs:data with
// one z:row per record, a missing attribute standing for Null.

#include <QIODevice>

namespace zlx::ado {

class Recordset;

class RecordsetXml {
public:
    // Writes the fields and every record that is not deleted (whatever the filter).
    static void Write(const Recordset& recordset, QIODevice& device);
    // Defines the fields and appends the records of `device` to a closed recordset and opens
    // it; a malformed document raises AdoError 3003 and leaves the recordset closed.
    static void Read(Recordset& recordset, QIODevice& device);
};

} // namespace zlx::ado
