#include <QMenu>
#include <QWheelEvent>
#include <cmath>

#include "desktop/map/map_window.h"

// Looking around: what the screen asks for, the rectangle, wheel, keys, the way back, the menu.
namespace desktop_test {
namespace {

using desktop::Sight;

class MapMoves : public MapWindow {
 protected:
  void SetUp() override {
    Draw(26400);
    Show();
  }
  QSizeF Size() const { return view->size(); }
  double FeetWide() const {
    return view->Seen().UnitsPerPixel() * desktop::FeetPerUnit(view->Seen().middle) * view->width();
  }
  /// Of one place by another, in pixels as they are seen now.
  double PixelsBetween(const QPointF& one, const QPointF& other) const {
    return std::hypot(one.x() - other.x(), one.y() - other.y()) / view->Seen().UnitsPerPixel();
  }
  void Wheel(int eighths, const QPoint& at) const {
    QWheelEvent event(at, view->mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &event);
  }
  QAction* Entry(QMenu* menu, const QString& caption) const {
    for (QAction* action : menu->actions())
      if (action->text().section('\t', 0, 0) == caption) return action;
    return nullptr;
  }
  QMenu* OpenMenu(const QPoint& at) const {
    view->OpenMenu(at, view->mapToGlobal(at));
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  }
};

TEST_F(MapMoves, ShowsWhatTheScreenAsksForAtLeastAsWide) {
  for (const int feet : {500, 15840, 26400, 2'000'000}) {
    Draw(feet, 120, 90);
    Finish();
    EXPECT_GE(FeetWide(), feet);
    const bool nearest = view->Seen().step == desktop::zoom::kNearest;
    EXPECT_TRUE(nearest || FeetWide() <= feet * 1.2) << FeetWide();
    EXPECT_LT(PixelsBetween(view->Seen().middle, desktop::ToPlane(map->ground.Crossing(120, 90))), 1);
  }
}

TEST_F(MapMoves, KeepsTheWidthThatWasAskedForUntilTheUserMoves) {
  window->resize(700, 500);
  QApplication::processEvents();
  EXPECT_GE(FeetWide(), 26400);
  EXPECT_LE(FeetWide(), 26400 * 1.2);
  view->ZoomBy(8, QPointF(10, 10));
  const int step = view->Seen().step;
  window->resize(1000, 700);
  QApplication::processEvents();
  EXPECT_EQ(view->Seen().step, step);
}

TEST_F(MapMoves, TheSameDrawnAgainComesBackToIt) {
  const Sight asked = view->Seen();
  view->ZoomBy(8, QPointF(10, 10));
  ASSERT_NE(view->Seen(), asked);
  Draw(26400);
  Finish();
  EXPECT_EQ(view->Seen(), asked);
}

TEST_F(MapMoves, APinThatComesLeavesTheUserWhereHeIs) {
  view->ZoomBy(8, QPointF(10, 10));
  const Sight before = view->Seen();
  AddPin("1", "Reed", map->ground.Crossing(200, 200));
  Finish();
  EXPECT_EQ(view->Seen(), before);
}

TEST_F(MapMoves, ARectangleFillsTheMap) {
  const Sight before = view->Seen();
  const QPoint from(300, 200), to(420, 260);
  desktop::input::Drag(*view, from, to);
  const QRectF shown(QPointF(0, 0), Size());
  EXPECT_LT(view->Seen().step, before.step - 8);
  for (const QPoint corner : {from, to})
    EXPECT_TRUE(shown.contains(view->Seen().ToScreen(before.ToPlane(corner, Size()), Size()))) << corner.x();
  EXPECT_LT(PixelsBetween(view->Seen().middle, before.ToPlane((QPointF(from) + to) / 2, Size())), 1);
}

TEST_F(MapMoves, AHandThatTremblesDrawsNoRectangle) {
  const Sight before = view->Seen();
  desktop::input::Drag(*view, {300, 200}, {303, 201});
  desktop::input::Drag(*view, {300, 200}, {302, 400});
  EXPECT_EQ(view->Seen(), before);
}

TEST_F(MapMoves, EscapeDropsTheRectangleAndLeavesTheScreen) {
  const Sight before = view->Seen();
  view->setFocus();
  QTest::mousePress(view, Qt::LeftButton, {}, {300, 200});
  QTest::mouseMove(view, {420, 260});
  QMouseEvent move(QEvent::MouseMove, QPointF(420, 260), view->mapToGlobal(QPointF(420, 260)), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(view, &move);
  Key(Qt::Key_Escape);
  QTest::mouseRelease(view, Qt::LeftButton, {}, {420, 260});
  EXPECT_EQ(view->Seen(), before);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(MapMoves, TheWheelZoomsAtThePointer) {
  const QPoint at(700, 120);
  const Sight before = view->Seen();
  Wheel(240, at);
  EXPECT_EQ(view->Seen().step, before.step - 4);
  EXPECT_LT(PixelsBetween(view->Seen().ToPlane(at, Size()), before.ToPlane(at, Size())), 0.01);
  Wheel(-240, at);
  EXPECT_EQ(view->Seen().step, before.step);
  EXPECT_LT(PixelsBetween(view->Seen().middle, before.middle), 0.01);
  // A fine wheel adds up.
  for (int i = 0; i < 8; ++i) Wheel(15, at);
  EXPECT_EQ(view->Seen().step, before.step - 2);
}

TEST_F(MapMoves, Keys) {
  const Sight before = view->Seen();
  Key(Qt::Key_Right);
  EXPECT_NEAR(view->Seen().middle.x() - before.middle.x(), view->width() / 4.0 * before.UnitsPerPixel(), 1);
  Key(Qt::Key_Left);
  Key(Qt::Key_Down);
  EXPECT_NEAR(view->Seen().middle.y() - before.middle.y(), view->height() / 4.0 * before.UnitsPerPixel(), 1);
  Key(Qt::Key_Up);
  EXPECT_LT(PixelsBetween(view->Seen().middle, before.middle), 0.01);
  Key(Qt::Key_Plus, "+");
  EXPECT_EQ(view->Seen().step, before.step - 4);
  Key(Qt::Key_Minus, "-");
  Key(Qt::Key_Minus, "-");
  EXPECT_EQ(view->Seen().step, before.step + 4);
  Key(Qt::Key_Home);
  EXPECT_EQ(view->Seen(), before);
}

TEST_F(MapMoves, BackspaceGoesTheWayBack) {
  const Sight first = view->Seen();
  desktop::input::Drag(*view, {300, 200}, {420, 260});
  const Sight second = view->Seen();
  view->CentreAt({10, 10});
  Key(Qt::Key_Backspace);
  EXPECT_EQ(view->Seen(), second);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(view->Seen(), first);
  EXPECT_FALSE(view->CanGoBack());
  Key(Qt::Key_Backspace);
  EXPECT_EQ(view->Seen(), first);
}

TEST_F(MapMoves, TurnsOfTheWheelInOneGoAreOneWayBack) {
  const Sight before = view->Seen();
  for (int i = 0; i < 5; ++i) Wheel(120, {300, 200});
  view->Back();
  EXPECT_EQ(view->Seen(), before);
}

TEST_F(MapMoves, TheMiddleButtonPushesTheGround) {
  const Sight before = view->Seen();
  const auto send = [&](QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, at, view->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(view, &event);
  };
  send(QEvent::MouseButtonPress, {300, 300}, Qt::MiddleButton, Qt::MiddleButton);
  send(QEvent::MouseMove, {250, 330}, Qt::NoButton, Qt::MiddleButton);
  send(QEvent::MouseButtonRelease, {250, 330}, Qt::MiddleButton, Qt::NoButton);
  EXPECT_LT(PixelsBetween(view->Seen().ToPlane({250, 330}, Size()), before.ToPlane({300, 300}, Size())), 0.01);
}

TEST_F(MapMoves, NoStepLeadsOffTheEarth) {
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Minus, "-");
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Up);
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Left);
  EXPECT_EQ(view->Seen().step, desktop::zoom::kFarthest);
  EXPECT_GE(view->Seen().middle.x(), -18'000'000);
  EXPECT_GE(view->Seen().middle.y(), -18'000'000);
  for (int i = 0; i < 60; ++i) Key(Qt::Key_Plus, "+");
  EXPECT_EQ(view->Seen().step, desktop::zoom::kNearest);
  Finish();
}

TEST_F(MapMoves, TheMenuOffersWhatTheKeysDo) {
  const Sight before = view->Seen();
  const QPoint at(640, 100);
  QMenu* menu = OpenMenu(at);
  ASSERT_NE(menu, nullptr);
  EXPECT_FALSE(Entry(menu, "Back")->isEnabled());
  Entry(menu, "Center Here")->trigger();
  EXPECT_LT(PixelsBetween(view->Seen().middle, before.ToPlane(at, Size())), 0.01);
  menu->close();
  menu = OpenMenu(at);
  EXPECT_TRUE(Entry(menu, "Back")->isEnabled());
  Entry(menu, "Zoom In")->trigger();
  EXPECT_EQ(view->Seen().step, before.step - 4);
  Entry(menu, "Zoom Out")->trigger();
  EXPECT_EQ(view->Seen().step, before.step);
  Entry(menu, "Whole Map")->trigger();
  EXPECT_EQ(view->Seen(), before);
  EXPECT_TRUE(Entry(menu, "Names at the Pins")->isChecked());
  Entry(menu, "Names at the Pins")->trigger();
  EXPECT_FALSE(view->LabelsShown());
  menu->close();
}

TEST_F(MapMoves, TheMenuKeyOpensTheMenuAndTheRightButtonToo) {
  QContextMenuEvent key(QContextMenuEvent::Keyboard, {1, 1}, view->mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(view, &key);
  ASSERT_NE(qobject_cast<QMenu*>(QApplication::activePopupWidget()), nullptr);
  QApplication::activePopupWidget()->close();
  QContextMenuEvent mouse(QContextMenuEvent::Mouse, {50, 60}, view->mapToGlobal(QPoint(50, 60)));
  QApplication::sendEvent(view, &mouse);
  ASSERT_NE(qobject_cast<QMenu*>(QApplication::activePopupWidget()), nullptr);
  QApplication::activePopupWidget()->close();
}

/// The menu's window may go while it is open.
TEST_F(MapMoves, TheWindowMayGoUnderTheMenu) {
  ASSERT_NE(OpenMenu({50, 60}), nullptr);
  CloseScreen();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

}  // namespace
}  // namespace desktop_test
