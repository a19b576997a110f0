#include "MdbImportSource.h"

#include <QDate>
#include <QDateTime>
#include <QTime>
#include <cmath>
#include <cstring>
#include <mdbtools.h>
#include <stdexcept>

namespace zlx {

namespace {

constexpr size_t kDefaultBindSize = MDB_BIND_SIZE;
constexpr size_t kLongValueBuffer = 8192; // one long value page at a time
constexpr double kSecondsPerDay = 86400.0;

QString FreeText(char* text) {
    const QString value = QString::fromUtf8(text);
    g_free(text);
    return value;
}

std::vector<MdbColumn*> ColumnsOf(MdbTableDef* table) {
    std::vector<MdbColumn*> columns;
    for (guint i = 0; i < table->columns->len; ++i)
        columns.push_back(static_cast<MdbColumn*>(g_ptr_array_index(table->columns, i)));
    return columns;
}

MdbImportColumn DescribeColumn(const MdbColumn& column) {
    MdbImportColumn result;
    result.name = QString::fromUtf8(column.name);
    result.type = column.col_type;
    result.size = column.col_size;
    result.precision = column.col_prec;
    result.scale = column.col_scale;
    result.autoNumber = column.is_long_auto != 0;
    const char* required = mdb_col_get_prop(&column, "Required");
    result.required = required && g_ascii_strcasecmp(required, "yes") == 0;
    return result;
}

std::vector<MdbImportIndex> DescribeIndexes(MdbTableDef* table) {
    const std::vector<MdbColumn*> columns = ColumnsOf(table);
    std::vector<MdbImportIndex> indexes;
    for (guint i = 0; table->indices && i < table->indices->len; ++i) {
        const auto* index = static_cast<MdbIndex*>(g_ptr_array_index(table->indices, i));
        if (index->index_type == 2) continue; // the side of a relationship
        MdbImportIndex result;
        result.name = QString::fromUtf8(index->name);
        result.primary = index->index_type == 1;
        result.unique = result.primary || (index->flags & MDB_IDX_UNIQUE) != 0;
        for (unsigned k = 0; k < index->num_keys; ++k) {
            const int column = index->key_col_num[k] - 1;
            if (column < 0 || column >= static_cast<int>(columns.size())) continue;
            result.columns << QString::fromUtf8(columns[static_cast<size_t>(column)]->name);
            result.descending.push_back(index->key_col_order[k] == MDB_DESC);
        }
        if (!result.columns.isEmpty()) indexes.push_back(result);
    }
    return indexes;
}

// Jet's dates count days from 1899-12-30; the time is the fraction of the day, also before
// that date (-1.25 is 1899-12-29 06:00).
QString DateText(double days) {
    const double whole = std::trunc(days);
    const auto seconds =
        static_cast<qint64>(std::llround(std::fabs(days - whole) * kSecondsPerDay));
    const QDateTime value(QDate(1899, 12, 30).addDays(static_cast<qint64>(whole)),
                          QTime(0, 0).addSecs(static_cast<int>(seconds % 86400)));
    return value.addDays(seconds / 86400).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

template <typename T> T Raw(const MdbHandle* mdb, const MdbColumn& column) {
    T value;
    std::memcpy(&value, mdb->pg_buf + column.cur_value_start, sizeof(T));
    return value;
}

// A memo's text can be longer than a bound value: the conversion gets room for all of it.
QString MemoText(MdbHandle* mdb, const MdbColumn& column) {
    const auto length = Raw<guint32>(mdb, column) & 0x3fffffff;
    mdb_set_bind_size(mdb, std::max<size_t>(kDefaultBindSize, size_t{length} * 3 + 16));
    const QString text = FreeText(mdb_col_to_string(mdb, mdb->pg_buf, column.cur_value_start,
                                                    MDB_MEMO, column.cur_value_len));
    mdb_set_bind_size(mdb, kDefaultBindSize);
    return text;
}

QByteArray LongBinary(MdbHandle* mdb, MdbColumn& column) {
    size_t size = 0;
    void* bytes = mdb_ole_read_full(mdb, &column, &size);
    const QByteArray value(static_cast<const char*>(bytes), static_cast<qsizetype>(size));
    free(bytes);
    return value;
}

QVariant ValueOf(MdbHandle* mdb, MdbColumn& column, const char* bound) {
    if (column.col_type == MDB_BOOL) return qint64{bound[0] == '1' ? 1 : 0};
    if (column.cur_value_len == 0) return QVariant();
    const int start = column.cur_value_start;
    switch (column.col_type) {
    case MDB_BYTE:
        return qint64{Raw<guint8>(mdb, column)};
    case MDB_INT:
        return qint64{Raw<gint16>(mdb, column)};
    case MDB_LONGINT:
        return qint64{Raw<gint32>(mdb, column)};
    case MDB_MONEY:
        return static_cast<double>(Raw<gint64>(mdb, column)) / 10000.0;
    case MDB_FLOAT:
        return static_cast<double>(Raw<float>(mdb, column));
    case MDB_DOUBLE:
        return Raw<double>(mdb, column);
    case MDB_DATETIME:
        return DateText(Raw<double>(mdb, column));
    case MDB_NUMERIC:
        return FreeText(mdb_numeric_to_string(mdb, start, column.col_scale, column.col_prec));
    case MDB_BINARY:
        return QByteArray(reinterpret_cast<const char*>(mdb->pg_buf + start), column.cur_value_len);
    case MDB_OLE:
        return LongBinary(mdb, column);
    case MDB_MEMO:
        return MemoText(mdb, column);
    default: // text, GUIDs and whatever else mdbtools can put in words
        return FreeText(
            mdb_col_to_string(mdb, mdb->pg_buf, start, column.col_type, column.cur_value_len));
    }
}

} // namespace

struct MdbImportSource::Database {
    MdbHandle* mdb = nullptr;
    std::vector<MdbCatalogEntry*> entries;
    ~Database() {
        if (mdb) mdb_close(mdb);
    }
};

MdbImportSource::MdbImportSource(const QString& path) : m_database(std::make_unique<Database>()) {
    m_database->mdb = mdb_open(path.toLocal8Bit().constData(), MDB_NOFLAGS);
    MdbHandle* mdb = m_database->mdb;
    if (!mdb || !mdb_read_catalog(mdb, MDB_TABLE))
        throw std::runtime_error("not an Access database that can be read");
    mdb_set_boolean_fmt_numbers(mdb);
    for (guint i = 0; i < mdb->num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
        if (!mdb_is_user_table(entry)) continue;
        MdbTableDef* table = mdb_read_table(entry);
        if (!table)
            throw std::runtime_error(std::string("cannot read table ") + entry->object_name);
        mdb_read_columns(table);
        mdb_read_indices(table);
        MdbImportTable result;
        result.name = QString::fromUtf8(entry->object_name);
        for (MdbColumn* column : ColumnsOf(table))
            result.columns.push_back(DescribeColumn(*column));
        result.indexes = DescribeIndexes(table);
        result.rowCount = table->num_rows;
        mdb_free_tabledef(table);
        m_tables.push_back(result);
        m_database->entries.push_back(entry);
    }
}

MdbImportSource::~MdbImportSource() = default;

void MdbImportSource::ReadRows(std::size_t table,
                               const std::function<void(const std::vector<QVariant>&)>& row) {
    MdbHandle* mdb = m_database->mdb;
    MdbTableDef* definition = mdb_read_table(m_database->entries.at(table));
    if (!definition) throw std::runtime_error("cannot read table");
    mdb_read_columns(definition);
    const std::vector<MdbColumn*> columns = ColumnsOf(definition);
    // Yes/no values come only through a bound buffer, long binaries read theirs page by page.
    std::vector<std::vector<char>> buffers(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i]->col_type != MDB_BOOL && columns[i]->col_type != MDB_OLE) continue;
        buffers[i].assign(std::max(kLongValueBuffer, kDefaultBindSize), '\0');
        mdb_bind_column(definition, static_cast<int>(i + 1), buffers[i].data(), nullptr);
    }
    mdb_rewind_table(definition);
    std::vector<QVariant> values(columns.size());
    while (mdb_fetch_row(definition)) {
        for (std::size_t i = 0; i < columns.size(); ++i)
            values[i] = ValueOf(mdb, *columns[i], buffers[i].data());
        row(values);
    }
    mdb_free_tabledef(definition);
}

} // namespace zlx
