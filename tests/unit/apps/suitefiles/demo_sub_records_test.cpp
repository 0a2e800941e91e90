#include "suitefiles/demo/sub_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/values/text.h"
#include "suitefiles/demo/codes.h"

namespace {

using namespace suitefiles::demo;

constexpr int kLastDay = 45838;
constexpr std::int32_t kSample = 20'000;

/// A card number's digits, every second one from the right doubled, add up to a multiple of ten.
bool CheckDigitIsRight(const std::string& number) {
  int sum = 0;
  for (std::size_t i = 0; i < number.size(); ++i) {
    int digit = number[number.size() - 1 - i] - '0';
    if (i % 2 == 1) digit = digit * 2 / 10 + digit * 2 % 10;
    sum += digit;
  }
  return sum % 10 == 0;
}

TEST(DemoSubRecords, CheckDigitsOfKnownTestNumbers) {
  EXPECT_EQ(WithCheckDigit("411111111111111"), "4111111111111111");
  EXPECT_EQ(WithCheckDigit("37828224631000"), "378282246310005");
  EXPECT_EQ(WithCheckDigit("555555555555444"), "5555555555554444");
  EXPECT_EQ(WithCheckDigit("601111111111111"), "6011111111111117");
  EXPECT_EQ(WithCheckDigit("3056930902590"), "30569309025904");
}

TEST(DemoSubRecords, CardsHaveNumbersOfTheirType) {
  const World world(1, kLastDay);
  std::set<char> types;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto cards = MakeCards(world, identity, {"Smith", "John", ""});
    ASSERT_EQ(static_cast<int>(cards.size()), CardCount(world, identity));
    for (const auto& card : cards) {
      types.insert(card.type);
      ASSERT_TRUE(CheckDigitIsRight(card.number)) << card.number;
      const std::string start = card.number.substr(0, 2);
      switch (card.type) {
        case 'V':
          ASSERT_TRUE(card.number.starts_with("4") && card.number.size() == 16) << card.number;
          break;
        case 'M':
          ASSERT_TRUE(start >= "51" && start <= "55" && card.number.size() == 16) << card.number;
          break;
        case 'A':
          ASSERT_TRUE((start == "34" || start == "37") && card.number.size() == 15) << card.number;
          break;
        case 'D':
          ASSERT_TRUE(card.number.starts_with("6011") && card.number.size() == 16) << card.number;
          break;
        case 'C':
          ASSERT_TRUE(card.number.starts_with("30") && card.number.size() == 14) << card.number;
          break;
        default:
          FAIL() << card.type;
      }
      ASSERT_EQ(card.month.size(), 2U);
      ASSERT_TRUE(card.month >= "01" && card.month <= "12");
      ASSERT_TRUE(card.year >= "2024" && card.year <= "2029") << card.year;
    }
  }
  EXPECT_EQ(types, (std::set<char>{'A', 'C', 'D', 'M', 'V'}));
}

TEST(DemoSubRecords, PhonesFitAndBelongToTheCity) {
  const World world(1, kLastDay);
  int phones = 0;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto list = MakePhones(world, identity);
    ASSERT_EQ(static_cast<int>(list.size()), PhoneCount(world, identity));
    phones += static_cast<int>(list.size());
    for (const auto& phone : list) {
      ASSERT_EQ(phone.area, identity.city->area);
      ASSERT_EQ(phone.number.size(), 7U);
      ASSERT_TRUE(phone.number.starts_with("555"));
      ASSERT_LE(phone.extension.size(), 5U);
      ASSERT_LE(phone.comment.size(), 20U);
      ASSERT_NE(std::string("CFHPW").find(phone.type), std::string::npos);
    }
  }
  EXPECT_NEAR(phones, kSample * 1.3, 500);
}

