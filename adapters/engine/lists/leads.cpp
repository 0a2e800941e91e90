#include "engine/lists/leads.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace engine {
namespace {

// Up to here all drivers are followed.
constexpr std::int64_t kReadOfEach = 2048;
constexpr std::size_t kKeysBetweenPaints = 4096;
constexpr double kReadKey = 1.2;

void PutInOrder(std::vector<std::int64_t>& keys) {
  if (!std::ranges::is_sorted(keys)) std::ranges::sort(keys);
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
}

}  // namespace

const Leads::Lead* Leads::Shortest() const {
  const Lead* best = nullptr;
  for (const Lead& lead : leads_)
    if (lead.whole && (best == nullptr || lead.read.size() < best->read.size())) best = &lead;
  return best;
}

double Leads::CostOf(std::int64_t from, std::int64_t most) { return static_cast<double>(most - from) * kReadKey; }

// Whether the keys read say how many there are.
bool Leads::Tells(const Lead& lead) const {
  constexpr std::int64_t kTelling = 8;
  return lead.whole || (lead.inOrder && lead.Keys() >= kTelling && span_.Width() > 0);
}

// How many keys a driver has, as far as those read tell; no fewer.
double Leads::Likely(const Lead& lead) const {
  const auto read = static_cast<double>(lead.Keys());
  if (lead.whole || !Tells(lead)) return read;
  const std::int64_t passed = std::clamp<std::int64_t>(lead.read.back() - span_.first + 1, 1, span_.Width());
  return read * static_cast<double>(span_.Width()) / static_cast<double>(passed);
}

std::optional<double> Leads::FewestLikely() const {
  std::optional<double> fewest;
  for (const Lead& lead : leads_)
    if (Tells(lead) && (!fewest || Likely(lead) < *fewest)) fewest = Likely(lead);
  return fewest;
}

std::optional<double> Leads::LikelyShare() const {
  if (!FewestLikely()) return {};
  double share = 1;
  for (const Lead& lead : leads_)
    if (Tells(lead)) share *= std::clamp(Likely(lead) / static_cast<double>(std::max<std::int64_t>(span_.Width(), 1)), 0.0, 1.0);
  return share;
}

// The one that is likely to end first goes first, so that the others need not be followed so far; what seems to end far behind
// waits for the next time.
void Leads::Reach(std::int64_t most) {
  constexpr double kFarBehind = 2;
  if (!source_.OwnDialect().openResults) return ReadTogether(most);
  if (most > kReadOfEach && Shortest() == nullptr) KeepRarest();
  std::ranges::stable_sort(leads_, {}, [this](const Lead& lead) { return Likely(lead); });
  for (Lead& lead : leads_) {
    if (Shortest() != nullptr) return;
    if (most > kReadOfEach || Likely(lead) <= kFarBehind * static_cast<double>(most)) Read(lead, most);
  }
}

void Leads::Read(Lead& lead, std::int64_t most) {
  if (lead.whole || lead.Keys() > most) return;
  const bool goesOn = source_.OwnDialect().openResults;
  if (!goesOn) Begin(lead, most);
  if (!lead.reading) lead.reading = std::make_unique<Query>(source_.Store(), std::string_view(lead.driver->keys));
  std::int64_t rows = 0;
  while (lead.Keys() <= most) {
    if (!lead.reading->Step()) {
      lead.whole = goesOn || rows <= most;
      lead.reading.reset();
      return;
    }
    ++rows;
    if (lead.reading->IsNull(0)) continue;
    Add(lead, *lead.reading);
    if (lead.read.size() % kKeysBetweenPaints == 0) source_.Store().ServePainting();
  }
  if (!goesOn) lead.reading.reset();
}

// As far as it is wanted now and a row further, so that its end shows; those behind are never fetched. Each reading is one state's, so
// the next one, some times as long, is no other one's beginning.
void Leads::Begin(Lead& lead, std::int64_t most) {
  lead.read.clear();
  lead.inOrder = true;
  lead.reading = std::make_unique<Query>(source_.Store(), lead.driver->keys + " LIMIT " + source_.OwnDialect().Parameter(1));
  lead.reading->Bind(1, most + 1);
}

