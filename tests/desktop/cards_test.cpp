#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <map>
#include <set>

#include "desktop/controls/text_edit.h"
#include "desktop/support/main_screen.h"
#include "platform/keys/shortcuts.h"
#include "support/controls.h"

// The seven cards of the main screen: captions, letters, order of the keyboard, what is required.
namespace desktop_test {
namespace {

constexpr int kTabs = 7;

class Cards : public MainScreen {
 protected:
  Cards() { ShowAt({1180, 760}); }

  QLabel* CaptionOf(const char* edit) { return window->findChild<QLabel*>(QString("caption_") + edit); }
  QWidget* Shown(const char* name) { return window->findChild<QWidget*>(name); }
  desktop::TextEdit* Edit(const char* name) { return window->findChild<desktop::TextEdit*>(name); }
  QRect PlaceOf(const QWidget& widget) { return {widget.mapTo(window, QPoint()), widget.size()}; }
};

/// The letter after the "&" of a caption; nothing for a doubled or missing one.
QChar LetterOf(const QString& text) {
  for (qsizetype at = 0; at + 1 < text.size(); ++at) {
    if (text[at] != QChar('&')) continue;
    if (text[at + 1] != QChar('&')) return text[at + 1].toUpper();
    ++at;
  }
  return {};
}

TEST_F(Cards, CaptionsReadAsTheScreensNameThem) {
  const std::map<const char*, const char*> captions = {
      {"txtLastName", "Last Name:"},
      {"txtFirstName", "First Name:"},
      {"txtTitle", "Title:"},
      {"txtAddr1", "Address 1:"},
      {"txtAddr2", "Address 2:"},
      {"txtCity", "City:"},
      {"txtState", "State:"},
      {"txtZip", "Zip Code:"},
      {"txtCountry", "Country:"},
      {"cboTerms", "Terms"},
      {"txtCreditLimit", "Credit Limit"},
      {"txtEMail", "E-Mail"},
      {"txtWebSite", "Web Site"},
      {"cboSalesRate", "Material Sales: "},
      {"txtTaxID", "ID: "},
      {"txtExemptExpireDate", "Expiration Date:"},
      {"txtPhoneArea", "Area Code:"},
      {"txtPhone", "Number:"},
      {"txtPhoneExt", "Extention:"},
      {"cboPhoneTypes", "Type:"},
      {"txtPhoneComment", "Comment:"},
      {"cboActiveMonth_0", "Address Active From:"},
      {"cboActiveMonth_1", "To:"},
      {"txtCCHolder", "Card Holder:"},
      {"txtCCMonth", "Expiration Date - Month:"},
      {"txtCCYear", "Year:"},
      {"txtCCLimit", "Limit:"},
      {"cboDepts", "Department:"},
      {"txtRateAdjustment", "Adjustment %:"},
      {"txtDeptRate", "Department Labor Rate:"},
      {"txtDeptAdjust", "Customer Adjustment:"},
      {"txtDeptAdjustRate", "Customer Labor Rate:"},
      {"txtAdjustAllDept", "Adjustment %:"},
      {"txtCustomerType", "Description:"},
      {"txtKeyWord", "Key Word:"},
  };
  for (const auto& [edit, caption] : captions) {
    ASSERT_NE(CaptionOf(edit), nullptr) << edit;
    EXPECT_EQ(CaptionOf(edit)->text().remove('&'), caption);
    EXPECT_EQ(CaptionOf(edit)->buddy(), Shown(edit)) << edit;
  }
}

TEST_F(Cards, LettersAreDifferentOnEachPageAndFromTheMenus) {
  std::set<QChar> menus;
  for (const QAction* menu : window->menuBar()->actions())
    if (const QChar letter = LetterOf(menu->text()); !letter.isNull()) menus.insert(letter);
  EXPECT_EQ(menus.size(), 5u);
  int letters = 0;
  for (int tab = 0; tab < kTabs; ++tab) {
    for (int page = 0; page < 2; ++page) {
      ShowPage(tab, page);
      std::set<QChar> used = menus;
      for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (!widget->isVisible() || (!button && !(label && label->buddy()))) continue;
        const QChar letter = LetterOf(label ? label->text() : button->text());
        if (letter.isNull()) continue;
        ++letters;
        EXPECT_TRUE(used.insert(letter).second) << tab << "/" << page << " " << widget->objectName().toStdString();
      }
    }
  }
  EXPECT_GT(letters, 50);
}

TEST_F(Cards, ALetterIsTheCaptionsOwn) {
  const auto shown = [this](const platform::Control& control) {
    window->BindingOf(control)->ShowAll();
    return qobject_cast<QAbstractButton*>(window->BindingOf(control)->Widget())->text();
  };
  EXPECT_EQ(shown(CheckOf(*screen, "chkHoldCredit")).toStdString(), "&Hold Credit");
  ButtonOf(*screen, "cmdAddAllDepts").Caption("Apply Adjustment %");
  EXPECT_EQ(shown(ButtonOf(*screen, "cmdAddAllDepts")).toStdString(), "&Apply Adjustment %");
  CheckOf(*screen, "chkHoldCredit").Caption("in the middle");
  EXPECT_EQ(shown(CheckOf(*screen, "chkHoldCredit")).toStdString(), "in t&he middle");
  CheckOf(*screen, "chkHoldCredit").Caption("none & none");
  EXPECT_EQ(shown(CheckOf(*screen, "chkHoldCredit")).toStdString(), "none && none");
}

TEST_F(Cards, WhatIsRequiredIsBoldAndSaidToTheBlind) {
  const std::set<QString> required = {"txtLastName", "cboTerms",  "cboPhoneTypes", "cboCreditCards",  "txtCCNumber",
                                      "txtCCMonth",  "txtCCYear", "cboDepts",      "txtCustomerType", "txtKeyWord"};
  int labels = 0;
  for (int tab = 0; tab < kTabs; ++tab) {
    ShowPage(tab, 1);
    for (QLabel* label : window->findChildren<QLabel*>()) {
      if (!label->isVisible() || !label->buddy()) continue;
      ++labels;
      const bool must = required.count(label->buddy()->objectName()) > 0;
      EXPECT_EQ(label->font().weight() >= QFont::DemiBold, must) << label->objectName().toStdString();
      EXPECT_EQ(label->buddy()->accessibleDescription() == "required", must) << label->objectName().toStdString();
    }
  }
  EXPECT_GT(labels, 40);
}

/// From edit to edit the keyboard goes down a column, and from the end of one column to the next.
TEST_F(Cards, TheTabKeyFollowsTheEye) {
  for (int tab = 0; tab < kTabs; ++tab) {
    ShowPage(tab, 1);
    const QWidget* before = nullptr;
    for (const platform::Control* control : screen->Controls()) {
      const desktop::Binding* binding = control->TakesFocus() ? window->BindingOf(*control) : nullptr;
      const QWidget* now = binding ? binding->Widget() : nullptr;
      if (!now || !now->isVisible() || now->objectName().startsWith("SSIndexTab")) continue;
      // The single rate stands beside its option, between the others.
      const bool besideItsOption = now->objectName() == "txtLaborRate";
      if (before && !besideItsOption) {
        const QRect was = PlaceOf(*before);
        const QRect is = PlaceOf(*now);
        const bool beside = is.left() > was.right() && is.top() < was.bottom() && is.bottom() > was.top();
        const bool below = is.top() >= was.bottom();
        const bool column = is.left() > was.right() && is.top() < was.top();
        EXPECT_TRUE(beside || below || column) << tab << ": " << before->objectName().toStdString() << " to "
                                               << now->objectName().toStdString();
      }
      before = now;
    }
    EXPECT_NE(before, nullptr);
  }
}

TEST_F(Cards, AmountsAndPercentagesStandOnTheRight) {
  for (const char* figure : {"txtCreditLimit", "txtSalesRatePer", "txtLaborRate", "txtCCLimit", "txtRateAdjustment", "txtAdjustAllDept",
                             "txtDeptRate", "txtDeptAdjust", "txtDeptAdjustRate"})
    EXPECT_TRUE(Edit(figure)->alignment().testFlag(Qt::AlignRight)) << figure;
  for (const char* text : {"txtLastName", "txtCCNumber", "txtPhone", "txtZip"})
    EXPECT_FALSE(Edit(text)->alignment().testFlag(Qt::AlignRight)) << text;
}

TEST_F(Cards, FiguresThatOnlyShowCannotBeTypedIn) {
  for (const char* figure : {"txtDeptNo", "txtDeptRate", "txtDeptAdjust", "txtDeptAdjustRate"})
    EXPECT_TRUE(Edit(figure)->isReadOnly()) << figure;
}

TEST_F(Cards, AWholePhoneNumberFillsBothEdits) {
  for (const char* edit : {"txtPhoneArea", "txtPhone"}) {
    for (const char* number : {"(612) 555-1234", "612.555.1234", "+1 612 555 1234", "6125551234"}) {
      EditOf(*screen, "txtPhoneArea").Text("000");
      EditOf(*screen, "txtPhone").Text("");
      Edit(edit)->PutIn(number);
      EXPECT_EQ(EditOf(*screen, "txtPhoneArea").Text(), "612") << edit << " " << number;
      EXPECT_EQ(EditOf(*screen, "txtPhone").Text(), "5551234") << edit << " " << number;
      EXPECT_EQ(Edit("txtPhoneArea")->text(), "(612)");
      EXPECT_EQ(Edit("txtPhone")->text(), "555-1234");
    }
  }
}

TEST_F(Cards, APartOfAPhoneNumberStaysInItsEdit) {
  EditOf(*screen, "txtPhoneArea").Text("218");
  EditOf(*screen, "txtPhone").Text("");
  Edit("txtPhone")->PutIn("555-1234");
  EXPECT_EQ(EditOf(*screen, "txtPhoneArea").Text(), "218");
  EXPECT_EQ(EditOf(*screen, "txtPhone").Text(), "5551234");
  EditOf(*screen, "txtPhoneArea").Text("");
  Edit("txtPhoneArea")->PutIn("(61");
  EXPECT_EQ(EditOf(*screen, "txtPhoneArea").Text(), "61");
  EXPECT_EQ(EditOf(*screen, "txtPhone").Text(), "5551234");
}

TEST_F(Cards, TheHintBelowACardNamesTheKeysOfTheMenu) {
  EXPECT_EQ(platform::ShortcutKeyOf(screen->miSaveRec), "Ctrl+S");
  EXPECT_EQ(platform::ShortcutKeyOf(screen->miCancelRec), "Escape");
  for (int tab = 0; tab < kTabs; ++tab) {
    const auto* hint = window->findChild<QLabel*>(QString("hint_card_%1").arg(tab));
    ASSERT_NE(hint, nullptr) << tab;
    EXPECT_TRUE(hint->text().endsWith("Ctrl+S saves, Esc cancels.")) << tab;
  }
}

}  // namespace
}  // namespace desktop_test
