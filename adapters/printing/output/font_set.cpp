#include "printing/output/font_set.h"

#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QStandardPaths>
#include <algorithm>
#include <cmath>

#include "platform/values/text.h"

namespace printing {

namespace {

constexpr std::size_t kLatin = 0x250;
constexpr unsigned char kAscii = 0x80;
/// What a character is given that the font hasn't got: enough for every script, and the same everywhere, whatever font shows it there.
constexpr double kForeignWidth = 1.0;
constexpr double kForeignLetterWidth = 0.6;
constexpr char32_t kFirstWide = 0x1100;
/// Room for the number of pages: four figures.
constexpr int kCountFigures = 4;
constexpr int kSizesPerPixel = 64;

const char* const kFiles[] = {"LiberationSans-Regular.ttf", "LiberationSans-Bold.ttf", "LiberationSans-Italic.ttf",
                              "LiberationSans-BoldItalic.ttf"};

QString FileOf(const char* name) {
  for (const char* folder : {"liberation", "liberation2", "liberation-sans"}) {
    const QString path = QStringLiteral("fonts/truetype/%1/%2").arg(QLatin1String(folder), QLatin1String(name));
    const QString found = QStandardPaths::locate(QStandardPaths::GenericDataLocation, path);
    if (!found.isEmpty()) return found;
  }
  const QString usual = QStringLiteral("/usr/share/fonts/truetype/liberation/") + QLatin1String(name);
  return QFile::exists(usual) ? usual : QString();
}

/// Accents and joiners take no room of their own.
bool TakesNoRoom(char32_t c) {
  return (c >= 0x300 && c <= 0x36F) || (c >= 0x591 && c <= 0x5BD) || (c >= 0x64B && c <= 0x65F) || (c >= 0x200B && c <= 0x200F) ||
         (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || (c >= 0xFE00 && c <= 0xFE0F) || c == 0xFEFF;
}

}  // namespace

bool IsPlainCharacter(char32_t c) {
  if (c < 0x300) return c != 0xAD;
  if (c < 0x370) return false;
  if (c < 0x590) return c < 0x483 || c > 0x489;
  return (c >= 0x1E00 && c < 0x2000) || (c >= 0x2010 && c <= 0x2027) || (c >= 0x2030 && c <= 0x205E) || (c >= 0x2070 && c <= 0x20CF) ||
         (c >= 0x2100 && c <= 0x25FF);
}

QString FontSet::Family() { return QStringLiteral("Liberation Sans"); }

FontSet::FontSet() {
  const bool known = QFontDatabase::hasFamily(Family());
  for (std::size_t at = 0; at < faces_.size(); ++at) {
    Face& face = faces_[at];
    // By way of the toolkit's table of fonts: of one that is opened by itself it would draw outlines into a PDF, and no text.
    if (!known)
      if (const QString file = FileOf(kFiles[at]); !file.isEmpty()) QFontDatabase::addApplicationFont(file);
    QFont font(Family());
    font.setStyleHint(QFont::SansSerif);
    font.setBold((at & 1U) != 0);
    font.setItalic((at & 2U) != 0);
    font.setHintingPreference(QFont::PreferNoHinting);
    face.font = QRawFont::fromFont(font);
    packaged_ = packaged_ && face.font.familyName() == Family();
    // The size is the font's own unit, so that widths come as its file has them.
    face.em = face.font.unitsPerEm() > 0 ? face.font.unitsPerEm() : 1000;
    face.font.setPixelSize(face.em);
    face.ascent = face.font.ascent() / face.em;
    face.lineHeight = (face.font.ascent() + face.font.descent() + std::max(0.0, face.font.leading())) / face.em;
    face.latin.resize(kLatin, Glyph{0, -1});
    for (char32_t character = 0; character < kAscii; ++character) GlyphOf(face, character);
  }
}

FontSet::Glyph FontSet::Look(const Face& face, char32_t character) {
  if (TakesNoRoom(character)) return {0, 0};
  const QString text = QString::fromUcs4(&character, 1);
  const QList<quint32> indexes = face.font.glyphIndexesForString(text);
  if (indexes.isEmpty() || indexes.front() == 0) return {0, character < kFirstWide ? kForeignLetterWidth : kForeignWidth};
  const QList<QPointF> advances = face.font.advancesForGlyphIndexes(indexes, QRawFont::SeparateAdvances);
  return {indexes.front(), advances.isEmpty() ? 0 : advances.front().x() / face.em};
}

const FontSet::Glyph& FontSet::GlyphOf(const Face& face, char32_t character) {
  if (character < kLatin) {
    Glyph& glyph = face.latin[character];
    if (glyph.width < 0) {
      glyph = Look(face, character);
      if (character == static_cast<char32_t>(kPageCountMark)) glyph.width = kCountFigures * GlyphOf(face, U'0').width;
    }
    return glyph;
  }
  const auto found = face.others.find(character);
  if (found != face.others.end()) return found->second;
  return face.others.emplace(character, Look(face, character)).first->second;
}

double FontSet::Width(std::string_view text, const TextStyle& style) const {
  const Face& face = FaceOf(style);
  const Glyph* ascii = face.latin.data();
  double width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte < kAscii) {
      width += ascii[byte].width;
      ++at;
      continue;
    }
    const char32_t character = platform::NextCodePoint(text, at);
    width += GlyphOf(face, character == platform::kInvalidByte ? 0xFFFD : character).width;
  }
  return width;
}

double FontSet::LineHeight(const TextStyle& style) const { return FaceOf(style).lineHeight; }
double FontSet::Ascent(const TextStyle& style) const { return FaceOf(style).ascent; }

const QRawFont& FontSet::Sized(const TextStyle& style, double pixels) const {
  const Face& face = FaceOf(style);
  const int key = static_cast<int>(std::lround(std::clamp(pixels, 0.1, 10000.0) * kSizesPerPixel));
  const auto found = face.sized.find(key);
  if (found != face.sized.end()) return found->second;
  // Zooming goes through many sizes.
  constexpr std::size_t kMostSizes = 64;
  if (face.sized.size() >= kMostSizes) face.sized.clear();
  QRawFont font = face.font;
  font.setPixelSize(static_cast<double>(key) / kSizesPerPixel);
  return face.sized.emplace(key, font).first->second;
}

bool FontSet::Glyphs(std::string_view text, const TextStyle& style, std::vector<quint32>& glyphs, std::vector<double>& places) const {
  const Face& face = FaceOf(style);
  glyphs.clear();
  places.clear();
  double place = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = platform::NextCodePoint(text, at);
    if (!IsPlainCharacter(character)) return false;
    const Glyph& glyph = GlyphOf(face, character);
    if (glyph.index == 0) return false;
    glyphs.push_back(glyph.index);
    places.push_back(place);
    place += glyph.width;
  }
  return true;
}

}  // namespace printing
