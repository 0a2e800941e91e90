#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The code tables of an invented company. Numbers count from 1.
namespace suitefiles::demo {

inline constexpr int kMapCodes = 96;

/// Numbers of the tax rates, in the order in which AddDemoCodes adds them.
enum TaxRate : std::int32_t {
  NoTax,
  Minnesota,
  Wisconsin,
  Iowa,
  NorthDakota,
  HennepinCounty,
  RamseyCounty,
  Minneapolis,
  SaintPaul,
  Duluth,
  MinnesotaUse,
  WisconsinUse,
  LastTaxRate = WisconsinUse
};

std::string MapCode(int number);
std::span<const std::string_view> CustomerTypes();
std::span<const std::string_view> KeyWords();

/// Fills the code tables of a customer file.
void AddDemoCodes(const std::string& customerFile);

}  // namespace suitefiles::demo
