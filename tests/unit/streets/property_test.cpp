#include <gtest/gtest.h>

#include <charconv>
#include <random>

#include "made_index.h"
#include "streets/geocoder/geocoder.h"

namespace {

/// Whether a line begins with a longitude, one blank, a latitude and one blank, and goes on without a digit's mistake.
bool IsWellFormed(const std::string& line) {
  const char* const end = line.data() + line.size();
  std::int32_t longitude = 0;
  const auto first = std::from_chars(line.data(), end, longitude);
  if (first.ec != std::errc{} || first.ptr == end || *first.ptr != ' ') return false;
  std::int32_t latitude = 0;
  const auto second = std::from_chars(first.ptr + 1, end, latitude);
  if (second.ec != std::errc{} || second.ptr == end || *second.ptr != ' ' || second.ptr + 1 == end || *(second.ptr + 1) == ' ')
    return false;
  return std::abs(longitude) <= 18'000'000 && std::abs(latitude) <= 9'000'000;
}

void Fill(MadeIndex& index) {
  index.AddZip("59645", "White Sulphur Springs", "MT", "Meagher", {-110'900'000, 46'500'000});
  index.AddZip("59053", "Martinsdale", "MT", "Meagher", {-110'300'000, 46'400'000});
  int at = 0;
  for (const char* name :
       {"Main St", "N 3rd Ave", "3rd Ave N", "US Hwy 89", "Avenue C", "St Johns Rd", "Park Ave S", "16 Mile Rd", "Grasshopper"}) {
    for (const char* zip : {"59645", "59053"}) {
      const streets::Position from{-110'900'000 + ++at * 1'000, 46'500'000};
      index.AddEdge({name}, {from, {from.longitude, from.latitude + 5'000}}, MadeIndex::Numbers{1, 199, streets::Parity::Odd, zip},
                    MadeIndex::Numbers{2, 198, streets::Parity::Even, zip});
    }
  }
}

std::string MadeText(std::mt19937& chance) {
  static const std::vector<std::string> kPieces = {"1",           "100 ",         "12B ",   "243-20 ",   "1/2 ",
                                                   "N6W23001 ",   "Main ",        "St ",    "Ave ",      "N ",
                                                   "NE ",         "3rd ",         "Third ", "US ",       "Hwy ",
                                                   "89 ",         "Avenue ",      "C ",     "St Johns ", "Apt ",
                                                   "#",           "5 ",           ",",      ",,",        "MT",
                                                   "Montana",     "59645",        "5964",   "-",         " ",
                                                   "PO ",         "Box ",         "RR ",    "New York",  "White Sulphur Springs",
                                                   "Martinsdale", "\xE2\x80\x8F", "\x01",   "\xFF",      "\xC3\xB1"};
  std::string text;
  for (auto count = chance() % 14; count > 0; --count) {
    text += chance() % 8 == 0 ? std::string(1, static_cast<char>(chance() % 256)) : kPieces[chance() % kPieces.size()];
  }
  return text;
}

TEST(GeocoderProperty, AnyTextHasOneAnswerWithWellFormedLines) {
  MadeIndex index;
  Fill(index);
  streets::Geocoder geocoder(index);
  std::mt19937 chance(20);
  int found = 0;
  for (int i = 0; i < 4'000; ++i) {
    const std::string text = MadeText(chance);
    const auto answer = geocoder.Find(text);
    streets::Geocoder anew(index);
    const auto again = anew.Find(text);
    ASSERT_EQ(answer.candidates, again.candidates) << text;
    ASSERT_EQ(answer.result, again.result) << text;
    ASSERT_LE(answer.candidates.size(), streets::Geocoder::kMostCandidates) << text;
    ASSERT_TRUE(answer.positionFound || answer.candidates.empty()) << text;
    ASSERT_TRUE(answer.result == 0 || (answer.result == streets::Geocoder::kMatch && answer.positionFound)) << text;
    for (const std::string& line : answer.candidates) ASSERT_TRUE(IsWellFormed(line)) << text << " gives " << line;
    if (!answer.candidates.empty()) {
      ++found;
      const std::string first = std::to_string(answer.longitude) + " " + std::to_string(answer.latitude) + " ";
      ASSERT_EQ(answer.candidates.front().compare(0, first.size(), first), 0) << text;
    }
  }
  EXPECT_GT(found, 200) << "the texts made say too little";
}

}  // namespace
