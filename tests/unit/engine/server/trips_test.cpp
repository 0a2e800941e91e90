// How many round trips to the server each act of a desk takes: on a slow line they are what people wait for.
#include <algorithm>

#include "unit/engine/server/trips.h"

namespace {

using platform::FieldType;
using platform::RecordsetType;
using platform::Value;

TEST_F(Trips, OpeningTheListIsOneBehindItsDefinitions) {
  // The connection; whether there is such a file; its format.
  EXPECT_EQ(TripsOf([&] { OpenDatabase(); }), 3);
  // What tables there are; the first rows.
  EXPECT_EQ(TripsOf([&] { OpenList(); }), 2);
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(Page().size(), 49); }), 0);
  EXPECT_EQ(TripsOf([&] { OpenList(); }), 1);
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(Page().size(), 49); }), 0);
}

TEST_F(Trips, ACodeTableIsOneWithAllItsRows) {
  Other("INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT n, n FROM generate_series(1, 40) AS n");
  OpenDatabase();
  OpenList();
  platform::RecordsetRef phones;
  EXPECT_EQ(TripsOf([&] { phones = database->OpenRecordset("SELECT * FROM Phones ORDER BY AcctNum", RecordsetType::Dynaset); }), 1);
  EXPECT_EQ(TripsOf([&] {
              int rows = 0;
              for (phones->MoveFirst(); !phones->Eof(); phones->MoveNext()) ++rows;
              EXPECT_EQ(rows, 40);
            }),
            0);
}

TEST_F(Trips, AnUntouchedListAsksNothing) {
  OpenDatabase();
  OpenList();
  Page();
  list->Window().Count();
  EXPECT_EQ(TripsOf([&] {
              for (int painted = 0; painted < 100; ++painted) {
                Page();
                list->Window().Count();
                list->RecordCount();
                list->MoveNext();
                list->MovePrevious();
              }
            }),
            0);
}

TEST_F(Trips, APageIsOneInEitherDirection) {
  OpenDatabase();
  OpenList();
  std::vector<platform::ListRow> rows = Page();
  const auto forward = [&] { rows = list->Window().RowsAfter(rows.back().bookmark, 50); };
  const auto back = [&] { rows = list->Window().RowsBefore(rows.front().bookmark, 50); };
  EXPECT_EQ(TripsOf(forward), 1);
  EXPECT_EQ(TripsOf(forward), 1);
  EXPECT_EQ(rows.size(), 50);
  EXPECT_EQ(TripsOf(back), 1);
  EXPECT_EQ(TripsOf(back), 1);
  EXPECT_EQ(TripsOf([&] { list->MoveLast(); }), 1);
  EXPECT_EQ(NameHere(), "Name099");
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(list->Window().RowsBefore(list->Bookmark(), 50).size(), 50); }), 0);
  EXPECT_EQ(TripsOf([&] { list->MoveFirst(); }), 0);
}

