// What holds for whoever paints a page, by whatever means.
#pragma once

namespace orvane {

// The thinnest line on paper, mm.
constexpr double ThinnestOnPaper = 0.02;
// Pictures within pictures, at most.
constexpr int DeepestPicture = 8;

}  // namespace orvane
