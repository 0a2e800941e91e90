#include "engine/catalogue/stores.h"

#include <algorithm>

#include "engine/errors.h"

namespace engine {

StoreChoice OneStore(std::unique_ptr<Store> store) {
  const auto kept = std::make_shared<std::unique_ptr<Store>>(std::move(store));
  return {{.nameOf = [](std::string_view) { return std::optional<std::string>(""); }, .make = [kept] { return std::move(*kept); }}};
}

// ---- stores

Stores::Stores(const EngineOptions& options, StoreChoice choice)
    : options_(options), clock_(options.now ? options.now : LocalNow), choice_(std::move(choice)) {}

std::string Stores::RealPath(std::string_view path) const {
  std::string real = HostPath(path);
  if (options_.hostPath && real.empty()) throw errors::InvalidPath(path);
  return real;
}

Stores::Member& Stores::MemberOf(const std::string& real) {
  for (std::size_t kind = 0; kind < choice_.size(); ++kind) {
    const std::optional<std::string> name = choice_[kind].nameOf(real);
    if (!name) continue;
    for (const auto& member : members_)
      if (member->kind == kind && member->name == *name) return *member;
    auto context = std::make_unique<EngineContext>(*this, choice_[kind].make());
    if (servePainting_) context->OwnStore().OnWait(servePainting_);
    const auto behind = std::ranges::find_if(members_, [&](const auto& member) { return member->kind > kind; });
    return **members_.insert(behind, std::make_unique<Member>(Member{kind, *name, std::move(context)}));
  }
  throw errors::InvalidPath(real);
}

std::shared_ptr<StoreFile> Stores::OpenIn(Member& member, const std::string& real, std::string_view path) {
  auto file = member.context->OwnStore().Open(real, path);
  if (!member.joined)
    for (StoresUnit* unit : units_) unit->Take(member);
  member.joined = true;
  return file;
}

Stores::Opened Stores::Open(std::string_view path) {
  const std::string real = RealPath(path);
  Member& member = MemberOf(real);
  return {*member.context, OpenIn(member, real, path)};
}

std::shared_ptr<StoreFile> Stores::OpenFor(const EngineContext& asker, std::string_view path) {
  const std::string real = RealPath(path);
  Member& member = MemberOf(real);
  if (member.context.get() != &asker) throw errors::OtherStore(path);
  return OpenIn(member, real, path);
}

void Stores::OnWait(std::function<void()> servePainting) {
  servePainting_ = std::move(servePainting);
  for (const auto& member : members_) member->context->OwnStore().OnWait(servePainting_);
}

// ---- a unit over them

StoresUnit::StoresUnit(Stores& stores) : stores_(stores) {
  for (const auto& member : stores.members_)
    if (member->joined) Take(*member);
  stores.units_.push_back(this);
}

StoresUnit::~StoresUnit() { std::erase(stores_.units_, this); }

void StoresUnit::Take(const Stores::Member& member) {
  const auto behind = std::ranges::find_if(parts_, [&](const Part& part) { return part.kind > member.kind; });
  parts_.insert(behind, Part{member.kind, std::make_unique<Transaction>(member.context->OwnStore(), Transaction::Kind::Write)});
}

void StoresUnit::Commit() {
  for (const Part& part : parts_) part.unit->Commit();
}

// ---- one of them

const EngineOptions& EngineContext::Options() const noexcept { return stores_.Options(); }
const Clock& EngineContext::OwnClock() const noexcept { return stores_.OwnClock(); }
std::shared_ptr<StoreFile> EngineContext::Open(std::string_view path) { return stores_.OpenFor(*this, path); }
std::string EngineContext::HostPath(const std::string& path) const { return stores_.HostPath(path); }
std::uint64_t EngineContext::NewSet() { return stores_.NewSet(); }

}  // namespace engine
