#include "suitefiles/demo/sub_records.h"

#include <algorithm>
#include <array>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "suitefiles/demo/codes.h"

namespace suitefiles::demo {

namespace {

Random RandomFor(const World& world, const Identity& identity, Stream stream) {
  return {world.seed, static_cast<std::uint64_t>(identity.account), stream};
}

std::string SomeDigits(Random& random, int count) {
  std::string digits;
  for (int i = 0; i < count; ++i) digits += static_cast<char>('0' + random.Below(10));
  return digits;
}

/// How many rows, by shares of a thousand for 0, 1, 2, ... rows.
template <std::size_t N>
int Draw(Random& random, const std::array<int, N>& shares) {
  int draw = static_cast<int>(random.Below(1000));
  for (std::size_t i = 0; i < N; ++i) {
    if (draw < shares[i]) return static_cast<int>(i);
    draw -= shares[i];
  }
  return static_cast<int>(N);
}

int DrawPhones(Random& random) { return Draw(random, std::array{50, 650, 255}); }
int DrawAddresses(Random& random) { return Draw(random, std::array{920, 60}); }
int DrawCards(Random& random) { return Draw(random, std::array{790, 170}); }

/// `count` different places of a list of `size`, ascending, the first places oftenest.
std::vector<std::size_t> DifferentPlaces(Random& random, int count, std::size_t size) {
  std::vector<std::size_t> places;
  for (int i = 0; i < count; ++i) {
    auto place = static_cast<std::size_t>(random.Skewed(static_cast<std::int64_t>(size)));
    place += random.Below(6);
    if (place < size && std::find(places.begin(), places.end(), place) == places.end()) places.push_back(place);
  }
  std::sort(places.begin(), places.end());
  return places;
}

Card MakeCard(const World& world, Random& random, const Name& name) {
  // Ranges that the card companies keep for tests; the rest of the number is free.
  struct Range {
    char type;
    const char* start;
    int free;
  };
  constexpr std::array<Range, 8> kRanges = {{{'V', "41111111111", 4},
                                             {'V', "40128888888", 4},
                                             {'V', "41111111111", 4},
                                             {'M', "55555555555", 4},
                                             {'M', "51051051051", 4},
                                             {'D', "60111111111", 4},
                                             {'A', "3782822463", 4},
                                             {'C', "305693090", 4}}};
  const auto& range = random.Pick(std::span<const Range>(kRanges));
  Card card;
  card.type = range.type;
  card.number = WithCheckDigit(range.start + SomeDigits(random, range.free));
  const std::string holder = name.first.empty() ? name.last : name.first + " " + name.last;
  card.holder = platform::Left(holder, 30);
  const int month = random.Between(1, 12);
  card.month = (month < 10 ? "0" : "") + std::to_string(month);
  card.year = std::to_string(platform::CalendarOf({static_cast<double>(world.lastDay)}).year + random.Between(-1, 4));
  card.limit = static_cast<std::int64_t>(random.Between(0, 40)) * 25'000;
  return card;
}

}  // namespace

int PhoneCount(const World& world, const Identity& identity) {
  auto random = RandomFor(world, identity, Stream::Phones);
  return DrawPhones(random);
}

std::vector<Phone> MakePhones(const World& world, const Identity& identity) {
  constexpr std::array<std::string_view, 6> kComments = {"After 5 pm",      "Best number", "Answering machine",
                                                         "Ask for manager", "Tenant",      "Weekends"};
  constexpr std::array<char, 6> kMore = {'C', 'C', 'W', 'F', 'P', 'H'};
  auto random = RandomFor(world, identity, Stream::Phones);
  std::vector<Phone> phones(static_cast<std::size_t>(DrawPhones(random)));
  for (std::size_t i = 0; i < phones.size(); ++i) {
    auto& phone = phones[i];
    // The exchange 555 is nobody's.
    phone.area = identity.city->area;
    phone.number = "555" + SomeDigits(random, 4);
    phone.type = i > 0 ? random.Pick(std::span<const char>(kMore)) : identity.company ? 'W' : 'H';
    if (phone.type == 'W' && random.PerMille(250)) phone.extension = std::to_string(random.Between(10, 4999));
    if (random.PerMille(80)) phone.comment = random.Pick(std::span<const std::string_view>(kComments));
  }
  return phones;
}

int AddressCount(const World& world, const Identity& identity) {
  auto random = RandomFor(world, identity, Stream::Addresses);
  return DrawAddresses(random);
}

std::vector<Address> MakeAddresses(const World& world, const Identity& identity) {
  constexpr std::array<std::string_view, 6> kComments = {"Winter home", "Lake cabin", "Billing office",
                                                         "Rental unit", "Job site",   "Parents"};
  auto random = RandomFor(world, identity, Stream::Addresses);
  std::vector<Address> addresses(static_cast<std::size_t>(DrawAddresses(random)));
  for (auto& address : addresses) {
    address.city = random.PerMille(600) ? identity.city : &Cities()[world.cities.Pick(random)];
    address.street = MakeStreet(world, random, identity.company);
    address.zip = MakeZip(*address.city, random);
    const auto comment = random.Below(kComments.size() + 2);
    if (comment < kComments.size()) address.comment = kComments.at(comment);
    if (comment == 0) {
      address.firstMonth = 11;
      address.lastMonth = 3;
    } else if (comment == 1) {
      address.firstMonth = 5;
      address.lastMonth = 9;
    }
  }
  return addresses;
}

int CardCount(const World& world, const Identity& identity) {
  auto random = RandomFor(world, identity, Stream::Cards);
  return DrawCards(random);
}

std::vector<Card> MakeCards(const World& world, const Identity& identity, const Name& name) {
  auto random = RandomFor(world, identity, Stream::Cards);
  std::vector<Card> cards(static_cast<std::size_t>(DrawCards(random)));
  for (auto& card : cards) card = MakeCard(world, random, name);
  return cards;
}

std::vector<LaborRate> MakeLaborRates(const World& world, const Identity& identity) {
  constexpr std::array<std::string_view, 9> kDepartments = {"100", "110", "200", "210", "220", "300", "310", "400", "500"};
  if (identity.laborRateType != 'D') return {};
  auto random = RandomFor(world, identity, Stream::Rates);
  std::vector<LaborRate> rates;
  for (const auto department : kDepartments) {
    if (random.PerMille(450)) rates.push_back({std::string(department), static_cast<double>(random.Between(-100, 100)) / 4});
  }
  if (rates.empty()) rates.push_back({"100", -5});
  return rates;
}

std::vector<std::int16_t> MakeTypes(const World& world, const Identity& identity) {
  auto random = RandomFor(world, identity, Stream::Types);
  const int count = Draw(random, std::array{520, 350, 100});
  std::vector<std::int16_t> types;
  for (const auto place : DifferentPlaces(random, count, CustomerTypes().size())) types.push_back(static_cast<std::int16_t>(place + 1));
  return types;
}

std::vector<std::size_t> MakeKeyWords(const World& world, const Identity& identity) {
  auto random = RandomFor(world, identity, Stream::Words);
  const int count = Draw(random, std::array{710, 190, 80});
  return DifferentPlaces(random, count, KeyWords().size());
}

std::int32_t MakeParent(const World& world, const Identity& identity) {
  auto random = RandomFor(world, identity, Stream::Parents);
  if (identity.account < 2 || !random.PerMille(30)) return 0;
  constexpr int kTries = 24;
  for (int i = 0; i < kTries; ++i) {
    // The first companies become the parents of many.
    const auto candidate = static_cast<std::int32_t>(1 + random.Skewed(identity.account - 1));
    if (MakeIdentity(world, candidate).company) return candidate;
  }
  return 0;
}

std::vector<Transaction> MakeTransactions(const World& world, const Identity& identity) {
  if (identity.standing == Standing::Prospect) return {};
  auto random = RandomFor(world, identity, Stream::Transactions);
  const int count = Draw(random, std::array{180, 280, 250, 150, 80, 40});
  std::vector<Transaction> transactions(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < transactions.size(); ++i) {
    auto& each = transactions[i];
    const auto kind = random.Below(100);
    each.type = kind < 55 ? 'I' : kind < 95 ? 'P' : 'C';
    if (each.type == 'P') {
      each.number = std::to_string(random.Between(1001, 9899));  // the customer's check
    } else {
      // Invoice numbers of one customer lie apart, those of neighbours do not meet.
      each.number = std::to_string(100'000 + static_cast<std::int64_t>(identity.account) * 8 + static_cast<std::int64_t>(i));
    }
    if (random.PerMille(300)) each.otherNumber = random.Between(1, 99'999);
  }
  return transactions;
}

std::string WithCheckDigit(const std::string& digits) {
  int sum = 0;
  bool doubled = true;
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    int value = *digit - '0';
    if (doubled) value = value * 2 > 9 ? value * 2 - 9 : value * 2;
    sum += value;
    doubled = !doubled;
  }
  return digits + static_cast<char>('0' + (10 - sum % 10) % 10);
}

}  // namespace suitefiles::demo