TEST(DemoSubRecords, AddressesFit) {
  const World world(1, kLastDay);
  int addresses = 0;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto list = MakeAddresses(world, identity);
    ASSERT_EQ(static_cast<int>(list.size()), AddressCount(world, identity));
    addresses += static_cast<int>(list.size());
    for (const auto& address : list) {
      ASSERT_LE(platform::CharacterCount(address.street.line1), 30U);
      ASSERT_TRUE(address.firstMonth >= 0 && address.firstMonth <= 12);
      ASSERT_EQ(address.firstMonth == 0, address.lastMonth == 0);
    }
  }
  EXPECT_NEAR(addresses, kSample * 0.1, 250);
}

TEST(DemoSubRecords, LaborRatesAreForDepartmentalCustomersAlone) {
  const World world(1, kLastDay);
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto rates = MakeLaborRates(world, identity);
    ASSERT_EQ(identity.laborRateType == 'D', !rates.empty());
    std::set<std::string> departments;
    for (const auto& rate : rates) ASSERT_TRUE(departments.insert(rate.department).second);
  }
}

TEST(DemoSubRecords, TypesAndKeyWordsAreKnownAndDifferent) {
  const World world(1, kLastDay);
  std::size_t types = 0;
  std::size_t words = 0;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto codes = MakeTypes(world, identity);
    const auto places = MakeKeyWords(world, identity);
    ASSERT_EQ(std::set<std::int16_t>(codes.begin(), codes.end()).size(), codes.size());
    ASSERT_EQ(std::set<std::size_t>(places.begin(), places.end()).size(), places.size());
    for (const auto code : codes) ASSERT_TRUE(code >= 1 && static_cast<std::size_t>(code) <= CustomerTypes().size());
    for (const auto place : places) ASSERT_LT(place, KeyWords().size());
    types += codes.size();
    words += places.size();
  }
  EXPECT_NEAR(static_cast<double>(types), kSample * 0.6, kSample * 0.1);
  EXPECT_NEAR(static_cast<double>(words), kSample * 0.4, kSample * 0.1);
}

TEST(DemoSubRecords, ParentsAreCompaniesOfLowerNumber) {
  const World world(1, kLastDay);
  std::set<std::int32_t> parents;
  int children = 0;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto parent = MakeParent(world, MakeIdentity(world, account));
    if (parent == 0) continue;
    ++children;
    parents.insert(parent);
    ASSERT_LT(parent, account);
    ASSERT_TRUE(MakeIdentity(world, parent).company);
  }
  EXPECT_NEAR(children, kSample * 0.03, 110);
  EXPECT_LT(parents.size(), static_cast<std::size_t>(children)) << "some parents have several children";
}

TEST(DemoSubRecords, TransactionsHaveNumbersOfTheirOwn) {
  const World world(1, kLastDay);
  std::set<std::string> invoices;
  std::size_t transactions = 0;
  std::set<char> types;
  for (std::int32_t account = 1; account <= kSample; ++account) {
    const auto identity = MakeIdentity(world, account);
    const auto list = MakeTransactions(world, identity);
    transactions += list.size();
    if (identity.standing == Standing::Prospect) {
      ASSERT_TRUE(list.empty());
    }
    for (const auto& each : list) {
      types.insert(each.type);
      ASSERT_LE(each.number.size(), 15U);
      if (each.type != 'P') {
        ASSERT_TRUE(invoices.insert(each.number).second) << each.number;
      }
    }
  }
  EXPECT_EQ(types, (std::set<char>{'C', 'I', 'P'}));
  EXPECT_NEAR(static_cast<double>(transactions), kSample * 1.75, kSample * 0.15);
}

TEST(DemoCodes, MapCodesAreAllDifferent) {
  std::set<std::string> codes;
  for (int number = 1; number <= kMapCodes; ++number) codes.insert(MapCode(number));
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(kMapCodes));
  EXPECT_EQ(MapCode(1), "A-1");
  EXPECT_EQ(MapCode(kMapCodes), "L-8");
}

}  // namespace
