#include "platform/ado/Recordset.h"

#include "platform/ado/AdoErrorTexts.h"
#include "platform/ado/FieldIndex.h"
#include "platform/ado/RecordsetBuilder.h"
#include "platform/ado/RecordsetWriter.h"
#include "platform/ado/RecordsetXml.h"
#include "platform/engines/TextOrder.h"

#include <QFile>
#include <QHash>
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zlx::ado {

namespace {

constexpr long kStatusDeleted = adRecDeleted | adRecDBDeleted;

// Receives the results of the statements that write changes back; they return no rows.
class DiscardSink : public ResultSink {
public:
    void BeginRowset(const std::vector<ColumnInfo>&) override {}
    bool Row(std::vector<Variant>&) override { return false; }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}
};

// Keeps the first value of the first row: the identity a write-back insert was given.
class FirstValueSink : public ResultSink {
public:
    void BeginRowset(const std::vector<ColumnInfo>&) override {}
    bool Row(std::vector<Variant>& values) override {
        if (value.IsEmpty() && !values.empty()) value = values.front();
        return false;
    }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}
    Variant value;
};

// The sort key of every row of a text column as UTF-8 bytes, one after another: the
// case-folded text, or for a text with accents its base letters, a NUL and the folded text
// (ASCII texts, the common case, are folded in place without building a QString).
struct FoldedTexts {
    std::string bytes;
    std::vector<std::uint32_t> start; // row r is bytes[start[r], start[r + 1])
    std::string_view At(std::size_t row) const {
        return std::string_view(bytes).substr(start[row], start[row + 1] - start[row]);
    }
};

// The key of a text with accents: its base letters, then (after a NUL that sorts below every
// letter) the folded text, so that accented letters sort next to their base letter. Keys are
// remembered for repeated texts (a column of few values repeats them a great deal).
const std::string& AccentedKey(const QString& text, QHash<QString, std::string>& known) {
    constexpr qsizetype kMostKept = 65536;
    if (const auto found = known.constFind(text); found != known.constEnd()) return *found;
    const QString caseless = text.toCaseFolded();
    std::string key = TextOrder::BaseLetters(caseless).toStdString();
    key.push_back('\0');
    key += caseless.toStdString();
    if (known.size() >= kMostKept) known.clear();
    return *known.insert(text, std::move(key));
}

// The texts ranked: the rows of a text column, or the values of its dictionary.
struct RankedTexts {
    const ColumnStore& column;
    bool dictionary;
    std::size_t Count() const {
        return dictionary ? column.Texts().Values().size() : column.Size();
    }
    bool Present(std::size_t item) const { return dictionary || !column.IsNull(item); }
    std::size_t Characters() const {
        std::size_t total = 0;
        for (std::size_t item = 0; item < Count(); ++item)
            total += static_cast<std::size_t>(Text(item).size());
        return total;
    }
    QStringView Text(std::size_t item) const {
        return dictionary ? QStringView(column.Texts().Values()[item]) : column.TextAt(item);
    }
};

FoldedTexts FoldTexts(const RankedTexts& texts) {
    FoldedTexts folded;
    QHash<QString, std::string> accentedKeys;
    folded.start.reserve(texts.Count() + 1);
    folded.bytes.reserve(texts.Characters());
    for (std::size_t r = 0; r < texts.Count(); ++r) {
        folded.start.push_back(static_cast<std::uint32_t>(folded.bytes.size()));
        if (!texts.Present(r)) continue;
        const QStringView text = texts.Text(r);
        const bool ascii =
            std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
        if (ascii) {
            const std::size_t at = folded.bytes.size();
            folded.bytes.resize(at + static_cast<std::size_t>(text.size()));
            std::transform(text.begin(), text.end(), folded.bytes.begin() + at, [](QChar c) {
                const char16_t u = c.unicode();
                return static_cast<char>(u >= u'A' && u <= u'Z' ? u + (u'a' - u'A') : u);
            });
        } else {
            folded.bytes += AccentedKey(text.toString(), accentedKeys);
        }
    }
    folded.start.push_back(static_cast<std::uint32_t>(folded.bytes.size()));
    return folded;
}

// Ranks through the distinct values when a column has few of them (cities, codes): each row
// is looked up in a table of the values met so far. False, having done nothing useful, when
// the column turns out to have too many.
bool RanksOfFewValues(const FoldedTexts& folded, const RankedTexts& texts,
                      std::vector<std::uint32_t>& rowRank) {
    constexpr std::size_t kMostValues = 65536;
    std::unordered_map<std::string_view, std::uint32_t> idOf;
    std::vector<std::string_view> values;
    for (std::size_t r = 0; r < texts.Count(); ++r) {
        if (!texts.Present(r)) continue;
        const auto [it, added] =
            idOf.try_emplace(folded.At(r), static_cast<std::uint32_t>(values.size()));
        if (added) {
            if (values.size() == kMostValues) return false;
            values.push_back(it->first);
        }
        rowRank[r] = it->second;
    }
    std::vector<std::uint32_t> byText(values.size());
    std::iota(byText.begin(), byText.end(), 0u);
    std::sort(byText.begin(), byText.end(),
              [&](std::uint32_t a, std::uint32_t b) { return values[a] < values[b]; });
    std::vector<std::uint32_t> rank(values.size());
    for (std::size_t i = 0; i < byText.size(); ++i)
        rank[byText[i]] = static_cast<std::uint32_t>(i);
    for (std::size_t r = 0; r < texts.Count(); ++r)
        if (texts.Present(r)) rowRank[r] = rank[rowRank[r]];
    return true;
}

// Ranks of a column of many distinct values: the rows sorted on a 16-byte prefix of their
// folded text (texts often share a first word), the whole text breaking ties.
void RanksOfManyValues(const FoldedTexts& folded, const RankedTexts& texts,
                       std::vector<std::uint32_t>& rowRank) {
    struct Item {
        std::uint64_t high;
        std::uint64_t low;
        std::uint32_t row;
        bool SamePrefix(const Item& other) const { return high == other.high && low == other.low; }
        bool PrefixBefore(const Item& other) const {
            return high != other.high ? high < other.high : low < other.low;
        }
    };
    const auto bytesFrom = [](std::string_view text, std::size_t from) {
        std::uint64_t value = 0;
        for (std::size_t i = from; i < from + 8; ++i)
            value = (value << 8) | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
        return value;
    };
    std::vector<Item> items;
    items.reserve(texts.Count());
    for (std::size_t r = 0; r < texts.Count(); ++r) {
        if (!texts.Present(r)) continue;
        const std::string_view text = folded.At(r);
        items.push_back({bytesFrom(text, 0), bytesFrom(text, 8), static_cast<std::uint32_t>(r)});
    }
    // A merge sort: the rows of a loaded column often come in patterns that push a quicksort
    // into its slow fallback.
    std::stable_sort(items.begin(), items.end(), [&](const Item& a, const Item& b) {
        if (!a.SamePrefix(b)) return a.PrefixBefore(b);
        return folded.At(a.row) < folded.At(b.row);
    });
    std::uint32_t current = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0 && (!items[i].SamePrefix(items[i - 1]) ||
                      folded.At(items[i].row) != folded.At(items[i - 1].row)))
            ++current;
        rowRank[items[i].row] = current;
    }
}

