// Whatever is done with a list that is read by pages, in any order: it comes to the same as with one that holds all of its keys.
#include <random>

#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::Value;

/// Long enough that a search looks at a few rows before it looks at all.
constexpr int kPeople = 21'000;

class AnySteps : public OfficeTest {
 protected:
  AnySteps() : OfficeTest(0) {
    std::vector<std::vector<Value>> people;
    std::vector<std::vector<Value>> phones;
    for (std::int32_t id = 1; id <= kPeople; ++id) {
      people.push_back({SomeText(), SomeText(), static_cast<std::int16_t>(Pick(9))});
      if (Pick(3) == 0) phones.push_back({id, Value(std::string(1, static_cast<char>('a' + Pick(12) * Pick(2))))});
    }
    AddRows("People", {"Name", "City", "Age"}, people);
    AddRows("Phones", {"ID", "Kind"}, phones);
    engine::EngineOptions options;
    options.exactRows = 1'000'000;
    holding_ = office_files::NewEngine(options);
    held_ = holding_->OpenControlDatabase(Path("office.zdb"));
  }

  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  const std::string& PickOf(const std::vector<std::string>& texts) { return texts[static_cast<std::size_t>(Pick(static_cast<int>(texts.size())))]; }
  std::string Part() {
    static const std::vector<std::string> parts = {"a", "A", "\u00E1", "b", "ss", "\u00DF", "-", " ", "1", "z", ".", "\u00C6"};
    return PickOf(parts);
  }
  Value SomeText() {
    if (Pick(12) == 0) return platform::Null;
    std::string text;
    for (int i = Pick(4); i >= 0; --i) text += Part();
    return text;
  }
  std::string Criterion() {
    const std::string field = Pick(2) == 0 ? "Name" : "City";
    switch (Pick(7)) {
      case 0:
        return field + " Is Null";
      case 1:
        return "Age = " + std::to_string(Pick(9)) + " AND Not (" + field + " Like '*" + Part() + "*')";
      case 2:
        return "ID = " + std::to_string(Pick(kPeople));
      case 3:
        return field + " >= '" + Part() + Part() + "'";
      default:
        return field + " Like '" + PickOf({"", "", "?", "*"}) + Part() + PickOf({"*", "*", "", "?*"}) + "'";
    }
  }
  std::string Statement() {
    const std::string order = " ORDER BY People." + PickOf({"Name", "Name", "Name", "City", "ID", "Age"}) + PickOf({"", "", " DESC"});
    switch (Pick(3)) {
      case 0:
        return "SELECT * FROM People" + order;
      case 1:
        return "SELECT * FROM People WHERE " + Criterion() + order;
      default:
        return "SELECT DISTINCTROW People.* FROM People INNER JOIN Phones ON People.ID = Phones.ID WHERE Phones.Kind = '" +
               std::string(1, static_cast<char>('a' + Pick(12))) + "'" + order;
    }
  }

