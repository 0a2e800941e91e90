#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "engine/cursor/cursor.h"
#include "engine/lists/indexed_list.h"

namespace engine {

/// A base table in the order of its current index, with Seek. Without an index it stands in row key order.
class TableRecordset final : public Cursor {
 public:
  TableRecordset(RecordsetOwner& owner, std::string name, std::shared_ptr<RowSource> source);

  std::string Index() const override { return index_; }
  void SetIndex(std::string_view name) override;
  using Cursor::Seek;
  void Seek(std::string_view comparison, std::span<const platform::Value> keys) override;

 protected:
  std::shared_ptr<Cursor> MakeClone() override;

 private:
  std::vector<platform::Value> KeysFor(std::span<const platform::Value> given) const;
  bool SeekRow(std::string_view comparison, const OrderPlace& target, Place& place);

  std::shared_ptr<RowSource> source_;
  std::shared_ptr<IndexedList> rows_;
  std::string index_;
  std::vector<platform::FieldDefinition> keyFields_;  ///< of the current index, without their widths
};

}  // namespace engine