// A column that has left its dictionary had too many values for ranking through them.
std::vector<std::uint32_t> RanksOf(const RankedTexts& texts, bool fewValuesLikely) {
    const FoldedTexts folded = FoldTexts(texts);
    std::vector<std::uint32_t> rank(texts.Count(), 0);
    if (!fewValuesLikely || !RanksOfFewValues(folded, texts, rank))
        RanksOfManyValues(folded, texts, rank);
    return rank;
}

// The rank of each row's case-folded text among the column's values: a column with a
// dictionary ranks only the dictionary's values, each row taking its value's rank.
class TextRanks {
public:
    explicit TextRanks(const ColumnStore& column)
        : m_texts(column.Texts()), m_byValue(m_texts.HasDictionary()),
          m_ranks(RanksOf({column, m_byValue}, m_byValue)) {}
    std::uint32_t Of(std::size_t row) const {
        return m_ranks[m_byValue ? m_texts.CodeAt(row) : row];
    }

private:
    const TextColumn& m_texts;
    bool m_byValue;
    std::vector<std::uint32_t> m_ranks;
};

struct FlatKey {
    const ColumnStore* column;
    bool descending;
};

// Every key as a double (texts as ranks, descending keys negated, nulls lowest), sorted
// together with the row number as the last key, which keeps equal records in their order.
template <std::size_t N>
void OrderOnFlatKeys(const std::vector<FlatKey>& keys, LargeVector<std::uint32_t>& order) {
    struct Entry {
        std::array<double, N> key;
        std::uint32_t row;
    };
    std::vector<Entry> entries(order.size());
    for (std::size_t r = 0; r < entries.size(); ++r)
        entries[r].row = static_cast<std::uint32_t>(r);
    for (std::size_t k = 0; k < N; ++k) {
        const ColumnStore& column = *keys[k].column;
        const std::optional<TextRanks> ranks = column.GetKind() == ColumnStore::Kind::Text
                                                   ? std::optional<TextRanks>(column)
                                                   : std::nullopt;
        const double sign = keys[k].descending ? -1.0 : 1.0;
        for (Entry& e : entries) {
            const double value = column.IsNull(e.row) ? -std::numeric_limits<double>::infinity()
                                 : ranks              ? static_cast<double>(ranks->Of(e.row))
                                                      : column.NumberAt(e.row);
            e.key[k] = sign * value;
        }
    }
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
        return a.key != b.key ? a.key < b.key : a.row < b.row;
    });
    for (std::size_t i = 0; i < entries.size(); ++i)
        order[i] = entries[i].row;
}

// A sort key read as exact integers that order the rows as its doubles do: an integer or
// currency column whose values lie within 2^40 of zero (there every stored value has a
// double of its own), or a text column's ranks. Each row's code runs from 0 (Null) up to
// Range(), a descending key counting down instead.
class IntegerKey {
public:
    static constexpr std::int64_t kLargest = std::int64_t{1} << 40;

    explicit IntegerKey(const FlatKey& key) : m_column(*key.column), m_descending(key.descending) {}

    // Whether the key can be read so: false for other kinds and for larger values.
    bool Readable() {
        if (m_column.GetKind() == ColumnStore::Kind::Text) return true;
        const bool integral = m_column.GetKind() == ColumnStore::Kind::Integer ||
                              m_column.GetKind() == ColumnStore::Kind::Currency;
        if (!integral) return false;
        bool any = false;
        for (std::size_t row = 0; row < m_column.Size(); ++row) {
            if (m_column.IsNull(row)) continue;
            const std::int64_t v = m_column.IntegerAt(row);
            if (v < -kLargest || v > kLargest) return false;
            m_low = any ? std::min(m_low, v) : v;
            m_high = any ? std::max(m_high, v) : v;
            any = true;
        }
        return true;
    }
    // The bits the codes need at most, before the ranks of a text are known.
    int MostBits() const {
        const std::size_t values = m_column.GetKind() == ColumnStore::Kind::Text
                                       ? m_column.Size()
                                       : static_cast<std::size_t>(m_high - m_low) + 1;
        return std::bit_width(static_cast<std::uint64_t>(values) + 1);
    }
    // Ranks a text key; the codes are known from here on.
    void Prepare() {
        if (m_column.GetKind() != ColumnStore::Kind::Text) return;
        m_ranks.emplace(m_column);
        m_low = 0;
        m_high = 0;
        for (std::size_t row = 0; row < m_column.Size(); ++row)
            m_high = std::max<std::int64_t>(m_high, m_ranks->Of(row));
    }
    std::uint64_t Range() const { return static_cast<std::uint64_t>(m_high - m_low) + 1; }
    std::uint64_t Code(std::size_t row) const {
        if (m_column.IsNull(row)) return m_descending ? Range() : 0;
        const std::int64_t v = m_ranks ? m_ranks->Of(row) : m_column.IntegerAt(row);
        const std::uint64_t up = static_cast<std::uint64_t>(v - m_low) + 1;
        return m_descending ? Range() - up : up;
    }

private:
    const ColumnStore& m_column;
    bool m_descending;
    std::optional<TextRanks> m_ranks;
    std::int64_t m_low = 0;
    std::int64_t m_high = 0;
};

