#pragma once
// An open DBF table: its layout, its records by number, its fields' values. The file is held
// exclusively (see DbfFile); its memo file, when it has one, is read beside it. No messages
// here: failures come back as results and Spanish texts for the layer above to report.

#include "platform/dbfformat/DbfCodePage.h"
#include "platform/dbfformat/DbfFieldCodec.h"
#include "platform/dbfformat/DbfFile.h"
#include "platform/dbfformat/DbfLayout.h"
#include "platform/dbfformat/DbfMemoFile.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <cstdint>
#include <vector>

namespace zlx {

class DbfTable {
public:
    // Creates an empty table with these fields, replacing any file at `path`; false (and no
    // file left) when it cannot be written.
    static bool Create(const QString& path, const std::vector<DbfFieldDefinition>& fields);

    // Opens the table. `codePage` 0 reads text in the page the header names (Windows-1252
    // when it names none). False when it cannot be opened or read; `refusal` then says why
    // when the file is one that cannot be read right, and stays empty when it is missing,
    // short or held by another. `shared` opens it beside other shared holders (see DbfFile).
    bool Open(const QString& path, int codePage, QString& refusal, bool shared = false);
    void Close();
    bool IsOpen() const { return m_file.IsOpen(); }

    const DbfLayout& Layout() const { return m_layout; }
    std::uint32_t RecordCount() const { return m_layout.RecordCount(); }
    std::uint32_t RecordLength() const { return m_layout.recordLength; }
    const DbfCodePage& CodePage() const { return m_codePage; }
    // Reads and writes text in another page from now on; false when it is not available.
    bool UseCodePage(int number);

    // The field named so, or else the one whose name differs only in case; null when none.
    const DbfField* FindField(const QString& name) const;

    // Whole records of RecordLength() bytes. Reads go ahead by a block, so a scan costs one
    // read per block. WriteRecord takes the next row after the last one to append.
    bool ReadRecord(std::uint32_t row, char* record);
    // The records from `row` on where they stand in the read-ahead block, RecordLength()
    // bytes apart, valid until the next read: `available` (at least one) of them. Null when
    // `row` cannot be read.
    const char* RecordsFrom(std::uint32_t row, std::uint32_t& available);
    bool WriteRecord(std::uint32_t row, const char* record);
    void SetRecordCount(std::uint32_t count) { m_layout.SetRecordCount(count); }
    // The 32 header bytes back to the file (the record count).
    bool WriteHeader();
    // The 32 header bytes again from the file, as another holder of a shared file left them.
    bool ReadHeader();
    int Handle() const { return m_file.Handle(); }
    // A new record: blanks, and zeros in the binary fields.
    void BlankRecord(char* record) const;

    // A field's value in a record. When it cannot be read (its memo file is missing or does
    // not hold the block) the value is Null and `problem` says why.
    Variant Value(const DbfField& field, const char* record, QString& problem) const;
    // As Value, a text field being decoded into `text` (see DbfFieldCodec::DecodeReusing), so
    // that reading the same field record after record does not allocate.
    Variant ValueReusing(const DbfField& field, const char* record, QString& problem,
                         QString& text) const;
    // True when the field's own bytes are its whole value (no null or length flag, no memo):
    // DbfFieldCodec::DecodePlain may then read them at the field's offset and length.
    bool StandsAlone(const DbfField& field) const;
    // As ValueReusing without a Variant, for the values DbfFieldCodec::DecodePlain reads (and
    // Nulls); false for the others (memos, binary fields, numbers that are not plain).
    bool PlainValue(const DbfField& field, const char* record, QString& text,
                    DbfFieldCodec::PlainValue& value) const;
    // Writes the value into a character, numeric, date or logical field of the record; false
    // (the record untouched) when it does not fit or the field is of another type.
    bool SetValue(const DbfField& field, char* record, const Variant& value) const;

private:
    bool IsNullIn(const DbfField& field, const char* record) const;
    std::size_t ValueLength(const DbfField& field, const char* record) const;
    void SetNullIn(const DbfField& field, char* record, bool isNull) const;
    bool FlagIn(int bit, const char* record) const;
    Variant MemoValue(const DbfField& field, const char* bytes, QString& problem) const;
    void OpenMemoFile(const QString& path);

    DbfFile m_file;
    DbfLayout m_layout;
    DbfCodePage m_codePage;
    QString m_path;
    DbfMemoFile m_memo;
    std::vector<char> m_readAhead;
    std::uint32_t m_readAheadFirst = 0;
    std::uint32_t m_readAheadRows = 0;
};

} // namespace zlx
