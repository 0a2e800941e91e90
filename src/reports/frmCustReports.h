#pragma once

#include <array>
#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/data_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/report_control.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/screen.h"
#include "platform/host/screen_ref.h"

namespace orcussch {

/// The catalogue of reports (table CUReports): which one, over which customers, and its run.
class frmCustReports final : public platform::Screen {
 public:
  explicit frmCustReports(platform::Application& application);

  void Form_Load() override;
  void Form_Unload() override;

  /// Runs the current row's report.
  void cmdPrint(int Destination);
  /// Composes a label for each customer that the options name, from the last to the first, in the temporary file. `Failed` says
  /// whether the old ones could not be cleared.
  void LoadLabels(bool& Failed);

  /// The highest number of a formula that the run has used.
  int FormulaIndex() const noexcept { return mFormulaIndex; }
  void FormulaIndex(int Index) noexcept { mFormulaIndex = Index; }

  // --- Controls, in tab order -----------------------------------------------------------------------------------------
  platform::Toolbar Toolbar1;
  platform::Label lblCustomer, lblAcctNum;
  platform::Frame fraReports;
  platform::DataControl DataReports;
  platform::Grid grdReports;
  platform::CheckBox chkReportName;
  platform::CommandButton cmdRestoreName;
  platform::Frame fraOptions;
  platform::ControlArray<platform::OptionButton, 3> optCustomer;
  platform::CheckBox chkPageBreak;
  platform::ControlArray<platform::Label, 2> lblCurrentReport;
  platform::Label lblPrinter, lblPrintMedia;
  /// There only for labels: the sheet's first label that is still to be had, and how the printer meets the sheet.
  platform::Label lblFirstLabel;
  platform::NumberEdit txtFirstLabel;
  platform::CommandButton cmdAlign;
  platform::ProgressBar ProgressBar1;
  platform::CommandButton cmdStop;  ///< ends the making of labels; there only while labels are made
  platform::StatusBar StatusBar1;
  /// Not CommonDialog1, by which name the printer setup would find it: on this screen no dialog opens.
  platform::CommonDialog cd1;
  platform::ReportControl Report1;
  /// Stands in no menu; Escape runs it.
  platform::MenuItem miClose;

 private:
  /// The row and the options of a run, as they were when it began: either may be clicked on in its yields.
  struct Chosen {
    std::string File;
    std::string Description;
    std::array<platform::Value, 8> DataFiles;
    platform::Value CustomerTable;
    std::string Selection;
    bool PageBreak = false;
    bool BreakWanted = false;
    bool Queried = false;  ///< over the query's customers
    bool Current = false;  ///< over the current customer
    std::string AcctNum;
    int FirstLabel = 1;

    bool IsLabels() const;
    /// The labels whose order the user chooses.
    bool IsSorted() const;
  };

  // frmCustReports_design.cpp
  void Design();
  void AttachHandlers();

  // frmCustReports.cpp
  void ShowCustomer();
  void ShowPrinter();
  void DataReports_Reposition();
  void grdReports_LostFocus();
  void ShowLabelOptions(const std::string& File);
  void cmdRestoreName_Click();
  void cmdAlign_Click();
  void Toolbar1_ButtonClick(const std::string& Key);

  // frmCustReports_print.cpp
  Chosen Choose(const platform::RecordsetRef& Rows) const;
  void NameDataFiles(const Chosen& Report);
  void Prepare(const Chosen& Report, bool& Stop);
  void PrepareReport(const Chosen& Report);
  void CopyQueriedCustomers();
  void PrepareLabels(const Chosen& Report, bool& Stop);

  // frmCustReports_labels.cpp
  platform::RecordsetRef CustomersForLabels() const;
  bool StopAsked() const { return mStopped || ClosePending() || !Loaded(); }

  std::string mDataPath;  ///< the company's data folder, with its separator
  int mFormulaIndex = 0;
  bool mStopped = false;
  bool mRunning = false;  ///< the toolbar stays shut meanwhile
};

namespace screens {
extern platform::ScreenRef<orcussch::frmCustReports> frmCustReports;
}  // namespace screens

}  // namespace orcussch
