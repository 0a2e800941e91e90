#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QToolBar>
#include <map>
#include <set>

#include "desktop/binding/binder.h"
#include "desktop/list/list_view.h"
#include "desktop/support/main_screen.h"
#include "support/controls.h"

namespace desktop_test {
namespace {

TEST_F(MainScreen, EveryInputIsNamedByTheLabelThatLeadsToIt) {
  EXPECT_EQ(window->findChild<QWidget*>("txtLastName")->accessibleName(), "Last Name");
  EXPECT_EQ(window->findChild<QWidget*>("txtSearch_0")->accessibleName(), "Customer Last Name");
}

TEST_F(MainScreen, ToolbarKeysTellTheirShortcuts) {
  EXPECT_EQ(window->findChild<QAction*>("tb_Find")->toolTip(), "Find Record (F3)");
  EXPECT_EQ(window->findChild<QAction*>("tb_CancelRec")->toolTip(), "Cancel Saving Record (Esc)");
  EXPECT_EQ(window->findChild<QAction*>("tb_AssignSelected")->toolTip(), "Assign Selected Records (Ctrl++)");
  EXPECT_EQ(window->findChild<QAction*>("tb_TaxSetup")->toolTip(), "Tax Setup");
}

TEST_F(MainScreen, ListsKnowTheirSearchBoxesAndMarks) {
  for (int tab = 0; tab < 7; ++tab) {
    const auto* list = window->findChild<desktop::ListView*>(QString("grid_%1").arg(tab));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->Model()->SearchBox(), &screen->txtSearch[tab]);
    EXPECT_EQ(list->MarksRows(), tab > 4) << tab;
  }
  EXPECT_TRUE(window->findChild<desktop::ListView*>("grdTaxBasis")->MarksRows());
  EXPECT_EQ(window->findChild<desktop::ListView*>("grid_0")->property("fixedColumns").toInt(), 3);
}

TEST_F(MainScreen, AHeadingsMenuOrdersBothWays) {
  constexpr int kCity = 6;
  screen->grid[0].UserSort(kCity, true);
  EXPECT_EQ(screen->fraOrder[0].Tag(), "City");
  EXPECT_TRUE(OptionOf(*screen, "optOrder0", 1).Value());
  EXPECT_EQ(OptionOf(*screen, "optOrder0", 1).Caption(), "Descending City");
  screen->grid[0].UserSort(kCity, false);
  EXPECT_TRUE(OptionOf(*screen, "optOrder0", 0).Value());
  EXPECT_FALSE(OptionOf(*screen, "optOrder0", 1).Value());
  GridOf(*screen, "grdTaxBasis").UserSort(1, true);
  EXPECT_EQ(GridOf(*screen, "grdTaxBasis").Tag(), "Description") << "a list that knows one direction";
}

TEST_F(MainScreen, OfACardNumberTheLastDigitsAloneLeaveTheList) {
  for (int tab = 0; tab < 7; ++tab)
    for (int column = 0; column < screen->grid[tab].ColumnCount(); ++column) {
      const auto& design = screen->grid[tab].Column(column);
      EXPECT_EQ(design.lastFour, design.dataField == "CCNumber") << design.caption;
      EXPECT_EQ(design.percent, design.caption.find('%') != std::string::npos) << design.caption;
    }
}

/// At the smallest screen no text of any page is cut and nothing reaches beyond the window.
TEST_F(MainScreen, NoTextIsClippedOnASmallScreen) {
  ShowAt({1024, 768});
  EXPECT_LE(window->minimumSizeHint().width(), 1024);
  for (const QWidget* page :
       window->findChild<QStackedWidget*>("SSIndexTab1_pages")->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    EXPECT_LE(page->minimumSizeHint().width(), 1000) << page->objectName().toStdString();
  for (const QWidget* bar : {window->findChild<QWidget*>("Toolbar1"), window->findChild<QWidget*>("SSIndexTab1")})
    EXPECT_LE(bar->minimumSizeHint().width(), 1010) << bar->objectName().toStdString();
  EXPECT_LE(window->minimumSizeHint().height(), 700);
  for (int tab = 0; tab < 7; ++tab) {
    for (int page = 0; page < 2; ++page) {
      ShowPage(tab, page);
      for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool counts =
            widget->isVisible() && ((label && !label->text().isEmpty() && label->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored) ||
                                    (button && !button->text().isEmpty() && button->parentWidget()->objectName() != "Toolbar1"));
        if (!counts) continue;
        const bool sign = widget->objectName() == "cmdPlusMinus";  // one character on a small button
        const int needed = sign ? widget->fontMetrics().horizontalAdvance("+") + 12 : widget->sizeHint().width() - 1;
        EXPECT_GE(widget->width(), needed) << tab << "/" << page << " " << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->sizeHint().height() - 3) << tab << "/" << page << " " << widget->objectName().toStdString();
      }
      for (const QGroupBox* group : window->findChildren<QGroupBox*>()) {
        if (!group->isVisible()) continue;
        EXPECT_GE(group->width(), group->fontMetrics().horizontalAdvance(group->title())) << group->objectName().toStdString();
      }
    }
  }
}

