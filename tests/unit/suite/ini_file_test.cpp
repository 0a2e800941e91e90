#include "suite/ini_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temporary_folder.h"

namespace {

constexpr int kSize = 127;

std::string Value(const std::string& content, const std::string& key = "Key", const std::string& section = "Databases") {
  const TemporaryFolder folder;
  return suite::ReadIniFile(folder.Write("x.ini", content), section, key, "none", kSize);
}

TEST(IniFile, ReadsAValueOfItsSection) {
  EXPECT_EQ(Value("[Other]\nKey=1\n[Databases]\nFirst=2\nKey=/data/\n"), "/data/");
  EXPECT_EQ(Value("[Other]\nKey=1\n"), "none");
  EXPECT_EQ(Value("[Databases]\nFirst=2\n[Other]\nKey=1\n"), "none");
}

TEST(IniFile, NamesHaveNoCase) {
  EXPECT_EQ(Value("[DATABASES]\r\ncustomer.ZDB path=E:\\x\\c.zdb\r\n", "customer.zdb Path"), "E:\\x\\c.zdb");
  EXPECT_EQ(Value("[databases]\nDEFAULT PATH=x\n", "Default Path"), "x");
}

TEST(IniFile, BlanksAroundNameAndValueGo) {
  EXPECT_EQ(Value("  [ Databases ]  \n \t Key \t = \t a b \t \n"), "a b");
  EXPECT_EQ(Value("[Databases]\nKey=\n"), "");
  EXPECT_EQ(Value("[Databases]\nKey=   \n"), "");
}

TEST(IniFile, OnePairOfQuotesGoes) {
  EXPECT_EQ(Value("[Databases]\nKey=\"a b \"\n"), "a b ");
  EXPECT_EQ(Value("[Databases]\nKey='a'\n"), "a");
  EXPECT_EQ(Value("[Databases]\nKey=\"\"a\"\"\n"), "\"a\"");
  EXPECT_EQ(Value("[Databases]\nKey=\"a'\n"), "\"a'");
  EXPECT_EQ(Value("[Databases]\nKey=\"\n"), "\"");
}

TEST(IniFile, TheFirstOccurrenceCounts) {
  EXPECT_EQ(Value("[Databases]\nKey=1\nKEY=2\n"), "1");
  EXPECT_EQ(Value("[Databases]\nKey=1\n[Databases]\nKey=2\n"), "1");
  EXPECT_EQ(Value("[Databases]\n[databases]\nKey=2\n"), "none");
}

TEST(IniFile, CommentsAndLinesWithoutSignSayNothing) {
  EXPECT_EQ(Value("[Databases]\n;Key=1\n ; Key=2\nKey\nKey=3\n"), "3");
  EXPECT_EQ(Value("[Databases]\nKey=a;b\n"), "a;b");
  EXPECT_EQ(Value("[Databases]\nKey=a=b\n"), "a=b");
}

TEST(IniFile, AKeyBeforeEverySectionIsInNone) { EXPECT_EQ(Value("Key=1\n"), "none"); }

TEST(IniFile, EveryKindOfLineEnd) {
  EXPECT_EQ(Value("[Databases]\rKey=1\rOther=2\r"), "1");
  EXPECT_EQ(Value("[Databases]\r\nKey=1\r\n"), "1");
  EXPECT_EQ(Value("[Databases]\nKey=1"), "1");
}

TEST(IniFile, ByteOrderMarks) {
  EXPECT_EQ(Value("\xEF\xBB\xBF[Databases]\nKey=\xC3\xA9\n"), "\xC3\xA9");
  std::string little = "\xFF\xFE";
  std::string big = "\xFE\xFF";
  for (const char c : std::string("[Databases]\nKey=ab\n")) {
    little += c;
    little += '\0';
    big += '\0';
    big += c;
  }
  EXPECT_EQ(Value(little), "ab");
  EXPECT_EQ(Value(big), "ab");
  EXPECT_EQ(Value(little.substr(0, little.size() - 3)), "a") << "half a character at the end is none";
}

TEST(IniFile, WesternBytesAreRead) {
  EXPECT_EQ(Value("[Databases]\nKey=C:\\Caf\xE9\\\n"), "C:\\Caf\xC3\xA9\\");
  EXPECT_EQ(Value("[Databases]\nKey=\x80\n"), "\xE2\x82\xAC");
}

TEST(IniFile, NulsAndHalfWrittenFiles) {
  EXPECT_EQ(Value(std::string("[Databases]\nKey=ab\0\0\0\0", 22)), "ab");
  EXPECT_EQ(Value(std::string("\0\0\0\0\0", 5)), "none");
  EXPECT_EQ(Value("[Datab"), "none");
  EXPECT_EQ(Value("[Databases"), "none");
  EXPECT_EQ(Value("[Databases\nKey=1"), "1");
  EXPECT_EQ(Value("[Databases]\nKe"), "none");
  EXPECT_EQ(Value(""), "none");
  EXPECT_EQ(Value("["), "none");
  EXPECT_EQ(Value("[Databases]\n="), "none");
  EXPECT_EQ(Value("[Databases]\n=5\n", ""), "5");
}

TEST(IniFile, AValueKeepsOneCharacterLessThanTheSize) {
  const std::string text(128, 'x');
  EXPECT_EQ(Value("[Databases]\nKey=" + text.substr(0, 126) + "\n").size(), 126U);
  EXPECT_EQ(Value("[Databases]\nKey=" + text.substr(0, 127) + "\n").size(), 126U);
  EXPECT_EQ(Value("[Databases]\nKey=" + text + "\n").size(), 126U);
}

TEST(IniFile, TheLimitCountsCharacters) {
  std::string accents;
  for (int i = 0; i < 130; ++i) accents += "\xC3\xA9";
  EXPECT_EQ(Value("[Databases]\nKey=" + accents + "\n"), accents.substr(0, 252));
}

TEST(IniFile, TheDefaultIsCutToo) {
  EXPECT_EQ(suite::ReadIniFile("/nonexistent/x.ini", "S", "K", "abcdef", 4), "abc");
  EXPECT_EQ(suite::ReadIniFile("/nonexistent/x.ini", "S", "K", "abcdef", 1), "");
  EXPECT_EQ(suite::ReadIniFile("/nonexistent/x.ini", "S", "K", "abcdef", 0), "");
}

TEST(IniFile, AFolderOrAPipeIsNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(suite::ReadIniFile(folder.Path(), "Databases", "Key", "none", kSize), "none");
  const std::string pipe = folder / "pipe.ini";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(suite::ReadIniFile(pipe, "Databases", "Key", "none", kSize), "none");
}

TEST(IniFile, OnlyTheStartOfAHugeFileCounts) {
  const std::string filling(3U << 20U, 'x');
  EXPECT_EQ(Value("[Databases]\nKey=1\n" + filling), "1");
  EXPECT_EQ(Value("[Databases]\n" + filling + "\nKey=1\n"), "none");
}

}  // namespace
