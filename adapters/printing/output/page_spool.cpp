#include "printing/output/page_spool.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>

#include "printing/data/report_errors.h"

namespace printing {

namespace {

enum class Kind : std::uint8_t { Text, Line, Box };
enum Flag : std::uint8_t { kBold = 1, kItalic = 2, kCenter = 4, kRight = 8, kPageCount = 16, kFill = 32 };

/// Numbers and texts one behind the other, as this machine keeps them: the file never leaves the process.
class Writer {
 public:
  explicit Writer(std::string& to) : to_(to) {}
  template <class T>
  void Put(T value) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    to_.append(bytes, sizeof value);
  }
  /// To a thousandth of a point, far below what is seen.
  void Length(double inches) { Put(static_cast<float>(inches)); }
  void Put(const Color& color) {
    Put(color.red);
    Put(color.green);
    Put(color.blue);
  }
  void Text(const std::string& text) {
    Put(static_cast<std::uint32_t>(text.size()));
    to_ += text;
  }

 private:
  std::string& to_;
};

class Reader {
 public:
  explicit Reader(std::string_view from) : from_(from) {}
  bool AtEnd() const { return from_.empty(); }
  std::string_view Take(std::size_t bytes) {
    if (bytes > from_.size()) throw std::logic_error("a page of the temporary file is cut off");
    const std::string_view taken = from_.substr(0, bytes);
    from_.remove_prefix(bytes);
    return taken;
  }
  template <class T>
  T Get() {
    T value;
    std::memcpy(&value, Take(sizeof value).data(), sizeof value);
    return value;
  }
  double Length() { return Get<float>(); }
  Color Colour() {
    Color color;
    color.red = Get<std::uint8_t>();
    color.green = Get<std::uint8_t>();
    color.blue = Get<std::uint8_t>();
    return color;
  }

 private:
  std::string_view from_;
};

void Put(Writer& to, const TextItem& item) {
  const TextStyle& style = item.style;
  to.Put(Kind::Text);
  unsigned flags = 0;
  if (style.bold) flags |= kBold;
  if (style.italic) flags |= kItalic;
  if (style.align == Align::Center) flags |= kCenter;
  if (style.align == Align::Right) flags |= kRight;
  if (item.hasPageCount) flags |= kPageCount;
  to.Put(static_cast<std::uint8_t>(flags));
  for (const double length : {item.x, item.y, item.width, item.height, style.points}) to.Length(length);
  to.Put(style.color);
  to.Text(item.text);
}

void Put(Writer& to, const LineItem& item) {
  to.Put(Kind::Line);
  for (const double length : {item.x1, item.y1, item.x2, item.y2, item.penWidth}) to.Length(length);
  to.Put(item.color);
}

void Put(Writer& to, const BoxItem& item) {
  to.Put(Kind::Box);
  to.Put(static_cast<std::uint8_t>(item.fill ? kFill : 0));
  for (const double length : {item.x, item.y, item.width, item.height, item.penWidth}) to.Length(length);
  to.Put(item.color);
  to.Put(item.fill.value_or(Color{}));
}

TextItem GetText(Reader& from) {
  TextItem item;
  const unsigned flags = from.Get<std::uint8_t>();
  for (double* length : {&item.x, &item.y, &item.width, &item.height, &item.style.points}) *length = from.Length();
  item.style.bold = (flags & kBold) != 0;
  item.style.italic = (flags & kItalic) != 0;
  if (flags & kCenter) item.style.align = Align::Center;
  if (flags & kRight) item.style.align = Align::Right;
  item.hasPageCount = (flags & kPageCount) != 0;
  item.style.color = from.Colour();
  item.text = from.Take(from.Get<std::uint32_t>());
  return item;
}

LineItem GetLine(Reader& from) {
  LineItem item;
  for (double* length : {&item.x1, &item.y1, &item.x2, &item.y2, &item.penWidth}) *length = from.Length();
  item.color = from.Colour();
  return item;
}

BoxItem GetBox(Reader& from) {
  BoxItem item;
  const unsigned flags = from.Get<std::uint8_t>();
  for (double* length : {&item.x, &item.y, &item.width, &item.height, &item.penWidth}) *length = from.Length();
  item.color = from.Colour();
  const Color fill = from.Colour();
  if (flags & kFill) item.fill = fill;
  return item;
}

[[noreturn]] void Fail(const char* what) {
  throw ReportFailure(ReportError::OutputFailed,
                      std::string("the temporary file of the pages can't be ") + what + ": " + std::strerror(errno));
}

/// A file without a name in the system's folder for them.
int OpenNameless() {
  std::error_code none;
  std::string name = (std::filesystem::temp_directory_path(none) / "orcussch-pages-XXXXXX").string();
  const int file = mkostemp(name.data(), O_CLOEXEC);
  if (file < 0) Fail("made");
  unlink(name.c_str());
  return file;
}

}  // namespace

PageSpool::PageSpool() : file_(OpenNameless()) {}
PageSpool::~PageSpool() { close(file_); }

void PageSpool::Add(const Page& page) {
  buffer_.clear();
  Writer to(buffer_);
  to.Put(page.width);
  to.Put(page.height);
  for (const PageItem& item : page.items) std::visit([&to](const auto& one) { printing::Put(to, one); }, item);
  const std::int64_t start = starts_.back();
  for (std::size_t done = 0; done < buffer_.size();) {
    const ssize_t wrote = pwrite(file_, buffer_.data() + done, buffer_.size() - done, start + static_cast<std::int64_t>(done));
    if (wrote < 0 && errno == EINTR) continue;
    if (wrote <= 0) Fail("written");
    done += static_cast<std::size_t>(wrote);
  }
  starts_.push_back(start + static_cast<std::int64_t>(buffer_.size()));
}

Page PageSpool::Read(std::int64_t page) const {
  if (page < 0 || page >= Count()) throw std::out_of_range("no such page");
  const std::int64_t start = starts_[static_cast<std::size_t>(page)];
  std::string bytes(static_cast<std::size_t>(starts_[static_cast<std::size_t>(page) + 1] - start), '\0');
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t got = pread(file_, bytes.data() + done, bytes.size() - done, start + static_cast<std::int64_t>(done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) Fail("read");
    done += static_cast<std::size_t>(got);
  }
  Reader from(bytes);
  Page read;
  read.width = from.Get<double>();
  read.height = from.Get<double>();
  while (!from.AtEnd()) {
    switch (from.Get<Kind>()) {
      case Kind::Text:
        read.items.emplace_back(GetText(from));
        break;
      case Kind::Line:
        read.items.emplace_back(GetLine(from));
        break;
      case Kind::Box:
        read.items.emplace_back(GetBox(from));
        break;
    }
  }
  return read;
}

}  // namespace printing
