#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/lists/fences.h"
#include "engine/lists/first_look.h"
#include "engine/lists/row_list.h"
#include "engine/rows/key_walker.h"
#include "engine/search/indexed_search.h"

namespace engine {

/// One table in the order of an index (or of its row key), with or without a filter, read by pages as the walk needs them.
/// Nothing is held but a few pages and fences. Others' new rows may appear at once.
///
/// For dynasets a row keeps its place when its own edit changes its order key, and own new rows stand at the end, until the
/// list is opened anew; for tables every row stands where the index has it.
class IndexedList final : public RowList, public IndexedRows {
 public:
  struct Shape {
    std::vector<OrderColumn> order;
    bool descending = false;
    std::string index;        ///< the table's index that has this order, "" for the row key or the store's choice
    bool keepsPlaces = true;  ///< a dynaset
    /// Of a long list with a filter: the ways through its rows, and through those of the table that bounds on the order column
    /// leave.
    std::shared_ptr<KeyWalker> rows{};
    std::shared_ptr<KeyWalker> bounded{};
  };
  IndexedList(std::shared_ptr<RowSource> source, Shape shape);
  /// The same, of which the first rows have been found.
  IndexedList(std::shared_ptr<RowSource> source, Shape shape, FirstRows first);

  KeyWalker& Walker() noexcept { return *walker_; }
  Direction Forward() const noexcept { return forward_; }

  std::shared_ptr<RowList> OpenAgain(const std::shared_ptr<RowSource>& source) override;
  std::optional<std::int64_t> RowGoneTo() const override;
  void BeginAlsoAt(std::int64_t rowKey) override;
  bool First(Place& place) override;
  bool Last(Place& place) override;
  bool Next(Place& place) override;
  bool Previous(Place& place) override;
  std::string KeyOf(const Place& place) const override;
  Place PlaceOf(const std::string& key) override;
  bool WindowPlace(const std::string& key, Place& place) override;
  bool Find(std::string_view criterion, const Place* after, Place& found) override;
  std::int64_t RowsReached() override;
  bool AnyRow() override;
  Place Added(const std::vector<std::int64_t>& keys) override;
  std::optional<RowBack> Back() override;
  void Changed(Place& place) override;
  void Deleted(const Place& place) override;
  std::vector<platform::ListRow> Rows(const Place* from, bool forward, int count) override;
  std::vector<platform::ListRow> RowsAt(std::int64_t ordinal, int count) override;
  std::int64_t Count() override;
  bool CountIsExact() override;
  bool At(std::int64_t ordinal, Place& place) override;
  std::optional<std::int64_t> OrdinalOf(const Place& place) override;
  bool IdleSlice() override;

  bool RowByKey(std::int64_t rowKey, Place& place) override;
  /// The first row that a request finds in the table; false when there is none.
  bool NextRow(const KeyWalker::Request& request, Place& place);
  /// Where the row with that key stands, without the row.
  bool PlaceByKey(std::int64_t rowKey, Place& place);
  int ComparePlaces(const Place& left, const Place& right) const override;
  std::vector<std::int64_t> PinnedRows() const override;
  bool IsPinned(std::int64_t rowKey) const override { return pinned_.contains(rowKey); }
  /// The exact number of rows now.
  std::int64_t CountNow();

 private:
  /// Where a row stands that the list holds in place: at an order key that it had, or at the end.
  struct Pinned {
    OrderPlace place;
    std::int64_t added = 0;
  };
  /// Rows that stand beside one another, as read at one moment.
  struct Segment {
    std::shared_ptr<const RowPage> page;
    std::vector<std::int64_t> added;  ///< for each row, or empty when none was added at the end
    bool reachesStart = false;
    bool reachesEnd = false;
  };

  using RowRead = std::function<void(const KeyWalker::Sink& sink)>;
  bool ReadOne(const RowRead& read, Place& place);
  bool PageFrom(std::int64_t rowKey, Place& place);
  bool HeldRow(std::int64_t rowKey, Place& place);
  void ReadBeginningWithExpected();
  void WentTo(std::int64_t rowKey);
  void TakeSingle(std::shared_ptr<const RowPage> page, Place& place);
  void PutWherePinned(Place& place) const;
  bool Step(Place& place, bool forward);
  bool TakeEnd(Place& place, bool forward);
  void SetPlace(Place& place, const Segment& segment, std::size_t row) const;
  const Segment* SegmentOf(const Place& place, std::size_t& row);
  const Segment* SegmentAtEnd(bool atStart);
  const Segment& ReadSegment(const Place* from, bool forward, std::int64_t limit, std::int64_t skip = 0);
  const Segment& Keep(Segment segment);
  const Segment& NothingBeyond(const Place& place, bool forward, bool isLast);
  std::vector<platform::ListRow> RowsOf(const Segment& segment) const;
  void ReadTableRows(const Place* from, bool forward, std::int64_t limit, std::int64_t skip, RowPage& page, bool& ended);
  void MergePinned(const Place* from, bool forward, bool ended, Segment& segment);
  void DropStalePages();
  OrderPlace OrderOf(const Place& place) const;
  OrderPlace OrderInPage(const RowPage& page, std::size_t row) const;
  std::shared_ptr<RowPage> NewPage() const;
  std::int64_t RowsOffset(const OrderPlace& place);
  std::int64_t CountRows();
  bool OwnRowsMayBeMissing() const;
  void TakeCount(const RowShape::Count& count);
  void TakeCountOfPlaces();
  std::int64_t Estimate();

  Shape shape_;
  Direction forward_;
  std::shared_ptr<KeyWalker> walker_;
  Fences fences_;
  IndexedSearch search_;
  std::list<Segment> segments_;  ///< last used first
  std::uint64_t segmentsVersion_ = 0;
  std::unordered_map<std::int64_t, Pinned> pinned_;
  std::shared_ptr<const RowPage> given_;  ///< the row that a change has given back, until it is taken
  bool pageTried_ = false;                ///< a row by its key, with those behind it
  std::shared_ptr<const RowPage> sought_;  ///< the row that was read last by its key alone
  std::optional<std::int64_t> goneTo_;     ///< the row that was gone to last by its key
  std::optional<std::int64_t> expected_;   ///< that it would be, as long as it wasn't
  Place foundLast_;  ///< or changed, then with its row
  std::uint64_t foundVersion_ = 0;
  std::int64_t lastAdded_ = 0;
  std::int64_t likelyRows_ = 0;  ///< a guess from the first rows of a filter, 0 for none
  int run_ = 0;                  ///< pages read one after the other in one direction
  bool runForward_ = true;

  std::int64_t reached_ = 0;
  bool lastReached_ = false;
  std::optional<std::int64_t> width_;  ///< of the row keys, at that version
  std::uint64_t widthVersion_ = 0;
  std::optional<std::int64_t> count_;
  std::uint64_t countVersion_ = 0;
  std::uint64_t countOwnVersion_ = 0;
  std::chrono::steady_clock::time_point counted_;
};

}  // namespace engine
