#include "unit/engine/support/memory_store/expression.h"

#include <charconv>

#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "unit/engine/support/memory_store/select.h"

namespace memory_store {
namespace {

StoredValue Truth(bool holds) { return std::int64_t{holds ? 1 : 0}; }

double Number(const StoredValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  return std::get<double>(value);
}

class Parser {
 public:
  Parser(Tokens& tokens, const From& from, const Disk& disk) : tokens_(tokens), from_(from), disk_(disk) {}

  Expression Or() {
    Expression left = And();
    while (tokens_.TakeWord("OR")) {
      left = [a = std::move(left), b = And()](const Scene& scene) -> StoredValue {
        const StoredValue one = a(scene);
        const StoredValue other = b(scene);
        if (Holds(one) || Holds(other)) return Truth(true);
        return IsNull(one) || IsNull(other) ? StoredValue() : Truth(false);
      };
    }
    return left;
  }

 private:
  Expression And() {
    Expression left = Not();
    while (tokens_.TakeWord("AND")) {
      left = [a = std::move(left), b = Not()](const Scene& scene) -> StoredValue {
        const StoredValue one = a(scene);
        const StoredValue other = b(scene);
        const auto fails = [](const StoredValue& value) { return !IsNull(value) && !Holds(value); };
        if (fails(one) || fails(other)) return Truth(false);
        return IsNull(one) || IsNull(other) ? StoredValue() : Truth(true);
      };
    }
    return left;
  }

  Expression Not() {
    if (!tokens_.TakeWord("NOT")) return Comparison();
    return [operand = Not()](const Scene& scene) -> StoredValue {
      const StoredValue value = operand(scene);
      return IsNull(value) ? StoredValue() : Truth(!Holds(value));
    };
  }

  Expression Comparison() {
    Expression left = Sum();
    if (tokens_.TakeWord("IS")) {
      const bool negated = tokens_.TakeWord("NOT");
      tokens_.NeedWord("NULL");
      return [a = std::move(left), negated](const Scene& scene) { return Truth(IsNull(a(scene)) != negated); };
    }
    if (tokens_.TakeWord("BETWEEN")) {
      Expression low = Sum();
      tokens_.NeedWord("AND");
      return [a = std::move(left), low, high = Sum()](const Scene& scene) -> StoredValue {
        const StoredValue value = a(scene);
        if (IsNull(value)) return {};
        return Truth(Order(low(scene), value) <= 0 && Order(value, high(scene)) <= 0);
      };
    }
    for (const std::string_view sign : {"=", "<>", "<=", ">=", "<", ">"}) {
      if (!tokens_.TakeSign(sign)) continue;
      return [a = std::move(left), b = Sum(), sign](const Scene& scene) -> StoredValue {
        const StoredValue one = a(scene);
        const StoredValue other = b(scene);
        if (IsNull(one) || IsNull(other)) return {};
        const int order = Order(one, other);
        if (sign == "=") return Truth(order == 0);
        if (sign == "<>") return Truth(order != 0);
        if (sign == "<") return Truth(order < 0);
        if (sign == ">") return Truth(order > 0);
        return Truth(sign == "<=" ? order <= 0 : order >= 0);
      };
    }
    return left;
  }

  Expression Sum() {
    Expression left = Collated();
    while (tokens_.AtSign("+") || tokens_.AtSign("-")) {
      const bool add = tokens_.Take().text == "+";
      left = [a = std::move(left), b = Collated(), add](const Scene& scene) -> StoredValue {
        const StoredValue one = a(scene);
        const StoredValue other = b(scene);
        if (IsNull(one) || IsNull(other)) return {};
        const auto* whole = std::get_if<std::int64_t>(&one);
        const auto* second = std::get_if<std::int64_t>(&other);
        if (whole != nullptr && second != nullptr) return add ? *whole + *second : *whole - *second;
        return add ? Number(one) + Number(other) : Number(one) - Number(other);
      };
    }
    return left;
  }

  // All texts are in the one order anyway.
  Expression Collated() {
    Expression value = Primary();
    if (tokens_.TakeWord("COLLATE") && tokens_.NeedName() != OwnDialect().collation) tokens_.Refuse();
    return value;
  }

