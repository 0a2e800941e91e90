#include "desktop/controls/text_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>

#include "desktop/hands/input.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Edits : public Desk {
 protected:
  void SetUp() override {
    Open();
    screen->SSIndexTab1.Page(1);
    Process();
  }
  desktop::TextEdit& Edit(const char* name) { return Widget<desktop::TextEdit>(name); }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    input::Key(*window, key, modifiers);
    Process();
  }
};

TEST_F(Edits, TypingGoesThroughTheMask) {
  hands->Type(screen->txtPhone, "5a5-1x2349", false);
  EXPECT_EQ(screen->txtPhone.Text(),
            "551234"
            "9");
  EXPECT_EQ(Edit("txtPhone").text(), "551-2349");
}

TEST_F(Edits, BackspaceTakesTheDigitBeforeALiteral) {
  hands->Type(screen->txtPhone, "5512", false);
  EXPECT_EQ(Edit("txtPhone").text(), "551-2");
  hands->Key(screen->txtPhone, "End");
  hands->Key(screen->txtPhone, "Backspace");
  EXPECT_EQ(screen->txtPhone.Text(), "551");
  hands->Key(screen->txtPhone, "Backspace");
  EXPECT_EQ(screen->txtPhone.Text(), "55");
}

TEST_F(Edits, TheCaretStaysWhereOneTypes) {
  hands->Type(screen->txtPhone, "123456", false);
  Edit("txtPhone").setCursorPosition(1);
  input::Type(*window, "9");
  EXPECT_EQ(screen->txtPhone.Text(), "1923456");
  EXPECT_EQ(Edit("txtPhone").cursorPosition(), 2);
}

TEST_F(Edits, PasteIsCleanedByTheMask) {
  QApplication::clipboard()->setText("(612) 555 / 12");
  hands->Focus(screen->txtPhone);
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(screen->txtPhone.Text(), "6125551");
}

TEST_F(Edits, LengthCutsWhatIsTyped) {
  hands->Type(screen->txtText, "twelve chars", false);
  EXPECT_EQ(screen->txtText.Text(), "twelve cha");
  EXPECT_EQ(Edit("txtText").text(), "twelve cha");
}

TEST_F(Edits, EachKeyChangesOnce) {
  hands->Type(screen->txtText, "abc", false);
  EXPECT_EQ(std::count(screen->seen.begin(), screen->seen.end(), "Change txtText"), 3);
}

TEST_F(Edits, KeyPressCanDropAKey) {
  screen->txtText.KeyPress = [](int& key) {
    if (key == 'b') key = 0;
  };
  hands->Type(screen->txtText, "abcb", false);
  EXPECT_EQ(screen->txtText.Text(), "ac");
}

TEST_F(Edits, KeyPressSeesEnterAndBackspace) {
  std::vector<int> keys;
  screen->txtText.KeyPress = [&](int& key) { keys.push_back(key); };
  hands->Key(screen->txtText, "Enter");
  hands->Key(screen->txtText, "Backspace");
  EXPECT_EQ(keys, (std::vector<int>{13, 8}));
}

TEST_F(Edits, SelectionIsReplacedCutAndDeleted) {
  hands->Type(screen->txtText, "abcdef", false);
  Edit("txtText").setSelection(1, 3);
  input::Type(*window, "X");
  EXPECT_EQ(screen->txtText.Text(), "aXef");
  Edit("txtText").setSelection(0, 2);
  Press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(screen->txtText.Text(), "ef");
  EXPECT_EQ(QApplication::clipboard()->text(), "aX");
  Edit("txtText").setCursorPosition(0);
  Press(Qt::Key_Delete);
  EXPECT_EQ(screen->txtText.Text(), "f");
}

TEST_F(Edits, UndoAndRedoPassTheModel) {
  hands->Type(screen->txtPhone, "123", false);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(screen->txtPhone.Text(), "12");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(screen->txtPhone.Text(), "1");
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(screen->txtPhone.Text(), "12");
}

TEST_F(Edits, ComposedTextIsTakenWhenItIsCommitted) {
  hands->Focus(screen->txtText);
  QInputMethodEvent composing("ka", {});
  QApplication::sendEvent(&Edit("txtText"), &composing);
  EXPECT_EQ(screen->txtText.Text(), "");
  QInputMethodEvent commit;
  commit.setCommitString(QString::fromUtf8("か"));
  QApplication::sendEvent(&Edit("txtText"), &commit);
  EXPECT_EQ(screen->txtText.Text(), "か");
  EXPECT_EQ(Edit("txtText").text(), QString::fromUtf8("か"));
}

TEST_F(Edits, CharactersBeyondTheFirstPlaneAreOne) {
  hands->Type(screen->txtText, "a\U0001F600b", false);
  EXPECT_EQ(screen->txtText.Text(), "a\U0001F600b");
  hands->Key(screen->txtText, "End");
  hands->Key(screen->txtText, "Backspace");
  hands->Key(screen->txtText, "Backspace");
  EXPECT_EQ(screen->txtText.Text(), "a");
}

TEST_F(Edits, ALockedEditTakesNothing) {
  screen->txtText.Text("fixed");
  screen->txtText.Locked(true);
  hands->Type(screen->txtText, "new", false);
  EXPECT_EQ(screen->txtText.Text(), "fixed");
  EXPECT_EQ(Edit("txtText").text(), "fixed");
  EXPECT_TRUE(Edit("txtText").isReadOnly());
}

