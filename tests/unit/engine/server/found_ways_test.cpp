// The way by which a query's first page was found is taken again where the query is opened again.
#include <string>
#include <vector>

#include "platform/values/convert.h"

#include "unit/engine/server/trips.h"

namespace {

using platform::RecordsetType;

/// 25,000 customers, the first hundred of whom have a phone.
class FoundWays : public Trips {
 protected:
  FoundWays() {
    Other("INSERT INTO orv1_customer.\"Customers\" (\"LastName\", \"City\", \"Balance\") SELECT 'Name' || lpad((n % 100)::text, 3, '0'), "
          "'City' || n, n FROM generate_series(5001, 25000) AS n; "
          "INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT n, n FROM generate_series(1, 100) AS n; ANALYZE");
    OpenDatabase();
    OpenList();
  }

  static std::string Query(const std::string& filter) {
    const bool joined = filter.find("Phones.") != std::string::npos;
    return "SELECT DISTINCTROW Customers.* FROM Customers" + std::string(joined ? " INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum" : "") +
           " WHERE " + filter + " ORDER BY LastName";
  }
  static std::vector<std::int32_t> FirstOf(platform::Database& of, const std::string& filter) {
    const auto query = of.OpenRecordset(Query(filter), RecordsetType::Dynaset);
    std::vector<std::int32_t> accounts;
    for (const platform::ListRow& row : query->Window().RowsAt(0, 50)) accounts.push_back(row.cells[0].As<std::int32_t>());
    query->Close();
    return accounts;
  }
  std::uint64_t TripsToOpen(const std::string& filter) const {
    return TripsOf([&] { FirstOf(*database, filter); });
  }
  /// As a desk sees it that has never asked.
  std::vector<std::int32_t> FirstOfAnother(const std::string& filter) const {
    const auto another = MakeDesk({});
    return FirstOf(*another->OpenControlDatabase(Path("customer.zdb")), filter);
  }

  const std::string walked = "Balance > 0";
  const std::string walkedOn = "AcctNum Mod 79 = 0";
  const std::string sorted = "City Like '*y4711'";
  const std::string few = "Phones.RecordID = 7";
  const std::vector<std::string> all{walked, walkedOn, sorted, few};
};

TEST_F(FoundWays, AskOnce) {
  for (const std::string& filter : all) {
    EXPECT_GE(TripsToOpen(filter), 2) << filter;
    const auto first = FirstOf(*database, filter);
    EXPECT_FALSE(first.empty()) << filter;
    EXPECT_EQ(first, FirstOfAnother(filter)) << filter;
    EXPECT_EQ(TripsToOpen(filter), 1) << filter;
  }
}

// Few rows become many, many few or none; the page lies elsewhere.
TEST_F(FoundWays, LeadToThePageWhateverWasWrittenMeanwhile) {
  const std::vector<std::string> writes{
      "INSERT INTO orv1_customer.\"Phones\" (\"RecordID\", \"AcctNum\", \"Phone\") VALUES (1000, 7, '1')",
      "UPDATE orv1_customer.\"Phones\" SET \"AcctNum\" = 8 WHERE \"RecordID\" = 7",
      "DELETE FROM orv1_customer.\"Phones\" WHERE \"RecordID\" = 7",
      "UPDATE orv1_customer.\"Customers\" SET \"City\" = 'City4711' WHERE \"AcctNum\" % 3 = 0",
      "UPDATE orv1_customer.\"Customers\" SET \"Balance\" = 0 WHERE \"LastName\" < 'Name090'",
      "UPDATE orv1_customer.\"Customers\" SET \"Balance\" = 0, \"City\" = ''",
      "DELETE FROM orv1_customer.\"Customers\" WHERE \"AcctNum\" % 79 = 0 AND \"AcctNum\" > 3000",
      "DELETE FROM orv1_customer.\"Customers\" WHERE \"AcctNum\" <> 7900",
  };
  for (const std::string& filter : all) FirstOf(*database, filter);
  for (const std::string& write : writes) {
    Other(write);
    for (const std::string& filter : all) EXPECT_EQ(FirstOf(*database, filter), FirstOfAnother(filter)) << filter << " behind " << write;
  }
}

// A driver that has led to one row leads to a hundred.
TEST_F(FoundWays, AreLeftWhereTheyLeadToMany) {
  const std::string number = "Phones.Phone = '7' AND Phones.AcctNum < 8 AND Phones.AcctNum > 6";
  EXPECT_EQ(FirstOf(*database, number).size(), 1);
  EXPECT_EQ(TripsToOpen(number), 1);
  Other("INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT 7, n FROM generate_series(1, 500) AS n");
  EXPECT_GE(TripsToOpen(number), 2);
  EXPECT_EQ(FirstOf(*database, number), (std::vector<std::int32_t>{7}));
}

// There may be a better one by now.
TEST_F(FoundWays, AreFoundOutAnewNowAndThen) {
  FirstOf(*database, sorted);
  for (int opened = 0; opened < 32; ++opened) EXPECT_EQ(TripsToOpen(sorted), 1) << opened;
  EXPECT_EQ(TripsToOpen(sorted), 2);
  EXPECT_EQ(TripsToOpen(sorted), 1);
}

/// 25,000 customers, each fifth of whom has a phone; some have no name.
class WalkedQueries : public Trips {
 protected:
  WalkedQueries() {
    Other(
        "INSERT INTO orv1_customer.\"Customers\" (\"LastName\", \"City\", \"Balance\") SELECT 'Name' || lpad((n % 100)::text, 3, '0'), "
        "'City' || n, n FROM generate_series(5001, 25000) AS n; "
        "UPDATE orv1_customer.\"Customers\" SET \"LastName\" = NULL WHERE \"AcctNum\" % 1501 = 0; "
        "INSERT INTO orv1_customer.\"Phones\" (\"AcctNum\", \"Phone\") SELECT 5 * n, n FROM generate_series(1, 5000) AS n; ANALYZE");
    OpenDatabase();
  }

