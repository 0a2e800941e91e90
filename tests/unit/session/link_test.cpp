#include "support/session_test.h"

namespace orcussch {
namespace {

class LinkTest : public SessionTest {
 protected:
  LinkTest() { MakeCompany(); }
  void Open() {
    host = std::make_unique<CustSearch>(*app);
    host->UserID(1);
    host->CompanyID(1);
  }
  std::unique_ptr<CustSearch> host;
};

TEST_F(LinkTest, LinkTableSaysFalseWithoutAReport) {
  Open();
  EXPECT_TRUE(LinkTable(dbCustomer, "Accounts", gGLPath));
  EXPECT_FALSE(LinkTable(dbCustomer, "Accounts", gGLPath)) << "the name is taken";
  EXPECT_FALSE(LinkTable(dbCustomer, "Nothing", gGLPath));
  EXPECT_FALSE(LinkTable(dbCustomer, "GL", folder / "none.zdb"));
  EXPECT_FALSE(LinkTable({}, "GL", gGLPath));
  EXPECT_TRUE(events.all.empty());
}

TEST_F(LinkTest, TheStoredLinkNamesTableAndPath) {
  Open();
  int links = 0;
  for (int i = 0; i < dbCustomer->TableDefCount(); ++i) {
    const platform::TableDef table = dbCustomer->TableDefAt(i);
    if (table.Connect.empty()) continue;
    ++links;
    EXPECT_EQ(table.Connect, ";DATABASE=" + (table.Name == "Departments" ? gGLPath : gARTransPath));
    EXPECT_EQ(table.SourceTableName, table.Name);
  }
  EXPECT_EQ(links, 2);
}

TEST_F(LinkTest, ALinkInOtherLettersIsNotSeenAndCanNotBeMadeAgain) {
  Open();
  ASSERT_TRUE(events.all.empty());
  engine::DropTable(gCustomerPath, "Departments");
  platform::TableDef other = dbCustomer->CreateTableDef("DEPARTMENTS");
  other.Connect = ";DATABASE=" + gGLPath;
  other.SourceTableName = "Departments";
  dbCustomer->AppendTableDef(other);
  host->CompanyID(1);
  ASSERT_EQ(frontEnd->boxes.size(), 1U);
  EXPECT_EQ(frontEnd->boxes[0].text, "The Departments table in " + gGLPath + " can not be linked to the Customers database!");
  EXPECT_TRUE(log->records.empty());
}

TEST_F(LinkTest, ALinkWhoseFileHasGoneFailsWhereItIsUsed) {
  Open();
  host.reset();
  std::filesystem::create_directories(folder / "moved");
  for (const char* end : {"", "-wal", "-shm"}) {
    const std::string file = std::string("GL.zdb") + end;
    if (std::filesystem::exists(folder / ("data/orv1/" + file)))
      std::filesystem::rename(folder / ("data/orv1/" + file), folder / ("moved/" + file));
  }
  folder.Write("orv1.ini", "[Databases]\nGL.zdb Path=" + (folder / "moved/GL.zdb") + "\n");
  Open();
  EXPECT_TRUE(events.all.empty()) << "neither opening nor linking looks at it";
  int number = 0;
  try {
    dbCustomer->OpenRecordset("SELECT * FROM Departments");
  } catch (const platform::Error& error) {
    number = error.Number();
  }
  EXPECT_EQ(number, 3024);
}

}  // namespace
}  // namespace orcussch
