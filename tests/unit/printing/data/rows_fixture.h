#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "platform/values/convert.h"
#include "printing/data/overrides.h"
#include "printing/data/report_errors.h"
#include "printing/data/report_rows.h"
#include "printing/definition/report_file.h"
#include "suite/company_schema.h"
#include "support/temporary_folder.h"
#include "unit/printing/support/text_rules.h"

/// A company's customer file and ledger and a temporary file, and reports over them.
class ReportRowsTest : public testing::Test {
 protected:
  ReportRowsTest() {
    engine::CreateDataFile(folder_ / "customer.zdb", suite::TablesOf(suite::DataFile::Customer));
    engine::CreateDataFile(folder_ / "GL.zdb", suite::TablesOf(suite::DataFile::Ledger));
    engine::CreateDataFile(folder_ / "temp.zdb", suite::TablesOf(suite::DataFile::Temporary), true);
    services_.openReader = [] { return engine::MakeSnapshotReader(); };
    services_.dataFolder = folder_.Path() + '/';
    services_.kindOf = [this](const std::string& path) {
      if (path == folder_ / "temp.zdb") return printing::DataFileKind::Temporary;
      return path.starts_with(folder_.Path() + '/') ? printing::DataFileKind::Kept : printing::DataFileKind::Refused;
    };
    services_.text = EngineTextRules();
    services_.today = platform::Date{36192};
  }

  void Add(const std::string& file, const std::string& table, const std::vector<std::string>& fields,
           const std::vector<std::vector<platform::Value>>& rows) {
    auto writer = engine::OpenBulkWriter(folder_ / file, table, fields);
    for (const auto& row : rows) writer->Add(row);
    writer->Finish();
  }
  void AddCustomers(const std::vector<std::vector<platform::Value>>& rows) {
    Add("customer.zdb", "Customers", {"AcctNum", "LastName", "City", "CurrBalance"}, rows);
  }
  /// What another program does to a file.
  void Elsewhere(const std::string& file, const std::string& sql) {
    engine::MakeEngine()->OpenControlDatabase(folder_ / file)->Execute(sql, platform::dbFailOnError);
  }

  /// The report of these lines, in front of which its format stands.
  static printing::ReportDefinition Report(const std::string& lines) {
    return printing::ReadReportFile("report 1\n" + lines, [](const std::string&) { return std::string(); });
  }
  std::unique_ptr<printing::RowSource> Open(const std::string& lines) {
    report_ = Report(lines);
    printing::ApplyFormulas(report_, formulas_);
    return printing::OpenReportRows(report_, request_, services_);
  }
  /// All rows, "a|b; c|d".
  static std::string TextOf(printing::RowSource& rows) {
    std::string text;
    while (rows.Next()) {
      text += text.empty() ? "" : "; ";
      for (std::size_t i = 0; i < rows.Fields().size(); ++i)
        text += (i == 0 ? "" : "|") + (rows.Row()[i].IsNull() ? "Null" : platform::CStr(rows.Row()[i]));
    }
    return text;
  }
  std::string RowsOf(const std::string& lines) { return TextOf(*Open(lines)); }
  /// The number of the failure, 0 for none.
  template <class Act>
  int NumberOf(const Act& act) {
    try {
      act();
    } catch (const printing::ReportFailure& failure) {
      what_ = failure.what();
      return failure.Number();
    }
    return 0;
  }
  int ErrorOf(const std::string& lines) {
    return NumberOf([&] { RowsOf(lines); });
  }

  TemporaryFolder folder_;
  printing::DataServices services_;
  printing::RowRequest request_;
  std::map<int, std::string> formulas_;
  printing::ReportDefinition report_;
  std::string what_;
};
