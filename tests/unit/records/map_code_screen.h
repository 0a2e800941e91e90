#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/data_control.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/text_box.h"
#include "records/card_fields.h"
#include "records/record_kind.h"
#include "records/record_operations.h"
#include "session/ModCustSch.h"

/// The table of map codes as a list and a card: a screen that has nothing of the main screen but the record operations.
class frmCodes final : public platform::Screen, public orcussch::RecordOperations {
 public:
  explicit frmCodes(platform::Application& application) : Screen(application, "frmCodes", "Codes"), kind(*this) {
    grdCodes.BindTo(DataCodes);
    grdCodes.PutOnTab(Pages, 0, 0);
    kind.txtMapCode.PutOnTab(Pages, 0, 1);
    kind.txtLocation.PutOnTab(Pages, 0, 1);
  }

  void Form_Load() override {
    DataCodes.DatabaseName(orcussch::gCustomerPath);
    DataCodes.RecordSource("SELECT * FROM Locations ORDER BY MapCode;");
    DataCodes.Refresh();
  }

  void EditingRecord(bool Editing) override { Did(Editing ? "card keys" : "list keys"); }
  void EditSetup() override {
    Did("card");
    Pages.Page(1);
    kind.txtMapCode.SetFocus();
  }
  void TestRecordcount() override { Did("counted"); }
  platform::Screen& OnScreen() override { return *this; }

  platform::TabControl Pages{*this, "Pages", {"Codes"}};
  platform::DataControl DataCodes{*this, "DataCodes"};
  platform::Grid grdCodes{*this, "grdCodes"};

  class Codes final : public orcussch::RecordKind {
   public:
    explicit Codes(frmCodes& screen) : RecordKind(screen, screen.DataCodes, "RecordID"), s(screen) {}
    bool Add(orcussch::ResumeNext& on) override {
      Prepare();
      fields.Clear(on);
      return true;
    }
    void Edit(orcussch::ResumeNext& on) override {
      Prepare();
      fields.Load(on, Rows());
    }
    bool Save(orcussch::ResumeNext& on, orcussch::SaveState& state) override {
      if (!Passes(state, {{txtMapCode.Text().empty(), "A code is needed!", &txtMapCode}})) return false;
      orcussch::RowWrite row(on);
      if (Adding())
        row.Must([] { orcussch::rsLocations->AddNew(); });
      else if (!BeginEdit(row, orcussch::rsLocations, state, {"Code ", " is gone!"}))
        return false;
      fields.Write(row, orcussch::rsLocations);
      Store(row, orcussch::rsLocations, state);
      return true;
    }
    void BackInList(const orcussch::SaveState&, bool records) override { s.Did(records ? "back in list" : "back in empty list"); }
    bool MayDelete(orcussch::ResumeNext&, orcussch::DeleteState& state) override {
      state.Position = "[MapCode]>='" + platform::CStr(Rows()->Field("MapCode")) + "'";
      return true;
    }

    /// What the user does, once, in a yield while a card is prepared.
    std::function<void()> preparing;

   private:
    void Prepare() {
      if (const auto act = std::exchange(preparing, nullptr)) act();
    }

    frmCodes& s;

   public:
    platform::TextBox txtMapCode{s, "txtMapCode", 20};
    platform::TextBox txtLocation{s, "txtLocation", 24};
    orcussch::CardFields fields{orcussch::card::Text("MapCode", txtMapCode), orcussch::card::Text("Location", txtLocation)};
  };
  Codes kind;

  /// What the operations had the screen do, in its order.
  std::vector<std::string> did;

 private:
  void Did(const std::string& what) { did.push_back(what); }
  orcussch::RecordKind& CurrentRecord() const override { return const_cast<Codes&>(kind); }
  orcussch::RecordLiterals Literals() const override { return {"codes.Add", "codes.Edit", "codes.Save", "codes.Cancel", "codes.Delete"}; }
  orcussch::RecordTexts Texts() const override {
    return {"Save Record",      "Saving, please wait!",  "Cancel", "Cancel the code?", "Delete Map Code",
            "Delete the code?", "Deleting, please wait!"};
  }
  void Ready(bool ready) override { Did(ready ? "ready" : "busy"); }
  void TellWait(const std::string& text) override { Did("tells <" + text + ">"); }
  bool CardIsUp() const override { return Pages.Page() == 1; }
  void ShowList() override {
    Did("list");
    Pages.Page(0);
  }
  void LeavingCard() override { Did("leaving card"); }
};
