#include <chrono>
#include <iostream>

#include "server/bare_lists.h"
#include "server/branch.h"
#include "server/desk.h"
#include "ticks.h"

namespace bench::branch {
namespace {

using raw::Ticked;

constexpr int kPage = 50;

// Always of one length and always new, for each side and each run: a row that is as it was would not be written at all.
std::string NewText(char side) {
  static const auto run = std::chrono::system_clock::now().time_since_epoch() / std::chrono::seconds(1) % 1'000'000;
  static std::int64_t number = 0;
  return "Suite " + std::to_string(1'000'000 + run) + ' ' + std::to_string(1'000'000 + ++number) + side;
}

// All of the card's fields as they were read, with another second address line.
void SaveCardBare(bare::Server& server, std::int64_t account) {
  static const std::string update = [] {
    std::string sets;
    for (const std::string& field : raw::kCardFields)
      sets += (sets.empty() ? "\"" : ", \"") + field + "\" = $" + std::to_string(&field - raw::kCardFields.data() + 1);
    return "UPDATE " + bare::Server::Table("Customers") + " SET " + sets + R"( WHERE "AcctNum" = $)" +
           std::to_string(raw::kCardFields.size() + 1);
  }();
  server.card[raw::kAddressPlace] = NewText('b');
  bare::Cells values = server.card;
  values.emplace_back(std::to_string(account));
  server.RunPrepared(update, values);
}

void ReadCardBare(bare::Server& server, std::int64_t account) {
  static const std::string select = [] {
    std::string fields;
    for (const std::string& field : raw::kCardFields) fields += (fields.empty() ? "\"" : ", \"") + field + '"';
    return "SELECT " + fields + " FROM " + bare::Server::Table("Customers") + R"( WHERE "AcctNum" = $1)";
  }();
  server.card = server.RunPrepared(select, {std::to_string(account)}).cells;
}

// The row and those below it, as one page.
std::uint64_t PageBare(bare::Server& server, const bare::Place& place) {
  const bare::Rows page = server.From(place, kPage);
  if (page.Count() == 0) throw std::runtime_error("the bare row is gone");
  std::uint64_t below = 0;
  for (std::size_t i = 1; i < page.Count(); ++i) below = below * 31 + std::stoull(page.At(i, 0).value_or("0"));
  return SumWith(std::stoll(page.At(0, 0).value_or("0")), below);
}

// Edit to the page, as a program on the engine alone would do it.
Job SavedChange(Company& company) {
  const auto list = std::make_shared<platform::RecordsetRef>(company.OpenList());
  const auto criterion = [&company](int call) { return "[AcctNum]=" + std::to_string(Pick(company.Somewhere(), call).account); };
  Job save = company.Begin("a saved change, the list rebuilt, standing on the row again (raw: commit and page)", 1.5);
  save.calls = 5;
  // Who saves stands on the row already, and has read it.
  save.readyOurs = [list, criterion](int call) {
    (*list)->FindFirst(criterion(call));
    AccountOf(**list);
  };
  save.ours = [list, criterion, &company](int call) {
    (*list)->Edit();
    (*list)->SetField("Addr2", NewText('a'));
    (*list)->Update();
    // As the screens do: the list that was shown goes when there is another.
    const platform::RecordsetRef anew = company.OpenList();
    (*list)->Close();
    *list = anew;
    (*list)->FindFirst(criterion(call));
    const auto account = static_cast<std::int64_t>(AccountOf(**list));
    return SumWith(account, SumOf((*list)->Window().RowsAfter((*list)->Bookmark(), kPage - 1)));
  };
  save.raw = [&company](int call) {
    const bare::Place& row = Pick(company.Somewhere(), call);
    company.Bare().RunPrepared("UPDATE " + bare::Server::Table("Customers") + R"( SET "Addr2" = $2 WHERE "AcctNum" = $1)",
                               {std::to_string(row.account), NewText('b')});
    return PageBare(company.Bare(), row);
  };
  return save;
}

Job SavedCard(Desk& desk) {
  Company& company = desk.Data();
  const auto text = std::make_shared<std::string>();
  Job save = desk.Begin("saving an edited customer, from the card to the list on the row again (raw: commit and page)", 1.5);
  save.calls = 5;
  save.readyOurs = [&desk, &company, text](int call) {
    *text = NewText('a');
    EditOnTheCard(desk.Screen(), Pick(company.Somewhere(), call).account, *text);
  };
  save.ours = [&desk, text](int) { return SaveOnTheCard(desk.Screen(), *text, kPage); };
  save.readyRaw = [&company](int call) { ReadCardBare(company.Bare(), Pick(company.Somewhere(), call).account); };
  save.raw = [&company](int call) {
    const bare::Place& row = Pick(company.Somewhere(), call);
    SaveCardBare(company.Bare(), row.account);
    return PageBare(company.Bare(), row);
  };
  return save;
}

Job Entering(Desk& desk, Ticked list, int entries) {
  Company& company = desk.Data();
  const auto lists = std::make_shared<bare::Lists>(company.Bare(), TemporaryFileIn(desk.Folder()), list);
  const auto account = [&company](int call) { return Pick(company.Somewhere(), call).account; };
  Job enter = desk.Begin("entering the tab of " + std::to_string(entries) + (list == Ticked::Types ? " customer types" : " key words") +
                             " (raw: two statements into the work table, a page)",
                         2);
  enter.calls = 1;
  enter.readyOurs = [&desk, account](int call) { StandOnCustomer(desk.Screen(), account(call)); };
  enter.ours = [&desk, list](int) {
    desk.Screen().SSIndexTab1.UserClick(TabOf(list));
    return PageSum(desk.Screen().data[TabOf(list)].Window()->RowsAt(0, kPage));
  };
  enter.readyRaw = [lists](int) { lists->Clear(); };
  enter.raw = [lists, account](int call) {
    lists->Load(account(call));
    return PageSum(lists->Page(kPage));
  };
  return enter;
}

// Before anything else has taken memory that would be taken again.
void TellMemory(Desk& desk, Ticked list, int entries) {
  StandOnCustomer(desk.Screen(), Pick(desk.Data().Somewhere(), 0).account);
  ForgetPeakMemory();
  const double before = PeakMemory();
  desk.Screen().SSIndexTab1.UserClick(TabOf(list));
  desk.Screen().data[TabOf(list)].Window()->RowsAt(0, kPage);
  std::cout << "Memory taken by the first entering of a tab of " << entries << (list == Ticked::Types ? " types: " : " key words: ")
            << PeakMemory() - before << " MiB\n"
            << std::flush;
}

}  // namespace

void WithRecordJobs(Company& company, const Entries& entries, const std::function<void(const Job&)>& measure) {
  measure(SavedChange(company));
  AtDesk(company, [&](Desk& desk) { measure(SavedCard(desk)); });
  // The many first, since memory that was once taken is taken again.
  for (const int rows : {entries.many, entries.few}) {
    const bare::InventedEntries types(company.Bare(), Ticked::Types, rows);
    const bare::InventedEntries words(company.Bare(), Ticked::KeyWords, rows);
    AtDesk(company, [&](Desk& desk) {
      for (const Ticked list : {Ticked::Types, Ticked::KeyWords}) TellMemory(desk, list, rows);
      for (const Ticked list : {Ticked::Types, Ticked::KeyWords}) measure(Entering(desk, list, rows));
    });
  }
}

}  // namespace bench::branch
