#pragma once

#include <string>
#include <vector>

namespace streets {

/// A ZIP as addresses hold it.
struct WrittenZip {
  std::string zip;     ///< five digits; "" where there is none
  bool whole = false;  ///< five digits or five and four as they should be; nothing had to be mended
  explicit operator bool() const { return !zip.empty(); }
};

/// The ZIP that all the words make: "59645", "59645-1234", "59645 1234", "596451234"; damaged: without its leading zeros ("2134",
/// "501"), with letters for digits ("O2134"), with too many or too few digits behind the first five.
WrittenZip ZipOf(const std::vector<std::string>& words);

/// Takes a whole ZIP off the end of words that hold more ("SPRINGFIELD IL 62701"); the number of a highway stays.
WrittenZip TakeZip(std::vector<std::string>& words);

}  // namespace streets
