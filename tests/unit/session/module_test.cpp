#include "platform/controls/common_dialog.h"
#include "platform/controls/report_control.h"
#include "support/session_test.h"

namespace orcussch {
namespace {

class ModuleTest : public SessionTest {};

TEST_F(ModuleTest, FixQuotesTurnsApostrophesIntoQuestionMarks) {
  EXPECT_EQ(FixQuotes(""), "");
  EXPECT_EQ(FixQuotes("O'Brien"), "O?Brien");
  EXPECT_EQ(FixQuotes("''"), "??");
  EXPECT_EQ(FixQuotes("'"), "?");
  EXPECT_EQ(FixQuotes("plain \"quoted\" `text` ?*#["), "plain \"quoted\" `text` ?*#[");
  // Other apostrophes are letters like any; only the one that ends a text in a criterion is replaced.
  EXPECT_EQ(FixQuotes("l\xE2\x80\x99\xC3\xA9t\xC3\xA9 d'or"), "l\xE2\x80\x99\xC3\xA9t\xC3\xA9 d?or");
}

TEST_F(ModuleTest, InFileDoublesApostrophes) {
  EXPECT_EQ(InFile("C:\\orvTEMP\\orvTemp1.zdb"), " IN 'C:\\orvTEMP\\orvTemp1.zdb'");
  EXPECT_EQ(InFile("/home/o'neill/it''s.zdb"), " IN '/home/o''neill/it''''s.zdb'");
}

TEST_F(ModuleTest, FileExists) {
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists(folder / "none.txt"));
  EXPECT_FALSE(FileExists(folder / "none/none.txt"));
  EXPECT_FALSE(FileExists(folder.Path())) << "a folder has no length";
  EXPECT_TRUE(FileExists(folder.Write("some.txt", "text")));
  EXPECT_TRUE(FileExists(folder.Write("empty.txt", "")));
  EXPECT_TRUE(events.all.empty());
}

TEST_F(ModuleTest, MainFixesTheFoldersOnce) {
  Main();
  EXPECT_EQ(gTempDir, folder.Path() + "/orvTEMP/");
  EXPECT_EQ(gSysModsDir, folder.Path() + "/orvTEMP/SYSMODS/");
  EXPECT_EQ(gUpdateDir, folder.Path() + "/orvTEMP/UPDATE/");
  EXPECT_FALSE(gFilesOpen);
  gTempDir = "changed";
  Main();
  EXPECT_EQ(gTempDir, "changed");
}

TEST_F(ModuleTest, GetDataPath) {
  const std::string root = folder.Path() + "/";
  EXPECT_EQ(GetDataPath(3, "customer.zdb"), root + "data/orv3/customer.zdb");
  EXPECT_EQ(GetDataPath(-3, "customer.zdb"), root + "data/orv-3/customer.zdb");
  EXPECT_EQ(GetDataPath(3, "dat.zdb"), root + "dat.zdb");
  EXPECT_EQ(GetDataPath(3, "DaT.zDb"), root + "DaT.zDb");
  EXPECT_EQ(GetDataPath(3, "dat.zdb2"), root + "data/orv3/dat.zdb2");
  EXPECT_EQ(GetDataPath(3, ""), root + "data/orv3/") << "the folder itself";
  folder.Write("orv3.ini", "[Databases]\nDat.Zdb Path=/elsewhere/d\nDefault Path=/all/\n");
  EXPECT_EQ(GetDataPath(3, "dat.zdb"), "/elsewhere/d");
  EXPECT_EQ(GetDataPath(3, "GL.zdb"), "/all/GL.zdb");
  EXPECT_EQ(GetDataPath(3, ""), "/all/");
  folder.Write("orv4.ini", "[Databases]\nPath=/own/\nDefault Path=/all/\n");
  EXPECT_EQ(GetDataPath(4, ""), "/own/");
  EXPECT_EQ(GetDataPath(4, "GL.zdb"), "/all/GL.zdb");
  EXPECT_EQ(GetDataPath(30, "GL.zdb"), root + "data/orv30/GL.zdb");
}

/// A system whose settings files can't be read.
class BrokenSystem final : public platform::OperatingSystem {
 public:
  std::string LocalRoot() const override { return "/"; }
  std::string Separator() const override { return "/"; }
  std::string ToHostPath(std::string_view path) const override { return std::string(path); }
  std::string FromHostPath(std::string_view path) const override { return std::string(path); }
  std::string ReadIniValue(std::string_view, std::string_view, std::string_view, std::string_view, int) const override {
    throw platform::Error(57, "Device I/O error");
  }
  std::int64_t FileLength(std::string_view) const override { throw platform::Error(57, "Device I/O error"); }
  platform::Date Today() const override { return {}; }
  platform::Date Now() const override { return {}; }
  void SetToday(std::optional<platform::Date>) override {}
  std::int32_t ProcessNumber() const override { return 1; }
};

TEST_F(ModuleTest, GetDataPathThatFailsIsReportedAndEmpty) {
  platform::ApplicationParts parts;
  auto logPart = std::make_unique<KeptErrorLog>(events);
  const KeptErrorLog& kept = *logPart;
  parts.engine = engine::MakeEngine();
  parts.system = std::make_unique<BrokenSystem>();
  parts.errorLog = std::move(logPart);
  parts.frontEnd = std::make_unique<PlainFrontEnd>(events);
  platform::Application broken(std::move(parts));
  AttachApplication(&broken);
  EXPECT_EQ(GetDataPath(3, "customer.zdb"), "");
  ASSERT_EQ(kept.records.size(), 1U);
  EXPECT_EQ(kept.records[0].module, "modCustSch.GetDataPath");
  EXPECT_EQ(kept.records[0].number, 57);
  EXPECT_FALSE(FileExists("/any")) << "every error gives False";
  AttachApplication(nullptr);
}

class PrintingForm final : public platform::Form {
 public:
  explicit PrintingForm(platform::Application& application) : Form(application, "frmPrinting", "") {}
  platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};
  platform::ReportControl Report1{*this, "Report1"};
};

