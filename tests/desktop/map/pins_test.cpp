#include <QMenu>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <random>
#include <set>

#include "desktop/map/map_window.h"

// Pins: alone with their names, many as one sign, clicks and tips.
namespace desktop_test {
namespace {

using desktop::PinLayer;
using platform::MapPoint;

class MapPins : public MapWindow {
 protected:
  void Click(const QPoint& at) const {
    desktop::input::Click(*view, at);
    QApplication::processEvents();
  }
  /// In the middle of a pin that stands alone.
  QPoint PinAt(MapPoint at) const { return ScreenOf(at) - QPoint(0, 12); }
  /// Where that text of the ground lies on the screen.
  QRectF TextBox(const desktop::PlacedText& text) const {
    const desktop::LabelSheet& sheet = *view->Ground().Sheet();
    const desktop::Sight& seen = view->Seen();
    const QPointF moved = (sheet.box.topLeft() - seen.Box(QSizeF(view->size())).topLeft()) / seen.UnitsPerPixel();
    const double half = QFontMetricsF(text.font).height() * 0.4;
    return QRectF(text.from + moved, text.to + moved).normalized().adjusted(0, -half, 0, half);
  }
  /// Whether a part of the text, which may stand askew, lies in the box.
  bool IsUnder(const desktop::PlacedText& text, const QRectF& box) const {
    const desktop::LabelSheet& sheet = *view->Ground().Sheet();
    const desktop::Sight& seen = view->Seen();
    const QPointF moved = (sheet.box.topLeft() - seen.Box(QSizeF(view->size())).topLeft()) / seen.UnitsPerPixel();
    constexpr int kParts = 40;
    for (int i = 0; i <= kParts; ++i)
      if (box.contains(text.from + moved + (text.to - text.from) * i / kParts)) return true;
    return false;
  }
  std::size_t PinsSeen() const {
    std::size_t count = 0;
    for (const PinLayer::Sign& sign : view->Pins().Signs()) count += sign.heap.count;
    return count;
  }
};

TEST_F(MapPins, AClickOnAPinTellsTheScreen) {
  const MapPoint here = map->ground.Crossing(200, 200), there = map->ground.Crossing(230, 210);
  AddPin("7", "Reed, Bob", here);
  AddPin("8", "Hill, Ann", there);
  Draw(26400);
  Show();
  Click(PinAt(here));
  Click(PinAt(there));
  Click(PinAt(there) + QPoint(60, 60));
  EXPECT_EQ(clicked, (std::vector<std::string>{"7", "8"}));
}

TEST_F(MapPins, APinThatHasGoneSinceIsNotClicked) {
  const MapPoint here = map->ground.Crossing(200, 200);
  AddPin("7", "Reed, Bob", here);
  Draw(26400);
  Show();
  const QPoint at = PinAt(here);
  map->RemovePins();
  Click(at);
  EXPECT_TRUE(clicked.empty());
}

TEST_F(MapPins, NamesOfPlacesStandBesideTheSigns) {
  Draw(200'000, 50, 50);
  Show();
  for (int i = 0; i < 40; ++i) AddPin(std::to_string(i), "Customer", map->ground.Crossing(50, 50));
  Finish();
  ASSERT_EQ(view->Pins().Signs().size(), 1u);
  const QRectF sign = view->Pins().Signs()[0].box;
  bool isThere = false;
  for (const desktop::PlacedText& text : view->Ground().Texts()) {
    if (text.alongStreet) continue;
    EXPECT_FALSE(TextBox(text).intersects(sign)) << text.text.toStdString();
    const QPointF away = TextBox(text).center() - sign.center();
    isThere = isThere || (text.text == "Town 500" && std::hypot(away.x(), away.y()) < 80);
  }
  EXPECT_TRUE(isThere) << "the town's name has gone";
}

TEST_F(MapPins, NamesStandAtThePinsAndCoverNothing) {
  std::mt19937 random(3);
  for (int i = 0; i < 60; ++i)
    AddPin(std::to_string(i), "Customer " + std::to_string(i) + "             ",
           map->ground.Crossing(170 + static_cast<int>(random() % 60), 180 + static_cast<int>(random() % 40)));
  Draw(26400);
  Show();
  const auto& labels = view->Pins().Labels();
  ASSERT_GT(labels.size(), 10u);
  for (std::size_t i = 0; i < labels.size(); ++i) {
    EXPECT_EQ(labels[i].text, labels[i].text.trimmed());
    EXPECT_TRUE(QRectF(view->rect()).contains(labels[i].box));
    for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(labels[i].box.intersects(labels[j].box)) << i << " " << j;
    for (const PinLayer::Sign& sign : view->Pins().Signs()) EXPECT_FALSE(labels[i].box.intersects(sign.box)) << i;
  }
  view->ShowLabels(false);
  view->repaint();
  EXPECT_TRUE(view->Pins().Labels().empty());
}

TEST_F(MapPins, NoNameOfTheGroundLiesUnderALabel) {
  std::mt19937 random(5);
  for (int i = 0; i < 40; ++i)
    AddPin(std::to_string(i), "Customer " + std::to_string(i), map->ground.Crossing(140 + static_cast<int>(random() % 120), 160 + static_cast<int>(random() % 80)));
  for (const int width : {8000, 13'000, 26400, 35'000, 60'000}) {
    Draw(width);
    Show();
    ASSERT_GE(view->Pins().Labels().size(), 1U) << width;
    ASSERT_GE(view->Ground().Texts().size(), 5U) << width;
    for (const PinLayer::Label& label : view->Pins().Labels())
      for (const desktop::PlacedText& text : view->Ground().Texts())
        EXPECT_FALSE(IsUnder(text, label.box)) << width << ": " << text.text.toStdString();
  }
}

TEST_F(MapPins, ManyInOnePlaceAreOneSignWithTheirNumber) {
  for (int i = 0; i < 40; ++i) AddPin(std::to_string(i), "Customer " + std::to_string(i), map->ground.Crossing(200 + i % 4, 200 + i / 4));
  Draw(2'000'000);
  Show();
  EXPECT_EQ(PinsSeen(), 40u);
  EXPECT_LE(view->Pins().Signs().size(), 4u);
  EXPECT_TRUE(view->Pins().Labels().empty());
}

TEST_F(MapPins, AClickOnTheSignGoesNearerUntilThePinsStandApart) {
  for (int i = 0; i < 40; ++i) AddPin(std::to_string(i), "Customer " + std::to_string(i), map->ground.Crossing(200 + i % 4, 200 + i / 4));
  Draw(2'000'000);
  Show();
  for (int clicks = 0; clicks < 12; ++clicks) {
    const auto& signs = view->Pins().Signs();
    const auto heap = std::find_if(signs.begin(), signs.end(), [](const PinLayer::Sign& sign) { return sign.IsHeap(); });
    if (heap == signs.end()) break;
    const int step = view->Seen().step;
    Click(heap->box.center().toPoint());
    EXPECT_LE(view->Seen().step, step - 4);
    Finish();
  }
  for (const PinLayer::Sign& sign : view->Pins().Signs()) EXPECT_FALSE(sign.IsHeap());
  EXPECT_GT(view->Pins().Signs().size(), 1u);
  EXPECT_TRUE(clicked.empty());
  while (view->CanGoBack()) view->Back();
  Finish();
  EXPECT_EQ(view->Pins().Signs().size(), 1u) << "where it was before";
}

TEST_F(MapPins, ThoseThatNoZoomPartsAreNamedInAMenu) {
  const MapPoint here = map->ground.Crossing(200, 200);
  AddPin("7", "Reed & Sons", here);
  AddPin("8", "Hill, Ann", here);
  Draw(26400);
  Show();
  Click(ScreenOf(here));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 2);
  EXPECT_EQ(menu->actions()[0]->text(), "Reed && Sons");
  menu->actions()[1]->trigger();
  menu->close();
  QApplication::processEvents();
  EXPECT_EQ(clicked, (std::vector<std::string>{"8"}));
}

TEST_F(MapPins, TheTipNamesThem) {
  const MapPoint here = map->ground.Crossing(200, 200), there = map->ground.Crossing(230, 210);
  AddPin("7", "Reed, Bob     ", here);
  for (int i = 0; i < 15; ++i) AddPin(std::to_string(20 + i), "Customer " + std::to_string(20 + i), there);
  Draw(26400);
  Show();
  EXPECT_EQ(view->TipAt(PinAt(here)), "Reed, Bob");
  const QStringList lines = view->TipAt(ScreenOf(there)).split('\n');
  EXPECT_EQ(lines.size(), 13);
  EXPECT_EQ(lines.first(), "Customer 20");
  EXPECT_EQ(lines.last(), "and 3 more");
  EXPECT_EQ(view->TipAt({3, 3}), "");
}

TEST_F(MapPins, APictureThatCanBeReadIsThePin) {
  QPixmap picture(20, 30);
  picture.fill(Qt::magenta);
  QPainter(&picture).fillRect(5, 5, 10, 25, Qt::green);
  const QString file = settings.path() + "/pin.bmp";
  ASSERT_TRUE(picture.save(file));
  const MapPoint here = map->ground.Crossing(200, 200), there = map->ground.Crossing(230, 210);
  map->AddPin({"7", here.latitude, here.longitude, "", 5730, file.toStdString()});
  map->AddPin({"8", there.latitude, there.longitude, "", 5730, file.toStdString() + ".no"});
  Draw(26400);
  Show();
  std::set<double> heights;
  for (const PinLayer::Sign& sign : view->Pins().Signs()) heights.insert(sign.box.height());
  EXPECT_EQ(heights, (std::set<double>{24, 30}));
  const QImage seen = view->grab().toImage();
  const double ratio = seen.devicePixelRatio();
  const auto at = [&](int x, int y) { return seen.pixelColor(((QPointF(ScreenOf(here)) + QPointF(x, y)) * ratio).toPoint()); };
  EXPECT_EQ(at(0, -12), QColor(Qt::green));
  // The colour around it is not of the pin.
  EXPECT_NE(at(-8, -12), QColor(Qt::magenta));
}

TEST_F(MapPins, AHundredThousandAreAllCountedAtEveryZoom) {
  std::mt19937 random(3);
  for (int i = 0; i < 100'000; ++i)
    AddPin(std::to_string(i), "c", map->ground.Crossing(static_cast<int>(random() % 400), static_cast<int>(random() % 400)));
  for (const int width : {200'000, 1'000'000, 20'000'000}) {
    Draw(width);
    Show();
    EXPECT_EQ(PinsSeen(), 100'000u) << width;
    EXPECT_LE(view->Pins().Signs().size(), 400u) << width;
  }
  Key(Qt::Key_Home);
  Finish();
  EXPECT_EQ(PinsSeen(), 100'000u);
}

}  // namespace
}  // namespace desktop_test
