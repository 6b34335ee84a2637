#include "ui/platform/qt_font_metrics.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

#include "core/numbers.h"
#include "ui/platform/qt_text.h"

// The fonts lie in a library: without this call the linker would leave them out. It must stand
// outside every namespace.
static void KeepFonts() {
  Q_INIT_RESOURCE(fonts);
}

namespace orvane {

namespace {

constexpr double TwipsPerPoint = 20;
constexpr char ShippedFamily[] = "Liberation Sans";

// Gives the shipped fonts to the toolkit, once.
bool LoadShippedFonts() {
  KeepFonts();
  for (const char* style : {"Regular", "Bold", "Italic", "BoldItalic"}) {
    QFontDatabase::addApplicationFont(QString(":/fonts/LiberationSans-%1.ttf").arg(style));
  }
  return true;
}

int WholeSize(double points) {
  const double twips = Nearest(points * TwipsPerPoint);
  if (!(twips >= 1)) return 1;  // no number at all, too
  return static_cast<int>(std::min(twips, double{GreatestFontSize}));
}

// The character of one or two bytes of UTF-8 that begins there, `at` moved to its last byte; a very
// large number for any other.
std::size_t CharacterAt(std::string_view text, std::size_t& at) {
  constexpr std::size_t other = 0x110000;
  const std::size_t first = static_cast<unsigned char>(text[at]);
  if (first < 0x80) return first;
  if (first < 0xc2 || first >= 0xe0 || at + 1 == text.size()) return other;
  const std::size_t second = static_cast<unsigned char>(text[++at]);
  if ((second & 0xc0) != 0x80) return other;
  return (first & 0x1f) << 6 | (second & 0x3f);
}

// A character that stands for itself, whatever stands beside it.
bool StandsAlone(int character) {
  constexpr int deleteMark = 0x7f;
  constexpr int firstUpper = 0xa0;
  constexpr int softHyphen = 0xad;
  return (character >= ' ' && character < deleteMark) ||
         (character >= firstUpper && character != softHyphen);
}

}  // namespace

QFont SheetFont(const Font& font) {
  static const bool loaded = LoadShippedFonts();
  QStringList families(ShippedFamily);
  if (loaded && font.Name != "Arial") families.prepend(ToQt(font.Name));
  QFont result(families);
  result.setPixelSize(WholeSize(font.Size));
  result.setBold(font.Bold);
  result.setItalic(font.Italic);
  result.setKerning(false);
  result.setHintingPreference(QFont::PreferNoHinting);
  result.setStyleStrategy(QFont::StyleStrategy(QFont::PreferOutline | QFont::PreferQuality));
  return result;
}

QString SheetText(std::string_view text) {
  QString result = ToQt(text);
  for (QChar& character : result) {
    if (character < u' ') character = u' ';
  }
  return result;
}

QtFontMetrics::Measures QtFontMetrics::MeasuresOf(const Font& font) {
  const QFontMetricsF metrics(SheetFont(font));
  Measures measures;
  measures.Type = font;
  measures.Height = metrics.height();
  measures.Ascent = metrics.ascent();
  const double blank = metrics.horizontalAdvance(QChar(u' '));
  for (std::size_t i = 0; i < KeptCharacters; ++i) {
    const auto character = static_cast<int>(i);
    double& advance = measures.Advances.at(i);
    advance = -1;
    if (character < ' ') advance = blank;
    if (StandsAlone(character)) advance = metrics.horizontalAdvance(QString(QChar(character)));
  }
  return measures;
}

const QtFontMetrics::Measures& QtFontMetrics::Find(const Font& font) const {
  if (last_ < known_.size() && known_[last_].Type == font) return known_[last_];
  const auto found = std::find_if(known_.begin(), known_.end(),
                                  [&](const Measures& one) { return one.Type == font; });
  last_ = static_cast<std::size_t>(found - known_.begin());
  if (found == known_.end()) known_.push_back(MeasuresOf(font));
  return known_[last_];
}

double QtFontMetrics::Width(const Font& font, std::string_view text) const {
  const Measures& measures = Find(font);
  double width = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t character = CharacterAt(text, at);
    const double advance = character < KeptCharacters ? measures.Advances[character] : -1;
    // Characters that change each other's width are measured together.
    if (advance < 0) return QFontMetricsF(SheetFont(font)).horizontalAdvance(SheetText(text));
    width += advance;
  }
  return width;
}

double QtFontMetrics::Height(const Font& font) const {
  return Find(font).Height;
}

double QtFontMetrics::Ascent(const Font& font) const {
  return Find(font).Ascent;
}

const FontMetrics& SheetMetrics() {
  static const QtFontMetrics metrics;
  return metrics;
}

}  // namespace orvane
