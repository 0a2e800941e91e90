#include <algorithm>
#include <optional>

#include "platform/values/text.h"
#include "robot/commands/row_kinds.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"

namespace robot {
namespace {

bool IsNumber(const std::string& text) {
  double ignored = 0;
  return PlainNumber(text, ignored);
}

bool IsWholeNumber(const Word& word) { return !word.quoted && IsNumber(word.text) && word.text.find('.') == std::string::npos; }

/// Month, day and year with two separators.
bool LooksLikeADate(const std::string& text) {
  return text.find_first_not_of("0123456789/") == std::string::npos && std::count(text.begin(), text.end(), '/') == 2;
}

std::string InQuotes(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

/// The value in a statement; nothing for a word that the field can't hold.
std::optional<std::string> Literal(FieldKind kind, const Word& word) {
  if (word.Is("Null")) return "Null";
  switch (kind) {
    case FieldKind::Number:
      return IsNumber(word.text) ? std::optional(word.text) : std::nullopt;
    case FieldKind::Flag:
      return word.Is("True") || word.Is("False") ? std::optional(word.text) : std::nullopt;
    case FieldKind::Date:
      return LooksLikeADate(word.text) ? std::optional("#" + word.text + "#") : std::nullopt;
    case FieldKind::Text:
      break;
  }
  return InQuotes(word.text);
}

const char* KindName(FieldKind kind) {
  switch (kind) {
    case FieldKind::Number:
      return "a number";
    case FieldKind::Flag:
      return "True or False";
    case FieldKind::Date:
      return "a date";
    case FieldKind::Text:
      break;
  }
  return "a text";
}

std::string MisfitText(const RowKind& kind, const RowField& field, const Word& word) {
  std::string text = "add ";
  text.append(kind.name).append(" takes ").append(KindName(field.kind)).append(" or Null for ").append(field.name);
  return text + ", not " + Quoted(word.text);
}

}  // namespace

RowWords::RowWords(const RowKind& kind, const Arguments& words) : kind_(kind) {
  Place(words);
  if (mistake_.empty()) Check();
  for (const auto& [name, value] : kind_.filled)
    if (!IsGiven(name)) values_.emplace_back(FieldNamed({std::string(name)}), value);
}

void RowWords::Place(const Arguments& words) {
  const std::string command = "add " + std::string(kind_.name);
  std::size_t next = 0;
  std::size_t field = kind_.counted && words.Count() > 0 && !IsWholeNumber(words.At(0)) ? 1 : 0;
  for (; next < words.Count() && field < kind_.places.most && FieldNamed(words.At(next)) == nullptr; ++next, ++field)
    values_.emplace_back(&kind_.fields[field], words.At(next));
  if (field < kind_.places.least) {
    mistake_ = command + " wants its " + std::string(kind_.fields[field].name);
    return;
  }
  for (; next < words.Count(); next += 2) {
    const RowField* named = FieldNamed(words.At(next));
    if (named == nullptr)
      mistake_ = command + " has no field " + Quoted(words.Text(next));
    else if (next + 1 == words.Count())
      mistake_ = command + " takes a value behind " + std::string(named->name);
    else if (IsGiven(named->name))
      mistake_ = command + " is given " + std::string(named->name) + " twice";
    if (!mistake_.empty()) return;
    values_.emplace_back(named, words.At(next + 1));
  }
}

void RowWords::Check() {
  for (const auto& [field, word] : values_) {
    if (word.text.find('{') != std::string::npos || Literal(field->kind, word)) continue;
    mistake_ = MisfitText(kind_, *field, word);
    return;
  }
}

const RowField* RowWords::FieldNamed(const Word& word) const {
  for (const RowField& field : kind_.fields)
    if (word.Is(field.name)) return &field;
  return nullptr;
}

bool RowWords::IsGiven(std::string_view field) const {
  return std::any_of(values_.begin(), values_.end(), [&](const auto& one) { return platform::EqualsNoCase(one.first->name, field); });
}

std::string RowWords::Statement() const {
  std::string names;
  std::string literals;
  for (const auto& [field, word] : values_) {
    const auto literal = Literal(field->kind, word);
    if (!literal) throw ActionFailed(MisfitText(kind_, *field, word));
    names += (names.empty() ? "" : ", ") + ("[" + std::string(field->name) + "]");
    literals += (literals.empty() ? "" : ", ") + *literal;
  }
  return "INSERT INTO " + std::string(kind_.table) + " (" + names + ") VALUES (" + literals + ")";
}

}  // namespace robot
