// What the routines of one sheet hold between them; set at the start of each section drawing.
#pragma once

#include <cstdint>

namespace orvane {

// Left edges of the two views on the page, and how far each stands in from the left margin, mm.
extern double SectionViewLeft;
extern double ElevationLeft;
constexpr double SectionViewInset = 14;
constexpr double ElevationInset = 45;

constexpr double ViewTop = 100;     // top of both views, mm
constexpr double CrossScale = 0.1;  // depths: one drawn millimetre for ten real ones
extern double LengthScale;          // lengths: fitted to the page, at most 0.1
// Counts the running positions written below one elevation, from 1, so that they alternate between
// two rows.
extern std::int16_t HoleLabelRow;

// DrawingWidth for a page of that width in twips with the present margins: the room for the
// elevation, to the nearest whole millimetre, ties to even; "Overflow" beyond 16 bits.
std::int16_t DrawingWidthOf(double pageWidth);

// The scale of lengths in that room for a section of that length, mm: at most 1:10.
double LengthScaleOf(std::int16_t drawingWidth, double length);

}  // namespace orvane