TEST_F(Trips, AWalkIsOneForManyRows) {
  OpenDatabase();
  OpenList();
  EXPECT_LE(TripsOf([&] {
              for (int i = 0; i < 1'000; ++i) list->MoveNext();
            }),
            17);
}

TEST_F(Trips, RowsWithoutAValueComeInTheSamePage) {
  Other("UPDATE orv1_customer.\"Customers\" SET \"LastName\" = NULL WHERE \"AcctNum\" <= 80");
  OpenDatabase();
  OpenList();
  std::vector<platform::ListRow> rows;
  EXPECT_EQ(TripsOf([&] { rows = list->Window().RowsAfter(list->Bookmark(), 100); }), 1);
  EXPECT_EQ(rows.size(), 100);
  EXPECT_TRUE(rows[78].cells[1].IsNull());
  EXPECT_EQ(rows[79].cells[1], Value("Name000"));
  OpenList();
  list->FindFirst("AcctNum = 200");  // before it stands 100, and before that only rows without a name
  EXPECT_EQ(TripsOf([&] { rows = list->Window().RowsBefore(list->Bookmark(), 60); }), 1);
  ASSERT_EQ(rows.size(), 60);
  EXPECT_EQ(rows.back().cells[1], Value("Name000"));
  EXPECT_TRUE(rows[58].cells[1].IsNull());
  EXPECT_TRUE(rows.front().cells[1].IsNull());
}

// The row comes with the answer. Who searches on from it gets the next ones that fit along, more of them each time.
TEST_F(Trips, ASearchByTheListsFieldIsOne) {
  OpenDatabase();
  OpenList();
  EXPECT_EQ(TripsOf([&] { list->FindFirst("LastName Like 'Name050*'"); }), 1);
  EXPECT_EQ(NameHere(), "Name050");
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(Page().size(), 49); }), 1);
  std::vector<int> accounts;
  const std::uint64_t trips = TripsOf([&] {
    for (list->FindNext("LastName Like 'Name050*'"); !list->NoMatch(); list->FindNext("LastName Like 'Name050*'"))
      accounts.push_back(list->Field("AcctNum").As<std::int32_t>());
  });
  std::vector<int> wanted;
  for (int account = 150; account <= 5'000; account += 100) wanted.push_back(account);
  EXPECT_EQ(accounts, wanted);
  EXPECT_EQ(trips, 3);  // 4 rows, 16, and what is left of the 49
  EXPECT_EQ(TripsOf([&] { list->FindFirst("AcctNum = 2500"); }), 1);
}

// What has been written since isn't answered by rows that came before.
TEST_F(Trips, ASearchOnSeesWhatWasWrittenMeanwhile) {
  OpenDatabase();
  OpenList();
  list->FindFirst("LastName Like 'Name050*'");
  list->FindNext("LastName Like 'Name050*'");
  EXPECT_EQ(list->Field("AcctNum"), Value(std::int32_t{150}));
  database->Execute("UPDATE Customers SET LastName = 'Zoe' WHERE AcctNum = 250", platform::dbFailOnError);
  list->FindNext("LastName Like 'Name050*'");
  EXPECT_EQ(list->Field("AcctNum"), Value(std::int32_t{350}));
}

// What no row of the list can be isn't looked for.
TEST_F(Trips, ASearchBesideTheFilterOfTheListAsksNothing) {
  OpenDatabase();
  list = database->OpenRecordset("SELECT * FROM Customers WHERE LastName Like 'Name05*' ORDER BY LastName", RecordsetType::Dynaset);
  EXPECT_EQ(TripsOf([&] { list->FindFirst("LastName Like 'Name06*'"); }), 0);
  EXPECT_TRUE(list->NoMatch());
  EXPECT_EQ(TripsOf([&] { list->FindFirst("LastName Like 'Name052*'"); }), 1);
  EXPECT_EQ(NameHere(), "Name052");
}

// The first keys of all ways to a query's rows come together.
TEST_F(Trips, AQueryOfSeveralTablesIsTwo) {
  Other("INSERT INTO orv1_customer.\"Customers\" (\"LastName\", \"City\", \"Balance\") SELECT 'Name' || lpad((n % 100)::text, 3, '0'), "
        "'City' || n, n FROM generate_series(5001, 25000) AS n; "
        "INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT n, n % 5 FROM generate_series(1, 25000) AS n; ANALYZE");
  OpenDatabase();
  OpenList();
  platform::RecordsetRef query;
  EXPECT_EQ(TripsOf([&] {
              query = database->OpenRecordset("SELECT DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum "
                                              "WHERE Phones.AcctNum = 4711 AND LastName Like 'Name0*' ORDER BY LastName",
                                              RecordsetType::Dynaset);
            }),
            2);
  EXPECT_EQ(query->Field("AcctNum"), Value(std::int32_t{4711}));
  query->MoveNext();
  EXPECT_TRUE(query->Eof());
}

