#include "suitefiles/demo/customers.h"

#include <algorithm>
#include <array>

#include "platform/values/text.h"
#include "suitefiles/demo/codes.h"

namespace suitefiles::demo {

namespace {

constexpr std::size_t kMailWidth = 40;

/// The letters of a name in small, without accents and signs, for an address in a mail domain.
std::string PlainLetters(const std::string& name) {
  std::string letters;
  for (const char c : platform::ToLowerAscii(name)) {
    if (c >= 'a' && c <= 'z') letters += c;
  }
  return letters;
}

std::string MakeMail(const Name& name, Random& random) {
  // Domains that are kept for examples: no mail can go astray.
  constexpr std::array<std::string_view, 3> kDomains = {"example.com", "example.net", "example.org"};
  const std::string last = PlainLetters(name.last);
  if (last.empty()) return "";
  const std::string first = PlainLetters(name.first);
  std::string user = first.empty() ? "office." + last : first.substr(0, 1) + last;
  if (random.PerMille(400)) user += std::to_string(random.Between(1, 99));
  const std::string mail = user + "@" + std::string(random.Pick(std::span<const std::string_view>(kDomains)));
  return mail.size() <= kMailWidth ? mail : "";
}

std::string MakeSite(const Name& name) {
  const std::string site = "www." + PlainLetters(name.last).substr(0, 20) + ".example.com";
  return site.size() <= kMailWidth ? site : "";
}

std::string MakeComments(Random& random) {
  constexpr std::array<std::string_view, 18> kNotes = {"Call ahead.",
                                                       "Dog in the yard.",
                                                       "Key at the office.",
                                                       "Use the side door.",
                                                       "Gate code 4471.",
                                                       "Prefers mornings.",
                                                       "Prefers afternoons.",
                                                       "Bill the owner, not the tenant.",
                                                       "Needs a purchase order.",
                                                       "Water shut-off is behind the furnace.",
                                                       "Boiler replaced by us.",
                                                       "Two units on the roof.",
                                                       "Asks for the same technician.",
                                                       "Warranty until next year.",
                                                       "Do not leave voice mail.",
                                                       "Park in the alley.",
                                                       "Slow to pay, call first.",
                                                       "Service contract, twice a year."};
  std::string text;
  const int notes = random.Between(1, 4);
  for (int i = 0; i < notes; ++i) text += (i > 0 ? " " : "") + std::string(random.Pick(std::span<const std::string_view>(kNotes)));
  return text;
}

/// State, county and city where the customer is; the company collects none elsewhere. Some companies owe use tax.
void SetTaxes(Account& account, const Identity& identity, bool useTax) {
  const auto state = identity.city->state;
  const auto city = identity.city->name;
  constexpr std::array<std::string_view, 8> kHennepin = {"Minneapolis",  "Bloomington", "Plymouth",   "Maple Grove",
                                                         "Eden Prairie", "Edina",       "Minnetonka", "Brooklyn Park"};
  account.taxes[0] = state == "MN" ? Minnesota : state == "WI" ? Wisconsin : state == "IA" ? Iowa : state == "ND" ? NorthDakota : NoTax;
  if (state == "MN") {
    if (std::find(kHennepin.begin(), kHennepin.end(), city) != kHennepin.end()) account.taxes[1] = HennepinCounty;
    if (city == "Saint Paul") account.taxes[1] = RamseyCounty;
    account.taxes[2] = city == "Minneapolis" ? Minneapolis : city == "Saint Paul" ? SaintPaul : city == "Duluth" ? Duluth : NoTax;
  }
  if (useTax && identity.company) account.taxes[3] = state == "MN" ? MinnesotaUse : state == "WI" ? WisconsinUse : NoTax;
}

}  // namespace

Identity MakeIdentity(const World& world, std::int32_t account) {
  Random random(world.seed, static_cast<std::uint64_t>(account), Stream::Kind);
  Identity identity;
  identity.account = account;
  identity.company = random.PerMille(200);
  const auto standing = random.Below(1000);
  identity.standing = standing < 70 ? Standing::Inactive : standing < 120 ? Standing::Prospect : Standing::Active;
  const auto rate = random.Below(1000);
  identity.laborRateType = rate < 80 ? 'D' : rate < 200 ? 'C' : 'N';
  identity.city = &Cities()[world.cities.Pick(random)];
  return identity;
}

Contact MakeContact(const World& world, const Identity& identity) {
  const auto account = static_cast<std::uint64_t>(identity.account);
  Random person(world.seed, account, Stream::Person);
  Random address(world.seed, account, Stream::Address);
  Contact contact;
  contact.name = identity.company ? MakeCompany(world, person, *identity.city) : MakePerson(world, person);
  contact.street = MakeStreet(world, address, identity.company);
  contact.zip = MakeZip(*identity.city, address);
  if (person.PerMille(380)) contact.eMail = MakeMail(contact.name, person);
  if (identity.company && person.PerMille(350)) contact.webSite = MakeSite(contact.name);
  return contact;
}

Account MakeAccount(const World& world, const Identity& identity) {
  Random random(world.seed, static_cast<std::uint64_t>(identity.account), Stream::Account);
  Account account;
  constexpr std::array<std::int32_t, 10> kTerms = {4, 4, 4, 4, 1, 1, 2, 3, 6, 7};
  account.terms = random.Pick(std::span<const std::int32_t>(kTerms));
  account.nonBillable = random.PerMille(40);
  if (random.PerMille(identity.company ? 90 : 5)) {
    account.taxId = "ES-" + std::to_string(random.Between(100000, 999999));
    if (random.PerMille(700)) account.exemptUntil = world.lastDay + random.Between(-400, 1500);
  }
  if (!random.PerMille(30)) account.ageFromInvoice = !random.PerMille(100);
  if (!random.PerMille(30)) account.noFinanceCharge = random.PerMille(60);
  const auto limit = random.Below(100);
  if (limit >= 60)
    account.creditLimit = limit < 72 ? 0 : static_cast<std::int64_t>(random.Between(1, identity.company ? 100 : 20)) * 25'000;
  account.creditHold = random.PerMille(15);
  if (random.PerMille(700)) account.mapCode = random.Between(1, kMapCodes);
  if (identity.company) account.salesRate = random.PerMille(600) ? 'T' : 'L';
  if (random.PerMille(25)) account.salesRate = random.PerMille(500) ? 'A' : 'B';
  if (random.PerMille(90)) account.salesRatePercent = static_cast<double>(random.Between(-40, 60)) / 2;
  if (identity.laborRateType == 'C') account.laborRate = static_cast<std::int64_t>(random.Between(12, 52)) * 250;
  if (account.taxId.empty()) SetTaxes(account, identity, random.PerMille(60));
  if (random.PerMille(160)) account.comments = MakeComments(random);
  return account;
}

History MakeHistory(const World& world, const Identity& identity) {
  Random random(world.seed, static_cast<std::uint64_t>(identity.account), Stream::Money);
  History history;
  int age = static_cast<int>(random.Skewed(std::int64_t{22} * 365));
  age += random.Between(0, 900);
  history.entry = world.lastDay - age;
  if (identity.standing == Standing::Prospect) return history;

  const std::int64_t yearly = random.Skewed(identity.company ? 4'000'000 : 450'000);
  const bool active = identity.standing == Standing::Active;
  if (active) {
    history.paidThisYear = yearly * random.Between(0, 60) / 100;
    if (random.PerMille(250)) history.paidThisMonth = history.paidThisYear * random.Between(1, 40) / 100;
    if (random.PerMille(350)) history.balance = random.Skewed(identity.company ? 1'500'000 : 120'000);
    if (random.PerMille(15)) history.balance = -random.Skewed(20'000);
    if (history.balance > 5'000 && random.PerMille(120)) history.financeCharge = history.balance * 3 / 200;
  }
  if (age > 365) history.paidLastYear = yearly * random.Between(0, 110) / 100;
  history.paidToDate = history.paidThisYear + history.paidLastYear;
  if (age > 730) history.paidToDate += yearly * (age / 365 - 1) * random.Between(20, 100) / 100;

  const int quiet = active ? static_cast<int>(random.Skewed(std::min(age, 900))) : std::min(age, random.Between(400, 2500));
  history.lastTransaction = world.lastDay - quiet;
  history.lastOrder = std::max(history.entry, *history.lastTransaction - random.Between(0, 45));
  if (history.balance > 0) history.lastStatement = world.lastDay - random.Between(0, 27);
  if (history.paidToDate > 0) history.lastPayment = std::max(history.entry, *history.lastTransaction - random.Between(0, 30));
  return history;
}

}  // namespace suitefiles::demo
