// The text order by keys: the client's own, and those that a schema builds.
#include "engine/store/postgres/text/text_key.h"

#include <random>

#include "engine/store/postgres/schema/key_function.h"
#include "engine/store/postgres/text/like_regex.h"
#include "engine/store/postgres/wording/like_test.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/text/text_order.h"
#include "platform/values/text.h"
#include "unit/engine/server/any_text.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

int Sign(int number) { return (number > 0) - (number < 0); }

TEST(TextKey, IsTheTextInSmallLettersWhereNothingElseCounts) {
  EXPECT_EQ(TextKey("Smith"), "smith");
  EXPECT_EQ(TextKey("O'Brien-Jones 12  "), "o'brien-jones 12");
  EXPECT_EQ(TextKey(""), "");
  EXPECT_EQ(TextKey(" \t\u00A0"), "");
  EXPECT_EQ(TextKey("M\u00FCller"), "muller\x01!!%");
  EXPECT_EQ(TextKey("Stra\u00DFe"), "strasse");
}

TEST(TextKey, IsAscii) {
  for (char32_t character = 1; character <= platform::kHighestCodePoint; ++character) {
    if (character == 0xD800) character = 0xE000;
    const KeyParts parts = KeyPartsOf(character);
    ASSERT_TRUE(platform::IsAscii(parts.primary) && platform::IsAscii(parts.accents)) << static_cast<unsigned>(character);
    ASSERT_EQ(parts.primary.find(kAccentsFollow), std::string::npos) << static_cast<unsigned>(character);
  }
}

