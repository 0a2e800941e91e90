#include "engine/lists/planned_look.h"

#include <algorithm>

namespace engine {
namespace {

constexpr std::int64_t kFewest = 64;      // rows that are worth a question
constexpr std::int64_t kPartIfKnown = 4;  // of all rows, that a walk may pass which is known to lead to the page
constexpr int kTakenAtMost = 32;          // times that a way is taken without finding out whether there is a better one by now

}  // namespace

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
  std::int64_t once = looked_ / (Hits() + 1);
  if (reached_ && !rows_->CanSkip(request)) {
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
  return Hits() == FirstLook::kPage;
}

// About which part of the rows the list has. Where a page was found, but not where it was expected, the rows are counted that stand before its
// end.
double PlannedLook::LikelyShare(bool found, const std::optional<FirstLook::Told>& told) const {
  if (found && told && atOnce_) return told->share;
  if (looked_ == 0) return told ? told->share : 1;
  const std::int64_t looked = found ? std::max(bounded_->CountBefore(direction_, *reached_, looked_) + 1, FirstLook::kPage) : looked_;
  return std::min(1.0, static_cast<double>(std::max<std::int64_t>(Hits(), 1)) / static_cast<double>(looked));
}

// How many rows are walked where nothing is known of them: as many as take a small part of the look at all rows that they may save.
std::int64_t PlannedLook::Trial() const {
  constexpr std::int64_t kMost = 4096;
  constexpr std::int64_t kMostIfAsking = 1088;
  constexpr std::int64_t kPartOfAll = 32;
  return std::min(source_.Plan().asksByRow ? kMostIfAsking : kMost, span_ / kPartOfAll);
}

// How many other tables are asked about a row that is walked. Following a driver's keys takes as much work for each as one question does;
// that other drivers lead there, too, is found out for all of them together.
double PlannedLook::Questions() const {
  const SelectPlan& plan = source_.Plan();
  if (!plan.asksByRow) return 1;
  return static_cast<double>(
      std::max<std::ptrdiff_t>(1, std::ranges::count_if(plan.drivers, [](const PlanDriver& driver) { return driver.field < 0; })));
}

// How many rows are walked at first; 0: none, as the page ends too far on. A driver that tells how many there may be tells where it ends, and
// what following the driver takes.
std::int64_t PlannedLook::FirstStretch(const std::optional<FirstLook::Told>& told) const {
  constexpr double kThinner = 2.5;
  if (!told) return Trial() < kFewest ? 0 : Trial();
  const double expected = static_cast<double>(FirstLook::kPage) / std::max(told->share, 1e-9);
  if (expected * Questions() > told->driven || expected * kPartIfKnown > static_cast<double>(span_)) return 0;
  return std::max(kFewest, static_cast<std::int64_t>(kThinner * expected));
}

// More than the first stretch where that is known to lead to the page.
bool PlannedLook::Walk(const std::optional<FirstLook::Told>& told) {
  // Rows that have turned up tell how far the page reaches; they may lie a little thinner there.
  constexpr std::int64_t kTelling = 5;
  std::int64_t rows = FirstStretch(told);
  if (rows == 0) return false;
  for (; !WalkOn(rows); atOnce_ = false) {
    if (Hits() < kTelling) {
      if (looked_ >= Trial()) return false;
      rows = Trial() - looked_;
      continue;
    }
    rows = kFewest + 2 * (FirstLook::kPage - Hits()) * looked_ / Hits();
    if (FirstLook::kPage * looked_ / Hits() * kPartIfKnown > span_) return false;
  }
  // Of two looks each may have found a row that another desk has moved on meanwhile.
  return atOnce_ || source_.Version() == first_.version;
}

void PlannedLook::PutAllInOrder(std::int64_t likelyRows) {
  RowPage& page = *first_.page;
  page.cells.Clear();
  page.keys.clear();
  all_.ReadFirst(direction_, FirstLook::kPage, likelyRows, [&](const Query& row) {
    all_.AppendRow(row, page);
    return true;
  });
  first_.all = Hits() < FirstLook::kPage;
}

// Where no way leads along the list there is nothing to find out before.
FirstRows PlannedLook::ByOne(std::int64_t likelyRows) {
  Begin();
  PutAllInOrder(likelyRows);
  first_.likelyRows = first_.all ? Hits() : likelyRows;
  return std::move(first_);
}

void PlannedLook::Remember(FoundWay way) const { source_.Shape().foundWay = std::make_shared<FoundWay>(way); }

// By the way that was found last, if it still leads to the page by one statement.
std::optional<FirstRows> PlannedLook::AsBefore() {
  const std::shared_ptr<FoundWay> before = source_.Shape().foundWay;  // may be forgotten while it is waited for
  if (before == nullptr || before->taken >= kTakenAtMost) return {};
  ++before->taken;
  const auto likelyRows = static_cast<std::int64_t>(before->share * static_cast<double>(span_));
  switch (before->way) {
    case FoundWay::Way::Few:
      return FirstLook(source_, rows_, bounded_, direction_).ByFewKeysOf(*before->driver);
    case FoundWay::Way::Walk:
      if (!WalkOn(before->rows + before->rows / 4)) return {};
      break;
    case FoundWay::Way::All:
      PutAllInOrder(span_);
      break;
  }
  first_.likelyRows = first_.all ? Hits() : likelyRows;
  return std::move(first_);
}

FirstRows PlannedLook::Run() {
  const ResolvedTable& table = *source_.Plan().tables.front().table;
  const std::int64_t likelyRows = table.file->LikelyRows(table.definition.name);
  if (rows_ == nullptr && likelyRows > 0) return ByOne(likelyRows);
  span_ = likelyRows > 0 ? likelyRows : SpanOf(source_).Width();
  Begin();
  if (std::optional<FirstRows> again = AsBefore()) return std::move(*again);
  reached_.reset();
  looked_ = 0;
  return FindOut();
}

FirstRows PlannedLook::FindOut() {
  Begin();
  bool found = false;
  std::optional<FirstLook::Told> told;
  if (rows_ != nullptr) {
    FirstLook look(source_, rows_, bounded_, direction_);
    if (std::optional<FirstRows> few = look.ByFewKeys(span_)) {
      if (few->all && few->ordered.empty()) Remember({.way = FoundWay::Way::Few, .driver = look.Taken()});
      return std::move(*few);
    }
    told = look.WhatTheyTell();
    found = Walk(told);
  }
  const double share = LikelyShare(found, told);
  Remember({.way = found ? FoundWay::Way::Walk : FoundWay::Way::All, .rows = looked_, .share = share});
  first_.likelyRows = static_cast<std::int64_t>(share * static_cast<double>(span_));
  if (!found) PutAllInOrder(span_);
  if (first_.all) first_.likelyRows = Hits();
  return std::move(first_);
}

}  // namespace engine
