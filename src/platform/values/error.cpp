#include "platform/values/error.h"

namespace platform::error {

Error InvalidCall() { return {number::InvalidCall, "Invalid procedure call or argument"}; }
Error Overflow() { return {6, "Overflow"}; }
Error OutOfMemory() { return {7, "Out of memory"}; }
Error SubscriptOutOfRange() { return {9, "Subscript out of range"}; }
Error DivisionByZero() { return {11, "Division by zero"}; }
Error TypeMismatch() { return {13, "Type mismatch"}; }
Error FileNotFound() { return {53, "File not found"}; }
Error PathNotFound() { return {76, "Path not found"}; }
Error ObjectNotSet() { return {91, "Object variable or With block variable not set"}; }
Error InvalidPattern() { return {93, "Invalid pattern string"}; }
Error InvalidUseOfNull() { return {94, "Invalid use of Null"}; }
Error ObjectRequired() { return {424, "Object required"}; }
Error NoSuchProperty() { return {438, "Object doesn't support this property or method"}; }
Error NoCurrentRecord() { return {3021, "No current record."}; }
Error RecordDeleted() { return {number::RecordDeleted, "Record is deleted."}; }
Error ItemNotFound() { return {3265, "Item not found in this collection."}; }
Error ObjectClosed() { return {3420, "Object invalid or no longer set."}; }
Error ActionCancelled() { return {3426, "The action was cancelled by an associated object."}; }

}  // namespace platform::error
