#include "streets/address/states.h"

#include <algorithm>
#include <array>

namespace streets {

namespace {

struct State {
  std::string_view code;
  std::string_view name;
};

constexpr std::array kStates = {
    State{"AL", "ALABAMA"},
    State{"AK", "ALASKA"},
    State{"AZ", "ARIZONA"},
    State{"AR", "ARKANSAS"},
    State{"CA", "CALIFORNIA"},
    State{"CO", "COLORADO"},
    State{"CT", "CONNECTICUT"},
    State{"DE", "DELAWARE"},
    State{"DC", "DISTRICT OF COLUMBIA"},
    State{"FL", "FLORIDA"},
    State{"GA", "GEORGIA"},
    State{"HI", "HAWAII"},
    State{"ID", "IDAHO"},
    State{"IL", "ILLINOIS"},
    State{"IN", "INDIANA"},
    State{"IA", "IOWA"},
    State{"KS", "KANSAS"},
    State{"KY", "KENTUCKY"},
    State{"LA", "LOUISIANA"},
    State{"ME", "MAINE"},
    State{"MD", "MARYLAND"},
    State{"MA", "MASSACHUSETTS"},
    State{"MI", "MICHIGAN"},
    State{"MN", "MINNESOTA"},
    State{"MS", "MISSISSIPPI"},
    State{"MO", "MISSOURI"},
    State{"MT", "MONTANA"},
    State{"NE", "NEBRASKA"},
    State{"NV", "NEVADA"},
    State{"NH", "NEW HAMPSHIRE"},
    State{"NJ", "NEW JERSEY"},
    State{"NM", "NEW MEXICO"},
    State{"NY", "NEW YORK"},
    State{"NC", "NORTH CAROLINA"},
    State{"ND", "NORTH DAKOTA"},
    State{"OH", "OHIO"},
    State{"OK", "OKLAHOMA"},
    State{"OR", "OREGON"},
    State{"PA", "PENNSYLVANIA"},
    State{"RI", "RHODE ISLAND"},
    State{"SC", "SOUTH CAROLINA"},
    State{"SD", "SOUTH DAKOTA"},
    State{"TN", "TENNESSEE"},
    State{"TX", "TEXAS"},
    State{"UT", "UTAH"},
    State{"VT", "VERMONT"},
    State{"VA", "VIRGINIA"},
    State{"WA", "WASHINGTON"},
    State{"WV", "WEST VIRGINIA"},
    State{"WI", "WISCONSIN"},
    State{"WY", "WYOMING"},
    State{"AS", "AMERICAN SAMOA"},
    State{"GU", "GUAM"},
    State{"MP", "NORTHERN MARIANA ISLANDS"},
    State{"PR", "PUERTO RICO"},
    State{"VI", "VIRGIN ISLANDS"},
    State{"FM", "FEDERATED STATES OF MICRONESIA"},
    State{"MH", "MARSHALL ISLANDS"},
    State{"PW", "PALAU"},
    State{"AA", "ARMED FORCES AMERICAS"},
    State{"AE", "ARMED FORCES EUROPE"},
    State{"AP", "ARMED FORCES PACIFIC"},
};

/// Other ways to write them.
constexpr std::array kShort = {
    State{"DC", "D C"},
    State{"NC", "N CAROLINA"},
    State{"SC", "S CAROLINA"},
    State{"ND", "N DAKOTA"},
    State{"SD", "S DAKOTA"},
    State{"WV", "W VIRGINIA"},
    State{"NH", "N HAMPSHIRE"},
    State{"NJ", "N JERSEY"},
    State{"NM", "N MEXICO"},
    State{"NY", "N Y"},
    State{"NJ", "N J"},
    State{"CA", "CALIF"},
    State{"PA", "PENNA"},
    State{"PA", "PENN"},
    State{"MA", "MASS"},
    State{"CT", "CONN"},
    State{"TX", "TEX"},
    State{"FL", "FLA"},
    State{"MT", "MONT"},
    State{"WA", "WASH"},
    State{"OR", "ORE"},
    State{"MI", "MICH"},
    State{"MN", "MINN"},
    State{"TN", "TENN"},
    State{"IL", "ILL"},
    State{"WI", "WISC"},
    State{"WI", "WIS"},
    State{"CO", "COLO"},
    State{"AZ", "ARIZ"},
    State{"AR", "ARK"},
    State{"NE", "NEBR"},
    State{"OK", "OKLA"},
    State{"KS", "KANS"},
    State{"AL", "ALA"},
    State{"IN", "IND"},
    State{"WY", "WYO"},
    State{"NV", "NEV"},
    State{"VI", "U S VIRGIN ISLANDS"},
    State{"VI", "US VIRGIN ISLANDS"},
};

}  // namespace

bool IsStateCode(std::string_view word) {
  return word.size() == 2 && std::any_of(kStates.begin(), kStates.end(), [&](const State& state) { return state.code == word; });
}

std::string StateCode(std::string_view name) {
  if (IsStateCode(name)) return std::string(name);
  const auto isIt = [&](const State& state) { return state.name == name; };
  if (const auto* found = std::find_if(kStates.begin(), kStates.end(), isIt); found != kStates.end()) return std::string(found->code);
  if (const auto* found = std::find_if(kShort.begin(), kShort.end(), isIt); found != kShort.end()) return std::string(found->code);
  return "";
}

}  // namespace streets
