#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>

#include "desktop/binding/binding.h"
#include "desktop/controls/spin_pair.h"
#include "platform/controls/buttons.h"
#include "platform/controls/label.h"
#include "platform/controls/lists.h"

/// Bindings of the controls that show a text or a number and know one or two acts. Texts that the layout holds stay where
/// the model starts without one.
namespace desktop {

class LabelBinding final : public TypedBinding<platform::Label, QLabel> {
 public:
  LabelBinding(platform::Label& control, QLabel* widget);
  void Show(platform::Aspect aspect) override;
};

class GroupBinding final : public TypedBinding<platform::Frame, QGroupBox> {
 public:
  using TypedBinding::TypedBinding;
  void Show(platform::Aspect aspect) override;
};

/// A frame without a caption of its own.
class FrameBinding final : public TypedBinding<platform::Frame, QFrame> {
 public:
  using TypedBinding::TypedBinding;
};

class StatusBarBinding final : public TypedBinding<platform::StatusBar, QStatusBar> {
 public:
  StatusBarBinding(platform::StatusBar& control, QStatusBar* widget);
  void Show(platform::Aspect aspect) override;

 private:
  QLabel* panels_[3];
};

class CheckBoxBinding final : public TypedBinding<platform::CheckBox, QCheckBox> {
 public:
  CheckBoxBinding(platform::CheckBox& control, QCheckBox* widget);
  void Show(platform::Aspect aspect) override;
};

class OptionBinding final : public TypedBinding<platform::OptionButton, QRadioButton> {
 public:
  OptionBinding(platform::OptionButton& control, QRadioButton* widget);
  void Show(platform::Aspect aspect) override;
};

class CommandBinding final : public TypedBinding<platform::CommandButton, QPushButton> {
 public:
  CommandBinding(platform::CommandButton& control, QPushButton* widget);
  void Show(platform::Aspect aspect) override;
};

class ProgressBinding final : public TypedBinding<platform::ProgressBar, QProgressBar> {
 public:
  using TypedBinding::TypedBinding;
  void Show(platform::Aspect aspect) override;
};

class ListBoxBinding final : public TypedBinding<platform::ListBox, QListWidget> {
 public:
  ListBoxBinding(platform::ListBox& control, QListWidget* widget);
  void Show(platform::Aspect aspect) override;

 private:
  void ShowIfWorth();
};

class ScrollBarBinding final : public TypedBinding<platform::ScrollBar, QScrollBar> {
 public:
  ScrollBarBinding(platform::ScrollBar& control, QScrollBar* widget);
  void Show(platform::Aspect aspect) override;
};

class SpinBinding final : public TypedBinding<platform::SpinButton, SpinPair> {
 public:
  SpinBinding(platform::SpinButton& control, SpinPair* widget);
};

}  // namespace desktop
