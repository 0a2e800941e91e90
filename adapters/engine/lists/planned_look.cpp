#include "engine/lists/planned_look.h"

#include <algorithm>
#include <array>
#include <limits>

namespace engine {

// A stretch of the list; true when that is enough.
bool PlannedLook::WalkOn(std::int64_t rows) {
  const OrderPlace from = reached_ ? *reached_ : OrderPlace{};
  std::optional<KeyWalker::Stretch> ahead = bounded_->Ahead(direction_, reached_ ? &from : nullptr, rows);
  RowPage& page = *first_.page;
  std::optional<OrderPlace> last;
  const auto take = [&](const Query& row) {
    rows_->AppendRow(row, page);
    last = rows_->PlaceAt(row, false);
    return Hits() < FirstLook::kPage;
  };
  if (ahead) {
    rows_->ReadStretch(*ahead, *bounded_, FirstLook::kPage - Hits(), take);
    reached_ = ahead->last;
  } else {
    KeyWalker::Request request;
    request.direction = direction_;
    request.from = reached_ ? &from : nullptr;
    request.limit = std::numeric_limits<std::int64_t>::max();
    rows_->Read(request, take);
    first_.all = Hits() < FirstLook::kPage;
  }
  if (Hits() == FirstLook::kPage) {
    looked_ += bounded_->CountUpTo(direction_, looked_ == 0 ? nullptr : &from, *last);
    return true;
  }
  looked_ += rows;
  return first_.all;
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
  first_.version = source_.Version();
  first_.way = FirstRows::Way::Walk;
  first_.page = std::make_shared<RowPage>(source_.Fields().size() + all_.Order().size(), 1);
  PutAllInOrder();
  first_.likelyRows = first_.all ? Hits() : likelyRows;
  return std::move(first_);
}

FirstRows PlannedLook::Run() {
  const PlanTable& table = source_.Plan().tables.front();
  const std::int64_t likelyRows = table.table->file->LikelyRows(table.table->definition.name);
  if (rows_ == nullptr && likelyRows > 0) return ByOne(likelyRows);
  // A walk may take as much as a small part of the look at all rows that it may save.
  constexpr std::array<std::int64_t, 2> kStretches{64, 1024};
  constexpr std::int64_t kPartOfAll = 32;
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  if (rows_ != nullptr)
    if (std::optional<FirstRows> few = FirstLook(source_, rows_, bounded_, direction_).ByFewKeys()) {
      oneState.Commit();
      return std::move(*few);
    }
  first_.version = source_.Version();
  first_.way = FirstRows::Way::Walk;
  first_.page = std::make_shared<RowPage>(source_.Fields().size() + all_.Order().size(), 1);
  span_ = SpanOf(source_).Width();
  bool found = false;
  for (const std::int64_t rows : kStretches)
    if (!found && rows_ != nullptr && rows * kPartOfAll <= span_) found = WalkOn(rows);
  // Rows that have turned up tell how far the page reaches; they may lie a little thinner there.
  constexpr std::int64_t kTelling = 5;
  constexpr std::int64_t kALittle = 64;
  while (!found && Hits() >= kTelling) {
    const std::int64_t further = kALittle + 2 * (FirstLook::kPage - Hits()) * looked_ / Hits();
    if ((looked_ + further) * kPartOfAll / 2 > span_) break;
    found = WalkOn(further);
  }
  const double share = looked_ == 0 ? 1 : static_cast<double>(std::max<std::int64_t>(Hits(), 1)) / static_cast<double>(looked_);
  first_.likelyRows = static_cast<std::int64_t>(std::min(share, 1.0) * static_cast<double>(span_));
  if (!found) PutAllInOrder();
  if (first_.all) first_.likelyRows = Hits();
  oneState.Commit();
  return std::move(first_);
}

}  // namespace engine
