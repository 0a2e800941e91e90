#include <map>
#include <set>

#include "company.h"
#include "engine/text/text_order.h"

namespace bench {
namespace {

struct Probe {
  std::string criterion;
  std::string pattern;
  engine::PrimaryRange range;
};

Probe ProbeFor(const std::string& prefix) { return {"LastName Like '" + prefix + "*'", prefix + "*", engine::PrefixRange(prefix)}; }

// Plain letters alone: other characters would have to be quoted in the criterion.
bool IsPlain(const std::string& text) {
  for (const char c : text)
    if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))) return false;
  return true;
}

std::vector<Probe> Probes(const Company& company) {
  std::set<std::string> prefixes;
  for (const raw::NameKey& row : company.Somewhere())
    if (const std::string start = row.name.substr(0, 3); start.size() == 3 && IsPlain(start)) prefixes.insert(start);
  std::vector<Probe> probes;
  for (const std::string& prefix : prefixes) probes.push_back(ProbeFor(prefix));
  return probes;
}

void AddFindFirst(Company& company, std::vector<Job>& jobs) {
  const auto list = company.OpenList();
  const auto probes = std::make_shared<std::vector<Probe>>(Probes(company));
  Job find;
  find.name = "FindFirst, prefix of the order's field";
  find.ours = [list, probes](int call) {
    list->FindFirst(Pick(*probes, call).criterion);
    return AccountOf(*list);
  };
  find.raw = [probes, &company](int call) {
    const Probe& probe = Pick(*probes, call);
    return SumOf(company.Raw().FirstInRange(probe.pattern, probe.range.lower, probe.range.upper));
  };
  find.mostExtra = 25;
  jobs.push_back(find);
}

void AddFindNext(Company& company, std::vector<Job>& jobs) {
  struct State {
    platform::RecordsetRef list;
    Probe probe;
    raw::NameKey at;
  };
  auto state = std::make_shared<State>();
  state->list = company.OpenList();
  state->probe = ProbeFor(company.LargestGroup()[0].name.substr(0, 3));
  Job next;
  next.name = "FindNext, the same, through the largest group";
  next.calls = static_cast<int>(std::min<std::int64_t>(company.LargestGroupSize() / 2, 200));
  next.prepare = [state, &company] {
    state->list->FindFirst(state->probe.criterion);
    const auto first = company.Raw().FirstInRange(state->probe.pattern, state->probe.range.lower, state->probe.range.upper);
    state->at = {std::get<std::string>(first.cells[1]), std::get<std::int64_t>(first.cells[0])};
  };
  next.ours = [state](int) {
    state->list->FindNext(state->probe.criterion);
    return AccountOf(*state->list);
  };
  next.raw = [state, &company](int) {
    const auto row = company.Raw().NextInRange(state->probe.pattern, state->at, state->probe.range.upper);
    state->at = {std::get<std::string>(row.cells[1]), std::get<std::int64_t>(row.cells[0])};
    return SumOf(row);
  };
  next.mostExtra = 25;
  jobs.push_back(next);
}

void AddRare(Company& company, std::vector<Job>& jobs) {
  const auto list = company.OpenList();
  Job equal;
  equal.name = "FindFirst, rare value of a field without index (raw: one scan)";
  equal.calls = 1;
  equal.ours = [list, &company](int call) {
    std::string text;
    for (const char c : Pick(company.Addresses(), call)) text += c == '\'' ? "''" : std::string(1, c);
    list->FindFirst("Addr1 = '" + text + "'");
    return AccountOf(*list);
  };
  equal.raw = [&company](int call) { return static_cast<std::uint64_t>(company.Raw().ScanForAddress(Pick(company.Addresses(), call))); };
  equal.mostRatio = 1.2;
  jobs.push_back(equal);

  Job missing = equal;
  missing.name = "FindFirst, text that is nowhere inside Comments (raw: one scan)";
  missing.ours = [list](int call) {
    list->FindFirst("Comments Like '*qz" + std::to_string(call) + "x*'");
    return static_cast<std::uint64_t>(list->NoMatch() ? 0 : 1);
  };
  missing.raw = [&company](int call) {
    return static_cast<std::uint64_t>(company.Raw().ScanForComment("*qz" + std::to_string(call) + "x*"));
  };
  jobs.push_back(missing);
}

}  // namespace

std::vector<Job> SearchJobs(Company& company) {
  std::vector<Job> jobs;
  AddFindFirst(company, jobs);
  AddFindNext(company, jobs);
  AddRare(company, jobs);
  return jobs;
}

}  // namespace bench
