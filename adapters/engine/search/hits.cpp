#include "engine/search/hits.h"

#include <algorithm>

#include "engine/rows/order_prefix.h"

namespace engine {

std::uint64_t Hits::PrefixOf(const OrderPlace& place) const {
  return walker_.Order().empty() ? 0 : OrderPrefix(walker_.Order().front().type, place.values.front());
}

void Hits::Add(const OrderPlace& place) {
  constexpr std::size_t kFew = 256;
  entries_.push_back({PrefixOf(place), place.rowKey});
  sorted_ = false;
  if (!few_) return;
  few_ = entries_.size() <= kFew;
  few_ ? run_.push_back(place) : run_.clear();
}

void Hits::Add(const Query& keysOnlyRow) { Add(walker_.PlaceAt(keysOnlyRow, true)); }

void Hits::Sort() {
  if (sorted_) return;
  sorted_ = true;
  if (few_) {
    const int sign = forward_ == Direction::Up ? 1 : -1;
    std::ranges::sort(run_, [&](const OrderPlace& left, const OrderPlace& right) { return sign * walker_.Compare(left, right) < 0; });
    return;
  }
  std::ranges::sort(entries_);
  if (forward_ == Direction::Down) std::ranges::reverse(entries_);
  runTo_ = runFrom_ = 0;
}

// Entries of equal prefix are in order of their row keys already; only where the prefix says less than the whole key, or the
// list has more order columns, are the keys themselves compared.
void Hits::Run(std::size_t from, std::size_t to) {
  if (runFrom_ == from && runTo_ == to) return;
  run_.clear();
  for (std::size_t i = from; i < to; ++i)
    if (auto place = walker_.PlaceOfRow(entries_[i].rowKey)) run_.push_back(std::move(*place));
  const int sign = forward_ == Direction::Up ? 1 : -1;
  std::ranges::sort(run_, [&](const OrderPlace& left, const OrderPlace& right) { return sign * walker_.Compare(left, right) < 0; });
  runFrom_ = from;
  runTo_ = to;
}

std::optional<OrderPlace> Hits::FirstOfRun(const OrderPlace* after) const {
  if (run_.empty()) return {};
  const int sign = forward_ == Direction::Up ? 1 : -1;
  const auto first = std::partition_point(run_.begin(), run_.end(), [&](const OrderPlace& place) {
    return after != nullptr && sign * walker_.Compare(place, *after) <= 0;
  });
  return first == run_.end() ? std::nullopt : std::optional(*first);
}

std::optional<OrderPlace> Hits::FirstBehind(const OrderPlace* after) {
  Sort();
  if (few_) return FirstOfRun(after);
  const auto prefixBefore = [&](const Entry& entry, std::uint64_t prefix) {
    return forward_ == Direction::Up ? entry.prefix < prefix : entry.prefix > prefix;
  };
  std::size_t from = 0;
  if (after != nullptr) {
    const std::uint64_t prefix = PrefixOf(*after);
    from = static_cast<std::size_t>(
        std::ranges::partition_point(entries_, [&](const Entry& entry) { return prefixBefore(entry, prefix); }) - entries_.begin());
  }
  const bool decided = walker_.Order().empty() || (walker_.Order().size() == 1 && PrefixDecides(walker_.Order().front().type));
  while (from < entries_.size()) {
    std::size_t to = from;
    if (decided) {
      // Within equal keys the row keys alone decide.
      const auto behind = [&](const Entry& entry) {
        if (after == nullptr || entry.prefix != PrefixOf(*after)) return true;
        return forward_ == Direction::Up ? entry.rowKey > after->rowKey : entry.rowKey < after->rowKey;
      };
      const auto first = std::partition_point(entries_.begin() + static_cast<std::ptrdiff_t>(from), entries_.end(),
                                              [&](const Entry& entry) { return !behind(entry); });
      for (auto entry = first; entry != entries_.end(); ++entry)
        if (auto place = walker_.PlaceOfRow(entry->rowKey)) return place;
      return {};
    }
    while (to < entries_.size() && entries_[to].prefix == entries_[from].prefix) ++to;
    Run(from, to);
    if (auto place = FirstOfRun(after)) return place;
    from = to;
  }
  return {};
}

}  // namespace engine
