#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/controls/form/control.h"
#include "platform/values/mask.h"
#include "platform/values/value.h"

namespace platform {

/// A text edit. Assignments and the user's accepted changes fire Change when the text really changes; each key of the user
/// fires KeyPress first (setting the key to 0 drops it).
///
/// In an edit of several lines every line end that the user makes, by key or by paste, is carriage return and line feed. It is
/// two characters of the text and one for caret, Backspace and Delete.
class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, int maxLength = 0, std::string mask = "");
  TextBox(Form& form, std::string name, int index, int maxLength, std::string mask);

  /// Without the mask's literals.
  const std::string& Text() const noexcept { return text_; }
  /// Takes the text as it is, past the mask; what is longer than MaxLength is cut.
  virtual void Text(std::string text);
  /// As shown, with the mask's literals.
  virtual std::string DisplayText() const;
  const std::string& Mask() const noexcept { return mask_; }
  void Mask(std::string mask);
  /// The mask that puts its literals in while the user types; "" for an edit whose mask only says what a whole entry looks like.
  virtual const std::string& TypingMask() const noexcept { return mask_; }
  /// Greatest number of characters, 0 for none.
  int MaxLength() const noexcept { return maxLength_; }
  void MaxLength(int characters);
  bool Locked() const noexcept { return locked_; }
  void Locked(bool locked);
  bool MultiLine() const noexcept { return multiLine_; }
  void MultiLine(bool on) noexcept { multiLine_ = on; }
  /// Right-aligned figures, for whoever shows it.
  virtual bool IsNumberEdit() const { return false; }
  bool TakesFocus() const override { return true; }

  /// Caret and selection in characters of Text.
  std::size_t Caret() const noexcept { return caret_; }
  std::size_t SelectionStart() const noexcept { return selectionStart_; }
  std::size_t SelectionLength() const noexcept { return selectionLength_; }
  /// A place inside a line end stands for the one before it.
  void Select(std::size_t start, std::size_t length);
  /// What is typed next takes the place of all.
  void UserSelectAll();

  Event<> Change;
  Event<int&> KeyPress;

  /// One character key (13 is Enter, 8 is Backspace, 27 is Escape). Returns whether the text changed.
  bool UserKey(char32_t character);
  /// A run of characters, as a user types them, each with its KeyPress; a line end of two characters is one key.
  void UserType(std::string_view text);
  /// Text from the clipboard or an input method, put in at once over the selection.
  void UserPaste(std::string_view text);
  void UserDelete();
  /// The whole text was replaced in one go by a widget's own editing (cut, undo); passes as a paste does.
  void UserReplaceAll(std::string_view text, std::size_t caret);

 protected:
  /// Which characters the edit takes beyond its mask.
  virtual bool Accepts(char32_t character) const;
  /// What the edit takes of a text that is put in between `front` and `back`, in its own form.
  virtual std::u32string Taken(std::u32string_view text, std::string_view front, std::string_view back) const;
  /// Stores and tells; fires Change when the text differs.
  virtual void Take(std::string text, std::size_t caret);

 private:
  bool Edit(const MaskedText& after);
  /// Puts in what is taken of the text, over the selection. Returns whether the text changed.
  bool PutIn(std::u32string_view text);
  /// Characters of the line end that stands behind (before) that place: 2, 1, or 0 when there is none.
  static std::size_t LineEndAt(std::u32string_view text, std::size_t place);
  static std::size_t LineEndBefore(std::u32string_view text, std::size_t place);
  std::string text_;
  std::string mask_;
  int maxLength_ = 0;
  bool locked_ = false;
  bool multiLine_ = false;
  std::size_t caret_ = 0;
  std::size_t selectionStart_ = 0;
  std::size_t selectionLength_ = 0;
};

/// A number edit. The user can enter one sign in front, a currency sign, digits with thousands marks, and one decimal point;
/// parentheses, and a sign behind a pasted figure, become the minus in front. Value is the number at the text's start (Val), the
/// currency sign and the thousands marks left out: 0 for an empty or unfinished text.
class NumberEdit : public TextBox {
 public:
  NumberEdit(Form& form, std::string name, int decimals = 4);
  NumberEdit(Form& form, std::string name, int index, int decimals);
  /// Raises 6 for a number that no field can take.
  double Value() const;
  /// Change when the text really changes.
  void Value(double value);
  std::string DisplayText() const override;
  bool IsNumberEdit() const override { return true; }

 protected:
  std::u32string Taken(std::u32string_view text, std::string_view front, std::string_view back) const override;
  /// The number that the text begins with, "" when there is none.
  std::string Figure() const;

 private:
  int decimals_;
};

/// A currency edit: as a number edit, exact.
class CurrencyEdit final : public NumberEdit {
 public:
  CurrencyEdit(Form& form, std::string name);
  CurrencyEdit(Form& form, std::string name, int index);
  /// Raises 6 for an amount that no field can take.
  Currency Value() const;
  void Value(Currency value);
  std::string DisplayText() const override;
};

/// An edit whose class of input the screen can change: any text, or a plain number (a minus in front, digits, one point). What it
/// holds stays when the class changes.
class ClassEdit final : public TextBox {
 public:
  enum class Input { AnyText = -1, Number = 2 };
  ClassEdit(Form& form, std::string name) : TextBox(form, std::move(name)) {}
  Input InputClass() const noexcept { return input_; }
  void InputClass(Input input) noexcept { input_ = input; }

 protected:
  std::u32string Taken(std::u32string_view text, std::string_view front, std::string_view back) const override;

 private:
  Input input_ = Input::AnyText;
};

/// A date edit. Text keeps its slashes, and month and day have one or two digits, whatever the mask shows; Value is nothing while
/// the text is no date.
class DateEdit final : public TextBox {
 public:
  DateEdit(Form& form, std::string name);
  DateEdit(Form& form, std::string name, int index, std::string mask);
  const std::string& TypingMask() const noexcept override;
  std::optional<Date> Value() const;
  /// Null is refused with error 94.
  void Value(const platform::Value& value);

 protected:
  bool Accepts(char32_t character) const override;
};

}  // namespace platform