TEST_F(ModuleTest, PrinterSetupTakesPagesAndCopies) {
  PrintingForm form(*app);
  form.CommonDialog1.CancelError = true;
  frontEnd->printer = [] { return platform::PrinterChoice{2, 5, 3}; };
  const int before = frontEnd->yields;
  PrinterSetup(form);
  EXPECT_FALSE(form.CommonDialog1.CancelError) << "it is set before the dialog comes";
  EXPECT_EQ(form.Report1.Job.PrinterStartPage, 2);
  EXPECT_EQ(form.Report1.Job.PrinterStopPage, 5);
  EXPECT_EQ(form.Report1.Job.CopiesToPrinter, 3);
  EXPECT_EQ(frontEnd->yields, before + 1);
  // While the flag reads True nothing is copied.
  frontEnd->printer = [&form] {
    form.CommonDialog1.CancelError = true;
    return platform::PrinterChoice{7, 8, 9};
  };
  PrinterSetup(form);
  EXPECT_EQ(form.Report1.Job.PrinterStartPage, 2);
}

TEST_F(ModuleTest, PrinterSetupEndsQuietlyOnAnyError) {
  PrintingForm form(*app);
  frontEnd->printer = []() -> platform::PrinterChoice { throw platform::Error(28663, "No printer"); };
  PrinterSetup(form);
  EXPECT_TRUE(events.all.empty());
  EXPECT_TRUE(log->records.empty());
}

/// The catalogue of reports names its dialog otherwise, so that its printer key opens none.
class FormWithAnotherDialog final : public platform::Form {
 public:
  explicit FormWithAnotherDialog(platform::Application& application) : Form(application, "frmOther", "") {}
  platform::CommonDialog cd1{*this, "cd1"};
  platform::ReportControl Report1{*this, "Report1"};
};

TEST_F(ModuleTest, PrinterSetupOfAFormWithoutTheDialogDoesNothing) {
  FormWithAnotherDialog form(*app);
  int asked = 0;
  frontEnd->printer = [&] {
    ++asked;
    return platform::PrinterChoice{2, 5, 3};
  };
  const int before = frontEnd->yields;
  PrinterSetup(form);
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(frontEnd->yields, before);
  EXPECT_FALSE(form.Report1.Job.CopiesToPrinter.Given());
  EXPECT_TRUE(events.all.empty());
}

TEST_F(ModuleTest, CloseFilesDoesNothingInPractice) {
  MakeCompany();
  CustSearch host(*app);
  host.UserID(1);
  host.CompanyID(1);
  ASSERT_TRUE(log->records.empty());
  CloseFiles();
  EXPECT_EQ(rsCustomers->RecordCount(), 0) << "still open";
  // Were the guard ever set, it would close what it knows and be silent about the rest.
  gFilesOpen = true;
  rsTerms->Close();
  CloseFiles();
  EXPECT_TRUE(dbCustomer.IsNothing());
  EXPECT_FALSE(dbTemp.IsNothing());
  EXPECT_TRUE(log->records.empty());
}

TEST_F(ModuleTest, OpenFilesHeedsItsGuard) {
  MakeCompany();
  Main();
  gCompanyID = 1;
  gFilesOpen = true;
  OpenFiles();
  EXPECT_TRUE(dbCustomer.IsNothing());
  EXPECT_EQ(app->Engine().WorkspaceCount(), 1);
  EXPECT_TRUE(log->records.empty());
}

}  // namespace
}  // namespace orcussch
