#include "streets/import/base/zip_sources.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <functional>
#include <string_view>
#include <vector>

#include "streets/file/file_error.h"
#include "streets/file/zip_code.h"

namespace streets {
namespace {

std::int32_t Degrees(std::string_view text, double most) {
  double degrees = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, degrees);
  if (read.ec != std::errc{} || read.ptr != end || !(std::abs(degrees) <= most)) throw FileError("\"" + std::string(text) + "\" is no position");
  return static_cast<std::int32_t>(std::lround(degrees * 1e6));
}

Position PositionOf(std::string_view latitude, std::string_view longitude) { return {Degrees(longitude, 180), Degrees(latitude, 90)}; }

void ExpectZip(const std::string& text) {
  if (ZipNumber(text) == 0) throw FileError("\"" + text + "\" is no ZIP");
}

void EachLine(const std::string& path, char separator, std::size_t fields, const std::function<void(const std::vector<std::string>&)>& each) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw FileError(path + " can't be opened.");
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::vector<std::string> parts;
    for (std::size_t from = 0; from <= line.size();) {
      const std::size_t to = std::min(line.find(separator, from), line.size());
      parts.push_back(line.substr(from, to - from));
      from = to + 1;
    }
    try {
      if (parts.size() < fields) throw FileError("has fewer than " + std::to_string(fields) + " fields");
      if (number > 1 || parts[0] != "zip") each(parts);
    } catch (const FileError& problem) {
      throw FileError(path + ", line " + std::to_string(number) + ": " + problem.what() + ".");
    }
  }
}

}  // namespace

ZipPoints ReadZipPoints(const std::string& path) {
  ZipPoints points;
  EachLine(path, ',', 3, [&](const std::vector<std::string>& fields) {
    ExpectZip(fields[0]);
    points.emplace(fields[0], PositionOf(fields[1], fields[2]));
  });
  return points;
}

PostOffices ReadPostOffices(const std::string& path) {
  PostOffices offices;
  EachLine(path, '\t', 11, [&](const std::vector<std::string>& fields) {
    ExpectZip(fields[1]);
    offices.emplace(fields[1], PostOffice{fields[2], fields[3], fields[4], fields[5], fields[6], PositionOf(fields[9], fields[10])});
  });
  return offices;
}

}  // namespace streets
