#include "setup/tax/tax_types_tab.h"

#include "records/columns.h"
#include "records/fields.h"
#include "setup/tax/frmTaxSetup.h"

namespace orcussch {

namespace {

constexpr int kDescriptionLength = 30;

/// The classes in the order of their options: code and name. A code that is none of them counts as the first.
constexpr std::pair<const char*, const char*> kClasses[] = {{"S", "Sales Tax"}, {"U", "Use Tax"}, {"O", "Other"}};

std::vector<std::pair<platform::Value, std::string>> ClassItems() {
  std::vector<std::pair<platform::Value, std::string>> items;
  for (const auto& one : kClasses) items.emplace_back(one.first, one.second);
  return items;
}

TaxTabDesign Design() {
  return {.caption = "  Tax Types  ",
          .select = "Select * From TaxTypes",
          .index = "PrimaryKey",
          .description = "TypeDescription",
          .noun = "tax type",
          .gone =
              "The edited tax type can no longer be found.  It may have been deleted by another user.  The record changes can not "
              "be saved!",
          .texts = {.name = "Tax Type?", .deleteTitle = "Delete Tax Type", .deleting = "Deleting record, please wait!", .saving = ""},
          .list = {.data = "Data",
                   .grid = "grid",
                   .options = "optOrder0",
                   .index = taxtab::Types,
                   .field = "TaxType",
                   .prompt = "Tax Type ID",
                   .caption = "",
                   .columns = {column::Closed(column::Plain("Tax Type ID", "TaxType")),
                               column::Limited(column::Plain("Tax Type Description", "TypeDescription"), kDescriptionLength),
                               column::Coded("Tax Type", "TypeCode", ClassItems())}}};
}

}  // namespace

TaxTypesTab::TaxTypesTab(frmTaxSetup& screen)
    : TaxTab(screen, taxtab::Types, Design()), txtTaxType(screen, "txtTaxType", kDescriptionLength), optTaxType(screen, "optTaxType") {
  PutOnCard({&txtTaxType, &optTaxType[0], &optTaxType[1], &optTaxType[2]});
  for (int i = 0; i < optTaxType.size(); ++i) optTaxType[i].Caption(kClasses[i].second);
  optTaxType[0].Design(true);
}

const platform::RecordsetRef& TaxTypesTab::Table() const { return s.tables.TaxTypes_Tb; }

bool TaxTypesTab::Add() {
  HideKey();
  txtTaxType.Text("");
  optTaxType[0].Value(true);
  return true;
}

bool TaxTypesTab::Edit() {
  ShowKey();
  lblID.Caption(TextUnguarded(Rows(), "TaxType"));
  txtTaxType.Text(TextUnguarded(Rows(), "TypeDescription"));
  const std::string code = TextOf(Rows(), "TypeCode");
  optTaxType[code == "U" ? 1 : code == "O" ? 2 : 0].Value(true);
  return true;
}

bool TaxTypesTab::Complete() { return Requires(txtTaxType, "You must enter a tax type description!"); }

void TaxTypesTab::Fill(const platform::RecordsetRef& row) {
  row->SetField("TypeDescription", txtTaxType.Text());
  row->SetField("TypeCode", kClasses[optTaxType[1].Value() ? 1 : optTaxType[2].Value() ? 2 : 0].first);
}

}  // namespace orcussch
