#pragma once

#include "desktop/binding/binding.h"
#include "desktop/controls/combo_edit.h"
#include "desktop/controls/memo_edit.h"
#include "desktop/controls/text_edit.h"

namespace desktop {

/// Text, number, currency and date edits of one line.
class TextEditBinding final : public TypedBinding<platform::TextBox, TextEdit> {
 public:
  TextEditBinding(platform::TextBox& control, TextEdit* widget);
  void Show(platform::Aspect aspect) override;
  void Drop() override;
};

class MemoEditBinding final : public TypedBinding<platform::TextBox, MemoEdit> {
 public:
  MemoEditBinding(platform::TextBox& control, MemoEdit* widget);
  void Show(platform::Aspect aspect) override;
  void Drop() override;
};

class ComboBinding final : public TypedBinding<platform::ComboBox, ComboEdit> {
 public:
  ComboBinding(platform::ComboBox& control, ComboEdit* widget);
  void Show(platform::Aspect aspect) override;
  void Drop() override;
};

}  // namespace desktop
