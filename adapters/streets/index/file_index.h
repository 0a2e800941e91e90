#pragma once

#include <memory>
#include <vector>

#include "streets/file/street_files.h"
#include "streets/index/street_index.h"

namespace streets {

class IndexedFile;

/// The look-ups of addresses in files. A file that fails while it is read is asked no more, and the files' complaint tells it.
/// Numbers of streets and edges tell the file too, so that they hold for this object alone.
class FileIndex final : public StreetIndex {
 public:
  /// The files must outlive this.
  explicit FileIndex(StreetFiles& files);
  ~FileIndex() override;

  void Begin() override;
  void End() override;
  std::vector<StreetName> Named(const std::string& key, std::span<const std::string> zips) override;
  std::vector<StreetName> Beginning(char letter, std::span<const std::string> zips) override;
  std::vector<StreetName> Sounding(const std::string& code) override;
  std::vector<HouseRange> Ranges(std::int64_t street, std::span<const std::string> zips) override;
  std::vector<AddressPoint> Points(std::int64_t street, std::span<const std::string> zips) override;
  Line Shape(std::int64_t edge) override;
  std::vector<std::int64_t> Edges(std::int64_t street, std::span<const std::string> zips) override;
  std::optional<ZipArea> Zip(const std::string& zip) override;
  std::vector<Place> Places(const std::string& name, const std::string& state) override;
  std::vector<std::string> ZipsOfCounty(const std::string& state, const std::string& county) override;

 private:
  /// Asks every file that is still well.
  template <typename Ask>
  void Each(const Ask& ask);
  /// Asks the file that the number of a street or an edge tells.
  template <typename Ask>
  void OfNumber(std::int64_t number, const Ask& ask);
  template <typename Ask>
  void Try(std::unique_ptr<IndexedFile>& file, const Ask& ask);

  StreetFiles& files_;
  std::vector<std::unique_ptr<IndexedFile>> indexed_;  ///< nullptr: has failed
};

}  // namespace streets
