#include "platform/dbfengine/DbfVirtualTable.h"

#include "platform/dbfengine/DbfSqlValue.h"
#include "platform/dbfengine/FolderTable.h"

#include <QStringList>
#include <algorithm>
#include <sqlite3.h>

namespace zlx::dbfengine {

struct DbfVirtualTable {
    sqlite3_vtab base{};
    DbfModule* module = nullptr;
    std::unique_ptr<FolderTable> table;
};

namespace {

struct Cursor {
    sqlite3_vtab_cursor base{};
    std::uint32_t row = 0;
    std::uint32_t last = 0;
    const char* record = nullptr;
};

DbfVirtualTable* TableOf(sqlite3_vtab* vtab) {
    return reinterpret_cast<DbfVirtualTable*>(vtab);
}
Cursor* CursorOf(sqlite3_vtab_cursor* cursor) {
    return reinterpret_cast<Cursor*>(cursor);
}
FolderTable& FileOf(sqlite3_vtab_cursor* cursor) {
    return *TableOf(cursor->pVtab)->table;
}

int Fail(sqlite3_vtab* vtab, const QString& message, int code = SQLITE_ERROR) {
    sqlite3_free(vtab->zErrMsg);
    vtab->zErrMsg = sqlite3_mprintf("%s", message.toUtf8().constData());
    return code;
}

bool OpenFile(sqlite3_vtab* vtab) {
    QString problem;
    if (TableOf(vtab)->table->Open(problem)) return true;
    Fail(vtab, problem);
    return false;
}

QString Unquoted(const char* argument) {
    QString text = QString::fromUtf8(argument).trimmed();
    if (text.size() >= 2 && text.front() == u'\'' && text.back() == u'\'')
        text = text.mid(1, text.size() - 2).replace(QStringLiteral("''"), QStringLiteral("'"));
    return text;
}

// The library's tables carry their key in ZolmarID: declared as the key, a recordset of the
// table can write its changes back by it.
QString Schema(const DbfLayout& layout, const std::vector<QString>& names) {
    QStringList columns;
    for (std::size_t i = 0; i < layout.fields.size(); ++i)
        columns << u'"' + names[i] + QStringLiteral("\" ") +
                       DeclaredTypeOf(layout, layout.fields[i]) +
                       (names[i] == u"zolmarid" ? QStringLiteral(" PRIMARY KEY") : QString());
    return QStringLiteral("CREATE TABLE x(") + columns.join(QStringLiteral(", ")) + u')';
}

int Connect(sqlite3* db, void* module, int argc, const char* const* argv, sqlite3_vtab** out,
            char** error) {
    if (argc < 4) {
        *error = sqlite3_mprintf("dbf: the table's file is missing");
        return SQLITE_ERROR;
    }
    auto table = std::make_unique<DbfVirtualTable>();
    table->module = static_cast<DbfModule*>(module);
    table->table = std::make_unique<FolderTable>(Unquoted(argv[3]));
    QString problem;
    if (!table->table->Open(problem)) {
        *error = sqlite3_mprintf("%s", problem.toUtf8().constData());
        return SQLITE_ERROR;
    }
    const QString schema = Schema(table->table->Layout(), ColumnNames(table->table->Layout()));
    table->table->Release();
    const int code = sqlite3_declare_vtab(db, schema.toUtf8().constData());
    if (code != SQLITE_OK) return code;
    table->module->Attach(table.get());
    *out = &table.release()->base;
    return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* vtab) {
    DbfVirtualTable* table = TableOf(vtab);
    table->module->Detach(table);
    delete table;
    return SQLITE_OK;
}

// A row asked for by record number (UPDATE and DELETE of a row found before) is read alone;
// anything else is a scan of the file, the filter left to SQLite.
int BestIndex(sqlite3_vtab*, sqlite3_index_info* info) {
    for (int i = 0; i < info->nConstraint; ++i) {
        const auto& constraint = info->aConstraint[i];
        if (constraint.usable && constraint.iColumn == -1 &&
            constraint.op == SQLITE_INDEX_CONSTRAINT_EQ) {
            info->aConstraintUsage[i].argvIndex = 1;
            info->aConstraintUsage[i].omit = 1;
            info->idxNum = 1;
            info->estimatedCost = 1;
            info->estimatedRows = 1;
            info->idxFlags = SQLITE_INDEX_SCAN_UNIQUE;
            return SQLITE_OK;
        }
    }
    info->idxNum = 0;
    info->estimatedCost = 1e6;
    return SQLITE_OK;
}

int OpenCursor(sqlite3_vtab* vtab, sqlite3_vtab_cursor** out) {
    if (!OpenFile(vtab)) return SQLITE_ERROR;
    *out = &(new Cursor)->base;
    return SQLITE_OK;
}

int CloseCursor(sqlite3_vtab_cursor* cursor) {
    delete CursorOf(cursor);
    return SQLITE_OK;
}

bool Skipped(sqlite3_vtab_cursor* cursor) {
    const Cursor* c = CursorOf(cursor);
    return c->record && TableOf(cursor->pVtab)->module->HidesDeleted() &&
           FolderTable::IsDeleted(c->record);
}

void Settle(sqlite3_vtab_cursor* cursor) {
    Cursor* c = CursorOf(cursor);
    for (;;) {
        c->record = c->row <= c->last ? FileOf(cursor).Record(c->row) : nullptr;
        if (!c->record) {
            c->row = c->last + 1;
            return;
        }
        if (!Skipped(cursor)) return;
        ++c->row;
    }
}

int Filter(sqlite3_vtab_cursor* cursor, int indexNumber, const char*, int argc,
           sqlite3_value** argv) {
    Cursor* c = CursorOf(cursor);
    const std::uint32_t count = FileOf(cursor).StartReading();
    c->row = 1;
    c->last = count;
    if (indexNumber == 1 && argc == 1) {
        const sqlite3_int64 wanted = sqlite3_value_int64(argv[0]);
        c->row = wanted >= 1 && wanted <= count ? static_cast<std::uint32_t>(wanted) : count + 1;
        c->last = std::min<std::uint32_t>(c->row, count);
    }
    Settle(cursor);
    return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
    ++CursorOf(cursor)->row;
    Settle(cursor);
    return SQLITE_OK;
}

int Eof(sqlite3_vtab_cursor* cursor) {
    return CursorOf(cursor)->record == nullptr;
}

int Column(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    const FolderTable& file = FileOf(cursor);
    const DbfField& field = file.Layout().fields[static_cast<std::size_t>(column)];
    QString problem;
    ResultOf(file, field, CursorOf(cursor)->record, context, problem);
    if (!problem.isEmpty()) {
        sqlite3_result_error(context, problem.toUtf8().constData(), -1);
        return SQLITE_ERROR;
    }
    return SQLITE_OK;
}

int RowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* row) {
    *row = CursorOf(cursor)->row;
    return SQLITE_OK;
}

bool FillFields(sqlite3_vtab* vtab, char* record, sqlite3_value** values) {
    FolderTable& file = *TableOf(vtab)->table;
    const auto& fields = file.Layout().fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Variant value = VariantOf(values[i], fields[i]);
        if (!file.SetValue(fields[i], record, value)) {
            Fail(vtab, QStringLiteral("Field %1 value is out of range or of the wrong type.")
                           .arg(QString::fromLatin1(fields[i].name)));
            return false;
        }
    }
    return true;
}

