#pragma once

#include <memory>

#include "platform/services/report_engine.h"
#include "printing/entry/report_engine.h"
#include "printing/output/printer.h"
#include "printing/preview/previews.h"

namespace printing {

/// Reports into preview windows and on paper.
class WindowedEngine : public platform::ReportEngine {
 public:
  explicit WindowedEngine(EngineServices services) : services_(std::move(services)), previews_(services_.busy) {}

  int PrintReport(const platform::ReportJob& job) override;
  void AlignPrinter(const std::string& reportFileName) override;
  void CloseAll() override { previews_.CloseAll(); }
  const Previews& Open() const { return previews_; }

 protected:
  /// Takes a report that is laid out.
  virtual void ToPrinter(std::unique_ptr<ReportRun> run, const PrinterRun& printer, const Progress& progress);

 private:
  PaintSettings AlignmentOf(const std::string& printer) const;
  /// What fails is told over that window.
  void PrintAlignmentSheet(QWidget& over, const std::string& reportFileName, const std::string& printer, const PaintSettings& settings);
  void Preview(std::unique_ptr<ReportRun> run, const platform::ReportJob& job);
  void Print(std::unique_ptr<ReportRun> run, const platform::ReportJob& job);

  EngineServices services_;
  Previews previews_;
};

}  // namespace printing
