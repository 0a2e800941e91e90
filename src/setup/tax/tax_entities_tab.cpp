#include "setup/tax/tax_entities_tab.h"

#include "records/columns.h"
#include "records/fields.h"
#include "setup/tax/frmTaxSetup.h"

namespace orcussch {

namespace {

constexpr int kDescriptionLength = 30;

TaxTabDesign Design() {
  return {.caption = "  Tax Entities  ",
          .select = "Select * From TaxEntities",
          .index = "PrimaryKey",
          .description = "EntityDescription",
          .noun = "tax entity",
          .gone =
              "The edited tax entity can no longer be found.  It may have been deleted by another user.  The record changes can not "
              "be saved!",
          .texts = {.name = "Tax Entity?", .deleteTitle = "Delete Tax Entity", .deleting = "Deleting record, please wait!", .saving = ""},
          .list = {.data = "Data",
                   .grid = "grid",
                   .options = "optOrder1",
                   .index = taxtab::Entities,
                   .field = "TaxEntity",
                   .prompt = "Tax Entity ID",
                   .caption = "",
                   .columns = {column::Closed(column::Plain("Tax Entity ID", "TaxEntity")),
                               column::Limited(column::Plain("Tax Entity Description", "EntityDescription"), kDescriptionLength)}}};
}

}  // namespace

TaxEntitiesTab::TaxEntitiesTab(frmTaxSetup& screen)
    : TaxTab(screen, taxtab::Entities, Design()), txtTaxEntity(screen, "txtTaxEntity", kDescriptionLength) {
  PutOnCard({&txtTaxEntity});
}

const platform::RecordsetRef& TaxEntitiesTab::Table() const { return s.tables.TaxEntities_Tb; }

bool TaxEntitiesTab::Add() {
  HideKey();
  txtTaxEntity.Text("");
  return true;
}

bool TaxEntitiesTab::Edit() {
  ShowKey();
  lblID.Caption(TextUnguarded(Rows(), "TaxEntity"));
  txtTaxEntity.Text(TextUnguarded(Rows(), "EntityDescription"));
  return true;
}

bool TaxEntitiesTab::Complete() { return Requires(txtTaxEntity, "You must enter a tax entity description!"); }

void TaxEntitiesTab::Fill(const platform::RecordsetRef& row) { row->SetField("EntityDescription", txtTaxEntity.Text()); }

}  // namespace orcussch