// The phones' first keys say that nearly all customers have one; those who have stand together, four of each name.
TEST_F(Trips, AQueryWhoseFirstKeysPromiseTooMuchFindsItsRowsAllTheSame) {
  Other("INSERT INTO orv1_customer.\"Customers\" (\"LastName\", \"City\", \"Balance\") SELECT 'Name' || lpad((n % 100)::text, 3, '0'), "
        "'City' || n, n FROM generate_series(5001, 25000) AS n; "
        "INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT n, '5' FROM generate_series(1, 400) AS n; ANALYZE");
  OpenDatabase();
  for (const bool down : {false, true}) {
    const auto query = database->OpenRecordset(
        std::string("SELECT DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum "
                    "WHERE Phones.AcctNum > 0 ORDER BY LastName") + (down ? " DESC" : ""),
        RecordsetType::Dynaset);
    std::vector<std::int32_t> expected;
    for (int name = 0; name < 100; ++name)
      for (int nth = 0; nth < 4; ++nth) expected.push_back(name == 0 ? 100 * (nth + 1) : name + 100 * nth);
    if (down) std::ranges::reverse(expected);
    std::vector<std::int32_t> found;
    for (const platform::ListRow& row : query->Window().RowsAt(0, 400)) found.push_back(row.cells[0].As<std::int32_t>());
    EXPECT_EQ(found, expected);
  }
}

// One look at all rows finds all that fit; the row itself is the other trip.
TEST_F(Trips, ASearchWithoutIndexIsTwo) {
  OpenDatabase();
  OpenList();
  ReadAllPlaces();
  EXPECT_EQ(TripsOf([&] { list->FindFirst("City Like '*y47?1'"); }), 2);
  EXPECT_EQ(list->Field("City"), Value("City4701"));
  EXPECT_EQ(TripsOf([&] { list->FindNext("City Like '*y47?1'"); }), 1);
  EXPECT_EQ(list->Field("City"), Value("City4711"));
  EXPECT_EQ(TripsOf([&] { list->FindFirst("City = 'nowhere'"); }), 1);
  EXPECT_TRUE(list->NoMatch());
}

// Codes are sought so on each card: what was read before somebody wrote comes with the answer.
TEST_F(Trips, ASearchInAShortListIsOneWithItsRows) {
  Other("INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT 10 - n, n FROM generate_series(1, 9) AS n");
  OpenDatabase();
  for (const std::string order : {"", " ORDER BY Phone", " ORDER BY AcctNum DESC"}) {
    const auto phones = database->OpenRecordset("SELECT * FROM Phones" + order, RecordsetType::Dynaset);
    database->Execute("UPDATE Customers SET Balance = Balance + 1 WHERE AcctNum = 1", platform::dbFailOnError);
    EXPECT_EQ(TripsOf([&] {
                phones->FindFirst("AcctNum = 3");
                EXPECT_EQ(phones->Field("Phone"), Value("7"));
              }),
              1)
        << order;
    EXPECT_EQ(TripsOf([&] {
                phones->FindNext("AcctNum < 3 Or AcctNum = 7");
                EXPECT_EQ(phones->Field("AcctNum"), Value(2)) << order;
                phones->MovePrevious();
                EXPECT_EQ(phones->Field("AcctNum"), Value(3));
              }),
              1)
        << order;
    phones->FindFirst("AcctNum = 3 And AcctNum = 4");
    EXPECT_TRUE(phones->NoMatch());
    Other("DELETE FROM orv1_customer.\"Phones\" WHERE \"AcctNum\" = 9");
    database->OpenRecordset("SELECT Phone FROM Phones WHERE AcctNum = 1", RecordsetType::Snapshot);  // tells of it
    phones->FindFirst("AcctNum = 9");
    EXPECT_TRUE(phones->NoMatch());
    phones->FindFirst("Phone = '9' Or AcctNum = 9");
    EXPECT_EQ(phones->Field("AcctNum"), Value(1));
    phones->AddNew();
    phones->SetField("AcctNum", Value(9));
    phones->SetField("Phone", Value("1"));
    phones->Update();
    phones->FindFirst("AcctNum = 9");
    EXPECT_EQ(phones->Field("Phone"), Value("1"));
  }
}

