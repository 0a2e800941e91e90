#include "platform/controls/text_box.h"

#include <algorithm>

#include "platform/controls/form.h"
#include "platform/text.h"

namespace platform {

TextBox::TextBox(Form& form, std::string name, int maxLength, std::string mask)
    : Control(form, std::move(name)), mask_(std::move(mask)), maxLength_(maxLength) {}

TextBox::TextBox(Form& form, std::string name, int index, int maxLength, std::string mask)
    : Control(form, std::move(name), index), mask_(std::move(mask)), maxLength_(maxLength) {}

void TextBox::Text(std::string text) {
  if (maxLength_ > 0) text.resize(ByteOffset(text, static_cast<std::size_t>(maxLength_)));
  const std::size_t end = CharacterCount(text);
  Take(std::move(text), end);
}

std::string TextBox::DisplayText() const { return mask_.empty() ? text_ : MaskDisplay(mask_, text_); }

void TextBox::Mask(std::string mask) {
  if (mask_ == mask) return;
  mask_ = std::move(mask);
  Changed(Aspect::Mask);
}

void TextBox::Locked(bool locked) {
  locked_ = locked;
  Changed(Aspect::Enabled);
}

void TextBox::Select(std::size_t start, std::size_t length) {
  const std::size_t end = CharacterCount(text_);
  selectionStart_ = std::min(start, end);
  selectionLength_ = std::min(length, end - selectionStart_);
  caret_ = selectionStart_ + selectionLength_;
}

bool TextBox::Accepts(char32_t character) const { return character >= U' ' || (multiLine_ && (character == U'\r' || character == U'\n')); }

void TextBox::Take(std::string text, std::size_t caret) {
  caret_ = caret;
  selectionStart_ = caret;
  selectionLength_ = 0;
  if (text_ == text) {
    Changed(Aspect::Text);
    return;
  }
  text_ = std::move(text);
  Changed(Aspect::Text);
  Change.Fire();
}

bool TextBox::Edit(const MaskedText& after) {
  const bool changed = after.raw != text_;
  Take(after.raw, after.caret);
  return changed;
}

bool TextBox::UserKey(char32_t character) {
  bool changed = false;
  Act([&] {
    int key = static_cast<int>(character);
    KeyPress.Fire(key);
    if (key == 0 || locked_) return;
    const std::size_t start = selectionLength_ > 0 ? selectionStart_ : caret_;
    const MaskedText before{text_, start};
    if (key == 8) {
      changed = Edit(MaskBackspace(before, selectionLength_));
      return;
    }
    const auto typed = static_cast<char32_t>(key);
    if (!Accepts(typed)) return;
    const std::string one = FromCodePoints(std::u32string_view(&typed, 1));
    changed = Edit(MaskInsert(mask_, before, selectionLength_, one, static_cast<std::size_t>(maxLength_)));
  });
  return changed;
}

void TextBox::UserType(std::string_view text) {
  for (const char32_t character : ToCodePoints(text)) UserKey(character);
}

void TextBox::UserPaste(std::string_view text) {
  Act([&] {
    if (locked_) return;
    std::u32string accepted;
    for (const char32_t character : ToCodePoints(NormaliseLossy(text)))
      if (Accepts(character)) accepted += character;
    const std::size_t start = selectionLength_ > 0 ? selectionStart_ : caret_;
    Edit(MaskInsert(mask_, {text_, start}, selectionLength_, FromCodePoints(accepted), static_cast<std::size_t>(maxLength_)));
  });
}

void TextBox::UserDelete() {
  Act([&] {
    if (locked_) return;
    const std::size_t start = selectionLength_ > 0 ? selectionStart_ : caret_;
    Edit(MaskDelete({text_, start}, selectionLength_));
  });
}

void TextBox::UserReplaceAll(std::string_view text, std::size_t caret) {
  Act([&] {
    if (locked_) return;
    MaskedText after = MaskInsert(mask_, {"", 0}, 0, NormaliseLossy(text), static_cast<std::size_t>(maxLength_));
    after.caret = std::min(caret, CharacterCount(after.raw));
    Edit(after);
  });
}

}  // namespace platform
