#include "tests/samples/sample_jobs.h"

#include "tests/samples/job_sheet.h"

namespace orvane::test {

const std::array<SampleJob, 3> SampleJobs = {{
    {"portal-shed", BuildPortalShed},
    {"mezzanine", BuildMezzanine},
    {"cladding", BuildCladding},
}};

std::string SamplePath(const std::string& name, const std::string& extension) {
  return ORVANE_SOURCE_DIR "/samples/" + name + extension;
}

void BuildPortalShed() {
  StartJob("4417", "P24-117", "Hillside Farms Ltd", "Grain store, bays 1 to 6", "R. Tanner",
           {2026, 2, 16});

  // Roof purlins.
  const auto p1 = AddPurlin("P1", "Z24520", 7250, 24, "Sleeved 1 Sag Bar", 14);
  SetNote(p1, "Sleeves SL1 at every rafter");
  AddPurlin("P2", "Z24516", 7225, 12, "Sleeved 2 Sag Bars", 18);
  AddPurlin("P3", "Z24520", 13015, 8, "Slvd Double Span 2 Sags", 18);
  // Pairs of sag bar holes 70 apart: too close to be drawn true to scale.
  const auto p4 = AddPurlin("P4", "Z21516", 6001, 16, "Double Span 1 Bar Pair", 14);
  DrawOnSheet(p4);
  // Along the hip.
  const auto p5 = AddPurlin("P5", "Z19018", 4525, 10, "Butt 1 Sag Bar", 14);
  SetMitres(p5, 30, -12.5);

  // Side rails.
  AddPurlin("SR1", "Z16514", 5980, 20, "Rail Countersunk");
  // The head of the big door: punched as a butted rail, with holes of its own added, and coped at
  // its left end. At 1210 an off-gauge hole stands beside a pair on the gauge lines.
  const auto sr2 = AddPurlin("SR2", "Z19016", 5425, 4, "Butt");
  SetNote(sr2, "Door head, hand as drawn");
  ConvertToCustom(sr2);
  AddCustomHole(sr2, 3400, "nynn", 14, 22);
  AddCustomHole(sr2, 2710, "ynny", 14);
  AddCustomHole(sr2, 1210, "nyyn", 18);
  AddOffGaugeHole(sr2, 1210, Gauge::TopFlange, "30", 14);
  SetMitres(sr2, 15, 0);
  AddNotch(sr2, "TL1", 25, 60);
  AddNotch(sr2, "BL1", 22.5, 60);
  AddNotch(sr2, "T2", 30, 120, 1800);
  AddNotch(sr2, "B2", 30, 120, 4000);
  AddNotch(sr2, "L3", 40, 25, 75);
  AddOppositeHand(sr2);  // SR2X
  // Notched over its whole end, entered as a notch along the flange that begins at 0.
  const auto sr3 = AddPurlin("SR3", "Z14014", 3000, 6, "Butt Single Holes");
  AddNotch(sr3, "T2", 18, 55, 0);
  AddNotch(sr3, "B2", 18, 55, 2945);

  // Eaves.
  const auto eb1 = AddEavesBeam("EB1", "E23020", 7250, 6, "Eaves Beam 1 Sag Bar", "10", 14);
  SetMitres(eb1, -10, 10);
  AddEavesBeam("EB2", "E26524", 6400, 4, "Eaves Beam Soffit Thirds", "22.5");
  // At the canopy nobody has chosen a pitch yet.
  const auto eb3 = AddEavesBeam("EB3", "E17016", 3333, 2, "Eaves Beam Csk", "");
  SetNote(eb3, "Canopy, pitch to follow");

  AddLine1(Acc::EavesBeamCleats, "EC230", 14);
  AddLine1(Acc::PurlinCleats, "CL245", 96);
  AddLine1(Acc::PurlinCleats, "CL190", 24);
  AddLine1(Acc::HalfSleeves, "KHL90", 10);
  AddLine1(Acc::ChannelSleeves, "KSL301", 4);

  //       accessory            mark       off  product, length
  AddLine2(Acc::PurlinSleeves, "SL2", 12, {"Z24516", "600"});
  AddLine2(Acc::PurlinSleeves, "SL1", 28, {"Z24520", "650.0"});
  AddLine2(Acc::PurlinSleeves, "SL-GRID-C-TO-F", 8, {"Z24520", "720"});
  //       accessory          mark       off  type, height, reach
  AddLine2(Acc::EavesBraces, "BR3", 4, {"EB3", "950", ""});
  AddLine2(Acc::EavesBraces, "BR1", 12, {"EB1", "1200", "450"});
  AddLine2(Acc::EavesBraces, "BR2", 6, {"EB2", "", "450"});
  //       accessory       mark       off  purlin, centres at the apex, pitch
  AddLine2(Acc::ApexTies, "AT1", 14, {"Z24520", "600", "10"});
  //       accessory              mark       off  section, purlin centres, rail centres
  AddLine2(Acc::SagBarsScrewFix, "SB2", 18, {"Z16514", "", "1400"});
  AddLine2(Acc::SagBarsScrewFix, "SB1", 36, {"Z24520", "1500", ""});
  EndJob();
}

void BuildMezzanine() {
  StartJob("4502", "P25-031", "Lakeside Storage & Son", "Mezzanine floor level 1", "J. Mason",
           {2026, 1, 19});

  // Joists, those of the first mark coped to sit flush with the edge beams.
  const auto j1 = AddChannel("J1", "M22024", 4800, 36, "Joist 2 Ties");
  AddNotch(j1, "TL1", 42.5, 50);
  AddNotch(j1, "TR1", 42.5, 50);
  AddChannel("J2", "M22024", 4787, 4, "Joist 3 Ties");
  AddChannel("J3", "M26528", 3150, 6, "Joist Csk");

  // Edge beams.
  const auto b1 = AddChannel("B1", "M33032", 7205, 2, "Edge Beam 5 Trimmers");
  AddNotch(b1, "BL1", 60, 100);
  AddNotch(b1, "BR1", 60, 100);
  const auto b2 = AddChannel("B2", "M33028", 6410, 2, "Edge Beam 2 Bays");
  DrawOnSheet(b2);

  // Trimmers of the stair opening, every hole placed by hand.
  const auto tm1 = AddChannel("TM1", "30116", 2405, 8, "Custom");
  SetNote(tm1, "Stair opening, check on site");
  AddCustomHole(tm1, 2370, "nyyn", 18);
  AddCustomHole(tm1, 35, "nyyn", 18);
  AddOffGaugeHole(tm1, 400, Gauge::Web, "35", 18);
  AddOffGaugeHole(tm1, 800, Gauge::TopFlange, "35", 14);
  AddOffGaugeHole(tm1, 1200, Gauge::BottomFlange, "28", 14);
  AddCustomHole(tm1, 1200, "nyyn", 18);
  AddCustomHole(tm1, 1600, "ynny", 14, 0, CSK);

  // Slots. The hole at 2200 is countersunk and has a slot length as well: the hole dialog lets
  // nobody enter that, a file may hold it.
  const auto tm2 = AddChannel("TM2", "30120", 3610, 5, "Custom");
  AddCustomHole(tm2, 60, "nyyn", 14, 22);
  AddCustomHole(tm2, 1000, "nnny", 18, 28);
  AddCustomHole(tm2, 1805, "yyyy", 18, 0, CSK);
  AddCustomHole(tm2, 2200, "ynnn", 14, 22, CSK);
  AddOffGaugeHole(tm2, 2600, Gauge::Web, "60", 18, 28);
  AddCustomHole(tm2, 3550, "nyyn", 14, 22);

  // Channels. A sleeved pattern on a channel asks for no purlin sleeves.
  AddChannel("CH1", "32124", 9000, 4, "Channel Sleeved");
  AddChannel("CH2", "30124", 6003, 7, "Channel 2 Sag Bar Pairs", 18);
  const auto ch3 = AddChannel("CH3", "35124", 5200, 3, "Joist");
  AddNotch(ch3, "L3", 80, 40, 120);
  AddNotch(ch3, "R3", 80, 40, 120);
  AddNotch(ch3, "T2", 30, 150, 2525);
  AddNotch(ch3, "B2", 12.5, 90, 1000.5);

  // The stair's stringers come without holes.
  const auto st1 = AddChannel("ST1", "24520", 3905, 2, "Custom");
  SetMitres(st1, 42.5, 42.5);

  AddLine1(Acc::ChannelSleeves, "KSL351", 6);
  AddLine1(Acc::HalfSleeves, "KHL190", 8);
  AddLine1(Acc::ChannelSleeves, "KSL321", 12);
  AddLine1(Acc::Bolts, "M16x45", 220);
  // Struck out: the dialog keeps no line of quantity 0, a file may hold one.
  AddLine1(Acc::PurlinCleats, "CL301", 0);

  AddLine2(Acc::WasherPlates, "WP1", 400, {});
  //       accessory           mark      off  product, thickness, length
  AddLine2(Acc::SplicePlates, "SP2", 8, {"30120", "3.0", "600"});
  AddLine2(Acc::SplicePlates, "SP10", 4, {"M33032 & M33028", "2.4", "450"});
  //       accessory            mark     off  main joist, trimmer, drop
  AddLine2(Acc::TrimmerCleats, "TC1", 16, {"M33032", "30116", "12.50"});
  //       accessory       mark      off  distance, four notch sizes, third hole
  AddLine2(Acc::CChannel, "CC3", 0, {"3000", "", "", "", "", ""});
  AddLine2(Acc::CChannel, "CC1", 6, {"2296", "50", "48.5", "0", "", "0"});
  AddLine2(Acc::CChannel, "CC2", 3, {"1800.5", "40", "45", "70", "0.4", "926.5"});
  EndJob();
}

void BuildCladding() {
  StartJob("4533", "P26-008", "Märtens & Søn Façades", "Office front – north elevation",
           "Zoë Field", {2025, 11, 30});

  // Vertical cladding rails.
  AddVcr("VR1", 2950, 14, "VCR Cleats and Middle");
  const auto vr2 = AddVcr("VR2", 3050, 6, "VCR Cleats Csk");
  SetNote(vr2, "Fenêtre côté rue – à contrôler");
  // Punched for a 13.5 mm rivet nut that the hole dialog doesn't offer.
  const auto vr3 = AddVcr("VR3", 2405, 3, "Custom");
  AddCustomHole(vr3, 2355, "nyyn", 13.5, 28);
  AddCustomHole(vr3, 50, "nyyn", 13.5);
  AddCustomHole(vr3, 1200, "nyyn", 14);

  // Cleader rails with their jointing pieces.
  AddCleader("CL1", 3000, 10, "Cleader Slotted", 9);
  AddCleader("CL2", 2755, 4, "Cleader 3 Fixings", 3);
  const auto cl3 = AddCleader("CL3", 1500, 1, "Cleader Csk", 0);
  SetNote(cl3, "Reveal, left hand side");

  // Top hats. The angle of the second comes from the survey; the mitre dialog would keep 12.3.
  const auto th1 = AddTopHat("TH1", "T07512", 4000, 30, "Top Hat Ends");
  DrawOnSheet(th1);
  const auto th2 = AddTopHat("TH2", "T10015", 2385, 12, "Custom");
  AddCustomHole(th2, 25, "ynny", 14);
  AddCustomHole(th2, 1190, "nnyn", 14, 0, CSK);
  AddCustomHole(th2, 2360, "ynny", 14);
  SetMitres(th2, 12.25, -12.25);
  AddTopHat("TH3", "T05010", 1203, 2, "Top Hat Ends Csk");

  AddLine1(Acc::Bolts, "M16x35C", 48);
  AddLine1(Acc::Bolts, "M12x30", 600);

  //       accessory          mark     off  drawn, opposite, length, allowances, cleats
  AddLine2(Acc::VcrAssembly, "VA2", 5, {"3", "2", "2950", "20.5", "15", "KT31", "KT39"});
  AddLine2(Acc::VcrAssembly, "VA1", 4, {"4", "0", "3050", "21.5", "20.5", "KT33", "KT41"});
  AddLine2(Acc::VcrAssembly, "VA3", 2, {"", "2", "2400", "0", "10", "KT36", "KT36"});
  //       accessory              mark     off  stand-off, hand
  AddLine2(Acc::CleaderBrackets, "CB2", 6, {"12,5", "Right"});
  AddLine2(Acc::CleaderBrackets, "CB1", 24, {"12.50", "Left"});
  //       accessory            mark                 off  product, length
  AddLine2(Acc::TopHatSpacers, "TS-NORTH-FRONT-2", 40, {"T07512", "75.0"});
  AddLine2(Acc::TopHatSpacers, "TS-NORTH-FRONT-1", 25, {"T10015", "100"});
  EndJob();
}

}  // namespace orvane::test
