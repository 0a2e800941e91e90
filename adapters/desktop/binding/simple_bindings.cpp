#include "desktop/binding/simple_bindings.h"

#include <QSignalBlocker>

#include "desktop/look/marks.h"
#include "desktop/look/mnemonics.h"

namespace desktop {

using platform::Aspect;

namespace {

constexpr int kPanelIndent = 8;  // pixels: under the edge of what stands above the bar

/// Label texts of the models are plain: an ampersand in a customer's name is no mnemonic.
QString Literal(const std::string& text) { return ToShown(text).replace('&', QStringLiteral("&&")); }

}  // namespace

LabelBinding::LabelBinding(platform::Label& control, QLabel* widget) : TypedBinding(control, widget) {
  widget->setTextFormat(Qt::PlainText);
}

void LabelBinding::Show(Aspect aspect) {
  if (aspect == Aspect::Text) {
    shown().setText(shown().buddy() ? Literal(control().Caption()) : ToShown(control().Caption()));
    if (shown().buddy()) shown().buddy()->setAccessibleName(ToShown(control().Caption()));
    // A label that gives way may cut its text.
    if (shown().sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) shown().setToolTip(ToShown(control().Caption()));
  } else {
    Binding::Show(aspect);
  }
}

void GroupBinding::Show(Aspect aspect) {
  if (aspect == Aspect::Text) {
    shown().setTitle(Literal(control().Caption()));
    shown().setAccessibleName(ToShown(control().Caption()));
  } else {
    Binding::Show(aspect);
  }
}

StatusBarBinding::StatusBarBinding(platform::StatusBar& control, QStatusBar* widget) : TypedBinding(control, widget) {
  for (QLabel*& panel : panels_) {
    panel = NewWidget<QLabel>(widget);
    panel->setTextFormat(Qt::PlainText);
    panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panel->setIndent(kPanelIndent);
    widget->addWidget(panel, 1);
  }
}

void StatusBarBinding::Show(Aspect aspect) {
  if (aspect != Aspect::Text) {
    Binding::Show(aspect);
    return;
  }
  for (int i = 0; i < 3; ++i) {
    const QString text = ToShown(control().Panel(i + 1));
    panels_[i]->setText(text);
    panels_[i]->setToolTip(text);
    panels_[i]->setVisible(i == 0 || !text.isEmpty());
  }
}

CheckBoxBinding::CheckBoxBinding(platform::CheckBox& control, QCheckBox* widget) : TypedBinding(control, widget) {
  connect(widget, &QCheckBox::clicked, this, [this] {
    Act([this] { this->control().UserClick(); });
    if (!Dropped()) Show(Aspect::Text);
  });
}

void CheckBoxBinding::Show(Aspect aspect) {
  if (aspect == Aspect::Text) {
    shown().setText(WithMnemonic(ToShown(control().Caption()), shown()));
    shown().setChecked(control().Value() != 0);
    ShowOn(shown());
  } else {
    Binding::Show(aspect);
  }
}

OptionBinding::OptionBinding(platform::OptionButton& control, QRadioButton* widget) : TypedBinding(control, widget) {
  connect(widget, &QRadioButton::clicked, this, [this] {
    Act([this] { this->control().UserClick(); });
    if (!Dropped()) Show(Aspect::Text);
  });
}

void OptionBinding::Show(Aspect aspect) {
  if (aspect != Aspect::Text) {
    Binding::Show(aspect);
    return;
  }
  shown().setText(WithMnemonic(ToShown(control().Caption()), shown()));
  // The models know which choice is on; the toolkit's own rule would keep one from being turned off.
  shown().setAutoExclusive(false);
  shown().setChecked(control().Value());
  shown().setAutoExclusive(true);
}

CommandBinding::CommandBinding(platform::CommandButton& control, QPushButton* widget) : TypedBinding(control, widget) {
  widget->setAutoDefault(false);
  connect(widget, &QPushButton::clicked, this, [this] { Act([this] { this->control().UserClick(); }); });
}

void CommandBinding::Show(Aspect aspect) {
  if (aspect == Aspect::Text) {
    const QString caption = ToShown(control().Caption());
    shown().setText(caption.contains('&') ? caption : WithMnemonic(caption, shown()));
  } else {
    Binding::Show(aspect);
  }
}

void ProgressBinding::Show(Aspect aspect) {
  if (aspect == Aspect::Text) {
    shown().setMaximum(control().Max());
    shown().setValue(control().Value());
  } else {
    Binding::Show(aspect);
  }
}

ListBoxBinding::ListBoxBinding(platform::ListBox& control, QListWidget* widget) : TypedBinding(control, widget) {
  connect(widget, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0 && row != this->control().ListIndex()) Act([&] { this->control().UserSelect(row); });
  });
  connect(widget, &QListWidget::itemDoubleClicked, this, [this] { Act([this] { this->control().UserDblClick(); }); });
}

void ListBoxBinding::Show(Aspect aspect) {
  const QSignalBlocker quiet(shown());
  if (aspect == Aspect::List) {
    const auto& items = control().Items();
    const auto count = static_cast<int>(items.size());
    while (shown().count() > count) std::unique_ptr<QListWidgetItem>(shown().takeItem(shown().count() - 1));
    for (int i = 0; i < count; ++i) {
      const QString text = ToShown(items[static_cast<std::size_t>(i)]);
      if (i >= shown().count()) {
        shown().addItem(text);
      } else if (shown().item(i)->text() != text) {
        shown().item(i)->setText(text);
      }
    }
    shown().setCurrentRow(control().ListIndex());
    ShowIfWorth();
  } else if (aspect == Aspect::CurrentRow) {
    shown().setCurrentRow(control().ListIndex());
  } else if (aspect == Aspect::Visible) {
    ShowIfWorth();
  } else {
    Binding::Show(aspect);
  }
}

/// The layout may say from how many lines on (property "shownFrom") there is something to choose from.
void ListBoxBinding::ShowIfWorth() {
  const bool worth = control().Items().size() >= shown().property("shownFrom").toUInt();
  shown().setVisible(control().Visible() && worth);
}

ScrollBarBinding::ScrollBarBinding(platform::ScrollBar& control, QScrollBar* widget) : TypedBinding(control, widget) {
  connect(widget, &QScrollBar::valueChanged, this, [this](int value) { Act([&] { this->control().UserSlide(value); }); });
}

void ScrollBarBinding::Show(Aspect aspect) {
  const QSignalBlocker quiet(shown());
  if (aspect == Aspect::Text || aspect == Aspect::List) {
    shown().setRange(control().Min(), control().Max());
    shown().setValue(control().Value());
  } else {
    Binding::Show(aspect);
  }
}

SpinBinding::SpinBinding(platform::SpinButton& control, SpinPair* widget) : TypedBinding(control, widget) {
  widget->OnSpin([this](bool up) { Act([&] { this->control().UserSpin(up); }); });
}

}  // namespace desktop
