#include <optional>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/lists.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "robot/language/failure.h"
#include "robot/stage/lookup.h"

namespace robot {
namespace {

using namespace platform;
using Property = std::vector<NamePart>;
using Found = std::optional<Value>;

/// Whether the property is this one word, without an index.
bool Is(const Property& property, std::string_view name) {
  return property.size() == 1 && property[0].index < 0 && EqualsNoCase(property[0].name, name);
}

/// Whether it is this one word with an index, as "TabEnabled(2)".
bool IsIndexed(const Property& property, std::string_view name) {
  return property.size() == 1 && property[0].index >= 0 && EqualsNoCase(property[0].name, name);
}

/// Whether it is an item of a collection with a property of its own, as "Columns(3).Caption".
bool IsItem(const Property& property, std::string_view collection, std::string_view name) {
  return property.size() == 2 && property[0].index >= 0 && EqualsNoCase(property[0].name, collection) &&
         EqualsNoCase(property[1].name, name);
}

bool IsCount(const Property& property, std::string_view collection) {
  return property.size() == 2 && property[0].index < 0 && EqualsNoCase(property[0].name, collection) &&
         EqualsNoCase(property[1].name, "Count");
}

Value Number(int number) { return Value(static_cast<std::int32_t>(number)); }

Found OfText(const TextBox& box, const Property& p) {
  if (Is(p, "Text")) return Value(box.Text());
  if (Is(p, "DisplayText")) return Value(box.DisplayText());
  if (Is(p, "Mask")) return Value(box.Mask());
  if (Is(p, "MaxLength")) return Number(box.MaxLength());
  if (Is(p, "Locked")) return Value(box.Locked());
  if (Is(p, "MultiLine")) return Value(box.MultiLine());
  if (!Is(p, "Value")) return {};
  if (const auto* money = dynamic_cast<const CurrencyEdit*>(&box)) return Value(money->Value());
  if (const auto* number = dynamic_cast<const NumberEdit*>(&box)) return Value(number->Value());
  if (const auto* date = dynamic_cast<const DateEdit*>(&box)) return date->Value() ? Value(*date->Value()) : Value(Null);
  return Value(box.Text());
}

Found OfButtons(const Control& control, const Property& p) {
  if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
    if (Is(p, "Caption")) return Value(button->Caption());
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    if (Is(p, "Value")) return Number(check->Value());
    if (Is(p, "Caption")) return Value(check->Caption());
  } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    if (Is(p, "Value")) return Value(option->Value());
    if (Is(p, "Caption")) return Value(option->Caption());
  }
  return {};
}

Found OfCombo(const ComboBox& combo, const Property& p) {
  if (Is(p, "Text")) return Value(combo.Text());
  if (Is(p, "BoundValue") || Is(p, "Value")) return combo.BoundValue();
  if (IsCount(p, "Columns")) return Number(static_cast<int>(combo.Columns().size()));
  if (p.size() != 2 || !EqualsNoCase(p[0].name, "Columns")) return {};
  if (p[0].index < 0 || p[0].index >= static_cast<int>(combo.Columns().size())) return {};
  const ComboColumn& column = combo.Columns()[static_cast<std::size_t>(p[0].index)];
  if (EqualsNoCase(p[1].name, "Caption")) return Value(column.caption);
  if (EqualsNoCase(p[1].name, "DataField")) return Value(column.field);
  if (EqualsNoCase(p[1].name, "NumberFormat")) return Value(column.numberFormat);
  return {};
}

Found OfColumn(const Grid& grid, int index, const std::string& name) {
  if (index < 0 || index >= grid.ColumnCount()) return {};
  const GridColumn& column = grid.Column(index);
  if (EqualsNoCase(name, "Caption")) return Value(column.caption);
  if (EqualsNoCase(name, "DataField")) return Value(column.dataField);
  if (EqualsNoCase(name, "NumberFormat")) return Value(column.numberFormat);
  if (EqualsNoCase(name, "Visible")) return Value(column.visible);
  if (EqualsNoCase(name, "CheckBox")) return Value(column.checkBox);
  if (EqualsNoCase(name, "Open")) return Value(column.open);
  if (EqualsNoCase(name, "Value")) return grid.ColumnValue(index);
  if (EqualsNoCase(name, "Text")) return Value(grid.ShownText(index, grid.ColumnValue(index)));
  return {};
}

