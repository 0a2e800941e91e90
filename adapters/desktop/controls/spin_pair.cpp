#include "desktop/controls/spin_pair.h"

#include <QVBoxLayout>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

SpinPair::SpinPair(QWidget* parent) : QWidget(parent), up_(NewWidget<QToolButton>(this)), down_(NewWidget<QToolButton>(this)) {
  auto* column = NewWidget<QVBoxLayout>(static_cast<QWidget*>(this));
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  for (QToolButton* arrow : {up_, down_}) {
    const bool up = arrow == up_;
    arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
    arrow->setFocusPolicy(Qt::NoFocus);
    arrow->setAutoRepeat(true);
    arrow->setAccessibleName(up ? tr("Up") : tr("Down"));
    column->addWidget(arrow);
    connect(arrow, &QToolButton::clicked, this, [this, up] {
      if (spin_) spin_(up);
    });
  }
}

}  // namespace desktop
