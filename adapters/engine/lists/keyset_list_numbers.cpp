// A list of held keys by numbers: counts, the place of a number, pages for windows.
#include <algorithm>
#include <iterator>

#include "engine/lists/keyset_list.h"

namespace engine {

namespace {

constexpr std::size_t kSliceKeys = 8192;

}  // namespace

// What others have deleted counts until somebody comes to it; looking at a window does not change the number.
std::int64_t KeysetList::RowsReached() {
  if (Size() == missing_ && !complete_) Reach(Size());
  return Size() - missing_;
}

std::int64_t KeysetList::Count() {
  if (complete_) return Size() - deleted_;
  return std::max(Size(), feed_->Estimate()) - deleted_;
}

// Own deletes leave the list; a row that others have deleted keeps its line.
const std::vector<std::int64_t>& KeysetList::Shown() {
  if (!shownValid_) {
    shown_.clear();
    for (std::int64_t i = 0; i < Size(); ++i)
      if (state_[static_cast<std::size_t>(i)] != State::Deleted) shown_.push_back(i);
    shownValid_ = true;
  }
  return shown_;
}

bool KeysetList::At(std::int64_t ordinal, Place& place) {
  if (ordinal < 0 || !Reach(ordinal + deleted_)) return false;
  std::int64_t number = ordinal;
  if (deleted_ > 0) {
    const auto& shown = Shown();
    if (static_cast<std::size_t>(ordinal) >= shown.size()) return false;
    number = shown[static_cast<std::size_t>(ordinal)];
  }
  place = {};
  SetPlace(place, number);
  return true;
}

std::optional<std::int64_t> KeysetList::OrdinalOf(const Place& place) {
  if (deleted_ == 0) return place.ordinal;
  const auto& shown = Shown();
  const auto found = std::ranges::lower_bound(shown, place.ordinal);
  if (found == shown.end() || *found != place.ordinal) return {};
  return found - shown.begin();
}

// Numbers of up to `count` rows that the list shows, in list order.
std::vector<std::int64_t> KeysetList::NumbersFrom(std::int64_t from, bool forward, int count) {
  std::vector<std::int64_t> numbers;
  if (forward) Reach(from + count - 1, false);
  for (std::int64_t i = from; static_cast<int>(numbers.size()) < count && (forward ? Reach(i) : i >= 0); i += forward ? 1 : -1)
    if (state_[static_cast<std::size_t>(i)] != State::Deleted) numbers.push_back(i);
  if (!forward) std::ranges::reverse(numbers);
  return numbers;
}

// A window's page is read as a whole and moves into its rows.
std::vector<platform::ListRow> KeysetList::Rows(const Place* from, bool forward, int count) {
  if (count <= 0) return {};
  if (from == nullptr && !forward) FillAll();
  const std::int64_t start = from != nullptr ? from->ordinal + (forward ? 1 : -1) : forward ? 0 : Size() - 1;
  const std::vector<std::int64_t> numbers = NumbersFrom(start, forward, count);
  std::vector<platform::ListRow> rows;
  if (numbers.empty()) return rows;
  DropStaleBlocks();
  const Block* known = BlockWith(numbers.front());
  if (known != nullptr && BlockWith(numbers.back()) == known) {
    for (const std::int64_t number : numbers) {
      Place place;
      if (!Visit(number, place)) SetPlace(place, number);
      rows.push_back(ShownRow(place));
    }
    return rows;
  }
  const std::int64_t end = numbers.back() + 1;
  if (end - numbers.front() == static_cast<std::int64_t>(numbers.size())) {
    const bool read = AlongIndex(numbers.front(), end, [&](const Query& row) {
      Place place;
      SetPlace(place, numbers[rows.size()]);
      rows.push_back({{Source().Set(), KeyOf(place)}, Source().ReadValues(row, 0)});
    });
    if (read) return rows;
    rows.clear();
  }
  Block block;
  block.first = numbers.front();
  RowPage page(Source().Fields().size(), Source().KeyCount());
  page.cells.Reserve(static_cast<std::size_t>(end - block.first) * page.columns);
  ReadByKeys(block, end, page);
  for (const std::int64_t number : numbers) {
    Place place;
    SetPlace(place, number);
    rows.push_back(ShownRow(place));
    const int row = block.rows[static_cast<std::size_t>(number - block.first)];
    if (row < 0) continue;
    rows.back().cells = page.CellsOf(static_cast<std::size_t>(row), page.columns);
  }
  return rows;
}

bool KeysetList::IdleSlice() {
  if (complete_) return false;
  if (WithFeed([this] { return feed_->Prepare(); })) return true;
  ReadMore(kSliceKeys, false);
  return !complete_;
}

}  // namespace engine
