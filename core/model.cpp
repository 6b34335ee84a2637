#include "core/model.h"

#include "core/section_families.h"

namespace orvane {

Table<Item> Items;
Table<AccLine1> AccLines1;
Table<AccLine2> AccLines2;
Table<Boolean> AccUsed;
std::array<std::string, 5> txtProject;
Date DTPicker1;
std::string CompanyName, CompanyDetails;
std::int16_t LeftMargin, RightMargin, TopMargin, BottomMargin;
double MinHoleSep;
Table<double> MaxDims;

std::int16_t CurrentItem;
std::int16_t CurrentAcc;
Boolean ProjectDirty;
std::string ProjectFileName;
std::int16_t DrawingWidth;
std::int16_t HoleDialogMode;
std::string AccDialogResult;

Table<SectionDim> SectionDims;
Table<PunchPattern> PunchPatterns;
Table<AccDef> AccDefs;
std::int16_t AccType1Count, AccType2Count;

void ResetModel() {
  Items.Clear();
  AccLines1.Clear();
  AccLines2.Clear();
  AccUsed.Clear();
  txtProject = {};
  DTPicker1 = {};
  CompanyName.clear();
  CompanyDetails.clear();
  LeftMargin = RightMargin = TopMargin = BottomMargin = 0;
  MinHoleSep = 0;
  MaxDims.Clear();
  MaxDims.Resize(static_cast<int>(SectionFamilies.size()));

  CurrentItem = 0;
  CurrentAcc = 0;
  ProjectDirty = False;
  ProjectFileName.clear();
  DrawingWidth = 0;
  HoleDialogMode = 0;
  AccDialogResult.clear();

  SectionDims.Clear();
  PunchPatterns.Clear();
  AccDefs.Clear();
  AccType1Count = 0;
  AccType2Count = 0;
}

}  // namespace orvane
