#include <shapefil.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

// repeat_county FROM.shp TO.shp COPIES: a large county, or a state, of many copies of a small one side by side. Each copy has pieces of
// street and ZIPs of its own; the names are the same in all.

namespace {

constexpr int kRow = 50;          // copies side by side
constexpr double kWide = 0.04;    // degrees from copy to copy: they lie over one another in part, as towns do
constexpr double kHigh = 0.03;
constexpr long long kCopyNumbers = 600'000'000;

std::string Changed(const std::string& column, const std::string& text, int copy) {
  if (text.empty()) return text;
  if (column == "TLID") return std::to_string(std::stoll(text) + (copy + 1) * kCopyNumbers);
  if (column != "ZIPL" && column != "ZIPR") return text;
  const std::string zip = std::to_string((std::stoi(text) + 7 * copy) % 99'999 + 1);
  return std::string(5 - zip.size(), '0') + zip;
}

}  // namespace

int main(int count, char** words) {
  if (count != 4) return 2;
  const SHPHandle shapes = SHPOpen(words[1], "rb");
  const DBFHandle table = DBFOpen(words[1], "rb");
  const SHPHandle toShapes = SHPCreate(words[2], SHPT_ARC);
  const DBFHandle toTable = DBFCreate(std::filesystem::path(words[2]).replace_extension(".dbf").c_str());
  if (!shapes || !table || !toShapes || !toTable) return 1;
  std::vector<std::string> columns;
  for (int i = 0; i < DBFGetFieldCount(table); ++i) {
    char name[XBASE_FLDNAME_LEN_READ + 1] = "";
    int width = 0;
    DBFGetFieldInfo(table, i, name, &width, nullptr);
    columns.emplace_back(name);
    DBFAddField(toTable, name, FTString, columns.back() == "TLID" ? 14 : width, 0);
  }
  int record = 0;
  for (int copy = 0; copy < std::atoi(words[3]); ++copy) {
    for (int i = 0; i < DBFGetRecordCount(table); ++i, ++record) {
      SHPObject* line = SHPReadObject(shapes, i);
      for (int k = 0; k < line->nVertices; ++k) {
        line->padfX[k] += copy % kRow * kWide;
        line->padfY[k] += copy / kRow * kHigh;
      }
      SHPWriteObject(toShapes, -1, line);
      SHPDestroyObject(line);
      for (int k = 0; k < static_cast<int>(columns.size()); ++k)
        DBFWriteStringAttribute(toTable, record, k, Changed(columns[static_cast<std::size_t>(k)], DBFReadStringAttribute(table, i, k), copy).c_str());
    }
  }
  SHPClose(toShapes);
  DBFClose(toTable);
  SHPClose(shapes);
  DBFClose(table);
  std::printf("%d records\n", record);
  return 0;
}
