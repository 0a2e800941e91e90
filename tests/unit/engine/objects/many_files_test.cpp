// More files than the store can have attached at a time: the ones in least use wait outside, and nobody notices.
#include "unit/engine/support/office.h"

namespace {

using platform::DatabaseRef;
using platform::RecordsetRef;
using platform::RecordsetType;

constexpr int kFiles = 24;

class ManyFiles : public DynasetRules {
 protected:
  void SetUp() override {
    for (int i = 0; i < kFiles; ++i) {
      const std::vector<platform::TableDefinition> tables{{"Things",
                                                           {Field("ID", platform::FieldType::Counter), TextField("Name", 10)},
                                                           {{"PrimaryKey", {"ID"}, true, true}, {"ByName", {"Name"}, false, false}}}};
      engine::CreateDataFile(Path(Name(i)), tables);
      auto writer = engine::OpenBulkWriter(Path(Name(i)), "Things", std::vector<std::string>{"Name"});
      for (const char* thing : {"a", "b", "c"}) writer->Add(std::vector<platform::Value>{thing + std::to_string(i)});
      writer->Finish();
    }
  }
  static std::string Name(int i) { return "things" + std::to_string(i) + ".zdb"; }
  void OpenAll() {
    for (int i = 0; i < kFiles; ++i) {
      databases_.push_back(engine_->OpenControlDatabase(Path(Name(i))));
      lists_.push_back(databases_.back()->OpenRecordset("SELECT * FROM Things ORDER BY Name;", RecordsetType::Dynaset));
      tables_.push_back(databases_.back()->OpenRecordset("Things", RecordsetType::Table));
    }
  }
  /// What another program does to a file.
  void Elsewhere(int i, const std::string& sql) {
    auto other = NewEngine();
    other->OpenControlDatabase(Path(Name(i)))->Execute(sql, platform::dbFailOnError);
  }

  std::vector<DatabaseRef> databases_;
  std::vector<RecordsetRef> lists_;
  std::vector<RecordsetRef> tables_;
};

TEST_P(ManyFiles, AllOfThemCanBeRead) {
  OpenAll();
  for (int round = 0; round < 2; ++round)
    for (int i = 0; i < kFiles; ++i) {
      const std::string n = std::to_string(i);
      EXPECT_EQ(Texts(lists_[static_cast<std::size_t>(i)], "Name"), (std::vector<std::string>{"a" + n, "b" + n, "c" + n}));
      EXPECT_EQ(tables_[static_cast<std::size_t>(i)]->RecordCount(), 3);
    }
}

TEST_P(ManyFiles, AllOfThemCanBeWritten) {
  OpenAll();
  for (int i = 0; i < kFiles; ++i) {
    RecordsetRef& table = tables_[static_cast<std::size_t>(i)];
    table->SetIndex("ByName");
    table->Seek("=", {"b" + std::to_string(i)});
    ASSERT_FALSE(table->NoMatch());
    table->Edit();
    table->SetField("Name", "new");
    table->Update();
    databases_[static_cast<std::size_t>(i)]->Execute("DELETE * FROM Things WHERE Name Like 'a*'", platform::dbFailOnError);
  }
  for (int i = 0; i < kFiles; ++i) {
    const auto rows = databases_[static_cast<std::size_t>(i)]->OpenRecordset("SELECT * FROM Things ORDER BY Name;", RecordsetType::Dynaset);
    EXPECT_EQ(Texts(rows, "Name"), (std::vector<std::string>{"c" + std::to_string(i), "new"}));
  }
}

TEST_P(ManyFiles, AListKeepsItsPlaceWhileItsFileIsAway) {
  OpenAll();
  lists_[0]->FindFirst("[Name]='b0'");
  const platform::Bookmark here = lists_[0]->Bookmark();
  for (int i = 1; i < kFiles; ++i) lists_[static_cast<std::size_t>(i)]->MoveLast();
  EXPECT_EQ(TextOf(lists_[0]->Field("Name")), "b0");
  lists_[0]->MoveNext();
  EXPECT_EQ(TextOf(lists_[0]->Field("Name")), "c0");
  lists_[0]->SetBookmark(here);
  EXPECT_EQ(TextOf(lists_[0]->Field("Name")), "b0");
}

TEST_P(ManyFiles, WhatOthersChangeInAFileThatIsAwayIsSeen) {
  OpenAll();
  lists_[0]->FindFirst("[Name]='b0'");
  lists_[0]->MoveFirst();
  for (int i = 1; i < kFiles; ++i) EXPECT_EQ(Texts(lists_[static_cast<std::size_t>(i)], "Name").size(), 3u);
  Elsewhere(0, "UPDATE Things SET Name = 'bb' WHERE Name = 'b0'");
  lists_[0]->MoveNext();
  EXPECT_EQ(TextOf(lists_[0]->Field("Name")), "bb");
}

TEST_P(ManyFiles, AFileThatVanishedWhileItWasAwayIsMissed) {
  OpenAll();
  for (int i = 1; i < kFiles; ++i) EXPECT_EQ(Texts(lists_[static_cast<std::size_t>(i)], "Name").size(), 3u);
  std::filesystem::remove(Path(Name(0)));
  EXPECT_EQ(ErrorOf([&] { databases_[0]->OpenRecordset("SELECT * FROM Things;", RecordsetType::Dynaset); }), 3024);
  EXPECT_EQ(Texts(lists_[5], "Name").size(), 3u);
}

TEST_P(ManyFiles, ClosedOnesMakeRoom) {
  for (int i = 0; i < kFiles; ++i) {
    auto database = engine_->OpenControlDatabase(Path(Name(i)));
    EXPECT_EQ(database->OpenRecordset("Things", RecordsetType::Table)->RecordCount(), 3);
    database->Close();
  }
  EXPECT_EQ(Table("People")->RecordCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Ways, ManyFiles, testing::Values(20'000, 0));

}  // namespace
