#include "output/section_blocks.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "core/section_families.h"

namespace orvane {

namespace {

constexpr std::size_t HoleLineWidth = 41;

struct BlockForm {
  std::string_view Keyword;
  bool Mirrored;  // it goes through the line end for end
};

constexpr PerFamily<BlockForm> BlockForms = {{
    {"Z", {"PURLIN", true}},
    {"C", {"C-SECTION", false}},
    {"E", {"EAVES BEAM", false}},
    {"R", {"CLEADER", false}},
    {"V", {"VCR", false}},
    {"T", {"TOPHAT", false}},
}};
static_assert(NamesEachFamily(BlockForms), "BlockForms needs one row for each section family");

// How the notches of a mirrored section are written.
struct MirroredNotch {
  std::string_view Stored;
  std::string_view Written;
  bool FromOtherEnd;  // the position is measured from the other end
};

constexpr std::array<MirroredNotch, 8> MirroredNotches = {{
    {"TL1", "TR1", false},
    {"TR1", "TL1", false},
    {"L3", "R3", false},
    {"R3", "L3", false},
    {"BL1", "BR1", false},
    {"BR1", "BL1", false},
    {"T2", "T2", true},
    {"B2", "B2", true},
}};

std::string PitchText(const std::string& pitch) {
  return IsNumber(pitch) ? FormatNumber(ParseDouble(pitch), 1) : pitch;
}

void WriteHoleLine(FactoryWriter& out, const Item& item, const Hole& hole, bool mirrored) {
  // A hole beyond a mirrored section's end comes out negative; plain integers bear the widest
  // difference.
  const int x = mirrored ? item.Length - hole.XPos : hole.XPos;
  out.Position(x);
  out.Text(hole.BF).Blank();
  out.Text(hole.W1).Blank();
  out.Text(hole.W2).Blank();
  out.Text(hole.TF).Blank();
  out.Text(FormatNumber(hole.Diameter, 0));
  if (hole.CounterSunk == CounterSunkMark) {
    out.Text(" x");
  } else if (hole.SlotLength > 0) {
    // The slot's extension beyond the round hole, a 32-bit figure as its two parts are.
    out.Blank().Text(FormatNumber(hole.SlotLength - hole.Diameter, 0));
  }
  out.Fit(HoleLineWidth).EndLine();
}

void WriteNotchLine(FactoryWriter& out, const Item& item, const Notch& notch, bool mirrored) {
  std::string_view code = notch.Code;
  double position = notch.Size3;
  std::string positionText = FormatNumber(notch.Size3, 0);
  for (const MirroredNotch& rule : MirroredNotches) {
    if (!mirrored || rule.Stored != notch.Code) continue;
    code = rule.Written;
    if (!rule.FromOtherEnd) continue;
    // Wider than a 32-bit figure, which would lose decimals of a position far from the end.
    position = item.Length - position;
    positionText = FormatNumber(position, 0);
  }
  out.NotchCode(code);
  out.Blank().Text(FormatNumber(notch.Size1, 0));
  out.Blank().Text(FormatNumber(notch.Size2, 0));
  if (position > 0) out.Blank().Text(positionText);
  out.EndLine();
}

}  // namespace

bool GoesEndForEnd(std::string_view sectionType) {
  const BlockForm* form = FactOf(BlockForms, sectionType);
  return form != nullptr && form->Mirrored;
}

void WriteSectionBlock(FactoryWriter& out, const Item& item) {
  const SectionFamily* family = FamilyOf(item.SectionType);
  const BlockForm* form = FactOf(BlockForms, item.SectionType);
  const bool mirrored = GoesEndForEnd(item.SectionType);

  if (form != nullptr) out.Line(form->Keyword);
  out.Line(item.Mark);
  out.Line(item.Product);
  if (family != nullptr && family->HasPitch) out.Line(PitchText(item.Pitch));
  out.Line(ShortestText(item.Quantity));
  out.Line(FormatNumber(static_cast<double>(item.Length), 0));
  out.Line(ShortestText(item.HoleCount()));
  for (const Hole& hole : item.Holes) WriteHoleLine(out, item, hole, mirrored);
  out.Line(FormatNumber(item.MitreLeft, 1) + " " + FormatNumber(item.MitreRight, 1));
  out.Line(ShortestText(item.NotchCount()));
  for (const Notch& notch : item.Notches) WriteNotchLine(out, item, notch, mirrored);
  out.Line();
}

}  // namespace orvane
