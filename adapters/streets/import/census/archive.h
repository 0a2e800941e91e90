#pragma once

#include <memory>
#include <string>
#include <vector>

namespace streets {

std::string SmallLetters(std::string text);

/// A ZIP archive that holds shapefiles. Failures raise FileError with its name.
class Archive {
 public:
  explicit Archive(const std::string& path);
  ~Archive();
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  /// Names inside, without ".shp", in their order. One at least.
  const std::vector<std::string>& ShapeFiles() const noexcept { return stems_; }
  /// Writes an entry into a file, checked by its sum; false when there is none of that name, whose letters may be small or capital.
  bool Unpack(const std::string& entry, const std::string& file) const;

 private:
  struct Handle;
  std::string path_;
  std::unique_ptr<Handle> handle_;
  std::vector<std::string> stems_;
};

/// A shapefile of an archive in a folder of its own, which goes with this object.
class UnpackedShapeFile {
 public:
  UnpackedShapeFile(const Archive& archive, const std::string& stem);
  ~UnpackedShapeFile();
  UnpackedShapeFile(const UnpackedShapeFile&) = delete;
  UnpackedShapeFile& operator=(const UnpackedShapeFile&) = delete;

  std::string Path() const { return folder_ + "/county.shp"; }

 private:
  std::string folder_;
};

}  // namespace streets
