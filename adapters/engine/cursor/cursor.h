#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/cursor/list_window.h"
#include "engine/lists/row_list.h"
#include "engine/rows/row_editor.h"
#include "platform/data/data.h"

namespace engine {

/// What a recordset asks of the database that owns it.
class RecordsetOwner {
 public:
  virtual ~RecordsetOwner() = default;
  virtual platform::RecordsetRef Adopt(std::shared_ptr<platform::Recordset> recordset) = 0;
  virtual void Release(const platform::Recordset& recordset) = 0;
};

/// The rules of a cursor, the same for every kind of recordset: where it stands, what its flags say, its copy buffer, its
/// bookmarks. Which rows there are and in what order is the list's matter.
///
/// It stands on a row, or on none: before the first (Bof), behind the last (Eof), or nowhere after a failed Seek and in a
/// fresh clone. A row that it has deleted itself stays its place until the next move, but can't be read.
class Cursor : public platform::Recordset {
 public:
  Cursor(RecordsetOwner& owner, std::string name, platform::RecordsetType type, std::shared_ptr<RowList> list);

  const std::string& Name() const override { return name_; }
  platform::RecordsetType Type() const override { return type_; }
  bool Updatable() const override;
  bool Bof() const override { return Now().bof; }
  bool Eof() const override { return Now().eof; }
  bool NoMatch() const override { return noMatch_; }
  std::int32_t RecordCount() override;
  bool HasRows() override { return list_->AnyRow(); }

  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override { Move(1); }
  void MovePrevious() override { Move(-1); }
  void Move(std::int32_t rows) override;

  void FindFirst(std::string_view criterion) override;
  void FindNext(std::string_view criterion) override;
  std::string Index() const override;
  void SetIndex(std::string_view name) override;
  using platform::Recordset::Seek;
  void Seek(std::string_view comparison, std::span<const platform::Value> keys) override;

  const std::vector<platform::FieldInfo>& Fields() const override { return list_->Source().Fields(); }
  int FieldIndex(std::string_view name) const override;
  using platform::Recordset::Field;
  using platform::Recordset::SetField;
  platform::Value Field(int index) const override;
  void SetField(int index, const platform::Value& value) override;

  platform::EditMode Mode() const override { return editor_.Mode(); }
  void AddNew() override;
  void Edit() override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;

  platform::Bookmark Bookmark() const override;
  void SetBookmark(const platform::Bookmark& bookmark) override;
  platform::Bookmark LastModified() const override;
  platform::RecordsetRef Clone() override;
  platform::RowWindow& Window() override;
  void Close() override;

  /// Stands on the first row, as after opening. A table's is looked for when somebody asks for it, where asking costs most: tables are
  /// mostly opened to look for one row.
  void StandOnFirst();

 protected:
  RowList& List() const noexcept { return *list_; }
  RecordsetOwner& Owner() const noexcept { return owner_; }
  std::shared_ptr<RowList> SharedList() const noexcept { return list_; }
  /// Another order of the same rows; the cursor stands on its first row.
  void Reorder(std::shared_ptr<RowList> list);
  void BecomeCurrent(Place place);
  /// The ends stay as they are.
  void StandNowhere();
  void DropEdit() { editor_.Drop(); }
  void NoMatch(bool noMatch) noexcept { noMatch_ = noMatch; }
  /// Stands on no row and on no end, as a clone does.
  void BeginNowhere();
  virtual std::shared_ptr<Cursor> MakeClone() = 0;

 private:
  enum class Standing { Nowhere, OnRow, OnDeletedRow };
  struct Position {
    Place place;
    Standing standing = Standing::Nowhere;
    bool bof = false;
    bool eof = false;
  };
  /// What of the position is still to be looked for: whether there is a row at all, or the first one.
  enum class Owed { Nothing, Ends, FirstRow };

  /// The position, with what was owed of it.
  Position& Now() const;
  void RequireRow() const;
  void Find(std::string_view criterion, bool next);
  void RequireWritable() const;
  void Step(bool forward);
  std::string BookmarkKey(const Place& place) const { return list_->KeyOf(place); }

  RecordsetOwner& owner_;
  std::string name_;
  platform::RecordsetType type_;
  std::shared_ptr<RowList> list_;
  RowEditor editor_;
  mutable Position position_;
  mutable Owed owed_ = Owed::Nothing;
  bool noMatch_ = false;
  std::optional<std::string> lastModified_;
  std::unique_ptr<ListWindow> window_;
};

}  // namespace engine
