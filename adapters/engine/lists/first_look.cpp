#include "engine/lists/first_look.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "engine/rows/slices.h"

namespace engine {
namespace {

constexpr double kTestedRow = 1.5;  // a row of another table, all of which are looked at
constexpr std::int64_t kPieceRows = 4096;

// Into which part of the work that it may save a trial may go.
constexpr double kTrial = 8;
// How much dearer a way must seem to be given up.
constexpr double kClearly = 2;
// How much dearer when it was guessed from little.
constexpr double kSafely = 4;
// More keys than these take too much memory.
constexpr std::int64_t kMostKeys = 250'000;
// So many rows found tell how many there are.
constexpr std::int64_t kTelling = 6;

}  // namespace

FirstLook::FirstLook(RowSource& source, KeyWalker* rows, KeyWalker* bounded, Direction direction)
    : source_(source), rows_(rows), bounded_(bounded), direction_(direction), span_(SpanOf(source).Width()) {
  const auto& order = source.Plan().order;
  for (const PlanDriver& driver : source.Plan().drivers) {
    // What bounds the order column bounds the walk.
    if (rows != nullptr && driver.field >= 0 && !order.empty() && order.front().field == driver.field) continue;
    if (driver.pieceKey.empty())
      drivers_.push_back({.driver = &driver});
    else
      wide_.push_back(&driver);
  }
}

// The larger a file, the less of it is at hand.
FirstLook::Costs FirstLook::CostsFor(std::int64_t rows) {
  if (rows <= 30'000) return {2.3, 2.3, 2, 0.8};
  if (rows <= 200'000) return {5, 4, 4, 0.8};
  if (rows <= 2'000'000) return {10, 8, 6, 0.8};
  return {15, 10, 8, 0.8};
}

// All drivers are counted equally far, and no more when the end of one is known.
void FirstLook::CountAll(std::int64_t most) {
  for (Counted& counted : drivers_) {
    if (Shortest() != nullptr) return;
    Query count(source_.Store(), std::string_view("SELECT count(*) FROM (" + counted.driver->keys + " LIMIT " +
                                                  source_.OwnDialect().Parameter(1) + ") AS k"));
    count.Bind(1, most + 1);
    counted.keys = count.Step() ? count.Int(0) : 0;
    counted.whole = counted.keys <= most;
  }
}

std::vector<std::int64_t> FirstLook::KeysOf(const PlanDriver& driver) {
  constexpr std::size_t kKeysBetweenPaints = 4096;
  std::vector<std::int64_t> keys;
  Query query(source_.Store(), std::string_view(driver.keys));
  while (query.Step()) {
    if (query.IsNull(0)) continue;
    keys.push_back(query.Int(0));
    if (keys.size() % kKeysBetweenPaints == 0) source_.Store().ServePainting();
  }
  return keys;
}

FirstLook::Counted* FirstLook::Shortest() {
  Counted* best = nullptr;
  for (Counted& counted : drivers_)
    if (counted.whole && (best == nullptr || counted.keys < best->keys)) best = &counted;
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

void FirstLook::TakeDriver(const PlanDriver& driver, std::vector<std::int64_t> keys) {
  constexpr std::size_t kFew = 64;
  std::ranges::sort(keys);
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  first_.way = FirstRows::Way::Drive;
  first_.driven = {&driver, std::move(keys)};
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
    page.cells.insert(page.cells.end(), std::make_move_iterator(cells),
                      std::make_move_iterator(cells + static_cast<std::ptrdiff_t>(read.columns)));
    page.keys.push_back(read.keys[row]);
  }
  first_.all = true;
  first_.likelyRows = Hits();
}

// Walks on as long as that promises to be less work than `other`, and at first for as much work as `trial`; true when the first rows
// are found. `open`: the work of the other ways isn't known yet, only that it is no less than `other`.
bool FirstLook::Walks(double other, double trial, bool open) {
  for (;;) {
    const double left = std::max(0.0, RowsToLookAt() - static_cast<double>(looked_)) * look_;
    // The list has about so many rows, and no driver has fewer.
    const double driven =
        open && looked_ > 0 ? static_cast<double>(Hits()) / static_cast<double>(looked_) * static_cast<double>(span_) * byKey_ : 0;
    const double least = std::max(other, std::min(scan_, driven));
    const bool telling = Hits() >= kTelling || (Hits() >= kTelling / 2 && left * kSafely < least);
    const double rest = trial / look_ - static_cast<double>(looked_);
    if (telling ? left > least : rest < 8 || RowsToLookAt() * look_ > kClearly * least) return false;
    const double rows = telling ? left / look_ * 1.1 + 8 : std::min(rest, looked_ == 0 ? 32.0 : 3.0 * static_cast<double>(looked_));
    WalkOn(static_cast<std::int64_t>(std::clamp(rows, 8.0, 1024.0)));
    if (Hits() < kPage && !first_.all) continue;
    first_.way = FirstRows::Way::Walk;
    const double share = looked_ == 0 ? 1 : static_cast<double>(Hits()) / static_cast<double>(looked_);
    first_.likelyRows = first_.all ? Hits() : static_cast<std::int64_t>(share * static_cast<double>(span_));
    return true;
  }
}

// One look at all rows of another table, piece by piece, in place of a question for each row of this one.
bool FirstLook::CollectWide() {
  const Dialect& dialect = source_.OwnDialect();
  for (const PlanDriver* driver : wide_) {
    KeySpan span;
    {
      const auto end = [&](const char* function) {
        return std::string("(SELECT ") + function + '(' + driver->pieceKey + ") FROM " + driver->pieceTable + ')';
      };
      Query ends(source_.Store(), std::string_view("SELECT " + end("min") + ", " + end("max")));
      if (ends.Step() && !ends.IsNull(0)) span = {ends.Int(0), ends.Int(1)};
    }
    if (static_cast<double>(span.Width()) * kTestedRow > scan_) continue;
    SqlText text(driver->keys + driver->pieceKey + " > " + dialect.Parameter(1) + " AND " + driver->pieceKey +
                 " <= " + dialect.Parameter(2));
    std::vector<std::int64_t> keys;
    for (std::int64_t from = span.first - 1; from < span.last && std::cmp_less_equal(keys.size(), kMostKeys); from += kPieceRows) {
      Query piece(source_.Store(), text);
      piece.Bind(1, from);
      piece.Bind(2, from + kPieceRows);
      while (piece.Step())
        if (!piece.IsNull(0)) keys.push_back(piece.Int(0));
      source_.Store().ServePainting();
    }
    if (std::cmp_greater(keys.size(), kMostKeys)) continue;
    TakeDriver(*driver, std::move(keys));
    return true;
  }
  return false;
}

FirstRows FirstLook::Run() {
  constexpr std::int64_t kFirstCount = 32;
  constexpr std::int64_t kFurther = 4;
  const SelectPlan& plan = source_.Plan();
  const Costs costs = CostsFor(span_);
  const double questions = plan.asksByRow ? costs.question : 0;
  look_ = costs.elsewhere + questions;
  byKey_ = costs.byKey;
  scan_ = static_cast<double>(span_) * (1 + questions * (plan.bounds.empty() && plan.asksByRow ? 1 : 0.2));
  const std::int64_t mostUseful = std::min(kMostKeys, static_cast<std::int64_t>(scan_ / byKey_));
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  first_.version = source_.Version();
  first_.page = std::make_shared<RowPage>(source_.Fields().size() + (rows_ == nullptr ? 0 : rows_->Order().size()), 1);
  for (std::int64_t most = kFirstCount;; most = std::min(most * kFurther, mostUseful)) {
    CountAll(most);
    const Counted* shortest = Shortest();
    const bool open = shortest == nullptr && !drivers_.empty() && most < mostUseful;
    // What isn't counted to its end is at least this much work.
    const double driven = static_cast<double>(shortest != nullptr ? shortest->keys : most) * byKey_;
    const double other = drivers_.empty() ? scan_ : std::min(scan_, driven);
    // Half as much as counting on would take is tried first.
    const double trial = std::max(other / kTrial, open ? static_cast<double>(most * kFurther) * costs.counted / 2 : 0);
    if (rows_ != nullptr && Walks(other, trial, open)) break;
    if (shortest != nullptr && driven <= scan_) {
      TakeDriver(*shortest->driver, KeysOf(*shortest->driver));
      break;
    }
    if (shortest != nullptr || drivers_.empty() || most >= mostUseful) {
      if (!CollectWide()) first_.way = FirstRows::Way::Scan;
      break;
    }
  }
  oneState.Commit();
  return std::move(first_);
}

}  // namespace engine
