#include <QImage>
#include <algorithm>
#include <cmath>

#include "desktop/map/map_window.h"
#include "desktop/map/tile_job.h"

// Where the earth's two edges meet: islands of one country lie on both sides of it.
namespace desktop_test {
namespace {

using desktop::PlaneBox;
using desktop::PlanePoint;
using desktop::Sight;
using platform::MapBox;
using platform::MapLine;
using platform::MapPoint;
using platform::MapText;

constexpr std::int32_t kSeam = 18'000'000;

/// An island through which the antimeridian goes, with a street over it; another whose outline was cut in two there; towns on both sides.
class Islands final : public platform::MapGround {
 public:
  void Lines(MapLine kind, const MapBox& box, double, const TakeLine& take) override {
    asked.push_back(box);
    if (kind == MapLine::State) {
      Give(box, kind, {{5'100'000, 17'950'000}, {5'100'000, -17'950'000}, {5'200'000, -17'950'000}, {5'200'000, 17'950'000}, {5'100'000, 17'950'000}}, "", take);
      Give(box, kind, {{5'300'000, 17'950'000}, {5'300'000, kSeam}, {5'400'000, kSeam}, {5'400'000, 17'950'000}, {5'300'000, 17'950'000}}, "", take);
      Give(box, kind, {{5'300'000, -17'950'000}, {5'300'000, -kSeam}, {5'400'000, -kSeam}, {5'400'000, -17'950'000}, {5'300'000, -17'950'000}}, "", take);
    }
    if (kind == MapLine::Highway) Give(box, kind, {{5'150'000, -17'990'000}, {5'150'000, 17'990'000}}, "Seam Road", take);
  }
  void Texts(const MapBox& box, double, const TakeText& take) override {
    asked.push_back(box);
    for (const auto& [longitude, name] : {std::pair{17'960'000, "Westport"}, std::pair{-17'960'000, "Eastport"}})
      if (box.west <= longitude && longitude <= box.east && box.south <= 5'150'000 && 5'150'000 <= box.north) take(MapText::Place, {5'150'000, longitude}, name);
  }
  std::vector<std::string> Notices() const override { return {}; }

  std::vector<MapBox> asked;

 private:
  static void Give(const MapBox& box, MapLine kind, const std::vector<MapPoint>& points, const std::string& name, const TakeLine& take) {
    // As an index of boxes finds it.
    const auto [west, east] = std::ranges::minmax(points, {}, &MapPoint::longitude);
    if (west.longitude <= box.east && east.longitude >= box.west) take(kind, points, name);
  }
};

class AntimeridianGround : public MapWindow {
 protected:
  static Sight At(double degreesEast, int step) { return Sight{desktop::ToPlane({5'150'000, static_cast<std::int32_t>(degreesEast * 1e5)}), step}.Held(); }

  /// Everything that is seen, with the names.
  QImage Drawn(const Sight& sight) {
    const desktop::MapLook look{false, QFont()};
    const desktop::GroundFrame frame{sight, QSizeF(800, 600), 1};
    layer_.Show(&islands_, look);
    while (layer_.Slice(frame, 100)) {
    }
    QImage picture(800, 600, QImage::Format_RGB32);
    {
      QPainter painter(&picture);
      layer_.Paint(painter, frame);
    }
    for (const MapBox& box : islands_.asked) {
      EXPECT_GE(box.west, -kSeam);
      EXPECT_LE(box.east, kSeam);
    }
    return picture;
  }
  /// Pixels that aren't bare land, in a part of the picture.
  static int Inked(const QImage& picture, const QRect& part) {
    const QColor land = desktop::MapLook{false, QFont()}.Land();
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
      for (int x = part.left(); x <= part.right(); ++x) count += picture.pixelColor(x, y) != land ? 1 : 0;
    return count;
  }
  std::vector<QString> Names() const {
    std::vector<QString> names;
    for (const desktop::PlacedText& text : layer_.Texts()) names.push_back(text.text);
    std::ranges::sort(names);
    return names;
  }

