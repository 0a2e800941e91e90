#include <cassert>

#include "suitefiles/company/table_writer.h"
#include "suitefiles/demo/codes.h"

namespace suitefiles::demo {

namespace {

constexpr std::string_view kTypes[] = {
    "Residential", "Commercial", "Property Management", "New Construction", "Service Contract", "Government",
    "School",      "Church",     "Restaurant",          "Health Care",      "Landlord",         "Builder",
    "Warranty",    "Newsletter", "Preferred Customer",  "Emergency Service"};

constexpr std::string_view kWords[] = {"Air Cleaner", "Backflow",   "Boiler",     "Commercial",   "Contract",    "Disposal",  "Drain",
                                       "Emergency",   "Faucet",     "Filter",     "Furnace",      "Garage Heat", "Gas Line",  "Generator",
                                       "Heat Pump",   "Humidifier", "Inspection", "Irrigation",   "Lake Cabin",  "Lighting",  "Panel",
                                       "Pool",        "Radiant",    "Referral",   "Remodel",      "Rental",      "Rooftop",   "Seasonal",
                                       "Senior",      "Septic",     "Sewer",      "Shower",       "Softener",    "Sump Pump", "Tankless",
                                       "Thermostat",  "VIP",        "Warranty",   "Water Heater", "Well"};

constexpr std::string_view kPlaces[] = {"Downtown",    "North Side", "Lake District", "Old Town",     "Airport",    "Hillcrest",
                                        "River Flats", "West End",   "Uptown",        "Mill Quarter", "East Ridge", "Southdale"};

struct Rate {
  const char* description;
  std::int32_t type;
  std::int32_t entity;
  const char* code;
  double material;
  double labor;
  double other;
  const char* account;
  std::int64_t limitCents;
};

constexpr const char* kTaxTypes[][2] = {
    {"State Sales Tax", "S"}, {"County Sales Tax", "S"}, {"City Sales Tax", "S"}, {"Use Tax", "U"}, {"Service Fee", "O"}};
constexpr const char* kEntities[] = {"State of Minnesota",    "State of Wisconsin", "State of Iowa",
                                     "State of North Dakota", "Hennepin County",    "Ramsey County",
                                     "City of Minneapolis",   "City of Saint Paul", "City of Duluth"};

// In the order of the enumeration TaxRate.
constexpr Rate kRates[] = {{"Minnesota State", 1, 1, "MN", 6.875, 0, 6.875, "22000000", 0},
                           {"Wisconsin State", 1, 2, "WI", 5, 5, 5, "22000000", 0},
                           {"Iowa State", 1, 3, "IA", 6, 6, 6, "22000000", 0},
                           {"North Dakota State", 1, 4, "ND", 5, 0, 5, "22000000", 250'000},
                           {"Hennepin County", 2, 5, "HENN", 0.15, 0, 0.15, "22100000", 0},
                           {"Ramsey County", 2, 6, "RAM", 0.5, 0, 0.5, "22100000", 0},
                           {"Minneapolis City", 3, 7, "MPLS", 0.5, 0, 0.5, "22200000", 0},
                           {"Saint Paul City", 3, 8, "STP", 0.5, 0, 0.5, "22200000", 0},
                           {"Duluth City", 3, 9, "DUL", 1.5, 0, 1.5, "22200000", 0},
                           {"Minnesota Use Tax", 4, 1, "MNU", 6.875, 0, 0, "22300000", 0},
                           {"Wisconsin Use Tax", 4, 2, "WIU", 5, 0, 0, "22300000", 0}};
static_assert(std::size(kRates) == LastTaxRate);

void AddTaxes(const std::string& file) {
  TableWriter types(file, "TaxTypes", {"TaxType", "TypeDescription", "TypeCode"});
  std::int32_t number = 0;
  for (const auto& type : kTaxTypes) types.Row(++number, type[0], type[1]);
  types.Finish();

  TableWriter entities(file, "TaxEntities", {"TaxEntity", "EntityDescription"});
  number = 0;
  for (const char* entity : kEntities) entities.Row(++number, entity);
  entities.Finish();

  TableWriter rates(file, "TaxGrid",
                    {"TaxID", "Description", "TaxType", "TaxEntity", "TaxCode", "Mat", "Lab", "Oth", "GLMat", "GLLab", "GLOth", "Limit",
                     "LimitTransType"});
  number = 0;
  for (const auto& rate : kRates) {
    const auto accountFor = [&](double percent) { return percent > 0 ? rate.account : "00000000"; };
    rates.Row(++number, rate.description, rate.type, rate.entity, rate.code, rate.material, rate.labor, rate.other,
              accountFor(rate.material), accountFor(rate.labor), accountFor(rate.other), Cents(rate.limitCents), "I");
  }
  rates.Finish();
}

}  // namespace

std::string MapCode(int number) {
  assert(number >= 1 && number <= kMapCodes);
  const int place = number - 1;
  return std::string(1, static_cast<char>('A' + place / 8)) + "-" + std::to_string(place % 8 + 1);
}

std::span<const std::string_view> CustomerTypes() { return kTypes; }
std::span<const std::string_view> KeyWords() { return kWords; }

void AddDemoCodes(const std::string& customerFile) {
  TableWriter types(customerFile, "DataCodes", {"Code", "Description"});
  std::int16_t code = 0;
  for (const auto type : kTypes) types.Row(++code, type);
  types.Finish();

  TableWriter words(customerFile, "Keywords", {"Keyword"});
  for (const auto word : kWords) words.Row(word);
  words.Finish();

  TableWriter places(customerFile, "Locations", {"MapCode", "Location"});
  for (int number = 1; number <= kMapCodes; ++number) {
    const std::string place(kPlaces[static_cast<std::size_t>(number - 1) / 8]);
    places.Row(MapCode(number), place + " " + std::to_string((number - 1) % 8 + 1));
  }
  places.Finish();

  AddTaxes(customerFile);
}

}  // namespace suitefiles::demo
