#include <QListWidget>
#include <QScrollBar>

#include "desktop/map/map_window.h"

// The window around the map.
namespace desktop_test {
namespace {

class MapLayout : public MapWindow {
 protected:
  QRect PlaceOf(const char* name) const {
    const auto* widget = window->findChild<QWidget*>(name);
    return {widget->mapTo(window, QPoint()), widget->size()};
  }
  void ShowCandidates(int count) const {
    for (int i = 0; i < count; ++i) screen->lstMap.AddItem("-9210000 4678000 12 Oak St");
    screen->lblMatches.Caption(std::to_string(count) + " Address Matches Found");
    screen->lblMatches.Visible(true);
    screen->Scroll1.Visible(true);
    screen->Scroll1.Max(count - 1);
    for (const auto& binding : window->Bindings()) binding->ShowAll();
    QApplication::processEvents();
  }
};

TEST_F(MapLayout, TheMapFillsTheWindow) {
  Draw(26400);
  for (const QSize& size : {QSize(1024, 700), QSize(700, 480), QSize(1600, 1100)}) {
    Show(size);
    const QRect shown = PlaceOf("Pwstreet1"), frame = PlaceOf("Frame1");
    EXPECT_EQ(shown, frame);
    EXPECT_LE(shown.left(), 12);
    EXPECT_LE(shown.top(), 12);
    EXPECT_GE(shown.right(), window->width() - 13);
    EXPECT_GE(shown.height(), window->height() * 3 / 4) << window->height();
  }
}

TEST_F(MapLayout, WhatBelongsToSeveralPlacesIsSeenWithThem) {
  Draw(26400);
  Show({1024, 700});
  EXPECT_FALSE(window->findChild<QListWidget*>("lstMap")->isVisible());
  ShowCandidates(1);
  EXPECT_FALSE(window->findChild<QListWidget*>("lstMap")->isVisible());
  ShowCandidates(4);
  EXPECT_TRUE(window->findChild<QListWidget*>("lstMap")->isVisible());
  const QRect words = PlaceOf("lblMatches"), bar = PlaceOf("Scroll1"), list = PlaceOf("lstMap"), update = PlaceOf("cmdUpdate"),
              close = PlaceOf("cmdClose"), label = PlaceOf("Label1");
  EXPECT_EQ(words.left(), bar.left());
  EXPECT_LT(words.bottom(), bar.top());
  EXPECT_EQ(label.left(), list.left());
  EXPECT_LT(label.bottom(), list.top());
  EXPECT_LT(list.right(), bar.left());
  EXPECT_LT(bar.right(), update.left());
  EXPECT_EQ(update.top(), close.top());
  EXPECT_GT(list.top(), PlaceOf("Pwstreet1").bottom());
  EXPECT_GE(PlaceOf("Pwstreet1").height(), 500);
}

}  // namespace
}  // namespace desktop_test
