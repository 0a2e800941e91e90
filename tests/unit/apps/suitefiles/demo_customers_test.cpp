#include "suitefiles/demo/customers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

#include "platform/values/text.h"
#include "suitefiles/demo/codes.h"

namespace {

using namespace suitefiles::demo;

constexpr int kLastDay = 45838;  // 30 June 2025
constexpr std::int32_t kSample = 20'000;

int Number(const std::string& digits) {
  int number = -1;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

bool Fits(const std::string& text, std::size_t width) { return platform::IsValidUtf8(text) && platform::CharacterCount(text) <= width; }

TEST(DemoCustomers, AreTheSameForASeed) {
  const World world(7, kLastDay);
  const World again(7, kLastDay);
  const World other(8, kLastDay);
  int differences = 0;
  for (std::int32_t account = 1; account <= 200; ++account) {
    const auto first = MakeContact(world, MakeIdentity(world, account));
    const auto second = MakeContact(again, MakeIdentity(again, account));
    const auto third = MakeContact(other, MakeIdentity(other, account));
    EXPECT_EQ(first.name.last, second.name.last);
    EXPECT_EQ(first.street.line1, second.street.line1);
    EXPECT_EQ(first.zip, second.zip);
    differences += first.name.last != third.name.last ? 1 : 0;
  }
  EXPECT_GT(differences, 150);
}

// Fixed numbers: another machine or compiler must make the very same company.
TEST(DemoCustomers, RandomNumbersAreThoseOfTheGenerator) {
  Random first(1, 1, Stream::Kind);
  Random second(1, 1, Stream::Kind);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(first.Next(), second.Next());
  std::set<std::uint64_t> starts;
  for (std::uint64_t customer = 1; customer <= 1000; ++customer) {
    starts.insert(Random(1, customer, Stream::Kind).Next());
    starts.insert(Random(1, customer, Stream::Phones).Next());
    starts.insert(Random(2, customer, Stream::Kind).Next());
  }
  EXPECT_EQ(starts.size(), 3000U);
}

TEST(DemoCustomers, TextsFitTheirFields) {
  const World world(1, kLastDay);
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto contact = MakeContact(world, identity);
    const auto billing = MakeAccount(world, identity);
    ASSERT_TRUE(Fits(contact.name.last, 30)) << contact.name.last;
    ASSERT_FALSE(contact.name.last.empty());
    ASSERT_TRUE(Fits(contact.name.first, 15)) << contact.name.first;
    ASSERT_TRUE(Fits(contact.name.title, 5)) << contact.name.title;
    ASSERT_TRUE(Fits(contact.street.line1, 30)) << contact.street.line1;
    ASSERT_TRUE(Fits(contact.street.line2, 30)) << contact.street.line2;
    ASSERT_TRUE(Fits(contact.zip, 10)) << contact.zip;
    ASSERT_TRUE(Fits(contact.eMail, 40)) << contact.eMail;
    ASSERT_TRUE(Fits(contact.webSite, 40)) << contact.webSite;
    ASSERT_TRUE(Fits(billing.taxId, 15)) << billing.taxId;
    ASSERT_TRUE(Fits(billing.comments, 32000));
    ASSERT_EQ(identity.company, contact.name.first.empty());
  }
}

TEST(DemoCustomers, ZipsLieInTheirCity) {
  const World world(1, kLastDay);
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const std::string zip = MakeContact(world, identity).zip;
    ASSERT_TRUE(zip.size() == 5 || (zip.size() == 10 && zip[5] == '-')) << zip;
    const int number = Number(zip.substr(0, 5));
    ASSERT_GE(number, identity.city->firstZip);
    ASSERT_LE(number, identity.city->lastZip);
  }
}

TEST(DemoCustomers, TaxesAreThoseOfThePlace) {
  const World world(1, kLastDay);
  int taxed = 0;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto billing = MakeAccount(world, identity);
    if (!billing.taxId.empty() || identity.city->state == "TX") {
      ASSERT_EQ(billing.taxes[0], NoTax);
    } else if (identity.city->name == "Minneapolis") {
      ASSERT_EQ(billing.taxes[0], Minnesota);
      ASSERT_EQ(billing.taxes[1], HennepinCounty);
      ASSERT_EQ(billing.taxes[2], Minneapolis);
    } else if (identity.city->state == "WI") {
      ASSERT_EQ(billing.taxes[0], Wisconsin);
      ASSERT_EQ(billing.taxes[1], NoTax);
    }
    taxed += billing.taxes[0] != NoTax ? 1 : 0;
  }
  EXPECT_GT(taxed, kSample / 4);
}

