#include "engine/store/postgres/statement.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "engine/errors.h"
#include "engine/store/postgres/connection.h"
#include "engine/store/postgres/values/stored_text.h"
#include "engine/store/postgres/work_estimate.h"

namespace engine::postgres {
namespace {

using platform::FieldType;
using platform::Value;

// The server's own numbers for its types.
constexpr unsigned kInt8 = 20;
constexpr unsigned kFloat8 = 701;
constexpr unsigned kText = 25;
constexpr unsigned kUnknown = 0;

unsigned TypeOf(Parameter::Kind kind) {
  switch (kind) {
    case Parameter::Kind::Whole:
      return kInt8;
    case Parameter::Kind::Real:
      return kFloat8;
    case Parameter::Kind::Text:
      return kText;
    case Parameter::Kind::Null:
      break;
  }
  return kUnknown;
}

constexpr std::array<std::string_view, 6> kWriting{"INSERT", "UPDATE", "DELETE", "LOCK", "COPY", "TRUNCATE"};
constexpr std::array<std::string_view, 5> kDefining{"CREATE", "ALTER", "DROP", "COMMENT", "GRANT"};

bool StartsWithOneOf(std::string_view sql, std::span<const std::string_view> words) {
  return std::ranges::any_of(words, [&](std::string_view word) { return sql.starts_with(word); });
}

// "$1", and not as the beginning of "$12".
bool Mentions(std::string_view sql, std::size_t parameter) {
  const std::string sign = '$' + std::to_string(parameter);
  for (std::size_t at = sql.find(sign); at != std::string_view::npos; at = sql.find(sign, at + 1)) {
    const std::size_t behind = at + sign.size();
    if (behind == sql.size() || sql[behind] < '0' || sql[behind] > '9') return true;
  }
  return false;
}

bool WritesRows(std::string_view sql) { return sql.starts_with("INSERT ") || sql.starts_with("UPDATE ") || sql.starts_with("DELETE "); }

}  // namespace

std::string FirstSchema(std::string_view sql) {
  for (std::size_t at = sql.find('"'); at != std::string_view::npos;) {
    const std::size_t end = sql.find('"', at + 1);
    if (end == std::string_view::npos) break;
    if (end + 1 < sql.size() && sql[end + 1] == '.') return std::string(sql.substr(at + 1, end - at - 1));
    at = sql.find('"', end + 1);
  }
  return {};
}

ServerStatement::ServerStatement(ServerConnection& connection, std::string_view sql, std::vector<Parameter> parameters)
    : connection_(connection),
      sql_(sql),
      schema_(FirstSchema(sql)),
      defines_(StartsWithOneOf(sql, kDefining)),
      writes_(defines_ || StartsWithOneOf(sql, kWriting) || sql.find("nextval(") != std::string_view::npos),
      asksMoment_(sql.find("_now()") != std::string_view::npos),
      parameters_(std::move(parameters)),
      types_(parameters_.size(), kUnknown) {}

ServerStatement::~ServerStatement() {
  Reset();
  if (openings_ == connection_.Openings())
    for (const auto& named : names_) connection_.Forget(named.second);
}

// ---- parameters

Parameter& ServerStatement::At(int parameter) {
  const auto place = static_cast<std::size_t>(parameter);
  if (parameters_.size() < place) {
    parameters_.resize(place);
    types_.resize(place, kUnknown);
  }
  return parameters_[place - 1];
}

void ServerStatement::BindNull(int parameter) { At(parameter) = {}; }

void ServerStatement::Bind(int parameter, std::int64_t number) { At(parameter) = {Parameter::Kind::Whole, std::to_string(number)}; }

void ServerStatement::Bind(int parameter, double number) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  At(parameter) = {Parameter::Kind::Real, std::string(buffer.data(), end)};
}

void ServerStatement::Bind(int parameter, std::string_view text) { At(parameter) = {Parameter::Kind::Text, std::string(text)}; }

// ---- a run