void Leads::Add(Lead& lead, const Query& row) {
  const std::int64_t key = row.Int(0);
  lead.inOrder = lead.inOrder && (lead.read.empty() || lead.read.back() <= key);
  lead.read.push_back(key);
}

// All of them by one statement, where asking costs most; so they are also of one state.
void Leads::ReadTogether(std::int64_t most) {
  std::string text;
  std::vector<Lead*> asked;
  for (Lead& lead : leads_) {
    if (lead.whole || lead.Keys() > most) continue;
    const std::string number = std::to_string(asked.size());
    text += (asked.empty() ? "SELECT k, " : " UNION ALL SELECT k, ") + number + " FROM (" + lead.driver->keys + " LIMIT " +
            std::to_string(most + 1) + ") AS keys" + number;
    lead.read.clear();
    lead.inOrder = true;
    asked.push_back(&lead);
  }
  if (asked.empty()) return;
  std::vector<std::int64_t> rows(asked.size(), 0);
  Query query(source_.Store(), std::string_view(text));
  while (query.Step()) {
    const auto number = static_cast<std::size_t>(query.Int(1));
    ++rows[number];
    if (!query.IsNull(0)) Add(*asked[number], query);
  }
  for (std::size_t i = 0; i < asked.size(); ++i) asked[i]->whole = rows[i] <= most;
}

// Some rows are asked which of the drivers leads to them.
void Leads::KeepRarest() {
  if (leads_.size() < 2 || sample_.empty()) return;
  const PlanTable& table = source_.Plan().tables.front();
  std::string text = "SELECT ";
  for (const Lead& lead : leads_) text += (text.size() == 7 ? "" : ", ") + ("sum(CASE WHEN " + lead.driver->asks + " THEN 1 ELSE 0 END)");
  text += " FROM (" + sample_ + ") AS s" + source_.OwnDialect().joinInOrder + source_.Plan().from + " ON " + table.alias + '.' + table.table->rowKey + " = s.k";
  std::vector<std::int64_t> hits;
  {
    Query query(source_.Store(), std::string_view(text));
    if (!query.Step()) return;
    for (std::size_t i = 0; i < leads_.size(); ++i) hits.push_back(query.Int(static_cast<int>(i)));
  }
  const auto rarest = std::ranges::min_element(hits) - hits.begin();
  std::swap(leads_.front(), leads_[static_cast<std::size_t>(rarest)]);
  std::move(leads_.begin() + 1, leads_.end(), std::back_inserter(aside_));
  leads_.erase(leads_.begin() + 1, leads_.end());
}

DrivenKeys Leads::Keys(double row) {
  const auto shortest = static_cast<std::size_t>(Shortest() - leads_.data());
  DrivenKeys driven{leads_[shortest].driver, std::move(leads_[shortest].read)};
  PutInOrder(driven.keys);
  leads_.erase(leads_.begin() + static_cast<std::ptrdiff_t>(shortest));
  std::move(aside_.begin(), aside_.end(), std::back_inserter(leads_));
  aside_.clear();
  std::ranges::stable_sort(leads_, {}, [this](const Lead& lead) { return Likely(lead); });
  for (Lead& other : leads_)
    if (Narrow(driven.keys, other, row)) driven.narrowed = true;
  return driven;
}

// A key that only one of two drivers leads to is no row's.
bool Leads::Narrow(std::vector<std::int64_t>& keys, Lead& by, double row) {
  constexpr double kClearly = 2;
  constexpr double kWrongGuess = 1.5;
  if (keys.empty() || (!by.whole && !by.inOrder)) return false;
  const double likely = Likely(by);
  const double share = std::min(1.0, likely / static_cast<double>(std::max<std::int64_t>(span_.Width(), 1)));
  const double spared = static_cast<double>(keys.size()) * (1 - share) * row;
  if (likely > static_cast<double>(kMostKeys) || kClearly * kReadKey * (likely - static_cast<double>(by.Keys())) > spared) return false;
  Read(by, static_cast<std::int64_t>(kWrongGuess * likely));
  if (!by.whole) return false;
  PutInOrder(by.read);
  const auto left = std::set_intersection(keys.begin(), keys.end(), by.read.begin(), by.read.end(), keys.begin());
  keys.erase(left, keys.end());
  return true;
}

void Leads::Close() {
  leads_.clear();
  aside_.clear();
}

}  // namespace engine
