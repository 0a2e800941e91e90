#include "server/branch.h"

#include <algorithm>
#include <cctype>

namespace bench::branch {
namespace {

constexpr int kPage = 50;

/// A list kept open, with bookmarks of the rows around which pages are read.
struct OpenedList {
  explicit OpenedList(Company& company) : rows(company.OpenList()) {
    for (const bare::Place& place : company.Somewhere()) {
      rows->FindFirst("[AcctNum]=" + std::to_string(place.account));
      marks.push_back(rows->Bookmark());
    }
    while (rows->Window().IdleSlice()) {
    }
  }
  platform::RecordsetRef rows;
  std::vector<platform::Bookmark> marks;
};

Job Opening(Company& company) {
  Job job = company.Begin("open the list, 50 rows", 1.3);
  job.ours = [&company](int) {
    const auto list = company.OpenList();
    const auto sum = SumOf(list->Window().RowsAt(0, kPage));
    list->Close();
    return sum;
  };
  job.raw = [&company](int) { return bare::SumOf(company.Bare().First(kPage)); };
  return job;
}

void AddPages(Company& company, const std::shared_ptr<OpenedList>& list, std::vector<Job>& jobs) {
  Job forward = company.Begin("page forward", 1.4);
  forward.ours = [list](int call) { return SumOf(list->rows->Window().RowsAfter(Pick(list->marks, call), kPage)); };
  forward.raw = [&company](int call) { return bare::SumOf(company.Bare().After(Pick(company.Somewhere(), call), kPage)); };
  jobs.push_back(forward);
  Job back = company.Begin("page back", 1.4);
  back.ours = [list](int call) { return SumOf(list->rows->Window().RowsBefore(Pick(list->marks, call), kPage)); };
  back.raw = [&company](int call) { return bare::SumOf(company.Bare().Before(Pick(company.Somewhere(), call), kPage)); };
  jobs.push_back(back);
  Job first = company.Begin("first page", 1.4);
  first.ours = [list](int) { return SumOf(list->rows->Window().RowsAt(0, kPage)); };
  first.raw = [&company](int) { return bare::SumOf(company.Bare().First(kPage)); };
  jobs.push_back(first);
  Job last = company.Begin("last page", 1.4);
  last.ours = [list](int) { return SumOf(list->rows->Window().LastRows(kPage)); };
  last.raw = [&company](int) { return bare::SumOf(company.Bare().Last(kPage)); };
  jobs.push_back(last);
}

/// Places in the results of queries by the first letters of a name, each with its list.
struct Results {
  explicit Results(Company& company) {
    constexpr std::size_t kLists = 8;
    constexpr std::size_t kLetters = 3;
    for (const bare::Place& place : company.Somewhere()) {
      const std::string start = place.key.substr(0, kLetters);
      if (start.size() < kLetters || !std::ranges::all_of(start, [](unsigned char sign) { return std::isalpha(sign) != 0; })) continue;
      lists.push_back(company.Open("SELECT * FROM Customers WHERE (LastName Like '" + start + "*') ORDER BY LastName"));
      // The first row that is sought brings those behind it.
      lists.back()->FindFirst("[AcctNum]=0");
      lists.back()->FindFirst("[AcctNum]=" + std::to_string(place.account));
      places.push_back({place.key, std::to_string(place.account), start + '\x7f'});
      if (lists.size() == kLists) break;
    }
  }
  std::vector<platform::RecordsetRef> lists;
  std::vector<bare::Cells> places;  ///< key, account, and what stands behind all names that begin so
};

Job PageOfAResult(Company& company) {
  const auto results = std::make_shared<Results>(company);
  Job job = company.Begin("page forward in the result of a query by name", 1.4);
  job.ours = [results](int call) {
    const platform::RecordsetRef& list = Pick(results->lists, call);
    return SumOf(list->Window().RowsAfter(list->Bookmark(), kPage));
  };
  job.raw = [results, &company](int call) {
    return bare::SumOf(company.Bare().RunPrepared("SELECT " + company.Bare().Columns() + " FROM " + bare::Server::Table("Customers") +
                                                      R"( c WHERE (c."~k.LastName", c."AcctNum") > ($1, $2::integer) AND c."~k.LastName" < $3 )"
                                                      R"(ORDER BY c."~k.LastName" NULLS FIRST, c."AcctNum" LIMIT )" + std::to_string(kPage),
                                                  Pick(results->places, call)));
  };
  return job;
}

// The bare program can't know which row stands there: it is told.
Job Random(Company& company, const std::shared_ptr<OpenedList>& list) {
  const auto places = std::make_shared<std::vector<bare::Place>>();
  for (std::size_t i = 0; i < 64; ++i) {
    const bare::Rows row = company.Bare().Run(R"(SELECT "~k.LastName", "AcctNum" FROM )" + bare::Server::Table("Customers") +
                                                  R"( ORDER BY "~k.LastName" NULLS FIRST, "AcctNum" LIMIT 1 OFFSET $1)",
                                              {std::to_string(company.Ordinals()[i] - 1)});
    places->push_back({row.At(0, 0).value_or(""), std::stoll(row.At(0, 1).value_or("0"))});
  }
  Job job = company.Begin("random position after idle work (raw: one page)", 1.4);
  job.ours = [list, &company](int call) { return SumOf(list->rows->Window().RowsAt(company.Ordinals()[static_cast<std::size_t>(call) % 64], kPage)); };
  job.raw = [places, &company](int call) { return bare::SumOf(company.Bare().After(Pick(*places, call), kPage)); };
  return job;
}

// An order that is the rows' own all the same would be no work: rows of equal addresses stand in the order of their accounts on both sides.
Job Heading(Company& company) {
  Job job = company.Begin("order by a field without index, 50 rows (raw: one scan)", 1.3);
  job.calls = 1;
  job.sameResult = false;
  job.ours = [&company](int) {
    const auto list = company.Open("SELECT * FROM Customers ORDER BY Addr1");
    const auto sum = SumOf(list->Window().RowsAt(0, kPage));
    list->Close();
    return sum;
  };
  job.raw = [&company](int) {
    return bare::SumOf(company.Bare().RunPrepared("SELECT count(*) FROM " + bare::Server::Table("Customers") + R"( WHERE "Addr1" > '')", {}));
  };
  return job;
}

}  // namespace

std::vector<Job> ListJobs(Company& company) {
  std::vector<Job> jobs;
  jobs.push_back(Opening(company));
  const auto list = std::make_shared<OpenedList>(company);
  AddPages(company, list, jobs);
  jobs.push_back(PageOfAResult(company));
  jobs.push_back(Random(company, list));
  jobs.push_back(Heading(company));
  return jobs;
}

}  // namespace bench::branch
