#include "result_jobs.h"

#include <utility>

namespace bench {
namespace {

constexpr int pageRows = 50;

/// A result kept open, its idle work done.
struct OpenResult {
  OpenResult(Company& company, const std::string& statement) : list(company.Data().OpenRecordset(statement)) {
    while (list->Window().IdleSlice()) {
    }
    rows = list->Window().Count();
    for (std::int64_t i = 0; i < 16; ++i) {
      const auto at = list->Window().RowsAt(rows * (2 * i + 1) / 33, 1);
      if (at.empty()) continue;
      marks.push_back(at.front().bookmark);
      const platform::Value& name = at.front().cells.at(1);
      keys.push_back({name.IsNull() ? std::string() : name.As<std::string>(), at.front().cells.at(0).As<std::int32_t>()});
    }
  }
  platform::RecordsetRef list;
  std::int64_t rows = 0;
  std::vector<platform::Bookmark> marks;
  std::vector<raw::NameKey> keys;
};

void AddPages(const std::shared_ptr<OpenResult>& result, const std::shared_ptr<raw::PreparedQuery>& bare, const std::string& name,
              std::vector<Job>& jobs) {
  RequireSameCells(result->list->Window().RowsAfter(result->marks[0], pageRows), bare->After(result->keys[0], pageRows));
  Job page;
  page.name = "page forward" + name;
  page.ours = [result](int call) { return SumOf(result->list->Window().RowsAfter(Pick(result->marks, call), pageRows)); };
  page.raw = [result, bare](int call) { return SumOf(bare->After(Pick(result->keys, call), pageRows)); };
  page.mostRatio = 1.3;
  jobs.push_back(page);

  Job random = page;
  random.name = "50 rows at a random position, after idle work" + name;
  random.ours = [result](int call) {
    const auto i = static_cast<std::int64_t>(static_cast<std::size_t>(call) % result->keys.size());
    return SumOf(result->list->Window().RowsAt(result->rows * (2 * i + 1) / 33 + 1, pageRows));
  };
  random.mostRatio = 1.6;
  jobs.push_back(random);
}

Job FindOf(const std::shared_ptr<OpenResult>& result, const std::shared_ptr<raw::PreparedQuery>& bare, const std::string& name) {
  Job find;
  find.name = "FindFirst, prefix of the order's field" + name;
  find.ours = [result](int call) {
    result->list->FindFirst("LastName Like '" + Pick(result->keys, call).name.substr(0, 2) + "*'");
    return result->list->NoMatch() ? 0 : AccountOf(*result->list);
  };
  find.raw = [result, bare](int call) { return bare->FirstStarting(Pick(result->keys, call).name.substr(0, 2)); };
  find.mostExtra = 25;
  return find;
}

Job CountOf(Company& company, const std::shared_ptr<raw::PreparedQuery>& bare, const std::string& statement, const std::string& name) {
  Job count;
  count.name = "MoveLast and RecordCount" + name;
  count.ours = [&company, statement](int) {
    const auto list = company.Data().OpenRecordset(statement);
    list->MoveLast();
    return static_cast<std::uint64_t>(list->RecordCount());
  };
  count.raw = [bare](int) {
    bare->First(1);
    return static_cast<std::uint64_t>(bare->Count());
  };
  count.calls = 1;
  count.mostRatio = 1.3;
  return count;
}

}  // namespace

Job OpeningOf(Company& company, const std::shared_ptr<raw::Queries>& all, const Question& question) {
  const auto bare = std::make_shared<raw::PreparedQuery>(*all, question.bare);
  const std::string statement = question.statement;
  {
    const auto list = company.Data().OpenRecordset(statement);
    RequireSameCells(list->Window().RowsAt(0, pageRows), bare->First(pageRows));
  }
  Job job;
  job.name = question.name;
  job.ours = [&company, statement](int) {
    const auto list = company.Data().OpenRecordset(statement);
    const auto sum = SumOf(list->Window().RowsAt(0, pageRows));
    list->Close();
    return sum;
  };
  job.raw = [bare](int) { return SumOf(bare->First(pageRows)); };
  job.mostRatio = 1.3;
  return job;
}

void AddInside(Company& company, const std::shared_ptr<raw::Queries>& all, const Question& question, std::vector<Job>& jobs) {
  // Another text, so that the openings that are measured don't begin with what this one has read.
  const auto result = std::make_shared<OpenResult>(company, question.statement + ' ');
  const auto bare = std::make_shared<raw::PreparedQuery>(*all, question.bare);
  if (result->marks.empty()) return;
  const std::string name = " in " + std::to_string(result->rows) + " rows of " + question.name;
  AddPages(result, bare, name, jobs);
  jobs.push_back(FindOf(result, bare, name));
  jobs.push_back(CountOf(company, bare, question.statement, name));
}

void AddEnds(Company& company, const std::shared_ptr<raw::Queries>& all, const Question& question, std::vector<Job>& jobs) {
  const auto result = std::make_shared<OpenResult>(company, question.statement + ' ');
  const auto bare = std::make_shared<raw::PreparedQuery>(*all, question.bare);
  RequireSameCells(result->list->Window().LastRows(pageRows), bare->Last(pageRows));
  Job first;
  first.name = "first page of " + question.name;
  first.ours = [result](int) { return SumOf(result->list->Window().RowsAt(0, pageRows)); };
  first.raw = [bare](int) { return SumOf(bare->First(pageRows)); };
  first.mostRatio = 1.3;
  jobs.push_back(first);
  Job last = first;
  last.name = "last page of " + question.name;
  last.ours = [result](int) { return SumOf(result->list->Window().LastRows(pageRows)); };
  last.raw = [bare](int) { return SumOf(bare->Last(pageRows)); };
  jobs.push_back(last);
}

}  // namespace bench
