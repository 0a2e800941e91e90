#include "engine/lists/first_look.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace engine {
namespace {

constexpr double kTestedRow = 1.5;     // a row of another table, all of which are looked at
constexpr double kNearQuestion = 4.5;  // asking another table about rows as they lie
constexpr std::int64_t kPieceRows = 4096;

// Into which part of the work that it may save a trial may go.
constexpr double kTrial = 8;
// How much dearer a way must seem to be given up.
constexpr double kClearly = 2;
// How much dearer when it was guessed from little.
constexpr double kSafely = 4;
// Up to so many rows of a driver come with all their columns.
constexpr std::int64_t kFew = 64;
// So many rows found tell how many there are.
constexpr std::int64_t kTelling = 6;
// No more keys than these are worth any other look.
constexpr std::int64_t kFirstReach = 32;

}  // namespace

FirstLook::FirstLook(RowSource& source, KeyWalker* rows, KeyWalker* bounded, Direction direction)
    : source_(source), rows_(rows), bounded_(bounded), direction_(direction), leads_(source) {
  const auto& order = source.Plan().order;
  for (const PlanDriver& driver : source.Plan().drivers) {
    // What bounds the order column bounds the walk.
    if (rows != nullptr && driver.field >= 0 && !order.empty() && order.front().field == driver.field) continue;
    if (driver.pieceKey.empty())
      leads_.Add(driver);
    else
      wide_.push_back(&driver);
  }
}

