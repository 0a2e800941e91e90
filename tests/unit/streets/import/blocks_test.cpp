#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <string>

#include "streets/file/file_error.h"
#include "streets/import/osm/extract_import.h"
#include "support/made_blocks.h"
#include "support/temporary_folder.h"

// Blocks that unfold: small in the file, larger than memory when they are read.
namespace streets {
namespace {

using made_blocks::Block;
using made_blocks::Field;
using made_blocks::Framed;
using made_blocks::Head;
using made_blocks::Number;
using made_blocks::NumberField;
using testing::HasSubstr;

std::string Repeated(const std::string& piece, std::size_t count) {
  std::string all;
  all.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) all += piece;
  return all;
}

std::string Packed(const std::string& content) {
  uLongf size = ::compressBound(content.size());
  std::string packed(size, '\0');
  ::compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(content.data()), content.size());
  packed.resize(size);
  return packed;
}

/// A block as it usually lies in a file.
std::string PackedBlock(const std::string& kind, const std::string& content) {
  return Framed(kind, NumberField(2, content.size()) + Field(3, Packed(content)));
}

class BlocksTest : public testing::Test {
 protected:
  ExtractCounts Import(const std::string& bytes) { return ImportExtract(folder_.Write("bomb.osm.pbf", bytes), nullptr, nullptr, {}); }
  std::string FailureOf(const std::string& bytes) {
    try {
      Import(bytes);
    } catch (const FileError& problem) {
      return problem.what();
    }
    return "";
  }
  std::string FailureOfData(const std::string& content) { return FailureOf(Head() + PackedBlock("OSMData", content)); }

  TemporaryFolder folder_;
};

// Ids one apart, all at one place.
std::string DenseNodes(std::size_t count, const std::string& tags = "") {
  const std::string zeros(count, '\0');
  return Field(2, Field(1, std::string(count, '\x02')) + Field(8, zeros) + Field(9, zeros) + (tags.empty() ? "" : Field(10, tags)));
}

std::string Texts(const std::string& list) { return Field(1, list); }

TEST_F(BlocksTest, ABlockMayUnfoldToSomeExtent) {
  const std::string texts = Texts(Field(1, "") + Field(1, "addr:housenumber") + Field(1, "12") + Field(1, "addr:street") + Field(1, "Elm Street"));
  const ExtractCounts counts = Import(Head() + PackedBlock("OSMData", texts + Field(2, DenseNodes(100'000, Repeated({"\1\2\3\4\0", 5}, 100'000)))));
  EXPECT_EQ(counts.points, 100'000);
}

TEST_F(BlocksTest, OneThatUnfoldsFartherIsDamage) {
  const std::string empty(1, '\0');
  const std::string texts = Texts(Field(1, "") + Field(1, std::string(1000, 'k')) + Field(1, std::string(1000, 'v')));
  // Half a megabyte of these is a gigabyte of tags.
  const std::string keys = std::string(500'000, '\1'), values = std::string(500'000, '\2');
  const auto told = HasSubstr("bomb.osm.pbf is damaged at byte " + std::to_string(Head().size()) + ": a block unfolds into more than is read at once");
  EXPECT_THAT(FailureOfData(Texts(Field(1, "")) + Field(2, DenseNodes(1'200'000))), told) << "nodes";
  EXPECT_THAT(FailureOfData(Texts(Repeated(Field(1, ""), 1'800'000))), told) << "texts";
  EXPECT_THAT(FailureOfData(texts + Field(2, DenseNodes(1, Repeated("\1\2", 500'000)))), told) << "tags of nodes that lie together";
  const std::string node = NumberField(1, 2) + NumberField(8, 0) + NumberField(9, 0);
  EXPECT_THAT(FailureOfData(texts + Field(2, Field(1, node + Field(2, keys) + Field(3, values)))), told) << "tags of a node";
  EXPECT_THAT(FailureOfData(texts + Field(2, Repeated(Field(1, node), 1'200'000))), told) << "nodes that lie alone";
  EXPECT_THAT(FailureOfData(texts + Field(2, Field(3, NumberField(1, 1) + Field(8, std::string(4'500'000, '\0'))))), told) << "nodes of a way";
  EXPECT_THAT(FailureOfData(texts + Field(2, Field(3, NumberField(1, 1) + Field(2, keys) + Field(3, values)))), told) << "tags of a way";
  EXPECT_THAT(FailureOfData(texts + Field(2, Repeated(Field(3, ""), 1'200'000))), told) << "ways";
  const std::string zeros(500'000, '\0');
  EXPECT_THAT(FailureOfData(texts + Field(2, Field(4, NumberField(1, 1) + Field(8, keys) + Field(9, zeros) + Field(10, zeros)))), told) << "members";
}

TEST_F(BlocksTest, AHeadIsSmall) {
  const std::string content = Field(4, "OsmSchema-V0.6") + Repeated(Field(5, "x"), 50'000);
  EXPECT_THAT(FailureOf(PackedBlock("OSMHeader", content)), HasSubstr("bomb.osm.pbf is damaged at byte 0: a block has no size that could be"));
}

TEST_F(BlocksTest, WhatABlockSaysOfItsSizeHolds) {
  const std::string content = Texts(Field(1, "")) + Field(2, DenseNodes(10));
  const auto failureOf = [&](std::size_t size) { return FailureOf(Head() + Framed("OSMData", NumberField(2, size) + Field(3, Packed(content)))); };
  const auto damaged = HasSubstr("bomb.osm.pbf is damaged at byte " + std::to_string(Head().size()));
  EXPECT_EQ(failureOf(content.size()), "");
  for (const std::size_t size : {std::size_t{0}, content.size() - 1, content.size() + 1, std::size_t{33} << 20, std::size_t{1} << 31, SIZE_MAX})
    EXPECT_THAT(failureOf(size), damaged) << size;
  EXPECT_THAT(FailureOf(Head() + Framed("OSMData", Field(3, Packed(content)))), damaged);
  EXPECT_THAT(FailureOf(Head() + Framed("OSMData", "")), damaged);
  EXPECT_THAT(FailureOf(Head() + Framed("OSMData", NumberField(2, content.size()) + Field(4, content))), HasSubstr("packed in a way"));
}

}  // namespace
}  // namespace streets