TEST(TextKey, OrdersAndTiesAsTheTextsDo) {
  std::mt19937 random(11);
  int ties = 0;
  for (int round = 0; round < 200'000; ++round) {
    const std::string left = AnyText(random, 4);
    const std::string right = random() % 3 == 0 ? left + AnyText(random, 2) : AnyText(random, 4);
    const int expected = Sign(CompareText(left, right));
    ASSERT_EQ(Sign(TextKey(left).compare(TextKey(right))), expected) << left << " and " << right;
    ties += expected == 0;
  }
  EXPECT_GT(ties, 5'000);
}

TEST(TextKey, OfEachCharacterStandsInItsPlace) {
  char32_t before = 1;
  for (char32_t character = 2; character <= platform::kHighestCodePoint; ++character) {
    if (character == 0xD800) character = 0xE000;
    std::string left;
    std::string right;
    // Between letters, so that blanks count, too.
    for (auto* text : {&left, &right}) *text = "x";
    platform::AppendCodePoint(left, before);
    platform::AppendCodePoint(right, character);
    left += 'x';
    right += 'x';
    ASSERT_EQ(Sign(TextKey(left).compare(TextKey(right))), Sign(CompareText(left, right))) << static_cast<unsigned>(character);
    before = character;
  }
}

TEST(TextKey, RangeHoldsEveryTextThatBeginsSo) {
  std::mt19937 random(12);
  for (int round = 0; round < 100'000; ++round) {
    const std::string prefix(WithoutTrailingBlanks(AnyText(random, 3)));
    if (prefix.empty()) continue;
    const TextKeyRange range = KeysBeginning(prefix);
    const std::string key = TextKey(prefix + AnyText(random, 3));
    ASSERT_TRUE(key >= range.lower && key < range.upper) << prefix;
  }
}

class KeyFunction : public ServerTest {
 protected:
  KeyFunction() : connection(TargetOf("text.zdb"), Short()) {
    std::vector<std::string> texts{"CREATE SCHEMA \"orv1_text\""};
    for (std::string& text : KeyFunctionTexts("orv1_text")) texts.push_back(std::move(text));
    connection.ExecuteAll(texts, "orv1_text");
  }
  // The server's keys of these texts; one trip.
  std::vector<std::string> KeysOf(const std::vector<std::string>& texts) {
    std::string sql = "SELECT \"orv1_text\".text_key(t) FROM (VALUES ";
    for (std::size_t i = 1; i <= texts.size(); ++i) sql += (i == 1 ? "($" : ", ($") + std::to_string(i) + ')';
    Query query(connection, std::string_view(sql + ") AS texts(t)"));
    for (std::size_t i = 0; i < texts.size(); ++i) query.Bind(static_cast<int>(i + 1), std::string_view(texts[i]));
    std::vector<std::string> keys;
    while (query.Step()) keys.emplace_back(query.Text(0));
    return keys;
  }
  void ExpectSame(const std::vector<std::string>& texts) {
    const std::vector<std::string> keys = KeysOf(texts);
    ASSERT_EQ(keys.size(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) ASSERT_EQ(keys[i], TextKey(texts[i])) << texts[i];
  }
  ServerConnection connection;
};

TEST_F(KeyFunction, BuildsTheSameKeyForEachCharacter) {
  std::vector<std::string> texts;
  std::string text;
  const auto send = [&] {
    if (!texts.empty()) ExpectSame(texts);
    texts.clear();
  };
  for (char32_t character = 1; character <= platform::kHighestCodePoint; ++character) {
    if (character == 0xD800) character = 0xE000;
    platform::AppendCodePoint(text, character);
    if (character % 128 != 127) continue;
    texts.push_back(text + 'x');
    text.clear();
    if (texts.size() == 256) send();
    if (HasFatalFailure()) return;
  }
  send();
  EXPECT_TRUE(text.empty());
}

TEST_F(KeyFunction, BuildsTheSameKeysForMixedTexts) {
  std::mt19937 random(13);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::string> texts;
    for (int i = 0; i < 1'000; ++i) texts.push_back(AnyText(random, 12));
    ExpectSame(texts);
    if (HasFatalFailure()) return;
  }
}

TEST_F(KeyFunction, OfNullIsNull) { EXPECT_EQ(Ask(connection, "SELECT \"orv1_text\".text_key(NULL)"), std::vector<std::string>{"Null"}); }

// A pattern with a fixed beginning is worded so that the planner walks the index; it gives True, False and Null as any other does.
TEST_F(KeyFunction, TestsPatternsWithAFixedBeginningAsOthers) {
  const auto given = [&](const char* pattern) {
    const std::string test = KnownLikeTest("t", LikePattern(pattern));
    return Ask(connection, "SELECT " + test + " FROM (VALUES (1, 'Smith'), (2, 'Asmith'), (3, NULL::text)) AS texts(n, t) ORDER BY n");
  };
  EXPECT_THAT(KnownLikeTest("t", LikePattern("s*")), testing::StartsWith("CASE "));
  EXPECT_EQ(given("smi*"), (std::vector<std::string>{"t", "f", "Null"}));
  EXPECT_EQ(given("*smi*"), (std::vector<std::string>{"t", "t", "Null"}));
  EXPECT_EQ(given("smith"), (std::vector<std::string>{"t", "f", "Null"}));
}

// Letters and digits are looked for in small letters; signs for which there are others, by a regular expression behind it.
TEST_F(KeyFunction, TestsLettersAndDigitsInSmallLetters) {
  const auto held = [](const char* pattern) {
    const std::optional<SmallLetters> letters = HeldBy(LikePattern(pattern));
    return letters ? letters->like + (letters->isAll ? "" : " and more") : "nothing";
  };
  EXPECT_EQ(held("*Main*"), "%main%");
  EXPECT_EQ(held("*47?1*n*"), "%47_1%n%");
  EXPECT_EQ(held("*4711 m*"), "%4711_m% and more");
  EXPECT_EQ(held("*#%_m*"), "%___m% and more");
  EXPECT_EQ(held("*\u00E9*"), "nothing");
  EXPECT_EQ(held("main*"), "main%");
  EXPECT_EQ(held("Main"), "main");
  EXPECT_EQ(held("ma_in*"), "nothing");
  EXPECT_EQ(held("ma*in*"), "nothing");
  EXPECT_EQ(held("*main"), "nothing");
  EXPECT_EQ(held("main *"), "nothing");
  EXPECT_EQ(held("*main *"), "nothing");
  const std::vector<std::string> texts{
      "",          "kiss ",     "KISS\u00A0\t",   " kiss",     "kisses",    "kiss",       "KISS",   "\u212Ai\u017Fs",
      "k\u0131ss", "k\u0130SS", "\uFF2B\uFF49ss", "ki\u00DF",  "k-iss",     "k%s",        "k_s",    "k\ns",
      "k s",       "k\u00A0s",  "k\ts",           "Main",      "main \t",   "MAIN\u00A0", "mainly", "mai",
      "mai ",      " main",     "main\n",         "m\u00E4in", "ma\u00EDn", "\uFF2Dain",  "m.in"};
  for (const char* pattern : {"kiss",    "KISS ", "kiss*", "k*",   "ki?s",  "*kiss*", "*k*",   "*K*s*", "*i*", "*s*", "*k s*", "*k?s*",
                              "*k[%]s*", "*k_s*", "*k#*",  "main", "MAIN ", "mai",    "main*", "ma*",   "s*",  "ki*", "*main*"}) {
    const LikePattern like(pattern);
    std::string sql = "SELECT ";
    for (const std::string& text : texts)
      sql += (&text == &texts.front() ? "(" : ", (") + KnownLikeTest(ServerDialect().Text(text), like) + ")::text";
    Query query(connection, std::string_view(sql));
    ASSERT_TRUE(query.Step());
    for (std::size_t i = 0; i < texts.size(); ++i)
      EXPECT_EQ(query.Text(static_cast<int>(i)) == "true", like.Matches(texts[i])) << texts[i] << " by " << pattern;
  }
}

TEST_F(KeyFunction, TestsLikeByRegularExpressions) {
  std::mt19937 random(14);
  const auto anyPattern = [&] {
    static const std::vector<std::string> signs{"*", "?", "#", "[a-z]", "[!a-z]", "[s\u00E9-\u00EA]", "[!0-9]", "[*]", "[", "[]", "[-a]", "[\u0416-\u042F]", "[!]"};
    std::string pattern;
    for (std::size_t left = random() % 5; left > 0; --left) pattern += random() % 2 == 0 ? signs[random() % signs.size()] : AnyText(random, 1);
    return random() % 3 == 0 ? '*' + pattern + '*' : pattern;
  };
  int matches = 0;
  int anywhere = 0;
  int tests = 0;
  while (tests < 40'000) {
    std::vector<std::string> texts;
    std::vector<std::string> regexes;
    std::vector<LikePattern> patterns;
    std::vector<bool> expected;
    while (texts.size() < 500) {
      const std::string pattern = anyPattern();
      std::string text = AnyText(random, 4);
      if (random() % 2 == 0) {  // of the pattern's own signs, so that some match
        text.clear();
        for (const char c : pattern) text += c == '?' || c == '*' ? 'a' : c;
        if (!platform::IsValidUtf8(text)) continue;
      }
      try {
        const LikePattern like(pattern);
        expected.push_back(like.Matches(text));
        regexes.push_back(LikeRegex(like));
        patterns.push_back(like);
      } catch (const platform::Error&) {
        continue;  // no pattern
      }
      texts.push_back(text);
    }
    // By a parameter, and by a constant, which is worded by what it holds.
    std::string sql = "SELECT (" + LikeSubject("t") + " ~ r)::integer, c::integer FROM (VALUES ";
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const std::string text = '$' + std::to_string(2 * i + 1);
      sql += (i == 0 ? "(" : ", (") + text + ", $" + std::to_string(2 * i + 2) + ", " + KnownLikeTest(text, patterns[i]) + ')';
    }
    Query query(connection, std::string_view(sql + ") AS tests(t, r, c)"));
    for (std::size_t i = 0; i < texts.size(); ++i) {
      query.Bind(static_cast<int>(2 * i + 1), std::string_view(texts[i]));
      query.Bind(static_cast<int>(2 * i + 2), std::string_view(regexes[i]));
    }
    for (std::size_t i = 0; query.Step(); ++i, ++tests) {
      ASSERT_EQ(query.Int(0) != 0, expected[i]) << texts[i] << " by " << regexes[i].substr(0, 200);
      ASSERT_EQ(query.Int(1) != 0, expected[i]) << texts[i] << " by the constant " << regexes[i].substr(0, 200);
      anywhere += expected[i] && StandsAnywhere(regexes[i]);
      matches += expected[i];
    }
  }
  EXPECT_GT(matches, 2'000);
  EXPECT_GT(anywhere, 100);
}

}  // namespace
}  // namespace engine::postgres
