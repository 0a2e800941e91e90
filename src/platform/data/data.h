#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/handle.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

/// The operations that the screens ask of the data engine, under their own names. Every failure is a platform::Error with
/// the engine's number. Names of tables, fields and indexes are matched without regard to case.
///
/// Where a recordset stands: after opening on its first row; `Bof()` and `Eof()` both true when it has none. A move past
/// an end leaves no current row (every use of one raises 3021) and sets that end's flag; a failed Find leaves the
/// current row, a failed Seek leaves none. A row that others deleted stays readable while it is current.
namespace platform {

class Recordset;
class Database;
class Workspace;
using RecordsetRef = Handle<Recordset>;
using DatabaseRef = Handle<Database>;
using WorkspaceRef = Handle<Workspace>;

enum class RecordsetType { Default = 0, Table = 1, Dynaset = 2, Snapshot = 4 };
enum class EditMode { None, Edit, Add };

/// Option of Database::Execute: the first row that fails raises its error and nothing stays. Without it rows that break
/// a key are left out in silence.
inline constexpr int dbFailOnError = 128;

/// An opaque name of one row of one recordset (and its clones). Not valid any more after the recordset was opened anew.
struct Bookmark {
  std::uint64_t set = 0;  ///< which recordset it belongs to
  std::string key;        ///< engine's own row identity
  bool operator==(const Bookmark&) const = default;
};

/// A column of a recordset.
struct FieldInfo {
  std::string name;  ///< as the statement names it: field name, alias, or "Table.field" when the name occurs twice
  FieldType type = FieldType::Long;
  int size = 0;             ///< Text: width
  std::string sourceTable;  ///< "" for a computed column
  std::string sourceField;
  bool updatable = false;
};

/// One row as a list shows it; a row that can't be read any more has no cells.
struct ListRow {
  Bookmark bookmark;
  std::vector<Value> cells;  ///< in the order of Recordset::Fields
};

/// Rows around one row of a list.
struct RowsAround {
  std::vector<ListRow> rows;  ///< in list order, that row among them
  std::size_t before = 0;     ///< how many of them stand before it
  /// That row's own; nothing as long as idle work is left that tells it.
  std::optional<std::int64_t> ordinal;
};

/// A windowed look at a recordset's rows that never moves its current row. Ordinals are 0-based and may be approximate
/// until CountIsExact(). Raises like any read.
class RowWindow {
 public:
  virtual ~RowWindow() = default;
  /// Rows of the list: exact, or an estimate until idle work has counted. Cheap.
  virtual std::int64_t Count() = 0;
  virtual bool CountIsExact() = 0;
  /// Up to `count` rows from `ordinal` on.
  virtual std::vector<ListRow> RowsAt(std::int64_t ordinal, int count) = 0;
  /// Up to `count` rows behind (before) that row, in list order, without it.
  virtual std::vector<ListRow> RowsAfter(const Bookmark& row, int count) = 0;
  virtual std::vector<ListRow> RowsBefore(const Bookmark& row, int count) = 0;
  virtual std::vector<ListRow> LastRows(int count) = 0;
  virtual std::optional<ListRow> RowOf(const Bookmark& row) = 0;
  /// That row with up to `count` rows on either side, and its ordinal; nothing when it is not in the list any more.
  virtual std::optional<RowsAround> Around(const Bookmark& row, int count) = 0;
  /// Ordinal of that row, a guess while idle work is left; nothing when it is not in the list any more.
  virtual std::optional<std::int64_t> OrdinalOf(const Bookmark& row) = 0;
  /// One slice (under 5 ms) of counting, fences and keys; false when nothing is left to do. Called in idle time.
  virtual bool IdleSlice() = 0;
};

class Recordset {
 public:
  virtual ~Recordset() = default;

  /// The source text it was opened from (a table's name or a statement).
  virtual const std::string& Name() const = 0;
  virtual RecordsetType Type() const = 0;
  virtual bool Updatable() const = 0;

  virtual bool Bof() const = 0;
  virtual bool Eof() const = 0;
  virtual bool NoMatch() const = 0;
  /// 0 exactly when no row is left; else at least 1, and final after MoveLast.
  virtual std::int32_t RecordCount() = 0;
  /// Whether a row is left: what RecordCount tells from 0, without the counting that it may need after MoveLast.
  virtual bool HasRows() { return RecordCount() != 0; }

  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;
  virtual void MovePrevious() = 0;
  /// Rows forward (back); 0 fetches the current row again and drops a pending edit.
  virtual void Move(std::int32_t rows) = 0;