/// "17 Default Phone Number", each row that stands out behind the other.
std::string Emphasized(const Grid& grid) {
  std::string text;
  for (const auto& [key, what] : grid.Emphasized()) text += (text.empty() ? "" : ", ") + std::to_string(key) + " " + what;
  return text;
}

Found OfGrid(const Grid& grid, const Property& p) {
  if (Is(p, "Caption")) return Value(grid.Caption());
  if (Is(p, "DataChanged")) return Value(grid.DataChanged());
  if (Is(p, "OpenText")) return grid.OpenCell() ? Value(grid.OpenText()) : Value(Null);
  if (Is(p, "Emphasized")) return Value(Emphasized(grid));
  if (IsCount(p, "SelBookmarks")) return Number(grid.SelBookmarks.Count());
  if (IsCount(p, "Columns")) return Number(grid.ColumnCount());
  if (IsCount(p, "Splits")) return Number(grid.SplitCount());
  if (IsItem(p, "Splits", "LeftCol") && p[0].index < grid.SplitCount()) return Number(grid.LeftCol(p[0].index));
  if (p.size() == 2 && EqualsNoCase(p[0].name, "Columns")) return OfColumn(grid, p[0].index, p[1].name);
  return {};
}

Found OfTabs(const TabControl& tabs, const Property& p) {
  if (Is(p, "Tab") || Is(p, "Value")) return Number(tabs.Tab());
  if (Is(p, "Page")) return Number(tabs.Page());
  if (Is(p, "Tabs")) return Number(tabs.TabCount());
  if (Is(p, "Caption")) return Value(tabs.TabCaption(tabs.Tab()));
  if (p.empty() || p[0].index >= tabs.TabCount()) return {};
  if (IsIndexed(p, "TabEnabled")) return Value(tabs.TabEnabled(p[0].index));
  if (IsIndexed(p, "TabCaption")) return Value(tabs.TabCaption(p[0].index));
  return {};
}

Found OfData(const DataControl& data, const Property& p) {
  if (Is(p, "RecordSource")) return Value(data.RecordSource());
  if (Is(p, "DatabaseName")) return Value(data.DatabaseName());
  if (p.size() != 2 || p[1].index >= 0 || !EqualsNoCase(p[0].name, "Recordset")) return {};
  if (EqualsNoCase(p[1].name, "RecordCount")) return Value(data.Recordset()->RecordCount());
  if (EqualsNoCase(p[1].name, "Bof")) return Value(data.Recordset()->Bof());
  if (EqualsNoCase(p[1].name, "Eof")) return Value(data.Recordset()->Eof());
  if (EqualsNoCase(p[1].name, "NoMatch")) return Value(data.Recordset()->NoMatch());
  return {};
}

Found OfLists(const Control& control, const Property& p) {
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    const auto index = static_cast<std::size_t>(list->ListIndex());
    if (Is(p, "Text")) return Value(list->ListIndex() < 0 ? std::string() : list->Items()[index]);
    if (Is(p, "ListIndex")) return Number(list->ListIndex());
    if (Is(p, "ListCount")) return Number(static_cast<int>(list->Items().size()));
  } else if (const auto* scroll = dynamic_cast<const ScrollBar*>(&control)) {
    if (Is(p, "Value")) return Number(scroll->Value());
    if (Is(p, "Min")) return Number(scroll->Min());
    if (Is(p, "Max")) return Number(scroll->Max());
  } else if (const auto* progress = dynamic_cast<const ProgressBar*>(&control)) {
    if (Is(p, "Value")) return Number(progress->Value());
    if (Is(p, "Max")) return Number(progress->Max());
  }
  return {};
}

