#include "platform/workbook/WorkbookModule.h"

#include "platform/workbook/CellConversion.h"
#include "platform/workbook/SerialDate.h"
#include "platform/workbook/Workbook.h"
#include "platform/workbook/WorkbookError.h"

#include <QStringList>
#include <optional>
#include <sqlite3.h>

namespace zlx::workbook {

namespace {

const char* const kModuleName = "zlx_workbook";
const char* const kDeleteRefused = "Deleting data in a linked table is not supported by this ISAM.";
const char* const kReadOnly = "Cannot update. Database or object is read-only.";

struct SheetVtab : sqlite3_vtab {
    Workbook* workbook = nullptr;
    SheetTable* table = nullptr;
    std::optional<SheetTable::Snapshot> snapshot;
};

struct SheetCursor : sqlite3_vtab_cursor {
    int row = 0;
};

SheetVtab* Vtab(sqlite3_vtab* vtab) {
    return static_cast<SheetVtab*>(vtab);
}

int Fail(sqlite3_vtab* vtab, const QString& message) {
    sqlite3_free(vtab->zErrMsg);
    vtab->zErrMsg = sqlite3_mprintf("%s", message.toUtf8().constData());
    return SQLITE_ERROR;
}

QString Quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString DeclaredType(const TableColumn& column) {
    switch (column.type) {
    case CellValue::Kind::Number:
        return QStringLiteral("FLOAT");
    case CellValue::Kind::Date:
        return QStringLiteral("DATETIME");
    case CellValue::Kind::Boolean:
        return QStringLiteral("BIT");
    default:
        return column.longText ? QStringLiteral("NTEXT") : QStringLiteral("NVARCHAR(255)");
    }
}

int Connect(sqlite3* db, void* aux, int argc, const char* const* argv, sqlite3_vtab** out,
            char** error) {
    Workbook* workbook = static_cast<std::unique_ptr<Workbook>*>(aux)->get();
    const int index = argc > 3 ? QByteArray(argv[3]).toInt() : -1;
    if (index < 0 || index >= static_cast<int>(workbook->Tables().size())) {
        *error = sqlite3_mprintf("no such sheet");
        return SQLITE_ERROR;
    }
    SheetTable& table = workbook->Tables()[static_cast<std::size_t>(index)];
    QStringList columns;
    for (const TableColumn& column : table.Columns())
        columns << Quoted(column.name) + u' ' + DeclaredType(column);
    const QByteArray schema =
        (QStringLiteral("CREATE TABLE x(") + columns.join(QStringLiteral(", ")) + u')').toUtf8();
    if (const int code = sqlite3_declare_vtab(db, schema.constData()); code != SQLITE_OK)
        return code;
    auto* vtab = new SheetVtab();
    vtab->workbook = workbook;
    vtab->table = &table;
    *out = vtab;
    return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* vtab) {
    delete Vtab(vtab);
    return SQLITE_OK;
}

int BestIndex(sqlite3_vtab* vtab, sqlite3_index_info* info) {
    info->estimatedCost = 1.0 + Vtab(vtab)->table->RowCount();
    info->estimatedRows = Vtab(vtab)->table->RowCount();
    return SQLITE_OK;
}

int Open(sqlite3_vtab*, sqlite3_vtab_cursor** out) {
    *out = new SheetCursor();
    return SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
    delete static_cast<SheetCursor*>(cursor);
    return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value**) {
    static_cast<SheetCursor*>(cursor)->row = 0;
    return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
    ++static_cast<SheetCursor*>(cursor)->row;
    return SQLITE_OK;
}

int Eof(sqlite3_vtab_cursor* cursor) {
    auto* sheetCursor = static_cast<SheetCursor*>(cursor);
    return sheetCursor->row >= Vtab(cursor->pVtab)->table->RowCount();
}

void SetResult(sqlite3_context* context, const CellValue& value) {
    switch (value.kind) {
    case CellValue::Kind::Empty:
        sqlite3_result_null(context);
        break;
    case CellValue::Kind::Number:
        sqlite3_result_double(context, value.number);
        break;
    case CellValue::Kind::Boolean:
        sqlite3_result_int(context, value.number != 0 ? 1 : 0);
        break;
    case CellValue::Kind::Date:
    case CellValue::Kind::Text: {
        const QByteArray text = CellConversion::AsText(value).toUtf8();
        sqlite3_result_text(context, text.constData(), static_cast<int>(text.size()),
                            SQLITE_TRANSIENT);
        break;
    }
    }
}

int Column(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    const int row = static_cast<SheetCursor*>(cursor)->row;
    SetResult(context, Vtab(cursor->pVtab)->table->Value(row, column));
    return SQLITE_OK;
}

int Rowid(sqlite3_vtab_cursor* cursor, sqlite3_int64* rowid) {
    *rowid = static_cast<SheetCursor*>(cursor)->row + 1;
    return SQLITE_OK;
}

CellValue FromSqlite(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        return CellValue::Number(sqlite3_value_double(value));
    case SQLITE_TEXT:
    case SQLITE_BLOB:
        return CellValue::Text(QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_value_text(value)), sqlite3_value_bytes(value)));
    default:
        return CellValue{};
    }
}