// Sorts the rows (`order` holding every row) on their keys packed into one 64-bit number, the
// first key highest, by a stable radix sort from the row order, so that records with equal keys
// keep their order as with the flat keys. False, having done nothing, when the keys do not
// all read as integers or need more than 64 bits together.
bool OrderOnPackedKeys(const std::vector<FlatKey>& flat, LargeVector<std::uint32_t>& order) {
    std::vector<IntegerKey> keys(flat.begin(), flat.end());
    int bits = 0;
    for (IntegerKey& key : keys) {
        if (!key.Readable()) return false;
        bits += key.MostBits();
    }
    if (bits > 64) return false;
    std::vector<std::uint64_t> packed(order.size(), 0);
    bits = 0;
    for (IntegerKey& key : keys) {
        key.Prepare();
        const int width = std::bit_width(key.Range());
        bits += width;
        for (std::size_t row = 0; row < packed.size(); ++row)
            packed[row] = (packed[row] << width) | key.Code(row);
    }
    std::iota(order.begin(), order.end(), 0u);
    constexpr int kDigitBits = 11;
    constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
    std::vector<std::uint64_t> nextPacked(packed.size());
    LargeVector<std::uint32_t> nextOrder(order.size());
    for (int shift = 0; shift < bits; shift += kDigitBits) {
        std::vector<std::size_t> start(kDigits + 1, 0);
        for (std::uint64_t key : packed)
            ++start[((key >> shift) & (kDigits - 1)) + 1];
        if (std::count(start.begin(), start.end(), 0) == static_cast<std::ptrdiff_t>(kDigits))
            continue; // every record has the same digit here
        std::partial_sum(start.begin(), start.end(), start.begin());
        for (std::size_t i = 0; i < packed.size(); ++i) {
            const std::size_t at = start[(packed[i] >> shift) & (kDigits - 1)]++;
            nextPacked[at] = packed[i];
            nextOrder[at] = order[i];
        }
        packed.swap(nextPacked);
        order.swap(nextOrder);
    }
    return true;
}

} // namespace

Recordset::Recordset() : m_fields(*this) {
    m_properties.Add(QStringLiteral("Preserve On Commit"), Variant(true));
    m_properties.Add(QStringLiteral("Preserve On Abort"), Variant(false));
    m_properties.Add(QStringLiteral("Initial Fetch Size"), Variant(std::int32_t(50)));
    m_properties.Add(QStringLiteral("Background Fetch Size"), Variant(std::int32_t(15)));
    m_properties.Add(QStringLiteral("Unique Table"), Variant(QString()));
    m_properties.Add(QStringLiteral("Update Criteria"), Variant(std::int32_t(1)));
}

Recordset::~Recordset() = default;

// ---------------------------------------------------------------------------------------
// Opening and closing

void Recordset::RequireOpen() const {
    if (m_state & adStateExecuting) RaiseAdoError(adErrStillExecuting);
    if (m_state == adStateClosed) RaiseAdoError(adErrObjectClosed);
}

void Recordset::ResetData() {
    m_columns.clear();
    m_status.clear();
    m_originals.clear();
    m_order.clear();
    m_view.clear();
    m_positionsValid = false;
    m_indexes.clear();
    m_pos = -1;
    m_onDeleted = false;
    m_editMode = adEditNone;
    m_pending.clear();
    m_nextResults.clear();
    m_recordsAffected = -1;
}

void Recordset::PrepareColumns() {
    ResetData();
    m_columns.reserve(m_fields.Count());
    for (int i = 0; i < m_fields.Count(); ++i) {
        const Field& f = m_fields.Item(i);
        m_columns.emplace_back(f.Type(), f.DefinedSize(), (f.Attributes() & adFldLong) != 0);
    }
    m_indexes.resize(m_columns.size());
    m_probes.clear();
    m_probes.resize(m_columns.size());
}

void Recordset::Open(const QString& source, const ConnectionLink* connection,
                     CursorTypeEnum cursorType, LockTypeEnum lockType, long options) {
    if (m_state != adStateClosed) RaiseAdoError(adErrObjectOpen);
    if (!source.isEmpty()) m_source = source;
    if (cursorType != adOpenUnspecified) m_cursorType = cursorType;
    if (lockType != adLockUnspecified) m_lockType = lockType;
    if (connection != nullptr) m_link = *connection;
    if (m_link) {
        if (m_source.isEmpty()) RaiseAdoError(adErrInvalidArgument);
        m_fields.Clear();
        RunSource(options);
        return;
    }
    if (!m_source.isEmpty()) {
        QFile file(m_source);
        if (!file.open(QIODevice::ReadOnly)) RaiseAdoError(adErrOpeningFile);
        m_fields.Clear();
        RecordsetXml::Read(*this, file);
        return;
    }
    if (m_fields.Count() == 0) RaiseAdoError(adErrInvalidConnection);
    PrepareColumns();
    FinishOpen(adStateOpen);
}

void Recordset::RunSource(long options) {
    const bool specified = options != adOptionUnspecified;
    const bool async = specified && (options & (adAsyncExecute | adAsyncFetch));
    // A table name stands for all of its rows.
    const bool table = specified && (options & (adCmdTable | adCmdTableDirect));
    const QString command = table ? QStringLiteral("SELECT * FROM ") + m_source : m_source;
    m_openOptions = options;
    if (async && m_link->start && m_link->poll) {
        m_asyncBuilder = std::make_unique<RecordsetBuilder>(*this);
        m_link->start(command, options);
        m_state = adStateExecuting;
        return;
    }
    if (!m_link->run) RaiseAdoError(adErrInvalidConnection);
    RecordsetBuilder builder(*this);
    m_link->run(command, builder, options);
    builder.Finish();
}

long Recordset::State() {
    if (m_asyncBuilder && (m_state & (adStateExecuting | adStateFetching))) {
        bool done = false;
        try {
            done = m_link->poll(*m_asyncBuilder);
        } catch (...) {
            m_asyncBuilder->Finish();
            if (!m_asyncBuilder->Fetching() && m_state == adStateExecuting) m_state = adStateClosed;
            m_asyncBuilder.reset();
            throw;
        }
        if (done) {
            m_asyncBuilder->Finish();
            m_asyncBuilder.reset();
        }
    }
    return m_state;
}

void Recordset::Cancel() {
    if (!m_asyncBuilder) return;
    m_asyncBuilder->RequestCancel();
    if (m_link && m_link->cancel) m_link->cancel();
    if (m_state & adStateFetching) {
        m_asyncBuilder->Finish();
    } else {
        m_state = adStateClosed;
    }
    m_asyncBuilder.reset();
}

void Recordset::Close() {
    if (m_state == adStateClosed) RaiseAdoError(adErrObjectClosed);
    if (m_state & adStateExecuting) RaiseAdoError(adErrStillExecuting);
    ResetData();
    m_criteria.reset();
    m_filter = Variant(std::int32_t(adFilterNone));
    m_sort.clear();
    m_state = adStateClosed;
}

void Recordset::Requery(long options) {
    RequireOpen();
    if (!m_link) RaiseAdoError(adErrFeatureNotAvailable);
    m_fields.Clear();
    m_state = adStateClosed;
    m_criteria.reset();
    m_filter = Variant(std::int32_t(adFilterNone));
    RunSource(options == adOptionUnspecified ? m_openOptions : options);
}

void Recordset::SetActiveConnection(const ConnectionLink& link) {
    if (m_state & adStateExecuting) RaiseAdoError(adErrStillExecuting);
    m_link = link;
}

