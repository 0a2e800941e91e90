#include "streets/ground/file_ground.h"

#include <algorithm>
#include <tuple>

#include "streets/file/file_error.h"
#include "streets/ground/drawn_file.h"

namespace streets {

FileGround::FileGround(StreetFiles& files) : files_(files) {
  for (const auto& file : files.All()) {
    drawn_.emplace_back();
    try {
      drawn_.back() = std::make_unique<DrawnFile>(*file);
      drawn_.back()->Notices(notices_);
    } catch (const FileError& problem) {
      files_.Complain(problem.what());
      drawn_.back().reset();
    }
  }
}

FileGround::~FileGround() = default;

template <typename Draw>
void FileGround::Each(const Draw& draw) {
  for (auto& file : drawn_) {
    if (!file) continue;
    try {
      draw(*file);
    } catch (const FileError& problem) {
      files_.Complain(problem.what());
      file.reset();
    }
  }
}

void FileGround::Lines(platform::MapLine kind, const platform::MapBox& box, double unitsPerPixel, const TakeLine& take) {
  Each([&](DrawnFile& file) { file.Lines(kind, box, unitsPerPixel, take); });
}

void FileGround::Texts(const platform::MapBox& box, double unitsPerPixel, const TakeText& take) {
  std::vector<DrawnFile::Text> texts;
  Each([&](DrawnFile& file) { file.Texts(box, unitsPerPixel, texts); });
  std::ranges::stable_sort(texts, [](const DrawnFile::Text& left, const DrawnFile::Text& right) {
    return std::tie(left.kind, right.weight, left.text) < std::tie(right.kind, left.weight, right.text);
  });
  for (const DrawnFile::Text& text : texts) take(text.kind, text.at, text.text);
}

std::vector<std::string> FileGround::Notices() const { return notices_; }

std::string FileGround::Complaint() const { return files_.Complaint(); }

}  // namespace streets