Trip ServerStatement::Prepared() {
  // A Null is of the type that the parameter had before, if it had one. One that was left out is of any: the server couldn't tell.
  for (std::size_t i = 0; i < parameters_.size(); ++i) {
    if (parameters_[i].kind != Parameter::Kind::Null)
      types_[i] = TypeOf(parameters_[i].kind);
    else if (types_[i] == kUnknown && !Mentions(sql_, i + 1))
      types_[i] = kText;
  }
  if (openings_ != connection_.Openings()) names_.clear();
  openings_ = connection_.Openings();

  Trip trip;
  trip.parameters = &parameters_;
  trip.asksNumber = writes_;
  trip.tells = writes_ && !defines_;
  trip.schema = schema_;
  trip.planning = planning_;
  trip.isShort = few_ || planning_ != Planning::ForValues;
  if (WritesRows(sql_)) trip.saves = sql_;
  const auto known = names_.find(types_);
  preparing_ = known == names_.end();
  if (!preparing_) {
    trip.name = known->second;
    return trip;
  }
  trip.name = connection_.NewName();
  trip.prepare = sql_;
  trip.types = types_;
  names_.emplace(types_, trip.name);
  return trip;
}

void ServerStatement::Start() {
  for (const Parameter& parameter : parameters_)
    if (parameter.kind == Parameter::Kind::Text && !IsStorable(parameter.bytes)) throw errors::DataConversion();
  connection_.Ready(schema_);
  if (const auto rows = connection_.WorkLimit(); rows && !sql_.starts_with("EXPLAIN ") && IsMoreThan(EstimateOf(connection_, sql_, parameters_), *rows))
    throw WorkLimitReached();
  Trip trip = Prepared();
  if (asksMoment_) trip.before.push_back(connection_.MomentText());
  run_ = connection_.Start(std::move(trip));
}

bool ServerStatement::Step() {
  if (rows_ != nullptr && ++row_ < PQntuples(rows_.get())) return true;
  rows_.reset();
  const bool fresh = run_ == nullptr;
  if (fresh) Start();
  connection_.Take(*run_);
  if (run_->rows.empty() && run_->failure) {
    const Failure failure = *run_->failure;
    const bool prepared = run_->prepared;
    const bool dropped = run_->dropped;
    run_.reset();
    // What the server refuses when it is given the statement itself, it refuses each time.
    if (fresh && MustPrepareAgain(failure) && (dropped || (!prepared && !preparing_))) {
      names_.erase(types_);
      return Step();
    }
    if (preparing_ && !prepared) names_.erase(types_);
    if (NeedsTypes(failure) && std::count(types_.begin(), types_.end(), kUnknown) > 0) {
      std::replace(types_.begin(), types_.end(), kUnknown, kText);
      return Step();
    }
    connection_.Raise(failure, writes_ ? Doing::Writing : Doing::Reading, schema_);
  }
  if (run_->rows.empty()) return Ended();
  rows_ = std::move(run_->rows.front());
  run_->rows.pop_front();
  row_ = 0;
  if (writes_) added_ = Int(0);
  return true;
}

bool ServerStatement::Ended() {
  changed_ = run_->changed;
  if (writes_) connection_.CountWrite(schema_);
  if (defines_) connection_.CountDefinitions();
  return false;
}

void ServerStatement::Reset() noexcept {
  if (run_ != nullptr) connection_.Abandon(*run_);
  // It may be ended before the server has prepared it.
  if (run_ != nullptr && preparing_ && !run_->prepared) names_.erase(types_);
  run_.reset();
  rows_.reset();
  row_ = 0;
}

// ---- a row's cells

bool ServerStatement::IsNull(int column) const { return PQgetisnull(rows_.get(), row_, column) != 0; }

std::optional<std::string_view> ServerStatement::Text(int column) const {
  if (IsNull(column)) return {};
  return std::string_view(PQgetvalue(rows_.get(), row_, column), static_cast<std::size_t>(PQgetlength(rows_.get(), row_, column)));
}

std::int64_t ServerStatement::Int(int column) const { return WholeOf(Text(column).value_or("0")); }

void ServerStatement::Append(std::vector<Value>& cells, int first, std::span<const FieldType> types) const {
  int column = first;
  for (const FieldType type : types) {
    const auto text = Text(column++);
    text ? cells.push_back(ValueOfText(type, *text)) : static_cast<void>(cells.emplace_back(platform::Null));
  }
}

void ServerStatement::Pack(PackedCells& cells, int first, std::span<const FieldType> types) const {
  int column = first;
  for (const FieldType type : types) {
    const auto text = Text(column++);
    if (!text)
      cells.AddNull();
    else if (type == FieldType::Text || type == FieldType::Memo)
      cells.AddText(*text);
    else
      cells.Add(ValueOfText(type, *text));
  }
}

}  // namespace engine::postgres