  Islands islands_;
  desktop::GroundLayer layer_{[](const desktop::GroundFrame&, const desktop::GroundFrame&) { return std::vector<QRectF>(); }};
};

TEST_F(AntimeridianGround, NoLineGoesAroundTheEarth) {
  for (const double degrees : {0.0, -100.0, 90.0, 170.0, -170.0})
    for (const int step : {20, 30, 40}) EXPECT_EQ(Inked(Drawn(At(degrees, step)), {0, 0, 800, 600}), 0) << degrees << " " << step;
  // The whole earth: the islands at both its edges, and nothing between.
  const QImage whole = Drawn(At(0, desktop::zoom::kFarthest));
  EXPECT_EQ(Inked(whole, {100, 0, 600, 600}), 0);
}

TEST_F(AntimeridianGround, BothSidesAreSeenFromEither) {
  for (const double degrees : {179.95, -179.95, 180.0, -180.0}) {
    const Sight sight = At(degrees, 33);  // the island is 30 pixels wide
    const QImage picture = Drawn(sight);
    const auto x = [&](double east) { return static_cast<int>(sight.ToScreen(desktop::NearestTurn(desktop::ToPlane({5'150'000, static_cast<std::int32_t>(east * 1e5)}), sight.middle), {800, 600}).x()); };
    EXPECT_NEAR(x(-179.5) - x(179.5), 100'000 / sight.UnitsPerPixel(), 1) << degrees;
    EXPECT_GT(Inked(picture, {x(179.5) - 1, 200, 3, 200}), 5) << degrees;
    EXPECT_GT(Inked(picture, {x(-179.5) - 1, 200, 3, 200}), 5) << degrees;
    // The road goes over the seam, and nothing beyond the islands.
    EXPECT_GT(Inked(picture, {x(180) - 1, 290, 3, 20}), 0) << degrees;
    EXPECT_EQ(Inked(picture, {0, 0, x(179.3), 600}), 0) << degrees;
    EXPECT_EQ(Inked(picture, {x(-179.3), 0, 800 - x(-179.3), 600}), 0) << degrees;
  }
}

TEST_F(AntimeridianGround, NamesOfBothSidesStand) {
  Drawn(At(179.99, 28));
  EXPECT_EQ(Names(), (std::vector<QString>{"Eastport", "Westport"}));
  Drawn(At(-179.99, 28));
  EXPECT_EQ(Names(), (std::vector<QString>{"Eastport", "Westport"}));
}

TEST_F(AntimeridianGround, TheCutOfAnOutlineIsNoBorder) {
  const Sight sight = At(180, 42);
  const QImage picture = Drawn(sight);
  const auto y = [&](std::int32_t latitude) { return static_cast<int>(sight.ToScreen(desktop::ToPlane({latitude, kSeam}), {800, 600}).y()); };
  ASSERT_GT(y(5'400'000), 0);
  EXPECT_EQ(Inked(picture, {395, y(5'350'000) - 5, 10, 10}), 0);
  EXPECT_GT(Inked(picture, {395, y(5'300'000) - 3, 10, 6}), 5);
}

class AntimeridianPins : public MapWindow {
 protected:
  std::size_t PinsSeen() const {
    std::size_t count = 0;
    for (const desktop::PinLayer::Sign& sign : view->Pins().Signs()) count += sign.heap.count;
    return count;
  }
};

TEST_F(AntimeridianPins, AllOfThemAreNearEachOther) {
  AddPin("1", "Reed", {5'150'000, 17'960'000});
  AddPin("2", "Hill", {5'160'000, -17'960'000});
  AddPin("3", "Lake", {5'140'000, kSeam});
  Draw(26400);
  Show();
  Key(Qt::Key_Home);
  Finish();
  EXPECT_EQ(PinsSeen(), 3u);
  EXPECT_LT(view->Seen().UnitsPerPixel() * view->width(), 300'000);
  std::vector<double> across;
  for (const desktop::PinLayer::Sign& sign : view->Pins().Signs()) across.push_back(sign.box.center().x());
  ASSERT_EQ(across.size(), 3u);
  const auto [west, east] = std::ranges::minmax(across);
  EXPECT_NEAR(east - west, 80'000 / view->Seen().UnitsPerPixel(), 1);
}

TEST_F(AntimeridianPins, AMapThatIsPushedOverTheSeamGoesOn) {
  AddPin("2", "Hill", {5'150'000, -17'990'000});
  map->Draw(5'150'000, 17'990'000, 26400);
  Show();
  for (int i = 0; i < 20 && PinsSeen() == 0; ++i) {
    Key(Qt::Key_Right);
    Finish();
  }
  EXPECT_EQ(PinsSeen(), 1u);
}

// A screen on which the earth has room for more than once.
TEST_F(AntimeridianPins, FromAfarEachIsThereOnce) {
  std::vector<platform::MapPin> pins;
  for (int i = 0; i < 36; ++i) pins.push_back({std::to_string(i), 1'000'000, -kSeam + i * 1'000'000, "Reed", 5730, ""});
  desktop::PinLayer layer;
  layer.Follow(&pins);
  QImage picture(1600, 600, QImage::Format_RGB32);
  QPainter painter(&picture);
  for (int middle = -17'500'000; middle <= kSeam; middle += 2'500'000) {
    const desktop::GroundFrame frame{Sight{{static_cast<double>(middle), 0}, desktop::zoom::kFarthest}.Held(), picture.size(), 1};
    ASSERT_GT(frame.sight.Box(frame.size).width(), desktop::kTurn);
    layer.Paint(painter, frame, {false, QFont()}, false);
    std::size_t count = 0;
    for (const desktop::PinLayer::Sign& sign : layer.Signs()) count += sign.heap.count;
    EXPECT_EQ(count, pins.size()) << middle;
  }
}

}  // namespace
}  // namespace desktop_test