void Recordset::DetachConnection() {
    if (m_state & adStateExecuting) RaiseAdoError(adErrStillExecuting);
    // The rows are all in memory: once detached the recordset is a client cursor.
    if (m_state != adStateClosed) m_cursorLocation = adUseClient;
    m_link.reset();
}

void Recordset::SetSource(const QString& source) {
    if (m_state != adStateClosed) RaiseAdoError(adErrObjectOpen);
    m_source = source;
}

void Recordset::SetMaxRecords(long maxRecords) {
    if (m_state != adStateClosed) RaiseAdoError(adErrObjectOpen);
    if (maxRecords < 0) RaiseAdoError(adErrInvalidArgument);
    m_maxRecords = maxRecords;
}

std::size_t Recordset::AppendRow(std::vector<Variant>& values) {
    const std::size_t row = m_status.size();
    for (std::size_t c = 0; c < m_columns.size(); ++c) {
        if (c < values.size())
            m_columns[c].Append(values[c]);
        else
            m_columns[c].AppendNull();
    }
    m_status.push_back(adRecUnmodified);
    return row;
}

void Recordset::FinishOpen(long state) {
    m_state = state;
    RebuildOrder();
    RebuildView(std::nullopt);
}

void Recordset::PushNextResult(std::shared_ptr<Recordset> next) {
    m_nextResults.push_back(std::move(next));
}

std::shared_ptr<Recordset> Recordset::NextRecordset(long* recordsAffected) {
    if (m_state & adStateExecuting) RaiseAdoError(adErrStillExecuting);
    if (m_nextResults.empty()) return nullptr;
    auto next = m_nextResults.front();
    m_nextResults.pop_front();
    next->m_nextResults = std::move(m_nextResults);
    next->m_link = m_link;
    m_nextResults.clear();
    if (recordsAffected) *recordsAffected = static_cast<long>(next->m_recordsAffected);
    if (m_state != adStateClosed) Close();
    return next;
}

void Recordset::Save(const QString& fileName, PersistFormatEnum format) {
    RequireOpen();
    if (format != adPersistXML) RaiseAdoError(adErrFeatureNotAvailable);
    FlushEdit();
    QFile file(fileName);
    if (file.exists()) RaiseAdoError(adErrWriteFile, QStringLiteral("The file already exists."));
    if (!file.open(QIODevice::WriteOnly)) RaiseAdoError(adErrWriteFile);
    RecordsetXml::Write(*this, file);
    if (!file.flush()) RaiseAdoError(adErrWriteFile);
}

// ---------------------------------------------------------------------------------------
// Views: order and filter

bool Recordset::Visible(std::size_t physical) const {
    if (m_status[physical] & adRecDBDeleted) return false;
    if (m_criteria) return m_criteria->Matches(physical);
    if (const auto* group = m_filter.Get<std::int32_t>()) {
        switch (*group) {
        case adFilterPendingRecords:
        case adFilterAffectedRecords:
            return (m_status[physical] & (adRecNew | adRecModified)) != 0;
        case adFilterConflictingRecords:
            return false;
        default:
            return true;
        }
    }
    return true;
}

void Recordset::RebuildOrder() {
    m_order.resize(m_status.size());
    std::iota(m_order.begin(), m_order.end(), 0u);
    if (m_sort.trimmed().isEmpty()) return;
    std::vector<SortKey> keys;
    for (const QString& part : m_sort.split(u',')) {
        QStringList words = part.trimmed().split(u' ', Qt::SkipEmptyParts);
        if (words.isEmpty()) RaiseAdoError(adErrInvalidArgument);
        bool descending = false;
        if (words.size() > 1) {
            const QString dir = words.takeLast();
            if (dir.compare(u"DESC", Qt::CaseInsensitive) == 0)
                descending = true;
            else if (dir.compare(u"ASC", Qt::CaseInsensitive) != 0)
                words.append(dir);
        }
        QString name = words.join(u' ');
        if (name.startsWith(u'[') && name.endsWith(u']')) name = name.mid(1, name.size() - 2);
        const int field = m_fields.IndexOf(name);
        if (field < 0) RaiseAdoError(adErrItemNotFound, QStringLiteral("(\"%1\")").arg(name));
        keys.push_back({field, descending});
    }
    const bool numericKeys = keys.size() <= kFlatKeys &&
                             std::none_of(keys.begin(), keys.end(), [this](const SortKey& k) {
                                 return m_columns[k.field].GetKind() == ColumnStore::Kind::Other;
                             });
    if (numericKeys) {
        SortByFlatKeys(keys);
    } else {
        SortByValues(keys);
    }
}

void Recordset::SortByFlatKeys(const std::vector<SortKey>& keys) {
    std::vector<FlatKey> flat;
    for (const SortKey& key : keys)
        flat.push_back({&m_columns[key.field], key.descending});
    if (OrderOnPackedKeys(flat, m_order)) return;
    switch (flat.size()) {
    case 1:
        OrderOnFlatKeys<1>(flat, m_order);
        break;
    case 2:
        OrderOnFlatKeys<2>(flat, m_order);
        break;
    default:
        static_assert(kFlatKeys == 3);
        OrderOnFlatKeys<3>(flat, m_order);
    }
}

// Keys of any kind, compared as Variants where they are not numbers or texts.
void Recordset::SortByValues(const std::vector<SortKey>& keys) {
    std::vector<std::optional<TextRanks>> ranks(keys.size());
    for (std::size_t k = 0; k < keys.size(); ++k) {
        const ColumnStore& column = m_columns[keys[k].field];
        if (column.GetKind() == ColumnStore::Kind::Text) ranks[k].emplace(column);
    }
    const auto compare = [&](std::uint32_t a, std::uint32_t b) {
        for (std::size_t k = 0; k < keys.size(); ++k) {
            const ColumnStore& column = m_columns[keys[k].field];
            const bool nullA = column.IsNull(a);
            const bool nullB = column.IsNull(b);
            int order = 0;
            if (nullA || nullB) {
                order = nullA == nullB ? 0 : (nullA ? -1 : 1);
            } else if (ranks[k]) {
                const std::uint32_t x = ranks[k]->Of(a);
                const std::uint32_t y = ranks[k]->Of(b);
                order = x < y ? -1 : (x > y ? 1 : 0);
            } else if (column.GetKind() == ColumnStore::Kind::Other) {
                order = column.Get(a).Compare(column.Get(b), true);
            } else {
                const double x = column.NumberAt(a);
                const double y = column.NumberAt(b);
                order = x < y ? -1 : (x > y ? 1 : 0);
            }
            if (order != 0) return keys[k].descending ? order > 0 : order < 0;
        }
        return false;
    };
    std::stable_sort(m_order.begin(), m_order.end(), compare);
}

