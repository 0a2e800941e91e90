#pragma once

#include <string>
#include <vector>

/// What a test asks of the query screen: a level for each criterion, 0 for one that is off. The levels and their values stand in
/// question.cpp.
namespace question {

/// Criteria by their place in a question.
inline constexpr int kTexts = 8;        ///< 0 to 7: contains, exactly matches, starts with, ends with
inline constexpr int kPhoneNumber = 8;  ///< beside the phone criterion: area alone, area and number, number alone
inline constexpr int kStatus = 9;       ///< active, inactive, prospect
inline constexpr int kInvoice = 10;     ///< standard, alternate
inline constexpr int kCard = 11;        ///< as the texts
inline constexpr int kKeyWords = 12;    ///< one row, two rows
inline constexpr int kTypes = 13;       ///< one row, two rows
inline constexpr int kBilling = 14;     ///< billable, non-billable
inline constexpr int kCheck = 15;       ///< on
inline constexpr int kTaxID = 16;       ///< on
inline constexpr int kFinance = 17;     ///< calculate, omit
inline constexpr int kAmounts = 18;     ///< 18 to 29: on
inline constexpr int kDates = 30;       ///< 30 to 41: on
inline constexpr int kCriteria = 42;

using Levels = std::vector<int>;

std::vector<int> LevelCounts();

/// A way of comparing: its code and the item that a user picks.
struct Way {
  char code;
  const char* shown;
};
inline constexpr Way kWays[] = {{'c', "contains"}, {'x', "exactly matches"}, {'s', "starts with"}, {'e', "ends with"}};

/// What is entered for a text at a level, for the number beside the area, and for a card.
std::string TextValue(int text, int level);
std::string NumberValue(int level);
std::string CardValue(int level);
/// What is entered for an amount or a date; "" leaves the box as it comes.
std::string AmountEntry(int amount);
std::string DateEntry(int date);
inline constexpr const char* kStandardInvoice = "INV'7";
inline constexpr const char* kAlternateInvoice = "77";
inline constexpr const char* kCheckNumber = "5005";
inline constexpr const char* kTaxNumber = "MN-1";

/// The whole statement.
std::string Statement(const Levels& levels);

}  // namespace question
