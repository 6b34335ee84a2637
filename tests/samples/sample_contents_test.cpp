// The sections of the samples together hold what the system can do, and each job is one that the
// screens would have let through. Where a sample holds more than they would, the test says so.
#include "tests/samples/sample_contents.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "core/catalogues.h"
#include "core/numbers.h"

namespace orvane::test {
namespace {

bool IsCustom(const Hole& hole) {
  return hole.Kind == "C";
}

bool IsCountersunk(const Hole& hole) {
  return hole.CounterSunk == "*";
}

// --- The jobs as such

TEST_F(SampleContents, Each_job_has_six_to_twelve_sections_and_six_to_fourteen_accessory_lines) {
  for (const Job& job : jobs) {
    SCOPED_TRACE(job.Name);
    EXPECT_GE(job.Sections.size(), 6U);
    EXPECT_LE(job.Sections.size(), 12U);
    EXPECT_GE(job.Lines1.size() + job.Lines2.size(), 6U);
    EXPECT_LE(job.Lines1.size() + job.Lines2.size(), 14U);
  }
}

TEST_F(SampleContents, The_project_details_are_filled_and_the_dates_fixed) {
  using Details = std::array<std::string, 5>;
  EXPECT_EQ(JobOf("portal-shed").Details, (Details{"4417", "P24-117", "Hillside Farms Ltd",
                                                   "Grain store, bays 1 to 6", "R. Tanner"}));
  EXPECT_EQ(JobOf("portal-shed").ProjectDate, (Date{2026, 2, 16}));
  EXPECT_EQ(JobOf("mezzanine").Details, (Details{"4502", "P25-031", "Lakeside Storage & Son",
                                                 "Mezzanine floor level 1", "J. Mason"}));
  EXPECT_EQ(JobOf("mezzanine").ProjectDate, (Date{2026, 1, 19}));
  EXPECT_EQ(JobOf("cladding").Details,
            (Details{"4533", "P26-008", "M\u00e4rtens & S\u00f8n Fa\u00e7ades",
                     "Office front \u2013 north elevation", "Zo\u00eb Field"}));
  EXPECT_EQ(JobOf("cladding").ProjectDate, (Date{2025, 11, 30}));
}

TEST_F(SampleContents, A_note_holds_accented_letters_and_an_en_dash) {
  EXPECT_EQ(SectionOf("VR2").Notes, "Fen\u00eatre c\u00f4t\u00e9 rue \u2013 \u00e0 contr\u00f4ler");
}

TEST_F(SampleContents, No_plain_line_holds_a_comma_and_no_text_a_double_quote) {
  for (const Job& job : jobs) {
    SCOPED_TRACE(job.Name);
    Texts plain = {job.Details[0]};
    Texts quoted(job.Details.begin() + 1, job.Details.end());
    for (const Item& item : job.Sections) {
      plain.insert({item.Product, item.Pitch, item.DateText});
      quoted.insert({item.Mark, item.Notes, item.PatternName});
    }
    for (const AccLine2& line : job.Lines2) {
      plain.insert(line.Mark);
      quoted.insert(line.Values.begin(), line.Values.end());
    }
    for (const std::string& text : plain) {
      EXPECT_EQ(text.find_first_of(",\""), std::string::npos) << text;
    }
    for (const std::string& text : quoted) EXPECT_FALSE(Contains(text, "\"")) << text;
  }
}

TEST_F(SampleContents, Marks_are_unique_in_each_job) {
  for (const Job& job : jobs) {
    SCOPED_TRACE(job.Name);
    Texts marks;
    for (const Item& item : job.Sections) EXPECT_TRUE(marks.insert(item.Mark).second) << item.Mark;
  }
}

TEST_F(SampleContents, Every_section_is_within_the_length_of_its_family) {
  const std::map<std::string, int> longest = {{"Z", 15000}, {"E", 15000}, {"C", 15000},
                                              {"V", 3050},  {"R", 3050},  {"T", 4000}};
  for (const Item& item : Sections()) {
    EXPECT_GT(item.Length, 0) << item.Mark;
    EXPECT_LE(item.Length, longest.at(item.SectionType)) << item.Mark;
    EXPECT_GT(item.Quantity, 0) << item.Mark;
  }
}

TEST_F(SampleContents, Products_and_patterns_are_of_the_catalogue_and_of_the_sections_family) {
  for (const Item& item : Sections()) {
    SCOPED_TRACE(item.Mark);
    const SectionDim product = GetSectionDim(item.Product);
    EXPECT_EQ(product.Product, item.Product);
    EXPECT_EQ(product.SectionType, item.SectionType);
    if (item.PatternName == "Custom") {
      EXPECT_EQ(item.SagBarDia, 0);
      continue;
    }
    const std::int16_t row = FindPunchPattern(item.PatternName);
    ASSERT_NE(row, 0) << item.PatternName;
    EXPECT_EQ(PunchPatterns.At(row).SectionType, item.SectionType);
    EXPECT_EQ(item.SagBarDia != 0, PunchPatterns.At(row).HasSagBars != False);
  }
}

TEST_F(SampleContents, Holes_are_sorted_counted_and_within_their_section) {
  for (const Item& item : Sections()) {
    SCOPED_TRACE(item.Mark);
    EXPECT_EQ(item.CustomHoleCount, std::count_if(item.Holes.begin(), item.Holes.end(), IsCustom));
    // A job from the screens has either a pattern's holes or its own.
    EXPECT_EQ(item.CustomHoleCount, item.PatternName == "Custom" ? item.HoleCount() : 0);
    int previous = 0;
    for (const Hole& hole : item.Holes) {
      EXPECT_GE(hole.XPos, previous);
      EXPECT_LT(hole.XPos, item.Length);
      previous = hole.XPos;
    }
  }
}

TEST_F(SampleContents, One_section_of_each_job_is_saved_as_drawn) {
  const std::map<std::string, std::string> drawnMarks = {
      {"portal-shed", "P4"}, {"mezzanine", "B2"}, {"cladding", "TH1"}};
  for (const Job& job : jobs) {
    for (const Item& item : job.Sections) {
      SCOPED_TRACE(item.Mark);
      const bool drawn = item.Mark == drawnMarks.at(job.Name);
      // The end sentinel stands in row 0, and the drawn gaps add up to the length.
      EXPECT_EQ(item.Holes.At(0).XPos, drawn ? item.Length : 0);
      double trueSum = item.Holes.At(0).RelX;
      double drawnSum = item.Holes.At(0).DrawGap;
      bool widened = false;
      for (const Hole& hole : item.Holes) {
        trueSum += hole.RelX;
        drawnSum += hole.DrawGap;
        widened = widened || hole.DrawGap > hole.RelX;
      }
      EXPECT_EQ(trueSum, drawn ? item.Length : 0);
      EXPECT_NEAR(drawnSum, drawn ? item.Length : 0, 1e-9);
      EXPECT_EQ(widened, drawn);
    }
  }
}

TEST_F(SampleContents, The_drawn_gaps_of_the_top_hat_are_those_of_its_sheet) {
  // 4000 long on 203 mm: 4 mm on paper are 4 * 4000 / 203 = 78.8177339901478 (15 digits). The four
  // gaps 32, 40, 40, 32 are widened to that; 4 * 78.8177339901478 - 144 = 171.270935960591 are paid
  // by the gap of 3856 alone: 3684.72906403941 are left.
  const Item& item = SectionOf("TH1");
  ASSERT_EQ(item.HoleCount(), 4);
  EXPECT_EQ(ShortestText(item.Holes.At(0).RelX), "32");
  EXPECT_EQ(ShortestText(item.Holes.At(0).DrawGap), "78.8177339901478");
  EXPECT_EQ(ShortestText(item.Holes.At(1).DrawGap), "78.8177339901478");
  EXPECT_EQ(ShortestText(item.Holes.At(2).RelX), "40");
  EXPECT_EQ(ShortestText(item.Holes.At(3).RelX), "3856");
  EXPECT_EQ(ShortestText(item.Holes.At(3).DrawGap), "3684.72906403941");
}

// --- Sections

TEST_F(SampleContents, Every_family_is_there) {
  Texts letters;
  for (const Item& item : Sections()) letters.insert(item.SectionType);
  EXPECT_EQ(letters, (Texts{"C", "E", "R", "T", "V", "Z"}));
}

TEST_F(SampleContents, Purlins_have_butt_double_span_sleeved_and_countersunk_patterns) {
  const std::vector<std::string> words = {"Butt", "Double Span", "Sleeved", "Slvd", "Countersunk"};
  for (const std::string& word : words) {
    EXPECT_TRUE(AnySection([&](const Item& item) {
      return item.SectionType == "Z" && Contains(item.PatternName, word);
    })) << word;
  }
}

TEST_F(SampleContents, A_channel_has_a_sleeved_pattern_too) {
  EXPECT_EQ(SectionOf("CH1").SectionType, "C");
  EXPECT_TRUE(Contains(SectionOf("CH1").PatternName, "Sleeved"));
}

TEST_F(SampleContents, Sag_bars_of_both_diameters_are_there) {
  std::set<int> diameters;
  for (const Item& item : Sections()) diameters.insert(item.SagBarDia);
  EXPECT_EQ(diameters, (std::set<int>{0, 14, 18}));
}

TEST_F(SampleContents, Eaves_beams_have_a_whole_a_half_and_no_pitch) {
  Texts pitches;
  for (const Item& item : Sections("E")) pitches.insert(item.Pitch);
  EXPECT_EQ(pitches, (Texts{"", "10", "22.5"}));
}

TEST_F(SampleContents, Cleader_rails_have_jointing_pieces_and_slots) {
  const Item& cleader = SectionOf("CL1");
  EXPECT_EQ(cleader.JointingPieces, 9);
  EXPECT_EQ(cleader.PatternName, "Cleader Slotted");
  ASSERT_EQ(cleader.HoleCount(), 2);
  EXPECT_EQ(cleader.Holes.At(1).SlotLength, 28);
  EXPECT_EQ(cleader.Holes.At(1).Diameter, 18);
}

TEST_F(SampleContents, An_opposite_hand_pair_mirrors_holes_notches_and_mitres) {
  const Item& left = SectionOf("SR2");
  const Item& right = SectionOf("SR2X");
  std::vector<std::tuple<int, std::string, std::string>> holes;
  for (const Hole& hole : right.Holes) holes.emplace_back(hole.XPos, hole.W1, hole.TF);
  // 5425 less 5393, 5333, 3400, 2710, 1210 twice (in turned order), 92 and 32.
  EXPECT_EQ(holes, (decltype(holes){{32, "y", "n"},
                                    {92, "y", "n"},
                                    {2025, "y", "n"},
                                    {2715, "n", "y"},
                                    {4215, "n", "30"},
                                    {4215, "y", "n"},
                                    {5333, "y", "n"},
                                    {5393, "y", "n"}}));
  EXPECT_EQ(left.MitreLeft, 15);
  EXPECT_EQ(right.MitreLeft, 0);
  EXPECT_EQ(right.MitreRight, -15);
  EXPECT_EQ(right.Quantity, left.Quantity);
  EXPECT_EQ(right.Notes, left.Notes);
  std::vector<std::tuple<std::string, float>> notches;
  for (const Notch& notch : right.Notches) notches.emplace_back(notch.Code, notch.Size3);
  EXPECT_EQ(notches,
            (decltype(notches){{"TR1", 0}, {"BR1", 0}, {"T2", 3625}, {"B2", 1425}, {"R3", 75}}));
}

TEST_F(SampleContents, All_notch_codes_are_there_on_purlins_and_on_channels) {
  const Texts all = {"TL1", "TR1", "T2", "L3", "R3", "BL1", "BR1", "B2"};
  for (const std::string& letter : Texts{"Z", "C"}) {
    Texts codes;
    for (const Item& item : Sections(letter)) {
      for (const Notch& notch : item.Notches) codes.insert(notch.Code);
    }
    EXPECT_EQ(codes, all) << letter;
  }
}

TEST_F(SampleContents, A_notch_along_a_purlin_stands_at_0_which_is_its_length_when_mirrored) {
  const Item& rail = SectionOf("SR3");
  ASSERT_EQ(rail.NotchCount(), 2);
  EXPECT_EQ(rail.Notches.At(1).Code, "T2");
  EXPECT_EQ(rail.Notches.At(1).Size3, 0);
  EXPECT_EQ(rail.Notches.At(2).Code, "B2");
  EXPECT_EQ(rail.Notches.At(2).Size3, 2945);
}

TEST_F(SampleContents, Notch_sizes_have_halves_that_two_roundings_would_tell_apart) {
  // To the even neighbour these would be 22, 42, 12 and 1000; away from zero they aren't.
  EXPECT_EQ(SectionOf("SR2").Notches.At(2).Size1, 22.5F);
  EXPECT_EQ(SectionOf("J1").Notches.At(1).Size1, 42.5F);
  EXPECT_EQ(SectionOf("CH3").Notches.At(4).Size1, 12.5F);
  EXPECT_EQ(SectionOf("CH3").Notches.At(4).Size3, 1000.5F);
}

TEST_F(SampleContents, Mitres_of_both_signs_are_there_and_one_with_two_decimals) {
  EXPECT_EQ(SectionOf("P5").MitreLeft, 30);
  EXPECT_EQ(SectionOf("P5").MitreRight, -12.5F);
  EXPECT_EQ(SectionOf("EB1").MitreLeft, -10);
  // The mitre dialog keeps one decimal; a file may hold more.
  EXPECT_EQ(SectionOf("TH2").MitreLeft, 12.25F);
  EXPECT_EQ(SectionOf("TH2").MitreRight, -12.25F);
}

// --- Holes

TEST_F(SampleContents, Off_gauge_holes_are_on_the_web_and_both_flanges) {
  EXPECT_TRUE(AnyHole([](const Hole& hole) { return hole.W1 == "35"; }));
  EXPECT_TRUE(AnyHole([](const Hole& hole) { return hole.TF == "35"; }));
  EXPECT_TRUE(AnyHole([](const Hole& hole) { return hole.BF == "28"; }));
  // And all of them are custom holes with no other line.
  for (const Item& item : Sections()) {
    for (const Hole& hole : item.Holes) {
      if (Val(hole.BF) + Val(hole.W1) + Val(hole.W2) + Val(hole.TF) == 0) continue;
      EXPECT_TRUE(IsCustom(hole)) << item.Mark;
      const std::string lines = hole.BF + hole.W1 + hole.W2 + hole.TF;
      EXPECT_EQ(std::count(lines.begin(), lines.end(), 'n'), 3) << item.Mark << " " << lines;
    }
  }
}

TEST_F(SampleContents, An_off_gauge_hole_shares_its_position_with_one_on_the_gauge_lines) {
  const Item& trimmer = SectionOf("TM1");
  ASSERT_EQ(trimmer.HoleCount(), 7);
  EXPECT_EQ(trimmer.Holes.At(4).XPos, 1200);
  EXPECT_EQ(trimmer.Holes.At(4).BF, "28");
  EXPECT_EQ(trimmer.Holes.At(5).XPos, 1200);
  EXPECT_EQ(trimmer.Holes.At(5).W1, "y");
}

TEST_F(SampleContents, Slots_are_there_among_custom_and_pattern_holes) {
  const auto slot = [](const Hole& hole, float length, float diameter) {
    return hole.SlotLength == length && hole.Diameter == diameter;
  };
  EXPECT_TRUE(AnyHole([&](const Hole& hole) { return IsCustom(hole) && slot(hole, 22, 14); }));
  EXPECT_TRUE(AnyHole([&](const Hole& hole) { return IsCustom(hole) && slot(hole, 28, 18); }));
  EXPECT_TRUE(AnyHole([&](const Hole& hole) { return !IsCustom(hole) && slot(hole, 28, 18); }));
}

TEST_F(SampleContents, A_slot_and_its_hole_have_a_half_in_diameter_and_extension) {
  EXPECT_TRUE(
      AnyHole([](const Hole& hole) { return hole.Diameter == 13.5F && hole.SlotLength == 28; }));
  EXPECT_TRUE(
      AnyHole([](const Hole& hole) { return hole.Diameter == 13.5F && hole.SlotLength == 0; }));
}

TEST_F(SampleContents, Countersinks_are_there_on_round_holes_and_on_slots) {
  const auto is = [](const Hole& hole, bool custom, bool slotted) {
    return IsCountersunk(hole) && IsCustom(hole) == custom && (hole.SlotLength > 0) == slotted;
  };
  EXPECT_TRUE(AnyHole([&](const Hole& hole) { return is(hole, false, false); }));
  EXPECT_TRUE(AnyHole([&](const Hole& hole) { return is(hole, false, true); }));
  EXPECT_TRUE(AnyHole([&](const Hole& hole) { return is(hole, true, false); }));
  // The hole dialog refuses this one; a file may hold it.
  EXPECT_TRUE(AnyHole([&](const Hole& hole) { return is(hole, true, true); }));
}

TEST_F(SampleContents, A_custom_section_without_holes_is_there) {
  EXPECT_EQ(SectionOf("ST1").PatternName, "Custom");
  EXPECT_EQ(SectionOf("ST1").HoleCount(), 0);
}

}  // namespace
}  // namespace orvane::test
