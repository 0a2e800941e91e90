#include <algorithm>

#include "platform/values/format_section.h"
#include "platform/values/text.h"

namespace platform {
namespace {

bool IsPlace(const FormatItem& item) { return item.Is(U'0') || item.Is(U'#'); }

/// What a section asks for, found before any digit is written.
struct Layout {
  std::size_t point = 0;        ///< index of the decimal point, the section's size if there is none
  std::size_t wholePlaces = 0;  ///< places before it
  std::size_t fewestWhole = 0;  ///< digits that are shown at least, zeros included
  std::size_t fractionPlaces = 0;
  std::size_t fewestFraction = 0;
  bool thousands = false;
  int powerOfTen = 0;  ///< what "%" and commas behind the last place multiply the number by
};

Layout LayoutOf(const FormatSection& section) {
  Layout layout;
  const auto point = std::find_if(section.begin(), section.end(), [](const FormatItem& item) { return item.Is(U'.'); });
  layout.point = static_cast<std::size_t>(point - section.begin());
  int openCommas = 0;
  for (std::size_t i = 0; i < section.size(); ++i) {
    const FormatItem& item = section[i];
    if (item.Is(U'%')) layout.powerOfTen += 2;
    if (i > layout.point) {
      if (IsPlace(item)) ++layout.fractionPlaces;
      if (item.Is(U'0')) layout.fewestFraction = layout.fractionPlaces;
      continue;
    }
    if (item.Is(U',') && layout.wholePlaces > 0) ++openCommas;
    if (!IsPlace(item)) continue;
    if (openCommas > 0) layout.thousands = true;
    openCommas = 0;
    ++layout.wholePlaces;
    if (item.Is(U'0') || layout.fewestWhole > 0) ++layout.fewestWhole;
  }
  layout.powerOfTen -= 3 * openCommas;
  return layout;
}

/// A number rounded to a fixed count of decimals.
struct Digits {
  std::string whole;  ///< "" for 0
  std::string fraction;

  bool IsZero() const { return whole.empty() && fraction.find_first_not_of('0') == std::string::npos; }
};

/// Halves go away from zero.
Digits Rounded(const NumberText& number, int powerOfTen, std::size_t places) {
  const long point = static_cast<long>(number.digits.size()) + number.exponent + powerOfTen;
  const auto whole = static_cast<std::size_t>(std::max(point, 0L));
  const auto gap = static_cast<std::size_t>(std::max(-point, 0L));

  std::string digits = number.digits.substr(0, whole);
  digits.append(whole - digits.size(), '0');
  digits.append(std::min(gap, places + 1), '0');
  if (whole < number.digits.size()) digits += number.digits.substr(whole);
  digits.resize(std::max(digits.size(), whole + places), '0');

  const bool up = digits.size() > whole + places && digits[whole + places] >= '5';
  digits.resize(whole + places);
  if (up) {
    auto at = digits.rbegin();
    for (; at != digits.rend() && *at == '9'; ++at) *at = '0';
    if (at != digits.rend())
      ++*at;
    else
      digits.insert(digits.begin(), '1');
  }
  Digits rounded{digits.substr(0, digits.size() - places), digits.substr(digits.size() - places)};
  rounded.whole.erase(0, std::min(rounded.whole.find_first_not_of('0'), rounded.whole.size()));
  return rounded;
}

/// Writes a section: digits fill the whole places from the right, those without a place go to the first one.
class Writer {
 public:
  Writer(const FormatSection& section, const Layout& layout, const Digits& digits)
      : section_(section), layout_(layout), digits_(digits), whole_(digits.whole) {
    if (whole_.size() < layout.fewestWhole) whole_.insert(0, layout.fewestWhole - whole_.size(), '0');
  }

  std::string Write() {
    for (std::size_t i = 0; i < section_.size(); ++i) {
      const FormatItem& item = section_[i];
      if (i == layout_.point && layout_.wholePlaces == 0) WriteLeading(whole_.size());
      if (IsPlace(item) && i < layout_.point)
        WriteWholePlace();
      else if (IsPlace(item))
        WriteFractionPlace();
      else if (!item.Is(U','))
        AppendCodePoint(text_, item.character);
    }
    return text_;
  }

 private:
  void WriteWholePlace() {
    const std::size_t behind = layout_.wholePlaces - ++placesPassed_;
    if (whole_.size() > behind) WriteLeading(whole_.size() - behind);
  }

  /// Writes the whole part up to its first `count` digits.
  void WriteLeading(std::size_t count) {
    for (; wholeWritten_ < count; ++wholeWritten_) {
      text_ += whole_[wholeWritten_];
      const std::size_t left = whole_.size() - wholeWritten_ - 1;
      if (layout_.thousands && left > 0 && left % 3 == 0) text_ += ',';
    }
  }

  void WriteFractionPlace() {
    const std::size_t place = fractionPassed_++;
    const std::size_t significant = digits_.fraction.find_last_not_of('0') + 1;
    if (place < std::max(significant, layout_.fewestFraction)) text_ += digits_.fraction[place];
  }

  const FormatSection& section_;
  const Layout& layout_;
  const Digits& digits_;
  std::string whole_;
  std::string text_;
  std::size_t placesPassed_ = 0;
  std::size_t wholeWritten_ = 0;
  std::size_t fractionPassed_ = 0;
};

/// The section for this number; a missing or empty one falls back to the first.
std::size_t SectionFor(const NumberText& number, const std::vector<FormatSection>& sections) {
  const std::size_t wanted = number.digits.empty() ? 2 : number.negative ? 1 : 0;
  return wanted < sections.size() && !sections[wanted].empty() ? wanted : 0;
}

}  // namespace

std::string FormatNumber(const NumberText& number, const std::vector<FormatSection>& sections) {
  const std::size_t chosen = SectionFor(number, sections);
  const FormatSection& section = sections[chosen];
  const Layout layout = LayoutOf(section);
  const Digits digits = Rounded(number, layout.powerOfTen, layout.fractionPlaces);
  const std::string text = Writer(section, layout, digits).Write();
  return number.negative && chosen == 0 && !digits.IsZero() ? '-' + text : text;
}

}  // namespace platform
