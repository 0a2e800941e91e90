#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "suitefiles/demo/customers.h"

/// The rows that hang on a customer. How many there are can be asked without making them.
namespace suitefiles::demo {

struct Phone {
  std::string area;
  std::string number;
  std::string extension;
  char type = 'H';
  std::string comment;
};
int PhoneCount(const World& world, const Identity& identity);
std::vector<Phone> MakePhones(const World& world, const Identity& identity);

struct Address {
  Street street;
  const City* city = nullptr;
  std::string zip;
  std::string comment;
  std::int16_t firstMonth = 0;
  std::int16_t lastMonth = 0;
};
int AddressCount(const World& world, const Identity& identity);
std::vector<Address> MakeAddresses(const World& world, const Identity& identity);

struct Card {
  char type = 'V';
  std::string number;
  std::string holder;
  std::string month;
  std::string year;
  std::int64_t limit = 0;  ///< cents
};
int CardCount(const World& world, const Identity& identity);
std::vector<Card> MakeCards(const World& world, const Identity& identity, const Name& name);

struct LaborRate {
  std::string department;
  double adjustment = 0;
};
/// Only customers with departmental rates have any; the departments are those of a new company.
std::vector<LaborRate> MakeLaborRates(const World& world, const Identity& identity);

/// Numbers of customer types, ascending; places of key words, ascending.
std::vector<std::int16_t> MakeTypes(const World& world, const Identity& identity);
std::vector<std::size_t> MakeKeyWords(const World& world, const Identity& identity);

/// The parent's account number, 0 for none: a company of a lower number.
std::int32_t MakeParent(const World& world, const Identity& identity);

struct Transaction {
  char type = 'I';  ///< I invoice, P payment, C credit
  std::string number;
  std::int32_t otherNumber = 0;
};
std::vector<Transaction> MakeTransactions(const World& world, const Identity& identity);

/// The digits with the check digit that card numbers end with.
std::string WithCheckDigit(const std::string& digits);

}  // namespace suitefiles::demo
