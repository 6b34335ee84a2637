#include "drawing/pictures.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "core/files.h"
#include "core/program_folder.h"
#include "drawing/metafile.h"
#include "tests/drawing/metafile_writer.h"
#include "tests/drawing/page_fixture.h"

namespace orvane::test {
namespace {

namespace fs = std::filesystem;

class Pictures : public SystemTest {
 protected:
  ~Pictures() override { frmDrawings().imgAcc = nullptr; }

  // A program folder of the test's own with a file in its folder Drawings.
  void Lay(const std::string& name, std::string_view bytes) {
    ProgramFolder = PathText(NativePath(TempFile("dims.csv", "")).parent_path());
    fs::create_directory(NativePath(ProgramFolder) / "Drawings");
    TempFile("Drawings/" + name, bytes);
  }
};

TEST_F(Pictures, The_logo_is_there_without_any_file) {
  ProgramFolder = TempPath("nowhere");
  ASSERT_NE(frmDrawings().imgLogo, nullptr);
  const Picture& logo = *frmDrawings().imgLogo;
  EXPECT_DOUBLE_EQ(logo.Height, 18);
  EXPECT_GE(logo.Width, 40);
  EXPECT_LE(logo.Width, 55);
  const auto name = std::find_if(logo.Shapes.begin(), logo.Shapes.end(), [](const Shape& shape) {
    const auto* text = std::get_if<TextShape>(&shape);
    return text != nullptr && text->Text == "Lintaro";
  });
  EXPECT_NE(name, logo.Shapes.end());
  EXPECT_EQ(&frmDrawings(), &frmDrawings());
}

TEST_F(Pictures, LoadDrawing_finds_the_file_without_regard_to_case) {
  Lay("Drg015.WMF", MetafileWriter().Placeable());
  for (const char* suffix : {"\\drawings\\drg015.wmf", "\\Drawings\\DRG015.wmf"}) {
    const auto picture = LoadDrawing(suffix);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Width, 100);
    EXPECT_EQ(picture, frmDrawings().imgAcc);
  }
}

TEST_F(Pictures, A_missing_file_is_named_and_the_picture_stays) {
  Lay("acc01.wmf", MetafileWriter().Placeable());
  const auto before = LoadDrawing("\\Drawings\\acc01.wmf");
  EXPECT_EQ(ErrorOf([] { LoadDrawing("\\Drawings\\None.wmf"); }),
            "File not found: " + ProgramFolder + "/Drawings/None.wmf");
  EXPECT_EQ(ErrorOf([] { LoadDrawing("\\nowhere\\a.wmf"); }),
            "File not found: " + ProgramFolder + "/nowhere/a.wmf");
  EXPECT_EQ(frmDrawings().imgAcc, before);
}

TEST_F(Pictures, A_crossed_box_bears_the_name_of_the_file_in_its_middle) {
  const auto box = CrossedBox("\\Drawings\\acc06.wmf");
  EXPECT_EQ(box->Width, 120);
  EXPECT_EQ(box->Height, 60);
  ASSERT_EQ(box->Shapes.size(), 4U);
  EXPECT_EQ(Described(box->Shapes[0]), "rectangle 0 0 120 60 pen 0.3");
  EXPECT_EQ(Described(box->Shapes[1]), "line 0 0 120 60 pen 0.3");
  EXPECT_EQ(Described(box->Shapes[2]), "line 0 60 120 0 pen 0.3");
  const auto& name = std::get<TextShape>(box->Shapes[3]);
  EXPECT_EQ(name.Text, "acc06.wmf");
  EXPECT_DOUBLE_EQ(name.Type.Size, 12);
  EXPECT_EQ(name.Side, TextSide::Middle);
  EXPECT_EQ(name.TopLeft.X, 60);
  EXPECT_TRUE(name.Behind.Visible);
  // A long name stays in its box, were it all of the widest letters.
  const auto wide = CrossedBox(std::string(100, 'W'));
  EXPECT_LT(std::get<TextShape>(wide->Shapes[3]).Type.Size * 25.4 / 72 * 100, 120);
}

TEST_F(Pictures, A_file_that_is_no_picture_is_named_with_what_is_wrong) {
  Lay("bad.wmf", std::string(100, 'x'));
  EXPECT_EQ(ErrorOf([] { LoadDrawing("\\Drawings\\bad.wmf"); }),
            "Invalid picture: " + ProgramFolder + "/Drawings/bad.wmf");
  Lay("cut.wmf", MetafileWriter().Placeable().substr(0, 30));
  EXPECT_EQ(ErrorOf([] { LoadDrawing("\\Drawings\\cut.wmf"); }),
            "Input past end of file: " + ProgramFolder + "/Drawings/cut.wmf");
  // A folder of that name.
  fs::create_directory(NativePath(ProgramFolder) / "Drawings" / "folder.wmf");
  const std::string error = ErrorOf([] { LoadDrawing("\\Drawings\\folder.wmf"); });
  EXPECT_NE(error.find(": " + ProgramFolder + "/Drawings/folder.wmf"), std::string::npos) << error;
}

TEST_F(Pictures, A_name_that_leaves_the_programs_folder_is_refused) {
  Lay("acc01.wmf", MetafileWriter().Placeable());
  TempFile("outside.wmf", MetafileWriter().Placeable());
  const std::string folder = ProgramFolder;
  for (const std::string& suffix :
       {std::string("\\Drawings\\..\\..\\x.wmf"), std::string("\\..\\x"), std::string("\\.."),
        std::string("\\Drawings\\../../x.wmf"), "\\Drawings\\" + folder + "/Drawings/acc01.wmf",
        std::string("\\Drawings\\c:x.wmf"), std::string("/etc/passwd")}) {
    EXPECT_EQ(ErrorOf([&] { LoadDrawing(suffix); }),
              "Picture outside the program's folder: " + suffix);
  }
  // Dots in a name are harmless.
  TempFile("Drawings/a..b.wmf", MetafileWriter().Placeable());
  EXPECT_NE(LoadDrawing("\\Drawings\\a..b.wmf"), nullptr);
}

// What ships.

TEST_F(Pictures, The_rails_detail_is_wide_enough_to_stay_above_the_strip) {
  const auto picture = LoadDrawing("\\drawings\\drg015.wmf");
  EXPECT_DOUBLE_EQ(picture->Width, 75);
  EXPECT_GE(picture->Width / picture->Height, 1.8);
  // Its ground is transparent: no shape has a white inside.
  for (const Shape& shape : picture->Shapes) {
    EXPECT_EQ(Described(shape).find("fill 255,255,255"), std::string::npos) << Described(shape);
  }
}

// Its place is 160 mm from the left and 125 from the top, the rail's bottom at 112.
//
// The lowest running positions, of gaps too narrow for their figures, stand 10 + 8 mm below that,
// and 7 points are 2.84 mm high: they end 6.4 mm in the picture. The legend is centred on 112 + 24
// mm in 10 points, 4.06 mm high, or begins 1.2 mm above that: to 13.9 mm. From 55 + 228 / 2 = 169
// mm on it reaches 15.5 mm and "14 Dia." farther, 7 letters of about 1.7 mm: to 36.4 mm in the
// picture.
TEST_F(Pictures, The_rails_detail_leaves_room_for_the_running_positions_and_the_legend) {
  const auto picture = LoadDrawing("\\drawings\\drg015.wmf");
  const auto keepsClear = [](const Point& point) {
    EXPECT_GE(point.Y, 6.5) << point.X;
    if (point.X < 37) {
      EXPECT_GE(point.Y, 14.2) << point.X;
    }
  };
  const auto boxKeepsClear = [&](const Box& box) {
    for (const double x : {box.Left, box.Left + box.Width}) keepsClear({x, box.Top});
  };
  for (const Shape& shape : picture->Shapes) {
    if (const auto* line = std::get_if<LineShape>(&shape)) {
      keepsClear(line->From);
      keepsClear(line->To);
    }
    if (const auto* text = std::get_if<TextShape>(&shape)) {
      // A capital begins 0.19 em below the top of its line.
      const double drop = 0.19 * text->Type.Size * 25.4 / 72;
      keepsClear({text->TopLeft.X, text->TopLeft.Y + (text->Angle == 0 ? drop : 0)});
    }
    if (const auto* polygon = std::get_if<PolygonShape>(&shape)) {
      for (const Point& point : polygon->Rings.at(0)) keepsClear(point);
    }
    if (const auto* box = std::get_if<RectangleShape>(&shape)) boxKeepsClear(box->Place);
    if (const auto* ellipse = std::get_if<EllipseShape>(&shape)) boxKeepsClear(ellipse->Place);
  }
}

// In the as-drawn rail the first hole follows from Cleat 1 and the allowance End 2, the last one
// from Cleat 2 and End 1: which belongs to which can't be guessed from the names.
TEST_F(Pictures, The_picture_of_the_VCR_assembly_says_at_which_end_each_cleat_is) {
  const auto picture = LoadDrawing("\\Drawings\\acc08.wmf");
  const auto placeOf = [&](const std::string& words) {
    for (const Shape& shape : picture->Shapes) {
      const auto* text = std::get_if<TextShape>(&shape);
      if (text != nullptr && text->Text == words) return text->TopLeft.X;
    }
    ADD_FAILURE() << "no " << words;
    return 0.0;
  };
  const double middle = picture->Width / 2;
  for (const char* words : {"Cleat 1, at End 2", "End 2"}) EXPECT_LT(placeOf(words), middle);
  for (const char* words : {"Cleat 2, at End 1", "End 1"}) EXPECT_GT(placeOf(words), middle);
}

TEST_F(Pictures, Each_accessory_of_the_catalogue_has_its_picture_in_its_own_scale) {
  LoadShippedCatalogues();
  int count = 0;
  for (const AccDef& accessory : AccDefs) {
    if (accessory.DrawingFile == "None") continue;
    const auto picture = LoadDrawing("\\Drawings\\" + accessory.DrawingFile + ".wmf");
    // Placed as wide as it is, so that its lines and letters come out as they were drawn.
    EXPECT_DOUBLE_EQ(picture->Width, accessory.Value1) << accessory.DrawingFile;
    EXPECT_LE(picture->Height, 60) << accessory.DrawingFile;
    for (const Shape& shape : picture->Shapes) {
      const auto* text = std::get_if<TextShape>(&shape);
      // 3 mm, in hundredths: what a dialog still shows readable.
      if (text == nullptr) continue;
      EXPECT_GE(text->Type.Size * 25.4 / 72, 2.99) << text->Text;
    }
    ++count;
  }
  EXPECT_EQ(count, 19);
}

TEST_F(Pictures, What_ships_is_drawn_within_its_size) {
  int count = 0;
  for (const auto& entry :
       fs::directory_iterator(NativePath(ORVANE_SOURCE_DIR "/catalogue/Drawings"))) {
    const std::string name = PathText(entry.path().filename());
    const Picture picture = ReadMetafile(BytesOf(PathText(entry.path())));
    EXPECT_GT(picture.Shapes.size(), 10U) << name;
    const auto within = [&](const Point& point) {
      EXPECT_TRUE(point.X >= 0 && point.X <= picture.Width && point.Y >= 0 &&
                  point.Y <= picture.Height)
          << name << ": " << point.X << ", " << point.Y;
    };
    for (const Shape& shape : picture.Shapes) {
      if (const auto* line = std::get_if<LineShape>(&shape)) within(line->From), within(line->To);
      if (const auto* text = std::get_if<TextShape>(&shape)) within(text->TopLeft);
      if (const auto* polygon = std::get_if<PolygonShape>(&shape)) {
        for (const Point& point : polygon->Rings.at(0)) within(point);
      }
      if (const auto* box = std::get_if<RectangleShape>(&shape)) {
        within({box->Place.Left, box->Place.Top});
        within({box->Place.Left + box->Place.Width, box->Place.Top + box->Place.Height});
      }
    }
    ++count;
  }
  EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace orvane::test
