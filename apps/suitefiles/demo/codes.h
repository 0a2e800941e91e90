#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The code tables of an invented company. Numbers count from 1.
namespace suitefiles::demo {

inline constexpr int kMapCodes = 96;
inline constexpr int kStateTaxRates = 4;
inline constexpr int kLocalTaxRates = 5;
inline constexpr int kOtherTaxRates = 2;

std::string MapCode(int number);
std::span<const std::string_view> CustomerTypes();
std::span<const std::string_view> KeyWords();

/// Fills the code tables of a customer file.
void AddDemoCodes(const std::string& customerFile);

}  // namespace suitefiles::demo
