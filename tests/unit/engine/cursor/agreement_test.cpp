// Lists and searches against a plain sort and a plain look at every row, over many small and awkward texts. Both ways to keep a
// list must agree with it wherever the search starts.
#include <random>

#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::Value;

struct Person {
  std::int32_t id = 0;
  std::optional<std::string> name;
  std::int16_t age = 0;
  bool active = false;
};

/// A condition in the dialect and what it means.
struct Criterion {
  std::string text;
  std::function<bool(const Person&)> holds;
};

class Agreement : public OfficeTest, public testing::WithParamInterface<int> {
 protected:
  Agreement() : OfficeTest(GetParam()) {
    std::vector<std::vector<Value>> rows;
    for (std::int32_t id = 1; id <= 250; ++id) {
      Person person{id, RandomText(4), static_cast<std::int16_t>(Pick(5)), Pick(2) == 0};
      if (Pick(20) == 0) person.name.reset();
      rows.push_back({person.name ? Value(*person.name) : Value(platform::Null), person.age, person.active});
      people_.push_back(person);
    }
    AddRows("People", {"Name", "Age", "Active"}, rows);
  }

  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  std::string RandomText(int longest) {
    static const std::vector<std::string> pieces = {"a", "A", "\u00E1", "b", "B", "\u00DF", "s", "S", "-", "'", " ", "1", "\u00C6", "z"};
    std::string text;
    for (int i = Pick(longest + 1); i > 0; --i) text += pieces[static_cast<std::size_t>(Pick(static_cast<int>(pieces.size())))];
    return text;
  }
  static std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    return quoted + "'";
  }

  /// Null before every text, ties by the row's key.
  static bool Before(const Person& left, const Person& right) {
    if (left.name.has_value() != right.name.has_value()) return !left.name;
    const int order = left.name ? engine::CompareText(*left.name, *right.name) : 0;
    return order != 0 ? order < 0 : left.id < right.id;
  }
  std::vector<Person> Expected(bool downwards, bool activeOnly) const {
    std::vector<Person> list;
    std::copy_if(people_.begin(), people_.end(), std::back_inserter(list), [&](const Person& one) { return !activeOnly || one.active; });
    std::sort(list.begin(), list.end(), Before);
    if (downwards) std::reverse(list.begin(), list.end());
    return list;
  }

  Criterion RandomCriterion() {
    const std::string text = RandomText(2);
    switch (Pick(6)) {
      case 0:
        return {"[Name]=" + Quoted(text), [=](const Person& one) { return one.name && engine::CompareText(*one.name, text) == 0; }};
      case 1:
        return {"[Name]>=" + Quoted(text), [=](const Person& one) { return one.name && engine::CompareText(*one.name, text) >= 0; }};
      case 2: {
        const int age = Pick(6);
        return {"[Age]=" + std::to_string(age) + " And [Active]=False", [=](const Person& one) { return one.age == age && !one.active; }};
      }
      case 3:
        return {"[Name] Is Null", [](const Person& one) { return !one.name; }};
      default: {
        static const std::vector<std::string> tails = {"*", "*", "*", "?*", "*a", "[ab]*", "#*", ""};
        const std::string pattern = text + tails[static_cast<std::size_t>(Pick(static_cast<int>(tails.size())))];
        const auto like = std::make_shared<engine::LikePattern>(pattern);
        return {"([Name] Like " + Quoted(pattern) + ")", [like](const Person& one) { return one.name && like->Matches(*one.name); }};
      }
    }
  }

  /// Place of the first row from `start` on for which the test holds; -1 for none.
  static int Place(const std::vector<Person>& list, std::size_t start, const Criterion& test) {
    for (std::size_t i = start; i < list.size(); ++i)
      if (test.holds(list[i])) return static_cast<int>(i);
    return -1;
  }

  void Compare(const std::string& statement, const std::vector<Person>& list) {
    SCOPED_TRACE(statement);
    const RecordsetRef rows = Dynaset(statement);
    std::size_t at = 0;
    for (; !rows->Eof(); rows->MoveNext(), ++at) ASSERT_EQ(rows->Field("ID"), Value(list.at(at).id)) << at;
    ASSERT_EQ(at, list.size());
    for (rows->MovePrevious(); !rows->Bof(); rows->MovePrevious()) ASSERT_EQ(rows->Field("ID"), Value(list[--at].id)) << at;
    ASSERT_EQ(at, 0U);

    for (int round = 0; round < 60; ++round) {
      const Criterion test = RandomCriterion();
      SCOPED_TRACE(test.text);
      rows->MoveFirst();
      rows->FindFirst(test.text);
      int place = Place(list, 0, test);
      ASSERT_EQ(rows->NoMatch(), place < 0);
      for (int next = 0; place >= 0 && next < 3; ++next) {
        ASSERT_EQ(rows->Field("ID"), Value(list[static_cast<std::size_t>(place)].id));
        rows->FindNext(test.text);
        place = Place(list, static_cast<std::size_t>(place) + 1, test);
        ASSERT_EQ(rows->NoMatch(), place < 0);
      }
      // From anywhere.
      const auto from = static_cast<std::size_t>(Pick(static_cast<int>(list.size())));
      rows->MoveFirst();
      rows->Move(static_cast<std::int32_t>(from));
      rows->FindNext(test.text);
      place = Place(list, from + 1, test);
      ASSERT_EQ(rows->NoMatch(), place < 0) << "from " << from;
      ASSERT_EQ(rows->Field("ID"), Value(list[place < 0 ? from : static_cast<std::size_t>(place)].id)) << "from " << from;
    }
  }

  std::mt19937 random_{20250203};
  std::vector<Person> people_;
};

