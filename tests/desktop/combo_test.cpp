#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeView>
#include <QWheelEvent>

#include "desktop/controls/combo_edit.h"
#include "desktop/hands/input.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Combos : public Desk {
 protected:
  void SetUp() override {
    Open();
    screen->SSIndexTab1.Tab(1);
    Process();
  }
  desktop::ComboEdit& Combo() { return Widget<desktop::ComboEdit>("cboColour"); }
};

TEST_F(Combos, PickingFromTheListSetsBothParts) {
  hands->Pick(screen->cboColour, screen->cboColour.Rows()[1]);
  EXPECT_EQ(screen->cboColour.Text(), "Green");
  EXPECT_EQ(screen->cboColour.BoundValue(), platform::Value(2));
  EXPECT_EQ(Combo().lineEdit()->text(), "Green");
  EXPECT_TRUE(Saw("Change cboColour"));
  EXPECT_FALSE(Combo().view()->isVisible());
}

TEST_F(Combos, TypingCompletesTheFirstMatch) {
  hands->Focus(screen->cboColour);
  input::Type(*window, "gre");
  EXPECT_EQ(Combo().lineEdit()->text(), "Green");
  EXPECT_EQ(Combo().lineEdit()->selectedText(), "en");
  EXPECT_EQ(screen->cboColour.BoundValue(), platform::Value(2));
  input::Type(*window, "y");
  EXPECT_EQ(screen->cboColour.Text(), "Grey");
  EXPECT_EQ(screen->cboColour.BoundValue(), platform::Value(3));
}

TEST_F(Combos, ATextThatNoRowHasStaysWithoutAKey) {
  hands->Type(screen->cboColour, "Violet", false);
  EXPECT_EQ(screen->cboColour.Text(), "Violet");
  EXPECT_EQ(screen->cboColour.BoundValue(), platform::Value(""));
}

TEST_F(Combos, ErasingDoesNotCompleteAgain) {
  hands->Type(screen->cboColour, "Red", false);
  hands->Key(screen->cboColour, "End");
  hands->Key(screen->cboColour, "Backspace");
  EXPECT_EQ(screen->cboColour.Text(), "Re");
}

TEST_F(Combos, ClearingEmptiesBothParts) {
  hands->Pick(screen->cboColour, screen->cboColour.Rows()[0]);
  hands->ClearCombo(screen->cboColour);
  EXPECT_EQ(screen->cboColour.Text(), "");
  EXPECT_EQ(screen->cboColour.BoundValue(), platform::Value(""));
}

TEST_F(Combos, ArrowKeysGoFromRowToRow) {
  hands->Pick(screen->cboColour, screen->cboColour.Rows()[0]);
  hands->Key(screen->cboColour, "Down");
  EXPECT_EQ(screen->cboColour.Text(), "Green");
  hands->Key(screen->cboColour, "Up");
  EXPECT_EQ(screen->cboColour.Text(), "Red");
}

TEST_F(Combos, CodeSetsThePartsOneByOne) {
  screen->cboColour.BoundValue(3);
  EXPECT_EQ(Combo().lineEdit()->text(), "");
  screen->cboColour.Text("Grey");
  EXPECT_EQ(Combo().lineEdit()->text(), "Grey");
}

TEST_F(Combos, AReloadedListShowsAtTheNextOpening) {
  screen->cboColour.Fill({{9, "White", {"White", "w"}}});
  hands->Pick(screen->cboColour, screen->cboColour.Rows()[0]);
  EXPECT_EQ(screen->cboColour.Text(), "White");
  EXPECT_EQ(Combo().model()->rowCount(), 1);
}

TEST_F(Combos, AWheelOverItChangesNothing) {
  hands->Pick(screen->cboColour, screen->cboColour.Rows()[0]);
  QWheelEvent wheel({5, 5}, Combo().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Combo(), &wheel);
  EXPECT_EQ(screen->cboColour.Text(), "Red");
}

TEST_F(Combos, TheKeyboardOpensTheListAndChooses) {
  for (const char* key : {"F4", "Alt+Down"}) {
    hands->ClearCombo(screen->cboColour);
    hands->Key(screen->cboColour, key);
    ASSERT_TRUE(Combo().view()->isVisible()) << key;
    input::Key(*window, Qt::Key_Home, Qt::NoModifier);
    input::Key(*window, Qt::Key_Down, Qt::NoModifier);
    input::Key(*window, Qt::Key_Return, Qt::NoModifier, "\r");
    Process();
    EXPECT_FALSE(Combo().view()->isVisible());
    EXPECT_EQ(screen->cboColour.Text(), "Green") << key;
    EXPECT_EQ(screen->cboColour.BoundValue(), platform::Value(2));
  }
}

TEST_F(Combos, TypingInTheOpenListFinds) {
  hands->Key(screen->cboColour, "F4");
  input::Type(*window, "grey");
  input::Key(*window, Qt::Key_Return, Qt::NoModifier, "\r");
  Process();
  EXPECT_EQ(screen->cboColour.Text(), "Grey");
}

TEST_F(Combos, EscapeClosesTheListAndKeepsTheChoice) {
  hands->Pick(screen->cboColour, screen->cboColour.Rows()[0]);
  hands->Key(screen->cboColour, "F4");
  input::Key(*window, Qt::Key_Down, Qt::NoModifier);
  input::Key(*window, Qt::Key_Escape, Qt::NoModifier, "\x1b");
  Process();
  EXPECT_FALSE(Combo().view()->isVisible());
  EXPECT_EQ(screen->cboColour.Text(), "Red");
}

TEST_F(Combos, AltWithALetterTypesNothing) {
  hands->Pick(screen->cboColour, screen->cboColour.Rows()[0]);
  input::Key(*window, Qt::Key_Q, Qt::AltModifier, "q");
  EXPECT_EQ(screen->cboColour.Text(), "Red");
}

}  // namespace
}  // namespace desktop_test
