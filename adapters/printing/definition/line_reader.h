#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "printing/definition/report_definition.h"

namespace printing {

/// What is wrong with a line, and at which byte of it.
struct LineError {
  std::size_t column = 0;
  std::string text;
};

/// One line of a report file, read from left to right. What isn't there as asked raises LineError.
class LineReader {
 public:
  /// `number`: the line's in its file.
  LineReader(std::string_view line, int number) : line_(line), number_(number) {}

  /// Whether nothing but blanks and a comment is left.
  bool AtEnd();
  void RequireEnd();

  /// Letters, digits, underscores and hyphens, the first one a letter.
  std::string Word();
  /// Moves on when that word comes next.
  bool SkipWord(std::string_view word);
  /// The same where a minus sign and a number may follow without a blank: "right-2".
  bool SkipWordBeforeNumber(std::string_view word);
  void RequireWord(std::string_view word);
  /// A word, or any text in double quotes.
  std::string Name();
  std::string Text();
  double Number(double lowest, double highest);
  int WholeNumber(int lowest, int highest);
  bool AtNumber();
  bool AtMinus() const { return at_ < line_.size() && line_[at_] == '-'; }
  Color ReadColor();
  Expression ReadExpression();
  /// A field, or a formula that is one.
  Expression ReadField();

  [[noreturn]] void Fail(std::string text) const { throw LineError{at_, std::move(text)}; }
  [[noreturn]] static void FailAt(std::size_t column, std::string text) { throw LineError{column, std::move(text)}; }
  /// Where the next thing begins.
  std::size_t Column() {
    SkipBlanks();
    return at_;
  }

 private:
  void SkipBlanks();
  std::string_view WordHere() const;

  std::string_view line_;
  int number_;
  std::size_t at_ = 0;
};

}  // namespace printing