TEST_P(Agreement, ListsByNameAndTheirSearches) {
  Compare("SELECT * FROM People ORDER BY Name", Expected(false, false));
  Compare("SELECT * FROM People ORDER BY Name DESC", Expected(true, false));
}

TEST_P(Agreement, FilteredListsAndTheirSearches) {
  Compare("SELECT * FROM People WHERE Active=True ORDER BY Name", Expected(false, true));
  Compare("SELECT * FROM People WHERE (Active = True) ORDER BY Name DESC", Expected(true, true));
}

TEST_P(Agreement, ListsInTheOrderOfTheirKeys) {
  std::vector<Person> list = people_;
  Compare("SELECT * FROM People", list);
  Compare("People", list);
}

TEST_P(Agreement, WhereTakesWhatASearchFinds) {
  for (int round = 0; round < 150; ++round) {
    const Criterion test = RandomCriterion();
    SCOPED_TRACE(test.text);
    const RecordsetRef rows = Dynaset("SELECT ID FROM People WHERE " + test.text + " ORDER BY ID");
    std::vector<std::string> wanted;
    for (const Person& one : people_)
      if (test.holds(one)) wanted.push_back(std::to_string(one.id));
    ASSERT_EQ(Texts(rows, "ID"), wanted);
  }
}

TEST_P(Agreement, SeekFindsTheFirstOfItsGroup) {
  const auto list = Expected(false, false);
  const RecordsetRef rows = Table("People");
  rows->SetIndex("ByName");
  for (int round = 0; round < 150; ++round) {
    const std::string key = RandomText(3);
    for (const auto& [sign, holds] : std::vector<std::pair<std::string, std::function<bool(int)>>>{
             {"=", [](int c) { return c == 0; }}, {">=", [](int c) { return c >= 0; }}, {">", [](int c) { return c > 0; }}}) {
      SCOPED_TRACE(sign + " " + key);
      rows->Seek(sign, {Value(key)});
      const auto fits = [&key, &compare = holds](const Person& one) { return one.name && compare(engine::CompareText(*one.name, key)); };
      const int place = Place(list, 0, {"", fits});
      ASSERT_EQ(rows->NoMatch(), place < 0);
      if (place >= 0) {
        ASSERT_EQ(rows->Field("ID"), Value(list[static_cast<std::size_t>(place)].id));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Strategies, Agreement, testing::Values(20'000, 0));

}  // namespace