void Recordset::RebuildView(std::optional<std::size_t> keepPhysical) {
    m_view.clear();
    m_positionsValid = false;
    int indexedField = -1;
    Variant key;
    if (m_criteria && m_criteria->IsSingleEquality(indexedField, key) &&
        CanUseIndex(indexedField) && m_sort.isEmpty()) {
        for (std::uint32_t row : IndexOf(indexedField).Lookup(key)) {
            if (!(m_status[row] & adRecDBDeleted)) m_view.push_back(row);
        }
    } else {
        m_view.reserve(m_order.size());
        for (std::uint32_t row : m_order) {
            if (Visible(row)) m_view.push_back(row);
        }
    }
    m_onDeleted = false;
    m_pos = 0;
    if (keepPhysical) {
        const auto it = std::find(m_view.begin(), m_view.end(), *keepPhysical);
        if (it != m_view.end()) m_pos = it - m_view.begin();
    }
}

void Recordset::SetFilter(const Variant& filter) {
    RequireOpen();
    FlushEdit();
    if (filter.VarType() == vbString && !filter.ToString().trimmed().isEmpty()) {
        FilterCriteria criteria = FilterCriteria::Compile(filter.ToString(), m_fields, m_columns);
        m_criteria = std::move(criteria);
        m_filter = filter;
    } else if (filter.VarType() == vbString || filter.IsEmpty()) {
        m_criteria.reset();
        m_filter = Variant(std::int32_t(adFilterNone));
    } else if (filter.IsNumeric()) {
        const std::int32_t group = filter.ToLong();
        if (group < adFilterNone || group > adFilterConflictingRecords || group == 4) {
            RaiseAdoError(adErrInvalidArgument);
        }
        m_criteria.reset();
        m_filter = Variant(group);
    } else {
        RaiseAdoError(adErrInvalidArgument);
    }
    RebuildView(std::nullopt);
}

void Recordset::SetSort(const QString& sort) {
    RequireOpen();
    FlushEdit();
    const std::optional<std::size_t> keep =
        HasCurrent() ? std::optional<std::size_t>(CurrentPhysical()) : std::nullopt;
    const QString previous = m_sort;
    m_sort = sort;
    try {
        RebuildOrder();
    } catch (...) {
        m_sort = previous;
        throw;
    }
    RebuildView(keep);
}

FieldIndex& Recordset::IndexOf(int field) {
    return *m_indexes[field];
}

void Recordset::SetFieldOptimized(int field, bool on) {
    if (static_cast<std::size_t>(field) >= m_indexes.size()) m_indexes.resize(m_fields.Count());
    if (!on) {
        m_indexes[field].reset();
    } else if (static_cast<std::size_t>(field) < m_columns.size()) {
        m_indexes[field] = std::make_unique<FieldIndex>(m_columns[field]);
    }
}

// ---------------------------------------------------------------------------------------
// Position

bool Recordset::HasCurrent() const {
    return !m_onDeleted && m_pos >= 0 && m_pos < static_cast<long long>(m_view.size());
}

std::size_t Recordset::CurrentPhysical() const {
    return m_onDeleted ? m_deletedPhysical : m_view[m_pos];
}

void Recordset::RequireCurrent() const {
    RequireOpen();
    if (!HasCurrent()) RaiseAdoError(adErrNoCurrentRecord);
}

bool Recordset::IsBOF() const {
    RequireOpen();
    return m_view.empty() || (m_pos < 0 && !m_onDeleted);
}

bool Recordset::IsEOF() const {
    RequireOpen();
    return m_view.empty() ? !m_onDeleted
                          : (!m_onDeleted && m_pos >= static_cast<long long>(m_view.size()));
}

long Recordset::RecordCount() const {
    RequireOpen();
    return static_cast<long>(m_view.size());
}

long Recordset::AbsolutePosition() const {
    RequireOpen();
    if (m_onDeleted) return adPosUnknown;
    if (m_view.empty() || m_pos < 0) return adPosBOF;
    if (m_pos >= static_cast<long long>(m_view.size())) return adPosEOF;
    return static_cast<long>(m_pos + 1);
}

void Recordset::SetAbsolutePosition(long position) {
    RequireOpen();
    if (position < 1 || position > static_cast<long>(m_view.size())) {
        RaiseAdoError(adErrInvalidArgument);
    }
    MoveTo(position - 1);
}

Variant Recordset::Bookmark() const {
    RequireOpen();
    if (!HasCurrent() && !m_onDeleted) RaiseAdoError(adErrNoCurrentRecord);
    return Variant(static_cast<double>(CurrentPhysical() + 1));
}

long long Recordset::PositionOfBookmark(const Variant& bookmark) const {
    double value = 0;
    try {
        value = bookmark.ToDouble();
    } catch (const VariantError&) {
        RaiseAdoError(adErrInvalidArgument);
    }
    const auto physical = static_cast<long long>(value) - 1;
    if (physical < 0 || physical >= static_cast<long long>(m_status.size())) {
        RaiseAdoError(adErrInvalidArgument);
    }
    const auto it = std::find(m_view.begin(), m_view.end(), static_cast<std::uint32_t>(physical));
    if (it == m_view.end()) RaiseAdoError(adErrNoCurrentRecord);
    return it - m_view.begin();
}

void Recordset::SetBookmark(const Variant& bookmark) {
    RequireOpen();
    MoveTo(PositionOfBookmark(bookmark));
}

CompareEnum Recordset::CompareBookmarks(const Variant& first, const Variant& second) const {
    RequireOpen();
    const auto rankOf = [this](const Variant& b) -> long long {
        if (!b.IsNumeric()) RaiseAdoError(adErrInvalidArgument);
        const long long physical = static_cast<long long>(b.ToDouble()) - 1;
        const auto it = std::find(m_order.begin(), m_order.end(), physical);
        return it == m_order.end() ? -1 : it - m_order.begin();
    };
    const long long a = rankOf(first);
    const long long b = rankOf(second);
    if (a < 0 || b < 0) return adCompareNotComparable;
    return a < b ? adCompareLessThan : (a > b ? adCompareGreaterThan : adCompareEqual);
}

void Recordset::MoveTo(long long position) {
    FlushEdit();
    const auto size = static_cast<long long>(m_view.size());
    m_onDeleted = false;
    m_pos = std::clamp(position, -1LL, size);
}

