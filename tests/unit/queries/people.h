#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "question.h"

/// Customers with their phones, cards, papers, words and types, the same ones each time. Most of them answer to most criteria, so that
/// questions of many criteria still find some; some lack values (nothing: Null).
struct Person {
  std::int32_t account = 0;
  std::optional<std::string> text[7];  ///< by criterion
  std::optional<std::string> addr2;
  int status = 0;
  bool nonBillable = false;
  std::optional<std::string> taxID;
  std::optional<bool> omitFinance;
  double amount[6] = {};
  std::optional<int> day[6];  ///< days since 1/1/2024
  struct Phone {
    std::string area, number;
  };
  struct Paper {
    std::string kind, number;
    std::int32_t alternate;
  };
  std::vector<Phone> phones;
  std::vector<Paper> papers;
  std::vector<std::string> cards;
  std::vector<std::string> words;
  std::vector<int> types;
};

std::vector<Person> MakePeople(int count);

/// Writes them into the company's files, and the setup rows of words (Boiler, Drain, Pump) and types (3, 5, 7).
void WritePeople(const std::vector<Person>& people, const std::string& customerFile, const std::string& transactionFile);

/// Whether the question finds the person, by looking at his values one by one.
bool Answers(const Person& person, const question::Levels& levels);

/// Accounts that the question finds, in the order of the last name: those without one first, then by account.
std::vector<std::int32_t> Found(const std::vector<Person>& people, const question::Levels& levels);
