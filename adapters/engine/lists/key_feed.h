#pragma once

#include <cstdint>
#include <memory>
#include <unordered_set>
#include <vector>

#include "engine/lists/first_look.h"
#include "engine/rows/key_walker.h"
#include "engine/rows/row_source.h"
#include "engine/rows/slices.h"

namespace engine {

/// Delivers the row keys of a list in its order, some at a time.
class KeyFeed {
 public:
  virtual ~KeyFeed() = default;
  /// Appends the keys of at least `wanted` more rows (or of all that are left) to `keys`, the keys of each row behind one
  /// another. May deliver the rows themselves into `rows`, if given. False when no row is left afterwards.
  virtual bool More(std::vector<std::int64_t>& keys, std::size_t wanted, RowPage* rows) = 0;
  /// A cheap guess at the number of rows in all.
  virtual std::int64_t Estimate() = 0;
  /// Whether all that remains is to put in order what is held.
  virtual bool Collected() const { return false; }
  /// Time left over: a slice of preparation. False when there is nothing to prepare but More.
  virtual bool Prepare() { return false; }
};

/// Keys of any plan, ordered by the store, all at once.
class QueryFeed final : public KeyFeed {
 public:
  explicit QueryFeed(RowSource& source) : source_(source) {}
  bool More(std::vector<std::int64_t>& keys, std::size_t wanted, RowPage* rows) override;
  std::int64_t Estimate() override { return 0; }

 private:
  std::string Text() const;
  RowSource& source_;
};

/// Keys of one table in the order of an index, as they are wanted.
class WalkFeed final : public KeyFeed {
 public:
  WalkFeed(RowSource& source, KeyWalker& walker, Direction forward) : source_(source), walker_(walker), forward_(forward) {}
  bool More(std::vector<std::int64_t>& keys, std::size_t wanted, RowPage* rows) override;
  std::int64_t Estimate() override;

 private:
  RowSource& source_;
  KeyWalker& walker_;
  Direction forward_;
  OrderPlace last_;
  bool begun_ = false;
};

/// Keys of one table that no index orders: one pass over the rows in the order in which they lie keeps the start of each
/// order key. The first rows are known at once, the rest is put in order piece by piece.
class SortedFeed final : public KeyFeed {
 public:
  /// `driven`: row keys among which all of the list's are, if that is known.
  SortedFeed(RowSource& source, OrderColumn order, bool descending, DrivenKeys driven = {});
  /// Leaves out the first rows, which the list has already; `likelyRows` are in the whole list.
  void LeaveOut(const std::vector<std::int64_t>& keys, std::int64_t likelyRows) {
    known_.insert(keys.begin(), keys.end());
    likelyRows_ = likelyRows;
  }
  bool More(std::vector<std::int64_t>& keys, std::size_t wanted, RowPage* rows) override;
  std::int64_t Estimate() override;
  bool Collected() const override { return collected_; }
  bool Prepare() override;

 private:
  /// The start of an order key and its row key, in 16 bytes: row keys stay far below the sign that tells a start from a
  /// whole key.
  struct Entry {
    Entry(std::uint64_t start, std::int64_t key, bool isPartial) : prefix(start), tagged(key * 2 + (isPartial ? 1 : 0)) {}
    std::int64_t RowKey() const { return tagged >> 1; }
    bool Partial() const { return (tagged & 1) != 0; }
    std::uint64_t prefix;
    std::int64_t tagged;
  };
  struct Full {
    platform::Value value;
    std::int64_t rowKey;
  };
  void Begin(bool waitedFor);
  bool CollectSome(bool waitedFor = false);
  void CollectAll(const std::string& text);
  void Take(const Query& row);
  template <class Key>
  std::size_t Divide(std::size_t from, std::size_t to, Key key);
  bool Before(const Entry& left, const Entry& right) const;
  bool SplitFirst();
  std::vector<Full> ValuesOf(const std::vector<std::int64_t>& rowKeys);
  void OrderTies(std::size_t from, std::size_t to);

  RowSource& source_;
  OrderColumn order_;
  bool descending_;
  SqlText valueOf_;
  DrivenKeys driven_;
  std::unordered_set<std::int64_t> known_;
  std::unique_ptr<PiecewiseScan> scan_;
  std::int64_t likelyRows_ = 0;
  bool begun_ = false;
  bool collected_ = false;
  std::vector<Entry> entries_;
  std::size_t given_ = 0;
  std::vector<std::size_t> ends_;  ///< ends of the unsorted pieces, the first piece last
};

}  // namespace engine
