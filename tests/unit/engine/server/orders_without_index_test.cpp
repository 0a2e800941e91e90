// The first rows in an order that no index has: the rows that lie first in the table tell how far on they can stand.
#include <algorithm>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/text/text_order.h"
#include "platform/data/data.h"
#include "unit/engine/server/any_text.h"
#include "unit/engine/server/server_test.h"

namespace {

using MaybeText = std::optional<std::string>;

constexpr int kRows = 4'000;
constexpr int kPage = 50;

class OrdersWithoutIndex : public ServerTest {
 protected:
  void Fill(const std::function<MaybeText(int row)>& text) {
    std::string values;
    for (int row = 1; row <= kRows; ++row) {
      texts_.push_back(text(row));
      values += (row == 1 ? "(" : ", (") + (texts_.back() ? engine::postgres::QuoteText(*texts_.back()) : "NULL") + ')';
    }
    Create("customer.zdb",
           {{"People", {Field("ID", platform::FieldType::Counter), TextField("Title", 20)}, {{"PrimaryKey", {"ID"}, true, true}}}});
    Other("INSERT INTO orv1_customer.\"People\" (\"Title\") VALUES " + values + "; ANALYZE");
  }

  /// Nulls first, equal texts by their numbers; all the other way round.
  std::vector<std::int32_t> Expected(bool descending) const {
    std::vector<std::int32_t> numbers(kRows);
    for (int row = 0; row < kRows; ++row) numbers[static_cast<std::size_t>(row)] = row + 1;
    std::ranges::stable_sort(numbers, [&](std::int32_t left, std::int32_t right) {
      const MaybeText& a = texts_[static_cast<std::size_t>(left) - 1];
      const MaybeText& b = texts_[static_cast<std::size_t>(right) - 1];
      return a && b ? engine::CompareText(*a, *b) < 0 : !a && b;
    });
    if (descending) std::ranges::reverse(numbers);
    return {numbers.begin(), numbers.begin() + kPage};
  }

  void ExpectBothWays() const {
    const auto desk = engine::MakeEngine({});
    const auto people = desk->WorkspaceAt(0)->OpenDatabase(Path("customer.zdb"));
    for (const bool descending : {false, true}) {
      const auto list =
          people->OpenRecordset(descending ? "SELECT * FROM People ORDER BY Title DESC" : "SELECT * FROM People ORDER BY Title");
      std::vector<std::int32_t> numbers;
      for (const platform::ListRow& row : list->Window().RowsAt(0, kPage)) numbers.push_back(row.cells[0].As<std::int32_t>());
      EXPECT_EQ(numbers, Expected(descending)) << (descending ? "descending" : "ascending");
      list->Close();
    }
  }

 private:
  std::vector<MaybeText> texts_;
};

TEST_F(OrdersWithoutIndex, AreThoseOfTheTexts) {
  std::mt19937 random(5);
  Fill([&](int) { return random() % 9 == 0 ? MaybeText() : AnyText(random, 6); });
  ExpectBothWays();
}

// Letters of both kinds and what stands around them.
TEST_F(OrdersWithoutIndex, MindNoCapitals) {
  std::mt19937 random(6);
  Fill([&](int) {
    static constexpr std::string_view kSigns = "aAbByYzZ09 '-/@[]^_`{|}~";
    std::string text;
    for (int i = 0; i < 3; ++i) text += kSigns[random() % kSigns.size()];
    return text;
  });
  ExpectBothWays();
}

TEST_F(OrdersWithoutIndex, HoldWhereTheRowsThatLieFirstComeLast) {
  Fill([](int row) { return row < 1'000 ? "Zz " + std::to_string(row) : "aB " + std::to_string(row); });
  ExpectBothWays();
}

TEST_F(OrdersWithoutIndex, HoldWhereTheRowsThatLieFirstHaveNone) {
  Fill([](int row) { return row < 3'900 ? MaybeText() : "Title " + std::to_string(row); });
  ExpectBothWays();
}

TEST_F(OrdersWithoutIndex, HoldWhereHardlyARowHasOne) {
  Fill([](int row) { return row % 400 == 0 ? "Title " + std::to_string(row) : MaybeText(); });
  ExpectBothWays();
}

TEST_F(OrdersWithoutIndex, HoldWhereAllAreAlike) {
  Fill([](int row) { return row % 2 == 0 ? "MN" : "mn "; });
  ExpectBothWays();
}

TEST_F(OrdersWithoutIndex, TellANullFromAnEmptyText) {
  Fill([](int row) { return row % 3 == 0 ? MaybeText() : row % 3 == 1 ? "" : "x"; });
  ExpectBothWays();
}

}  // namespace