// Each try is one question: a walk, how far it went, another one where the rows lie a little thinner, all that fit where they are rare.
TEST_F(Trips, AQueryAsksOnceForEachTry) {
  Other("INSERT INTO orv1_customer.\"Customers\" (\"LastName\", \"City\", \"Balance\") SELECT 'Name' || lpad((n % 100)::text, 3, '0'), "
        "'City' || n, n FROM generate_series(5001, 25000) AS n; "
        "INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT n, n FROM generate_series(1, 100) AS n; ANALYZE");
  OpenDatabase();
  OpenList();
  const auto tripsOf = [&](const std::string& joined, const std::string& filter, std::size_t rows) {
    return TripsOf([&] {
      const auto query = database->OpenRecordset(
          "SELECT DISTINCTROW Customers.* FROM Customers" + joined + " WHERE " + filter + " ORDER BY LastName", RecordsetType::Dynaset);
      EXPECT_EQ(query->Window().RowsAt(0, 50).size(), rows) << filter;
    });
  };
  EXPECT_EQ(tripsOf("", "Balance > 0", 50), 2);
  EXPECT_EQ(tripsOf("", "AcctNum Mod 79 = 0", 50), 3);
  EXPECT_EQ(tripsOf("", "City Like '*y4711'", 1), 2);
  EXPECT_EQ(tripsOf(" INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum", "Phones.RecordID = 7", 1), 2);
}

// Who opens a list for one of its rows shows it with those behind it.
TEST_F(Trips, TheFirstRowThatIsSoughtComesWithItsPage) {
  OpenDatabase();
  for (const std::string order : {"LastName", "LastName DESC", "AcctNum", "AcctNum DESC"}) {
    const auto accounts = [](const std::vector<platform::ListRow>& rows) {
      std::vector<std::int32_t> numbers;
      for (const platform::ListRow& row : rows) numbers.push_back(row.cells[0].As<std::int32_t>());
      return numbers;
    };
    list = database->OpenRecordset("SELECT * FROM Customers ORDER BY " + order, RecordsetType::Dynaset);
    EXPECT_EQ(TripsOf([&] { list->FindFirst("AcctNum = 2550"); }), 1) << order;
    EXPECT_EQ(list->Field("City"), Value("City2550"));
    std::vector<platform::ListRow> page;
    EXPECT_EQ(TripsOf([&] { page = Page(); }), 0) << order;
    EXPECT_EQ(page.size(), 49);
    EXPECT_EQ(TripsOf([&] { list->FindFirst("AcctNum = 2550"); }), 0) << order;
    database->Execute("UPDATE Customers SET Balance = 1 WHERE AcctNum = 1", platform::dbFailOnError);
    EXPECT_EQ(accounts(Page()), accounts(page)) << order;
    EXPECT_EQ(TripsOf([&] { list->FindFirst("AcctNum = 175"); }), 1) << order;
    EXPECT_EQ(TripsOf([&] { Page(); }), 1) << order;
  }
}

TEST_F(Trips, ARowThatIsSoughtIsFoundWithoutANameAndNotBesideTheFilter) {
  Other("UPDATE orv1_customer.\"Customers\" SET \"LastName\" = NULL WHERE \"AcctNum\" = 7");
  OpenDatabase();
  OpenList();
  list->FindFirst("AcctNum = 7");
  EXPECT_FALSE(list->NoMatch());
  EXPECT_TRUE(list->Field("LastName").IsNull());
  EXPECT_EQ(Page().front().cells[0], Value(std::int32_t{100}));
  list = database->OpenRecordset("SELECT * FROM Customers WHERE LastName Like 'Name05*' ORDER BY LastName", RecordsetType::Dynaset);
  list->FindFirst("AcctNum = 60");
  EXPECT_TRUE(list->NoMatch());
  list->FindFirst("AcctNum = 52");
  EXPECT_FALSE(list->NoMatch());
  EXPECT_EQ(Page().front().cells[0], Value(std::int32_t{152}));
}

