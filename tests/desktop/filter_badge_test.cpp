#include <QLabel>

#include "desktop/support/main_screen.h"

// The badge on the main screen's window that says which query is in force.
namespace desktop_test {
namespace {

class Badge : public MainScreen {
 protected:
  ~Badge() override { orcussch::gQuerySQL = orcussch::gQueryText = ""; }

  /// As the query screen does it: the statement and its words, then the list's caption.
  void Query(const char* statement, const std::string& text) {
    orcussch::gQuerySQL = statement;
    orcussch::gQueryText = text;
    window->Changed(&screen->grid[0], platform::Aspect::Text);
    QApplication::processEvents();
  }
  QLabel& Label() const { return *window->findChild<QLabel*>("filterBadge"); }
  QRect Place(const QWidget& widget) const { return {widget.mapTo(window, QPoint()), widget.size()}; }

  static constexpr const char* kStatement = "Select DISTINCTROW Customers.* FROM Customers WHERE (State = 'MN')";
};

TEST_F(Badge, IsThereAsLongAsAQueryIsInForce) {
  ShowAt({1180, 760});
  EXPECT_FALSE(Label().isVisible());
  Query(kStatement, "state is MN");
  EXPECT_TRUE(Label().isVisible());
  EXPECT_EQ(Label().text(), "Query: state is MN");
  EXPECT_TRUE(Label().toolTip().contains("Query: state is MN"));
  EXPECT_EQ(Label().accessibleName(), "Query: state is MN");
  Query(kStatement, "balance at least 100");
  EXPECT_EQ(Label().text(), "Query: balance at least 100");
  Query(kStatement, "");
  EXPECT_EQ(Label().text(), "Query") << "nobody has put it into words";
  Query("", "left over");
  EXPECT_FALSE(Label().isVisible());
}

TEST_F(Badge, IsThereWhenTheScreenOpensUnderAQuery) {
  orcussch::gQuerySQL = kStatement;
  orcussch::gQueryText = "city begins with Dul";
  front->Unloaded(*screen);
  front->Loaded(*screen);
  window = front->WindowOf(*screen);
  ShowAt({1180, 760});
  EXPECT_TRUE(Label().isVisible());
  EXPECT_EQ(Label().text(), "Query: city begins with Dul");
}

TEST_F(Badge, AnyActOfTheScreenShowsAQueryThatItWasNotToldOf) {
  ShowAt({1180, 760});
  orcussch::gQuerySQL = kStatement;
  orcussch::gQueryText = "state is MN";
  window->Changed(&screen->Toolbar1, platform::Aspect::Enabled);
  EXPECT_EQ(Label().text(), "Query: state is MN");
}

TEST_F(Badge, GivesWayToTheName) {
  ShowAt({1024, 768});
  const QString text = "Query: " + QString("last name begins with An and the balance is at least 1,000.00, ").repeated(4);
  Query(kStatement, text.mid(7).toStdString());
  const auto& name = *window->findChild<QLabel*>("lblCustomer");
  const auto& strip = *window->findChild<QWidget*>("headerStrip");
  const auto check = [&] {
    QApplication::processEvents();
    EXPECT_GE(name.width(), name.sizeHint().width()) << name.text().toStdString();
    EXPECT_TRUE(Place(strip).contains(Place(Label())));
    EXPECT_GE(Label().width(), Label().sizeHint().width()) << "nothing of what it shows is cut";
    EXPECT_LT(Place(name).right(), Place(Label()).left());
    EXPECT_TRUE(Label().text().startsWith("Query")) << Label().text().toStdString();
    EXPECT_TRUE(Label().text().endsWith(QChar(0x2026)));
    EXPECT_TRUE(Label().toolTip().contains("1,000.00, last name begins"));
  };
  const auto call = [&](platform::Label& label, const char* caption) {
    label.Caption(caption);
    window->Changed(&label, platform::Aspect::Text);
  };
  call(screen->lblCustomer, "Ms Ann Smith");
  call(screen->lblAcctNum, "1234567");
  check();
  const int wide = Label().width();
  call(screen->lblCustomer, "Mrs. Bartholomea-Anna Featherstonehaugh-Cholmondeley");
  check();
  EXPECT_LT(Label().width(), wide);
  window->resize(1180, 760);
  check();
  const int wider = Label().width();
  window->resize(1024, 768);
  check();
  EXPECT_LT(Label().width(), wider);
  EXPECT_LE(window->minimumSizeHint().width(), 1024) << "the window can be as small as before";
}

TEST_F(Badge, ShowsWhatTheUserTypedAsItStands) {
  ShowAt({1180, 760});
  Query(kStatement, "last name begins with <b>A & B</b>");
  EXPECT_EQ(Label().text(), "Query: last name begins with <b>A & B</b>");
  EXPECT_EQ(Label().textFormat(), Qt::PlainText);
  EXPECT_TRUE(Label().toolTip().contains("&lt;b&gt;A &amp; B"));
}

}  // namespace
}  // namespace desktop_test
