#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "desks/day_book.h"
#include "maintenance/frmCustMain.h"
#include "platform/host/user_hands.h"
#include "queries/frmCustQueries.h"

namespace bench::desks {

/// How somebody works.
struct Habits {
  std::uint32_t seed = 1;
  std::chrono::milliseconds think{300};  ///< on average between two acts
  std::chrono::seconds time{60};
  /// Saves in a hundred that go to one of a few customers whom everybody works on.
  int shared = 10;
};

/// One person of the office, who does what such people do all day, at random and by turns: looks customers up, pages, opens and saves
/// cards, writes phones, ticks types, asks queries, copies a result for a report. Works with the screens' own models; what a window
/// would paint is read after each act.
class Clerk {
 public:
  Clerk(const Habits& habits, DayBook& book);
  ~Clerk();

  /// What the clerk does with a screen that has come up: the whole day on the main screen, a question on the query screen.
  void At(platform::Form& form);

 private:
  struct Act {
    const char* name;
    int often;
    void (Clerk::*work)(orcussch::frmCustMain&);
  };
  static const std::vector<Act>& Acts();

  void SpendTheDay(orcussch::frmCustMain& screen);
  void KnowTheCustomers();
  void Ask(orcussch::frmCustQueries& screen);
  void Think(orcussch::frmCustMain& screen);

  void Search(orcussch::frmCustMain& screen);
  void Page(orcussch::frmCustMain& screen);
  void LookAtCard(orcussch::frmCustMain& screen);
  void SaveCard(orcussch::frmCustMain& screen);
  void AddPhone(orcussch::frmCustMain& screen);
  void TickType(orcussch::frmCustMain& screen);
  void Query(orcussch::frmCustMain& screen);
  void AllCustomers(orcussch::frmCustMain& screen);
  void CopyForReport(orcussch::frmCustMain& screen);

  void Press(orcussch::frmCustMain& screen, const char* key);
  void Paint(orcussch::frmCustMain& screen, int tab);
  /// Lets the list that a tab shows stand on the card's page again, whatever became of an act.
  void BackToLists(orcussch::frmCustMain& screen);
  int UpTo(int count) { return std::uniform_int_distribution(0, count - 1)(chance_); }

  Habits habits_;
  DayBook& book_;
  std::unique_ptr<platform::UserHands> hands_;
  std::mt19937 chance_;
  std::vector<std::string> names_;
  std::int32_t customers_ = 0;
  std::string asked_;  ///< the letters that the next query asks for; "" for all customers
};

}  // namespace bench::desks
