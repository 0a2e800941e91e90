#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "streets/file/statement.h"
#include "streets/index/street_index.h"

namespace streets {

/// The look-ups in one file, by prepared statements. Each adds what it finds to the answer. `tag` is put on the numbers of streets and
/// edges that come out; those that go in are the file's own.
class IndexedFile {
 public:
  using Zips = std::span<const std::int32_t>;

  IndexedFile(Database& file, std::int64_t tag);
  ~IndexedFile();
  IndexedFile(const IndexedFile&) = delete;
  IndexedFile& operator=(const IndexedFile&) = delete;

  /// One lock for all questions up to End; taken by the first of them.
  void Begin();
  void End();

  void Named(const std::string& key, Zips zips, std::vector<StreetName>& answer);
  /// Keys from `first` up to before `end`.
  void Between(const std::string& first, const std::string& end, Zips zips, std::vector<StreetName>& answer);
  void Sounding(const std::string& code, std::vector<StreetName>& answer);
  void Ranges(std::int64_t street, Zips zips, std::vector<HouseRange>& answer);
  void Points(std::int64_t street, Zips zips, std::vector<AddressPoint>& answer);
  void Edges(std::int64_t street, Zips zips, std::vector<std::int64_t>& answer);
  void Shape(std::int64_t edge, Line& answer);
  void Zip(std::int32_t zip, std::optional<ZipArea>& answer);
  void Places(const std::string& name, const std::string& state, std::vector<Place>& answer);
  void ZipsOfCounty(const std::string& state, const std::string& county, std::vector<std::string>& answer);

 private:
  StreetName NameOf(const Statement& row) const;
  HouseRange RangeOf(const Statement& row, std::int64_t street) const;
  AddressPoint PointOf(const Statement& row, std::int64_t street) const;

  std::int64_t tag_;
  bool hasStreets_;
  bool hasZips_;
  bool hasPoints_;
  bool together_ = false;
  Statement begin_;
  Statement end_;
  Statement namedInZip_;
  Statement named_;
  Statement betweenInZip_;
  Statement between_;
  Statement sounding_;
  Statement rangesInZip_;
  Statement ranges_;
  Statement pointsInZip_;
  Statement points_;
  Statement edgesInZip_;
  Statement edges_;
  Statement shape_;
  Statement zip_;
  Statement places_;
  Statement placeZips_;
  Statement county_;
};

}  // namespace streets
