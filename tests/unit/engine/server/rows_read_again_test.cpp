// What was just read is not asked for again, as long as nobody has written since.
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "unit/engine/server/trips.h"

namespace {

using platform::RecordsetType;
using platform::Value;

constexpr std::chrono::milliseconds kMessagesPass{150};

/// Another desk, whose program tells what it writes.
class RowsReadAgain : public Trips {
 protected:
  explicit RowsReadAgain(const engine::postgres::Patience& patience = kAllOneMoment)
      : Trips(patience), other(MakeDesk({})), others(other->OpenControlDatabase(Path("customer.zdb"))) {
    OpenDatabase();
    OpenList();
  }
  void OtherDesk(const std::string& sql) const {
    std::this_thread::sleep_for(kMessagesPass);  // what is written in one moment is told together
    others->Execute(sql, platform::dbFailOnError);
    std::this_thread::sleep_for(kMessagesPass);
  }

  std::unique_ptr<platform::DataEngine> other;
  platform::DatabaseRef others;
};

TEST_F(RowsReadAgain, AreNotInTheActThatReadThem) {
  list->FindFirst("AcctNum = 2500");
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 0);
  EXPECT_EQ(TripsOf([&] { list->FindFirst("AcctNum = 2500"); }), 0);
  EXPECT_EQ(list->Mode(), platform::EditMode::None);
}

