#include <vector>

#include "suitefiles/company/setup_rows.h"
#include "suitefiles/company/table_writer.h"

namespace suitefiles {

namespace {

struct Report {
  const char* name;
  const char* description;
  const char* type;
  const char* media;
  std::vector<const char*> files;  ///< the database file of each report table; the first table holds the customers
  bool pageBreak;
};

const std::vector<Report>& Reports() {
  static constexpr const char* kCustomer = "customer.zdb";
  static constexpr const char* kLedger = "GL.zdb";
  static constexpr const char* kTemporary = "ORVTEMP.ZDB";
  static constexpr const char* kPaper = "Plain paper";
  static constexpr const char* kWide = "Plain paper, landscape";
  static const std::vector<Report> reports = {
      {"ARCusDet.Rpt", "Customer Detail", "Detail", kPaper, {kCustomer, kCustomer, kCustomer}, true},
      {"ARCusPho.Rpt", "Customer Phones", "List", kPaper, {kCustomer, kCustomer, kCustomer}, false},
      {"ARAltAdr.Rpt", "Customer Alternate Addresses", "List", kPaper, {kCustomer, kCustomer}, false},
      {"ARCustCC.Rpt", "Customer Credit Cards", "List", kPaper, {kCustomer, kCustomer, kCustomer}, false},
      {"ARLabRat.Rpt", "Customer Departmental Labor Rates", "List", kPaper, {kCustomer, kCustomer, kLedger}, true},
      {"ARCusCod.Rpt", "Customer Types", "List", kPaper, {kCustomer, kCustomer, kCustomer}, false},
      {"ARCustKW.Rpt", "Customer Key Words", "List", kPaper, {kCustomer, kCustomer}, false},
      {"ARML5161.RPT", "Mailing Labels, two across", "Labels", "5161 mailing labels, 1 x 4 inches", {kTemporary}, false},
      {"ARML5260.RPT", "Mailing Labels, three across", "Labels", "5260 mailing labels, 1 x 2 5/8 inches", {kTemporary}, false},
      {"ARFL5166.RPT", "File Folder Labels", "Labels", "5166 file folder labels", {kTemporary}, false},
      {"ARCusLst.Rpt", "Customer List", "List", kPaper, {kCustomer}, false},
      {"ARCusDir.Rpt", "Customer Directory", "List", kPaper, {kCustomer, kCustomer, kCustomer}, false},
      {"ARCusBal.Rpt", "Balances and Credit Limits", "List", kPaper, {kCustomer, kCustomer}, false},
      {"ARCusHld.Rpt", "Credit Holds", "List", kPaper, {kCustomer}, false},
      {"ARCusPay.Rpt", "Payment Figures", "List", kWide, {kCustomer}, false},
      {"ARCusNew.Rpt", "New Customers", "List", kPaper, {kCustomer}, false},
      {"ARCusIna.Rpt", "Inactive Customers", "List", kPaper, {kCustomer}, false},
      {"ARCusExm.Rpt", "Tax Exemptions About to Expire", "List", kPaper, {kCustomer}, false},
      {"ARCusCCX.Rpt", "Credit Cards About to Expire", "List", kPaper, {kCustomer, kCustomer, kCustomer}, false},
      {"ARCusTyp.Rpt", "Customers by Type", "List", kPaper, {kCustomer, kCustomer, kCustomer}, false},
      {"ARCusKey.Rpt", "Customers by Key Word", "List", kPaper, {kCustomer, kCustomer}, false},
      {"ARCusMap.Rpt", "Customers by Map Code", "List", kPaper, {kCustomer, kCustomer}, false},
      {"ARCusZip.Rpt", "Customers by ZIP", "List", kPaper, {kCustomer}, false},
      {"ARCusDpt.Rpt", "Departmental Rates", "List", kPaper, {kCustomer, kCustomer, kLedger}, false},
      {"ARCusPar.Rpt", "Parents and Children", "List", kPaper, {kCustomer, kCustomer, kCustomer}, false}};
  return reports;
}

}  // namespace

void AddReportRows(const std::string& customerFile) {
  constexpr std::size_t kTables = 8;
  std::vector<std::string> fields = {"Sequence", "Description", "DefaultDescription", "Name", "Type", "PrintMedia"};
  for (std::size_t i = 0; i < kTables; ++i) fields.push_back("DataFiles" + std::to_string(i));
  for (const char* field : {"CustomerTable", "SelectionFormula", "CustomerPageBreak", "CustomerSelection"}) fields.emplace_back(field);

  TableWriter writer(customerFile, "CUReports", fields);
  std::int32_t sequence = 0;
  for (const auto& report : Reports()) {
    std::vector<platform::Value> row = {++sequence, report.description, report.description, report.name, report.type, report.media};
    for (std::size_t i = 0; i < kTables; ++i) {
      row.push_back(i < report.files.size() ? platform::Value(report.files[i]) : platform::Value(platform::Null));
    }
    row.emplace_back(std::int32_t{0});
    row.emplace_back(platform::Null);
    row.emplace_back(report.pageBreak);
    row.emplace_back(true);
    writer.Add(row);
  }
  writer.Finish();
}

}  // namespace suitefiles
