#include "system/screen_kills/clerk.h"

#include <algorithm>
#include <stdexcept>

namespace system_test {
namespace {

/// How far a kind may be ahead of the rarest one.
constexpr int kAhead = 10;

}  // namespace

Step Insert(const char* table, const std::string& key, Row row) {
  return {[table, key, row = std::move(row)](Books& books) { books.tables[table][key] = row; }, table, key};
}
Step Remove(const char* table, const std::string& key) {
  return {[table, key](Books& books) { books.tables[table].erase(key); }, table, key};
}
Step Change(const char* table, const std::string& key, Row fields) {
  return {[table, key, fields = std::move(fields)](Books& books) {
            Row& row = books.tables[table].at(key);
            for (const auto& [field, value] : fields) row.at(field) = value;
          },
          table, key};
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }
std::string TypeInto(const std::string& control, const std::string& text) { return "type " + control + " " + Quoted(text); }
std::string SetBox(const std::string& box, bool on) { return (on ? "check " : "uncheck ") + box; }

void SaveCard(Operation& act) { act.write = {"click tb_SaveRec"}; }

void DeleteCurrent(Operation& act) {
  act.before.push_back("answer Yes");
  act.write = {"click tb_DeleteRec"};
  act.after = {"expect box like \"Are you sure you delete*\""};
}

const std::vector<Clerk::Kind>& Clerk::AllKinds() {
  static const std::vector<Kind> kinds = {
      {"customer added", &Clerk::AddCustomer},
      {"customer changed", &Clerk::ChangeCustomer},
      {"customer deleted", &Clerk::DeleteCustomer},
      {"customer's rates given up", &Clerk::GiveUpRates},
      {"customer's cell changed", &Clerk::ChangeCustomerCell},
      {"phone added", &Clerk::AddPhone},
      {"phone changed", &Clerk::ChangePhone},
      {"phone deleted", &Clerk::DeletePhone},
      {"phone's cell changed", &Clerk::ChangePhoneCell},
      {"address added", &Clerk::AddAddress},
      {"address changed", &Clerk::ChangeAddress},
      {"address deleted", &Clerk::DeleteAddress},
      {"card added", &Clerk::AddCard},
      {"card changed", &Clerk::ChangeCard},
      {"card deleted", &Clerk::DeleteCard},
      {"rate added", &Clerk::AddRate},
      {"rate changed", &Clerk::ChangeRate},
      {"rate deleted", &Clerk::DeleteRate},
      {"all departments added", &Clerk::AddAllDepartments},
      {"percentage applied", &Clerk::ApplyPercentage},
      {"type added", &Clerk::AddType},
      {"type changed", &Clerk::ChangeType},
      {"type renamed in the list", &Clerk::RenameTypeInTheList},
      {"type deleted", &Clerk::DeleteType},
      {"type ticked", &Clerk::TickType},
      {"type unticked", &Clerk::UntickType},
      {"types assigned together", &Clerk::AssignTypes},
      {"types unassigned together", &Clerk::UnassignTypes},
      {"word added", &Clerk::AddWord},
      {"word changed", &Clerk::ChangeWord},
      {"word deleted", &Clerk::DeleteWord},
      {"word ticked", &Clerk::TickWord},
      {"word unticked", &Clerk::UntickWord},
      {"words assigned together", &Clerk::AssignWords},
      {"words unassigned together", &Clerk::UnassignWords},
      {"phone type added", &Clerk::AddPhoneType},
      {"phone type changed", &Clerk::ChangePhoneType},
      {"phone type renamed in the list", &Clerk::RenamePhoneTypeInTheList},
      {"phone type deleted", &Clerk::DeletePhoneType},
      {"card type added", &Clerk::AddCardType},
      {"card type changed", &Clerk::ChangeCardType},
      {"card type renamed in the list", &Clerk::RenameCardTypeInTheList},
      {"card type deleted", &Clerk::DeleteCardType},
      {"map code added", &Clerk::AddMapCode},
      {"map code changed", &Clerk::ChangeMapCode},
      {"map code renamed in the list", &Clerk::RenameMapCodeInTheList},
      {"map code deleted", &Clerk::DeleteMapCode},
      {"tax type added", &Clerk::AddTaxType},
      {"tax type changed", &Clerk::ChangeTaxType},
      {"tax type renamed in the list", &Clerk::RenameTaxTypeInTheList},
      {"tax type deleted", &Clerk::DeleteTaxType},
      {"tax entity added", &Clerk::AddTaxEntity},
      {"tax entity changed", &Clerk::ChangeTaxEntity},
      {"tax entity renamed in the list", &Clerk::RenameTaxEntityInTheList},
      {"tax entity deleted", &Clerk::DeleteTaxEntity},
      {"tax rate added", &Clerk::AddTaxRate},
      {"tax rate changed", &Clerk::ChangeTaxRate},
      {"tax rate renamed in the list", &Clerk::RenameTaxRateInTheList},
      {"tax rate deleted", &Clerk::DeleteTaxRate},
      {"options saved", &Clerk::SaveOptions},
      {"report renamed in the catalogue", &Clerk::RenameReport},
      {"report's name brought back", &Clerk::RestoreReportName},
      {"labels made", &Clerk::MakeLabels},
      {"report run over a query", &Clerk::RunOverAQuery},
  };
  return kinds;
}

std::vector<std::string> Clerk::Kinds() {
  std::vector<std::string> names;
  for (const Kind& kind : AllKinds()) names.emplace_back(kind.name);
  return names;
}

Operation Clerk::Next(Books& books) {
  books_ = &books;
  std::vector<const Kind*> kinds;
  for (const Kind& kind : AllKinds()) kinds.push_back(&kind);
  std::ranges::shuffle(kinds, chance_);
  std::ranges::stable_sort(kinds, {}, [this](const Kind* kind) { return planned_[kind->name] / kAhead; });
  for (const Kind* kind : kinds) {
    std::optional<Operation> act = (this->*kind->make)();
    if (!act) continue;
    act->kind = kind->name;
    ++planned_[kind->name];
    for (const Step& step : act->steps) step.apply(books);
    return std::move(*act);
  }
  throw std::logic_error("there is nothing to do");
}

std::string Clerk::Digits(std::size_t count) {
  std::string digits;
  while (digits.size() < count) digits += static_cast<char>('0' + Roll(1, 9));
  return digits;
}

std::string Clerk::Choose(const char* table, const std::function<bool(const Row&)>& passes) {
  std::vector<std::string> keys;
  for (const auto& [key, row] : Table(table))
    if (!passes || passes(row)) keys.push_back(key);
  return keys.empty() ? "" : keys[static_cast<std::size_t>(Roll(0, static_cast<int>(keys.size()) - 1))];
}

Operation Clerk::At(const std::string& acct, int tab) {
  Operation act;
  act.before = {"tab SSIndexTab1 0", "row grid(0) where AcctNum " + acct};
  if (tab != 0) act.before.push_back("tab SSIndexTab1 " + std::to_string(tab));
  return act;
}

std::string Clerk::TakeNumber(Operation& act, const char* table) {
  act.steps.push_back({[table](Books& books) { ++books.numbers[table]; }, table, ""});
  return std::to_string(books_->numbers[table] + 1);
}

}  // namespace system_test
