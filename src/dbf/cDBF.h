#pragma once
// cDBF: reads, creates and appends to dBASE table files (.dbf) byte by byte, one record in
// memory at a time (RAW mode).

#include "dbf/DbfFile.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace zlx {

class cDatos;

struct DBF_FieldInfo_Type {
    QString cFieldName;
    QString cDataType;
    std::uint8_t nFieldLength = 0;
    std::uint8_t nDecimalPlaces = 0;
};

class cDBF : public Object {
public:
    cDBF();
    ~cDBF() override;
    QString TypeName() const override { return QStringLiteral("cDBF"); }

    bool OpenRaw(const QString& cRutaFicheroDBF);
    // The Visual FoxPro provider is not available on this platform: always reports and fails.
    bool OpenODBC(const QString& cRutaFicheroDBF);
    void CloseDBF();
    // Statements need the FoxPro connection; without one the default value comes back.
    Variant Execute(const QString& cInstruccion, std::int32_t nTipoRet = 1,
                    const Variant& xDefaultValue = std::int32_t(0), bool lHideError = false);

    bool BeginCreateDBF(const QString& cRutaFicheroDBF);
    void CreateColumn(const QString& cName, QString& cType, std::int32_t nSize = 0,
                      std::int32_t nDecimales = 0);
    bool EndCreateDBF();
    // A file with one field per column of the table (the columns DBF cannot hold are left
    // out) and, with lCopyData, its rows. The file stays open.
    bool CreateFromDatos(const QString& cFileName, cDatos& oDatos, bool lCopyData = true);

    std::uint32_t RecordCount() const;
    std::int32_t FieldCount() const { return static_cast<std::int32_t>(m_fields.size()); }
    DBF_FieldInfo_Type GetFieldInfo(std::int32_t nField) const;
    std::uint8_t Version() const { return m_header[0]; }
    QString Path() const { return m_path; }

    std::int32_t CurrentRow() const { return static_cast<std::int32_t>(m_currentRow); }
    void SetCurrentRow(std::int64_t n);

    Variant Field(const QString& cCampo);
    void SetField(const QString& cCampo, const Variant& value);

    void BeginInsert();
    bool EndInsert();
    void FlushRecord();
    void Commit();

    bool ShowErrors() const { return m_showErrors; }
    void SetShowErrors(bool show) { m_showErrors = show; }
    QString GetLastErrorMsg(QString* cErrorTitle = nullptr) const;
    void ClearErrors();

private:
    struct FieldDescriptor {
        std::array<char, 11> name{};
        char type = 'C';
        std::uint32_t offset = 0;
        std::uint8_t length = 0;
        std::uint8_t decimals = 0;
    };
    struct ColumnDefinition {
        QString name;
        char type;
        std::uint8_t length;
        std::uint8_t decimals;
    };

    std::uint16_t HeaderLength() const;
    std::uint16_t RecordLength() const;
    void SetRecordCount(std::uint32_t count);
    std::uint64_t RecordPosition(std::uint32_t row) const;
    bool ReadRecord(std::uint32_t row);
    void InvalidateReadAhead() { m_readAheadRows = 0; }
    const FieldDescriptor* FindField(const QString& name) const;
    const FieldDescriptor* LookUpField(const QString& name) const;
    Variant ReadValue(const FieldDescriptor& field) const;
    void Report(const QString& message, const QString& title);

    QString m_path;
    std::vector<ColumnDefinition> m_columns;
    bool m_creating = false;
    DbfFile m_file;
    std::vector<char> m_record;
    std::array<std::uint8_t, 32> m_header{};
    std::vector<FieldDescriptor> m_fields;
    static constexpr std::size_t kFoundFieldsKept = 32;
    mutable std::vector<std::pair<QString, const FieldDescriptor*>> m_foundFields;
    std::uint32_t m_currentRow = 0;
    bool m_showErrors = true;
    bool m_inserting = false;
    bool m_headerChanged = false;
    bool m_recordChanged = false;
    QString m_lastErrorMsg;
    QString m_lastErrorTitle;
    // Records read in one block ahead of the current one, so a sequential scan costs one
    // read per block instead of one per record.
    std::vector<char> m_readAhead;
    std::uint32_t m_readAheadFirst = 0;
    std::uint32_t m_readAheadRows = 0;
};

using cDBFPtr = std::shared_ptr<cDBF>;

} // namespace zlx
