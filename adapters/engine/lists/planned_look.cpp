#include "engine/lists/planned_look.h"

#include <algorithm>

namespace engine {

void PlannedLook::Begin() {
  first_.version = source_.Version();
  first_.way = FirstRows::Way::Walk;
  first_.page = std::make_shared<RowPage>(source_.Fields().size() + all_.Order().size(), 1);
}

// So many more rows of the list; true when the page is full. They are walked from the last row found, and those behind it once more, as
// nobody knows where the walk ended.
bool PlannedLook::WalkOn(std::int64_t rows) {
  KeyWalker::Request request;
  request.direction = direction_;
  request.from = reached_ ? &*reached_ : nullptr;
  std::int64_t once = reached_ ? looked_ / (Hits() + 1) : 0;
  if (!rows_->CanSkip(request)) {
    request.from = nullptr;
    once = looked_;
    first_.page->cells.Clear();
    first_.page->keys.clear();
  }
  std::optional<OrderPlace> last;
  rows_->ReadAmongNext(direction_, request.from, once + rows, *bounded_, FirstLook::kPage - Hits(), [&](const Query& row) {
    rows_->AppendRow(row, *first_.page);
    last = rows_->PlaceAt(row, false);
    return true;
  });
  looked_ += rows;
  if (last) reached_ = std::move(last);
  if (Hits() < FirstLook::kPage) return false;
  const std::int64_t passed = direction_ == Direction::Up ? bounded_->CountBelow(*reached_) + 1 : bounded_->CountUpTo(direction_, nullptr, *reached_);
  looked_ = std::max(passed, FirstLook::kPage);
  return true;
}

// A walk may take as much as a small part of the look at all rows that it may save; more of it where it is known to lead to the page.
bool PlannedLook::Walk() {
  constexpr std::int64_t kFewest = 64;
  constexpr std::int64_t kMost = 1088;
  constexpr std::int64_t kPartOfAll = 32;
  constexpr std::int64_t kPartIfKnown = 4;
  // Rows that have turned up tell how far the page reaches; they may lie a little thinner there.
  constexpr std::int64_t kTelling = 5;
  std::int64_t rows = std::min(kMost, span_ / kPartOfAll);
  if (rows < kFewest) return false;
  bool atOnce = true;
  for (; !WalkOn(rows); atOnce = false) {
    if (Hits() < kTelling) return false;
    rows = kFewest + 2 * (FirstLook::kPage - Hits()) * looked_ / Hits();
    if (FirstLook::kPage * looked_ / Hits() * kPartIfKnown > span_) return false;
  }
  // Of two looks each may have found a row that another desk has moved on meanwhile.
  return atOnce || source_.Version() == first_.version;
}

void PlannedLook::PutAllInOrder() {
  RowPage& page = *first_.page;
  page.cells.Clear();
  page.keys.clear();
  KeyWalker::Request request;
  request.direction = direction_;
  request.limit = FirstLook::kPage;
  all_.Read(request, [&](const Query& row) {
    all_.AppendRow(row, page);
    return true;
  });
  first_.all = Hits() < FirstLook::kPage;
}

// Where no way leads along the list there is nothing to find out before.
FirstRows PlannedLook::ByOne(std::int64_t likelyRows) {
  Begin();
  PutAllInOrder();
  first_.likelyRows = first_.all ? Hits() : likelyRows;
  return std::move(first_);
}

FirstRows PlannedLook::Run() {
  const ResolvedTable& table = *source_.Plan().tables.front().table;
  const std::int64_t likelyRows = table.file->LikelyRows(table.definition.name);
  if (rows_ == nullptr && likelyRows > 0) return ByOne(likelyRows);
  bool drives = false;
  if (rows_ != nullptr) {
    FirstLook look(source_, rows_, bounded_, direction_);
    if (std::optional<FirstRows> few = look.ByFewKeys()) return std::move(*few);
    drives = look.LeadsToFew();
  }
  Begin();
  span_ = likelyRows > 0 ? likelyRows : SpanOf(source_).Width();
  const bool found = rows_ != nullptr && !drives && Walk();
  const double share = looked_ == 0 ? 1 : static_cast<double>(std::max<std::int64_t>(Hits(), 1)) / static_cast<double>(looked_);
  first_.likelyRows = static_cast<std::int64_t>(std::min(share, 1.0) * static_cast<double>(span_));
  if (!found) PutAllInOrder();
  if (first_.all) first_.likelyRows = Hits();
  return std::move(first_);
}

}  // namespace engine