long long Recordset::StartPosition(const Variant& start) const {
    if (start.IsEmpty() || start.IsMissing()) return m_pos;
    if (start.VarType() == vbLong || start.VarType() == vbInteger) {
        switch (start.ToLong()) {
        case adBookmarkCurrent:
            return m_pos;
        case adBookmarkFirst:
            return 0;
        case adBookmarkLast:
            return static_cast<long long>(m_view.size()) - 1;
        default:
            break;
        }
    }
    return PositionOfBookmark(start);
}

void Recordset::Move(long numRecords, const Variant& start) {
    RequireOpen();
    long long from = StartPosition(start);
    const bool relativeToCurrent = (start.VarType() == vbLong || start.VarType() == vbInteger) &&
                                   start.ToLong() == adBookmarkCurrent;
    if (relativeToCurrent && !m_onDeleted && !HasCurrent() && numRecords != 0) {
        if ((numRecords > 0 && IsEOF()) || (numRecords < 0 && IsBOF())) {
            RaiseAdoError(adErrNoCurrentRecord);
        }
    }
    // A deleted current record leaves a hole: the record after it is one step away.
    if (relativeToCurrent && m_onDeleted && numRecords > 0) --from;
    MoveTo(from + numRecords);
}

void Recordset::MoveFirst() {
    RequireOpen();
    MoveTo(0);
}

void Recordset::MoveLast() {
    RequireOpen();
    MoveTo(static_cast<long long>(m_view.size()) - 1);
    if (m_view.empty()) m_pos = 0;
}

void Recordset::MoveNext() {
    RequireOpen();
    if (IsEOF()) RaiseAdoError(adErrNoCurrentRecord);
    Move(1);
}

void Recordset::MovePrevious() {
    RequireOpen();
    if (IsBOF()) RaiseAdoError(adErrNoCurrentRecord);
    Move(-1);
}

// ---------------------------------------------------------------------------------------
// Values and editing

Variant Recordset::CurrentValue(int field) const {
    RequireCurrent();
    m_fields.Item(field); // 3265 for a bad number
    Variant pending;
    if (PendingValue(field, pending)) return pending;
    return m_columns[field].Get(CurrentPhysical());
}

Variant Recordset::Collect(const Variant& field) const {
    return CurrentValue(m_fields.Item(field).Index());
}

void Recordset::SetCollect(const Variant& field, const Variant& value) {
    SetCurrentValue(m_fields.Item(field).Index(), value);
}

bool Recordset::PendingValue(int field, Variant& value) const {
    for (const auto& [index, pending] : m_pending) {
        if (index == field) {
            value = pending;
            return true;
        }
    }
    return false;
}

Variant Recordset::CurrentOriginalValue(int field) const {
    RequireCurrent();
    const std::size_t physical = CurrentPhysical();
    if (m_status[physical] & adRecNew) return Variant::Null();
    const auto it = m_originals.find(physical);
    return it == m_originals.end() ? m_columns[field].Get(physical) : it->second[field];
}

void Recordset::SetCurrentValue(int field, const Variant& value) {
    RequireCurrent();
    if (m_lockType == adLockReadOnly && m_link) RaiseAdoError(adErrFeatureNotAvailable);
    m_fields.Item(field);
    // Checked now so that a bad value is refused at the assignment, as ADO does.
    ProbeOf(field).Set(0, value);
    for (auto& [index, pending] : m_pending) {
        if (index == field) {
            pending = value;
            return;
        }
    }
    m_pending.emplace_back(field, value);
    if (m_editMode == adEditNone) m_editMode = adEditInProgress;
}

// A one-row store of the field's type that checks a value before it is accepted.
ColumnStore& Recordset::ProbeOf(int field) {
    std::unique_ptr<ColumnStore>& probe = m_probes[field];
    if (!probe) {
        probe = std::make_unique<ColumnStore>(
            m_columns[field].Type(), m_fields.Item(field).DefinedSize(),
            (m_fields.Item(field).Attributes() & adFldLong) != 0, TextColumn::Layout::Buffer);
        probe->AppendNull();
    }
    return *probe;
}

void Recordset::RememberOriginal(std::size_t physical) {
    if ((m_status[physical] & adRecNew) || m_originals.count(physical)) return;
    std::vector<Variant> values;
    values.reserve(m_columns.size());
    for (const ColumnStore& column : m_columns)
        values.push_back(column.Get(physical));
    m_originals.emplace(physical, std::move(values));
}

void Recordset::MarkChanged(std::size_t physical) {
    if (!(m_status[physical] & adRecNew)) m_status[physical] = adRecModified;
}

void Recordset::WriteCell(std::size_t physical, int field, const Variant& value) {
    m_columns[field].Set(physical, value);
    if (m_indexes[field]) m_indexes[field]->Invalidate();
}

bool Recordset::WritesBack() {
    if (!m_link || !m_link->run ||
        (m_lockType != adLockOptimistic && m_lockType != adLockPessimistic) ||
        (m_cursorType != adOpenKeyset && m_cursorType != adOpenStatic))
        return false;
    ResolveBaseColumns();
    return RecordsetWriter(m_fields).CanWrite();
}

// Engines that give only ids for a column's table, or its name without its key, are asked
// for the rest once, when a change is first written.
void Recordset::ResolveBaseColumns() {
    if (m_baseResolved || !m_link->resolveBase) return;
    m_baseResolved = true;
    bool unnamed = false, named = false, keyed = false;
    for (int i = 0; i < m_fields.Count(); ++i) {
        const FieldDefinition& def = m_fields.Item(i).Definition();
        unnamed = unnamed || (def.baseTableId != 0 && def.baseTable.isEmpty());
        named = named || !def.baseTable.isEmpty();
        keyed = keyed || def.keyColumn;
    }
    if (!unnamed && (!named || keyed)) return;
    std::vector<ColumnInfo> columns;
    std::vector<int> fields;
    for (int i = 0; i < m_fields.Count(); ++i) {
        const FieldDefinition& def = m_fields.Item(i).Definition();
        if (def.baseTableId == 0 && def.baseTable.isEmpty()) continue;
        ColumnInfo column;
        column.baseTable = def.baseTable;
        column.baseColumn = def.baseColumn;
        column.keyColumn = def.keyColumn;
        column.autoIncrement = def.autoIncrement;
        column.baseTableId = def.baseTableId;
        column.baseColumnNumber = def.baseColumnNumber;
        columns.push_back(column);
        fields.push_back(i);
    }
    m_link->resolveBase(columns);
    for (std::size_t k = 0; k < fields.size(); ++k)
        m_fields.Item(fields[k]).SetBaseColumn(columns[k].baseTable, columns[k].baseColumn,
                                               columns[k].keyColumn);
}

std::vector<Variant> Recordset::RowValues(std::size_t physical) const {
    std::vector<Variant> values;
    values.reserve(m_columns.size());
    for (const ColumnStore& column : m_columns)
        values.push_back(column.Get(physical));
    return values;
}