const std::vector<QSize> kCardSizes = {{1024, 768}, {1180, 760}, {1600, 1000}};

/// All of the room: where a hidden frame stood, there is comment now.
TEST_F(MainScreen, TheCommentTakesTheRoomOfWhatItHides) {
  for (const QSize& size : kCardSizes) {
    ShowAt(size);
    ShowPage(0, 1);
    std::map<const char*, QRect> room;
    for (const char* name : {"fraStatus", "fraBillingStatus", "fraTaxBasis", "fraTax", "chkAgeMethod", "chkOmitFinChg"})
      room[name] = PlaceOf(name);
    EditOf(*screen, "txtComment").GotFocus.Fire();
    ShowWhatIsHidden();
    for (const auto& [name, place] : room)
      EXPECT_TRUE(PlaceOf("fraComment").adjusted(0, -1, 0, 0).contains(place)) << size.width() << " " << name;
    EXPECT_GE(PlaceOf("txtComment").height(), PlaceOf("fraComment").height() - 40);
    EditOf(*screen, "txtComment").LostFocus.Fire();
    ShowWhatIsHidden();
    for (const auto& [name, place] : room) EXPECT_EQ(PlaceOf(name), place) << size.width() << " " << name;
  }
}

/// What stays in view stays where it is: the pointer is over the box that was clicked.
TEST_F(MainScreen, TheCommentMovesNothingElse) {
  const auto places = [&] {
    std::map<std::string, QRect> now;
    for (const char* name : {"txtLastName", "cboTerms", "txtCreditLimit", "chkHoldCredit", "box_Electronic", "box_Pricing", "fraLaborRate",
                             "cmdMapCode", "save_card_0"})
      now[name] = PlaceOf(name);
    return now;
  };
  for (const QSize& size : kCardSizes) {
    ShowAt(size);
    ShowPage(0, 1);
    const auto before = places();
    const QPoint bottom = PlaceOf("fraComment").bottomLeft() + QPoint(5, -5);
    EditOf(*screen, "txtComment").GotFocus.Fire();
    ShowWhatIsHidden();
    EXPECT_EQ(places(), before);
    EXPECT_TRUE(PlaceOf("fraComment").contains(bottom));
    EditOf(*screen, "txtComment").LostFocus.Fire();
    ShowWhatIsHidden();
    EXPECT_TRUE(window->findChild<QWidget*>("fraTaxBasis")->isVisible());
    EXPECT_EQ(places(), before);
  }
}

/// The longest heading as search prompt and in both options still leaves the window its width.
TEST_F(MainScreen, ALongHeadingDoesNotWidenTheWindow) {
  ShowAt({1024, 768});
  screen->lblSearch[0].Caption("Tax Exemption Expiration Date");
  OptionOf(*screen, "optOrder0", 0).Caption("Ascending Tax Exemption Expiration Date");
  OptionOf(*screen, "optOrder0", 1).Caption("Descending Tax Exemption Expiration Date");
  for (const platform::Control* control : std::initializer_list<const platform::Control*>{
           &screen->lblSearch[0], &OptionOf(*screen, "optOrder0", 0), &OptionOf(*screen, "optOrder0", 1)})
    window->BindingOf(*control)->ShowAll();
  QApplication::processEvents();
  EXPECT_EQ(window->findChild<QLabel*>("lblSearch_0")->text(), "Tax Exemption Expiration Date");
  EXPECT_EQ(window->width(), 1024);
  EXPECT_GE(window->findChild<QWidget*>("txtSearch_0")->width(), 100);
}

}  // namespace
}  // namespace desktop_test
