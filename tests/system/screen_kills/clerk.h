#pragma once

#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "system/screen_kills/books.h"

namespace system_test {

/// One commit.
struct Step {
  std::function<void(Books&)> apply;
  const char* table = "";  ///< what it writes
  std::string key;
};

/// What the user does at one go, and what it writes.
struct Operation {
  std::string kind;                 ///< "phone added" ...
  std::vector<std::string> before;  ///< commands that write nothing to the company's file
  std::vector<std::string> write;   ///< the command that writes
  std::vector<std::string> after;
  std::vector<Step> steps;  ///< in the order in which they are committed; a kill leaves the first k of them
  /// The rows of this table go first and in an order of the file's own: which of them went first is the file's matter.
  const char* anyOrder = nullptr;
};

/// A user who adds, changes and deletes every kind of record by the main screen's controls, and knows from the rules alone what
/// each act must leave in the file.
///
/// The rules write some records by several statements, each committed by itself. What a kill may leave of one act is the first
/// k of its commits, nothing else:
///
/// | act | commits, in their order |
/// | --- | --- |
/// | customer, phone, address, card added | its number is taken; the row; with a default box the customer's default fields (both of an
/// address in one) | | phone, address, card changed | the row; with a default box the customer's default fields | | customer changed | one
/// for each departmental rate that goes; the row, its taxes with it | | phone, address, card deleted | the row; the customer's default
/// fields that named it | | customer deleted | the row; sub-records, types and words stay, as the rules have it | | rate, type, word
/// changed or deleted, cell changed, box ticked | the row | | type, word added | the list's row; with the box the customer's row | | boxes
/// ticked together, percentage applied | one for each row, in the list's order | | all departments added | all rows at once |
///
/// In the catalogue of reports an act is the row; runs write the user's temporary file alone, and what a killed one has left there is
/// in no later one's way.
///
/// On the setup screens and with the user's options an act is the row alone; a new map code, tax type, entity or rate takes its
/// number first.
///
/// A row is never there by some of its fields, and no other row changes.
class Clerk {
 public:
  explicit Clerk(std::mt19937& chance) : chance_(chance) {}

  /// The next act on these books, of one of the kinds done least so far; the books are brought forward.
  Operation Next(Books& books);

  const std::map<std::string, int>& Planned() const { return planned_; }
  static std::vector<std::string> Kinds();

 private:
  using Make = std::optional<Operation> (Clerk::*)();
  struct Kind {
    const char* name;
    Make make;
  };
  static const std::vector<Kind>& AllKinds();

  // clerk_customers.cpp
  std::optional<Operation> AddCustomer();
  std::optional<Operation> ChangeCustomer();
  std::optional<Operation> GiveUpRates();
  std::optional<Operation> DeleteCustomer();
  std::optional<Operation> ChangeCustomerCell();
  void TickTaxes(Operation& act, Row& row);

  // clerk_sub_records.cpp
  std::optional<Operation> AddPhone();
  std::optional<Operation> ChangePhone();
  std::optional<Operation> DeletePhone();
  std::optional<Operation> ChangePhoneCell();
  std::optional<Operation> AddAddress();
  std::optional<Operation> ChangeAddress();
  std::optional<Operation> DeleteAddress();
  std::optional<Operation> AddCard();
  std::optional<Operation> ChangeCard();
  std::optional<Operation> DeleteCard();
  std::string ChooseOwned(const char* table, const char* owner);
  void SetDefaultAddresses(Operation& act, const std::string& acct, const std::string& id, int percent);

  // clerk_rates.cpp
  std::optional<Operation> AddRate();
  std::optional<Operation> ChangeRate();
  std::optional<Operation> DeleteRate();
  std::optional<Operation> AddAllDepartments();
  std::optional<Operation> ApplyPercentage();

