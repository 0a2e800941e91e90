#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// What a look-up of addresses asks of the street files: names, house number ranges, address points, ZIPs and places.
namespace streets {

/// A position in millionths of a degree: finer than the map's own unit, so that what is computed from it is exact there.
struct Position {
  std::int32_t longitude = 0;
  std::int32_t latitude = 0;
  bool operator==(const Position&) const = default;
};
using Line = std::vector<Position>;

/// A street's name in its normal form: capitals, the tables' abbreviations. "N Saint John's Rd" is N, ST JOHNS, RD.
struct StreetName {
  std::int64_t id = 0;  ///< 0: of no file
  std::string before;   ///< direction in front
  std::string key;      ///< what streets are found by
  std::string type;     ///< "ST", "AVE"; in front or behind
  std::string behind;   ///< direction behind
  std::string shown;    ///< as its source writes it
  bool operator==(const StreetName&) const = default;
};

/// A house number: "243-20" has the prefix "243-", "N6W23001" the prefix "N6W", "12B" and "12 1/2" a suffix.
struct HouseNumber {
  std::string prefix;
  std::int64_t number = 0;
  std::string suffix;
  bool operator==(const HouseNumber&) const = default;
};

enum class Parity { Odd, Even, Both };

/// The numbers along one side of a piece of street, in the direction of its line; they may run downward.
struct HouseRange {
  std::int64_t edge = 0;
  std::int64_t street = 0;
  bool right = false;  ///< the side, seen along the line
  std::string prefix;
  std::int64_t from = 0;
  std::int64_t to = 0;
  Parity parity = Parity::Both;
  std::string zip;  ///< five digits, or "" where it is not known
};

struct AddressPoint {
  std::int64_t street = 0;
  HouseNumber number;
  Position at;
  std::string zip;
};

struct ZipArea {
  std::string zip;
  Position at;
  std::string city;    ///< as written; "" where it is not known
  std::string state;   ///< two letters
  std::string county;  ///< as written
};

struct Place {
  std::string name;   ///< as written
  std::string state;  ///< two letters
  Position at;
  std::vector<std::string> zips;
};

/// The street files in use, as one. Every answer comes in the same order whatever order the files were filled in.
class StreetIndex {
 public:
  virtual ~StreetIndex() = default;

  /// Between the two questions belong together: a file that one of them reads is locked once for all. Every lock is a way to the disk or
  /// the network.
  virtual void Begin() {}
  virtual void End() {}

  /// Streets of that key that have pieces or numbers in one of the ZIPs; no ZIPs: anywhere.
  virtual std::vector<StreetName> Named(const std::string& key, std::span<const std::string> zips) = 0;
  /// All streets with pieces or numbers in one of the ZIPs whose key begins with that letter: for names that are misspelt.
  virtual std::vector<StreetName> Beginning(char letter, std::span<const std::string> zips) = 0;
  /// Streets anywhere whose key sounds like that (Soundex).
  virtual std::vector<StreetName> Sounding(const std::string& code) = 0;

  /// The street's ranges and points in one of the ZIPs; no ZIPs: all.
  virtual std::vector<HouseRange> Ranges(std::int64_t street, std::span<const std::string> zips) = 0;
  virtual std::vector<AddressPoint> Points(std::int64_t street, std::span<const std::string> zips) = 0;
  /// The line of an edge.
  virtual Line Shape(std::int64_t edge) = 0;
  /// The edges that bear the street's name there, also those without numbers.
  virtual std::vector<std::int64_t> Edges(std::int64_t street, std::span<const std::string> zips) = 0;

  virtual std::optional<ZipArea> Zip(const std::string& zip) = 0;
  /// By the PlaceKey of the name (address/place_key.h); no state: everywhere.
  virtual std::vector<Place> Places(const std::string& name, const std::string& state) = 0;
  virtual std::vector<std::string> ZipsOfCounty(const std::string& state, const std::string& county) = 0;
};

/// Questions that belong together, from here to the end of the block.
class QuestionsTogether {
 public:
  explicit QuestionsTogether(StreetIndex& index) : index_(index) { index_.Begin(); }
  ~QuestionsTogether() { index_.End(); }
  QuestionsTogether(const QuestionsTogether&) = delete;
  QuestionsTogether& operator=(const QuestionsTogether&) = delete;

 private:
  StreetIndex& index_;
};

}  // namespace streets
