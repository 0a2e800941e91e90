#include <algorithm>

#include "company.h"

namespace bench {
namespace {

constexpr int pageRows = 50;

/// A list kept open, with bookmarks of the rows around which pages are read.
struct OpenList {
  explicit OpenList(Company& company) : recordset(company.OpenList()) {}

  void Mark(const std::vector<raw::NameKey>& rows) {
    for (const raw::NameKey& row : rows) {
      recordset->FindFirst("[AcctNum]=" + std::to_string(row.account));
      marks.push_back(recordset->Bookmark());
    }
  }
  void FinishIdleWork() {
    while (recordset->Window().IdleSlice()) {
    }
  }

  platform::RecordsetRef recordset;
  std::vector<platform::Bookmark> marks;
};

std::shared_ptr<OpenList> ListWithMarks(Company& company, const std::vector<raw::NameKey>& rows) {
  auto list = std::make_shared<OpenList>(company);
  list->Mark(rows);
  RequireSameCells(list->recordset->Window().RowsAfter(list->marks[0], pageRows), company.Raw().After(rows[0], pageRows));
  RequireSameCells(list->recordset->Window().RowsBefore(list->marks[0], pageRows), company.Raw().Before(rows[0], pageRows));
  return list;
}

Job::Work OurOpening(Company& company) {
  return [&company](int) {
    const auto list = company.OpenList();
    const auto sum = SumOf(list->Window().RowsAt(0, pageRows));
    list->Close();
    return sum;
  };
}

void AddOpening(Company& company, std::vector<Job>& jobs) {
  RequireSameCells(company.OpenList()->Window().RowsAt(0, pageRows), company.Raw().First(pageRows));
  Job opening;
  opening.name = "open the list, 50 rows";
  opening.ours = OurOpening(company);
  opening.raw = [&company](int) { return SumOf(company.Raw().First(pageRows)); };
  opening.mostRatio = 1.25;
  jobs.push_back(opening);
  opening.name = "the same, raw statement prepared each time";
  opening.raw = [&company](int) { return SumOf(company.Raw().PrepareAndFirst(pageRows)); };
  opening.mostRatio = 0;
  jobs.push_back(opening);
}

void AddPages(Company& company, const std::string& where, const std::vector<raw::NameKey>& rows, std::vector<Job>& jobs) {
  const auto list = ListWithMarks(company, rows);
  Job forward;
  forward.name = "page forward" + where;
  forward.ours = [list](int call) { return SumOf(list->recordset->Window().RowsAfter(Pick(list->marks, call), pageRows)); };
  forward.raw = [&company, &rows](int call) { return SumOf(company.Raw().After(Pick(rows, call), pageRows)); };
  forward.mostRatio = 1.3;
  jobs.push_back(forward);
  Job back = forward;
  back.name = "page back" + where;
  back.ours = [list](int call) { return SumOf(list->recordset->Window().RowsBefore(Pick(list->marks, call), pageRows)); };
  back.raw = [&company, &rows](int call) { return SumOf(company.Raw().Before(Pick(rows, call), pageRows)); };
  jobs.push_back(back);
}

void AddEnds(Company& company, std::vector<Job>& jobs) {
  const auto list = std::make_shared<OpenList>(company);
  RequireSameCells(list->recordset->Window().LastRows(pageRows), company.Raw().Last(pageRows));
  Job first;
  first.name = "first page";
  first.ours = [list](int) { return SumOf(list->recordset->Window().RowsAt(0, pageRows)); };
  first.raw = [&company](int) { return SumOf(company.Raw().First(pageRows)); };
  first.mostRatio = 1.3;
  jobs.push_back(first);
  Job last = first;
  last.name = "last page";
  last.ours = [list](int) { return SumOf(list->recordset->Window().LastRows(pageRows)); };
  last.raw = [&company](int) { return SumOf(company.Raw().Last(pageRows)); };
  jobs.push_back(last);
}

void AddOrdinals(Company& company, std::vector<Job>& jobs) {
  const auto fresh = std::make_shared<OpenList>(company);
  const std::int64_t somewhere = company.Ordinals()[0];
  RequireSameCells(fresh->recordset->Window().RowsAt(somewhere, pageRows), company.Raw().At(somewhere, pageRows));
  Job before;
  before.name = "50 rows at a random position, before idle work";
  before.prepare = [fresh, &company] { fresh->recordset = company.OpenList(); };
  before.calls = 4;
  before.ours = [fresh, &company](int call) { return SumOf(fresh->recordset->Window().RowsAt(Pick(company.Ordinals(), call), pageRows)); };
  before.raw = [&company](int call) { return SumOf(company.Raw().At(Pick(company.Ordinals(), call), pageRows)); };
  before.mostRatio = 1.2;
  jobs.push_back(before);

  const auto ready = std::make_shared<OpenList>(company);
  ready->FinishIdleWork();
  RequireSameCells(ready->recordset->Window().RowsAt(somewhere, pageRows), company.Raw().At(somewhere, pageRows));
  // The bare program can't know which row stands there: it is told, and has one page to read.
  auto places = std::make_shared<std::vector<raw::NameKey>>();
  for (std::size_t i = 0; i < 64; ++i) {
    const auto page = company.Raw().At(std::max<std::int64_t>(0, company.Ordinals()[i] - 1), 1);
    const auto* name = std::get_if<std::string>(&page.cells[1]);
    places->push_back({name == nullptr ? std::string() : *name, std::get<std::int64_t>(page.cells[0])});
  }
  Job after;
  after.name = "50 rows at a random position, after idle work (raw: one page)";
  after.ours = [ready, &company](int call) {
    const std::int64_t ordinal = company.Ordinals()[static_cast<std::size_t>(call) % 64];
    return SumOf(ready->recordset->Window().RowsAt(std::max<std::int64_t>(1, ordinal), pageRows));
  };
  after.raw = [places, &company](int call) { return SumOf(company.Raw().After(Pick(*places, call), pageRows)); };
  after.mostRatio = 1.6;
  jobs.push_back(after);
}

void AddUnindexedOrder(Company& company, std::vector<Job>& jobs) {
  const std::string statement = "SELECT * FROM Customers ORDER BY Addr1";
  RequireSameCells(company.Data().OpenRecordset(statement)->Window().RowsAt(0, pageRows), company.Raw().FirstByAddress(pageRows));
  Job heading;
  heading.name = "order by a field without index, first 50 rows (raw: one scan)";
  heading.calls = 1;
  heading.sameResult = false;
  heading.ours = [&company, statement](int) {
    const auto list = company.Data().OpenRecordset(statement);
    const auto sum = SumOf(list->Window().RowsAt(0, pageRows));
    list->Close();
    return sum;
  };
  heading.raw = [&company](int) { return company.Raw().ScanAddresses(); };
  heading.mostRatio = 1.6;
  jobs.push_back(heading);
}

std::uint64_t WalkOn(platform::Recordset& list, std::int64_t rows) {
  std::uint64_t sum = 0;
  for (std::int64_t i = 0; i < rows && !list.Eof(); ++i) {
    sum = sum * 31 + AccountOf(list);
    list.MoveNext();
  }
  return sum;
}

// A short list is walked whole by each call. Of a long one each call walks the next stretch, on both sides alike: 22 pairs, one
// of them for warming up, lead from the first row behind the last.
void AddWalk(Company& company, std::vector<Job>& jobs) {
  constexpr std::int64_t shortList = 20'000;
  constexpr std::int64_t stretches = 44;
  Job walk;
  walk.calls = 1;
  walk.mostRatio = 1.3;
  if (company.Rows() <= shortList) {
    walk.name = "MoveNext through the whole list";
    walk.ours = [&company](int) {
      const auto list = company.OpenList();
      const auto sum = WalkOn(*list, company.Rows() + 1);
      list->Close();
      return sum;
    };
    walk.raw = [&company](int) {
      company.Raw().WalkFromStart();
      return company.Raw().WalkOn(company.Rows() + 1);
    };
  } else {
    const std::int64_t rows = company.Rows() / stretches + 1;
    const auto list = std::make_shared<platform::RecordsetRef>();
    // No reading is left open behind the job.
    const std::shared_ptr<void> closing(nullptr, [&company](void*) { company.Raw().WalkFromStart(); });
    walk.name = "MoveNext through the whole list, " + std::to_string(rows) + " rows at a time";
    walk.ours = [list, rows, &company](int call) {
      if (call % stretches == 0) *list = company.OpenList();
      return WalkOn(**list, rows);
    };
    walk.raw = [rows, &company, closing](int call) {
      if (call % stretches == 0) company.Raw().WalkFromStart();
      return company.Raw().WalkOn(rows);
    };
  }
  jobs.push_back(walk);
}

}  // namespace

std::vector<Job> ListJobs(Company& company) {
  std::vector<Job> jobs;
  AddOpening(company, jobs);
  AddPages(company, "", company.Somewhere(), jobs);
  AddPages(company, " in the largest group of equal names", company.LargestGroup(), jobs);
  AddEnds(company, jobs);
  AddOrdinals(company, jobs);
  AddUnindexedOrder(company, jobs);
  AddWalk(company, jobs);
  return jobs;
}

}  // namespace bench
