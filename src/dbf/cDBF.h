#pragma once
// cDBF: reads, creates and appends to dBASE table files (.dbf) byte by byte, one record in
// memory at a time (RAW mode). The byte layout is platform/dbfformat's; this class keeps the
// current record, the insertion state and the library's way of reporting errors.

#include "connection/cConexion.h"
#include "platform/dbfformat/DbfTable.h"
#include "platform/variant/Variant.h"

#include <QString>
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

    // The Visual FoxPro connection of ODBC mode: Nothing until OpenODBC opens one.
    cConexionPtr oCnFox() const { return m_cnFox; }
    void oCnFox(cConexionPtr value) { m_cnFox = std::move(value); }

    bool OpenRaw(const QString& cRutaFicheroDBF);
    // Opens the file through the Visual FoxPro provider; reports and fails while the provider
    // cannot open it.
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

    std::uint32_t RecordCount() const { return m_table.RecordCount(); }
    std::int32_t FieldCount() const {
        return static_cast<std::int32_t>(m_table.Layout().fields.size());
    }
    // The descriptor as stored: a character field longer than 255 keeps the high byte of its
    // length in nDecimalPlaces.
    DBF_FieldInfo_Type GetFieldInfo(std::int32_t nField) const;
    std::uint8_t Version() const { return m_table.Layout().Version(); }
    QString Path() const { return m_path; }

    // The code page text is read and written in: 0 (the default) follows the file's
    // language-driver byte (Windows-1252 when it names none); another number names the page
    // for files whose byte is missing or wrong. It holds for the files opened afterwards and
    // for the one open now; CodePage() answers the page in use.
    std::int32_t CodePage() const;
    void CodePage(std::int32_t nCodePage);

    std::int32_t CurrentRow() const { return static_cast<std::int32_t>(m_currentRow); }
    void CurrentRow(std::int64_t n);

    Variant Field(const QString& cCampo);
    void Field(const QString& cCampo, const Variant& value);

    void BeginInsert();
    bool EndInsert();
    void FlushRecord();
    void Commit();

    bool ShowErrors() const { return m_showErrors; }
    void ShowErrors(bool show) { m_showErrors = show; }
    QString GetLastErrorMsg(QString* cErrorTitle = nullptr) const;
    void ClearErrors();

private:
    struct ColumnDefinition {
        QString name;
        char type;
        std::uint8_t length;
        std::uint8_t decimals;
    };

    // A field as it is read: its descriptor, whether its bytes decode on their own (no null
    // or length flag, no memo), and its last text, whose buffer the next read reuses once the
    // caller has let the value go.
    struct FieldReader {
        const DbfField* field = nullptr;
        bool plain = false;
        QString text;
    };

    bool ReadRecord(std::uint32_t row);
    void PrepareReaders();
    FieldReader* FindReader(const QString& name);
    void Report(const QString& message, const QString& title);

    cConexionPtr m_cnFox;
    QString m_path;
    std::vector<ColumnDefinition> m_columns;
    bool m_creating = false;
    DbfTable m_table;
    std::vector<char> m_record;
    std::int32_t m_namedCodePage = 0;
    std::vector<FieldReader> m_readers; // one per field, in order
    // Names already looked up and the number of their reader; the next name is looked for
    // first after the last one found.
    static constexpr std::size_t kFoundFieldsKept = 32;
    std::vector<std::pair<QString, std::size_t>> m_foundFields;
    std::size_t m_nextFound = 0;
    std::uint32_t m_currentRow = 0;
    bool m_showErrors = true;
    bool m_inserting = false;
    bool m_headerChanged = false;
    bool m_recordChanged = false;
    QString m_lastErrorMsg;
    QString m_lastErrorTitle;
};

using cDBFPtr = std::shared_ptr<cDBF>;

} // namespace zlx
