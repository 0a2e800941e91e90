#include "platform/controls/text_box.h"

#include <algorithm>

#include "platform/controls/form/form.h"
#include "platform/values/text.h"

namespace platform {

namespace {

constexpr int kBackspace = 8;
constexpr char32_t kEnter = 13;

bool EndsLine(char32_t character) { return character == U'\r' || character == U'\n'; }

}  // namespace

TextBox::TextBox(Form& form, std::string name, int maxLength, std::string mask)
    : Control(form, std::move(name)), mask_(std::move(mask)), maxLength_(maxLength) {}

TextBox::TextBox(Form& form, std::string name, int index, int maxLength, std::string mask)
    : Control(form, std::move(name), index), mask_(std::move(mask)), maxLength_(maxLength) {}

void TextBox::Text(std::string text) {
  if (maxLength_ > 0) text.resize(ByteOffset(text, static_cast<std::size_t>(maxLength_)));
  const std::size_t end = CharacterCount(text);
  Take(std::move(text), end);
}

std::string TextBox::DisplayText() const { return TypingMask().empty() ? text_ : MaskDisplay(TypingMask(), text_); }

void TextBox::Mask(std::string mask) {
  if (mask_ == mask) return;
  mask_ = std::move(mask);
  Changed(Aspect::Mask);
}

void TextBox::MaxLength(int characters) {
  if (maxLength_ == characters) return;
  maxLength_ = characters;
  Changed(Aspect::Mask);
}

void TextBox::Locked(bool locked) {
  locked_ = locked;
  Changed(Aspect::Enabled);
}

void TextBox::Select(std::size_t start, std::size_t length) {
  const std::u32string text = ToCodePoints(text_);
  const auto outside = [&](std::size_t place) {
    place = std::min(place, text.size());
    return place > 0 && LineEndAt(text, place - 1) == 2 ? place - 1 : place;
  };
  selectionStart_ = outside(start);
  caret_ = outside(selectionStart_ + std::min(length, text.size() - selectionStart_));
  selectionLength_ = caret_ - selectionStart_;
}

void TextBox::UserSelectAll() {
  Select(0, CharacterCount(text_));
  Changed(Aspect::Selection);
}

std::size_t TextBox::LineEndAt(std::u32string_view text, std::size_t place) {
  if (place >= text.size() || !EndsLine(text[place])) return 0;
  return text[place] == U'\r' && place + 1 < text.size() && text[place + 1] == U'\n' ? 2 : 1;
}

std::size_t TextBox::LineEndBefore(std::u32string_view text, std::size_t place) {
  if (place >= 2 && LineEndAt(text, place - 2) == 2) return 2;
  return place >= 1 && EndsLine(text[place - 1]) ? 1 : 0;
}

bool TextBox::Accepts(char32_t character) const { return character >= U' '; }

std::u32string TextBox::Taken(std::u32string_view text, std::string_view, std::string_view) const {
  std::u32string taken;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t lineEnd = LineEndAt(text, at);
    if (lineEnd > 0 && multiLine_) taken += U"\r\n";
    if (lineEnd == 0 && Accepts(text[at])) taken += text[at];
    at += std::max<std::size_t>(lineEnd, 1);
  }
  return taken;
}

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

bool TextBox::PutIn(std::u32string_view text) {
  const std::size_t start = selectionLength_ > 0 ? selectionStart_ : caret_;
  const std::string_view all = text_;
  const std::u32string taken = Taken(text, all.substr(0, ByteOffset(all, start)), all.substr(ByteOffset(all, start + selectionLength_)));
  if (taken.empty()) return false;
  return Edit(MaskInsert(TypingMask(), {text_, start}, selectionLength_, FromCodePoints(taken), static_cast<std::size_t>(maxLength_)));
}

bool TextBox::UserKey(char32_t character) {
  bool changed = false;
  Act([&] {
    int key = static_cast<int>(character);
    KeyPress.Fire(key);
    if (key == 0 || locked_) return;
    if (key != kBackspace) {
      const auto typed = static_cast<char32_t>(key);
      changed = PutIn(std::u32string_view(&typed, 1));
      return;
    }
    if (selectionLength_ == 0 && LineEndBefore(ToCodePoints(text_), caret_) == 2) Select(caret_ - 2, 2);
    const std::size_t start = selectionLength_ > 0 ? selectionStart_ : caret_;
    changed = Edit(MaskBackspace({text_, start}, selectionLength_));
  });
  return changed;
}

void TextBox::UserType(std::string_view text) {
  const std::u32string characters = ToCodePoints(text);
  for (std::size_t at = 0; at < characters.size(); at += std::max<std::size_t>(LineEndAt(characters, at), 1))
    UserKey(EndsLine(characters[at]) ? kEnter : characters[at]);
}

void TextBox::UserPaste(std::string_view text) {
  Act([&] {
    if (!locked_) PutIn(ToCodePoints(NormaliseLossy(text)));
  });
}

void TextBox::UserDelete() {
  Act([&] {
    if (locked_) return;
    if (selectionLength_ == 0 && LineEndAt(ToCodePoints(text_), caret_) == 2) Select(caret_, 2);
    const std::size_t start = selectionLength_ > 0 ? selectionStart_ : caret_;
    Edit(MaskDelete({text_, start}, selectionLength_));
  });
}

void TextBox::UserReplaceAll(std::string_view text, std::size_t caret) {
  Act([&] {
    if (locked_) return;
    const std::string taken = FromCodePoints(Taken(ToCodePoints(NormaliseLossy(text)), {}, {}));
    MaskedText after = MaskInsert(TypingMask(), {"", 0}, 0, taken, static_cast<std::size_t>(maxLength_));
    after.caret = std::min(caret, CharacterCount(after.raw));
    Edit(after);
  });
}

}  // namespace platform
