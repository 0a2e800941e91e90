#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPolygonF>
#include <QPrinter>
#include <algorithm>
#include <cmath>
#include <map>

#include "desktop/look/theme.h"
#include "desktop/map/find_box.h"
#include "desktop/map/furniture.h"
#include "desktop/map/map_window.h"

// The ground: tiles, names, both schemes; what the menu does beside moving; a map without anything to draw.
namespace desktop_test {
namespace {

class MapGroundView : public MapWindow {
 protected:
  QColor ColourAt(const QPoint& at) const {
    const QImage seen = view->grab().toImage();
    return seen.pixelColor(QPointF(QPointF(at) * seen.devicePixelRatio()).toPoint());
  }
  void UseDark(bool dark) const {
    QApplication::setPalette(desktop::theme::Colours(dark));
    window->setPalette(desktop::theme::Colours(dark));
    QApplication::processEvents();
    Finish();
  }
};

/// The text's box, a little smaller: letters rarely fill it.
QPolygonF BoxOf(const desktop::PlacedText& text) {
  const QPointF way = text.to - text.from;
  const double length = std::hypot(way.x(), way.y());
  const QPointF across = QPointF(-way.y(), way.x()) / length * QFontMetricsF(text.font).height() * 0.4;
  return QPolygonF{text.from + across, text.to + across, text.to - across, text.from - across};
}

TEST_F(MapGroundView, NoTextCoversAnotherAtAnyZoom) {
  for (const int width : {3000, 8000, 26400, 200'000, 3'000'000}) {
    Draw(width);
    Show();
    const auto& texts = view->Ground().Texts();
    ASSERT_GE(texts.size(), 1u) << width;
    std::vector<QPolygonF> boxes;
    for (const desktop::PlacedText& text : texts) boxes.push_back(BoxOf(text));
    for (std::size_t i = 0; i < boxes.size(); ++i)
      for (std::size_t j = 0; j < i; ++j)
        EXPECT_FALSE(boxes[i].intersects(boxes[j])) << width << ": " << texts[i].text.toStdString() << ", " << texts[j].text.toStdString();
  }
}

TEST_F(MapGroundView, StreetsBearTheirNamesAlongThem) {
  Draw(4000);
  Show();
  int rows = 0, columns = 0;
  for (const desktop::PlacedText& text : view->Ground().Texts()) {
    const QPointF way = text.to - text.from;
    const double steepness = std::abs(way.y()) / std::max(0.01, std::abs(way.x()));
    if (text.text.contains(" St ")) {
      ++rows;
      EXPECT_LT(steepness, 1) << text.text.toStdString();
    } else if (text.text.endsWith("th Ave")) {
      ++columns;
      EXPECT_GT(steepness, 1) << text.text.toStdString();
    }
    EXPECT_GE(way.x(), -0.01) << "upside down: " << text.text.toStdString();
  }
  EXPECT_GT(rows, 5);
  EXPECT_GT(columns, 5);
}

TEST_F(MapGroundView, NamesStayWhereTheyAreWhenTheMapIsPushed) {
  Draw(4000);
  Show();
  const auto inPlane = [this] {
    std::map<QString, std::vector<QPointF>> places;
    const desktop::LabelSheet& sheet = *view->Ground().Sheet();
    for (const desktop::PlacedText& text : view->Ground().Texts())
      if (text.alongStreet) places[text.text].push_back(sheet.box.topLeft() + (text.from + text.to) / 2 * view->Seen().UnitsPerPixel());
    return places;
  };
  const auto before = inPlane();
  Key(Qt::Key_Right);
  Finish();
  const auto after = inPlane();
  const desktop::PlaneBox seen = view->Seen().Box(view->size()).adjusted(100, 100, -400, -100);
  int stayed = 0;
  for (const auto& [text, places] : before) {
    for (const QPointF& place : places) {
      if (!seen.contains(place)) continue;
      const auto found = after.find(text);
      ASSERT_NE(found, after.end()) << text.toStdString();
      EXPECT_TRUE(std::any_of(found->second.begin(), found->second.end(),
                              [&](const QPointF& now) { return std::hypot(now.x() - place.x(), now.y() - place.y()) < 2; }))
          << text.toStdString();
      ++stayed;
    }
  }
  EXPECT_GT(stayed, 3);
}

TEST_F(MapGroundView, TilesAreKeptWithinTheirBoundWhereverTheUserGoes) {
  Draw(12000);
  Show();
  for (int i = 0; i < 40; ++i) {
    Key(i % 8 < 4 ? Qt::Key_Right : Qt::Key_Down);
    if (i % 10 == 0) Key(Qt::Key_Plus, "+");
    if (i % 10 == 5) Key(Qt::Key_Minus, "-");
    Finish();
    EXPECT_LE(view->Ground().Tiles().Bytes(), desktop::TileCache::kMostBytes);
  }
}

TEST_F(MapGroundView, WhatIsKeptIsNotReadAgain) {
  Draw(12000);
  Show();
  const long read = map->ground.read;
  const desktop::Sight before = view->Seen();
  view->ZoomBy(4, QPointF(100, 100));
  Finish();
  EXPECT_GT(map->ground.read, read);
  view->Back();
  const long readTwice = map->ground.read;
  Finish();
  EXPECT_EQ(view->Seen(), before);
  EXPECT_EQ(map->ground.read, readTwice);
}

TEST_F(MapGroundView, BothSchemes) {
  Draw(4000);
  Show();
  for (const bool dark : {false, true, false}) {
    UseDark(dark);
    int landPixels = 0;
    const QImage seen = view->grab().toImage();
    const desktop::MapLook look{dark, view->font()};
    for (int x = 0; x < seen.width(); x += 3)
      for (int y = 0; y < seen.height(); y += 3) landPixels += seen.pixelColor(x, y) == look.Land() ? 1 : 0;
    EXPECT_GT(landPixels, seen.width() / 3 * seen.height() / 3 / 3) << dark;
  }
  QApplication::setPalette(desktop::theme::Colours(false));
}

TEST_F(MapGroundView, TheFineScreenGetsFineTiles) {
  Draw(8000);
  Show();
  bool any = false;
  view->Ground().Tiles().EachOf(view->Seen().step, [&](const desktop::TileKey&, const desktop::Tile& tile) {
    any = true;
    EXPECT_EQ(tile.picture.width(), qRound(desktop::TileKey::kSide * view->devicePixelRatioF()));
  });
  EXPECT_TRUE(any);
}

TEST_F(MapGroundView, AGroundThatCantBeReadLeavesThePinsAndSaysSo) {
  map->ground.failure = "disk I/O error";
  const platform::MapPoint here = map->ground.Crossing(200, 200);
  AddPin("7", "Reed, Bob", here);
  Draw(26400);
  Show();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  desktop::input::Click(*view, ScreenOf(here) - QPoint(0, 12));
  QApplication::processEvents();
  EXPECT_EQ(clicked, (std::vector<std::string>{"7"}));
}

TEST_F(MapGroundView, WhatTheUserShouldKnowStandsAtTheTop) {
  Draw(26400);
  Show();
  const QPoint middleTop(view->width() / 2, 16);
  const QColor before = ColourAt(middleTop);
  map->ground.complaint = "No streets of this county are installed.";
  Draw(26400);
  Finish();
  EXPECT_NE(ColourAt(middleTop), before);
}

TEST_F(MapGroundView, AnAddressIsFoundAndSeen) {
  map->addresses["12 Oak St, Duluth"] = map->ground.Crossing(90, 120);
  Draw(26400);
  Show();
  view->OpenFindBox();
  auto* box = view->findChild<desktop::FindBox*>();
  auto* line = box->findChild<QLineEdit*>();
  ASSERT_TRUE(box->isVisible());
  desktop::input::Type(*window, "1 Nowhere St");
  desktop::input::Key(*window, Qt::Key_Return, Qt::NoModifier, "\r");
  QApplication::processEvents();
  EXPECT_EQ(box->Answer(), "No such address.");
  line->setText("12 Oak  St, Duluth ");
  desktop::input::Key(*window, Qt::Key_Return, Qt::NoModifier, "\r");
  QApplication::processEvents();
  EXPECT_EQ(map->asked, (std::vector<std::string>{"1 Nowhere St", "12 Oak St, Duluth"}));
  EXPECT_EQ(box->Answer(), "");
  EXPECT_EQ(ScreenOf(map->ground.Crossing(90, 120)), QPoint(view->width() / 2, view->height() / 2));
  // Escape closes the box, not the window; the control knows nothing of it.
  desktop::input::Key(*window, Qt::Key_Escape, Qt::NoModifier, "\x1b");
  QApplication::processEvents();
  EXPECT_FALSE(box->isVisible());
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(view->hasFocus());
  EXPECT_EQ(screen->Pwstreet1.Address, "");
  EXPECT_EQ(screen->Pwstreet1.Latitude, 0);
}

TEST_F(MapGroundView, ThePictureIsCopiedAndPrinted) {
  AddPin("7", "Reed, Bob", map->ground.Crossing(200, 200));
  Draw(26400);
  Show();
  view->CopyPicture();
  const QImage copied = QApplication::clipboard()->image();
  EXPECT_EQ(copied.size(), (QSizeF(view->size()) * view->devicePixelRatioF()).toSize());
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(settings.path() + "/map.pdf");
  view->PrintOn(printer);
  EXPECT_GT(QFileInfo(settings.path() + "/map.pdf").size(), 20'000);
}

TEST_F(MapGroundView, TheMapHasTheKeyboardAtFirst) {
  Draw(26400);
  Show();
  screen->MoveFocus(screen->NextInTabOrder(nullptr));
  EXPECT_EQ(screen->Focus(), &screen->Pwstreet1);
  EXPECT_EQ(view->accessibleName(), "Street map");
}

TEST(MapScaleBar, IsARoundLengthInFeetOrMiles) {
  for (double feet = 0.3; feet < 60'000; feet *= 1.17) {
    const desktop::furniture::ScaleBar bar = desktop::furniture::ScaleBarFor(feet, 140);
    EXPECT_LE(bar.pixels, 140.5) << feet;
    EXPECT_GE(bar.pixels, feet * 140 < 5280 || feet * 140 >= 2 * 5280 ? 55 : 35) << feet;
    EXPECT_TRUE(bar.text.endsWith(" ft") || bar.text.contains(" mile")) << feet;
  }
  EXPECT_EQ(desktop::furniture::ScaleBarFor(10, 140).text, "1,000 ft");
  EXPECT_EQ(desktop::furniture::ScaleBarFor(40, 140).text, "1 mile");
  EXPECT_EQ(desktop::furniture::ScaleBarFor(1000, 140).text, "20 miles");
}

/// An engine that answers and has nothing to be seen.
class BlindMap final : public platform::MapEngine {
 public:
  platform::GeocodeAnswer Geocode(const std::string&) override { return {}; }
  std::int32_t Distance(std::int32_t, std::int32_t, std::int32_t, std::int32_t) override { return 0; }
  void Prepare() override {}
  void AddPin(const platform::MapPin&) override {}
  void RemovePins() override {}
  void Draw(std::int32_t, std::int32_t, std::int32_t) override {}
};

template <class Engine>
class MapWithout : public MapWindow {
 protected:
  MapWithout() : MapWindow(Make()) {}
  static std::unique_ptr<platform::MapEngine> Make() {
    if constexpr (std::is_void_v<Engine>) {
      return nullptr;
    } else {
      return std::make_unique<Engine>();
    }
  }
};
using Nothings = testing::Types<void, BlindMap>;
TYPED_TEST_SUITE(MapWithout, Nothings);

TYPED_TEST(MapWithout, ShowsEmptyGroundWithoutComplaint) {
  this->Show();
  this->Key(Qt::Key_Plus, "+");
  this->Key(Qt::Key_Home);
  this->Key(Qt::Key_Left);
  desktop::input::Drag(*this->view, {100, 100}, {300, 300});
  desktop::input::Click(*this->view, {200, 200});
  this->view->CopyPicture();
  this->Finish();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(this->view->Ground().Tiles().Count(), 0u);
  EXPECT_TRUE(this->view->Pins().Signs().empty());
}

}  // namespace
}  // namespace desktop_test
