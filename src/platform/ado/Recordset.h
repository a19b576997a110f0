#pragma once
// The client-cursor Recordset: rows held in memory in typed columns, with ADO's navigation,
// editing, Filter / Sort / Find, bookmarks, GetRows, XML persistence and a batch's further
// rowsets (NextRecordset). Errors are AdoError with ADO's numbers.

#include "platform/ado/ColumnStore.h"
#include "platform/ado/Fields.h"
#include "platform/ado/FilterCriteria.h"
#include "platform/ado/HugePageAllocator.h"
#include "platform/ado/Properties.h"
#include "platform/engines/AdoConstants.h"
#include "platform/engines/Driver.h"
#include "platform/variant/Variant.h"

#include <QObject>
#include <QString>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace zlx::ado {

class FieldIndex;
class RecordsetBuilder;
class RecordsetWriter;

// What a recordset needs from its connection: the connection object (what ActiveConnection
// answers), a way to run a command into a sink and, for asynchronous opens, to start one
// and poll it (poll answers true when the batch has finished) and to cancel it.
struct ConnectionLink {
    ObjectPtr connection;
    std::function<void(const QString& text, ResultSink& sink, long options)> run;
    std::function<void(const QString& text, long options)> start;
    std::function<bool(ResultSink& sink)> poll;
    std::function<void()> cancel;
    std::function<void(std::vector<ColumnInfo>&)> resolveBase;
};

enum EditModeEnum { adEditNone = 0, adEditInProgress = 1, adEditAdd = 2 };

class Recordset : public QObject, public Object {
    Q_OBJECT
public:
    Recordset();
    ~Recordset() override;
    QString TypeName() const override { return QStringLiteral("Recordset"); }

    // Opening and closing. With no source and no connection the appended fields form an
    // empty connectionless recordset; with a source and no connection the source is a file
    // saved by Save; otherwise the source is a command run on the connection. Options 16/32
    // (asynchronous) start the command and leave State with the executing/fetching bits.
    void Open(const QString& source = {}, const ConnectionLink* connection = nullptr,
              CursorTypeEnum cursorType = adOpenUnspecified,
              LockTypeEnum lockType = adLockUnspecified, long options = adCmdUnspecified);
    void Close();
    // Bits of ObjectStateEnum; polls a running asynchronous open.
    long State();
    long State() const { return m_state; }
    void Cancel();
    void Requery(long options = adOptionUnspecified);

    Fields& GetFields() { return m_fields; }
    // Collect(field): the value of a field (name or number) on the current record.
    Variant Collect(const Variant& field) const;
    void SetCollect(const Variant& field, const Variant& value);
    const Fields& GetFields() const { return m_fields; }
    Properties& GetProperties() { return m_properties; }

    // Connection and settings
    ObjectPtr ActiveConnection() const { return m_link ? m_link->connection : nullptr; }
    void SetActiveConnection(const ConnectionLink& link);
    void DetachConnection(); // ActiveConnection = Nothing
    QString Source() const { return m_source; }
    void SetSource(const QString& source);
    long MaxRecords() const { return m_maxRecords; }
    void SetMaxRecords(long maxRecords);
    CursorLocationEnum CursorLocation() const { return m_cursorLocation; }
    void SetCursorLocation(CursorLocationEnum location) { m_cursorLocation = location; }
    CursorTypeEnum CursorType() const { return m_cursorType; }
    void SetCursorType(CursorTypeEnum type) { m_cursorType = type; }
    LockTypeEnum LockType() const { return m_lockType; }
    void SetLockType(LockTypeEnum type) { m_lockType = type; }
    QString Index() const { return m_index; }
    void SetIndex(const QString& index) { m_index = index; }

    // Position
    bool IsBOF() const;
    bool IsEOF() const;
    long RecordCount() const;
    long AbsolutePosition() const;
    void SetAbsolutePosition(long position);
    Variant Bookmark() const;
    void SetBookmark(const Variant& bookmark);
    CompareEnum CompareBookmarks(const Variant& first, const Variant& second) const;
    void Move(long numRecords, const Variant& start = Variant(std::int32_t(adBookmarkCurrent)));
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    // Editing
    void AddNew();
    void AddNew(const Variant& fieldList, const Variant& values);
    // For loaders that fill the columns themselves (a DBF file into a table), on a recordset
    // that keeps its changes to itself: after BeginLoading, each record appends one value to
    // the LoadingColumn of each field (a field given none is Null), then EndLoadedRecord adds
    // it as AddNew and Update would, leaving it current. `records`: how many are coming.
    // EndLoadedRecords adds the `count` records appended since the last ones added at once
    // (a field given no value in the last of them is Null there).
    void BeginLoading(std::size_t records);
    ColumnStore& LoadingColumn(int field);
    void EndLoadedRecord() { EndLoadedRecords(1); }
    void EndLoadedRecords(std::size_t count);
    void Update();
    void Update(const Variant& fieldList, const Variant& values);
    void CancelUpdate();
    void Delete(AffectEnum affect = adAffectCurrent);
    long Status() const;
    EditModeEnum EditMode() const { return m_editMode; }

    // Views
    Variant Filter() const { return m_filter; }
    void SetFilter(const Variant& filter);
    QString Sort() const { return m_sort; }
    void SetSort(const QString& sort);
    void Find(const QString& criteria, long skipRecords = 0,
              SearchDirectionEnum direction = adSearchForward, const Variant& start = Variant());

    // The total of a number field over the visible records, each value taken as Currency;
    // false (nothing added) when the field does not hold numbers. Throws VariantError 94 for
    // a Null and 6 on overflow.
    bool TotalOfVisible(int field, Currency& total);