TEST_F(Edits, CodeChangesTextAndMask) {
  screen->txtPhone.Text("5551234");
  EXPECT_EQ(Edit("txtPhone").text(), "555-1234");
  screen->txtPhone.Mask("(%%%)");
  EXPECT_EQ(Edit("txtPhone").text(), desktop::ToShown(screen->txtPhone.DisplayText()));
  screen->txtPhone.Mask("");
  EXPECT_EQ(Edit("txtPhone").text(), "5551234");
}

TEST_F(Edits, FiguresAreFormattedWhileNobodyEdits) {
  screen->txtMoney.Value(platform::Currency{12'345'600});
  EXPECT_EQ(Edit("txtMoney").text(), "$1,234.56");
  EXPECT_TRUE(Edit("txtMoney").alignment().testFlag(Qt::AlignRight));
  hands->Focus(screen->txtMoney);
  EXPECT_EQ(Edit("txtMoney").text(), "1234.56");
  hands->Type(screen->txtMoney, "50", false);
  EXPECT_EQ(screen->txtMoney.Value(), platform::Currency{500'000});
  hands->Focus(screen->txtText);
  EXPECT_EQ(Edit("txtMoney").text(), "$50.00");
}

TEST_F(Edits, ADateTakesDigitsAndSlashes) {
  hands->Type(screen->txtDate, "3/x5/2024", false);
  EXPECT_EQ(screen->txtDate.Text(), "3/5/2024");
  EXPECT_TRUE(screen->txtDate.Value());
}

TEST_F(Edits, ATypeThatWasDroppedLeavesNothing) {
  hands->Type(screen->txtText, "", false);
  EXPECT_EQ(screen->txtText.Text(), "");
  hands->Type(screen->txtText, "one", false);
  hands->Type(screen->txtText, "two", true);
  EXPECT_EQ(screen->txtText.Text(), "onetwo");
  hands->Type(screen->txtText, "", false);
  EXPECT_EQ(screen->txtText.Text(), "");
}

TEST_F(Edits, BackspaceInTheMiddleStaysInTheMiddle) {
  hands->Type(screen->txtPhone, "1234567", false);
  EXPECT_EQ(Edit("txtPhone").text(), "123-4567");
  Edit("txtPhone").setCursorPosition(4);  // behind the line
  Press(Qt::Key_Backspace);
  EXPECT_EQ(screen->txtPhone.Text(), "124567");
  EXPECT_EQ(Edit("txtPhone").text().left(7), "124-567");
  input::Type(*window, "9");
  EXPECT_EQ(screen->txtPhone.Text(), "1294567");
  Edit("txtPhone").setCursorPosition(6);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(screen->txtPhone.Text(), "129467");
  EXPECT_EQ(Edit("txtPhone").cursorPosition(), 5);
}

TEST_F(Edits, PasteReplacesWhatIsSelected) {
  hands->Type(screen->txtPhone, "5551234", false);
  Edit("txtPhone").selectAll();
  QApplication::clipboard()->setText("612 - 9999");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Edit("txtPhone").text(), "612-9999");
}

TEST_F(Edits, AltWithALetterThatNothingKnowsTypesNothing) {
  hands->Type(screen->txtText, "abc", false);
  input::Key(*window, Qt::Key_Q, Qt::AltModifier, "q");
  EXPECT_EQ(screen->txtText.Text(), "abc");
  hands->Type(screen->txtMemo, "abc", false);
  input::Key(*window, Qt::Key_Q, Qt::AltModifier, "q");
  EXPECT_EQ(screen->txtMemo.Text(), "abc");
}

TEST_F(Edits, ACaptionsLetterLeadsToItsEdit) {
  auto* label = window->findChild<QLabel*>("caption_txtPhone");
  label->setText("&Phone:");
  hands->Focus(screen->txtText);
  input::Key(*window, Qt::Key_P, Qt::AltModifier, "p");
  Process();
  EXPECT_EQ(screen->Focus(), &screen->txtPhone);
}

TEST_F(Edits, WhatNobodyEditsIsReadFromItsBeginning) {
  hands->Focus(screen->txtPhone);
  screen->txtText.Text("0123456789");
  EXPECT_EQ(Edit("txtText").cursorPosition(), 0);
  hands->Focus(screen->txtText);
  hands->Key(screen->txtText, "End");
  EXPECT_EQ(Edit("txtText").cursorPosition(), 10);
  hands->Focus(screen->txtPhone);
  EXPECT_EQ(Edit("txtText").cursorPosition(), 0);
}

TEST_F(Edits, FiguresTakeOnePointAndAMinusInFront) {
  hands->Type(screen->txtMoney, "-7.5.", false);
  EXPECT_EQ(Edit("txtMoney").text(), "-7.5");
  Press(Qt::Key_Home);
  input::Type(*window, "3");
  EXPECT_EQ(Edit("txtMoney").text(), "-7.5");
  Press(Qt::Key_Right);
  input::Type(*window, "1-2.");
  EXPECT_EQ(Edit("txtMoney").text(), "-127.5");
  EXPECT_EQ(screen->txtMoney.Value(), platform::Currency{-1'275'000});
  Edit("txtMoney").setSelection(2, 2);
  input::Type(*window, ".");
  EXPECT_EQ(Edit("txtMoney").text(), "-127.5") << "the point behind the selection stays the only one";
}

TEST_F(Edits, FiguresArePasted) {
  for (const auto& [text, amount] :
       {std::pair("$1,234.50", 12'345'000), std::pair("2.500.00", 25'000), std::pair("--5", -50'000), std::pair("($3.25)", -32'500)}) {
    QApplication::clipboard()->setText(text);
    hands->Focus(screen->txtMoney);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(screen->txtMoney.Value(), platform::Currency{amount}) << text;
  }
}

}  // namespace
}  // namespace desktop_test
