#include "setup/setup_list.h"

#include <utility>

#include "records/lists.h"

namespace orcussch {

SetupList::SetupList(platform::Form& screen, SetupListDesign design)
    : data(screen, design.data, design.index),
      fraSearch(screen, "fraSearch", design.index, "Search First:"),
      lblSearch(screen, "lblSearch", design.index, ""),
      txtSearch(screen, "txtSearch", design.index, 0, ""),
      fraOrder(screen, "fraOrder", design.index, "Order By:"),
      optOrder(screen, design.options),
      grid(screen, design.grid, design.index) {
  lblSearch.Container(fraSearch);
  txtSearch.Container(fraSearch);
  optOrder.Each([this](platform::OptionButton& option, int) { option.Container(fraOrder); });
  optOrder[0].Design(true);
  NameField(design.field, design.prompt);
  grid.BindTo(data);
  grid.Caption(std::move(design.caption));
  grid.DefineColumns(std::move(design.columns));
  grid.SearchBox(txtSearch);
}

void SetupList::NameField(const std::string& field, const std::string& caption) {
  fraSearch.Tag(field);
  fraOrder.Tag(field);
  lblSearch.Caption(caption);
  optOrder[0].Caption("Ascending " + caption);
  optOrder[1].Caption("Descending " + caption);
}

bool SetupList::HasRows() const { return HasRecords(data); }

std::string SetupList::OrderBy() const { return " ORDER BY " + fraOrder.Tag() + (optOrder[1].Value() ? " DESC" : "") + ";"; }

void SetupList::Open(const std::string& statement) {
  data.RecordSource(statement);
  Reload();
}

void SetupList::Reload() {
  data.Refresh();
  data.UpdateControls();
}

void SetupList::OrderByColumn(int column) { NameField(grid.Column(column).dataField, grid.Column(column).caption); }

void SetupList::Enable(bool enabled) {
  fraSearch.Enabled(enabled);
  fraOrder.Enabled(enabled);
  data.Enabled(enabled);
}

}  // namespace orcussch
