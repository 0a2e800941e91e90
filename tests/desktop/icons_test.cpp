#include "desktop/look/icons.h"

#include <QImage>
#include <QPixmap>

#include "desktop/look/theme.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

class Icons : public Desk {};

QColor MostInk(const QImage& picture) {
  QColor strongest(0, 0, 0, 0);
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y).alpha() > strongest.alpha()) strongest = picture.pixelColor(x, y);
  return strongest;
}

TEST_F(Icons, TakeTheTextColourOfTheTheme) {
  for (const char* scheme : {"light", "dark"}) {
    desktop::DesktopOptions options;
    options.colorScheme = scheme;
    Start(options);
    const QColor ink = MostInk(desktop::DrawnIcon("tb_Find").pixmap(48, 48).toImage());
    EXPECT_EQ(ink.alpha(), 255);
    EXPECT_EQ(ink.lightness() > 128, std::string(scheme) == "dark") << scheme;
    screen.reset();
    hands.reset();
    app.reset();
  }
}

TEST_F(Icons, DisabledOnesAreFainter) {
  Start();
  const QIcon icon = desktop::DrawnIcon("tb_SaveRec");
  EXPECT_LT(MostInk(icon.pixmap(QSize(48, 48), QIcon::Disabled).toImage()).alpha(), 230);
}

TEST_F(Icons, AnUnknownNameIsEmpty) {
  Start();
  EXPECT_TRUE(desktop::DrawnIcon("tb_Nothing").isNull());
}

TEST_F(Icons, TheSystemOrTheEnvironmentChoosesTheColours) {
  Start();
  EXPECT_TRUE(desktop::theme::WantsDark("dark"));
  EXPECT_FALSE(desktop::theme::WantsDark("light"));
  qputenv("ORCUSSCH_COLOR_SCHEME", "dark");
  EXPECT_TRUE(desktop::theme::WantsDark(""));
  qunsetenv("ORCUSSCH_COLOR_SCHEME");
  EXPECT_TRUE(desktop::theme::IsDark(desktop::theme::Colours(true)));
  EXPECT_FALSE(desktop::theme::IsDark(desktop::theme::Colours(false)));
}

}  // namespace
}  // namespace desktop_test