    // GetRows: a (field, row) array from `start` (a bookmark or BookmarkEnum); `fields` is a
    // name, a number or an array of them (Empty: every field).
    Variant GetRows(long rows = adGetRowsRest, const Variant& start = Variant(),
                    const Variant& fields = Variant());

    // The next result of the batch this recordset was opened with; nullptr when none.
    std::shared_ptr<Recordset> NextRecordset(long* recordsAffected = nullptr);
    // Affected-row count of the statement when this result has no rows (-1 unknown).
    std::int64_t RecordsAffected() const { return m_recordsAffected; }

    void Save(const QString& fileName, PersistFormatEnum format = adPersistXML);

    // Used by Field
    Variant CurrentValue(int field) const;
    void SetCurrentValue(int field, const Variant& value);
    Variant CurrentOriginalValue(int field) const;
    // The value set on the current record and not saved yet; false when there is none.
    bool PendingValue(int field, Variant& value) const;
    void SetFieldOptimized(int field, bool on);

    // Used by the builder and the XML reader: storage and state.
    const std::vector<ColumnStore>& Columns() const { return m_columns; }
    std::size_t PhysicalRowCount() const { return m_status.size(); }
    long RowStatus(std::size_t physicalRow) const { return m_status[physicalRow]; }
    void PrepareColumns();                               // one store per field
    std::size_t AppendRow(std::vector<Variant>& values); // a fetched row, in field order
    void FinishOpen(long state); // rows complete: view built, first row current
    void SetStateBits(long state) { m_state = state; }
    void PushNextResult(std::shared_ptr<Recordset> next);
    void SetRecordsAffected(std::int64_t count) { m_recordsAffected = count; }

signals:
    void FetchProgress(long progress, long maxProgress);
    void FetchComplete();

private:
    void RequireOpen() const;
    void RequireCurrent() const;
    bool HasCurrent() const;
    std::size_t CurrentPhysical() const;
    void FlushEdit(); // a pending AddNew / edit is saved before moving
    // Single-table keyset/static recordsets with an optimistic or pessimistic lock save each
    // change to their table through the connection.
    bool WritesBack();
    void ResolveBaseColumns();
    void RunWrite(const QString& sql);
    void FetchNewKey(const RecordsetWriter& writer);
    std::vector<Variant> RowValues(std::size_t physical) const;
    void RebuildView(std::optional<std::size_t> keepPhysical);
    void RebuildOrder();
    struct SortKey {
        int field;
        bool descending;
    };
    static constexpr std::size_t kFlatKeys = 3;
    void SortByFlatKeys(const std::vector<SortKey>& keys);
    void SortByValues(const std::vector<SortKey>& keys);
    bool Visible(std::size_t physical) const;
    void MoveTo(long long position);
    long long PositionOfBookmark(const Variant& bookmark) const;
    long long StartPosition(const Variant& start) const;
    ColumnStore& ProbeOf(int field);
    void RememberOriginal(std::size_t physical);
    void MarkChanged(std::size_t physical);
    void AddedAsNew(std::size_t physical);
    void WriteCell(std::size_t physical, int field, const Variant& value);
    std::vector<int> FieldListIndexes(const Variant& fieldList) const;
    std::vector<Variant> ValueList(const Variant& values, std::size_t count) const;
    void RunSource(long options);
    void ResetData();
    FieldIndex& IndexOf(int field);
    bool CanUseIndex(int field) const;
    long long FindIndexed(int field, const Variant& key, long long from);
    // Position in the view of each physical row (max when hidden), built when first needed.
    const std::vector<std::uint32_t>& Positions();
    long long FindForward(const FilterCriteria& criteria, long long from) const;
    long long FindBackward(const FilterCriteria& criteria, long long from) const;

    Fields m_fields;
    Properties m_properties;
    std::vector<ColumnStore> m_columns;
    LargeVector<std::int32_t> m_status;
    std::unordered_map<std::size_t, std::vector<Variant>> m_originals;
    LargeVector<std::uint32_t> m_order; // all rows in Sort order
    std::vector<std::uint32_t> m_view;  // visible rows (filter, not deleted) in order
    std::vector<std::uint32_t> m_positionOf;
    bool m_positionsValid = false;
    long long m_pos = -1;     // index in m_view; -1 BOF, size EOF
    bool m_onDeleted = false; // current record deleted, still current
    std::size_t m_deletedPhysical = 0;
    EditModeEnum m_editMode = adEditNone;
    std::vector<std::pair<int, Variant>> m_pending;
    Variant m_filter = Variant(std::int32_t(adFilterNone));
    std::optional<FilterCriteria> m_criteria;
    QString m_sort;
    std::vector<std::unique_ptr<FieldIndex>> m_indexes;
    std::vector<std::unique_ptr<ColumnStore>> m_probes; // checks values as they are set
    long m_state = adStateClosed;
    QString m_source;
    std::optional<ConnectionLink> m_link;
    long m_maxRecords = 0;
    long m_openOptions = adCmdUnspecified;
    CursorLocationEnum m_cursorLocation = adUseServer;
    CursorTypeEnum m_cursorType = adOpenForwardOnly;
    LockTypeEnum m_lockType = adLockReadOnly;
    QString m_index;
    std::deque<std::shared_ptr<Recordset>> m_nextResults;
    std::int64_t m_recordsAffected = -1;
    std::unique_ptr<RecordsetBuilder> m_asyncBuilder;
    bool m_baseResolved = false;
};

using RecordsetPtr = std::shared_ptr<Recordset>;

} // namespace zlx::ado
