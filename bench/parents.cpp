// The list of parents with many links, beside a bare program: bench_parents DIR [PAIRS [LINKS [CHILDREN]]]. It works in the folder that it
// is given: links are added until there are LINKS (1,000,000), CHILDREN (4) to each new parent.
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "company.h"
#include "result_jobs.h"

namespace {

void RunOnce(bench::raw::Statement& statement) {
  statement.Step();
  statement.Reset();
}

void Run(bench::raw::Store& store, const char* sql) {
  bench::raw::Statement statement(store.Handle(), sql);
  RunOnce(statement);
}

std::int64_t Ask(bench::raw::Store& store, const char* sql) {
  bench::raw::Statement statement(store.Handle(), sql);
  statement.Step();
  return statement.Int(0);
}

/// Parents and children here and there, as an office would have entered them.
void FillUp(bench::Company& company, std::int64_t links, std::int64_t children) {
  bench::raw::Store& store = company.Raw();
  constexpr std::int64_t kStride = 7'654'321;
  Run(store, "BEGIN");
  bench::raw::Statement add(store.Handle(), "INSERT INTO f1.SuperCustomers ([Primary], Subordinate) VALUES (?1, ?2)");
  for (std::int64_t i = Ask(store, "SELECT count(*) FROM f1.SuperCustomers"); i < links; ++i) {
    add.Bind(1, i / children * kStride % company.Rows() + 1);
    add.Bind(2, i * kStride % company.Rows() + 1);
    RunOnce(add);
  }
  Run(store, "COMMIT");
}

// As the screen asks: its first opening has the name alone in the order, a heading names the table as well.
std::string Statement(const std::string& order) {
  return "SELECT DISTINCTROW Customers.AcctNum, Customers.LastName, Customers.FirstName, Customers.Title, Customers.Addr1, Customers.Addr2, "
         "Customers.City, Customers.Zip, Customers.Country FROM SuperCustomers INNER JOIN Customers ON SuperCustomers.Primary = "
         "Customers.AcctNum ORDER By " +
         order + ";";
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_parents DIR [PAIRS [LINKS [CHILDREN]]]: the list of parents of company 1 of the folder, which is changed: give it a copy\n";
    return 2;
  }
  try {
    const auto number = [&](int place, long otherwise) { return count > place ? std::stol(words[place]) : otherwise; };
    bench::Company company(words[1]);
    FillUp(company, number(3, 1'000'000), number(4, 4));
    const auto all = std::make_shared<bench::raw::Queries>(company.Raw().Handle());
    const bench::Question parents{"the parents", Statement("LastName"), all->Parents()};
    std::vector<bench::Job> jobs{bench::OpeningOf(company, all, {"the parents, first 50 rows", parents.statement, parents.bare})};
    bench::AddEnds(company, all, parents, jobs);
    bench::AddInside(company, all, parents, jobs);
    std::cout << company.Rows() << " customers, " << Ask(company.Raw(), "SELECT count(*) FROM f1.SuperCustomers") << " links, "
              << Ask(company.Raw(), "SELECT count(DISTINCT [Primary]) FROM f1.SuperCustomers") << " parents\n\n"
              << bench::TableHead() << std::flush;
    for (const bench::Job& job : jobs) std::cout << bench::TableLine(bench::Measure(job, static_cast<std::size_t>(number(2, 21)))) << std::flush;
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_parents: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
