#pragma once

#include <span>
#include <string_view>

/// The lists that invented customers are made of. Lists that say so begin with the commonest word.
namespace suitefiles::demo {

using Words = std::span<const std::string_view>;

Words Surnames();           ///< commonest first
Words SurnameBeginnings();  ///< of the rarer surnames
Words SurnameEndings();

Words MenNames();    ///< commonest first
Words WomenNames();  ///< commonest first

Words StreetNames();  ///< commonest first
Words StreetKinds();  ///< commonest first

Words CompanyAdjectives();
Words CompanyNouns();
Words CompanyTrades();
Words CompanyForms();

/// A real city with a run of ZIP codes that are all its own.
struct City {
  std::string_view name;
  std::string_view state;
  int firstZip;
  int lastZip;
  std::string_view area;  ///< telephone area code
};
std::span<const City> Cities();  ///< the invented company's own region first

}  // namespace suitefiles::demo
