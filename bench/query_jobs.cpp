#include <algorithm>

#include "company.h"
#include "raw/queries.h"

namespace bench {
namespace {

constexpr int pageRows = 50;

using raw::Queries;

// As the query screen puts its statements together, with the main screen's order behind them.
std::string Statement(const std::string& joins, const std::string& where) {
  return "Select DISTINCTROW Customers.* FROM " + joins + " WHERE " + where + " ORDER BY LastName;";
}

const std::string phones = " INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum";
const std::string transactions = " INNER JOIN Transactions ON Customers.AcctNum = Transactions.AcctNum";
const std::string words = " INNER JOIN Lookups ON Customers.AcctNum = Lookups.AcctNum";
const std::string types = " INNER JOIN CustCodes ON Customers.AcctNum = CustCodes.AcctNum";

struct Question {
  std::string name;
  std::string statement;
  raw::Query bare;
};

std::vector<Question> QuestionsOf(const Queries& all) {
  const std::string area = all.CommonArea();
  const std::string number = all.SomeInvoice();
  return {
      {"last name starts with Smi", Statement("Customers", "(Customers.LastName Like 'Smi*')"), all.NameStarts("Smi")},
      {"state exactly and balance at least", Statement("Customers", "(Customers.State Like 'MN') AND (Customers.CurrBalance>=500)"),
       all.StateAndBalance("MN", 500)},
      {"address contains", Statement("Customers", "((Customers.Addr1 Like '*Main*') OR (Customers.Addr2 Like '*Main*'))"),
       all.AddressContains("*Main*")},
      {"address contains a rare text", Statement("Customers", "((Customers.Addr1 Like '*4711 M*') OR (Customers.Addr2 Like '*4711 M*'))"),
       all.AddressContains("*4711 M*")},
      {"phone area, common", Statement("Customers" + phones, "(Phones.Area Like '" + area + "*')"), all.Area(area)},
      {"phone area, rare", Statement("Customers" + phones, "(Phones.Area Like '" + all.RareArea() + "*')"), all.Area(all.RareArea())},
      {"key word, rare", Statement("Customers" + words, "(Lookups.Text = '" + all.RareWord() + "')"), all.Word(all.RareWord())},
      {"key word, common", Statement("Customers" + words, "(Lookups.Text = '" + all.CommonWord() + "')"), all.Word(all.CommonWord())},
      {"invoice number",
       Statement("Customers" + transactions, "(Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '" + number + "')"),
       all.Invoice(number)},
      {"key word, type and area together",
       Statement("((Customers" + phones + ")" + words + ")" + types,
                 "(Phones.Area Like '" + area + "*') AND (Lookups.Text = '" + all.CommonWord() + "') AND (CustCodes.CustCodes = 5)"),
       all.WordTypeAndArea(all.CommonWord(), 5, area)},
      {"phone area and invoice number",
       Statement("(Customers" + phones + ")" + transactions,
                 "(Phones.Area Like '" + area + "*') AND (Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '" + number + "')"),
       all.AreaAndInvoice(area, number)},
  };
}

Job RunOf(Company& company, const std::shared_ptr<Queries>& all, const Question& question) {
  const auto bare = std::make_shared<raw::PreparedQuery>(*all, question.bare);
  const std::string statement = question.statement;
  {
    const auto list = company.Data().OpenRecordset(statement);
    RequireSameCells(list->Window().RowsAt(0, pageRows), bare->First(pageRows));
  }
  Job job;
  job.name = "query, first 50 rows: " + question.name;
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

// As the screens do: when the query is run, and once more when the main screen becomes active, before the first list is closed.
Job BothOpenings(Company& company, const Job& run, const std::string& statement) {
  Job job = run;
  job.name = "both openings" + run.name.substr(run.name.find(':'));
  job.ours = [&company, statement](int) {
    const auto first = company.Data().OpenRecordset(statement);
    first->Window().RowsAt(0, pageRows);
    const auto second = company.Data().OpenRecordset(statement);
    const auto sum = SumOf(second->Window().RowsAt(0, pageRows));
    first->Close();
    second->Close();
    return sum;
  };
  job.mostExtra = 30'000;  // what a user takes for at once
  return job;
}

/// A result kept open, its idle work done.
struct Result {
  Result(Company& company, const std::string& statement) : list(company.Data().OpenRecordset(statement)) {
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

void AddInside(Company& company, const std::shared_ptr<Queries>& all, const std::string& where, const std::string& statement,
               const raw::Query& query, std::vector<Job>& jobs) {
  // Another text, so that the openings that are measured don't begin with what this one has read.
  const auto result = std::make_shared<Result>(company, statement + ' ');
  const auto bare = std::make_shared<raw::PreparedQuery>(*all, query);
  const std::string name = " in " + std::to_string(result->rows) + " rows of " + where;
  if (result->marks.empty()) return;
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
  random.raw = page.raw;
  random.mostRatio = 1.6;
  jobs.push_back(random);

  Job find;
  find.name = "FindFirst, prefix of the order's field" + name;
  find.ours = [result](int call) {
    result->list->FindFirst("LastName Like '" + Pick(result->keys, call).name.substr(0, 2) + "*'");
    return result->list->NoMatch() ? 0 : AccountOf(*result->list);
  };
  find.raw = [result, bare](int call) { return bare->FirstStarting(Pick(result->keys, call).name.substr(0, 2)); };
  find.mostExtra = 25;
  jobs.push_back(find);

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
  jobs.push_back(count);
}

}  // namespace

std::vector<Job> QueryJobs(Company& company) {
  std::vector<Job> jobs;
  const auto all = std::make_shared<Queries>(company.Raw().Handle());
  for (const Question& question : QuestionsOf(*all)) {
    jobs.push_back(RunOf(company, all, question));
    jobs.push_back(BothOpenings(company, jobs.back(), question.statement));
  }
  return jobs;
}

std::vector<Job> ResultJobs(Company& company) {
  std::vector<Job> jobs;
  const auto all = std::make_shared<Queries>(company.Raw().Handle());
  const std::string few = all->RareWord();
  AddInside(company, all, "a rare key word", Statement("Customers" + words, "(Lookups.Text = '" + few + "')"), all->Word(few), jobs);
  const std::string tenth = all->TenthArea();
  AddInside(company, all, "a phone area", Statement("Customers" + phones, "(Phones.Area Like '" + tenth + "*')"), all->Area(tenth), jobs);
  const std::string half = all->MiddleEntryDate();
  AddInside(company, all, "an entry date", Statement("Customers", "(Customers.EntryDate>=#" + half + "#)"), all->EnteredSince(half), jobs);
  return jobs;
}

}  // namespace bench
