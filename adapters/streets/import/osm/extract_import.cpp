#include "streets/import/osm/extract_import.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "streets/file/file_error.h"
#include "streets/import/osm/addresses.h"
#include "streets/import/osm/areas.h"
#include "streets/import/osm/extract_file.h"
#include "streets/import/osm/interpolation.h"
#include "streets/import/osm/node_places.h"
#include "streets/import/osm/shapes.h"
#include "streets/import/osm/street_pieces.h"
#include "streets/import/osm/street_tags.h"
#include "streets/import/source_writer.h"

namespace streets {
namespace {

constexpr const char* kNotice = "(C) OpenStreetMap contributors";

// "somewhere.osm.pbf" is somewhere.
SourceName NameOf(const std::string& path) {
  std::string name = std::filesystem::path(path).filename().string();
  for (const char* ending : {".pbf", ".osm"})
    if (name.size() > 4 && name.ends_with(ending)) name.resize(name.size() - 4);
  return {"osm:" + name, name, kNotice};
}

bool HasNumber(const ExtractTags& tags) { return tags.Has("addr:housenumber"); }
bool IsInterpolation(const ExtractTags& tags) { return tags.Has("addr:interpolation"); }
bool IsStreet(const ExtractTags& tags) { return tags.Has("highway") && !NamesOfStreet(tags).empty(); }

class Extract {
 public:
  Extract(const std::string& path, Database* into, Database* baseMap, const ExtractListener& listener, std::size_t nodesAtATime)
      : file_(path, path), listener_(listener), nodesAtATime_(nodesAtATime), zips_(baseMap), places_(nodesAtATime) {
    if (into) writer_.emplace(*into, NameOf(path));
    SourceWriter* const writer = writer_ ? &*writer_ : nullptr;
    addresses_.emplace(writer, styles_, zips_);
    streets_.emplace(writer, zips_);
  }

  ExtractCounts Import() {
    Survey();
    // Ways come in rounds, each with as many nodes as memory is given to.
    for (bool first = true; first || taken_ < ways_; first = false) {
      PlaceNodes(first);
      TakeWays();
    }
    TakeAreas();
    interpolation_.Write(*addresses_, [this](std::int64_t way, const std::string& why) { Refuse("way", way, why); });
    counts_.edges = streets_->Pieces();
    counts_.points = addresses_->Points();
    if (writer_) writer_->Commit(counts_.records, counts_.refused);
    return counts_;
  }

 private:
  // What must be known before anything is taken; the first round's nodes.
  void Survey() {
    bool isEmpty = true;
    ExtractReader reader;
    reader.onNode = [&](const ExtractNode& node) {
      isEmpty = false;
      if (HasNumber(node.tags)) CountStyle(node.tags);
    };
    reader.onWay = [&](const ExtractWay& way) {
      isEmpty = false;
      if (HasNumber(way.tags)) CountStyle(way.tags);
      if (IsInterpolation(way.tags)) AddInterpolation(way);
      if (!IsWanted(way)) return;
      ++ways_;
      nodesOfWays_ += static_cast<std::int64_t>(way.nodes.size());
      Collect(way, ways_, places_, round_);
    };
    reader.onRelation = [&](const ExtractRelation& relation) {
      if (!HasNumber(relation.tags)) return;
      ++counts_.records;
      CountStyle(relation.tags);
      const std::string why = areas_.Add(relation);
      if (!why.empty()) Refuse("relation", relation.id, why);
    };
    Read(reader);
    if (isEmpty) throw FileError(file_.Shown() + " holds neither nodes nor ways.");
  }

  void CountStyle(const ExtractTags& tags) {
    const AddressTexts address = AddressOf(tags);
    styles_.Count(address.street, address.zip, address.number);
  }

  void AddInterpolation(const ExtractWay& way) {
    ++counts_.records;
    const std::string why = interpolation_.Add(way);
    if (!why.empty()) Refuse("way", way.id, why);
  }

  static bool IsWanted(const ExtractWay& way) { return HasNumber(way.tags) || IsStreet(way.tags); }

  static void Collect(const ExtractWay& way, std::int64_t ordinal, NodePlaces& to, std::int64_t& until) {
    if (to.IsFull()) return;
    to.Want(way.nodes);
    until = ordinal;
  }

