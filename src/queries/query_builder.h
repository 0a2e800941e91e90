#pragma once

#include <string>

#include "queries/frmCustQueries.h"

namespace orcussch {

/// Turns the state of the query screen into a statement over whole Customers rows. Nothing is run here. Which tables are joined, and
/// the order of the conditions, hang on the screen alone; no value is tested but the dates, which are left out when they are none.
class QueryBuilder {
 public:
  explicit QueryBuilder(frmCustQueries& screen) : s(screen) {}

  /// Writes the statement, without an order, step by step; it raises what stops it half-way.
  void Build(std::string& SQL);
  /// What the conditions ask, in words for the user: "last name starts with Smi, status Active".
  const std::string& Words() const noexcept { return mWords; }

 private:
  /// A table that is joined to the customers when a criterion asks for it.
  struct Join {
    const char* table;
    bool wanted;
  };
  void AppendJoins(std::string& SQL);

  // The conditions, in the order in which they stand in the statement.
  void Texts();
  void PhoneNumber();
  void Status();
  void Billing();
  void Invoice();
  void CreditCard();
  void KeyWords();
  void CustomerTypes();
  void CheckNumber();
  void TaxNumber();
  void FinanceCharge();
  void Amounts();
  void Dates();

  bool Asks(int Misc) const { return s.chkSelectMisc[Misc].Value() == 1; }
  bool AsksPhone() const { return s.chkSelectNameAdd[criteria::kPhone].Value() == 1; }
  void Compare(const std::string& Value, int Combo);
  /// The word of a way of comparing.
  std::string HowCompared(int Combo) const;
  void Tell(const std::string& words);
  template <class Condition>
  void ForEachMarked(int List, Condition&& condition);

  frmCustQueries& s;
  std::string Where;
  std::string mWords;
  /// Whether the lists take part. Asked once: what is marked while the screen paints itself would find no table joined.
  bool mMarked[criteria::kLists] = {};
};

}  // namespace orcussch
