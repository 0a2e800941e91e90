#include "desktop/look/theme.h"
#include "desktop/map/map_window.h"

namespace desktop_test {
namespace {
class MapPictures : public MapWindow {};
TEST_F(MapPictures, DISABLED_Look) {
  for (int i = 0; i < 300; ++i)
    AddPin(std::to_string(i), "Customer " + std::to_string(i), map->ground.Crossing(190 + (i * 37) % 90, 195 + (i * 53) % 50));
  for (const bool dark : {false, true}) {
    qApp->setPalette(desktop::theme::Colours(dark));
    window->setPalette(desktop::theme::Colours(dark));
    for (const int width : {1500, 8000, 26400, 150000, 3000000}) {
      Draw(width);
      Show();
      window->grab().save(QString("/tmp/mapwin_pics/%1-%2-%3.png").arg(dark ? "dark" : "light").arg(width).arg(view->devicePixelRatioF()));
    }
  }
}
}  // namespace
}  // namespace desktop_test
