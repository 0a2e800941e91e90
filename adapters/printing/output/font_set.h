#pragma once

#include <QGlyphRun>
#include <QRawFont>
#include <array>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

#include "printing/layout/page.h"

namespace printing {

/// The one font of all reports, in its four faces. Widths come from the font's own file, without hints and kerning, so that lines and
/// pages break alike on every screen and printer. Needs the toolkit's application object.
class FontSet final : public TextMeasure {
 public:
  FontSet();

  /// Whether the packaged font is there; another one stands in where it isn't, and pages may break elsewhere.
  bool Packaged() const noexcept { return packaged_; }

  double Width(std::string_view text, const TextStyle& style) const override;
  double LineHeight(const TextStyle& style) const override;
  double Ascent(const TextStyle& style) const override;

  /// The style's face, `pixels` high.
  const QRawFont& Sized(const TextStyle& style, double pixels) const;
  /// The glyphs of `text` and where each begins, in ems; false where it must be laid out by the toolkit: it holds what this font
  /// doesn't have, or what is not written one letter after another from left to right.
  bool Glyphs(std::string_view text, const TextStyle& style, std::vector<quint32>& glyphs, std::vector<double>& places) const;

  static QString Family();

 private:
  struct Glyph {
    quint32 index = 0;  ///< 0: the font hasn't got it
    double width = 0;
  };
  struct Face {
    QRawFont font;  ///< an em high in the font's own units
    double em = 1;
    double ascent = 0, lineHeight = 0;
    mutable std::vector<Glyph> latin;
    mutable std::unordered_map<char32_t, Glyph> others;
    mutable std::map<int, QRawFont> sized;
  };
  const Face& FaceOf(const TextStyle& style) const { return faces_[(style.bold ? 1U : 0U) + (style.italic ? 2U : 0U)]; }
  static Glyph Look(const Face& face, char32_t character);
  static const Glyph& GlyphOf(const Face& face, char32_t character);

  std::array<Face, 4> faces_;
  bool packaged_ = true;
};

/// Whether a character stands for itself, behind the one before it and from left to right.
bool IsPlainCharacter(char32_t character);

}  // namespace printing
