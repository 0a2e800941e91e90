#include "engine/lists/first_look.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "engine/rows/slices.h"

namespace engine {
namespace {

// What it costs beside a row that a look at the whole table passes.
constexpr double kRowElsewhere = 14;  // a row in the list's order lies anywhere in the file
constexpr double kRowNearby = 4;      // in a small file
constexpr double kRowByKey = 10;      // rows in the order of their keys lie nearer to one another
constexpr double kQuestion = 6;       // asking another table
constexpr std::int64_t kSmallFile = 30'000;

// Into which part of the work that it may save a trial may go.
constexpr double kTrial = 8;
// How much dearer a way must seem to be given up.
constexpr double kClearly = 2;
// So many rows found tell how many there are.
constexpr std::int64_t kTelling = 6;

}  // namespace

FirstLook::FirstLook(RowSource& source, KeyWalker* rows, KeyWalker* bounded, Direction direction)
    : source_(source), rows_(rows), bounded_(bounded), direction_(direction), span_(SpanOf(source).Width()) {
  const auto& order = source.Plan().order;
  for (const PlanDriver& driver : source.Plan().drivers) {
    // What bounds the order column bounds the walk.
    if (rows != nullptr && driver.field >= 0 && !order.empty() && order.front().field == driver.field) continue;
    drivers_.push_back({.driver = &driver, .open = {}, .keys = {}});
  }
}

// Reads on in a driver's keys until there are so many, or no more.
void FirstLook::Count(Counted& counted, std::size_t most) {
  constexpr std::size_t kKeysBetweenPaints = 8192;
  if (!counted.open) counted.open = std::make_unique<Query>(source_.Store(), std::string_view(counted.driver->keys));
  while (!counted.whole && counted.keys.size() <= most) {
    counted.whole = !counted.open->Step();
    if (counted.whole || counted.open->IsNull(0)) continue;
    counted.keys.push_back(counted.open->Int(0));
    if (counted.keys.size() % kKeysBetweenPaints == 0) source_.Store().ServePainting();
  }
  if (counted.whole) counted.open.reset();
}

// All drivers are read equally far, and none beyond the end of another.
void FirstLook::CountAll(std::size_t most) {
  for (Counted& counted : drivers_) {
    const Counted* shortest = Shortest();
    if (!counted.whole) Count(counted, shortest == nullptr ? most : std::min(most, shortest->keys.size()));
  }
}

FirstLook::Counted* FirstLook::Shortest() {
  Counted* best = nullptr;
  for (Counted& counted : drivers_)
    if (counted.whole && (best == nullptr || counted.keys.size() < best->keys.size())) best = &counted;
  return best;
}

// How many rows stand before the end of the page, as far as the rows seen tell.
double FirstLook::RowsToLookAt() const {
  return static_cast<double>(kPage) * static_cast<double>(std::max<std::int64_t>(looked_, 1)) / std::max(0.7, static_cast<double>(Hits()));
}

void FirstLook::WalkOn(std::int64_t rows) {
  const OrderPlace* from = reached_ ? &*reached_ : nullptr;
  std::optional<OrderPlace> until = bounded_->PlaceAhead(direction_, from, rows);
  RowPage& page = *first_.page;
  const auto take = [&](const Query& row) {
    rows_->AppendRow(row, page);
    return Hits() < kPage;
  };
  if (until) {
    rows_->ReadStretch(direction_, from, *until, false, take);
    looked_ += rows;
    reached_ = std::move(until);
  } else {
    KeyWalker::Request request;
    request.direction = direction_;
    request.from = from;
    request.limit = std::numeric_limits<std::int64_t>::max();
    rows_->Read(request, take);
    looked_ += rows / 2;
    first_.all = Hits() < kPage;
    reached_.reset();
  }
  source_.Store().ServePainting();
}

void FirstLook::TakeDriver(Counted& counted) {
  constexpr std::size_t kFew = 64;
  std::vector<std::int64_t>& keys = counted.keys;
  std::ranges::sort(keys);
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  first_.way = FirstRows::Way::Drive;
  first_.driven = {counted.driver, std::move(keys)};
  if (rows_ != nullptr && first_.driven.keys.size() <= kFew) ReadFew();
}

// All rows at once, and put in order.
void FirstLook::ReadFew() {
  RowPage read(first_.page->columns, 1);
  std::vector<OrderPlace> places;
  PiecewiseScan scan(source_, source_.ColumnList() + ", " + rows_->KeyColumns(), first_.driven.driver->rest, first_.driven.keys);
  const auto take = [&](const Query& row) {
    rows_->AppendRow(row, read);
    places.push_back(rows_->PlaceAt(row, false));
  };
  while (scan.Next(take)) {
  }
  std::vector<std::size_t> order(places.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  const int sign = direction_ == Direction::Up ? 1 : -1;
  std::ranges::sort(order, [&](std::size_t left, std::size_t right) { return sign * rows_->Compare(places[left], places[right]) < 0; });
  RowPage& page = *first_.page;
  page.cells.clear();
  page.keys.clear();
  page.cells.reserve(read.cells.size());
  for (const std::size_t row : order) {
    const auto cells = read.cells.begin() + static_cast<std::ptrdiff_t>(row * read.columns);
    page.cells.insert(page.cells.end(), std::make_move_iterator(cells), std::make_move_iterator(cells + static_cast<std::ptrdiff_t>(read.columns)));
    page.keys.push_back(read.keys[row]);
  }
  first_.all = true;
  first_.likelyRows = Hits();
}

// Walks on as long as that promises to be less work than `other`; true when the first rows are found.
bool FirstLook::Walks(double other) {
  for (;;) {
    const double left = std::max(0.0, RowsToLookAt() - static_cast<double>(looked_));
    const bool telling = Hits() >= kTelling;
    const double trial = other / kTrial / look_ - static_cast<double>(looked_);
    if (telling ? left * look_ > other : trial < 8 || RowsToLookAt() * look_ > kClearly * other) return false;
    const double rows = telling ? left * 1.1 + 8 : std::min(trial, looked_ == 0 ? 32.0 : 3.0 * static_cast<double>(looked_));
    WalkOn(static_cast<std::int64_t>(std::clamp(rows, 8.0, 1024.0)));
    if (Hits() < kPage && !first_.all) continue;
    first_.way = FirstRows::Way::Walk;
    const double share = looked_ == 0 ? 1 : static_cast<double>(Hits()) / static_cast<double>(looked_);
    first_.likelyRows = first_.all ? Hits() : static_cast<std::int64_t>(share * static_cast<double>(span_));
    return true;
  }
}

FirstRows FirstLook::Run() {
  constexpr std::size_t kFirstCount = 32;
  constexpr std::size_t kFurther = 4;
  const SelectPlan& plan = source_.Plan();
  const double questions = plan.asksByRow ? kQuestion : 0;
  look_ = (span_ <= kSmallFile ? kRowNearby : kRowElsewhere) + questions;
  const double scan = static_cast<double>(span_) * (1 + questions * (plan.bounds.empty() && plan.asksByRow ? 1 : 0.2));
  const auto mostUseful = static_cast<std::size_t>(scan / kRowByKey);
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  first_.version = source_.Version();
  first_.page = std::make_shared<RowPage>(source_.Fields().size() + (rows_ == nullptr ? 0 : rows_->Order().size()), 1);
  for (std::size_t most = kFirstCount;; most = std::min(most * kFurther, mostUseful)) {
    CountAll(most);
    Counted* shortest = Shortest();
    // What isn't counted to its end is at least this much work.
    const double driven = static_cast<double>(shortest != nullptr ? shortest->keys.size() : most) * kRowByKey;
    if (rows_ != nullptr && Walks(drivers_.empty() ? scan : std::min(scan, driven))) break;
    if (shortest != nullptr && driven <= scan) {
      TakeDriver(*shortest);
      break;
    }
    if (shortest != nullptr || drivers_.empty() || most >= mostUseful) {
      first_.way = FirstRows::Way::Scan;
      break;
    }
  }
  drivers_.clear();
  oneState.Commit();
  return std::move(first_);
}

}  // namespace engine
