#include "engine/lists/keyset_list.h"

#include <algorithm>
#include <cstring>

#include "engine/errors.h"

namespace engine {
namespace {

constexpr std::size_t kReadRows = 128;  // up to here rows come with their keys
constexpr std::size_t kSliceKeys = 8192;

}  // namespace

KeysetList::KeysetList(std::shared_ptr<RowSource> source) : RowList(std::move(source)), search_(Source(), *this) {
  feed_ = std::make_unique<QueryFeed>(Source());
}

KeysetList::KeysetList(std::shared_ptr<RowSource> source, const Walk& walk)
    : RowList(std::move(source)), forward_(walk.descending ? Direction::Down : Direction::Up), search_(Source(), *this) {
  walker_ = Source().Shape().Walker(Source().Store(), walk.order, walk.index);
  feed_ = std::make_unique<WalkFeed>(Source(), *walker_, forward_);
}

KeysetList::KeysetList(std::shared_ptr<RowSource> source, OrderColumn order, bool descending)
    : KeysetList(std::move(source), Walk{.order = {std::move(order)}, .index = {}, .descending = descending}, FirstRows{}) {}

KeysetList::KeysetList(std::shared_ptr<RowSource> source, const Walk& walk, FirstRows first)
    : RowList(std::move(source)), walk_(walk), forward_(walk.descending ? Direction::Down : Direction::Up), search_(Source(), *this) {
  places_ = Source().Shape().Walker(Source().Store(), walk.order, walk.index);
  auto others = Others(std::move(first.driven));
  if (first.page && (first.way == FirstRows::Way::Walk || first.all)) {
    others->LeaveOut(first.page->keys, first.likelyRows);
    TakeFirst(first);
  }
  if (!complete_) feed_ = std::move(others);
}

std::unique_ptr<SortedFeed> KeysetList::Others(DrivenKeys driven) {
  return std::make_unique<SortedFeed>(Source(), walk_.order.empty() ? OrderColumn{} : walk_.order.front(), walk_.descending,
                                      std::move(driven));
}

// The screens open a query's list twice, one time right behind the other.
std::shared_ptr<RowList> KeysetList::OpenAgain(const std::shared_ptr<RowSource>& source) {
  const bool asItWas = places_ && !mixed_ && ownRows_.empty() && missing_ == 0 && (complete_ || Size() > 0);
  if (!asItWas || filledVersion_ != source->Version()) return nullptr;
  // What has been looked for through the whole table isn't looked for again.
  if (!complete_ && feed_->Collected()) FillAll();
  auto again = std::make_shared<KeysetList>(source, walk_, FirstRows{});
  again->keys_ = keys_;
  again->state_ = state_;
  again->complete_ = complete_;
  again->filledVersion_ = again->blocksVersion_ = filledVersion_;
  if (blocksVersion_ == filledVersion_) again->blocks_ = blocks_;
  again->feed_.reset();
  if (complete_) return again;
  auto others = again->Others({});
  others->LeaveOut(keys_, feed_->Estimate());
  again->feed_ = std::move(others);
  return again;
}

void KeysetList::TakeFirst(FirstRows& first) {
  keys_ = first.ordered.empty() ? first.page->keys : std::move(first.ordered);
  state_.resize(keys_.size(), State::Alive);
  complete_ = first.all;
  filledVersion_ = blocksVersion_ = first.version;
  if (keys_.empty()) return;
  Block block;
  for (std::size_t i = 0; i < first.page->Rows(); ++i) block.rows.push_back(static_cast<int>(i));
  block.page = std::move(first.page);
  blocks_.push_front(std::move(block));
}

// ---- the keys

void KeysetList::ReadMore(std::size_t wanted, bool withRows) {
  DropStaleBlocks();
  const std::uint64_t version = blocksVersion_;
  if (state_.empty()) filledVersion_ = blocksVersion_;
  mixed_ = mixed_ || filledVersion_ != blocksVersion_;
  const std::size_t before = state_.size();
  auto page = Source().NewPage();
  if (withRows) page->cells.Reserve(wanted * page->columns);
  complete_ = !WithFeed([&] { return feed_->More(keys_, wanted, withRows && !mixed_ ? page.get() : nullptr); });
  blocksVersion_ = version;  // whoever painted meanwhile may have found the list changed
  if (mixed_) DropKnownKeys(before);
  state_.resize(keys_.size() / Source().KeyCount(), State::Alive);
  shownValid_ = false;
  if (complete_) {
    keys_.shrink_to_fit();
    feed_.reset();
  }
  if (page->Rows() == 0) return;
  Block block;
  block.first = static_cast<std::int64_t>(before);
  for (std::size_t i = 0; i < page->Rows(); ++i) block.rows.push_back(static_cast<int>(i));
  block.page = std::move(page);
  blocks_.push_front(std::move(block));
}

// A row that somebody has moved along the index between two readings would come twice.
void KeysetList::DropKnownKeys(std::size_t from) {
  NumberKeys();
  keys_.erase(std::remove_if(keys_.begin() + static_cast<std::ptrdiff_t>(from), keys_.end(),
                             [&](std::int64_t key) { return ordinals_.contains(key); }),
              keys_.end());
}

void KeysetList::NumberKeys() {
  for (; ordinalsFor_ < state_.size(); ++ordinalsFor_) ordinals_.emplace(keys_[ordinalsFor_], static_cast<std::int64_t>(ordinalsFor_));
}

bool KeysetList::Reach(std::int64_t ordinal, bool withRows) {
  // A walk reads rows with their keys, twice as many each time; a window reads the keys that it is missing.
  while (ordinal >= Size() && !complete_) {
    const auto missing = static_cast<std::size_t>(ordinal + 1 - Size());
    if (missing > kReadRows)
      ReadMore(kSliceKeys, false);
    else
      ReadMore(withRows ? std::max(missing, std::min(state_.size(), kReadRows)) : missing, withRows);
  }
  return ordinal >= 0 && ordinal < Size();
}

void KeysetList::FillAll() {
  while (!complete_) ReadMore(kSliceKeys, false);
}

std::optional<std::int64_t> KeysetList::OrdinalOfKey(std::int64_t rowKey) {
  FillAll();
  if (const std::size_t count = Source().KeyCount(); count > 1) {
    const auto driving = static_cast<std::size_t>(Source().Plan().driving);
    for (std::int64_t i = 0; i < Size(); ++i)
      if (keys_[static_cast<std::size_t>(i) * count + driving] == rowKey) return i;
    return {};
  }
  constexpr std::int64_t kFewNumbers = 4096;  // beyond, a table of the numbers takes more memory than the keys
  if (Size() > kFewNumbers && InOrder()) return SearchOrdinal(rowKey);
  NumberKeys();
  const auto found = ordinals_.find(rowKey);
  return found == ordinals_.end() ? std::nullopt : std::optional(found->second);
}

// As long as nobody has written, the keys stand in the order of the rows' places.
std::optional<std::int64_t> KeysetList::SearchOrdinal(std::int64_t rowKey) {
  const auto wanted = places_->PlaceOfRow(rowKey);
  if (!wanted) return {};
  const int sign = forward_ == Direction::Up ? 1 : -1;
  const std::int64_t found =
      FirstNotBefore(0, [&](const OrderPlace* place) { return place != nullptr && sign * places_->Compare(*place, *wanted) < 0; });
  if (found == Size() || *KeysOf(found) != rowKey) return {};
  return found;
}

// By halving. It asks the same few rows first each time: these are kept.
std::int64_t KeysetList::FirstNotBefore(std::int64_t from, const IsBefore& isBefore) {
  constexpr std::int64_t kMarks = 128;
  const std::int64_t spacing = std::max<std::int64_t>(1, Size() / kMarks);
  const auto isBeforeAt = [&](std::int64_t ordinal) {
    if (const auto known = marks_.find(ordinal); known != marks_.end()) return isBefore(&known->second);
    auto place = places_->PlaceOfRow(*KeysOf(ordinal));
    if (!place) return isBefore(nullptr);
    if (ordinal % spacing != 0) return isBefore(&*place);
    return isBefore(&marks_.emplace(ordinal, std::move(*place)).first->second);
  };
  Transaction oneState(Source().Store(), Transaction::Kind::Read);
  std::int64_t low = from;
  for (std::int64_t high = Size(); low < high;) {
    std::int64_t middle = low + (high - low) / 2;
    const std::int64_t mark = (middle + spacing / 2) / spacing * spacing;
    if (mark >= low && mark < high) middle = mark;
    if (isBeforeAt(middle))
      low = middle + 1;
    else
      high = middle;
  }
  oneState.Commit();
  return low;
}

void KeysetList::MarkGone(std::int64_t ordinal, State state) {
  State& now = state_[static_cast<std::size_t>(ordinal)];
  if (state <= now) return;
  if (now < State::Missed && state >= State::Missed) ++missing_;
  if (state == State::Deleted) ++deleted_;
  now = state;
  shownValid_ = false;
}

// ---- walking

bool KeysetList::WalkFrom(Place& place, std::int64_t from, bool forward) {
  for (std::int64_t i = from; forward ? Reach(i) : i >= 0; i += forward ? 1 : -1) {
    if (IsAlive(i)) {
      ++run_;
      if (Visit(i, place, forward)) return true;
    }
    MarkGone(i, State::Missed);
  }
  return false;
}

bool KeysetList::First(Place& place) {
  DropStaleBlocks();
  run_ = 2;
  return WalkFrom(place, 0, true);
}

bool KeysetList::Last(Place& place) {
  FillAll();
  DropStaleBlocks();
  run_ = 0;
  return WalkFrom(place, Size() - 1, false);
}

bool KeysetList::Next(Place& place) { return WalkFrom(place, place.ordinal + 1, true); }
bool KeysetList::Previous(Place& place) { return WalkFrom(place, place.ordinal - 1, false); }

// ---- bookmarks: the row's number

std::string KeysetList::KeyOf(const Place& place) const {
  std::string key(sizeof(place.ordinal), '\0');
  std::memcpy(key.data(), &place.ordinal, sizeof(place.ordinal));
  return key;
}

bool KeysetList::WindowPlace(const std::string& key, Place& place) {
  std::int64_t ordinal = 0;
  if (key.size() != sizeof(ordinal)) throw errors::BadBookmark();
  std::memcpy(&ordinal, key.data(), sizeof(ordinal));
  if (!Reach(ordinal)) throw errors::BadBookmark();
  if (state_[static_cast<std::size_t>(ordinal)] == State::Deleted) return false;
  place = {};
  SetPlace(place, ordinal);
  return true;
}

Place KeysetList::PlaceOf(const std::string& key) {
  Place place;
  run_ = 0;
  DropStaleBlocks();
  if (!WindowPlace(key, place)) throw errors::RecordDeleted();
  if (!Visit(place.ordinal, place)) {
    MarkGone(place.ordinal, State::Missed);
    throw errors::RecordDeleted();
  }
  return place;
}

bool KeysetList::Find(std::string_view criterion, const Place* after, Place& found) {
  run_ = 0;
  return search_.Find(criterion, after, found);
}

// ---- own changes

Place KeysetList::Added(const std::vector<std::int64_t>& keys) {
  keys_.insert(keys_.end(), keys.begin(), keys.end());
  state_.push_back(State::Alive);
  shownValid_ = false;
  ownRows_.push_back(Size() - 1);
  Place place;
  SetPlace(place, Size() - 1);
  return place;
}

void KeysetList::Changed(Place& place) {
  // A row whose own change has left its partner in the join stays what it was written as.
  FetchRow(place, RowSource::Missing::Null);
  if (std::ranges::find(ownRows_, place.ordinal) == ownRows_.end()) ownRows_.push_back(place.ordinal);
}

void KeysetList::Deleted(const Place& place) {
  MarkGone(place.ordinal, State::Deleted);
  // Other rows of a join can have lost the same record; they are found gone when they are visited.
  std::erase(ownRows_, place.ordinal);
}

}  // namespace engine
