#include "desktop/controls/memo_edit.h"

#include <QApplication>
#include <QClipboard>

#include "desktop/hands/input.h"
#include "desktop/support/desk.h"
#include "platform/values/text.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Memo : public Desk {
 protected:
  void SetUp() override {
    Open();
    screen->SSIndexTab1.Page(1);
    Process();
  }
  desktop::MemoEdit& Edit() { return Widget<desktop::MemoEdit>("txtMemo"); }
};

TEST_F(Memo, LineEndsOfTheModelAreLines) {
  screen->txtMemo.Text("one\r\ntwo\rthree");
  EXPECT_EQ(Edit().toPlainText(), "one\ntwo\nthree");
}

TEST_F(Memo, TypingInTheMiddleKeepsTheRest) {
  screen->txtMemo.Text("one\r\ntwo");
  hands->Focus(screen->txtMemo);
  QTextCursor cursor = Edit().textCursor();
  cursor.setPosition(5);
  Edit().setTextCursor(cursor);
  input::Type(*window, "X");
  EXPECT_EQ(screen->txtMemo.Text(), "one\r\ntXwo");
  EXPECT_EQ(Edit().toPlainText(), "one\ntXwo");
  EXPECT_EQ(Edit().textCursor().position(), 6);
}

TEST_F(Memo, ANewLineIsALineForBoth) {
  hands->Type(screen->txtMemo, "a\rb", false);
  EXPECT_EQ(Edit().toPlainText(), "a\nb");
  EXPECT_EQ(screen->txtMemo.Text(), "a\r\nb") << "as a paste stores it";
}

TEST_F(Memo, OneBackspaceTakesALineEnd) {
  hands->Type(screen->txtMemo, "a\rb", false);
  QTextCursor cursor = Edit().textCursor();
  cursor.setPosition(2);
  Edit().setTextCursor(cursor);
  input::Key(*window, Qt::Key_Backspace, Qt::NoModifier, "\b");
  EXPECT_EQ(screen->txtMemo.Text(), "ab");
  EXPECT_EQ(Edit().textCursor().position(), 1);
}

TEST_F(Memo, DeletingALineEndTakesBothOfItsCharacters) {
  screen->txtMemo.Text("one\r\ntwo");
  hands->Focus(screen->txtMemo);
  QTextCursor cursor = Edit().textCursor();
  cursor.setPosition(3);
  cursor.setPosition(4, QTextCursor::KeepAnchor);
  Edit().setTextCursor(cursor);
  input::Key(*window, Qt::Key_Delete, Qt::NoModifier, "\x7f");
  EXPECT_EQ(screen->txtMemo.Text(), "onetwo");
}

TEST_F(Memo, PasteCutAndUndoReachTheModel) {
  QApplication::clipboard()->setText("line 1\nline 2");
  hands->Focus(screen->txtMemo);
  input::Key(*window, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(screen->txtMemo.Text(), "line 1\r\nline 2");
  input::Key(*window, Qt::Key_A, Qt::ControlModifier);
  input::Key(*window, Qt::Key_X, Qt::ControlModifier);
  Process();
  EXPECT_EQ(screen->txtMemo.Text(), "");
  input::Key(*window, Qt::Key_Z, Qt::ControlModifier);
  Process();
  EXPECT_EQ(screen->txtMemo.Text(), "line 1\r\nline 2");
  EXPECT_EQ(Edit().toPlainText(), "line 1\nline 2");
}

TEST_F(Memo, AVeryLongTextIsTakenWhole) {
  const std::string text(32'001, 'x');
  hands->Type(screen->txtMemo, text, false);
  EXPECT_EQ(platform::CharacterCount(screen->txtMemo.Text()), 32'001u);
  EXPECT_EQ(Edit().toPlainText().size(), 32'001);
}

}  // namespace
}  // namespace desktop_test
