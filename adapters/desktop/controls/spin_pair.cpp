#include "desktop/controls/spin_pair.h"

#include <QVBoxLayout>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {
constexpr int kGap = 3;
}  // namespace

SpinPair::SpinPair(QWidget* parent) : QWidget(parent), up_(NewWidget<QToolButton>(this)), down_(NewWidget<QToolButton>(this)) {
  auto* column = NewWidget<QVBoxLayout>(static_cast<QWidget*>(this));
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  for (QToolButton* arrow : {up_, down_}) {
    const bool up = arrow == up_;
    arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
    arrow->setFocusPolicy(Qt::NoFocus);
    arrow->setAutoRepeat(true);
    arrow->setProperty("role", "arrow");
    arrow->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    arrow->setAccessibleName(up ? tr("Up") : tr("Down"));
    column->addWidget(arrow);
    connect(arrow, &QToolButton::clicked, this, [this, up] {
      if (spin_) spin_(up);
    });
  }
}

}  // namespace desktop