TEST_F(Trips, AFarPlaceIsOneBehindIdleWork) {
  OpenDatabase();
  OpenList();
  ReadAllPlaces();
  EXPECT_EQ(TripsOf([&] { ReadAllPlaces(); }), 0);
  std::vector<platform::ListRow> rows;
  EXPECT_EQ(TripsOf([&] { rows = list->Window().RowsAt(3'333, 50); }), 1);
  ASSERT_EQ(rows.size(), 50);
  // 50 of each name, in the order of their numbers: the 34th of the 67th name.
  EXPECT_EQ(rows.front().cells[1], Value("Name066"));
  EXPECT_EQ(rows.front().cells[0], Value(std::int32_t{3366}));
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(list->Window().RowsAfter(rows.back().bookmark, 50).size(), 50); }), 1);
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(list->Window().RowsAt(4'990, 50).size(), 10); }), 1);
}

// Places that are quickly collected are not taken over by a list that is opened behind a write.
TEST_F(Trips, AFarPlaceIsRightInAListThatIsOpenedBehindAWrite) {
  OpenDatabase();
  OpenList();
  ReadAllPlaces();
  database->Execute("INSERT INTO Customers (LastName) VALUES ('A')", platform::dbFailOnError);
  const auto anew = database->OpenRecordset(kList, RecordsetType::Dynaset);
  list->Close();
  list = anew;
  // Those of name 49 stand behind 49 times fifty others and the new one.
  EXPECT_EQ(list->Window().RowsAt(2451, 1).front().cells[0], Value(std::int32_t{49}));
  EXPECT_EQ(list->Window().RowsAt(4950, 2).back().cells[0], Value(std::int32_t{99}));
}

TEST_F(Trips, FromEditToThePageAreTwo) {
  OpenDatabase();
  OpenList();
  list->FindFirst("AcctNum = 2500");
  EXPECT_EQ(TripsOf([&] { list->Edit(); }), 0);
  EXPECT_EQ(TripsOf([&] {
              list->SetField("City", Value("Elsewhere"));
              list->Update();
            }),
            1);
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(list->Field("City"), Value("Elsewhere")); }), 0);
  EXPECT_EQ(TripsOf([&] { EXPECT_EQ(Page().size(), 49); }), 1);
}

/// The row comes back with its own change, as it stands then: with what others have written into other fields, and at its place.
TEST_F(Trips, AChangedRowComesWithItsChange) {
  OpenDatabase();
  OpenList();
  list->FindFirst("AcctNum = 2500");
  list->Edit();
  Other("UPDATE orv1_customer.\"Customers\" SET \"Balance\" = 770000 WHERE \"AcctNum\" = 2500");
  EXPECT_EQ(TripsOf([&] {
              list->SetField("City", Value("Elsewhere"));
              list->SetField("LastName", Value("Aaa"));
              list->Update();
            }),
            1);
  EXPECT_EQ(list->Field("City"), Value("Elsewhere"));
  EXPECT_EQ(NameHere(), "Aaa");
  EXPECT_EQ(list->Field("Balance"), Value(platform::Currency{770000}));
  // It keeps its place until the list is opened anew.
  list->MovePrevious();
  EXPECT_EQ(list->Field("AcctNum"), Value(std::int32_t{2400}));
  list->SetBookmark(list->LastModified());
  EXPECT_EQ(NameHere(), "Aaa");
  // What is written behind it is seen by who comes back.
  Other("UPDATE orv1_customer.\"Customers\" SET \"City\" = 'Nowhere' WHERE \"AcctNum\" = 2500");
  list->MoveNext();
  list->SetBookmark(list->LastModified());
  EXPECT_EQ(list->Field("City"), Value("Nowhere"));
}

TEST_F(Trips, AChangeOfARowThatIsGoneGivesNothingBack) {
  OpenDatabase();
  OpenList();
  list->FindFirst("AcctNum = 2500");
  list->Edit();
  list->SetField("City", Value("Elsewhere"));
  Other("DELETE FROM orv1_customer.\"Customers\" WHERE \"AcctNum\" = 2500");
  EXPECT_EQ(ErrorOf([&] { list->Update(); }), 3167);
}

TEST_F(Trips, NewRowsCostAPageOneMoreWhateverTheirNumber) {
  OpenDatabase();
  OpenList();
  const auto add = [&] {
    list->AddNew();
    list->SetField("LastName", Value("Zzz"));
    list->Update();
  };
  EXPECT_EQ(TripsOf(add), 2);
  for (int i = 0; i < 20; ++i) add();
  // What others are still to be told may go ahead of it; nobody waits for that one.
  EXPECT_LE(TripsOf([&] { EXPECT_EQ(Page().size(), 49); }), 4);
}

}  // namespace