Found OfOthers(const Control& control, const Property& p) {
  if (const auto* label = dynamic_cast<const CaptionControl*>(&control)) {
    if (Is(p, "Caption")) return Value(label->Caption());
  } else if (const auto* item = dynamic_cast<const MenuItem*>(&control)) {
    if (Is(p, "Caption")) return Value(item->Caption());
  } else if (const auto* menu = dynamic_cast<const Menu*>(&control)) {
    if (Is(p, "Caption")) return Value(menu->Caption());
  } else if (const auto* bar = dynamic_cast<const StatusBar*>(&control)) {
    if (IsIndexed(p, "Panels") && p[0].index >= 1 && p[0].index <= 3) return Value(bar->Panel(p[0].index));
  } else if (const auto* toolbar = dynamic_cast<const Toolbar*>(&control)) {
    if (IsCount(p, "Buttons")) return Number(static_cast<int>(toolbar->Buttons().size()));
  } else if (const auto* dialog = dynamic_cast<const CommonDialog*>(&control)) {
    if (Is(p, "CancelError")) return Value(dialog->CancelError);
    if (Is(p, "FromPage")) return Number(dialog->FromPage);
    if (Is(p, "ToPage")) return Number(dialog->ToPage);
    if (Is(p, "Copies")) return Number(dialog->Copies);
  }
  return {};
}

Found OfAny(const Control& control, const Property& p) {
  if (Is(p, "Enabled")) return Value(control.Enabled());
  if (Is(p, "Visible")) return Value(control.Visible());
  if (Is(p, "ToolTipText")) return Value(control.ToolTipText());
  if (Is(p, "Tag")) return Value(control.Tag());
  if (Is(p, "Name")) return Value(control.Name());
  if (Is(p, "Index")) return Number(control.Index());
  return {};
}

Found OfControl(const Control& control, const Property& p) {
  if (Found any = OfAny(control, p)) return any;
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return OfText(*box, p);
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) return OfCombo(*combo, p);
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) return OfGrid(*grid, p);
  if (const auto* tabs = dynamic_cast<const TabControl*>(&control)) return OfTabs(*tabs, p);
  if (const auto* data = dynamic_cast<const DataControl*>(&control)) return OfData(*data, p);
  if (Found found = OfButtons(control, p)) return found;
  if (Found found = OfLists(control, p)) return found;
  return OfOthers(control, p);
}

Found OfForm(const Form& form, const Property& p) {
  if (p.empty() || Is(p, "Caption")) return Value(form.Caption());
  if (Is(p, "Visible")) return Value(form.Visible());
  if (Is(p, "Name")) return Value(form.Name());
  return {};
}

std::string Joined(const Property& property) {
  std::string text;
  for (const NamePart& part : property)
    text += (text.empty() ? "" : ".") + part.name + (part.index < 0 ? "" : "(" + std::to_string(part.index) + ")");
  return text;
}

}  // namespace

Value OwnValue(const Control& control) {
  for (const char* name : {"Text", "Tab", "Value", "RecordSource", "Caption"}) {
    if (Found found = OfControl(control, {{name, -1}})) return *found;
  }
  if (const auto* bar = dynamic_cast<const StatusBar*>(&control)) return Value(bar->Panel(1));
  return Value(control.ToolTipText());
}

Value PropertyOf(const Named& named) {
  if (named.control == nullptr) {
    if (Found found = OfForm(*named.form, named.property)) return *found;
    throw ActionFailed("no control or property " + Joined(named.property) + " of " + named.form->Name());
  }
  if (named.property.empty()) return OwnValue(*named.control);
  if (Found found = OfControl(*named.control, named.property)) return *found;
  throw ActionFailed("no property " + Joined(named.property) + " of " + named.control->FullName());
}

}  // namespace robot
