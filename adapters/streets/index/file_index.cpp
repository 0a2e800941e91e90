#include "streets/index/file_index.h"

#include <algorithm>
#include <tuple>

#include "streets/file/file_error.h"
#include "streets/file/zip_code.h"
#include "streets/index/indexed_file.h"

namespace streets {
namespace {

// The upper bits of a street's or an edge's number tell the file, the lower ones are the file's own.
constexpr int kFileBits = 48;
constexpr std::int64_t kOwnBits = (std::int64_t{1} << kFileBits) - 1;

// The ZIPs as files keep them, each once. What is no ZIP stays as one that no file knows: it must not widen the question.
std::vector<std::int32_t> Numbers(std::span<const std::string> zips) {
  constexpr std::int32_t kNone = -1;
  std::vector<std::int32_t> numbers;
  numbers.reserve(zips.size());
  for (const std::string& zip : zips) {
    const std::int32_t number = ZipNumber(zip);
    numbers.push_back(number == 0 ? kNone : number);
  }
  std::ranges::sort(numbers);
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

// A street that has numbers in several ZIPs comes once.
std::vector<StreetName> Ordered(std::vector<StreetName> names) {
  const auto rank = [](const StreetName& name) { return std::tie(name.key, name.before, name.type, name.behind, name.shown, name.id); };
  std::ranges::sort(names, [&](const StreetName& left, const StreetName& right) { return rank(left) < rank(right); });
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace

FileIndex::FileIndex(StreetFiles& files) : files_(files) {
  std::int64_t tag = 0;
  for (const auto& file : files.All()) {
    indexed_.emplace_back();
    try {
      indexed_.back() = std::make_unique<IndexedFile>(*file, tag);
    } catch (const FileError& problem) {
      files_.Complain(problem.what());
    }
    tag += std::int64_t{1} << kFileBits;
  }
}

FileIndex::~FileIndex() = default;

template <typename Ask>
void FileIndex::Try(std::unique_ptr<IndexedFile>& file, const Ask& ask) {
  if (!file) return;
  try {
    ask(*file);
  } catch (const FileError& problem) {
    files_.Complain(problem.what());
    file.reset();
  }
}

template <typename Ask>
void FileIndex::Each(const Ask& ask) {
  for (auto& file : indexed_) Try(file, ask);
}

template <typename Ask>
void FileIndex::OfNumber(std::int64_t number, const Ask& ask) {
  const auto file = static_cast<std::size_t>(number >> kFileBits);
  if (number > 0 && file < indexed_.size()) Try(indexed_[file], ask);
}

void FileIndex::Begin() {
  Each([](IndexedFile& file) { file.Begin(); });
}

void FileIndex::End() {
  Each([](IndexedFile& file) { file.End(); });
}

std::vector<StreetName> FileIndex::Named(const std::string& key, std::span<const std::string> zips) {
  std::vector<StreetName> names;
  const auto numbers = Numbers(zips);
  Each([&](IndexedFile& file) { file.Named(key, numbers, names); });
  return Ordered(std::move(names));
}

std::vector<StreetName> FileIndex::Beginning(char letter, std::span<const std::string> zips) {
  if (letter == '\x7f' || letter <= 0) return {};
  std::vector<StreetName> names;
  const auto numbers = Numbers(zips);
  const std::string first(1, letter);
  const std::string end(1, static_cast<char>(letter + 1));
  Each([&](IndexedFile& file) { file.Between(first, end, numbers, names); });
  return Ordered(std::move(names));
}

std::vector<StreetName> FileIndex::Sounding(const std::string& code) {
  std::vector<StreetName> names;
  Each([&](IndexedFile& file) { file.Sounding(code, names); });
  return Ordered(std::move(names));
}

std::vector<HouseRange> FileIndex::Ranges(std::int64_t street, std::span<const std::string> zips) {
  std::vector<HouseRange> ranges;
  OfNumber(street, [&](IndexedFile& file) { file.Ranges(street & kOwnBits, Numbers(zips), ranges); });
  return ranges;
}

std::vector<AddressPoint> FileIndex::Points(std::int64_t street, std::span<const std::string> zips) {
  std::vector<AddressPoint> points;
  OfNumber(street, [&](IndexedFile& file) { file.Points(street & kOwnBits, Numbers(zips), points); });
  return points;
}

Line FileIndex::Shape(std::int64_t edge) {
  Line line;
  OfNumber(edge, [&](IndexedFile& file) { file.Shape(edge & kOwnBits, line); });
  return line;
}

std::vector<std::int64_t> FileIndex::Edges(std::int64_t street, std::span<const std::string> zips) {
  std::vector<std::int64_t> edges;
  OfNumber(street, [&](IndexedFile& file) { file.Edges(street & kOwnBits, Numbers(zips), edges); });
  std::ranges::sort(edges);
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  return edges;
}

std::optional<ZipArea> FileIndex::Zip(const std::string& zip) {
  std::optional<ZipArea> area;
  if (const std::int32_t number = ZipNumber(zip); number != 0) Each([&](IndexedFile& file) { file.Zip(number, area); });
  return area;
}

std::vector<Place> FileIndex::Places(const std::string& name, const std::string& state) {
  std::vector<Place> places;
  Each([&](IndexedFile& file) { file.Places(name, state, places); });
  return places;
}

std::vector<std::string> FileIndex::ZipsOfCounty(const std::string& state, const std::string& county) {
  std::vector<std::string> zips;
  Each([&](IndexedFile& file) { file.ZipsOfCounty(state, county, zips); });
  return zips;
}

}  // namespace streets
