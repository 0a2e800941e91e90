#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/errors.h"
#include "engine/lists/key_feed.h"
#include "engine/lists/row_list.h"
#include "engine/search/keyset_search.h"
#include "engine/store/flag.h"

namespace engine {

/// A list whose row keys are held: which rows it has and in what order is settled at opening (of a table in index order,
/// row keys follow as they are needed). Rows themselves are read when they are visited. Own new rows go to its end.
class KeysetList final : public RowList, public KeysetRows {
 public:
  /// How a list in the order of an index reads its keys, and searches.
  struct Walk {
    std::vector<OrderColumn> order;
    std::string index;
    bool descending = false;
  };
  /// Any plan, ordered by the store.
  explicit KeysetList(std::shared_ptr<RowSource> source);
  KeysetList(std::shared_ptr<RowSource> source, const Walk& walk);
  /// One table whose rows are put in order here.
  KeysetList(std::shared_ptr<RowSource> source, OrderColumn order, bool descending);
  /// The same, of which the first rows, or keys among which all of its keys are, have been found.
  KeysetList(std::shared_ptr<RowSource> source, const Walk& walk, FirstRows first);

  std::shared_ptr<RowList> OpenAgain(const std::shared_ptr<RowSource>& source) override;
  bool First(Place& place) override;
  bool Last(Place& place) override;
  bool Next(Place& place) override;
  bool Previous(Place& place) override;
  std::string KeyOf(const Place& place) const override;
  Place PlaceOf(const std::string& key) override;
  bool WindowPlace(const std::string& key, Place& place) override;
  bool Find(std::string_view criterion, const Place* after, Place& found) override;
  std::int64_t RowsReached() override;
  void Settle() override { FillAll(); }
  Place Added(const std::vector<std::int64_t>& keys) override;
  void Changed(Place& place) override;
  void Deleted(const Place& place) override;
  std::vector<platform::ListRow> Rows(const Place* from, bool forward, int count) override;
  std::int64_t Count() override;
  bool CountIsExact() override { return complete_; }
  bool At(std::int64_t ordinal, Place& place) override;
  std::optional<std::int64_t> OrdinalOf(const Place& place) override;
  bool IdleSlice() override;

  // For the search.
  std::int64_t Size() const noexcept override { return static_cast<std::int64_t>(state_.size()); }
  void FillAll() override;
  bool Reach(std::int64_t ordinal) override { return Reach(ordinal, true); }
  const std::int64_t* KeysOf(std::int64_t ordinal) const override {
    return keys_.data() + static_cast<std::size_t>(ordinal) * Source().KeyCount();
  }
  bool IsAlive(std::int64_t ordinal) const override { return state_[static_cast<std::size_t>(ordinal)] == State::Alive; }
  const std::vector<std::int64_t>& OwnRows() const noexcept override { return ownRows_; }
  bool Visit(std::int64_t ordinal, Place& place) override { return Visit(ordinal, place, true); }
  std::optional<std::vector<std::int64_t>> FitsOfFew(std::string_view criterion) override;
  std::optional<std::int64_t> OrdinalOfKey(std::int64_t rowKey) override;
  KeyWalker* Walker() noexcept override { return walker_.get(); }
  KeyWalker* Places() noexcept override { return places_.get(); }
  Direction Forward() const noexcept override { return forward_; }
  bool InIndexOrder() override { return walker_ && !mixed_ && filledVersion_ == Source().RecentVersion(); }
  bool InOrder() override { return places_ && complete_ && !mixed_ && ownRows_.empty() && filledVersion_ == Source().RecentVersion(); }
  std::int64_t FirstNotBefore(std::int64_t from, const IsBefore& isBefore) override;

 private:
  enum class State : std::uint8_t { Alive, Gone, Missed, Deleted };  ///< Gone by others; Missed: and somebody came to it
  struct Block {
    std::int64_t first = 0;
    std::vector<int> rows;  ///< row of the page for each number, -1 for a row that is gone
    std::shared_ptr<const RowPage> page;
  };

  bool Reach(std::int64_t ordinal, bool withRows);
  bool Visit(std::int64_t ordinal, Place& place, bool forward);
  /// Works with the feed, which may have painting served meanwhile: that can't have more keys then (3045), as with any long statement.
  template <class Work>
  auto WithFeed(Work&& work) {
    if (feeding_) throw errors::FileInUse(Source().Shape().files.front()->Path());
    const Flag feeding(feeding_);
    return work();
  }
  void ReadMore(std::size_t wanted, bool withRows);
  void DropKnownKeys(std::size_t from);
  void NumberKeys();
  std::optional<std::int64_t> SearchOrdinal(std::int64_t rowKey);
  void TakeFirst(FirstRows& first);
  std::unique_ptr<SortedFeed> Others(DrivenKeys driven);
  const Block* BlockWith(std::int64_t ordinal);
  const Block& ReadBlock(std::int64_t ordinal, bool forward);
  using RowSink = std::function<void(const Query& row)>;
  bool AlongIndex(std::int64_t first, std::int64_t end, const RowSink& sink);
  bool ReadAlongIndex(Block& block, std::int64_t end, RowPage& page);
  void ReadByKeys(Block& block, std::int64_t end, RowPage& page);
  std::vector<std::int64_t> ReadTogether(Block& block, std::int64_t end, RowPage& page, RowSource::Tested* tested);
  const Block& Keep(Block block);
  void DropStaleBlocks();
  void SetPlace(Place& place, std::int64_t ordinal) const;
  void MarkGone(std::int64_t ordinal, State state);
  bool WalkFrom(Place& place, std::int64_t from, bool forward);
  const std::vector<std::int64_t>& Shown();
  std::vector<std::int64_t> NumbersFrom(std::int64_t from, bool forward, int count);

  Walk walk_;
  Direction forward_ = Direction::Up;
  std::shared_ptr<KeyWalker> walker_;  ///< of a list that is read along an index
  std::shared_ptr<KeyWalker> places_;  ///< of a list in one table's order: where its rows stand
  std::unique_ptr<KeyFeed> feed_;
  bool feeding_ = false;
  KeysetSearch search_;
  std::vector<std::int64_t> keys_;
  std::vector<State> state_;
  bool complete_ = false;
  bool mixed_ = false;  ///< somebody wrote between two readings of keys
  std::uint64_t filledVersion_ = 0;
  std::int64_t missing_ = 0;  ///< rows missed or deleted
  std::int64_t deleted_ = 0;  ///< of these, own deletes
  std::vector<std::int64_t> shown_;
  bool shownValid_ = false;
  std::vector<std::int64_t> ownRows_;
  std::unordered_map<std::int64_t, std::int64_t> ordinals_;
  std::size_t ordinalsFor_ = 0;
  std::unordered_map<std::int64_t, OrderPlace> marks_;  ///< places of some rows, evenly spread, by their numbers
  std::list<Block> blocks_;
  std::uint64_t blocksVersion_ = 0;
  int run_ = 0;
};

}  // namespace engine