  /// What is done, with what it tells.
  struct Step {
    std::string name;
    std::function<std::string(const RecordsetRef& rows, platform::Bookmark& kept)> act;
  };
  static std::string Where(const RecordsetRef& rows) {
    std::string told = std::string(rows->Bof() ? "b" : "") + (rows->Eof() ? "e" : "") + (rows->NoMatch() ? "n" : "") + (rows->HasRows() ? " " : "- ");
    if (rows->Bof() || rows->Eof()) return told;
    return told + TextOf(rows->Field("ID")) + ' ' + TextOf(rows->Field("Name"));
  }
  static std::string All(const std::vector<platform::ListRow>& rows) {
    std::string told;
    for (const platform::ListRow& row : rows) told += TextOf(row.cells.at(0)) + ' ' + TextOf(row.cells.at(1)) + '\n';
    return told;
  }
  Step Next() {
    const int count = 1 + Pick(90);
    const int by = Pick(2) == 0 ? count - 45 : count % 2 - Pick(2);
    const auto age = static_cast<std::int16_t>(Pick(9));
    const int part = Pick(1000);
    const std::string criterion = Criterion();
    const auto searched = [criterion](const RecordsetRef& rows, int times) {
      rows->FindFirst(criterion);
      std::string told = Where(rows);
      for (int i = 1; i < times; ++i) rows->FindNext(criterion), told += '\n' + Where(rows);
      return told;
    };
    switch (Pick(13)) {
      case 0:
        return {"MoveFirst", [](const RecordsetRef& rows, auto&) { return rows->MoveFirst(), Where(rows); }};
      case 1:
        return {"MoveLast", [](const RecordsetRef& rows, auto&) { return rows->MoveLast(), Where(rows) + TextOf(rows->RecordCount()); }};
      case 2:
        return {"Move " + std::to_string(by), [by](const RecordsetRef& rows, auto&) { return rows->Move(by), Where(rows); }};
      case 3:
        return {"FindFirst " + criterion, [searched](const RecordsetRef& rows, auto&) { return searched(rows, 1); }};
      case 4:
        return {"FindFirst, FindNext " + criterion, [searched](const RecordsetRef& rows, auto&) { return searched(rows, 7); }};
      case 5:
        return {"Bookmark", [](const RecordsetRef& rows, auto& kept) { return kept = rows->Bookmark(), Where(rows); }};
      case 6:
        return {"SetBookmark", [](const RecordsetRef& rows, auto& kept) { return rows->SetBookmark(kept), Where(rows); }};
      case 7:
        return {"RowsAfter", [count](const RecordsetRef& rows, auto& kept) { return All(rows->Window().RowsAfter(kept, count)); }};
      case 8:
        return {"RowsBefore", [count](const RecordsetRef& rows, auto& kept) { return All(rows->Window().RowsBefore(kept, count)); }};
      case 9:
        return {"the first one found, what stands before it", [](const RecordsetRef& rows, auto&) {
                  rows->MoveFirst();
                  rows->FindFirst("ID = " + TextOf(rows->Field("ID")));
                  rows->MovePrevious();
                  const std::string before = Where(rows);
                  return rows->MoveFirst(), before + Where(rows);
                }};
      case 10:
        return {"Edit", [age](const RecordsetRef& rows, auto&) {
                  rows->Edit();
                  rows->SetField("Age", age);
                  rows->Update();
                  return Where(rows);
                }};
      case 11:
        return {"by number", [count, part](const RecordsetRef& rows, auto& kept) {
                  platform::RowWindow& window = rows->Window();
                  while (window.IdleSlice()) {
                  }
                  const std::int64_t number = window.Count() * part / 1000;
                  const std::string page = All(window.RowsAt(number, count));
                  const auto ordinal = kept.set == 0 ? std::nullopt : window.OrdinalOf(kept);
                  return std::to_string(window.Count()) + ' ' + std::to_string(number) + ' ' + std::to_string(ordinal.value_or(-1)) + '\n' + page;
                }};
      default:
        return {"both ends", [count](const RecordsetRef& rows, auto&) {
                  return All(rows->Window().RowsAt(0, count)) + "..." + All(rows->Window().LastRows(count));
                }};
    }
  }
  static std::string Told(const Step& step, const RecordsetRef& rows, platform::Bookmark& kept) {
    try {
      return step.act(rows, kept);
    } catch (const platform::Error& error) {
      return "error " + std::to_string(error.Number());
    }
  }

  std::mt19937 random_{19990131};
  std::unique_ptr<platform::DataEngine> holding_;
  platform::DatabaseRef held_;
};

TEST_F(AnySteps, ComeToTheSameAsWithAllKeysHeld) {
  for (int list = 0; list < 60; ++list) {
    const std::string statement = Statement();
    SCOPED_TRACE(statement);
    const RecordsetRef paged = Dynaset(statement);
    const RecordsetRef held = held_->OpenRecordset(statement, platform::RecordsetType::Dynaset);
    ASSERT_EQ(Where(paged), Where(held));
    platform::Bookmark keptPaged;
    platform::Bookmark keptHeld;
    std::string done;
    for (int i = 0; i < 14; ++i) {
      const Step step = Next();
      done += step.name + "; ";
      ASSERT_EQ(Told(step, paged, keptPaged), Told(step, held, keptHeld)) << done;
    }
    paged->Close();
    held->Close();
  }
}

}  // namespace
