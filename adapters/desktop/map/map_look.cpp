#include "desktop/map/map_look.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace desktop {

using platform::MapLine;
using platform::MapText;

namespace {

/// Of one kind of line: its colours by day and by night, from how near on it is drawn and named (units a pixel), and its width in
/// pixels at a hundred units and at one unit a pixel.
struct LineLook {
  const char* fill;
  const char* outline;
  const char* darkFill;
  const char* darkOutline;
  double drawnFrom;
  double namedFrom;
  double widthFar;
  double widthNear;
  bool dashed;
};

constexpr std::array<LineLook, 7> kLooks{{
    {"#8d7fa3", "", "#8a7ba6", "", 1e9, 0, 1.6, 2.4, false},
    {"#b5abc2", "", "#5d5570", "", 4000, 0, 0.9, 1.6, true},
    {"#f0a95c", "#c07f35", "#a8763c", "#6b4a26", 1500, 120, 2.6, 15, false},
    {"#f7d580", "#c9a552", "#8c7a45", "#574c2c", 300, 40, 1.6, 13, false},
    {"#ffffff", "#b9b2a5", "#646a73", "#3a3e45", 90, 9, 1.1, 11, false},
    {"#ffffff", "#d5d0c6", "#4b5058", "#363a41", 28, 4.5, 0.7, 9, false},
    {"#b3a48c", "", "#6d675c", "", 4, 1.5, 0.6, 1.8, true},
}};

const LineLook& LookOf(MapLine kind) { return kLooks.at(static_cast<std::size_t>(kind)); }

/// From afar to near by the logarithm of the zoom.
double WidthAt(const LineLook& look, double unitsPerPixel) {
  const double nearness = std::clamp(1 - std::log10(std::max(unitsPerPixel, 0.1)) / 2, 0.0, 1.5);
  return look.widthFar * std::pow(look.widthNear / look.widthFar, nearness);
}

constexpr double kNarrow = 3;  // pixels: a road below that is a mere line

}  // namespace

QColor MapLook::Land() const { return {dark ? "#23272c" : "#f3f0e8"}; }
QColor MapLook::Text() const { return {dark ? "#d7dbe0" : "#33383f"}; }
QColor MapLook::Halo() const { return {dark ? "#1b1e22" : "#ffffff"}; }
QColor MapLook::Sign() const { return {dark ? "#4d92dd" : "#1f5fb0"}; }
QColor MapLook::Sheet() const { return {dark ? "#2e3238" : "#ffffff"}; }

bool MapLook::Draws(MapLine kind, double unitsPerPixel) { return unitsPerPixel <= LookOf(kind).drawnFrom; }
bool MapLook::Names(MapLine kind, double unitsPerPixel) { return unitsPerPixel <= LookOf(kind).namedFrom; }

QPen MapLook::Outline(MapLine kind, double unitsPerPixel) const {
  const LineLook& look = LookOf(kind);
  const char* colour = dark ? look.darkOutline : look.outline;
  const double width = WidthAt(look, unitsPerPixel);
  if (*colour == '\0' || width < kNarrow) return {Qt::NoPen};
  constexpr double kEdges = 1.6;
  return {QColor(colour), width + kEdges, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPen MapLook::Fill(MapLine kind, double unitsPerPixel) const {
  const LineLook& look = LookOf(kind);
  const double width = WidthAt(look, unitsPerPixel);
  const bool bare = width < kNarrow && !dark && *look.outline != '\0';
  QPen pen(QColor(bare ? look.outline : (dark ? look.darkFill : look.fill)), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  if (!look.dashed) return pen;
  pen.setCapStyle(Qt::FlatCap);
  pen.setDashPattern({4, 3});
  return pen;
}

QColor MapLook::TextOf(MapText kind) const {
  if (kind == MapText::Zip) return {dark ? "#9d8fc0" : "#7a63a8"};
  return {dark ? "#f0f2f5" : "#22262b"};
}

QFont MapLook::FontOf(MapText kind) const {
  QFont made = font;
  if (kind == MapText::Place) made.setWeight(QFont::DemiBold);
  if (kind == MapText::Zip) made.setPointSizeF(made.pointSizeF() * 0.86);
  return made;
}

QFont MapLook::FontOf(MapLine kind) const {
  QFont made = font;
  made.setPointSizeF(made.pointSizeF() * (kind <= MapLine::MainRoad ? 0.92 : 0.84));
  return made;
}

}  // namespace desktop
