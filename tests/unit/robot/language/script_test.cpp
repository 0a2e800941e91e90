#include "robot/language/script.h"

#include <gtest/gtest.h>

#include <sstream>

#include "robot/commands/commands.h"

namespace robot {
namespace {

ScriptReading Read(const std::string& text) {
  std::istringstream input(text);
  return ReadScript(input, "t.scn", Commands());
}

std::string OnlyError(const std::string& text) {
  const ScriptReading reading = Read(text);
  if (reading.errors.size() != 1) return std::to_string(reading.errors.size()) + " errors";
  return std::to_string(reading.errors[0].line) + ": " + reading.errors[0].message;
}

TEST(Script, WordsAreSeparatedByBlanks) {
  const ScriptReading reading = Read("\n  type\ttxtName   Smi  \n\n");
  ASSERT_EQ(reading.script.commands.size(), 1U);
  EXPECT_EQ(reading.script.commands[0].line, 2);
  EXPECT_EQ(reading.script.commands[0].words, (std::vector<Word>{{"type"}, {"txtName"}, {"Smi"}}));
}

TEST(Script, QuotedTextsKnowFiveEscapes) {
  const ScriptReading reading = Read(R"(expect box "a \"b\" \\ \r\n\t # c")");
  ASSERT_EQ(reading.errors.size(), 0U);
  EXPECT_EQ(reading.script.commands[0].words[2], (Word{"a \"b\" \\ \r\n\t # c", true, false}));
}

TEST(Script, CommentBeginsAtAnUnquotedSign) {
  const ScriptReading reading = Read("# whole line\nclick tb_Find # rest\nclick tb_F#ind\n");
  ASSERT_EQ(reading.script.commands.size(), 2U);
  EXPECT_EQ(reading.script.commands[0].words.size(), 2U);
  EXPECT_EQ(reading.script.commands[1].words[1].text, "tb_F");
}

TEST(Script, PatternsAreOneWordOfAnExpectation) {
  const ScriptReading reading = Read("expect txtName like \"S*\"\nat yield 2 expect box like No* title like ?b\ntype like like\n");
  ASSERT_EQ(reading.errors.size(), 0U);
  EXPECT_EQ(reading.script.commands[0].words, (std::vector<Word>{{"expect"}, {"txtName"}, {"S*", true, true}}));
  EXPECT_EQ(reading.script.commands[1].words,
            (std::vector<Word>{{"at"}, {"yield"}, {"2"}, {"expect"}, {"box"}, {"No*", false, true}, {"title"}, {"?b", false, true}}));
  EXPECT_EQ(reading.script.commands[2].words.size(), 3U);
}

TEST(Script, LinesMayEndInAnyWayAndBeginWithAMark) {
  const ScriptReading reading = Read(
      "\xEF\xBB\xBF"
      "close\r\nclose\r\n");
  EXPECT_EQ(reading.errors.size(), 0U);
  EXPECT_EQ(reading.script.commands.size(), 2U);
}

TEST(Script, TextsAreMadeComposed) {
  const ScriptReading reading = Read("type txtName Cafe\xCC\x81\n");
  EXPECT_EQ(reading.script.commands[0].words[2].text, "Caf\xC3\xA9");
}

TEST(Script, MistakesInTheFormOfALine) {
  EXPECT_EQ(OnlyError("close\ntype txtName \"open\n"), "2: a quote is not closed");
  EXPECT_EQ(OnlyError("type txtName \"a\"b\n"), "1: a blank must follow a closing quote");
  EXPECT_EQ(OnlyError("type txtName a\"b\n"), "1: a quote stands inside a word");
  EXPECT_EQ(OnlyError("type txtName \"a\\q\"\n"), "1: a backslash in quotes stands before \" \\ r n or t only");
  EXPECT_EQ(OnlyError("type txtName \xFF\n"), "1: the line is no valid UTF-8 text");
}

TEST(Script, UnknownCommandsAndWrongCounts) {
  EXPECT_EQ(OnlyError("klick tb_Find\n"), "1: there is no command \"klick\"");
  EXPECT_EQ(OnlyError("click\n"), "1: click takes 1 word, not 0");
  EXPECT_EQ(OnlyError("host UserID\n"), "1: host UserID takes 1 word, not 0");
  EXPECT_EQ(OnlyError("host ShowUser now\n"), "1: host ShowUser takes 0 words, not 1");
  EXPECT_EQ(OnlyError("host \"ShowUser\"\n"), "1: host ShowUser takes 1 word, not 0") << "a word in quotes is a property";
  EXPECT_EQ(OnlyError("expect txtName\n"), "1: expect takes 2 words, not 1");
  EXPECT_EQ(OnlyError("expect not said\n"), "1: expect not said takes 1 word, not 0");
  EXPECT_EQ(OnlyError("expect log a b c d\n"), "1: expect log takes 1 to 3 words, not 4");
  EXPECT_EQ(OnlyError("allow everything\n"), "1: allow is followed by boxes");
}

TEST(Script, InnerCommandsAreCheckedToo) {
  EXPECT_EQ(OnlyError("refused klick a\n"), "1: there is no command \"klick\"");
  EXPECT_EQ(OnlyError("at box click\n"), "1: click takes 1 word, not 0");
  EXPECT_EQ(OnlyError("at yield none close\n"), "1: at yield takes the yield's number, from 1");
  EXPECT_EQ(OnlyError("at yield 3\n"), "1: at yield takes a command");
  EXPECT_EQ(OnlyError("at dawn close\n"), "1: at is followed by yield or box");
  EXPECT_EQ(OnlyError("at yield 1 refused tab\n"), "1: tab takes 2 words, not 0");
}

TEST(Script, GarbageIsToldAndNeverRun) {
  std::string garbage;
  for (int i = 0; i < 4096; ++i) garbage += static_cast<char>((i * 7919 + i / 3) % 256);
  EXPECT_FALSE(Read(garbage).errors.empty());
  EXPECT_EQ(OnlyError(std::string("close\0\n", 7)), "1: the line is no valid UTF-8 text");
  EXPECT_EQ(OnlyError(std::string(100000, 'x')), "1: there is no command \"" + std::string(100000, 'x') + "\"");
  EXPECT_EQ(OnlyError("\"close\"\n"), "1: there is no command \"close\"") << "commands are never quoted";
  EXPECT_EQ(Read("").errors.size(), 0U);
}

TEST(Script, EveryMistakeIsTold) { EXPECT_EQ(Read("a\nclose\nb\n").errors.size(), 2U); }

TEST(Script, AllowingBoxesCountsWhereverItStands) {
  EXPECT_TRUE(Read("close\nallow boxes\n").script.allowBoxes);
  EXPECT_FALSE(Read("close\n").script.allowBoxes);
}

TEST(Script, WordsAreWrittenBackAsTheyWere) {
  EXPECT_EQ(Written(Read("expect box \"a\\r\\\"b\\\\\" title like x*").script.commands[0].words),
            "expect box \"a\\r\\\"b\\\\\" title like x*");
}

}  // namespace
}  // namespace robot