  // clerk_lists.cpp
  std::optional<Operation> AddType();
  std::optional<Operation> ChangeType();
  std::optional<Operation> RenameTypeInTheList();
  std::optional<Operation> DeleteType();
  std::optional<Operation> TickType();
  std::optional<Operation> UntickType();
  std::optional<Operation> AssignTypes();
  std::optional<Operation> UnassignTypes();
  std::optional<Operation> AddWord();
  std::optional<Operation> ChangeWord();
  std::optional<Operation> DeleteWord();
  std::optional<Operation> TickWord();
  std::optional<Operation> UntickWord();
  std::optional<Operation> AssignWords();
  std::optional<Operation> UnassignWords();
  /// A text of a list: "type00000017".
  std::string ListText(const std::string& word);
  /// Whether any customer has the entry.
  bool HasAnybody(int tab, const std::string& entry);
  std::optional<Operation> Tick(int tab, bool tick);
  std::optional<Operation> TickTogether(int tab, bool tick);

  // clerk_setup.cpp
  std::optional<Operation> AddPhoneType();
  std::optional<Operation> ChangePhoneType();
  std::optional<Operation> RenamePhoneTypeInTheList();
  std::optional<Operation> DeletePhoneType();
  std::optional<Operation> AddCardType();
  std::optional<Operation> ChangeCardType();
  std::optional<Operation> RenameCardTypeInTheList();
  std::optional<Operation> DeleteCardType();
  std::optional<Operation> AddMapCode();
  std::optional<Operation> ChangeMapCode();
  std::optional<Operation> RenameMapCodeInTheList();
  std::optional<Operation> DeleteMapCode();
  std::string NextCode(const char* table);
  std::string ChooseFreeCode(const char* table, const char* field, const char* users, const char* used);

  // clerk_taxes.cpp
  std::optional<Operation> AddTaxType();
  std::optional<Operation> ChangeTaxType();
  std::optional<Operation> RenameTaxTypeInTheList();
  std::optional<Operation> DeleteTaxType();
  std::optional<Operation> AddTaxEntity();
  std::optional<Operation> ChangeTaxEntity();
  std::optional<Operation> RenameTaxEntityInTheList();
  std::optional<Operation> DeleteTaxEntity();
  std::optional<Operation> AddTaxRate();
  std::optional<Operation> ChangeTaxRate();
  std::optional<Operation> RenameTaxRateInTheList();
  std::optional<Operation> DeleteTaxRate();
  /// Types and entities, which have the same rules.
  std::optional<Operation> AddTaxClass(bool types);
  std::optional<Operation> ChangeTaxClass(bool types, bool inTheList);
  std::optional<Operation> DeleteTaxClass(bool types);

  // clerk_options.cpp
  std::optional<Operation> SaveOptions();

  // clerk_reports.cpp
  std::optional<Operation> RenameReport();
  std::optional<Operation> RestoreReportName();
  std::optional<Operation> MakeLabels();
  std::optional<Operation> RunOverAQuery();
  /// A report of the catalogue gets that name.
  std::optional<Operation> NameReport(const std::string& key, const std::string& name);

  // What all kinds use.
  using Rows = std::map<std::string, Row>;
  Rows& Table(const char* name) { return books_->tables[name]; }
  int Roll(int from, int to) { return std::uniform_int_distribution<int>(from, to)(chance_); }
  bool Chance(int percent) { return Roll(1, 100) <= percent; }
  /// A text that no other act writes.
  std::string Mark(const std::string& word) { return word + " " + std::to_string(++serial_); }
  std::string Digits(std::size_t count);
  /// A key of the table whose row passes; "" when there is none.
  std::string Choose(const char* table, const std::function<bool(const Row&)>& passes = {});
  /// Stands on the customer, on a tab.
  Operation At(const std::string& acct, int tab);
  std::string TakeNumber(Operation& act, const char* table);

  std::mt19937& chance_;
  Books* books_ = nullptr;
  std::map<std::string, int> planned_;
  int serial_ = 0;
};

// Commits.
Step Insert(const char* table, const std::string& key, Row row);
Step Remove(const char* table, const std::string& key);
Step Change(const char* table, const std::string& key, Row fields);

/// A word of a command in quotes.
std::string Quoted(const std::string& text);
/// `type CONTROL "TEXT"`.
std::string TypeInto(const std::string& control, const std::string& text);
/// `check NAME` or `uncheck NAME`.
std::string SetBox(const std::string& box, bool on);

void SaveCard(Operation& act);
void DeleteCurrent(Operation& act);

}  // namespace system_test
