#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/channel.h"
#include "engine/store/dialect.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine {

/// Tables whose names begin with this sign are the store's own; no catalogue shows them.
inline constexpr char kOwnNameMark = '~';

/// A link as a file stores it.
struct StoredLink {
  std::string name;
  std::string path;    ///< as link_paths.h says
  std::string source;  ///< table in the other file
};

/// One open company or work file, as long as somebody holds it.
class StoreFile {
 public:
  StoreFile() = default;
  virtual ~StoreFile() = default;
  StoreFile(const StoreFile&) = delete;
  StoreFile& operator=(const StoreFile&) = delete;

  virtual const std::string& Path() const = 0;
  /// The name that stands before its tables in statements, not quoted.
  virtual const std::string& Qualifier() const = 0;
  virtual bool ReadOnly() const = 0;

  /// Changes with each commit by others. A quick question to the file.
  virtual std::int64_t OthersVersion() = 0;
  /// Whether the store is told of others' commits, so that OthersVersion asks nobody.
  virtual bool IsTold() const { return false; }
  /// Whether all up to a moment ago are known by that.
  virtual bool HeardJustNow() const { return false; }
  /// Changes with each write of this store's own. Asks nobody.
  virtual std::uint64_t OwnVersion() const = 0;
  /// Changes with every change of table definitions, by anyone.
  virtual std::int64_t SchemaVersion() = 0;

  /// Names of the user's tables, in the order of their making.
  virtual std::vector<std::string> TableNames() = 0;
  /// A user's table's own spelling of its name, "" when there is none. No regard to case.
  virtual std::string StoredName(std::string_view table) = 0;
  /// Definition of a table that is there. Raises 3049 for one that isn't ours.
  virtual platform::TableDefinition ReadTable(const std::string& storedName) = 0;
  /// How many rows the store believed a table to have when its definition was read; 0 where it keeps no such number. Asks nobody.
  virtual std::int64_t LikelyRows(std::string_view storedName) const { return static_cast<void>(storedName), 0; }
  /// The column that is a table's integer row key, not quoted: its Counter's, or a hidden one's.
  virtual std::string RowKeyOf(const platform::TableDefinition& table) const = 0;
  /// The next number of a table's Counter, taken by a commit of its own: used up whether or not a row ever gets it. Raises 3218
  /// after the wait for a lock.
  virtual std::int64_t TakeNumber(const platform::TableDefinition& table) = 0;
  /// Rows have been written with numbers of their own: the Counter goes on above the highest. For a store that doesn't see to it itself.
  virtual void NumbersGiven(const platform::TableDefinition& table) { static_cast<void>(table); }

  virtual std::vector<StoredLink> Links() = 0;
  /// Raises 3012 when the name is taken, 3027 on a read-only file.
  virtual void AddLink(const StoredLink& link) = 0;
};

/// A copy of a table of another store, for statements that join it with tables of this one. It goes with the unit in which it was made.
class GuestTable {
 public:
  GuestTable() = default;
  virtual ~GuestTable() = default;
  GuestTable(const GuestTable&) = delete;
  GuestTable& operator=(const GuestTable&) = delete;

  /// How statements name it, and its row key: quoted for the store.
  virtual std::string Name() const = 0;
  virtual std::string RowKey() const = 0;
  /// The values of the next row, in the order of the definition's fields. Row keys follow the rows' order.
  virtual void Add(std::span<const platform::Value> row) = 0;
  /// All rows are there.
  virtual void Finish() = 0;
};

/// What stands behind the engine: it keeps the files and runs statements. All cursors work on this alone.
class Store : public Channel {
 public:
  virtual const Dialect& OwnDialect() const = 0;

  /// The file at that path; one that is open already is the same object. Errors name it as the program does, by `asked`: 3024,
  /// 3044, 3051 for what isn't there or may not be opened, 3343 for another or a newer format, 3049 for a damaged file, 3045 for one
  /// that stays locked, 3043 for one that can't be used where it lies, 3048 when there are too many.
  virtual std::shared_ptr<StoreFile> Open(std::string_view path, std::string_view asked) = 0;

  /// Whether rows of other stores' tables may visit it.
  virtual bool TakesGuests() const { return false; }
  /// A place for the rows of a table of that definition, inside a unit; `beside`: an open file of this store. nullptr: it takes none.
  virtual std::unique_ptr<GuestTable> Receive(const platform::TableDefinition& table, const StoreFile& beside) {
    static_cast<void>(table);
    static_cast<void>(beside);
    return nullptr;
  }

  /// Whether that SELECT begins with a look at all rows of a table.
  virtual bool ScansAll(std::string_view sql) = 0;
  /// Runs `read`, which reads a page of a list in its order; false, the page incomplete, when that would cost more than looking
  /// at about so many rows, or when all rows had to be put in order first.
  virtual bool ReadsCheaply(int rows, const std::function<void()>& read) = 0;

  /// Runs `read`, which may look at many rows before it gives one, and asks `goOn` meanwhile; where that says no, `read` is left
  /// incomplete: false. A store that can't be stopped asks nobody.
  virtual bool ReadsToItsEnd(const std::function<bool()>& goOn, const std::function<void()>& read) {
    static_cast<void>(goOn);
    read();
    return true;
  }

  /// Runs `act`, statements that may write many rows, and serves painting every few milliseconds meanwhile. What painting asks of a
  /// store that stands in the midst of a statement is refused: 3045. A store that waits for its statements serves while it waits.
  virtual void ServedMeanwhile(const std::function<void()>& act) { act(); }

  /// Called while a lock is waited for, and between the parts of long work.
  virtual void OnWait(std::function<void()> servePainting) = 0;
  /// Lets the windows paint; does nothing when called from inside painting.
  virtual void ServePainting() = 0;
};

}  // namespace engine
