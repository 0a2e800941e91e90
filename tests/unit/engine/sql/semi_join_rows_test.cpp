#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "unit/engine/sql/corpus_company.h"

// DISTINCTROW gives each combination of rows of the tables with output once: whatever joins and conditions are put
// together, its rows are those of the plain join without their doubles.
namespace {

struct Generator {
  std::mt19937 random{20240131};

  std::size_t Below(std::size_t count) { return random() % count; }
  template <class T>
  const T& OneOf(const std::vector<T>& items) {
    return items[Below(items.size())];
  }
};

const std::vector<std::string> others{"Phones", "Transactions", "CustCreditCards", "Lookups", "CustCodes"};

const std::vector<std::string>& ConditionsOf(const std::string& table) {
  static const std::map<std::string, std::vector<std::string>> conditions{
      {"Customers", {"Customers.Status = 0", "Customers.LastName Like 'S*'", "Customers.NonBillable = False", "Customers.CurrBalance > 0"}},
      {"Phones", {"Phones.Area Like '61*'", "Phones.Type = 'H'", "Phones.Comment Is Null", "Phones.RecordID > 2"}},
      {"Transactions", {"Transactions.TranType <> 'P'", "Transactions.InvChkCredNo = '1001'", "Transactions.Amount < 0"}},
      {"CustCreditCards", {"CustCreditCards.CCType = 'b'", "CustCreditCards.CCLimit > 100", "CustCreditCards.CCLimit Is Null"}},
      {"Lookups", {"Lookups.Text = 'POOL'", "Lookups.Text > 'c'"}},
      {"CustCodes", {"CustCodes.CustCodes In (1, 2)", "CustCodes.CustCodes > Customers.Status", "Not CustCodes.CustCodes = 5"}}};
  return conditions.at(table);
}

std::string JoinOf(const std::vector<std::string>& tables, const std::string& kind) {
  std::string from = "Customers";
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (i > 0) from = '(' + from + ')';
    from += kind + tables[i] + " ON Customers.AcctNum = " + tables[i] + ".AcctNum";
  }
  return from;
}

std::string WhereOf(Generator& generator, const std::vector<std::string>& tables) {
  std::string where;
  for (std::size_t i = 0; i < tables.size() + 1; ++i) {
    const std::string& table = i < tables.size() ? tables[i] : std::string("Customers");
    if (generator.Below(3) == 0) continue;
    const std::string word = generator.Below(4) == 0 ? " Or " : " And ";
    where += (where.empty() ? "" : word) + '(' + generator.OneOf(ConditionsOf(table)) + ')';
  }
  return where.empty() ? "" : " WHERE " + where;
}

std::vector<std::string> WithoutDoubles(std::vector<std::string> rows) {
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

TEST(SemiJoin, IsThePlainJoinWithoutDoubles) {
  CorpusCompany company;
  Generator generator;
  int withRows = 0;
  for (int round = 0; round < 400; ++round) {
    std::vector<std::string> tables = others;
    std::ranges::shuffle(tables, generator.random);
    tables.resize(1 + generator.Below(3));
    const std::string kind = generator.Below(4) == 0 ? " LEFT JOIN " : " INNER JOIN ";
    // The customer alone, or with a second table whose key tells its rows apart.
    std::string columns = "Customers.AcctNum";
    const bool second = generator.Below(3) == 0 && (tables[0] == "Phones" || tables[0] == "CustCreditCards");
    if (second) columns += tables[0] == "Phones" ? ", Phones.RecordID" : ", CustCreditCards.CreditCardID";
    const std::string rest = columns + " FROM " + JoinOf(tables, kind) + WhereOf(generator, tables);
    SCOPED_TRACE(rest);
    std::vector<std::string> plain = company.Query("SELECT " + rest);
    std::vector<std::string> once = company.Query("SELECT DISTINCTROW " + rest);
    std::ranges::sort(once);
    if (!plain.empty()) ++withRows;
    EXPECT_EQ(once, WithoutDoubles(plain));
  }
  EXPECT_GT(withRows, 100);
}

}  // namespace
