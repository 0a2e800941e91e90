#include <algorithm>
#include <set>

#include "server/branch.h"

namespace bench::branch {
namespace {

bool IsPlain(const std::string& text) {
  return std::ranges::all_of(text, [](char c) { return c >= 'a' && c <= 'z'; });
}

bare::Place PlaceOf(const bare::Rows& row) { return {row.At(0, row.columns - 1).value_or(""), std::stoll(*row.At(0, 0))}; }

std::vector<std::string> Beginnings(const Company& company) {
  std::set<std::string> found;
  for (const bare::Place& place : company.Somewhere())
    if (const std::string start = place.key.substr(0, 3); start.size() == 3 && IsPlain(start)) found.insert(start);
  return {found.begin(), found.end()};
}

Job Find(Company& company) {
  const auto list = company.OpenList();
  const auto beginnings = std::make_shared<std::vector<std::string>>(Beginnings(company));
  Job job = company.Begin("FindFirst, prefix of the order's field", 1.5);
  job.ours = [list, beginnings](int call) {
    list->FindFirst("LastName Like '" + Pick(*beginnings, call) + "*'");
    return list->NoMatch() ? 0 : AccountOf(*list);
  };
  job.raw = [beginnings, &company](int call) { return bare::SumOf(company.Bare().FirstStarting(Pick(*beginnings, call))); };
  return job;
}

Job FindByNumber(Company& company) {
  const auto list = company.OpenList();
  Job job = company.Begin("FindFirst, the account", 1.5);
  job.ours = [list, &company](int call) {
    list->FindFirst("[AcctNum]=" + std::to_string(Pick(company.Somewhere(), call).account));
    return AccountOf(*list);
  };
  job.raw = [&company](int call) { return bare::SumOf(company.Bare().Seek(Pick(company.Somewhere(), call).account)); };
  return job;
}

Job FindOn(Company& company) {
  struct State {
    platform::RecordsetRef list;
    std::string start;
    bare::Place at;
  };
  const auto state = std::make_shared<State>();
  state->list = company.OpenList();
  // Of a beginning that many names have.
  const std::string key = company.Bare().Value("SELECT \"~k.LastName\" FROM " + bare::Server::Table("Customers") +
                                               R"( WHERE "~k.LastName" ~ '^[a-z]{3}' GROUP BY 1 ORDER BY count(*) DESC LIMIT 1)");
  state->start = key.substr(0, 3);
  Job job = company.Begin("FindNext, the same", 1.5);
  job.calls = 20;
  job.prepare = [state, &company] {
    state->list->FindFirst("LastName Like '" + state->start + "*'");
    state->at = PlaceOf(company.Bare().FirstStarting(state->start));
  };
  job.ours = [state](int) {
    state->list->FindNext("LastName Like '" + state->start + "*'");
    return AccountOf(*state->list);
  };
  job.raw = [state, &company](int) {
    const bare::Rows row = company.Bare().NextStarting(state->at, state->start);
    if (row.Count() == 0) return static_cast<std::uint64_t>(state->at.account);
    state->at = PlaceOf(row);
    return static_cast<std::uint64_t>(state->at.account);
  };
  return job;
}

void AddRare(Company& company, std::vector<Job>& jobs) {
  const auto list = company.OpenList();
  Job equal = company.Begin("FindFirst, rare value of a field without index (raw: one scan)", 1.3);
  equal.calls = 1;
  equal.ours = [list, &company](int call) {
    list->FindFirst("Addr1 = '" + Pick(company.Addresses(), call) + "'");
    return AccountOf(*list);
  };
  equal.raw = [&company](int call) {
    const bare::Rows rows = company.Bare().RunPrepared(
        R"(SELECT "AcctNum", "~k.LastName" FROM )" + bare::Server::Table("Customers") + R"( WHERE "Addr1" = $1 ORDER BY 2 NULLS FIRST, 1)",
        {Pick(company.Addresses(), call)});
    return bare::SumOf(company.Bare().Seek(std::stoll(*rows.At(0, 0))));
  };
  jobs.push_back(equal);
  Job missing = company.Begin("FindFirst, text that is nowhere inside Comments (raw: one scan by LIKE)", 1.3);
  missing.calls = 1;
  missing.ours = [list](int call) {
    list->FindFirst("Comments Like '*qz" + std::to_string(call) + "x*'");
    return static_cast<std::uint64_t>(list->NoMatch() ? 0 : 1);
  };
  missing.raw = [&company](int call) {
    return static_cast<std::uint64_t>(
        company.Bare().RunPrepared("SELECT \"AcctNum\" FROM " + bare::Server::Table("Customers") + R"( WHERE "Comments" LIKE $1)", {"%qz" + std::to_string(call) + "x%"}).Count());
  };
  jobs.push_back(missing);
}

}  // namespace

std::vector<Job> SearchJobs(Company& company) {
  std::vector<Job> jobs{Find(company), FindOn(company), FindByNumber(company)};
  AddRare(company, jobs);
  return jobs;
}

}  // namespace bench::branch
