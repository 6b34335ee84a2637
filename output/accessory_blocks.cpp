#include "output/accessory_blocks.h"

#include <array>
#include <string_view>

#include "core/model.h"
#include "core/numbers.h"
#include "output/accessory_rows.h"
#include "project/error_names.h"

namespace orvane {

namespace {

// Cleats at the ends of a vertical cladding rail.
struct Cleat {
  std::string_view Code;
  double HoleDistance;  // of the rail's hole from the end of the assembly, mm
};

constexpr std::array<Cleat, 5> Cleats = {{
    {"KT31", 100},
    {"KT33", 100},
    {"KT36", 100},
    {"KT39", 120},
    {"KT41", 120},
}};

constexpr std::string_view VcrProduct = "VCR";

// C-channels: all of one product, notched at their four corners.
constexpr std::string_view ChannelProduct = "30116";
constexpr double ChannelLengthAllowance = 104;  // length beyond the entered distance, mm
constexpr double ChannelHoleAllowance = 52;     // the same at one end, for the middle hole, mm
constexpr int ChannelEndHole = 25;              // from either end, mm
constexpr std::int16_t ChannelNotchSize = 62;   // where none was entered, mm
constexpr std::string_view ChannelNotchWidth = "25";
// "BR2" twice and no "TL1": four notches, the last two with one code, as the line's program for
// this channel reads them.
constexpr std::array<std::string_view, 4> ChannelNotchCodes = {"TR1", "BL1", "BR2", "BR2"};

// Sleeves of fixed sizes.
struct FixedSleeve {
  std::int16_t AccIndex;
  std::int16_t ParamIndex;
  std::string_view Mark;
  std::string_view Product;
};

constexpr std::array<FixedSleeve, 5> FixedSleeves = {{
    {DeepSleeveRow, 1, "KSL301", "K30124"},
    {DeepSleeveRow, 2, "KSL321", "K32124"},
    {DeepSleeveRow, 3, "KSL351", "K35124"},
    {HalfSleeveRow, 1, "KHL90", "KHL90"},
    {HalfSleeveRow, 2, "KHL190", "KHL190"},
}};

constexpr std::string_view SquareEnds = "0.0 0.0";

// A hole of a rail or a channel, in the two web rows. Unlike those of a section block its line is
// not filled up.
void WriteFixedHoleLine(FactoryWriter& out, double position) {
  out.Position(position).Line("n y y n 14");  // RailHoleDiameter on RailHoleLines
}

void WriteFixedHoleLines(FactoryWriter& out, const RailBlock& block) {
  for (const double position : block.Holes) WriteFixedHoleLine(out, position);
}

// The quantity must be a number from end to end, else "Type mismatch" where it is to be written.
void WriteVcrBlock(FactoryWriter& out, const RailBlock& block) {
  out.Line("VCR");
  out.Line(block.Mark);
  out.Line(block.Product);
  out.Line(ShortestText(ParseDouble(block.Quantity)));
  out.Line(ShortestText(block.Length));
  out.Line("2");
  WriteFixedHoleLines(out, block);
  out.Line(SquareEnds);
  out.Line("0");
  out.Line();
}

void WriteVcrBlocks(FactoryWriter& out, const AccLine2& line) {
  for (const RailBlock& block : VcrBlocksOf(line)) WriteVcrBlock(out, block);
}

std::int16_t NotchSize(const std::string& value) {
  // Rounded before it is looked at: 0.4 is no size.
  const std::int16_t size = Whole(Val(value));
  return size > 0 ? size : ChannelNotchSize;
}

void WriteChannelBlock(FactoryWriter& out, const AccLine2& line) {
  const RailBlock block = ChannelBlockOf(line);
  std::array<std::int16_t, ChannelNotchCodes.size()> sizes{};
  for (int n = 1; n <= 4; ++n) {
    sizes.at(static_cast<std::size_t>(n - 1)) = NotchSize(line.Values.At(n + 1));
  }

  out.Line("C-CHANNEL");
  out.Line(block.Mark);
  out.Line(block.Product);
  out.Line(block.Quantity);
  out.Line(ShortestText(block.Length));
  out.Line(DecimalText(static_cast<long long>(block.Holes.size())));
  WriteFixedHoleLines(out, block);
  out.Line(SquareEnds);
  out.Line("4");
  for (std::size_t n = 0; n < sizes.size(); ++n) {
    out.NotchCode(ChannelNotchCodes.at(n));
    out.Blank().Text(ShortestText(sizes.at(n))).Blank().Line(ChannelNotchWidth);
  }
  out.Line();
}

void WriteSleeveBlock(FactoryWriter& out, std::string_view mark, std::string_view product,
                      std::int16_t quantity) {
  out.Line("SLEEVE");
  out.Line(mark);
  out.Line(product);
  out.Line(ShortestText(quantity));
  out.Line();
}

void WritePurlinSleeveBlock(FactoryWriter& out, const AccLine2& line) {
  WriteSleeveBlock(out, line.Mark, line.Values.At(1), line.NoOff);
}

void WriteFixedSleeveBlock(FactoryWriter& out, const AccLine1& line) {
  for (const FixedSleeve& sleeve : FixedSleeves) {
    if (sleeve.AccIndex == line.AccIndex && sleeve.ParamIndex == line.ParamIndex) {
      WriteSleeveBlock(out, sleeve.Mark, sleeve.Product, line.Qty);
    }
  }
}

// The blocks of all lines of one accessory. An error names the accessory and the line's mark.
void WriteBlocks2(FactoryWriter& out, std::int16_t accessory,
                  void (*write)(FactoryWriter& out, const AccLine2& line)) {
  for (const AccLine2& line : AccLines2) {
    if (line.AccIndex != accessory) continue;
    InNameOfAccessory(accessory, line.Mark, [&] { write(out, line); });
  }
}

}  // namespace

std::int16_t VcrInset(const std::string& cleatCode, const std::string& allowance) {
  for (const Cleat& cleat : Cleats) {
    if (cleat.Code == cleatCode) return Whole(cleat.HoleDistance - Val(allowance));
  }
  throw RuntimeError(Failure::TypeMismatch, "unknown cleat code \"" + cleatCode + "\"");
}

std::vector<RailBlock> VcrBlocksOf(const AccLine2& line) {
  const Table<std::string>& values = line.Values;
  const bool asDrawn = Val(values.At(1)) > 0;
  const bool oppositeHand = Val(values.At(2)) > 0;
  std::vector<RailBlock> blocks;
  if (!asDrawn && !oppositeHand) return blocks;

  const std::int16_t length = Whole(Val(values.At(3)) - Val(values.At(4)) - Val(values.At(5)));
  const double start = VcrInset(values.At(6), values.At(5));
  const double end = VcrInset(values.At(7), values.At(4));
  const auto add = [&](const std::string& mark, const std::string& quantity, double first,
                       double second) {
    blocks.push_back({mark, std::string(VcrProduct), quantity, length, {first, second}});
  };
  if (asDrawn) add(line.Mark, values.At(1), start, length - end);
  if (oppositeHand) add(line.Mark + "X", values.At(2), end, length - start);
  return blocks;
}

RailBlock ChannelBlockOf(const AccLine2& line) {
  const std::int16_t length = Whole(Val(line.Values.At(1)) + ChannelLengthAllowance);
  const double middle = Val(line.Values.At(6));
  RailBlock block = {line.Mark, std::string(ChannelProduct), ShortestText(line.NoOff), length, {}};
  block.Holes.push_back(ChannelEndHole);
  if (middle > 0) block.Holes.push_back(middle + ChannelHoleAllowance);
  block.Holes.push_back(length - ChannelEndHole);
  return block;
}

void WriteAccessoryBlocks(FactoryWriter& out) {
  WriteBlocks2(out, VcrAssemblyRow, WriteVcrBlocks);
  WriteBlocks2(out, CChannelRow, WriteChannelBlock);
  WriteBlocks2(out, PurlinSleeveRow, WritePurlinSleeveBlock);
  for (const std::int16_t accessory : {DeepSleeveRow, HalfSleeveRow}) {
    for (const AccLine1& line : AccLines1) {
      if (line.AccIndex == accessory) WriteFixedSleeveBlock(out, line);
    }
  }
}

}  // namespace orvane
