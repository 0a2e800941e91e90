#include "desktop/services/settings.h"

#include <QDir>
#include <QScreen>

#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

using desktop::Settings;

TEST(SettingsFile, EachUserHasHisOwn) {
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  Settings(path, "7").KeepColumnWidth("frmCustMain.grid_0", "LastName", 123);
  EXPECT_EQ(Settings(path, "7").ColumnWidth("frmCustMain.grid_0", "LastName"), 123);
  EXPECT_EQ(Settings(path, "8").ColumnWidth("frmCustMain.grid_0", "LastName"), std::nullopt);
}

TEST(SettingsFile, NamesMayHoldAnything) {
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  Settings(path, "a/b\\c").KeepColumnWidth("f.g", "Adjusted Rate/%", 50);
  EXPECT_EQ(Settings(path, "a/b\\c").ColumnWidth("f.g", "Adjusted Rate/%"), 50);
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST(SettingsFile, APrintersAlignmentIsItsOwn) {
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  Settings(path, "7").KeepAlignment("Front office/2", {0.05, -0.1, 1.01});
  const desktop::PrinterAlignment kept = Settings(path, "7").AlignmentOf("Front office/2");
  EXPECT_DOUBLE_EQ(kept.right, 0.05);
  EXPECT_DOUBLE_EQ(kept.down, -0.1);
  EXPECT_DOUBLE_EQ(kept.scale, 1.01);
  const desktop::PrinterAlignment other = Settings(path, "7").AlignmentOf("Front office");
  EXPECT_DOUBLE_EQ(other.right, 0);
  EXPECT_DOUBLE_EQ(other.scale, 1);
}

TEST(SettingsFile, ForgettingColumnsLeavesOtherLists) {
  const QTemporaryDir folder;
  Settings kept(folder.path().toStdString(), "7");
  kept.KeepColumnWidth("f.one", "A", 50);
  kept.KeepColumnWidth("f.two", "A", 60);
  kept.KeepColumnOrder("f.one", {"B", "A"});
  EXPECT_EQ(kept.ColumnOrder("f.one"), QStringList({"B", "A"}));
  kept.ForgetColumns("f.one");
  EXPECT_EQ(kept.ColumnWidth("f.one", "A"), std::nullopt);
  EXPECT_TRUE(kept.ColumnOrder("f.one").isEmpty());
  EXPECT_EQ(kept.ColumnWidth("f.two", "A"), 60);
}

TEST(SettingsFile, WithoutAFolderNothingIsKept) {
  Settings none("", "7");
  none.KeepColumnWidth("f.one", "A", 50);
  none.KeepWindowPosition("f", "x");
  EXPECT_EQ(none.ColumnWidth("f.one", "A"), std::nullopt);
  EXPECT_EQ(none.WindowPosition("f"), std::nullopt);
}

TEST(SettingsFile, ADamagedFileIsAsGoodAsNone) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("windows-7.ini"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("\x01\x02[[[==\n[Columns]\nf.one\\Width\\A=wide\n");
  file.close();
  EXPECT_EQ(Settings(folder.path().toStdString(), "7").ColumnWidth("f.one", "A"), std::nullopt);
}

class Places : public Desk {};

TEST_F(Places, TheWindowsSizeIsKept) {
  const QTemporaryDir folder;
  desktop::DesktopOptions options;
  options.settingsFolder = folder.path().toStdString();
  options.user = "7";
  Start(options);
  Open();
  window->resize(780, 590);
  Process();
  CloseScreen();
  hands.reset();
  app.reset();
  Start(options);
  Open();
  EXPECT_EQ(window->size(), QSize(780, 590));
}

TEST_F(Places, TheFirstTimeItTakesMostOfTheScreenAndNotMore) {
  Open();
  const QSize room = window->screen()->availableGeometry().size();
  EXPECT_GE(window->width(), std::min(room.width() * 8 / 10, 1600));
  EXPECT_GE(window->height(), std::min(room.height() * 8 / 10, 1000));
  EXPECT_LE(window->width(), room.width());
  EXPECT_LE(window->height(), room.height());
}

}  // namespace
}  // namespace desktop_test
