#include "printing/preview/alignment_dialog.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <optional>

namespace printing_test {
namespace {

using printing::AlignmentDialog;
using printing::PaintSettings;

QDoubleSpinBox& Box(const AlignmentDialog& dialog, const char* name) { return *dialog.findChild<QDoubleSpinBox*>(QLatin1String(name)); }
QPushButton& Sheet(const AlignmentDialog& dialog) { return *dialog.findChild<QPushButton*>(QStringLiteral("alignmentSheet")); }

TEST(AlignmentDialogs, ShowWhatIsKeptAndGiveWhatIsTyped) {
  AlignmentDialog dialog(nullptr, "Office", {0.05, -0.1, 1.02}, [](const PaintSettings&) {});
  EXPECT_DOUBLE_EQ(Box(dialog, "alignmentRight").value(), 0.05);
  EXPECT_DOUBLE_EQ(Box(dialog, "alignmentScale").value(), 102);
  dialog.show();
  Box(dialog, "alignmentDown").setFocus();
  Box(dialog, "alignmentDown").selectAll();
  QTest::keyClicks(&Box(dialog, "alignmentDown"), "0.25");
  EXPECT_DOUBLE_EQ(dialog.Chosen().shiftX, 0.05);
  EXPECT_DOUBLE_EQ(dialog.Chosen().shiftY, 0.25);
  EXPECT_DOUBLE_EQ(dialog.Chosen().scale, 1.02);
}

TEST(AlignmentDialogs, PrintTheSheetAsTheyStand) {
  std::optional<PaintSettings> printed;
  AlignmentDialog dialog(nullptr, "Office", {}, [&](const PaintSettings& settings) { printed = settings; });
  Box(dialog, "alignmentRight").setValue(-0.2);
  Sheet(dialog).click();
  ASSERT_TRUE(printed);
  EXPECT_DOUBLE_EQ(printed->shiftX, -0.2);
  EXPECT_DOUBLE_EQ(printed->scale, 1);
  EXPECT_TRUE(dialog.result() == 0) << "it stays open";
}

TEST(AlignmentDialogs, KeepNothingWithoutAPrinter) {
  AlignmentDialog dialog(nullptr, "", {}, [](const PaintSettings&) {});
  EXPECT_FALSE(Sheet(dialog).isEnabled());
  EXPECT_FALSE(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
}

}  // namespace
}  // namespace printing_test
