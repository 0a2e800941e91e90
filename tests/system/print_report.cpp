// print_report FOLDER REPORT COPIES FROM TO: prints a report of the folder over its company 1 on the default printer, as the screens do, and
// says that printer's name. The exit status is the engine's number.
#include <QApplication>
#include <iostream>
#include <memory>
#include <string>

#include "engine/engine.h"
#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "printing/entry/report_engine.h"
#include "printing/output/printer.h"

namespace {

printing::RunServices Services(const std::string& folder) {
  constexpr int kDay = 46000;
  printing::RunServices services;
  services.folder = {folder, folder};
  services.data.openReader = [] { return engine::MakeSnapshotReader(); };
  services.data.dataFolder = folder + "/data/orv1/";
  services.data.kindOf = [](const std::string&) { return printing::DataFileKind::Kept; };
  services.data.text = {engine::CompareText, [](const std::string& pattern) {
                          auto like = std::make_shared<engine::LikePattern>(pattern);
                          return [like](std::string_view text) { return like->Matches(text); };
                        }};
  services.data.today = platform::Date{kDay};
  return services;
}

}  // namespace

int main(int count, char** words) {
  if (count != 6) {
    std::cerr << "print_report FOLDER REPORT COPIES FROM TO\n";
    return 2;
  }
  const QApplication toolkit(count, words);
  const std::string folder = words[1];
  printing::EngineServices services;
  services.forRun = [folder] { return Services(folder); };
  services.log = [](const std::string& line) { std::cerr << line << '\n'; };
  platform::ReportJob job;
  job.ReportFileName = std::string(words[2]);
  job.WindowTitle = std::string("Customers of the month");
  job.Destination = 1;
  job.CopiesToPrinter = std::stoi(words[3]);
  job.PrinterStartPage = std::stoi(words[4]);
  job.PrinterStopPage = std::stoi(words[5]);
  std::cout << printing::DefaultPrinter() << '\n';
  return printing::MakeReportEngine(services)->PrintReport(job) % 255;
}
