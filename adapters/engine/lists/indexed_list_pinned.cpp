// A list in index order: its own changes, and the rows that keep their places through them.
#include <algorithm>
#include <utility>

#include "engine/lists/indexed_list.h"

namespace engine {

Place IndexedList::Added(const std::vector<std::int64_t>& keys) {
  const std::vector<platform::Value> noOrder(shape_.order.size(), platform::Null);
  if (shape_.keepsPlaces) pinned_[keys[0]] = {{noOrder, keys[0]}, ++lastAdded_};
  if (count_) ++*count_;
  ++reached_;
  // Its bookmark needs no more than its key; who goes there reads the row then.
  Place place;
  place.keys.assign(1, keys[0]);
  return place;
}

void IndexedList::PutWherePinned(Place& place) const {
  const auto pinned = pinned_.find(place.keys[0]);
  if (pinned == pinned_.end()) return;
  place.order = pinned->second.place.values;
  place.added = pinned->second.added;
}

std::optional<RowBack> IndexedList::Back() {
  given_ = nullptr;
  if (Source().OwnDialect().givingBack.empty() || Source().Plan().tables.size() != 1) return {};
  // What others have written from here on makes the row given back an old one.
  Source().Version();
  return RowBack{walker_->RowColumns(), [this](const Query& row) {
                   auto page = NewPage();
                   walker_->AppendRow(row, *page);
                   given_ = std::move(page);
                 }};
}

void IndexedList::Changed(Place& place) {
  const Place before = place;
  const std::uint64_t version = given_ ? Source().KnownVersion() : Source().Version();
  if (given_) {
    TakeSingle(std::exchange(given_, nullptr), place);
    PutWherePinned(place);
  } else if (!RowByKey(place.keys[0], place)) {
    return;
  }
  place.ordinal = before.ordinal;
  foundLast_ = place;
  foundVersion_ = version;
  if (!shape_.keepsPlaces || pinned_.contains(place.keys[0])) return;
  // With a filter the row may have left it, which only the store could tell: it keeps its place in any case.
  if (walker_->Compare(OrderOf(place), OrderOf(before)) == 0 && Source().Plan().where.empty()) return;
  pinned_[place.keys[0]] = {OrderOf(before), 0};
  place.order = before.order;
  foundLast_.order = before.order;
}

void IndexedList::Deleted(const Place& place) {
  pinned_.erase(place.keys[0]);
  if (count_ && *count_ > 0) --*count_;
  if (reached_ > 0) --reached_;
}

std::vector<std::int64_t> IndexedList::PinnedRows() const {
  std::vector<std::int64_t> rows;
  for (const auto& [rowKey, pinned] : pinned_) rows.push_back(rowKey);
  return rows;
}

// Puts the rows in that keep their places: those whose place lies in the stretch that was read.
void IndexedList::MergePinned(const Place* from, bool forward, bool ended, Segment& segment) {
  struct Entry {
    Place place;
    bool pinned = false;
  };
  std::vector<Entry> entries;
  for (std::size_t i = 0; i < segment.page->Rows(); ++i) {
    Entry entry;
    SetPlace(entry.place, segment, i);
    entries.push_back(std::move(entry));
  }
  Place far;  // the stretch ends here
  if (!ended && !entries.empty()) far = forward ? entries.back().place : entries.front().place;
  Segment kept;
  auto keptRows = NewPage();
  walker_->ReadRows(PinnedRows(), [&](const Query& row) {
    walker_->AppendRow(row, *keptRows);
    return true;
  });
  kept.page = keptRows;
  std::unordered_map<std::int64_t, std::size_t> rowOf;
  for (std::size_t i = 0; i < keptRows->Rows(); ++i) rowOf.emplace(*keptRows->KeysOf(i), i);
  std::vector<std::int64_t> gone;
  for (const auto& [rowKey, pinned] : pinned_) {
    const auto row = rowOf.find(rowKey);
    if (row == rowOf.end()) {
      gone.push_back(rowKey);
      continue;
    }
    Place place;
    SetPlace(place, kept, row->second);
    place.order = pinned.place.values;
    place.added = pinned.added;
    const bool behindStart = from == nullptr || (forward ? ComparePlaces(place, *from) > 0 : ComparePlaces(place, *from) < 0);
    const bool beforeEnd = ended || (forward ? ComparePlaces(place, far) < 0 : ComparePlaces(place, far) > 0);
    if (behindStart && beforeEnd) entries.push_back({std::move(place), true});
  }
  for (const std::int64_t rowKey : gone) pinned_.erase(rowKey);
  std::ranges::sort(entries, [&](const Entry& left, const Entry& right) { return ComparePlaces(left.place, right.place) < 0; });

  auto page = NewPage();
  for (const Entry& entry : entries) {
    const RowPage& read = *entry.place.page;
    page->cells.Add(read.cells, entry.place.row * read.columns, Source().Fields().size());
    for (const platform::Value& key : entry.place.order) page->cells.Add(key);
    page->keys.push_back(entry.place.keys[0]);
    segment.added.push_back(entry.place.added);
  }
  segment.page = std::move(page);
}

int IndexedList::ComparePlaces(const Place& left, const Place& right) const {
  if (left.added != right.added && (left.added > 0 || right.added > 0)) {
    if (left.added == 0) return -1;
    if (right.added == 0) return 1;
    return left.added < right.added ? -1 : 1;
  }
  const int order = walker_->Compare(OrderOf(left), OrderOf(right));
  return forward_ == Direction::Up ? order : -order;
}

}  // namespace engine
