// Where things stand on a section's sheet, in one place: a sheet is read by these rows and columns,
// and what moves one of them has to look at its neighbours. Millimetres of the page; what is
// called an inset counts from the left margin, what is called a drop from the line above it.
#pragma once

namespace orvane {

// The two views side by side. Left of them stand the dimensions of the cross-section and the labels
// of the rows above; the right gap keeps a full-length elevation's last figures off the margin.
constexpr double SectionViewInset = 14;
constexpr double ElevationInset = 45;
constexpr double ElevationRightGap = 4;

constexpr double ViewTop = 100;     // top of both views
constexpr double CrossScale = 0.1;  // depths: one drawn millimetre for ten real ones

// Above the views three bands lie on one another, each 6 mm high with its dimension 2 mm below its
// top, so that a mitre, a notch and a flange at one place never write over each other. Extension
// lines reach from the top to the bottom of a band.
struct DimensionBand {
  double Top = 0;
  double Row = 0;  // of the dimension
  double Bottom = 0;
};
constexpr DimensionBand MitreBand{80, 82, 86};
constexpr DimensionBand NotchBand{86, 88, 92};
constexpr DimensionBand FlangeBand{92, 94, 98};  // over the cross-section alone
constexpr double FlangeCentreEnd = 102;          // its middle is marked across the flange itself

// Letters of off-gauge holes: between the notches' band and the elevation.
constexpr double OffGaugeLetterRow = 95;

// The section's length, from the top of its elevation up: its line stands clear of the mitres, and
// its extension lines pass all the bands.
constexpr DimensionBand LengthBand{26, 24, 2};

// The list of slots, a line of text above all dimensions of a level elevation.
constexpr double SlotListRow = 68.8;

// What a row over the elevation is called ends this far left of it.
constexpr double RowLabelGap = 1;

// Below the views the chain of gaps: extension lines, the values between them, and lower down the
// values that are too wide for their gap.
constexpr DimensionBand ChainBand{2, 6, 8};
constexpr double NarrowGapRow = 10;
// Below a value the running positions, in two rows by turns, so that neighbours have room.
constexpr double OddTotalDrop = 4.5;
constexpr double EvenTotalDrop = 8;
// The legend of diameters, clear of the lowest of them.
constexpr double LegendDrop = 24;
constexpr double LegendHalfHeight = 2.1;

// The dimension of a cross-section's edge, from the edge outwards. Upright ones stand closer, since
// their values are only as high as a letter.
struct EdgeOffsets {
  double Outer = 0;  // far end of the extension lines
  double Inner = 0;  // near end
  double Row = 0;    // of the dimension
};
constexpr EdgeOffsets UprightEdge{7, 2, 5};
constexpr EdgeOffsets LevelEdge{8, 2, 6};

// The block of text in the top left corner, below the top margin. The label of the jointing pieces
// is longer than the others, and its number stands further in.
constexpr double TextBlockDrop = 15;
constexpr double TextBlockStep = 5;
constexpr double LabelInset = 5;
constexpr double ValueInset = 25;
constexpr double JointingValueInset = 55;
// A text ends this far before what stands right of it. What the table of off-gauge holes leaves to
// the block, from the left margin on, is as much as its longest line of fixed words takes.
constexpr double TextGap = 3;
constexpr double TextBlockLeastWidth = 62;

// The key of off-gauge holes in the top right corner: its origin from the right margin and below
// the top one. Their table ends half of its gap left of that, clear of the key's own dimensions,
// and where it takes more than one part they stand between its row and the list of slots.
constexpr double KeyInset = 20;
constexpr double KeyDrop = 20;
constexpr double OffGaugeTitleDrop = 15;
constexpr double OffGaugeTableDrop = 20;
constexpr double OffGaugeTableGap = 30;

// The picture of a cleader rail's joint, below the elevation of the deepest rail. Its height
// follows the picture.
struct PicturePlace {
  double Left = 0;
  double Top = 0;
  double Width = 0;
};
constexpr PicturePlace RailDetail{160, 125, 75};
// The width of the page that it stands so on. On another one it moves with the middle, below which
// the legend is centred, since its picture leaves room for the legend there.
constexpr double RailDetailPage = 297;
constexpr double RailDetailProportion = 1.8;  // of its width to its height, at least

}  // namespace orvane
