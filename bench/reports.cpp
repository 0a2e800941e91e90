// What reports write into the user's temporary file, labels and the queried customers' copy, beside a bare program that writes the same.
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>

#include "company.h"
#include "engine/data_file.h"
#include "main_screen.h"
#include "measure.h"
#include "raw/labels.h"
#include "reports/frmCustReports.h"
#include "session/ModCustSch.h"
#include "suite/company_schema.h"

namespace {

using orcussch::screens::frmCustReports;

/// A second temporary file, for the bare side.
std::string BareFile(const std::string& folder) {
  const std::string path = folder + "/orvTEMP/bare.zdb";
  std::filesystem::remove(path);
  engine::CreateDataFile(path, suite::TablesOf(suite::DataFile::Temporary), true);
  return path;
}

bench::Job LabelsJob(bench::raw::Labels& bare, const std::string& temporary) {
  bench::Job job;
  job.name = "LoadLabels, all customers";
  job.calls = 1;
  job.mostRatio = 1.3;
  // Both begin with an empty table, and the screen empties it itself.
  job.readyOurs = [](int) {
    bool failed = false;
    orcussch::ClearORVTempTable("CustLabelTempRpt", failed);
    frmCustReports->optCustomer[1].Value(true);
  };
  job.readyRaw = [&bare](int) { bare.ClearLabels(); };
  job.ours = [temporary](int) {
    bool failed = false;
    frmCustReports->LoadLabels(failed);
    return bench::raw::SumOfLabels(temporary);
  };
  job.raw = [&bare](int) {
    bare.Load();
    return bare.Sum();
  };
  return job;
}

using Way = bench::raw::Labels::Way;

/// The system's statement has the list's order, and its engine leaves an order out that shows in no row: so it is measured beside each
/// way to do it.
bench::Job CopyJob(bench::raw::Labels& bare, Way way) {
  bench::Job job;
  job.name = way == Way::InOrder     ? "copy of the queried customers, in the list's order"
             : way == Way::ByColumns ? "the same, beside the bare one without an order"
                                     : "the same, beside a bare copy of the table as it is";
  job.calls = 1;
  job.mostRatio = way == Way::InOrder ? 1.15 : 0;
  job.readyOurs = [](int) {
    bool failed = false;
    orcussch::ClearORVTempTable("Customers", failed);
  };
  job.readyRaw = [&bare](int) { bare.ClearCustomers(); };
  job.ours = [](int) {
    bool failed = false;
    const std::string& list = orcussch::screens::frmCustMain->data[orcussch::tab::Customers].RecordSource();
    orcussch::ExecuteSQLStmt(orcussch::dbCustomer, "INSERT INTO Customers IN '" + orcussch::gTempPath + "'" + list, false, failed);
    return static_cast<std::uint64_t>(failed ? 0 : orcussch::dbCustomer->RecordsAffected());
  };
  job.raw = [&bare, way](int) {
    bare.Copy(way);
    return static_cast<std::uint64_t>(bare.Copied());
  };
  return job;
}

/// How long the windows wait in a job until painting is served, and how much is done between two such moments.
void ShowWaits(bench::WatchedFrontEnd& windows, const std::string& name, const std::function<void()>& work) {
  windows.painting.Begin();
  work();
  windows.painting.End();
  std::cout << std::fixed << std::setprecision(2) << name << ": painting served " << windows.painting.Count() << " times; longest wait "
            << windows.painting.WorstGap() << " ms, all but one in a thousand below " << windows.painting.RareGap()
            << " ms, most work between two " << windows.painting.WorstWork() << " ms (bar 16)\n"
            << std::flush;
}

void Run(const platform::DatabaseRef& database, const std::string& statement) {
  bool failed = false;
  orcussch::ExecuteSQLStmt(database, statement, false, failed);
  if (failed) throw std::runtime_error(statement);
}

void ShowAllWaits(bench::WatchedFrontEnd& windows) {
  const std::string& list = orcussch::screens::frmCustMain->data[orcussch::tab::Customers].RecordSource();
  std::cout << '\n';
  bool failed = false;
  frmCustReports->optCustomer[1].Value(true);
  frmCustReports->LoadLabels(failed);
  ShowWaits(windows, "LoadLabels over the labels of the run before", [&] { frmCustReports->LoadLabels(failed); });
  const auto show = [&](const std::string& name, const platform::DatabaseRef& database, const std::string& statement) {
    ShowWaits(windows, name, [&] { Run(database, statement); });
  };
  orcussch::ClearORVTempTable("Customers", failed);
  show("the copy", orcussch::dbCustomer, "INSERT INTO Customers IN '" + orcussch::gTempPath + "'" + list);
  show("UPDATE of all", orcussch::dbTemp, "UPDATE Customers SET Comments = LastName & Addr1, LastName = FirstName");
  show("DELETE of nearly all", orcussch::dbTemp, "DELETE * FROM Customers WHERE AcctNum > 1000");
  Run(orcussch::dbTemp, "DELETE * FROM Customers");
  Run(orcussch::dbCustomer, "INSERT INTO Customers IN '" + orcussch::gTempPath + "'" + list);
  show("DELETE of all", orcussch::dbTemp, "DELETE * FROM Customers");
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_reports DIR [PAIRS]: what reports write of company 1 of the folder into the temporary file\n";
    return 2;
  }
  try {
    const std::string folder = words[1];
    const std::size_t pairs = count > 2 ? std::stoul(words[2]) : 3;
    const std::string temporary = bench::TemporaryFileIn(folder);
    bench::Company company(folder);
    bench::raw::Labels bare(company.Raw(), BareFile(folder));
    bench::AtMainScreen(folder, [&](orcussch::frmCustMain&, bench::WatchedFrontEnd& windows) {
      std::cout << company.Rows() << " customers, " << pairs << " pairs\n\n" << bench::TableHead() << std::flush;
      for (const bench::Job& job :
           {LabelsJob(bare, temporary), CopyJob(bare, Way::InOrder), CopyJob(bare, Way::ByColumns), CopyJob(bare, Way::WholeTable)})
        std::cout << bench::TableLine(bench::Measure(job, pairs)) << std::flush;
      ShowAllWaits(windows);
    });
    std::cout << "peak memory " << bench::PeakMemory() << " MiB\n";
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_reports: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