  void PlaceNodes(bool first) {
    places_.Close();
    ExtractReader reader;
    reader.onNode = [&](const ExtractNode& node) {
      if (node.at) places_.Put(node.id, *node.at);
      if (first) TakeNode(node);
    };
    Read(reader);
  }

  void TakeNode(const ExtractNode& node) {
    const bool isBetween = interpolation_.Offer(node);
    if (!HasNumber(node.tags)) return;
    const AddressTexts address = AddressOf(node.tags);
    if (isBetween && address.street.empty()) return;  // its line knows its street
    ++counts_.records;
    const std::string why = node.at ? addresses_->Take(address, *node.at) : "it lies nowhere on the earth";
    if (!why.empty()) Refuse("node", node.id, why);
  }

  // Takes the round's ways, and collects the nodes of the next.
  void TakeWays() {
    std::int64_t ordinal = 0;
    std::int64_t until = round_;
    NodePlaces next(nodesAtATime_);
    ExtractReader reader;
    reader.onWay = [&](const ExtractWay& way) {
      if (!IsWanted(way)) return;
      ++ordinal;
      if (ordinal > round_) {
        Collect(way, ordinal, next, until);
      } else if (ordinal > taken_) {
        TakeWay(way);
      }
    };
    if (taken_ < ways_) Read(reader);
    taken_ = round_;
    round_ = until;
    places_ = std::move(next);
  }

  void TakeWay(const ExtractWay& way) {
    ++counts_.records;
    std::string why;
    if (IsStreet(way.tags)) why = streets_->Take(way, places_);
    if (HasNumber(way.tags)) {
      const auto at = MiddleOfWay(way.nodes, places_);
      const std::string problem = at ? addresses_->Take(AddressOf(way.tags), *at) : "none of its nodes is in the file";
      if (!problem.empty()) why = problem;
    }
    if (!why.empty()) Refuse("way", way.id, why);
  }

  // Only now, when their nodes don't stand in memory beside those of all ways.
  void TakeAreas() {
    if (areas_.IsEmpty()) return;
    places_ = NodePlaces(0);
    ExtractReader ways;
    ways.onWay = [this](const ExtractWay& way) { areas_.Offer(way); };
    Read(ways);
    areas_.Close();
    ExtractReader nodes;
    nodes.onNode = [this](const ExtractNode& node) { areas_.Offer(node); };
    Read(nodes);
    areas_.Write(*addresses_, [this](std::int64_t relation, const std::string& why) { Refuse("relation", relation, why); });
  }

  void Read(ExtractReader& reader) {
    reader.onProgress = [this](std::int64_t bytes) {
      if (!listener_.onProgress) return;
      const std::int64_t rounds = 1 + nodesOfWays_ / static_cast<std::int64_t>(nodesAtATime_);
      const std::int64_t readings = 1 + 2 * rounds + (areas_.IsEmpty() ? 0 : 2);
      listener_.onProgress(file_.Shown(), std::min(reading_, readings - 1) * file_.Size() + bytes, readings * file_.Size());
    };
    file_.Read(reader);
    ++reading_;
  }

  void Refuse(const char* what, std::int64_t number, const std::string& why) {
    ++counts_.refused;
    if (listener_.onRefused) listener_.onRefused(file_.Shown(), std::string(what) + " " + std::to_string(number), why);
  }

  ExtractFile file_;
  const ExtractListener& listener_;
  std::size_t nodesAtATime_;
  ZipFinder zips_;
  std::optional<SourceWriter> writer_;
  NumberStyles styles_;
  Interpolation interpolation_;
  Areas areas_;
  std::optional<AddressWriter> addresses_;
  std::optional<StreetWriter> streets_;
  NodePlaces places_;
  std::int64_t ways_ = 0;         ///< that are wanted
  std::int64_t nodesOfWays_ = 0;
  std::int64_t taken_ = 0;        ///< how many of them are done,
  std::int64_t round_ = 0;        ///< and will be after this round
  std::int64_t reading_ = 0;      ///< how often the file was read
  ExtractCounts counts_;
};

}  // namespace

ExtractCounts ImportExtract(const std::string& path, Database* into, Database* baseMap, const ExtractListener& listener, std::size_t nodesAtATime) {
  return Extract(path, into, baseMap, listener, nodesAtATime).Import();
}

}  // namespace streets