// A card assigns all of its fields. What wasn't changed isn't written, as the row is still as it was read; of nothing changed, all is.
TEST_F(RowsReadAgain, AreWrittenAsFarAsTheyAreChanged) {
  Other(
      "CREATE FUNCTION orv1_customer.told() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN NEW.\"Balance\" := 10000; RETURN NEW; END$$; "
      "CREATE TRIGGER told BEFORE UPDATE OF \"LastName\" ON orv1_customer.\"Customers\" FOR EACH ROW EXECUTE FUNCTION "
      "orv1_customer.told()");
  const auto save = [&](const char* name, const char* city) {
    list->FindFirst("AcctNum = 2500");
    list->Edit();
    list->SetField("LastName", Value(name));
    list->SetField("City", Value(city));
    list->Update();
    return list->Field("Balance") == Value(platform::Currency{10'000}) ? "written" : "left";
  };
  list->FindFirst("AcctNum = 2500");
  const std::string name = NameHere();
  EXPECT_STREQ(save(name.c_str(), "Here"), "left");
  EXPECT_EQ(list->Field("City"), Value("Here"));
  EXPECT_STREQ(save(name.c_str(), "There"), "left");
  EXPECT_STREQ(save(name.c_str(), "There"), "written");
  EXPECT_STREQ(save((name + ' ').c_str(), "There"), "written");
}

// Another desk's write between Edit and Update: all that was assigned is written.
TEST_F(RowsReadAgain, AreWrittenWholeWhereAnotherDeskHasWritten) {
  list->FindFirst("AcctNum = 2500");
  const std::string name = NameHere();
  list->Edit();
  OtherDesk("UPDATE Customers SET LastName = 'Elsewhere' WHERE AcctNum = 2500");
  list->SetField("LastName", Value(name));
  list->SetField("City", Value("Here"));
  list->Update();
  EXPECT_EQ(NameHere(), name);
  EXPECT_EQ(list->Field("City"), Value("Here"));
}

class RowsReadAgainLater : public RowsReadAgain {
 protected:
  RowsReadAgainLater() : RowsReadAgain({.moment = 1}) {}
  static void Later() { std::this_thread::sleep_for(std::chrono::milliseconds(5)); }
};

TEST_F(RowsReadAgainLater, AreAsked) {
  list->FindFirst("AcctNum = 2500");
  Later();
  EXPECT_EQ(TripsOf([&] { list->FindFirst("AcctNum = 2500"); }), 1);
  Later();
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 1);
}

class RowsReadAgainSoon : public RowsReadAgain {
 protected:
  RowsReadAgainSoon() : RowsReadAgain({.moment = 3'000}) {}
};

// Behind other questions, which tell that nobody has written.
TEST_F(RowsReadAgainSoon, AreNotWhereATripHasToldThatNobodyWrote) {
  list->FindFirst("AcctNum = 2500");
  std::this_thread::sleep_for(std::chrono::milliseconds(2'000));
  database->OpenRecordset("SELECT Phone FROM Phones WHERE AcctNum = 1", RecordsetType::Snapshot);
  std::this_thread::sleep_for(std::chrono::milliseconds(1'500));
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 0);
}

TEST_F(RowsReadAgain, AreWhenAnotherDeskHasWritten) {
  list->FindFirst("AcctNum = 2500");
  OtherDesk("UPDATE Customers SET City = 'Elsewhere' WHERE AcctNum = 2500");
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 1);
  EXPECT_EQ(list->Field("City"), Value("Elsewhere"));
  list->FindFirst("AcctNum = 2500");
  OtherDesk("DELETE FROM Customers WHERE AcctNum = 2500");
  EXPECT_EQ(ErrorOf([&] { list->Edit(); }), 3167);
  list->FindFirst("AcctNum = 2500");
  EXPECT_TRUE(list->NoMatch());
}

// A program that tells nobody is known by the next trip.
TEST_F(RowsReadAgain, AreWhenATripHasToldOfAStranger) {
  list->FindFirst("AcctNum = 2500");
  Other("UPDATE orv1_customer.\"Customers\" SET \"City\" = 'Elsewhere' WHERE \"AcctNum\" = 2500");
  database->OpenRecordset("SELECT Phone FROM Phones WHERE AcctNum = 1", RecordsetType::Snapshot);
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 1);
  EXPECT_EQ(list->Field("City"), Value("Elsewhere"));
}

TEST_F(RowsReadAgain, AreBehindAnOwnWrite) {
  list->FindFirst("AcctNum = 2500");
  database->Execute("UPDATE Customers SET City = 'Elsewhere' WHERE AcctNum = 2500", platform::dbFailOnError);
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 1);
  EXPECT_EQ(list->Field("City"), Value("Elsewhere"));
}

TEST_F(RowsReadAgain, AreWhereAnOwnWriteWasUndone) {
  const platform::WorkspaceRef workspace = engine->CreateWorkspace("Other", "Admin", "", 2);
  database = workspace->OpenDatabase(path);
  OpenList();
  workspace->BeginTrans();
  database->Execute("UPDATE Customers SET City = 'Elsewhere' WHERE AcctNum = 2500", platform::dbFailOnError);
  list->FindFirst("AcctNum = 2500");
  EXPECT_EQ(list->Field("City"), Value("Elsewhere"));
  workspace->Rollback();
  EXPECT_EQ(Other("SELECT \"City\" FROM orv1_customer.\"Customers\" WHERE \"AcctNum\" = 2500"), "City2500\n");
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 1);
  EXPECT_EQ(list->Field("City"), Value("City2500"));
}

TEST_F(RowsReadAgain, AreWhereWhoLooksAsksFirst) {
  engine = MakeDesk(Asking());
  OpenDatabase();
  OpenList();
  list->FindFirst("AcctNum = 2500");
  Other("UPDATE orv1_customer.\"Customers\" SET \"City\" = 'Elsewhere' WHERE \"AcctNum\" = 2500");
  list->Edit();
  EXPECT_EQ(list->Field("City"), Value("Elsewhere"));
}

// Its type may be another by now; a row that stands there without one may have got it.
TEST_F(RowsReadAgain, AreInJoins) {
  Other("INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") VALUES (1, '1')");
  list = database->OpenRecordset(
      "SELECT Phones.Phone, Customers.LastName FROM Phones INNER JOIN Customers ON Phones.AcctNum = Customers.AcctNum", RecordsetType::Dynaset);
  list->MoveFirst();
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 1);
}

TEST_F(RowsReadAgain, ATablesRowIsSoughtOnce) {
  const auto table = database->OpenRecordset("Customers", RecordsetType::Table);
  const auto seek = [&](std::int32_t account) {
    table->SetIndex("PrimaryKey");
    table->Seek("=", std::vector<Value>{account});
  };
  EXPECT_EQ(TripsOf([&] { seek(2500); }), 1);
  EXPECT_EQ(TripsOf([&] { seek(2500); }), 0);
  EXPECT_EQ(TripsOf([&] { table->Edit(); }), 0);
  EXPECT_EQ(table->Field("City"), Value("City2500"));
  EXPECT_EQ(TripsOf([&] { seek(2501); }), 1);
  EXPECT_EQ(table->Field("City"), Value("City2501"));
  table->SetIndex("ByName");
  EXPECT_EQ(table->Field("LastName"), Value("Name000"));
  OtherDesk("DELETE FROM Customers WHERE AcctNum = 2501");
  seek(2501);
  EXPECT_TRUE(table->NoMatch());
}

// A list that is opened where another stood goes on from there: its first row comes with the row that was gone to and those behind it.
TEST_F(RowsReadAgain, AListThatIsOpenedAnewComesWithTheRowThatWasGoneTo) {
  for (const std::string order : {"LastName", "LastName DESC", "AcctNum", "AcctNum DESC"}) {
    const std::string sql = "SELECT * FROM Customers ORDER BY " + order;
    const auto opened = [&] {
      const auto anew = database->OpenRecordset(sql, RecordsetType::Dynaset);
      list->Close();
      list = anew;
    };
    list = database->OpenRecordset(sql, RecordsetType::Dynaset);
    const Value first = list->Field("AcctNum");
    list->FindFirst("AcctNum = 2550");
    const auto page = Page();
    EXPECT_EQ(TripsOf(opened), 1) << order;
    EXPECT_EQ(list->Field("AcctNum"), first);
    EXPECT_EQ(TripsOf([&] {
                list->FindFirst("AcctNum = 2550");
                EXPECT_EQ(list->Field("City"), Value("City2550"));
              }),
              0)
        << order;
    std::vector<platform::ListRow> again;
    EXPECT_EQ(TripsOf([&] { again = Page(); }), 0) << order;
    ASSERT_EQ(again.size(), page.size());
    for (std::size_t i = 0; i < page.size(); ++i) EXPECT_EQ(again[i].cells[0], page[i].cells[0]) << order << ", " << i;
    // Who goes elsewhere is asked nothing more than before; the next list doesn't expect him there again.
    EXPECT_EQ(TripsOf(opened), 1) << order;
    EXPECT_EQ(TripsOf([&] { list->MoveFirst(); }), 0) << order;
    EXPECT_EQ(list->Field("AcctNum"), first);
    EXPECT_EQ(TripsOf(opened), 1) << order;
    EXPECT_EQ(TripsOf([&] { EXPECT_EQ(list->Window().RowsAt(0, 50).size(), 50); }), 0) << order;
  }
}

// The row that is expected may be the first one, the last one, without a name, or gone.
TEST_F(RowsReadAgain, AListThatIsOpenedAnewIsTheSameWhateverRowWasGoneTo) {
  Other("UPDATE orv1_customer.\"Customers\" SET \"LastName\" = NULL WHERE \"AcctNum\" IN (7, 8)");
  for (const std::string order : {"LastName", "LastName DESC"}) {
    const std::string sql = "SELECT * FROM Customers ORDER BY " + order;
    for (const std::string row : {"7", "8", "100", "4999", "2550"}) {
      list = database->OpenRecordset(sql, RecordsetType::Dynaset);
      const std::size_t all = 2000;
      const auto plain = list->Window().RowsAt(0, all);
      list->FindFirst("AcctNum = " + row);
      const auto behind = Page();
      if (row == "2550") Other("DELETE FROM orv1_customer.\"Customers\" WHERE \"AcctNum\" = 2550");
      const auto anew = database->OpenRecordset(sql, RecordsetType::Dynaset);
      list->Close();
      list = anew;
      EXPECT_EQ(list->Field("AcctNum"), plain.front().cells[0]);
      list->FindFirst("AcctNum = " + row);
      EXPECT_EQ(list->NoMatch(), row == "2550") << order;
      if (row != "2550") {
        const auto again = Page();
        ASSERT_EQ(again.size(), behind.size()) << row;
        for (std::size_t i = 0; i < again.size(); ++i) EXPECT_EQ(again[i].cells[0], behind[i].cells[0]) << order << ' ' << row << ", " << i;
      }
      const auto rows = list->Window().RowsAt(0, all);
      ASSERT_EQ(rows.size(), all);
      for (std::size_t i = 0; i < 100; ++i) EXPECT_EQ(rows[i].cells[0], plain[i].cells[0]) << order << ' ' << row << ", " << i;
      if (row == "2550") Other("INSERT INTO orv1_customer.\"Customers\" (\"AcctNum\", \"LastName\") VALUES (2550, 'Name050')");
    }
  }
}

}  // namespace
