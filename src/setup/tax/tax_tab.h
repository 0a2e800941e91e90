#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "setup/setup_record.h"
#include "setup/tax/tax_tables.h"

namespace orcussch {

class frmTaxSetup;

namespace taxtab {
inline constexpr int Types = 0, Entities = 1, Rates = 2, Count = 3;
}

/// What the design of a tab of the tax setup fixes.
struct TaxTabDesign {
  const char* caption;      ///< with two blanks on each side
  const char* select;       ///< the list's statement without clause and order
  const char* index;        ///< the table's primary index
  const char* description;  ///< field of the record's name
  const char* noun;         ///< what a deletion calls the record
  const char* gone;         ///< told at a save whose row another user has deleted
  SetupTexts texts;
  SetupListDesign list;  ///< its first field is the key, a counter that the table makes
};

/// A tab of the tax setup: the list of one of the tax tables on its first page, the card on its second.
class TaxTab : public SetupRecord {
 public:
  const char* Caption() const { return mDesign.caption; }
  /// TabSQL: the list's statement without clause and order.
  const char* Select() const { return mDesign.select; }

  const SetupTexts& Texts() const override { return mDesign.texts; }
  std::string SearchTitle() const override;
  int DeleteStyle() const override;
  std::optional<std::string> Write(bool adding) override;
  SetupDeletion Deletion() override;
  void StandOn(const std::string& position) override;
  /// Raises what the table would raise if the field of the current row got that value. Of a row that has gone the write tells.
  void TryField(const std::string& field, const platform::Value& value) const;

  // The key on the card; hidden while adding, and from then on until the next edit.
  platform::Label lblIDDesc, lblID;

 protected:
  TaxTab(frmTaxSetup& screen, int tab, TaxTabDesign design);

  /// The table through which the tab writes.
  virtual const platform::RecordsetRef& Table() const = 0;
  /// Writes the card into the row that is being added or edited.
  virtual void Fill(const platform::RecordsetRef& row) = 0;
  /// Why the row with that key can't be deleted; nullptr when it can. A type or an entity can't while a rate has it.
  virtual const char* InUse(std::int32_t key) const;

  /// Puts the card's controls on the card's page.
  void PutOnCard(std::initializer_list<platform::Control*> controls);
  void HideKey();
  void ShowKey();
  /// An entry must not be empty; else the user is told so and stands in it.
  bool Requires(platform::TextBox& entry, const char* message);

  frmTaxSetup& s;

 private:
  std::string Key() const { return mDesign.list.field; }
  std::string KeyIs(const char* comparison, std::int32_t key) const;

  int mTab;
  TaxTabDesign mDesign;
};

}  // namespace orcussch
