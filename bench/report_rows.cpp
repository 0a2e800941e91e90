// The rows of delivered reports, up to where they are laid out, beside bare loops that read the same fields.
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "measure.h"
#include "platform/values/convert.h"
#include "printing/data/report_errors.h"
#include "printing/data/report_folder.h"
#include "printing/data/report_rows.h"
#include "raw/store.h"
#include "report_services.h"

namespace {

/// A report, and the statement by which somebody who knows the data would read its fields, in the order of ours.
struct Case {
  std::string file;
  std::string selection;
  std::string bare;
};

const std::vector<Case>& Cases() {
  static const std::string list =
      "SELECT AcctNum, FirstName, LastName, Addr1, City, State, Zip FROM f1.Customers INDEXED BY \"Customers.xLastName\"";
  static const std::string byName = " ORDER BY LastName, AcctNum";
  static const std::vector<Case> cases{
      {"ARCusLst.Rpt", "", list + byName},
      {"ARCusLst.Rpt", "{Customers.State} = 'MN' And Not ({Customers.City} = 'Edina')",
       list + " WHERE State = 'MN' AND (City <> 'Edina' OR City IS NULL)" + byName},
      {"ARCusLst.Rpt", "Length({Customers.City}) > 5", list + " WHERE length(City) > 5" + byName},
      {"ARCusPho.Rpt", "",
       "SELECT c.LastName, c.AcctNum, c.FirstName, c.City, c.State, c.Zip, c.DefaultPhoneNumber, p.RecordID, p.Area, p.Phone, p.Ext, "
       "p.Comment, t.TypeDescription FROM f1.Customers AS c INDEXED BY \"Customers.xLastName\" LEFT JOIN f1.Phones AS p ON p.AcctNum = "
       "c.AcctNum LEFT JOIN f1.PhoneTypes AS t ON t.Type = p.Type ORDER BY c.LastName, c.AcctNum, p.RecordID"}};
  return cases;
}

class Rows {
 public:
  Rows(const std::string& folder, std::string reports) : folder_(folder), reports_(std::move(reports)), store_(File()) {
    services_ = bench::ReportServices(folder);
  }

  bench::Job JobOf(const Case& one, int most) {
    bench::Job job;
    job.name = one.file + (one.selection.empty() ? "" : ", " + one.selection) + (most > 0 ? ", first rows" : ", all rows");
    job.ours = [this, one, most](int) { return Ours(one, most); };
    job.raw = [this, one, most](int) { return Bare(one, most); };
    job.mostRatio = most > 0 ? 0 : 1.5;
    return job;
  }

 private:
  std::string File() const { return folder_ + "/data/orv1/customer.zdb"; }

  // The report file is read, too, and a connection of its own opened.
  std::uint64_t Ours(const Case& one, int most) {
    const printing::ReportDefinition report = printing::LoadReport({reports_, reports_}, one.file);
    const auto rows = printing::OpenReportRows(report, {{}, {}, one.selection}, services_);
    std::uint64_t sum = 0;
    for (int i = 0; (most == 0 || i < most) && rows->Next(); ++i) {
      for (const platform::Value& value : rows->Row()) {
        if (value.IsText())
          sum += value.As<std::string>().size();
        else if (!value.IsNull())
          sum += static_cast<std::uint64_t>(platform::CLng(value));
      }
    }
    return sum;
  }

  std::uint64_t Bare(const Case& one, int most) {
    bench::raw::Statement rows(store_.Handle(), one.bare);
    bench::raw::Rows row{static_cast<std::size_t>(rows.Columns()), {}};
    std::uint64_t sum = 0;
    for (int i = 0; (most == 0 || i < most) && rows.Step(); ++i) {
      row.cells.clear();
      rows.CopyRow(row);
      for (const bench::raw::Cell& cell : row.cells) {
        if (const auto* text = std::get_if<std::string>(&cell)) sum += text->size();
        if (const auto* number = std::get_if<std::int64_t>(&cell)) sum += static_cast<std::uint64_t>(*number);
      }
    }
    return sum;
  }

  std::string folder_;
  std::string reports_;
  bench::raw::Store store_;
  printing::DataServices services_;
};

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::cerr << "bench_report_rows DIR [PAIRS [REPORTS]]: rows of reports over the folder's company 1; the report files lie there or in "
                 "REPORTS\n";
    return 2;
  }
  try {
    const std::size_t pairs = count > 2 ? std::stoul(words[2]) : 5;
    Rows rows(words[1], count > 3 ? words[3] : words[1]);
    std::cout << bench::TableHead();
    for (const int most : {50, 0})
      for (const Case& one : Cases()) std::cout << bench::TableLine(bench::Measure(rows.JobOf(one, most), pairs)) << std::flush;
    std::cout << "peak memory " << bench::PeakMemory() << " MiB\n";
    return EXIT_SUCCESS;
  } catch (const printing::ReportFailure& failure) {
    std::cerr << "bench_report_rows: " << failure.what() << "\n";
    return EXIT_FAILURE;
  } catch (const std::exception& error) {
    std::cerr << "bench_report_rows: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