  /// Dynasets: the first row (the first behind the current one) for which the criterion, a WHERE text without the word,
  /// is true. No match: NoMatch, the current row stays.
  virtual void FindFirst(std::string_view criterion) = 0;
  virtual void FindNext(std::string_view criterion) = 0;

  /// Table-type: the index that orders it and that Seek uses.
  virtual std::string Index() const = 0;
  virtual void SetIndex(std::string_view name) = 0;
  virtual void Seek(std::string_view comparison, std::span<const Value> keys) = 0;
  void Seek(std::string_view comparison, std::initializer_list<Value> keys) {
    Seek(comparison, std::span<const Value>(keys.begin(), keys.size()));
  }

  virtual const std::vector<FieldInfo>& Fields() const = 0;
  /// Place of a column; unknown name: error 3265.
  virtual int FieldIndex(std::string_view name) const = 0;
  /// The current row's value, or the pending edit's.
  virtual Value Field(int index) const = 0;
  virtual void SetField(int index, const Value& value) = 0;
  Value Field(std::string_view name) const { return Field(FieldIndex(name)); }
  void SetField(std::string_view name, const Value& value) { SetField(FieldIndex(name), value); }

  virtual EditMode Mode() const = 0;
  virtual void AddNew() = 0;
  virtual void Edit() = 0;
  virtual void Update() = 0;
  virtual void CancelUpdate() = 0;
  virtual void Delete() = 0;

  virtual platform::Bookmark Bookmark() const = 0;
  virtual void SetBookmark(const platform::Bookmark& bookmark) = 0;
  /// Bookmark of the row last added or changed through this object; before any: error 3021.
  virtual platform::Bookmark LastModified() const = 0;

  /// A second cursor on the same rows with a position of its own; it stands on no row.
  virtual RecordsetRef Clone() = 0;
  /// The rows as a list shows them. Lives as long as the recordset.
  virtual RowWindow& Window() = 0;

  /// Drops a pending edit and leaves the database's collection; any later use raises 3420.
  virtual void Close() = 0;
};

/// A table of a database or a link to a table of another file.
struct TableDef {
  std::string Name;
  std::string Connect;          ///< ";DATABASE=" and the full path for a link, "" for a base table
  std::string SourceTableName;  ///< name of the table in the other file; "" for a base table
};

class Database {
 public:
  virtual ~Database() = default;

  /// Full path of the file.
  virtual const std::string& Name() const = 0;
  virtual RecordsetRef OpenRecordset(std::string_view source, RecordsetType type = RecordsetType::Default) = 0;
  /// Action SQL. `options` is 0 or dbFailOnError.
  virtual void Execute(std::string_view sql, int options = 0) = 0;
  virtual std::int32_t RecordsAffected() const = 0;

  virtual TableDef CreateTableDef(std::string_view name) = 0;
  virtual int TableDefCount() = 0;
  virtual TableDef TableDefAt(int index) = 0;
  /// Stores a link; opens the other file at once.
  virtual void AppendTableDef(const TableDef& definition) = 0;

  virtual int RecordsetCount() = 0;
  virtual RecordsetRef RecordsetAt(int index) = 0;
  /// A closed member can stay listed until the collection is refreshed.
  virtual void RefreshRecordsets() = 0;

  virtual void Close() = 0;
};

class Workspace {
 public:
  virtual ~Workspace() = default;

  virtual const std::string& Name() const = 0;
  /// Opens shared and read-write; never creates a file.
  virtual DatabaseRef OpenDatabase(std::string_view path) = 0;
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void Rollback() = 0;

  virtual int DatabaseCount() = 0;
  virtual DatabaseRef DatabaseAt(int index) = 0;
  virtual void RefreshDatabases() = 0;

  virtual void Close() = 0;
};

class DataEngine {
 public:
  virtual ~DataEngine() = default;

  /// A workspace outside the collection until appended. `type` 2 is this engine's own.
  virtual WorkspaceRef CreateWorkspace(std::string_view name, std::string_view user, std::string_view password, int type) = 0;
  virtual void AppendWorkspace(const WorkspaceRef& workspace) = 0;
  virtual int WorkspaceCount() = 0;
  /// Number 0 is the default workspace: it counts transaction nesting and touches no file.
  virtual WorkspaceRef WorkspaceAt(int index) = 0;
  virtual void RefreshWorkspaces() = 0;

  /// A database for one data control, outside every workspace's collection, so that the shutdown of a workspace leaves
  /// it alone; the control closes it.
  virtual DatabaseRef OpenControlDatabase(std::string_view path) = 0;

  /// Called during long scans and while a locked file is waited for, so that the windows can paint. Must not call the
  /// engine in other ways than through RowWindow.
  virtual void OnWait(std::function<void()> servePainting) = 0;
};

}  // namespace platform
