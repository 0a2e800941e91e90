// Lists of the rows of one number with which a table's own key begins: one statement, which is planned once, for all numbers.
#include <string>
#include <vector>

#include "engine/engine.h"
#include "platform/data/data.h"
#include "platform/values/convert.h"
#include "unit/engine/server/trips.h"

namespace {

using platform::FieldType;
using platform::RecordsetType;

/// Customer n has n rates.
class OneNumber : public Trips {
 protected:
  OneNumber() {
    Create("rates.zdb", {{"Rates",
                          {Field("AcctNum", FieldType::Long), TextField("Dept", 3), Field("Adjustment", FieldType::Double)},
                          {{"PrimaryKey", {"AcctNum", "Dept"}, true, true}}}});
    Other(
        "INSERT INTO orv1_rates.\"Rates\" (\"AcctNum\", \"Dept\", \"Adjustment\") SELECT c, lpad(d::text, 3, '0'), -d FROM "
        "generate_series(0, 120) AS c, generate_series(1, c) AS d ORDER BY d; ANALYZE");
    database = engine->OpenControlDatabase(proxy.PathOf(database_) + "orv1/rates.zdb");
  }

  platform::RecordsetRef Open(const std::string& customer, const std::string& order) const {
    return database->OpenRecordset("Select * From Rates Where (AcctNum=" + customer + ")" + order, RecordsetType::Dynaset);
  }
  /// So that it is known what a stranger has written.
  void AskSomething() const { database->OpenRecordset("SELECT Max(Adjustment) AS Most FROM Rates", RecordsetType::Snapshot); }
  /// The departments, in the list's order.
  static std::vector<int> Departments(const platform::RecordsetRef& rates) {
    std::vector<int> departments;
    for (; !rates->Eof(); rates->MoveNext()) departments.push_back(platform::CInt(rates->Field("Dept")));
    return departments;
  }
  static std::vector<int> Expected(int rates, bool descending) {
    std::vector<int> departments;
    for (int i = 1; i <= rates; ++i) departments.push_back(descending ? rates + 1 - i : i);
    return departments;
  }
};

TEST_F(OneNumber, HasItsRowsInOrder) {
  for (const int customer : {3, 0, 1, 51, 52, 53, 120, 2, 121}) {
    const int rates = customer > 120 ? 0 : customer;
    const std::string number = std::to_string(customer);
    EXPECT_EQ(Departments(Open(number, "")), Expected(rates, false)) << number;
    EXPECT_EQ(Departments(Open(number, " ORDER BY Dept DESC")), Expected(rates, true)) << number;
    EXPECT_EQ(Departments(Open(number, " ORDER BY Adjustment")), Expected(rates, true)) << number;
    EXPECT_EQ(Departments(Open(number, " AND Adjustment < -1 ORDER BY Dept")).size(), rates == 0 ? 0U : static_cast<unsigned>(rates) - 1)
        << number;
  }
  EXPECT_EQ(Departments(Open("-3", "")), std::vector<int>());
  EXPECT_EQ(Departments(Open("2.5", "")), std::vector<int>());
}

// None takes another's number, however they are read by turns.
TEST_F(OneNumber, StaysItsOwn) {
  const auto three = Open("3", "");
  const auto two = Open("2", "");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(platform::CInt(three->Field("AcctNum")), 3);
    EXPECT_EQ(platform::CInt(two->Field("AcctNum")), 2);
    three->MoveNext();
    two->MoveNext();
  }
  EXPECT_TRUE(two->Eof());
  EXPECT_EQ(three->RecordCount(), 3);
  EXPECT_EQ(two->RecordCount(), 2);
  Other("INSERT INTO orv1_rates.\"Rates\" (\"AcctNum\", \"Dept\", \"Adjustment\") SELECT c, '777', 0 FROM generate_series(2, 3) AS c");
  AskSomething();
  EXPECT_EQ(Departments(Open("2", "")), (std::vector<int>{1, 2, 777}));
  EXPECT_EQ(Departments(Open("3", "")), (std::vector<int>{1, 2, 3, 777}));
}

TEST_F(OneNumber, IsOneTrip) {
  Departments(Open("5", ""));
  for (const char* customer : {"0", "6", "51"}) EXPECT_EQ(TripsOf([&] { Departments(Open(customer, "")); }), 1) << customer;
}

}  // namespace
