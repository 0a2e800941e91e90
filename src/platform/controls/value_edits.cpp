#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/controls/text_box.h"
#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/format.h"

namespace platform {

namespace {

constexpr int kDateLength = 10;

bool IsDigit(char32_t character) { return character >= U'0' && character <= U'9'; }
bool Holds(std::string_view text, char character) { return text.find(character) != std::string_view::npos; }

/// Whether a figure has room for the character there: a minus and a currency sign lead, the point stands once, and thousands
/// marks before it.
bool HasRoom(char32_t character, std::string_view front, std::string_view back) {
  const bool pointBefore = Holds(front, '.');
  switch (character) {
    case U'-':
      return (front.empty() || front == "$") && !Holds(back, '-');
    case U'$':
      return (front.empty() || front == "-") && !Holds(back, '$');
    case U'.':
      return !pointBefore && !Holds(back, '.') && !Holds(back, ',') && !Holds(back, '-') && !Holds(back, '$');
    case U',':
      return !pointBefore && !Holds(back, '-') && !Holds(back, '$');
    default:
      return IsDigit(character) && !Holds(back, '-') && !Holds(back, '$');
  }
}

/// Other programs and our own lists write amounts below zero as "(12.50)" and "12.50-": the minus comes to the front.
std::u32string WithMinusInFront(std::u32string_view text) {
  constexpr char32_t kMinusSign = 0x2212;
  std::u32string figure;
  for (const char32_t character : text)
    if (character != U')' && character > U' ') figure += character == U'(' || character == kMinusSign ? U'-' : character;
  const bool behind = figure.size() > 1 && figure.back() == U'-' && figure.find(U'-') == figure.size() - 1;
  return behind ? U'-' + figure.substr(0, figure.size() - 1) : figure;
}

/// What a figure takes of a text that is put in between `front` and `back`.
std::u32string FigureTaken(std::u32string_view text, std::string_view front, std::string_view back) {
  std::u32string taken;
  std::string before(front);
  for (const char32_t character : WithMinusInFront(text)) {
    if (!HasRoom(character, before, back)) continue;
    taken += character;
    before += static_cast<char>(character);
  }
  return taken;
}

std::string FixedFormat(int decimals) { return decimals > 0 ? "#,##0." + std::string(static_cast<std::size_t>(decimals), '0') : "#,##0"; }

}  // namespace

NumberEdit::NumberEdit(Form& form, std::string name, int decimals) : TextBox(form, std::move(name)), decimals_(decimals) {}

NumberEdit::NumberEdit(Form& form, std::string name, int index, int decimals)
    : TextBox(form, std::move(name), index, 0, ""), decimals_(decimals) {}

std::u32string NumberEdit::Taken(std::u32string_view text, std::string_view front, std::string_view back) const {
  return FigureTaken(text, front, back);
}

std::string NumberEdit::Figure() const {
  std::string plain;
  for (const char character : Text()) {
    if (character == '$' || character == ',' || character == ')') continue;
    plain += character == '(' ? '-' : character;
  }
  return ValText(plain);
}

double NumberEdit::Value() const { return Val(Figure()); }

void NumberEdit::Value(double value) { Text(CStr(value)); }

std::string NumberEdit::DisplayText() const {
  const std::string figure = Figure();
  return IsNumeric(figure) ? Format(CDbl(figure), FixedFormat(decimals_)) : Text();
}

CurrencyEdit::CurrencyEdit(Form& form, std::string name) : NumberEdit(form, std::move(name), 2) {}

CurrencyEdit::CurrencyEdit(Form& form, std::string name, int index) : NumberEdit(form, std::move(name), index, 2) {}

Currency CurrencyEdit::Value() const {
  const std::string figure = Figure();
  return figure.empty() ? Currency{} : CCur(figure);
}

void CurrencyEdit::Value(Currency value) { Text(CStr(value)); }

std::string CurrencyEdit::DisplayText() const {
  try {
    return Figure().empty() ? Text() : Format(Value(), "Currency");
  } catch (const Error&) {
    return Text();  // beyond every field: it stays as it was entered
  }
}

std::u32string ClassEdit::Taken(std::u32string_view text, std::string_view front, std::string_view back) const {
  if (input_ == Input::AnyText) return TextBox::Taken(text, front, back);
  std::u32string taken = FigureTaken(text, front, back);
  std::erase_if(taken, [](char32_t character) { return character == U'$' || character == U','; });
  return taken;
}

DateEdit::DateEdit(Form& form, std::string name) : TextBox(form, std::move(name), kDateLength) {}

DateEdit::DateEdit(Form& form, std::string name, int index, std::string mask)
    : TextBox(form, std::move(name), index, kDateLength, std::move(mask)) {}

const std::string& DateEdit::TypingMask() const noexcept {
  static const std::string none;
  return none;
}

std::optional<Date> DateEdit::Value() const { return ParseDate(Text(), Owner().Host().ThisYear()); }

void DateEdit::Value(const platform::Value& value) {
  if (value.IsNull()) throw error::InvalidUseOfNull();
  if (value.IsEmpty() || (value.IsText() && value.As<std::string>().empty())) {
    Text("");
    return;
  }
  Text(ShortDate(CDate(value, Owner().Host().ThisYear())));
}

bool DateEdit::Accepts(char32_t character) const { return IsDigit(character) || character == U'/'; }

}  // namespace platform
