// The rows of a list whose keys are held: in blocks, a few of which are kept.
#include <algorithm>

#include "engine/lists/keyset_list.h"
#include "engine/rows/key_batch.h"

namespace engine {

void KeysetList::DropStaleBlocks() {
  const std::uint64_t version = Source().RecentVersion();
  if (version == blocksVersion_) return;
  blocks_.clear();
  blocksVersion_ = version;
}

const KeysetList::Block* KeysetList::BlockWith(std::int64_t ordinal) {
  for (auto block = blocks_.begin(); block != blocks_.end(); ++block) {
    if (ordinal < block->first || ordinal >= block->first + static_cast<std::int64_t>(block->rows.size())) continue;
    blocks_.splice(blocks_.begin(), blocks_, block);
    return &blocks_.front();
  }
  return nullptr;
}

// One row where a search or bookmark led; more and more of them in a walk.
const KeysetList::Block& KeysetList::ReadBlock(std::int64_t ordinal, bool forward) {
  const std::int64_t size = std::max<std::int64_t>(std::int64_t{1} << std::min(2 * run_, 6), Source().OwnDialect().rowsAtOnce);
  Block block;
  block.first = forward ? ordinal : std::max<std::int64_t>(0, ordinal - size + 1);
  const std::int64_t end = forward ? std::min(Size(), ordinal + size) : ordinal + 1;
  auto page = Source().NewPage();
  page->cells.Reserve(static_cast<std::size_t>(end - block.first) * page->columns);
  const std::uint64_t version = blocksVersion_;
  if (!ReadAlongIndex(block, end, *page)) ReadByKeys(block, end, *page);
  blocksVersion_ = version;
  block.page = std::move(page);
  return Keep(std::move(block));
}

const KeysetList::Block& KeysetList::Keep(Block block) {
  constexpr std::size_t kKeptBlocks = 6;
  blocks_.push_front(std::move(block));
  if (blocks_.size() > kKeptBlocks) blocks_.pop_back();
  return blocks_.front();
}

std::optional<std::vector<std::int64_t>> KeysetList::FitsOfFew(std::string_view criterion) {
  if (!complete_ || Size() > static_cast<std::int64_t>(KeyBatch::kPage) || !Source().FetchesTogether()) return {};
  DropStaleBlocks();
  Block block;
  auto page = Source().NewPage();
  RowSource::Tested tested{criterion};
  const std::uint64_t version = blocksVersion_;
  std::vector<std::int64_t> fits = ReadTogether(block, Size(), *page, &tested);
  blocksVersion_ = version;
  block.page = std::move(page);
  Keep(std::move(block));
  auto isTrue = tested.isTrue.begin();
  std::erase_if(fits, [&](std::int64_t) { return !*isTrue++; });
  return fits;
}

// As long as nobody has written, a stretch of the list is a stretch of the index, and read as such.
bool KeysetList::AlongIndex(std::int64_t first, std::int64_t end, const RowSink& sink) {
  if (end - first < 8 || !InIndexOrder()) return false;
  std::optional<OrderPlace> before;
  if (first > 0) {
    before = walker_->PlaceOfRow(*KeysOf(first - 1));
    if (!before) return false;
  }
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = before ? &*before : nullptr;
  request.limit = end - first;
  std::int64_t next = first;
  walker_->Read(request, [&](const Query& row) {
    if (row.Int(walker_->RowKeyAt(false)) != *KeysOf(next)) return false;
    sink(row);
    return ++next < end;
  });
  return next == end;
}

bool KeysetList::ReadAlongIndex(Block& block, std::int64_t end, RowPage& page) {
  const bool read = AlongIndex(block.first, end, [&](const Query& row) {
    Source().ReadCells(row, 0, page);
    page.keys.push_back(row.Int(walker_->RowKeyAt(false)));
    block.rows.push_back(static_cast<int>(block.rows.size()));
  });
  if (read) return true;
  block.rows.clear();
  page.cells.Clear();
  page.keys.clear();
  return false;
}

void KeysetList::ReadByKeys(Block& block, std::int64_t end, RowPage& page) {
  if (end - block.first > 1 && Source().FetchesTogether()) {
    ReadTogether(block, end, page, nullptr);
    return;
  }
  std::optional<Transaction> oneState;
  if (end - block.first > 1) oneState.emplace(Source().Store(), Transaction::Kind::Read);
  for (std::int64_t i = block.first; i < end; ++i) {
    const bool there = IsAlive(i) && Source().Fetch(KeysOf(i), page);
    block.rows.push_back(there ? static_cast<int>(page.Rows()) - 1 : -1);
    if (!there && IsAlive(i)) MarkGone(i, State::Gone);
  }
  if (oneState) oneState->Commit();
}

// Who paints meanwhile may come to rows that are gone.
std::vector<std::int64_t> KeysetList::ReadTogether(Block& block, std::int64_t end, RowPage& page, RowSource::Tested* tested) {
  std::vector<std::int64_t> asked;
  std::vector<std::int64_t> keys;
  for (std::int64_t i = block.first; i < end; ++i) {
    if (!IsAlive(i)) continue;
    asked.push_back(i);
    keys.insert(keys.end(), KeysOf(i), KeysOf(i) + Source().KeyCount());
  }
  const std::vector<int> found = Source().FetchTogether(keys, page, tested);
  block.rows.assign(static_cast<std::size_t>(end - block.first), -1);
  for (std::size_t i = 0; i < asked.size(); ++i) {
    block.rows[static_cast<std::size_t>(asked[i] - block.first)] = found[i];
    if (found[i] < 0) MarkGone(asked[i], State::Gone);
  }
  return asked;
}

void KeysetList::SetPlace(Place& place, std::int64_t ordinal) const {
  place.keys.assign(KeysOf(ordinal), KeysOf(ordinal) + Source().KeyCount());
  place.ordinal = ordinal;
}

bool KeysetList::Visit(std::int64_t ordinal, Place& place, bool forward) {
  DropStaleBlocks();
  const Block* block = BlockWith(ordinal);
  if (block == nullptr) block = &ReadBlock(ordinal, forward);
  const int row = block->rows[static_cast<std::size_t>(ordinal - block->first)];
  if (row < 0) return false;
  place.page = block->page;
  place.row = static_cast<std::size_t>(row);
  place.ordinal = ordinal;
  // As they were read: what follows from the row's fields may have changed since the list was opened.
  place.keys.assign(place.page->KeysOf(place.row), place.page->KeysOf(place.row) + Source().KeyCount());
  return true;
}

}  // namespace engine