void Recordset::RunWrite(const QString& sql) {
    if (sql.isEmpty()) return;
    DiscardSink sink;
    m_link->run(sql, sink, long{adCmdText} | long{adExecuteNoRecords});
}

// A new record whose only key was left empty got it from the table's identity: the record
// takes it, so that later changes find their row.
void Recordset::FetchNewKey(const RecordsetWriter& writer) {
    const int key = writer.SingleKey();
    if (key < 0) return;
    for (const auto& [field, value] : m_pending)
        if (field == key && !value.IsNull()) return;
    FirstValueSink sink;
    try {
        m_link->run(QStringLiteral("SELECT @@IDENTITY"), sink, adCmdText);
    } catch (const AdoError&) {
        return; // an engine without identities: the key stays empty
    }
    if (!sink.value.IsNull() && !sink.value.IsEmpty()) m_pending.emplace_back(key, sink.value);
}

void Recordset::FlushEdit() {
    if (m_editMode == adEditNone) return;
    const std::size_t physical = CurrentPhysical();
    if (WritesBack()) {
        const RecordsetWriter writer(m_fields);
        const std::vector<Variant> stored = RowValues(physical);
        std::vector<Variant> current = stored;
        for (const auto& [field, value] : m_pending)
            current[field] = value;
        if (m_editMode == adEditAdd) {
            RunWrite(writer.InsertSql(current));
            FetchNewKey(writer);
        } else {
            RunWrite(writer.UpdateSql(stored, current));
        }
    }
    RememberOriginal(physical);
    for (const auto& [field, value] : m_pending)
        WriteCell(physical, field, value);
    MarkChanged(physical);
    m_pending.clear();
    m_editMode = adEditNone;
}

void Recordset::AddNew() {
    RequireOpen();
    if (m_lockType == adLockReadOnly && m_link) RaiseAdoError(adErrFeatureNotAvailable);
    FlushEdit();
    std::vector<Variant> none;
    AddedAsNew(AppendRow(none));
    m_editMode = adEditAdd;
}

// A row just appended becomes a new record, the last of the view and the current one.
void Recordset::AddedAsNew(std::size_t physical) {
    m_status[physical] = adRecNew;
    for (auto& index : m_indexes) {
        if (index) index->Invalidate();
    }
    m_order.push_back(static_cast<std::uint32_t>(physical));
    m_view.push_back(static_cast<std::uint32_t>(physical));
    m_positionsValid = false;
    m_pos = static_cast<long long>(m_view.size()) - 1;
    m_onDeleted = false;
}

void Recordset::BeginLoading(std::size_t records) {
    RequireOpen();
    if (m_lockType == adLockReadOnly && m_link) RaiseAdoError(adErrFeatureNotAvailable);
    FlushEdit();
    if (WritesBack()) RaiseAdoError(adErrFeatureNotAvailable);
    const std::size_t rows = m_status.size() + records;
    for (ColumnStore& column : m_columns)
        column.Reserve(rows);
    m_status.reserve(rows);
    m_order.reserve(rows);
    m_view.reserve(m_view.size() + records);
}

ColumnStore& Recordset::LoadingColumn(int field) {
    m_fields.Item(field); // 3265 for a bad number
    return m_columns[field];
}

void Recordset::EndLoadedRecords(std::size_t count) {
    if (count == 0) return;
    const std::size_t first = m_status.size();
    for (ColumnStore& column : m_columns) {
        while (column.Size() < first + count)
            column.AppendNull();
    }
    m_status.resize(first + count, adRecNew);
    const std::size_t last = first + count - 1;
    // The records before the last one go at the ends of the order and the view together.
    const auto appendRows = [first, last](auto& rows) {
        rows.resize(rows.size() + (last - first));
        std::iota(rows.end() - static_cast<std::ptrdiff_t>(last - first), rows.end(),
                  static_cast<std::uint32_t>(first));
    };
    appendRows(m_order);
    appendRows(m_view);
    AddedAsNew(last);
}

std::vector<int> Recordset::FieldListIndexes(const Variant& fieldList) const {
    std::vector<int> indexes;
    const auto indexOf = [this](const Variant& key) {
        if (key.VarType() == vbString) {
            const int i = m_fields.IndexOf(key.ToString());
            if (i < 0)
                RaiseAdoError(adErrItemNotFound, QStringLiteral("(\"%1\")").arg(key.ToString()));
            return i;
        }
        if (!key.IsNumeric()) RaiseAdoError(adErrInvalidArgument);
        const int i = key.ToLong();
        m_fields.Item(i);
        return i;
    };
    if (const VariantArrayPtr array = fieldList.ToArray()) {
        for (const Variant& key : array->Data())
            indexes.push_back(indexOf(key));
    } else {
        indexes.push_back(indexOf(fieldList));
    }
    return indexes;
}

std::vector<Variant> Recordset::ValueList(const Variant& values, std::size_t count) const {
    std::vector<Variant> list;
    if (const VariantArrayPtr array = values.ToArray())
        list = array->Data();
    else
        list.push_back(values);
    if (list.size() != count) RaiseAdoError(adErrInvalidArgument);
    return list;
}

void Recordset::AddNew(const Variant& fieldList, const Variant& values) {
    RequireOpen();
    const std::vector<int> indexes = FieldListIndexes(fieldList);
    const std::vector<Variant> list = ValueList(values, indexes.size());
    AddNew();
    try {
        for (std::size_t i = 0; i < indexes.size(); ++i)
            SetCurrentValue(indexes[i], list[i]);
        Update();
    } catch (...) {
        CancelUpdate();
        throw;
    }
}

void Recordset::Update() {
    RequireOpen();
    if (m_editMode == adEditNone) {
        if (!HasCurrent()) RaiseAdoError(adErrNoCurrentRecord);
        return;
    }
    FlushEdit();
}

void Recordset::Update(const Variant& fieldList, const Variant& values) {
    RequireCurrent();
    const std::vector<int> indexes = FieldListIndexes(fieldList);
    const std::vector<Variant> list = ValueList(values, indexes.size());
    for (std::size_t i = 0; i < indexes.size(); ++i)
        SetCurrentValue(indexes[i], list[i]);
    Update();
}

void Recordset::CancelUpdate() {
    RequireOpen();
    if (m_editMode == adEditAdd) {
        const std::uint32_t physical = m_view[m_pos];
        m_view.erase(m_view.begin() + m_pos);
        m_positionsValid = false;
        m_order.erase(std::find(m_order.begin(), m_order.end(), physical));
        m_status[physical] = kStatusDeleted;
        m_pos = std::max<long long>(0, static_cast<long long>(m_view.size()) - 1);
        if (m_view.empty()) m_pos = 0;
    }
    m_pending.clear();
    m_editMode = adEditNone;
}