int Insert(sqlite3_vtab* vtab, sqlite3_value** values, sqlite3_int64* row) {
    FolderTable& file = *TableOf(vtab)->table;
    std::vector<char> record(file.Layout().recordLength);
    file.BlankRecord(record.data());
    if (!FillFields(vtab, record.data(), values)) return SQLITE_CONSTRAINT;
    const std::uint32_t written = file.Append(record.data());
    if (written == 0)
        return Fail(vtab, QStringLiteral("The record could not be written."), SQLITE_IOERR);
    *row = written;
    return SQLITE_OK;
}

int Update(sqlite3_vtab* vtab, int argc, sqlite3_value** argv, sqlite3_int64* row) {
    if (!OpenFile(vtab)) return SQLITE_ERROR;
    FolderTable& file = *TableOf(vtab)->table;
    if (argc > 1 && sqlite3_value_type(argv[0]) == SQLITE_NULL) return Insert(vtab, argv + 2, row);
    const auto target = static_cast<std::uint32_t>(sqlite3_value_int64(argv[0]));
    if (argc > 1 && sqlite3_value_int64(argv[1]) != target)
        return Fail(vtab, QStringLiteral("The record number of a DBF record cannot change."));
    bool filled = true;
    const bool written = file.Modify(target, [&](char* record) {
        if (argc == 1) {
            record[0] = '*';
            return true;
        }
        filled = FillFields(vtab, record, argv + 2);
        return filled;
    });
    if (!filled) return SQLITE_CONSTRAINT;
    if (!written)
        return Fail(vtab, QStringLiteral("The record could not be written."), SQLITE_IOERR);
    return SQLITE_OK;
}

sqlite3_module MakeModule() {
    sqlite3_module module{};
    module.iVersion = 1;
    module.xCreate = Connect;
    module.xConnect = Connect;
    module.xBestIndex = BestIndex;
    module.xDisconnect = Disconnect;
    module.xDestroy = Disconnect; // dropping the virtual table leaves the file alone
    module.xOpen = OpenCursor;
    module.xClose = CloseCursor;
    module.xFilter = Filter;
    module.xNext = Next;
    module.xEof = Eof;
    module.xColumn = Column;
    module.xRowid = RowId;
    module.xUpdate = Update;
    return module;
}

const sqlite3_module kModule = MakeModule();

} // namespace

std::unique_ptr<DbfModule> DbfModule::Register(sqlite3* db, bool hideDeleted) {
    std::unique_ptr<DbfModule> module(new DbfModule(hideDeleted));
    if (sqlite3_create_module_v2(db, "dbf", &kModule, module.get(), nullptr) != SQLITE_OK)
        return nullptr;
    return module;
}

void DbfModule::ReleaseFiles() {
    for (DbfVirtualTable* table : m_tables)
        table->table->Release();
}

void DbfModule::Detach(DbfVirtualTable* table) {
    m_tables.erase(std::remove(m_tables.begin(), m_tables.end(), table), m_tables.end());
}

} // namespace zlx::dbfengine
