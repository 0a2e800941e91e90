#include "engine/objects/file_meanings.h"

#include "engine/translate/plan/planning.h"

namespace engine {

std::shared_ptr<const RowShape> KnownShapes::Find(std::string_view source, const DatabaseCatalogue& catalogue) {
  const auto known = shapes_.find(source);
  if (known == shapes_.end()) return nullptr;
  if (catalogue.StandsAsPlanned(known->second->plan)) return known->second;
  shapes_.erase(known);
  return nullptr;
}

void KnownShapes::Keep(std::string_view source, std::shared_ptr<const RowShape> shape) {
  constexpr std::size_t kKept = 64;
  if (shapes_.size() >= kKept) shapes_.clear();
  shapes_.insert_or_assign(std::string(source), std::move(shape));
}

/// The file's own tables as all databases know them, everything else as one database does.
class FileMeanings::TablesFirst final : public Catalogue {
 public:
  TablesFirst(FileMeanings& file, DatabaseCatalogue& database) : file_(file), database_(database) {}

  const ResolvedTable* FindTable(std::string_view name) override {
    return file_.file_->StoredName(name).empty() ? FindElsewhere(name) : file_.tables_.FindTable(name);
  }
  const ResolvedTable* FindTable(std::string_view name, std::string_view inFile) override {
    elsewhere_ = true;
    return database_.FindTable(name, inFile);
  }
  bool Elsewhere() const { return elsewhere_; }

 private:
  const ResolvedTable* FindElsewhere(std::string_view name) {
    elsewhere_ = true;
    return database_.FindTable(name);
  }

  FileMeanings& file_;
  DatabaseCatalogue& database_;
  bool elsewhere_ = false;
};

std::shared_ptr<const RowShape> FileMeanings::Plan(std::string_view source, DatabaseCatalogue& catalogue, KnownShapes& ownShapes) {
  TablesFirst tables(*this, catalogue);
  auto shape = std::make_shared<const RowShape>(PlanSelect(source, tables, dialect_), dialect_);
  if (catalogue.StandsAsPlanned(shape->plan)) (tables.Elsewhere() ? ownShapes : shapes_).Keep(source, shape);
  return shape;
}

std::shared_ptr<FileMeanings> MeaningsByFile::Of(EngineContext& context, const std::shared_ptr<StoreFile>& file) {
  std::erase_if(files_, [](const auto& each) { return each.second.expired(); });
  std::weak_ptr<FileMeanings>& known = files_[file.get()];
  std::shared_ptr<FileMeanings> meanings = known.lock();
  if (!meanings) {
    meanings = std::make_shared<FileMeanings>(context, file);
    known = meanings;
  }
  return meanings;
}

}  // namespace engine
