#include "platform/values/text.h"
#include "support/every_control.h"

// Line ends in an edit of several lines: always carriage return and line feed, whichever way they come.
namespace {

constexpr char32_t kEnter = 13;
constexpr char32_t kBackspace = 8;

class MemoText : public ScreenTest {
 protected:
  MemoText() { memo.MultiLine(true); }
  platform::TextBox& memo = screen->txtOnTab;
};

TEST_F(MemoText, EnterBreaksTheLineAsAPasteDoes) {
  memo.UserKey(U'a');
  memo.UserKey(kEnter);
  memo.UserKey(U'b');
  EXPECT_EQ(memo.Text(), "a\r\nb");
  EXPECT_EQ(memo.Caret(), 4u);
  memo.Text("");
  memo.UserPaste("a\nb\rc\r\nd\n\re");
  EXPECT_EQ(memo.Text(), "a\r\nb\r\nc\r\nd\r\n\r\ne");
}

TEST_F(MemoText, ATypedRunHasOneKeyForEachLineEnd) {
  int enters = 0;
  memo.KeyPress = [&](int& key) { enters += key == 13; };
  memo.UserType("one\r\ntwo\nthree\r");
  EXPECT_EQ(memo.Text(), "one\r\ntwo\r\nthree\r\n");
  EXPECT_EQ(enters, 3);
}

TEST_F(MemoText, ALineEndGoesAsOne) {
  memo.Text("one\r\ntwo");
  memo.Select(5, 0);
  memo.UserKey(kBackspace);
  EXPECT_EQ(memo.Text(), "onetwo");
  EXPECT_EQ(memo.Caret(), 3u);
  memo.Text("one\r\ntwo");
  memo.Select(3, 0);
  memo.UserDelete();
  EXPECT_EQ(memo.Text(), "onetwo");
  memo.Text("one\rtwo\nthree");
  memo.Select(4, 0);
  memo.UserKey(kBackspace);
  EXPECT_EQ(memo.Text(), "onetwo\nthree") << "one that stands alone too";
}

TEST_F(MemoText, TheCaretNeverStandsInsideALineEnd) {
  memo.Text("one\r\ntwo");
  memo.Select(4, 0);
  memo.UserType("X");
  EXPECT_EQ(memo.Text(), "oneX\r\ntwo");
  memo.Select(0, 4);
  memo.UserType("Y");
  EXPECT_EQ(memo.Text(), "Y\r\ntwo");
}

TEST_F(MemoText, AnEditOfOneLineTakesNone) {
  screen->txtInBox.UserPaste("a\r\nb");
  screen->txtInBox.UserKey(kEnter);
  EXPECT_EQ(screen->txtInBox.Text(), "ab");
}

TEST_F(MemoText, ALineEndCountsTwoCharacters) {
  memo.UserPaste(std::string(31'999, 'x'));
  memo.UserKey(kEnter);
  EXPECT_EQ(platform::CharacterCount(memo.Text()), 32'001u);
}

}  // namespace