  std::string Accounts(const std::string& filter, const std::string& order) const {
    const auto query = database->OpenRecordset(
        "SELECT DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE " + filter +
            " ORDER BY " + order,
        RecordsetType::Dynaset);
    std::string accounts;
    for (const platform::ListRow& row : query->Window().RowsAt(0, 50)) accounts += platform::CStr(row.cells[0]) + ' ';
    query->Close();
    return accounts;
  }
  std::string Expected(const std::string& condition, const std::string& order) const {
    return Other(
        "SELECT string_agg(a::text || ' ', '') FROM (SELECT c.\"AcctNum\" AS a FROM orv1_customer.\"Customers\" AS c WHERE EXISTS (SELECT "
        "1 FROM "
        "orv1_customer.\"Phones\" AS p WHERE p.\"AcctNum\" = c.\"AcctNum\" AND p.\"Phone\" >= '2') AND " +
        condition + " ORDER BY " + order + " LIMIT 50) AS first");
  }
};

TEST_F(WalkedQueries, GiveTheirFirstRowsInOrder) {
  struct Order {
    const char* words;
    const char* others;
  };
  const std::vector<Order> orders{{"LastName", "\"LastName\" NULLS FIRST, \"AcctNum\""},
                                  {"LastName DESC", "\"LastName\" DESC NULLS LAST, \"AcctNum\" DESC"},
                                  {"Customers.AcctNum", "\"AcctNum\""},
                                  {"Customers.AcctNum DESC", "\"AcctNum\" DESC"}};
  struct Filter {
    const char* words;
    const char* others;
  };
  const std::vector<Filter> filters{{"Phones.Phone >= '2'", "true"},
                                    {"Phones.Phone >= '2' AND Customers.Balance >= 7000", "\"Balance\" >= 70000000"},
                                    {"Phones.Phone >= '2' AND Customers.LastName >= 'Name020'", "\"LastName\" >= 'Name020'"}};
  for (const Order& order : orders)
    for (const Filter& filter : filters)
      for (int opened = 0; opened < 2; ++opened)
        EXPECT_EQ(Accounts(filter.words, order.words) + '\n', Expected(filter.others, order.others))
            << filter.words << " by " << order.words;
}

}  // namespace