  Expression Primary() {
    const Token token = tokens_.Peek();
    switch (token.kind) {
      case Token::Kind::Text:
        tokens_.Take();
        return [text = token.text](const Scene&) { return StoredValue(text); };
      case Token::Kind::Number:
        tokens_.Take();
        return Constant(token.text);
      case Token::Kind::Parameter: {
        tokens_.Take();
        return [number = std::stoul(token.text)](const Scene& scene) { return scene.parameters->at(number); };
      }
      case Token::Kind::Word:
        tokens_.Take();
        if (token.text == "NULL") return [](const Scene&) { return StoredValue(); };
        if (tokens_.AtSign("(")) return Call(token.text);
        tokens_.NeedSign(".");
        if (token.text != from_.alias) tokens_.Refuse();
        return Column(tokens_.NeedName());
      case Token::Kind::Name:
        return Column(tokens_.NeedName());
      default:
        break;
    }
    if (tokens_.TakeSign("-"))
      return [operand = Primary()](const Scene& scene) -> StoredValue {
        const StoredValue value = operand(scene);
        if (IsNull(value)) return {};
        if (const auto* whole = std::get_if<std::int64_t>(&value)) return -*whole;
        return -Number(value);
      };
    tokens_.NeedSign("(");
    if (tokens_.AtWord("SELECT")) {
      auto select = std::make_shared<Select>(ParseSelect(tokens_, disk_));
      tokens_.NeedSign(")");
      return [select](const Scene& scene) { return RunSelect(*select, *scene.parameters).at(0).at(0); };
    }
    Expression inner = Or();
    tokens_.NeedSign(")");
    return inner;
  }

  static Expression Constant(const std::string& text) {
    if (text.find_first_of(".eE") != std::string::npos) return [real = std::stod(text)](const Scene&) { return StoredValue(real); };
    return [whole = std::int64_t{std::stoll(text)}](const Scene&) { return StoredValue(whole); };
  }

  // A column of the one table.
  Expression Column(const std::string& name) {
    const int column = from_.table == nullptr ? -2 : from_.table->Column(name);
    if (column < -1) tokens_.Refuse();
    return [column](const Scene& scene) { return column < 0 ? StoredValue(scene.key) : scene.cells->at(static_cast<std::size_t>(column)); };
  }

  Expression Call(const std::string& word) {
    tokens_.NeedSign("(");
    std::vector<Expression> arguments;
    while (!tokens_.TakeSign(")")) {
      if (!arguments.empty()) tokens_.NeedSign(",");
      arguments.push_back(Or());
    }
    const engine::Dialect& dialect = OwnDialect();
    const auto is = [&](const std::string& name) { return platform::EqualsNoCase(word, name); };
    if (is(dialect.like) || is(dialect.cellPrefix + dialect.like))
      return [arguments](const Scene& scene) -> StoredValue {
        const StoredValue value = arguments.at(0)(scene);
        const StoredValue pattern = arguments.at(1)(scene);
        if (IsNull(value) || IsNull(pattern)) return {};
        return std::int64_t{engine::LikePattern(std::get<std::string>(pattern)).Matches(std::get<std::string>(value)) ? -1 : 0};
      };
    if (is(dialect.cellPrefix + dialect.cellBegin)) return [](const Scene&) { return StoredValue(); };
    if (is(dialect.cellPrefix + dialect.cell)) return arguments.at(1);
    for (const engine::StoreFunction& function : engine::StoreFunctions()) {
      const std::string name(function.name);
      if (!is(dialect.functionPrefix + name) && !is(dialect.cellPrefix + name)) continue;
      return [arguments, call = function.call](const Scene& scene) {
        std::vector<StoredValue> values;
        for (const Expression& argument : arguments) values.push_back(argument(scene));
        return call(values);
      };
    }
    tokens_.Refuse();
  }

  Tokens& tokens_;
  const From& from_;
  const Disk& disk_;
};

}  // namespace

Table& NeedTable(Tokens& tokens, const Disk& disk) {
  const auto file = disk.WithQualifier(tokens.NeedName());
  tokens.NeedSign(".");
  Table* table = file ? file->Find(tokens.NeedName()) : nullptr;
  if (table == nullptr) tokens.Refuse();
  return *table;
}

Expression ParseExpression(Tokens& tokens, const From& from, const Disk& disk) { return Parser(tokens, from, disk).Or(); }

bool IsNull(const StoredValue& value) { return std::holds_alternative<std::monostate>(value); }

int Order(const StoredValue& left, const StoredValue& right) {
  if (IsNull(left) || IsNull(right)) return static_cast<int>(IsNull(right)) - static_cast<int>(IsNull(left));
  const auto* text = std::get_if<std::string>(&left);
  if (text != nullptr) return engine::CompareText(*text, std::get<std::string>(right));
  const double a = Number(left);
  const double b = Number(right);
  return a < b ? -1 : a > b ? 1 : 0;
}

bool Holds(const StoredValue& condition) { return !IsNull(condition) && Number(condition) != 0; }

}  // namespace memory_store
