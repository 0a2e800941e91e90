#include <algorithm>

#include "platform/controls/combo.h"
#include "platform/controls/lists.h"
#include "platform/controls/toolbar.h"
#include "platform/values/text.h"
#include "robot/expectations/expectations.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"
#include "robot/stage/lists.h"

// What lists, toolbars and menus hold.
namespace robot {
namespace {

using namespace platform;

std::int64_t RowCount(Control& control) {
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) return static_cast<std::int64_t>(combo->Rows().size());
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) return static_cast<std::int64_t>(list->Items().size());
  RowWindow* rows = DataOf(control).Window();
  return rows == nullptr ? 0 : CountRows(*rows);  // a list that was never opened shows no row
}

void Rows(Runner& run, const Arguments& words) {
  const std::int64_t count = RowCount(run.ControlNamed(words.Text(0)));
  if (count != words.Number(1)) throw Unmet("rows " + words.Text(0) + " " + words.Text(1), std::to_string(count));
}

std::string Numbers(const std::vector<std::int64_t>& numbers) {
  std::string text;
  for (const std::int64_t number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
  return text.empty() ? "nothing" : text;
}

void Marked(Runner& run, const Arguments& words) {
  const Grid& grid = GridOf(run.ControlNamed(words.Text(0)));
  std::vector<std::int64_t> marked;
  if (RowWindow* rows = DataOf(run.ControlNamed(words.Text(0))).Window(); rows != nullptr) {
    CountRows(*rows);
    for (int i = 0; i < grid.SelBookmarks.Count(); ++i) marked.push_back(rows->OrdinalOf(grid.SelBookmarks.Item(i)).value_or(-1));
  }
  std::vector<std::int64_t> wanted;
  for (std::size_t i = 1; i < words.Count(); ++i) wanted.push_back(words.Number(i));
  std::sort(marked.begin(), marked.end());
  std::sort(wanted.begin(), wanted.end());
  if (marked != wanted) throw Unmet("marked " + words.Text(0) + " " + Numbers(wanted), Numbers(marked));
}

void DemandList(const std::string& what, const std::vector<std::string>& was, const std::vector<Word>& wanted) {
  if (!std::equal(was.begin(), was.end(), wanted.begin(), wanted.end(), MeetsText))
    throw Unmet(what + " " + WantedList(wanted), ShownList(was));
}

void Cells(Runner& run, const Arguments& words) {
  Grid& grid = GridOf(run.ControlNamed(words.Text(0)));
  const int column = ColumnWith(grid, words.Text(1));
  const std::vector<Word> wanted = words.From(2);
  std::vector<std::string> was;
  if (RowWindow* rows = DataOf(grid).Window(); rows != nullptr)
    for (const ListRow& row : rows->RowsAt(0, static_cast<int>(wanted.size()))) was.push_back(CellText(grid, column, row));
  DemandList("cells " + words.Text(0) + " " + Quoted(words.Text(1)), was, wanted);
}

void Columns(Runner& run, const Arguments& words) {
  Control& control = run.ControlNamed(words.Text(0));
  std::vector<std::string> was;
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
    for (const ComboColumn& column : combo->Columns()) was.push_back(column.caption);
  } else {
    const Grid& grid = GridOf(control);
    for (int i = 0; i < grid.ColumnCount(); ++i) was.push_back(grid.Column(i).caption);
  }
  DemandList("columns " + words.Text(0), was, words.From(1));
}

/// The names with the letters of whoever wrote the expectation where only case differs.
std::vector<std::string> InWantedCase(std::vector<std::string> names, const std::vector<Word>& wanted) {
  for (std::size_t i = 0; i < names.size() && i < wanted.size(); ++i)
    if (EqualsNoCase(names[i], wanted[i].text)) names[i] = wanted[i].text;
  return names;
}

void Keys(Runner& run, const Arguments& words) {
  const auto* bar = dynamic_cast<const Toolbar*>(&run.ControlNamed(words.Text(0)));
  if (bar == nullptr) throw ActionFailed(words.Text(0) + " no toolbar");
  std::vector<std::string> was;
  for (const auto& button : bar->Buttons()) was.push_back(button->Name());
  const std::vector<Word> wanted = words.From(1);
  DemandList("keys " + words.Text(0), InWantedCase(was, wanted), wanted);
}

void Items(Runner& run, const Arguments& words) {
  const Control& control = run.ControlNamed(words.Text(0));
  const std::vector<Word> wanted = words.From(1);
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) return DemandList("items " + words.Text(0), list->Items(), wanted);
  const auto* menu = dynamic_cast<const Menu*>(&control);
  if (menu == nullptr) throw ActionFailed(words.Text(0) + " no menu or list box");
  std::vector<std::string> was;
  for (const MenuItem* item : menu->Items()) was.push_back(item->Name());
  DemandList("items " + words.Text(0), InWantedCase(was, wanted), wanted);
}

}  // namespace

ExpectationList ListExpectations() {
  return {
      {"rows", 2, 2, Rows},
      {"marked", 1, kAnyNumber, Marked},
      {"cells", 3, kAnyNumber, Cells},
      {"columns", 1, kAnyNumber, Columns},
      {"keys", 1, kAnyNumber, Keys},
      {"items", 1, kAnyNumber, Items},
  };
}

}  // namespace robot
