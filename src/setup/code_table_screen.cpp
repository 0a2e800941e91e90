#include "setup/code_table_screen.h"

#include <utility>

#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

CodeTableScreen::CodeTableScreen(platform::Application& application, CodeTableDesign design, std::vector<platform::Toolbar::Key> firstKeys)
    : SetupScreen(application, design.screen, design.caption, Keys(std::move(firstKeys))),
      SetupRecord(*this, design.list),
      fraCard(*this, design.card, design.cardCaption),
      mDesign(std::move(design)),
      cmdClose(*this, "cmdClose", "E&xit"),
      StatusBar1(*this, "StatusBar1") {
  Attach(*this);
  fraCard.Visible(false);
  cmdClose.Click = [this] { App().Unload(*this); };
}

void CodeTableScreen::PutOnCard(std::initializer_list<platform::Control*> entries) {
  for (platform::Control* entry : entries) entry->Container(fraCard);
}

void CodeTableScreen::Form_Load() {
  Trap(mDesign.loadLiteral, [this] {
    list.data.DatabaseName(gCustomerPath);
    OpenList(*this);
    OpenTables();
    for (const char* key : {"tb_SaveRec", "tb_CancelRec", "tb_Search"}) tb(key).Enabled(false);
    Loading();
    EditingRecords(false);
  });
}

void CodeTableScreen::OpenList(SetupRecord&) {
  Trap(mDesign.openLiteral, [this] {
    list.Open(mDesign.select + list.OrderBy());
    TestRecordcount();
  });
}

/// List and card share one place: one of them is to be seen.
void CodeTableScreen::ShowCard(bool editing) {
  tb("tb_Refresh").Enabled(!editing);
  list.grid.Visible(!editing);
  fraCard.Visible(editing);
}

}  // namespace orcussch
