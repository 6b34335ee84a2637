#include "ui/platform/colour_scheme.h"

#include <QApplication>
#include <QToolTip>
#include <array>

namespace orvane {

namespace {

// A role and its colour in both schemes.
struct RoleColours {
  QPalette::ColorRole Role;
  QRgb Light;
  QRgb Dark;
};

constexpr std::array<RoleColours, 17> Colours = {{
    {QPalette::Window, 0xFFEFEFEF, 0xFF2B2D30},
    {QPalette::WindowText, 0xFF000000, 0xFFECECEC},
    {QPalette::Base, 0xFFFFFFFF, 0xFF1E1F22},
    {QPalette::AlternateBase, 0xFFF7F7F7, 0xFF26282B},
    {QPalette::Text, 0xFF000000, 0xFFECECEC},
    {QPalette::PlaceholderText, 0xFF646464, 0xFFA4A7AD},
    {QPalette::Button, 0xFFEFEFEF, 0xFF3A3D41},
    {QPalette::ButtonText, 0xFF000000, 0xFFECECEC},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::ToolTipBase, 0xFFFFFFDC, 0xFF3F4247},
    {QPalette::ToolTipText, 0xFF000000, 0xFFECECEC},
    {QPalette::Light, 0xFFFFFFFF, 0xFF55585D},
    {QPalette::Midlight, 0xFFCBCBCB, 0xFF45484D},
    {QPalette::Mid, 0xFFB8B8B8, 0xFF5E6167},
    {QPalette::Dark, 0xFF9F9F9F, 0xFF191A1C},
    {QPalette::Shadow, 0xFF767676, 0xFF000000},
    {QPalette::Highlight, 0xFF1F69A8, 0xFF2F6FB0},
}};

// Links lie on windows and on fields; what was visited is no other colour, nobody asks for it here.
constexpr QRgb LinkOnLight = 0xFF0B57A4;
constexpr QRgb LinkOnDark = 0xFF8AB4F8;

constexpr QRgb DisabledOnLight = 0xFF8A8A8A;
constexpr QRgb DisabledOnDark = 0xFF808389;
constexpr QRgb DisabledBarOnLight = 0xFF919191;
constexpr QRgb DisabledBarOnDark = 0xFF55585D;

constexpr int HalfLight = 128;

ColourScheme SchemeOf(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightness() < HalfLight;
  return dark ? ColourScheme::Dark : ColourScheme::Light;
}

}  // namespace

QPalette SchemePalette(ColourScheme scheme) {
  const bool dark = scheme == ColourScheme::Dark;
  QPalette palette;
  for (const RoleColours& colour : Colours) {
    palette.setColor(colour.Role, QColor(dark ? colour.Dark : colour.Light));
  }
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(dark ? LinkOnDark : LinkOnLight));
  palette.setColor(QPalette::LinkVisited, QColor(dark ? LinkOnDark : LinkOnLight));
  const QColor faint(dark ? DisabledOnDark : DisabledOnLight);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Window));
  palette.setColor(QPalette::Disabled, QPalette::Highlight,
                   QColor(dark ? DisabledBarOnDark : DisabledBarOnLight));
  return palette;
}

void FollowColourScheme() {
  const ColourScheme own = SchemeOf(QGuiApplication::palette());
  const auto show = [own](std::optional<ColourScheme> asked) {
    const QPalette palette = SchemePalette(asked.value_or(own));
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
  };
  show({});
  WatchDesktopScheme(*qApp, show);
}

}  // namespace orvane
