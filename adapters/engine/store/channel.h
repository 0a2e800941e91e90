#pragma once

#include <memory>
#include <string_view>

#include "engine/store/statement.h"

namespace engine {

/// What statements are run through, and grouped.
class Channel {
 public:
  virtual ~Channel() = default;

  /// The statement made ready for a run; kept ones are taken up again. Raises what is wrong with the text.
  virtual std::shared_ptr<Statement> Prepare(std::string_view sql) = 0;

  /// Statements that belong together: several reads of one state, or several writes of which all stay or none.
  struct Unit {
    enum class Kind { Read, Write } kind = Kind::Read;
    bool outermost = false;  ///< in no other one
    int depth = 0;           ///< units around it
  };
  /// Units are ended in the reverse order; a unit inside another one is a part of that. Use Transaction.
  virtual Unit BeginUnit(Unit::Kind kind) = 0;
  virtual void CommitUnit(const Unit& unit) = 0;
  virtual void UndoUnit(const Unit& unit) noexcept = 0;
};

/// A unit of reads or writes as long as it lives. Without Commit its writes are undone.
class Transaction {
 public:
  using Kind = Channel::Unit::Kind;
  Transaction(Channel& channel, Kind kind) : channel_(channel), unit_(channel.BeginUnit(kind)) {}
  ~Transaction() {
    if (open_) channel_.UndoUnit(unit_);
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit() {
    channel_.CommitUnit(unit_);
    open_ = false;
  }

 private:
  Channel& channel_;
  Channel::Unit unit_;
  bool open_ = true;
};

}  // namespace engine
