#include "company.h"
#include "raw/queries.h"
#include "result_jobs.h"

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

std::vector<Question> QuestionsOf(const Queries& all) {
  const raw::Samples& held = all.Held();
  const std::string& area = held.commonArea;
  const std::string& number = held.invoice;
  return {
      {"last name starts with Smi", Statement("Customers", "(Customers.LastName Like 'Smi*')"), all.NameStarts("Smi")},
      {"state exactly and balance at least", Statement("Customers", "(Customers.State Like 'MN') AND (Customers.CurrBalance>=500)"),
       all.StateAndBalance("MN", 500)},
      {"address contains", Statement("Customers", "((Customers.Addr1 Like '*Main*') OR (Customers.Addr2 Like '*Main*'))"),
       all.AddressContains("*Main*")},
      {"address contains a rare text", Statement("Customers", "((Customers.Addr1 Like '*4711 M*') OR (Customers.Addr2 Like '*4711 M*'))"),
       all.AddressContains("*4711 M*")},
      {"phone area, common", Statement("Customers" + phones, "(Phones.Area Like '" + area + "*')"), all.Area(area)},
      {"phone area, rare", Statement("Customers" + phones, "(Phones.Area Like '" + held.rareArea + "*')"), all.Area(held.rareArea)},
      {"key word, rare", Statement("Customers" + words, "(Lookups.Text = '" + held.rareWord + "')"), all.Word(held.rareWord)},
      {"key word, common", Statement("Customers" + words, "(Lookups.Text = '" + held.commonWord + "')"), all.Word(held.commonWord)},
      {"invoice number",
       Statement("Customers" + transactions, "(Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '" + number + "')"),
       all.Invoice(number)},
      {"key word, type and area together",
       Statement("((Customers" + phones + ")" + words + ")" + types,
                 "(Phones.Area Like '" + area + "*') AND (Lookups.Text = '" + held.commonWord + "') AND (CustCodes.CustCodes = 5)"),
       all.WordTypeAndArea(held.commonWord, 5, area)},
      {"phone area and invoice number",
       Statement("(Customers" + phones + ")" + transactions,
                 "(Phones.Area Like '" + area + "*') AND (Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '" + number + "')"),
       all.AreaAndInvoice(area, number)},
  };
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

}  // namespace

std::vector<Job> QueryJobs(Company& company, const std::string& only) {
  std::vector<Job> jobs;
  const auto all = std::make_shared<Queries>(company.Raw().Handle());
  for (const Question& question : QuestionsOf(*all)) {
    const std::string name = "query, first 50 rows: " + question.name;
    if ((name + "; both openings: " + question.name).find(only) == std::string::npos) continue;
    jobs.push_back(OpeningOf(company, all, {name, question.statement, question.bare}));
    jobs.push_back(BothOpenings(company, jobs.back(), question.statement));
  }
  return jobs;
}

std::vector<Job> ResultJobs(Company& company) {
  std::vector<Job> jobs;
  const auto all = std::make_shared<Queries>(company.Raw().Handle());
  const std::string few = all->Held().rareWord;
  AddInside(company, all, {"a rare key word", Statement("Customers" + words, "(Lookups.Text = '" + few + "')"), all->Word(few)}, jobs);
  const std::string tenth = all->Held().commonArea;
  AddInside(company, all, {"a phone area", Statement("Customers" + phones, "(Phones.Area Like '" + tenth + "*')"), all->Area(tenth)}, jobs);
  const std::string half = all->Held().middleDate;
  AddInside(company, all, {"an entry date", Statement("Customers", "(Customers.EntryDate>=#" + half + "#)"), all->EnteredSince(half)}, jobs);
  return jobs;
}

}  // namespace bench
