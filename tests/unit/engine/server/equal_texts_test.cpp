// Texts beside constants, in a field that has a key only where it isn't the text in small letters.
#include <set>

#include "engine/engine.h"
#include "engine/text/text_order.h"
#include "platform/data/data.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

using platform::FieldType;

// Of one length and of others, in capitals, with accents and signs, with blanks behind, of blanks alone.
const std::vector<std::string> kTexts{"smith", "SMITH", "Smith  ", "smyth", "smi", "sm\u00EDth", "o'hara", "O'Hara", "o hara",
                                      "o[ha]", "",      " ",       "  ",    "\u00DF", "ss",       "SS",     "#12"};

class EqualTexts : public ServerTest {
 protected:
  EqualTexts() {
    Create("customer.zdb", {{"Words", {Field("ID", FieldType::Counter), TextField("Word", 20)}, {{"PrimaryKey", {"ID"}, true, true}}}});
    words_ = engine_->WorkspaceAt(0)->OpenDatabase(Path("customer.zdb"));
    const auto rows = words_->OpenRecordset("Words");
    for (const std::string& text : kTexts) {
      rows->AddNew();
      rows->SetField("Word", text);
      rows->Update();
    }
    rows->AddNew();  // one without a word
    rows->Update();
  }
  /// Numbers of the rows that a condition takes.
  std::set<int> Taken(const std::string& condition) {
    std::set<int> ids;
    for (const platform::RecordsetRef rows = words_->OpenRecordset("SELECT ID FROM Words WHERE " + condition + " ORDER BY ID"); !rows->Eof(); rows->MoveNext())
      ids.insert(rows->Field("ID").As<std::int32_t>());
    return ids;
  }

  decltype(engine::MakeEngine({})) engine_ = engine::MakeEngine({});
  platform::DatabaseRef words_;
};

std::string Constant(const std::string& text) {
  std::string constant = "'";
  for (const char c : text) constant += c == '\'' ? "''" : std::string(1, c);
  return constant + '\'';
}

TEST_F(EqualTexts, AreFoundByAConstantOnEitherSide) {
  for (const std::string& wanted : kTexts) {
    std::set<int> equal;
    std::set<int> others;
    for (std::size_t i = 0; i < kTexts.size(); ++i) (CompareText(kTexts[i], wanted) == 0 ? equal : others).insert(static_cast<int>(i) + 1);
    const std::string constant = Constant(wanted);
    EXPECT_EQ(Taken("Word = " + constant), equal) << constant;
    EXPECT_EQ(Taken(constant + " = Word"), equal) << constant;
    EXPECT_EQ(Taken("Word IN (" + constant + ", 'zz')"), equal) << constant;
    // A row without a word is neither equal nor different.
    EXPECT_EQ(Taken("NOT Word = " + constant), others) << constant;
    EXPECT_EQ(Taken("Word <> " + constant), others) << constant;
  }
}

TEST_F(EqualTexts, AreFoundBySearches) {
  const auto rows = words_->OpenRecordset("SELECT * FROM Words ORDER BY ID");
  rows->FindFirst("Word = 'O''HARA'");
  ASSERT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Word"), platform::Value("o'hara"));
  rows->FindNext("Word = 'O''HARA'");
  ASSERT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Word"), platform::Value("O'Hara"));
  rows->FindNext("Word = 'O''HARA'");
  EXPECT_TRUE(rows->NoMatch());
}

}  // namespace
}  // namespace engine::postgres
