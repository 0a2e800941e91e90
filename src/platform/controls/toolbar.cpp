#include "platform/controls/toolbar.h"

#include "platform/controls/form/form.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

namespace platform {

void CommandControl::GuardedCommand(const std::function<void()>& body) {
  Act([&] {
    const std::string why = Refusal ? Refusal() : "";
    Told.Fire(why);
    if (why.empty()) UserCommand(body);
  });
}

ToolbarButton::ToolbarButton(Form& form, Toolbar& toolbar, std::string key, std::string toolTip)
    : CommandControl(form, std::move(key)), toolbar_(toolbar) {
  Container(toolbar);
  ToolTipText(std::move(toolTip));
}

void ToolbarButton::UserClick() {
  GuardedCommand([this] { toolbar_.ButtonClick.Fire(Name()); });
}

Toolbar::Toolbar(Form& form, std::string name, std::vector<Key> keys) : Control(form, std::move(name)), keys_(std::move(keys)) {
  for (const Key& key : keys_) buttons_.push_back(std::make_unique<ToolbarButton>(form, *this, key.key, key.toolTip));
}

ToolbarButton& Toolbar::Button(std::string_view key) const {
  for (const auto& button : buttons_)
    if (EqualsNoCase(button->Name(), key)) return *button;
  throw error::ItemNotFound();
}

MenuItem::MenuItem(Form& form, std::string name, std::string caption)
    : CommandControl(form, std::move(name)), caption_(std::move(caption)) {}

void MenuItem::Caption(std::string caption) {
  caption_ = std::move(caption);
  Changed(Aspect::Text);
}

void MenuItem::UserClick() {
  GuardedCommand([this] { Click.Fire(); });
}

Menu::Menu(Form& form, std::string name, std::string caption, std::vector<MenuItem*> items)
    : Control(form, std::move(name)), caption_(std::move(caption)), items_(std::move(items)) {
  for (MenuItem* item : items_) item->Container(*this);
}

}  // namespace platform