TEST(DemoCustomers, CitiesAreWrittenOutOnceAndWell) {
  std::set<std::string> places;
  for (const auto& city : Cities()) {
    EXPECT_TRUE(places.insert(std::string(city.name) + "," + std::string(city.state)).second) << city.name;
    EXPECT_TRUE(Fits(std::string(city.name), 25));
    EXPECT_EQ(city.state.size(), 2U);
    EXPECT_EQ(city.area.size(), 3U);
    EXPECT_LE(city.firstZip, city.lastZip) << city.name;
    EXPECT_LE(city.lastZip - city.firstZip, 40) << city.name;
  }
  EXPECT_GT(places.size(), 150U);
}

TEST(DemoCustomers, WordListsHoldNoWordTwice) {
  for (const auto& words : {Surnames(), MenNames(), WomenNames(), StreetNames(), CompanyTrades(), CompanyAdjectives()}) {
    std::set<std::string_view> seen;
    for (const auto word : words) EXPECT_TRUE(seen.insert(word).second) << word;
  }
  EXPECT_GT(Surnames().size(), 500U);
  EXPECT_GT(MenNames().size() + WomenNames().size(), 290U);
}

TEST(DemoCustomers, NamesAreSkewedLikeRealOnes) {
  const World world(3, kLastDay);
  std::map<std::string, int> names;
  constexpr std::int32_t kMany = 100'000;
  for (std::int32_t account = 1; account <= kMany; ++account) ++names[MakeContact(world, MakeIdentity(world, account)).name.last];
  // 0.8 % of the customers, within four standard deviations.
  EXPECT_NEAR(names["Smith"], 800, 115);
  const auto commonest = std::max_element(names.begin(), names.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  EXPECT_EQ(commonest->first, "Smith");
  EXPECT_GT(names["Johnson"], names["Abbott"]);
  EXPECT_GT(names.size(), 10'000U);
  EXPECT_TRUE(names.contains("O'Brien"));
}

TEST(DemoCustomers, SharesOfKinds) {
  const World world(1, kLastDay);
  int companies = 0;
  int inactive = 0;
  int prospects = 0;
  int departmental = 0;
  int nonBillable = 0;
  int comments = 0;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto billing = MakeAccount(world, identity);
    companies += identity.company ? 1 : 0;
    inactive += identity.standing == Standing::Inactive ? 1 : 0;
    prospects += identity.standing == Standing::Prospect ? 1 : 0;
    departmental += identity.laborRateType == 'D' ? 1 : 0;
    nonBillable += billing.nonBillable ? 1 : 0;
    comments += billing.comments.empty() ? 0 : 1;
    EXPECT_EQ(identity.laborRateType == 'C', billing.laborRate > 0);
  }
  EXPECT_NEAR(companies, kSample * 0.200, 250);
  EXPECT_NEAR(inactive, kSample * 0.070, 160);
  EXPECT_NEAR(prospects, kSample * 0.050, 140);
  EXPECT_NEAR(departmental, kSample * 0.080, 170);
  EXPECT_NEAR(nonBillable, kSample * 0.040, 120);
  EXPECT_NEAR(comments, kSample * 0.160, 230);
}

TEST(DemoCustomers, FiguresAgreeWithEachOther) {
  const World world(1, kLastDay);
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto history = MakeHistory(world, identity);
    ASSERT_LE(history.paidThisMonth, history.paidThisYear);
    ASSERT_GE(history.paidToDate, history.paidThisYear + history.paidLastYear);
    ASSERT_LE(history.entry, kLastDay);
    for (const auto& day : {history.lastTransaction, history.lastOrder, history.lastPayment}) {
      if (day) {
        ASSERT_LE(*day, kLastDay);
        ASSERT_GE(*day, history.entry) << account;
      }
    }
    if (identity.standing == Standing::Prospect) {
      ASSERT_EQ(history.paidToDate, 0);
      ASSERT_FALSE(history.lastTransaction);
    }
  }
}

}  // namespace
