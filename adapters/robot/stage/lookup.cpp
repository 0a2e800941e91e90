#include "robot/stage/lookup.h"

#include <charconv>

#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/values/text.h"
#include "robot/language/failure.h"

namespace robot {
namespace {

NamePart PartOf(const std::string& text, const std::string& whole) {
  NamePart part{text, -1};
  if (const auto open = text.find('('); open != std::string::npos) {
    const char* first = text.data() + open + 1;
    const char* last = text.data() + text.size() - 1;
    const auto [end, mistake] =
        first < last ? std::from_chars(first, last, part.index) : std::from_chars_result{first, std::errc::invalid_argument};
    if (*last != ')' || mistake != std::errc{} || end != last) throw ActionFailed("no name: " + whole);
    part.name.resize(open);
  }
  if (part.name.empty()) throw ActionFailed("no name: " + whole);
  return part;
}

}  // namespace

std::vector<NamePart> SplitName(const std::string& name) {
  std::vector<NamePart> parts;
  std::size_t from = 0;
  while (true) {
    const std::size_t dot = name.find('.', from);
    parts.push_back(PartOf(name.substr(from, dot == std::string::npos ? dot : dot - from), name));
    if (dot == std::string::npos) return parts;
    from = dot + 1;
  }
}

platform::Form* LoadedForm(const platform::Application& app, std::string_view name) {
  for (int i = 0; i < app.FormCount(); ++i)
    if (platform::EqualsNoCase(app.FormAt(i).Name(), name)) return &app.FormAt(i);
  return nullptr;
}

std::optional<std::string> StatusText(const platform::Form* form) {
  if (form == nullptr) return std::nullopt;
  for (const platform::Control* control : form->Controls())
    if (const auto* bar = dynamic_cast<const platform::StatusBar*>(control)) return bar->Panel(1);
  return std::nullopt;
}

Named Find(const platform::Application& app, const std::string& name) {
  std::vector<NamePart> parts = SplitName(name);
  Named named;
  std::size_t next = 0;
  if (parts[0].index < 0) named.form = LoadedForm(app, parts[0].name);
  if (named.form != nullptr) {
    next = 1;
  } else {
    named.form = app.ActiveForm();
    if (named.form == nullptr) throw ActionFailed("no screen up that has " + name);
  }
  if (next < parts.size()) named.control = named.form->Find(parts[next].name, parts[next].index);
  if (named.control != nullptr) ++next;
  if (named.control == nullptr && (next == 0 || (next < parts.size() && parts.size() > next + 1)))
    throw ActionFailed("no control " + name + " on " + named.form->Name());
  named.property.assign(parts.begin() + static_cast<std::ptrdiff_t>(next), parts.end());
  return named;
}

void DemandVisible(const platform::Application& app, const platform::Control& control) {
  // A screen that is still loading is already modal to those below.
  if (&control.Owner() != app.ActiveForm() || !app.TakesInput(control.Owner()))
    throw Refused(control.FullName() + " not on the top screen");
  if (!control.EffectivelyVisible()) throw Refused(control.FullName() + " hidden");
}

void DemandUsable(const platform::Application& app, const platform::Control& control) {
  DemandVisible(app, control);
  if (!control.EffectivelyEnabled()) throw Refused(control.FullName() + " disabled");
}

}  // namespace robot
