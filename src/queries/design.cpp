#include "queries/frmCustQueries.h"
#include "queries/shortcuts.h"
#include "session/ModCustSch.h"

// What the screen's design fixes: captions, tags, lengths, masks, places, first states. Nothing here runs a rule.
namespace orcussch {

using namespace criteria;
using platform::Control;

namespace screens {
platform::ScreenRef<orcussch::frmCustQueries> frmCustQueries{App};
}  // namespace screens

namespace {

std::vector<platform::Toolbar::Key> ToolbarKeys() { return {{"tb_RunQuery", "Run Query"}, {"tb_Cancel", "Cancel running query"}}; }

/// Every editing control is closed until its check box opens it.
void Close(std::initializer_list<Control*> controls) {
  for (Control* control : controls) control->Enabled(false);
}

template <std::size_t N>
void Entitle(const platform::ControlArray<platform::OptionButton, N>& options, std::initializer_list<const char*> captions) {
  int i = 0;
  for (const char* caption : captions) options[i++].Caption(caption);
  options[0].Design(true);
  options.Each([](platform::OptionButton& option, int) { option.Enabled(false); });
}

void OfferComparisons(platform::ComboBox& combo) {
  std::vector<platform::ComboRow> rows;
  for (const Comparison& comparison : kComparisons) rows.push_back({comparison.code, comparison.caption, {comparison.caption}});
  combo.Fill(std::move(rows));
  combo.BoundValue(kFirstComparison.code);
  combo.Text(kFirstComparison.caption);
  combo.Enabled(false);
}

/// A tab of ranges: two criteria a frame, the lower end first.
template <class Edit, std::size_t N>
void DesignRanges(const Range (&ranges)[N], Tab tab, const std::string& what, const platform::ControlArray<platform::Frame, N>& frames,
                  const platform::ControlArray<platform::CheckBox, 2 * N>& checks, const platform::ControlArray<Edit, 2 * N>& edits,
                  platform::TabControl& tabs) {
  for (int i = 0; i < checks.size(); ++i) {
    const bool least = i % 2 == 0;
    const Range& range = ranges[i / 2];
    platform::Frame& frame = frames[i / 2];
    frame.Caption(range.caption);
    frame.PutOnTab(tabs, tab, 0);
    checks[i].Caption((least ? "Select Min " : "Select Max ") + what);
    checks[i].Tag(least ? range.least : range.most);
    checks[i].Container(frame);
    edits[i].Container(frame);
    Close({&edits[i]});
  }
}

}  // namespace

frmCustQueries::frmCustQueries(platform::Application& application)
    : Screen(application, "frmCustQueries", "Customer Queries"),
      Toolbar1(*this, "Toolbar1", ToolbarKeys()),
      chkSelectAll(*this, "chkSelectAll", "Select All Customers"),
      SSTab1(*this, "SSTab1", {kTabCaptions[Names], kTabCaptions[Misc], kTabCaptions[Amounts], kTabCaptions[Dates]}),
      fraSQL(*this, "fraSQL", ""),
      chkSelectNameAdd(*this, "chkSelectNameAdd", "Select"),
      cboSQL(*this, "cboSQL"),
      txtNameAdd(*this, "txtNameAdd", 0, ""),
      fraBillingStatus(*this, "fraBillingStatus", kMisc[Billing].caption),
      Frame1(*this, "Frame1", kMisc[TaxID].caption),
      Frame2(*this, "Frame2", kMisc[CheckNo].caption),
      Frame3(*this, "Frame3", kMisc[FinanceCharge].caption),
      chkSelectMisc(*this, "chkSelectMisc", "Select"),
      optStatus(*this, "optStatus"),
      optInvoiceNo(*this, "optInvoiceNo"),
      txtInvoiceNo(*this, "txtInvoiceNo"),
      txtCreditCard(*this, "txtCreditCard", 25),
      optBillingStatus(*this, "optBillingStatus"),
      txtCheckNo(*this, "txtCheckNo"),
      txtTaxID(*this, "txtTaxID"),
      optOmitFinChg(*this, "optOmitFinChg"),
      Data(*this, "Data"),
      lblSch(*this, "lblSch"),
      lblSearch(*this, "lblSearch", "Search First"),
      txtSearch(*this, "txtSearch", 0, ""),
      grid(*this, "grid"),
      fraAmount(*this, "fraAmount", ""),
      chkSelectAmount(*this, "chkSelectAmount", ""),
      txtAmount(*this, "txtAmount"),
      fraDate(*this, "fraDate", ""),
      chkSelectDate(*this, "chkSelectDate", ""),
      txtDate(*this, "txtDate", kDateMask),
      StatusBar1(*this, "StatusBar1") {
  Shortcuts(kCustQueriesShortcuts);
  DesignNames();
  DesignMisc();
  DesignLists();
  DesignAmounts();
  DesignDates();
  ArrangeTabOrder();
  AttachHandlers();
}

void frmCustQueries::DesignNames() {
  cboSQL.Each([](platform::ComboBox& combo, int) { OfferComparisons(combo); });
  for (int i = 0; i < kTexts; ++i) {
    const Text& design = kText[i];
    platform::Frame& frame = fraSQL[design.frame];
    frame.Caption(design.caption);
    frame.PutOnTab(SSTab1, Names, 0);
    chkSelectNameAdd[i].Tag(design.tag);
    txtNameAdd[i].MaxLength(design.length);
    txtNameAdd[i].Mask(design.mask);
    for (Control* control : std::initializer_list<Control*>{&chkSelectNameAdd[i], &cboSQL[i], &txtNameAdd[i]}) control->Container(frame);
    Close({&txtNameAdd[i]});
  }
  txtNameAdd[kPhoneNumber].Mask(kPhoneNumberMask);
  txtNameAdd[kPhoneNumber].Container(fraSQL[kText[kPhone].frame]);
  Close({&txtNameAdd[kPhoneNumber]});
}

platform::Frame& frmCustQueries::MiscFrame(int Index) {
  switch (Index) {
    case Status:
      return fraSQL[8];
    case InvoiceNo:
      return fraSQL[1];
    case CreditCard:
      return fraSQL[10];
    case KeyWords:
      return fraSQL[7];
    case CustomerTypes:
      return fraSQL[9];
    case Billing:
      return fraBillingStatus;
    case CheckNo:
      return Frame2;
    case TaxID:
      return Frame1;
    default:
      return Frame3;
  }
}

void frmCustQueries::DesignMisc() {
  Entitle(optStatus, {"Active", "Inactive", "Prospect"});
  Entitle(optInvoiceNo, {"Standard", "Alternate"});
  Entitle(optBillingStatus, {"Billable Customers", "Non-Billable Customers"});
  Entitle(optOmitFinChg, {"Calculate", "Omit Charges"});
  optBillingStatus[1].ToolTipText("Non-Billable Work Location Customers");
  for (int j = 0; j < kMiscs; ++j) {
    platform::Frame& frame = MiscFrame(j);
    frame.Caption(kMisc[j].caption);
    frame.PutOnTab(SSTab1, Misc, 0);
    chkSelectMisc[j].Tag(kMisc[j].tag);
    chkSelectMisc[j].Container(frame);
    for (Control* control : SwitchedByMisc(j)) {
      control->Container(frame);
      control->Enabled(false);
    }
  }
}

void frmCustQueries::DesignLists() {
  for (int i = 0; i < kLists; ++i) {
    const ListDesign& design = kList[i];
    platform::Frame& frame = MiscFrame(design.criterion);
    lblSch[i].Caption(design.prompt);
    lblSch[i].Container(frame);
    lblSearch[i].Container(frame);
    txtSearch[i].ToolTipText("Press enter key to search");
    Data[i].RecordSource(design.table);
    grid[i].BindTo(Data[i]);
    platform::GridColumn column;
    column.caption = design.caption;
    column.dataField = design.field;
    grid[i].DefineColumns({column});
    grid[i].MarksRows(true);
    grid[i].MarksByClick(true);
    grid[i].SearchBox(txtSearch[i]);
  }
}

void frmCustQueries::DesignAmounts() {
  DesignRanges(kAmount, Amounts, "Amount", fraAmount, chkSelectAmount, txtAmount, SSTab1);
  txtAmount.Each([](platform::CurrencyEdit& box, int) { box.Value(platform::Currency{}); });
}

void frmCustQueries::DesignDates() { DesignRanges(kDate, Dates, "Date", fraDate, chkSelectDate, txtDate, SSTab1); }

/// Criterion by criterion: its check box, then what the check box opens.
void frmCustQueries::ArrangeTabOrder() {
  std::vector<Control*> order;
  for (int i = 0; i < kTexts; ++i) {
    order.insert(order.end(), {&chkSelectNameAdd[i], &cboSQL[i], &txtNameAdd[i]});
    if (i == kPhone) order.push_back(&txtNameAdd[kPhoneNumber]);
  }
  // As the frames stand: down the first column, then the second, then the lists.
  for (const int j : {Status, Billing, FinanceCharge, InvoiceNo, CreditCard, CheckNo, TaxID, KeyWords, CustomerTypes}) {
    order.push_back(&chkSelectMisc[j]);
    const std::vector<Control*> switched = SwitchedByMisc(j);
    order.insert(order.end(), switched.begin(), switched.end());
  }
  for (int i = 0; i < kAmounts; ++i) order.insert(order.end(), {&chkSelectAmount[i], &txtAmount[i]});
  for (int i = 0; i < kDates; ++i) order.insert(order.end(), {&chkSelectDate[i], &txtDate[i]});
  TabOrder(order);
}

void frmCustQueries::AttachHandlers() {
  Toolbar1.ButtonClick = [this](const std::string& Key) { Toolbar1_ButtonClick(Key); };
  chkSelectAll.Click = [this] { chkSelectAll_Click(); };

  const auto offer = [this] { OfferRun(); };
  chkSelectNameAdd.Each([this](platform::CheckBox& box, int i) { box.Click = [this, i] { chkSelectNameAdd_Click(i); }; });
  chkSelectMisc.Each([this](platform::CheckBox& box, int j) { box.Click = [this, j] { chkSelectMisc_Click(j); }; });
  chkSelectAmount.Each([this](platform::CheckBox& box, int i) { box.Click = [this, i] { chkSelectAmount_Click(i); }; });
  chkSelectDate.Each([this](platform::CheckBox& box, int i) { box.Click = [this, i] { chkSelectDate_Click(i); }; });

  cboSQL.Each([&](platform::ComboBox& combo, int) { combo.Change = offer; });
  txtNameAdd.Each([&](platform::TextBox& box, int) { box.Change = offer; });
  txtAmount.Each([&](platform::CurrencyEdit& box, int) { box.Change = offer; });
  txtDate.Each([&](platform::DateEdit& box, int) { box.Change = offer; });
  txtInvoiceNo.Change = offer;
  // A check number, a tax number and a card number that are typed, and the billing status, wake no button.
  optStatus.Each([&](platform::OptionButton& option, int) { option.Click = offer; });
  optOmitFinChg.Each([&](platform::OptionButton& option, int) { option.Click = offer; });
  optInvoiceNo.Each([this](platform::OptionButton& option, int i) { option.Click = [this, i] { optInvoiceNo_Click(i); }; });

  for (int i = 0; i < kLists; ++i) {
    grid[i].SelChange = [this](bool&) { OfferRun(); };
    txtSearch[i].Change = [this, i] { txtSearch_Change(i); };
    txtSearch[i].KeyPress = [this, i](int& KeyAscii) { txtSearch_KeyPress(i, KeyAscii); };
  }

  const auto hint = [this](const char* text) { return [this, text] { StatusBar1.Panel(1, text); }; };
  fraAmount.Each([&](platform::Frame& frame, int) {
    frame.MouseMove = hint("To select a single amount enter the same amount in the both the minimum and maximum amount fields");
  });
  fraDate.Each([&](platform::Frame& frame, int) {
    frame.MouseMove = hint("To select a single date enter the same date in the both the minimum and maximum date fields");
  });
}

}  // namespace orcussch
