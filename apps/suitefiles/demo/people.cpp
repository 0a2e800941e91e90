#include "suitefiles/demo/people.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/values/text.h"

namespace suitefiles::demo {

namespace {

constexpr std::size_t kLine = 30;
constexpr std::size_t kFirstName = 15;

std::vector<std::uint32_t> Ends(std::size_t size, double first) {
  std::vector<std::uint32_t> ends;
  std::uint32_t sum = 0;
  for (std::size_t rank = 1; rank <= size; ++rank) {
    sum += static_cast<std::uint32_t>(first / std::sqrt(static_cast<double>(rank)));
    ends.push_back(sum);
  }
  return ends;
}

bool Fits(const std::string& text, std::size_t characters) { return platform::CharacterCount(text) <= characters; }

std::string Digits(int number, std::size_t places) {
  std::string text = std::to_string(number);
  return text.size() < places ? std::string(places - text.size(), '0') + text : text;
}

std::string Ordinal(int number) {
  const int tens = number / 10 % 10;
  const int ones = number % 10;
  const char* ending = tens == 1 ? "th" : ones == 1 ? "st" : ones == 2 ? "nd" : ones == 3 ? "rd" : "th";
  return std::to_string(number) + ending;
}

std::string CommonSurname(const World& world, Random& random) {
  const auto place = world.surnames.Pick(random);
  return std::string(Surnames()[std::min(place, Surnames().size() - 1)]);
}

// Draws that depend on each other stand in statements of their own: the order inside an expression is the compiler's.
std::string RareSurname(Random& random) {
  std::string name(random.Pick(SurnameBeginnings()));
  name += random.Pick(SurnameEndings());
  return random.PerMille(45) ? "Mc" + name : name;
}

std::string CompanyStem(const World& world, Random& random, const City& city) {
  const auto pattern = random.Below(100);
  const std::string trade(random.Pick(CompanyTrades()));
  const std::string adjective(random.Pick(CompanyAdjectives()));
  const std::string noun(random.Pick(CompanyNouns()));
  if (pattern < 34) {
    const std::string owner = MakeSurname(world, random);
    return owner + (random.PerMille(250) ? "'s " : " ") + trade;
  }
  if (pattern < 62) return adjective + " " + trade;
  if (pattern < 80) return adjective + " " + noun;
  if (pattern >= 90) return std::string(city.name) + " " + trade;
  const std::string first = CommonSurname(world, random);
  const std::string second = CommonSurname(world, random);
  return first + " & " + (random.PerMille(300) ? "Sons" : second);
}

std::string MakeLine1(const World& world, Random& random) {
  constexpr std::array<std::string_view, 8> kDirections = {"N", "S", "E", "W", "NE", "NW", "SE", "SW"};
  const auto far = random.Skewed(15'000);
  const std::string number = std::to_string(1 + far + random.Below(400));
  const std::string direction(random.Pick(std::span<const std::string_view>(kDirections)));
  if (random.PerMille(220)) {
    const std::string street = Ordinal(random.Between(1, 99));
    return number + " " + street + (random.PerMille(500) ? " Ave " : " St ") + direction;
  }
  std::string street(StreetNames()[world.streets.Pick(random)]);
  street += " " + std::string(StreetKinds()[world.streetKinds.Pick(random)]);
  const std::string withDirection = number + " " + direction.substr(0, 1) + " " + street;
  return random.PerMille(220) && Fits(withDirection, kLine) ? withDirection : number + " " + street;
}

std::string MakeLine2(Random& random, bool company) {
  if (company && random.PerMille(300)) return "Suite " + std::to_string(random.Between(1, 40) * 10);
  if (!company && random.PerMille(110)) {
    const std::string kind = random.PerMille(700) ? "Apt " : "Unit ";
    return kind + std::to_string(random.Between(1, 420));
  }
  return random.PerMille(15) ? "PO Box " + std::to_string(random.Between(10, 9999)) : "";
}

}  // namespace

Ranked::Ranked(std::size_t size, std::uint32_t firstPerMillion) : ends_(Ends(size, firstPerMillion)) {}

Ranked::Ranked(std::size_t size) : ends_(Ends(size, 1'000'000)) { all_ = ends_.back(); }

std::size_t Ranked::Pick(Random& random) const {
  const auto draw = random.Below(all_);
  return static_cast<std::size_t>(std::upper_bound(ends_.begin(), ends_.end(), draw) - ends_.begin());
}

// One person in a hundred is a Smith; with the companies among them that makes 8 customers in a thousand.
World::World(std::uint64_t randomSeed, int lastDayOfAll)
    : seed(randomSeed),
      lastDay(lastDayOfAll),
      surnames(Surnames().size(), 10'000),
      men(MenNames().size()),
      women(WomenNames().size()),
      streets(StreetNames().size()),
      streetKinds(StreetKinds().size()),
      cities(Cities().size()) {}

std::string MakeSurname(const World& world, Random& random) {
  const auto place = world.surnames.Pick(random);
  std::string name = place < Surnames().size() ? std::string(Surnames()[place]) : RareSurname(random);
  if (random.PerMille(9)) {
    const std::string both = name + "-" + CommonSurname(world, random);
    if (Fits(both, kLine)) name = both;
  }
  return name;
}

Name MakePerson(const World& world, Random& random) {
  const bool woman = random.PerMille(480);
  const auto man = MenNames()[world.men.Pick(random)];
  const auto lady = WomenNames()[world.women.Pick(random)];
  Name name{MakeSurname(world, random), std::string(woman ? lady : man), ""};
  const auto form = random.Below(100);
  if (form < 7) {
    const std::string both = std::string(man) + " & " + std::string(lady);
    if (Fits(both, kFirstName)) name.first = both;
  } else if (form < 16) {
    const std::string withInitial = name.first + " " + static_cast<char>('A' + random.Below(23)) + ".";
    if (Fits(withInitial, kFirstName)) name.first = withInitial;
  }
  if (name.first.find('&') != std::string::npos) {
    name.title = random.PerMille(300) ? "M/M" : "";
  } else if (random.PerMille(20)) {
    name.title = "Dr.";
  } else if (random.PerMille(680)) {
    name.title = !woman ? "Mr." : random.PerMille(550) ? "Mrs." : "Ms.";
  }
  return name;
}

Name MakeCompany(const World& world, Random& random, const City& city) {
  std::string name = CompanyStem(world, random, city);
  if (!Fits(name, kLine)) name = CommonSurname(world, random) + " Co.";
  const std::string withForm = name + " " + std::string(random.Pick(CompanyForms()));
  if (random.PerMille(420) && Fits(withForm, kLine)) name = withForm;
  return {name, "", ""};
}

Street MakeStreet(const World& world, Random& random, bool company) {
  Street street;
  street.line1 = MakeLine1(world, random);
  street.line2 = MakeLine2(random, company);
  return street;
}

std::string MakeZip(const City& city, Random& random) {
  const std::string zip = Digits(random.Between(city.firstZip, city.lastZip), 5);
  return random.PerMille(250) ? zip + "-" + Digits(random.Between(1, 9998), 4) : zip;
}

}  // namespace suitefiles::demo