void Recordset::Delete(AffectEnum affect) {
    RequireOpen();
    if (m_lockType == adLockReadOnly && m_link) RaiseAdoError(adErrFeatureNotAvailable);
    if (affect == adAffectCurrent) {
        if (m_editMode == adEditAdd) {
            CancelUpdate();
            return;
        }
        RequireCurrent();
        const std::uint32_t physical = m_view[m_pos];
        if (WritesBack()) RunWrite(RecordsetWriter(m_fields).DeleteSql(RowValues(physical)));
        m_pending.clear();
        m_editMode = adEditNone;
        m_status[physical] = kStatusDeleted;
        m_view.erase(m_view.begin() + m_pos);
        m_positionsValid = false;
        m_deletedPhysical = physical;
        m_onDeleted = true;
    } else if (affect == adAffectGroup || affect == adAffectAll) {
        FlushEdit();
        const bool all = affect == adAffectAll;
        const bool writeBack = WritesBack();
        using Rows = std::span<const std::uint32_t>;
        for (std::uint32_t physical : all ? Rows(m_order) : Rows(m_view)) {
            if (m_status[physical] & adRecDBDeleted) continue;
            if (writeBack) RunWrite(RecordsetWriter(m_fields).DeleteSql(RowValues(physical)));
            m_status[physical] = kStatusDeleted;
        }
        RebuildView(std::nullopt);
    } else {
        RaiseAdoError(adErrInvalidArgument);
    }
}

long Recordset::Status() const {
    RequireOpen();
    if (!m_onDeleted && !HasCurrent()) RaiseAdoError(adErrNoCurrentRecord);
    return m_status[CurrentPhysical()];
}

// ---------------------------------------------------------------------------------------
// Find and GetRows

long long Recordset::FindForward(const FilterCriteria& criteria, long long from) const {
    for (long long p = std::max(from, 0LL); p < static_cast<long long>(m_view.size()); ++p) {
        if (criteria.Matches(m_view[p])) return p;
    }
    return static_cast<long long>(m_view.size());
}

long long Recordset::FindBackward(const FilterCriteria& criteria, long long from) const {
    for (long long p = std::min<long long>(from, static_cast<long long>(m_view.size()) - 1); p >= 0;
         --p) {
        if (criteria.Matches(m_view[p])) return p;
    }
    return -1;
}

bool Recordset::CanUseIndex(int field) const {
    return m_indexes[field] && m_columns[field].GetKind() != ColumnStore::Kind::Other;
}

// The index gives the candidate rows; the first of them at or after `from` wins.
long long Recordset::FindIndexed(int field, const Variant& key, long long from) {
    const std::span<const std::uint32_t> rows = IndexOf(field).Lookup(key);
    const std::vector<std::uint32_t>& positions = Positions();
    long long found = static_cast<long long>(m_view.size());
    for (std::uint32_t row : rows) {
        const long long p = positions.empty() ? row : positions[row];
        if (p >= from && p < found) found = p;
    }
    return found;
}

// Left empty when the view holds every row in physical order (no sort, no filter: the usual
// case), where a row's position is the row itself.
const std::vector<std::uint32_t>& Recordset::Positions() {
    if (!m_positionsValid) {
        m_positionOf = {};
        std::uint32_t next = 0;
        const bool everyRowInOrder =
            m_view.size() == m_status.size() &&
            std::all_of(m_view.begin(), m_view.end(),
                        [&next](std::uint32_t row) { return row == next++; });
        if (!everyRowInOrder) {
            m_positionOf.assign(m_status.size(), std::numeric_limits<std::uint32_t>::max());
            for (std::size_t p = 0; p < m_view.size(); ++p) {
                m_positionOf[m_view[p]] = static_cast<std::uint32_t>(p);
            }
        }
        m_positionsValid = true;
    }
    return m_positionOf;
}

void Recordset::Find(const QString& criteria, long skipRecords, SearchDirectionEnum direction,
                     const Variant& start) {
    RequireOpen();
    const FilterCriteria compiled = FilterCriteria::Compile(criteria, m_fields, m_columns, true);
    FlushEdit();
    long long from = StartPosition(start);
    if (start.IsEmpty() && !HasCurrent() && !m_onDeleted) {
        if ((direction == adSearchForward && IsEOF()) ||
            (direction == adSearchBackward && IsBOF())) {
            RaiseAdoError(adErrNoCurrentRecord);
        }
    }
    from += direction == adSearchForward ? skipRecords : -skipRecords;
    int field = -1;
    Variant key;
    long long found;
    if (compiled.IsSingleEquality(field, key) && CanUseIndex(field) &&
        direction == adSearchForward) {
        found = FindIndexed(field, key, std::max(from, 0LL));
    } else {
        found = direction == adSearchForward ? FindForward(compiled, from)
                                             : FindBackward(compiled, from);
    }
    m_onDeleted = false;
    m_pos = found;
}

bool Recordset::TotalOfVisible(int field, Currency& total) {
    RequireOpen();
    FlushEdit();
    m_fields.Item(field); // 3265 for a bad number
    return m_columns[field].CurrencyTotal(m_view, total);
}

Variant Recordset::GetRows(long rows, const Variant& start, const Variant& fields) {
    RequireOpen();
    FlushEdit();
    long long from = start.IsEmpty() || start.IsMissing() ? m_pos : StartPosition(start);
    if (from < 0 || from >= static_cast<long long>(m_view.size())) {
        RaiseAdoError(adErrNoCurrentRecord);
    }
    std::vector<int> columns;
    if (fields.IsEmpty() || fields.IsMissing()) {
        columns.resize(m_fields.Count());
        std::iota(columns.begin(), columns.end(), 0);
    } else {
        columns = FieldListIndexes(fields);
    }
    const long long available = static_cast<long long>(m_view.size()) - from;
    const long long count = rows < 0 ? available : std::min<long long>(rows, available);
    Variant result = Variant::MakeArray(
        {{0, static_cast<std::int32_t>(columns.size())}, {0, static_cast<std::int32_t>(count)}});
    VariantArray& array = *result.ToArray();
    for (long long r = 0; r < count; ++r) {
        const std::uint32_t physical = m_view[from + r];
        for (std::size_t c = 0; c < columns.size(); ++c) {
            array.At(static_cast<std::int32_t>(c), static_cast<std::int32_t>(r)) =
                m_columns[columns[c]].Get(physical);
        }
    }
    m_onDeleted = false;
    m_pos = from + count;
    return result;
}

} // namespace zlx::ado