// Writes one record's values; a column whose value is what the record already reads is left
// alone, so that an UPDATE of one column does not rewrite (or clear) the others.
void StoreRecord(SheetTable& table, int row, sqlite3_value** values) {
    const auto& columns = table.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const CellValue given = FromSqlite(values[i]);
        CellValue typed = CellConversion::To(columns[i].type, given);
        if (typed.IsEmpty() && !given.IsEmpty()) typed = given; // kept as the caller wrote it
        if (typed.SameValue(table.Value(row, static_cast<int>(i)))) continue;
        table.Set(row, static_cast<int>(i), typed);
    }
}

int Update(sqlite3_vtab* vtab, int argc, sqlite3_value** argv, sqlite3_int64* rowid) {
    SheetVtab* sheet = Vtab(vtab);
    if (sheet->workbook->ReadOnly()) return Fail(vtab, QString::fromUtf8(kReadOnly));
    if (argc == 1) return Fail(vtab, QString::fromUtf8(kDeleteRefused));
    SheetTable& table = *sheet->table;
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        const int row = table.AppendRow();
        StoreRecord(table, row, argv + 2);
        *rowid = row + 1;
        return SQLITE_OK;
    }
    const sqlite3_int64 row = sqlite3_value_int64(argv[0]) - 1;
    if (sqlite3_value_int64(argv[1]) != row + 1 || row < 0 || row >= table.RowCount())
        return Fail(vtab, QStringLiteral("A record of a sheet cannot change its position."));
    StoreRecord(table, static_cast<int>(row), argv + 2);
    return SQLITE_OK;
}

int Begin(sqlite3_vtab* vtab) {
    Vtab(vtab)->snapshot = Vtab(vtab)->table->Save();
    return SQLITE_OK;
}

int Sync(sqlite3_vtab* vtab) {
    try {
        Vtab(vtab)->workbook->Save();
        return SQLITE_OK;
    } catch (const WorkbookError& error) {
        return Fail(vtab, error.Message());
    }
}

int Commit(sqlite3_vtab* vtab) {
    Vtab(vtab)->snapshot.reset();
    return SQLITE_OK;
}

int Rollback(sqlite3_vtab* vtab) {
    SheetVtab* sheet = Vtab(vtab);
    if (sheet->snapshot) sheet->table->Restore(*sheet->snapshot);
    sheet->snapshot.reset();
    return SQLITE_OK;
}

sqlite3_module MakeModule() {
    sqlite3_module module{};
    module.iVersion = 1;
    module.xCreate = Connect;
    module.xConnect = Connect;
    module.xBestIndex = BestIndex;
    module.xDisconnect = Disconnect;
    module.xDestroy = Disconnect;
    module.xOpen = Open;
    module.xClose = Close;
    module.xFilter = Filter;
    module.xNext = Next;
    module.xEof = Eof;
    module.xColumn = Column;
    module.xRowid = Rowid;
    module.xUpdate = Update;
    module.xBegin = Begin;
    module.xSync = Sync;
    module.xCommit = Commit;
    module.xRollback = Rollback;
    return module;
}

} // namespace

int WorkbookModule::Register(sqlite3* db, std::unique_ptr<Workbook>& current) {
    static const sqlite3_module module = MakeModule();
    return sqlite3_create_module(db, kModuleName, &module, &current);
}

int WorkbookModule::CreateTables(sqlite3* db, Workbook& workbook) {
    int code = SQLITE_OK;
    for (std::size_t i = 0; code == SQLITE_OK && i < workbook.Tables().size(); ++i) {
        const QByteArray sql =
            QStringLiteral("CREATE VIRTUAL TABLE %1 USING %2(%3)")
                .arg(Quoted(workbook.Tables()[i].Name() + u'$'), QString::fromUtf8(kModuleName))
                .arg(i)
                .toUtf8();
        code = sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr);
    }
    return code;
}

int WorkbookModule::DropTables(sqlite3* db, Workbook& workbook) {
    int code = SQLITE_OK;
    for (std::size_t i = 0; code == SQLITE_OK && i < workbook.Tables().size(); ++i) {
        const QByteArray sql =
            (QStringLiteral("DROP TABLE ") + Quoted(workbook.Tables()[i].Name() + u'$')).toUtf8();
        code = sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr);
    }
    return code;
}

} // namespace zlx::workbook
