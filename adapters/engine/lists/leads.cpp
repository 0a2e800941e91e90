#include "engine/lists/leads.h"

#include <algorithm>
#include <limits>

namespace engine {
namespace {

// Up to here keys are counted, which takes the index alone.
constexpr std::int64_t kCounted = 2048;
constexpr std::size_t kKeysBetweenPaints = 4096;

}  // namespace

const Leads::Lead* Leads::Shortest() const {
  const Lead* best = nullptr;
  for (const Lead& lead : leads_)
    if (lead.whole && (best == nullptr || lead.keys < best->keys)) best = &lead;
  return best;
}

double Leads::CostOf(std::int64_t from, std::int64_t most) {
  constexpr double kCountedKey = 1.2;
  constexpr double kReadKey = 1;  // mostly it is read for use
  return static_cast<double>(most - from) * (most <= kCounted ? kCountedKey : kReadKey);
}

void Leads::Reach(std::int64_t most) {
  if (most > kCounted && Shortest() == nullptr) KeepRarest();
  for (Lead& lead : leads_) {
    if (Shortest() != nullptr) return;
    most <= kCounted ? Count(lead, most) : Read(lead, most);
  }
}

void Leads::Count(Lead& lead, std::int64_t most) {
  Query count(source_.Store(),
              std::string_view("SELECT count(*) FROM (" + lead.driver->keys + " LIMIT " + source_.OwnDialect().Parameter(1) + ") AS c"));
  count.Bind(1, most + 1);
  lead.keys = count.Step() ? count.Int(0) : 0;
  lead.whole = lead.keys <= most;
}

void Leads::Read(Lead& lead, std::int64_t most) {
  if (!lead.reading) lead.reading = std::make_unique<Query>(source_.Store(), std::string_view(lead.driver->keys));
  while (std::cmp_less_equal(lead.read.size(), most)) {
    if (!lead.reading->Step()) {
      lead.whole = true;
      lead.reading.reset();
      break;
    }
    if (!lead.reading->IsNull(0)) lead.read.push_back(lead.reading->Int(0));
    if (lead.read.size() % kKeysBetweenPaints == 0) source_.Store().ServePainting();
  }
  lead.keys = static_cast<std::int64_t>(lead.read.size());
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
  leads_.erase(leads_.begin() + 1, leads_.end());
}

DrivenKeys Leads::Keys() {
  const Lead* shortest = Shortest();
  Lead& lead = leads_[static_cast<std::size_t>(shortest - leads_.data())];
  if (lead.read.empty()) {
    lead.whole = false;
    Read(lead, std::numeric_limits<std::int64_t>::max());
  }
  DrivenKeys driven{lead.driver, std::move(lead.read)};
  std::ranges::sort(driven.keys);
  driven.keys.erase(std::unique(driven.keys.begin(), driven.keys.end()), driven.keys.end());
  return driven;
}

}  // namespace engine
