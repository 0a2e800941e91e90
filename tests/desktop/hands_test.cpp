#include <QImage>
#include <QTemporaryDir>

#include "desktop/hands/input.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

namespace input = desktop::input;

class Hands : public Desk {
 protected:
  void SetUp() override { Open(); }
};

TEST_F(Hands, KeysHaveNames) {
  const auto named = input::KeyByName("Ctrl+Shift+F7");
  EXPECT_EQ(named.key, Qt::Key_F7);
  EXPECT_EQ(named.modifiers, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(input::KeyByName("shift+tab").key, Qt::Key_Backtab);
  EXPECT_EQ(input::KeyByName("a").text, "a");
  EXPECT_EQ(input::KeyByName("Ctrl+A").text, "");
  EXPECT_EQ(input::KeyByName("nonsense").key, Qt::Key_unknown);
}

TEST_F(Hands, APictureIsWritten) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("screen.png");
  hands->Screenshot(screen.get(), path.toStdString());
  EXPECT_EQ(QImage(path).size(), window->size() * window->devicePixelRatio());
}

TEST_F(Hands, APictureThatCanNotBeWrittenIsTold) {
  EXPECT_THROW(hands->Screenshot(screen.get(), "/nowhere/at/all.png"), std::runtime_error);
}

TEST_F(Hands, CloseTheWindowByItsFrame) {
  hands->CloseForm(*screen);
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(Hands, AnItemThatClosesTheScreenIsClickedInItsMenu) {
  hands->Click(screen->miExit);
  EXPECT_FALSE(screen->Loaded());
}

TEST_F(Hands, ADisabledButtonTakesNoClick) {
  screen->SSIndexTab1.Tab(1);
  screen->cmdGo.Enabled(false);
  Process();
  hands->Click(screen->cmdGo);
  EXPECT_FALSE(Saw("Click cmdGo"));
}

}  // namespace
}  // namespace desktop_test