// The larger a file, the less of it is at hand.
FirstLook::Costs FirstLook::CostsFor(std::int64_t rows) {
  if (rows <= 30'000) return {2.3, 3, 4};
  if (rows <= 200'000) return {6, 8, 8};
  if (rows <= 2'000'000) return {10, 18, 12};
  return {15, 24, 15};
}

// How many rows the list can have at most, as a driver tells. A driver with several values tells of the first of them alone: that is
// found out where far more rows are seen than it allows.
std::optional<double> FirstLook::ToldRows() const {
  const std::optional<double> rows = leads_.FewestLikely();
  if (!rows || span_ == 0) return {};
  const double expected = static_cast<double>(looked_) * *rows / static_cast<double>(span_);
  if (static_cast<double>(Hits()) > expected + 3 * std::sqrt(expected) + 3) return {};
  return std::max(*rows, 1.0);
}

// How many rows stand before the end of the page, as far as the rows seen tell.
double FirstLook::RowsToLookAt() const {
  return static_cast<double>(kPage) * static_cast<double>(std::max<std::int64_t>(looked_, 1)) / std::max(0.7, static_cast<double>(Hits()));
}

// The same, but that some have come together by chance counts for less where a driver tells how many rows the list can have: what it
// says weighs as much as some rows found.
double FirstLook::LikelyToLookAt() const {
  constexpr double kWeight = 32;
  const std::optional<double> rows = ToldRows();
  if (!rows) return RowsToLookAt();
  const double apart = static_cast<double>(span_) / *rows;
  return std::max(RowsToLookAt(), static_cast<double>(kPage) * (static_cast<double>(looked_) + kWeight * apart) /
                                      (static_cast<double>(Hits()) + kWeight));
}

// How many rows the list has, as far as those seen tell.
double FirstLook::LikelyRows() const {
  if (const std::optional<double> rows = ToldRows()) return *rows;
  return looked_ == 0 ? 0 : static_cast<double>(Hits()) / static_cast<double>(looked_) * static_cast<double>(span_);
}

// Which part of a trial is worth while, by how the work of a walk stands beside that of following a driver which tells how many rows
// there are.
double FirstLook::Promise() const {
  constexpr double kInAnyCase = 0.25;
  const std::optional<double> rows = ToldRows();
  if (!rows) return 1;
  const double walk = static_cast<double>(kPage) * static_cast<double>(span_) / *rows * look_;
  const double share = std::min(1.0, *rows * byKey_ / walk);
  return std::max(kInAnyCase, share * share * share);
}

void FirstLook::WalkOn(std::int64_t rows) {
  const OrderPlace* from = reached_ ? &*reached_ : nullptr;
  std::optional<KeyWalker::Stretch> ahead = bounded_->Ahead(direction_, from, rows);
  RowPage& page = *first_.page;
  const auto take = [&](const Query& row) {
    rows_->AppendRow(row, page);
    return Hits() < kPage;
  };
  if (ahead) {
    rows_->ReadStretch(*ahead, *bounded_, kPage - Hits(), take);
    looked_ += rows;
    reached_ = std::move(ahead->last);
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

// Where it is known about how many rows stand before the end of the page, they are walked without bounds; should they turn out to be
// far more, the walk goes on from the last one found, with bounds. A row that doesn't pass is a part of the work by which the store
// measures.
void FirstLook::RunOn(double rows) {
  constexpr double kAtOnce = 2000;
  constexpr double kPassedOver = 3;
  const std::int64_t left = kPage - Hits();
  const double share = std::min(1.0, kAtOnce / std::max(rows, 1.0));
  const OrderPlace from = reached_ ? *reached_ : OrderPlace{};
  KeyWalker::Request request;
  request.direction = direction_;
  request.from = reached_ ? &from : nullptr;
  request.limit = std::max<std::int64_t>(1, static_cast<std::int64_t>(share * static_cast<double>(left)));
  const double likely = rows * static_cast<double>(request.limit) / static_cast<double>(left);
  // The more rows are looked for, the nearer they come to what is likely.
  const double atMost = 1 + 3 / std::sqrt(static_cast<double>(request.limit));
  std::int64_t read = 0;
  const double most = (likely + 64) * atMost / kPassedOver + static_cast<double>(request.limit);
  const bool cheap = source_.Store().ReadsCheaply(static_cast<int>(most), [&] {
    rows_->Read(request, [&](const Query& row) {
      rows_->AppendRow(row, *first_.page);
      reached_ = rows_->PlaceAt(row, false);
      ++read;
      return true;
    });
  });
  misjudged_ = !cheap;
  first_.all = cheap && read < request.limit;
  if (cheap && !first_.all && Hits() < kPage)
    looked_ += bounded_->CountUpTo(direction_, request.from, *reached_);
  else
    looked_ += static_cast<std::int64_t>(cheap ? likely : likely * atMost);
  source_.Store().ServePainting();
}

// Few rows are fetched and put in order right here, all columns of very few.
void FirstLook::TakeShortest() {
  constexpr std::size_t kNotMany = 1024;
  const Leads::Lead& lead = *leads_.Shortest();
  first_.way = FirstRows::Way::Drive;
  // By its keys a statement needs none of the query's constants, and is mostly prepared already; always where preparing costs most.
  constexpr std::int64_t kVeryFew = 8;
  const std::int64_t fetched = source_.OwnDialect().PlansByItself() ? std::int64_t{kNotMany} : kVeryFew;
  if (rows_ != nullptr && lead.Keys() > fetched && lead.Keys() <= kFew) return Join(*lead.driver, true);
  DrivenKeys driven = leads_.Keys(byKey_ + question_);
  if (rows_ != nullptr && std::cmp_less_equal(driven.keys.size(), fetched)) {
    Fetch(std::move(driven));
    if (!first_.ordered.empty()) ReadFirst();
    return;
  }
  if (rows_ == nullptr || driven.keys.size() > kNotMany) {
    first_.driven = std::move(driven);
    return;
  }
  driven.narrowed ? Fetch(std::move(driven)) : Join(*driven.driver, false);
  if (!first_.ordered.empty()) ReadFirst();
}

// The rows to which keys lead, one statement for all of them.
std::string FirstLook::JoinText(const std::string& keys, const PlanDriver& driver, const std::string& columns) const {
  const PlanTable& table = source_.Plan().tables.front();
  return "SELECT " + columns + " FROM (" + keys + ") AS s" + source_.OwnDialect().joinInOrder + source_.Plan().from + " ON " + table.alias +
         '.' + table.table->rowKey + " = s.k" + (driver.rest.empty() ? "" : " WHERE " + driver.rest);
}

void FirstLook::Join(const PlanDriver& driver, bool withRows) {
  const std::string text = JoinText(driver.keys, driver, (withRows ? source_.ColumnList() + ", " : "") + rows_->KeyColumns());
  TakeAll(withRows, [&](const PiecewiseScan::Take& take) {
    Query query(source_.Store(), std::string_view(text));
    while (query.Step()) take(query);
  });
}

void FirstLook::Fetch(DrivenKeys driven) {
  const bool withRows = static_cast<std::int64_t>(driven.keys.size()) <= kFew;
  const std::string columns = (withRows ? source_.ColumnList() + ", " : "") + rows_->KeyColumns();
  TakeAll(withRows, [&](const PiecewiseScan::Take& take) {
    if (driven.keys.empty()) return;
    PiecewiseScan scan(source_, columns, driven.driver->rest, driven.keys);
    while (scan.Next(take)) source_.Store().ServePainting();
  });
}

// All rows of the list, in whatever order they come.
void FirstLook::TakeAll(bool withRows, const std::function<void(const PiecewiseScan::Take&)>& read) {
  RowPage rows(first_.page->columns, 1);
  std::vector<OrderPlace> places;
  read([&](const Query& row) {
    if (withRows) rows_->AppendRow(row, rows);
    places.push_back(rows_->PlaceAt(row, !withRows));
  });
  TakeInOrder(rows, places, withRows);
  first_.all = true;
  first_.likelyRows = withRows ? Hits() : static_cast<std::int64_t>(first_.ordered.size());
}

// Puts rows in order, each once: a driver can lead to one several times.
void FirstLook::TakeInOrder(RowPage& rows, std::vector<OrderPlace>& places, bool withRows) {
  std::vector<std::size_t> order(places.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  const int sign = direction_ == Direction::Up ? 1 : -1;
  std::ranges::sort(order, [&](std::size_t left, std::size_t right) { return sign * rows_->Compare(places[left], places[right]) < 0; });
  const auto same = [&](std::size_t left, std::size_t right) { return places[left].rowKey == places[right].rowKey; };
  order.erase(std::unique(order.begin(), order.end(), same), order.end());
  RowPage& page = *first_.page;
  page.cells.Clear();
  page.keys.clear();
  if (!withRows) {
    for (const std::size_t row : order) first_.ordered.push_back(places[row].rowKey);
    return;
  }
  page.cells.Reserve(order.size() * rows.columns);
  for (const std::size_t row : order) {
    page.cells.Add(rows.cells, row * rows.columns, rows.columns);
    page.keys.push_back(places[row].rowKey);
  }
}

// The columns of the first of the rows that are in order.
void FirstLook::ReadFirst() {
  std::vector<std::int64_t> keys(first_.ordered.begin(),
                                 first_.ordered.begin() + std::min<std::ptrdiff_t>(kPage, std::ssize(first_.ordered)));
  std::ranges::sort(keys);
  RowPage read(first_.page->columns, 1);
  std::vector<OrderPlace> places;
  PiecewiseScan scan(source_, source_.ColumnList() + ", " + rows_->KeyColumns(), "", keys);
  const auto take = [&](const Query& row) {
    rows_->AppendRow(row, read);
    places.push_back(rows_->PlaceAt(row, false));
  };
  while (scan.Next(take)) {
  }
  TakeInOrder(read, places, true);
}

// Walks on as long as that promises to be less work than `other`, and at first for as much work as `trial`; true when the first rows
// are found. `open`: the work of the other ways isn't known yet, only that it is no less than `other`.
bool FirstLook::Walks(double other, double trial, bool open) {
  for (;;) {
    const double left = std::max(0.0, LikelyToLookAt() - static_cast<double>(looked_)) * look_;
    // No driver has fewer.
    const double driven = open ? LikelyRows() * byKey_ : 0;
    const double least = std::max(other, std::min(scan_, driven));
    const bool telling = Hits() >= kTelling || (Hits() >= kTelling / 2 && left * kSafely < least);
    const double rest = trial / look_ - static_cast<double>(looked_);
    if (telling ? left > least : rest < 8 || RowsToLookAt() * look_ > (open ? kSafely : kClearly) * least) return false;
    const double rows = telling ? left / look_ * 1.1 + 8 : std::min(rest, looked_ == 0 ? 32.0 : 3.0 * static_cast<double>(looked_));
    if (telling && !misjudged_)
      RunOn(left / look_ + 1);
    else
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
    const KeySpan span = SpanOf(source_.Store(), driver->pieceKey, driver->pieceTable);
    if (static_cast<double>(span.Width()) * kTestedRow > scan_) continue;
    SqlText text(driver->keys + driver->pieceKey + " > " + dialect.Parameter(1) + " AND " + driver->pieceKey +
                 " <= " + dialect.Parameter(2));
    std::vector<std::int64_t> keys;
    for (std::int64_t from = span.first - 1; from < span.last && std::cmp_less_equal(keys.size(), Leads::kMostKeys); from += kPieceRows) {
      Query piece(source_.Store(), text);
      piece.Bind(1, from);
      piece.Bind(2, from + kPieceRows);
      while (piece.Step())
        if (!piece.IsNull(0)) keys.push_back(piece.Int(0));
      source_.Store().ServePainting();
    }
    if (std::cmp_greater(keys.size(), Leads::kMostKeys)) continue;
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    first_.way = FirstRows::Way::Drive;
    first_.driven = {driver, std::move(keys)};
    return true;
  }
  return false;
}

void FirstLook::Begin() {
  first_.version = source_.Version();
  first_.page = std::make_shared<RowPage>(source_.Fields().size() + (rows_ == nullptr ? 0 : rows_->Order().size()), 1);
}

// Asking on costs more than keys do. A row whose keys change between the statements is one that fitted at one of them.
std::optional<FirstRows> FirstLook::ByFewKeys(std::int64_t likelyRows) {
  constexpr std::int64_t kReach = 256;
  Begin();
  if (likelyRows > 0) leads_.Within({.first = 1, .last = likelyRows});
  leads_.Reach(kReach);
  if (leads_.Shortest() != nullptr) {
    taken_ = leads_.Shortest()->driver;
    TakeShortest();
    return std::move(first_);
  }
  const std::optional<double> driven = leads_.FewestLikely();
  if (driven) told_ = Told{leads_.LikelyShare().value_or(1), *driven};
  leads_.Close();
  return {};
}

std::optional<FirstRows> FirstLook::ByFewKeysOf(const PlanDriver& driver) {
  Begin();
  const std::string keys = "SELECT k, count(*) OVER () AS n FROM (" + driver.keys + " LIMIT " + std::to_string(kFew + 1) + ") AS keys";
  const std::string columns = source_.ColumnList() + ", " + rows_->KeyColumns();
  std::int64_t keysRead = 0;
  TakeAll(true, [&](const PiecewiseScan::Take& take) {
    Query query(source_.Store(), std::string_view(JoinText(keys, driver, columns + ", s.n")));
    query.ExpectFew();
    while (query.Step()) {
      keysRead = query.Int(rows_->FlagAt(false));
      take(query);
    }
  });
  if (keysRead == 0 || keysRead > kFew) return {};
  first_.way = FirstRows::Way::Drive;
  return std::move(first_);
}

FirstRows FirstLook::Run() {
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  Begin();
  Choose();
  leads_.Close();
  oneState.Commit();
  return std::move(first_);
}

void FirstLook::Choose() {
  constexpr std::int64_t kVeryFirst = 2;
  constexpr std::int64_t kFurther = 4;
  constexpr std::int64_t kSampledRows = 128;
  for (std::int64_t most = kVeryFirst; most < kFirstReach; most *= kFurther) leads_.Reach(most);
  leads_.Reach(kFirstReach);
  if (leads_.Shortest() != nullptr) return TakeShortest();  // nothing else is as little work

  const SelectPlan& plan = source_.Plan();
  const KeySpan span = SpanOf(source_);
  leads_.Within(span);
  span_ = span.Width();
  const Costs costs = CostsFor(span_);
  question_ = plan.asksByRow ? costs.question : 0;
  look_ = costs.elsewhere + question_;
  byKey_ = costs.byKey;
  scan_ = static_cast<double>(span_) * (plan.asksByRow ? 1 + kNearQuestion * (plan.bounds.empty() ? 1 : 0.2) : 1);
  if (bounded_ != nullptr) leads_.SampleBy(bounded_->FirstKeys(direction_, kSampledRows));
  const std::int64_t mostUseful = std::min(Leads::kMostKeys, static_cast<std::int64_t>(scan_ / byKey_));
  for (std::int64_t most = kFirstReach;; most = std::min(most * kFurther, mostUseful)) {
    leads_.Reach(most);
    const Leads::Lead* shortest = leads_.Shortest();
    const bool open = shortest == nullptr && !leads_.None() && most < mostUseful;
    // What isn't followed to its end is at least this much work.
    const double driven = static_cast<double>(shortest != nullptr ? shortest->Keys() : most) * byKey_;
    const double other = leads_.None() ? scan_ : std::min(scan_, driven);
    // As much as going on there would take is tried first, or some part of what is to be saved; less where a driver tells that there is
    // probably nothing to save.
    const double trial =
        Promise() * std::max(other / kTrial, open ? std::min(2 * other / kTrial, Leads::CostOf(most, most * kFurther)) : 0);
    if (rows_ != nullptr && Walks(other, trial, open)) return;
    if (shortest != nullptr && driven <= scan_) return TakeShortest();
    if (!open) {
      if (!CollectWide()) first_.way = FirstRows::Way::Scan;
      return;
    }
  }
}

}  // namespace engine
