#include "engine/store/postgres/link/snapshot_watch.h"

#include <algorithm>
#include <charconv>

namespace engine::postgres {
namespace {

std::uint64_t TakeNumber(std::string_view& text) {
  std::uint64_t number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (!text.empty()) text.remove_prefix(1);
  return number;
}

}  // namespace

SnapshotWatch::Snapshot SnapshotWatch::Parse(std::string_view text) {
  Snapshot snapshot;
  TakeNumber(text);  // the oldest running one
  snapshot.behind = TakeNumber(text);
  while (!text.empty()) snapshot.running.push_back(TakeNumber(text));
  return snapshot;
}

void SnapshotWatch::Own(std::string_view number) {
  if (!number.empty()) own_.insert(TakeNumber(number));
}

bool SnapshotWatch::Told(std::string_view number) {
  const std::uint64_t told = TakeNumber(number);
  const bool ended = known_ && told < last_.behind && !std::ranges::binary_search(last_.running, told);
  return !ended && own_.insert(told).second;
}

bool SnapshotWatch::Others(std::string_view snapshot) {
  if (known_ && snapshot == text_) return false;
  const Snapshot now = Parse(snapshot);
  const auto runs = [&](std::uint64_t number) { return std::binary_search(now.running.begin(), now.running.end(), number); };
  bool others = !known_;
  for (const std::uint64_t number : last_.running) others = others || (!runs(number) && !own_.contains(number));
  // Far more than a connection writes between two looks: no need to count them.
  constexpr std::uint64_t kMany = 100'000;
  if (now.behind < last_.behind || now.behind - last_.behind > kMany) others = true;
  for (std::uint64_t number = last_.behind; !others && number < now.behind; ++number) others = !runs(number) && !own_.contains(number);
  known_ = true;
  text_ = snapshot;
  last_ = now;
  std::erase_if(own_, [&](std::uint64_t number) { return number < now.behind && !runs(number); });
  return others;
}

}  // namespace engine::postgres
