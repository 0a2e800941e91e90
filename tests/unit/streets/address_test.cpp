#include "streets/address/address.h"

#include <gtest/gtest.h>

#include "streets/address/words.h"

namespace {

using streets::ParseAddress;

/// street;city;state;zip
std::string Parts(const std::string& text) {
  const auto address = ParseAddress(text);
  return (address.noStreet ? "(none)" : streets::Join(address.street)) + ";" + streets::Join(address.city) + ";" + address.state + ";" +
         address.zip.zip;
}

TEST(Address, PartsFromTheRight) {
  EXPECT_EQ(Parts("100 Main St,White Sulphur Springs,MT,59645"), "100 MAIN ST;WHITE SULPHUR SPRINGS;MT;59645");
  EXPECT_EQ(Parts("100 Main St,White Sulphur Springs,Montana,59645-1234"), "100 MAIN ST;WHITE SULPHUR SPRINGS;MT;59645");
  EXPECT_EQ(Parts("100 Main St,Springfield,59645"), "100 MAIN ST;SPRINGFIELD;;59645");
  EXPECT_EQ(Parts("100 Main St,Springfield,IL"), "100 MAIN ST;SPRINGFIELD;IL;");
  EXPECT_EQ(Parts("100 Main St,IL,62701"), "100 MAIN ST;;IL;62701");
  EXPECT_EQ(Parts("100 Main St,62701"), "100 MAIN ST;;;62701");
  EXPECT_EQ(Parts("100 Main St"), "100 MAIN ST;;;");
  EXPECT_EQ(Parts("59645"), ";;;59645");
  EXPECT_EQ(Parts("100 Main St,Boston,MA,2134"), "100 MAIN ST;BOSTON;MA;02134");
  EXPECT_EQ(Parts("100 Main St,Boston,MA,02134,USA"), "100 MAIN ST;BOSTON;MA;02134");
  EXPECT_EQ(Parts(""), ";;;");
  EXPECT_EQ(Parts(" , ,, "), ";;;");
}

TEST(Address, AStreetLineMayHoldCommas) {
  EXPECT_EQ(Parts("100 Main St, Apt 5,Springfield,IL,62701"), "100 MAIN ST;SPRINGFIELD;IL;62701");
  EXPECT_EQ(Parts("Suite 5, 100 Main St,Springfield,IL"), "100 MAIN ST;SPRINGFIELD;IL;");
  EXPECT_EQ(Parts("c/o Smith, 100 Main St,Springfield,IL"), "100 MAIN ST;SPRINGFIELD;IL;");
  EXPECT_EQ(Parts("100 Main St, Apt 5,62701"), "100 MAIN ST;;;62701");
}

TEST(Address, OnePartCanBeTownOrStreet) {
  const auto town = ParseAddress("Springfield,IL");
  EXPECT_TRUE(town.streetMayBeCity);
  EXPECT_EQ(streets::Join(town.street), "SPRINGFIELD");
  EXPECT_TRUE(ParseAddress("White Sulphur Springs, MT").streetMayBeCity);
  EXPECT_FALSE(ParseAddress("100 Main St,Springfield,IL").streetMayBeCity);
  EXPECT_EQ(Parts("Springfield IL 62701"), "SPRINGFIELD;;IL;62701");
  EXPECT_EQ(Parts("Springfield IL"), "SPRINGFIELD;;IL;");
}

TEST(Address, AStatesNameCanBeTheTowns) {
  EXPECT_EQ(Parts("100 Main St,New York"), "100 MAIN ST;NEW YORK;NY;");
  EXPECT_EQ(Parts("100 Main St,New York,NY"), "100 MAIN ST;NEW YORK;NY;");
  EXPECT_EQ(Parts("100 Main St,Washington,DC,20001"), "100 MAIN ST;WASHINGTON;DC;20001");
}

TEST(Address, WithoutCommas) {
  EXPECT_EQ(Parts("100 Main St Springfield IL 62701"), "100 MAIN ST SPRINGFIELD;;IL;62701");
  EXPECT_EQ(Parts("100 Pine Ct"), "100 PINE CT;;;");
  EXPECT_EQ(Parts("Pine Ct"), "PINE CT;;;");
  EXPECT_EQ(Parts("100 Main St, Hartford CT 06103"), "100 MAIN ST;HARTFORD;CT;06103");
  EXPECT_EQ(Parts("500 Highway 12345,MT"), "500 HIGHWAY 12345;;MT;");
}

TEST(Address, LinesWithoutAStreet) {
  EXPECT_EQ(Parts("PO Box 12,Springfield,IL,62701"), "(none);SPRINGFIELD;IL;62701");
  EXPECT_TRUE(ParseAddress("PO Box 12,62701").HasStreetLine());
  EXPECT_FALSE(ParseAddress("Springfield,IL,62701").noStreet);
  EXPECT_EQ(Parts("100 Main St PO Box 5,Springfield,IL"), "100 MAIN ST;SPRINGFIELD;IL;");
}

TEST(Address, AnyTextIsTaken) {
  EXPECT_EQ(Parts(std::string("100 Main\x01St\0,Springfield", 24)), "100 MAIN ST;SPRINGFIELD;;");
  EXPECT_EQ(Parts("100 \xE2\x80\x8FMain\xE2\x80\xAE St,IL"), "100 MAIN ST;;IL;");
  for (const char* piece : {"a", "a ", ",", "1", "1 ", "N ", "St ", "# ", "-", "\xFF", "PO Box ", "Apt 5 "}) {
    std::string text;
    while (text.size() < 10'000) text += piece;
    ParseAddress(text);
    ParseAddress("100 Main St," + text + ",MT,59645");
  }
}

}  // namespace
