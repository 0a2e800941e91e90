#include "platform/controls/text_box.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/format.h"

namespace platform {

namespace {

constexpr int kDateLength = 10;

bool IsNumberCharacter(char32_t character) {
  return (character >= U'0' && character <= U'9') || character == U'-' || character == U'.' || character == U',' || character == U'$' ||
         character == U'(' || character == U')';
}

std::string FixedFormat(int decimals) { return decimals > 0 ? "#,##0." + std::string(static_cast<std::size_t>(decimals), '0') : "#,##0"; }

}  // namespace

NumberEdit::NumberEdit(Form& form, std::string name, int decimals) : TextBox(form, std::move(name)), decimals_(decimals) {}

double NumberEdit::Value() const { return IsNumeric(Text()) ? CDbl(Text()) : 0.0; }

void NumberEdit::Value(double value) { Text(CStr(value)); }

std::string NumberEdit::DisplayText() const {
  return Text().empty() || !IsNumeric(Text()) ? Text() : Format(Value(), FixedFormat(decimals_));
}

bool NumberEdit::Accepts(char32_t character) const { return IsNumberCharacter(character); }

CurrencyEdit::CurrencyEdit(Form& form, std::string name) : NumberEdit(form, std::move(name), 2) {}

Currency CurrencyEdit::Value() const { return IsNumeric(Text()) ? CCur(Text()) : Currency{}; }

void CurrencyEdit::Value(Currency value) { Text(CStr(value)); }

std::string CurrencyEdit::DisplayText() const { return Text().empty() || !IsNumeric(Text()) ? Text() : Format(Value(), "Currency"); }

DateEdit::DateEdit(Form& form, std::string name) : TextBox(form, std::move(name), kDateLength) {}

std::optional<Date> DateEdit::Value() const {
  if (!IsDate(Text())) return {};
  return CDate(Text());
}

void DateEdit::Value(const platform::Value& value) {
  if (value.IsNull()) throw error::InvalidUseOfNull();
  if (value.IsEmpty() || (value.IsText() && value.As<std::string>().empty())) {
    Text("");
    return;
  }
  Text(ShortDate(CDate(value)));
}

bool DateEdit::Accepts(char32_t character) const { return (character >= U'0' && character <= U'9') || character == U'/'; }

}  // namespace platform
