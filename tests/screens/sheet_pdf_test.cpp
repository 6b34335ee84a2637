// PDF and SVG files read back by other programs: paper, fonts, texts, and where texts and lines
// stand.
#include <gtest/gtest.h>

#include <QByteArray>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "drawing/draw_section.h"
#include "drawing/page_surface.h"
#include "drawing/recording_surface.h"
#include "holes/hole_list.h"
#include "project/project_file.h"
#include "tests/support/failing_disk.h"
#include "tests/support/fixture.h"
#include "tests/support/patience.h"
#include "ui/platform/document_output.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"

namespace orvane::test {

namespace {

constexpr double MmPerPoint = 25.4 / 72;
constexpr double Close = 0.1;  // mm

QString OutputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(Patience)) << FromQt(program);
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}

struct Word {
  std::string Text;
  double Left = 0;  // mm
  double Top = 0;
  double Right = 0;
};

struct Stroke {
  Point From;  // mm
  Point To;
  double Width = 0;
};

// What a surface was asked to write at which place, and which lines to draw.
struct Recorded {
  std::vector<Word> Texts;
  std::vector<Stroke> Lines;
};

Recorded ReadRecording(const std::vector<std::string>& lines) {
  Recorded recorded;
  double x = 0;
  double y = 0;
  double pen = 0;
  Font font;
  for (const std::string& line : lines) {
    const QStringList parts = ToQt(line).split(' ');
    const auto mm = [&](int at) { return Length(FromQt(parts.at(at))).Mm(); };
    if (parts.first() == "CurrentX") x = mm(1);
    if (parts.first() == "CurrentY") y = mm(1);
    if (parts.first() == "PenWidth") pen = mm(1);
    if (parts.first() == "FontSize") font.Size = parts.at(1).toDouble();
    if (parts.first() == "FontBold") font.Bold = parts.at(1) == "true";
    if (parts.first() == "DrawLine") {
      recorded.Lines.push_back({{mm(1), mm(2)}, {mm(3), mm(4)}, pen});
    }
    if (parts.first() == "Text") {
      const std::string text = line.substr(6, line.size() - 7);  // without its quotes
      const std::size_t end = text.find_last_not_of(' ') + 1;
      recorded.Texts.push_back({text.substr(0, end), x, y});
      x += SheetMetrics().Width(font, text) / TwipsPerMm;
    }
  }
  return recorded;
}

class SheetPdfTest : public SystemTest {
 protected:
  SheetPdfTest() {
    LoadShippedCatalogues();
    ProgramFolder = ORVANE_SOURCE_DIR "/catalogue";
    LoadPageSetup();
    LoadDrawingSettings();
  }

  void Open(const std::string& sample) {
    ReadProjectFile(ORVANE_SOURCE_DIR "/samples/" + sample + ".ovd");
    PageSurface surface(SheetMetrics());
    PrepareDrawingWidth(surface);
    for (int row = 1; row <= Items.UBound(); ++row) {
      RebuildHoles(Int16(row), Items.At(row).PatternName);
    }
  }

  // All sheets of the open job as a PDF; gives its path.
  QString Pdf() {
    const std::string path = TempPath(std::string("sheets.pdf"));
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    PdfOutput pdf(path, "Job 7");
    PageSurface surface(SheetMetrics());
    surface.PageDone = [&](const Page& page) { pdf.Write(page); };
    const int last = Items.UBound();
    for (int row = 1; row <= last; ++row) {
      DrawSection(surface, Int16(row), row == 1, row == last);
    }
    pdf.Finish();
    EXPECT_EQ(pdf.PageCount(), last);
    return ToQt(path);
  }

  static Recorded RecordingOf(int row) {
    RecordingSurface surface(SheetMetrics());
    DrawSection(surface, Int16(row), true, true);
    return ReadRecording(surface.Lines());
  }

  static std::vector<Word> WordsOf(const QString& pdf, int page) {
    const QString number = QString::number(page);
    const QString text = OutputOf("pdftotext", {"-bbox", "-f", number, "-l", number, pdf, "-"});
    QXmlStreamReader reader(text);
    std::vector<Word> words;
    while (!reader.atEnd()) {
      reader.readNext();
      if (!reader.isStartElement() || reader.name() != u"word") continue;
      const QXmlStreamAttributes place = reader.attributes();
      const auto mm = [&](const char* name) {
        return place.value(QLatin1String(name)).toDouble() * MmPerPoint;
      };
      Word word{"", mm("xMin"), mm("yMin"), mm("xMax")};
      word.Text = FromQt(reader.readElementText());
      words.push_back(word);
    }
    return words;
  }

  // The strokes of two points that the page shows.
  static std::vector<Stroke> StrokesOf(const QString& pdf, int page) {
    const QString number = QString::number(page);
    const QString svg = OutputOf("pdftocairo", {"-svg", "-f", number, "-l", number, pdf, "-"});
    static const QRegularExpression stroke(
        "stroke-width:([0-9.]+);[^>]*d=\"M ([-0-9.]+) ([-0-9.]+) L ([-0-9.]+) ([-0-9.]+) \" "
        "transform=\"matrix\\(([^)]*)\\)\"");
    std::vector<Stroke> strokes;
    for (auto found = stroke.globalMatch(svg); found.hasNext();) {
      const QRegularExpressionMatch match = found.next();
      const QStringList matrix = match.captured(6).split(',');
      const double scale = matrix.at(0).toDouble() * MmPerPoint;
      const QPointF origin(matrix.at(4).toDouble(), matrix.at(5).toDouble());
      const auto at = [&](int first) {
        return Point{match.captured(first).toDouble() * scale + origin.x() * MmPerPoint,
                     match.captured(first + 1).toDouble() * scale + origin.y() * MmPerPoint};
      };
      strokes.push_back({at(2), at(4), match.captured(1).toDouble() * scale});
    }
    return strokes;
  }
};

bool Near(Point a, Point b) {
  return std::fabs(a.X - b.X) < Close && std::fabs(a.Y - b.Y) < Close;
}

}  // namespace

TEST_F(SheetPdfTest, A_PDF_has_a_page_a_section_on_landscape_A4_with_its_fonts_inside) {
  Open("cladding");
  const QString pdf = Pdf();
  const QString info = OutputOf("pdfinfo", {"-f", "1", "-l", "99", pdf});
  const auto sections = static_cast<qsizetype>(Items.UBound());
  EXPECT_TRUE(info.contains(QRegularExpression(QString("Pages: +%1\n").arg(sections))))
      << FromQt(info);
  EXPECT_EQ(info.count(" 842 x 595 pts (A4)"), sections);
  EXPECT_TRUE(info.contains(QRegularExpression("Title: +Job 7\n")));
  EXPECT_TRUE(info.contains(QRegularExpression("Creator: +Orvane Detailing System\n")));

  const QStringList fonts = OutputOf("pdffonts", {pdf}).split('\n', Qt::SkipEmptyParts).mid(2);
  EXPECT_EQ(fonts.size(), 2);  // regular and bold
  for (const QString& font : fonts) {
    EXPECT_TRUE(font.startsWith("LiberationSans")) << FromQt(font);
    EXPECT_TRUE(font.contains(QRegularExpression(" yes +(yes|no) +yes "))) << FromQt(font);
  }
}

TEST_F(SheetPdfTest, Each_page_can_be_searched_for_its_texts) {
  Open("cladding");
  const QString pdf = Pdf();
  for (int row = 1; row <= Items.UBound(); ++row) {
    const QString page = QString::number(row);
    const QString text = OutputOf("pdftotext", {"-raw", "-f", page, "-l", page, pdf, "-"});
    EXPECT_TRUE(text.contains(ToQt(Items.At(row).Mark)));
    EXPECT_TRUE(text.contains("Märtens & Søn Façades"));
    EXPECT_TRUE(text.contains("(c) Lintaro. All rights reserved."));
    EXPECT_TRUE(text.contains("E-mail: sales@lintaro.example"));
  }
}

TEST_F(SheetPdfTest, Texts_stand_where_they_were_written) {
  for (const char* sample : {"portal-shed", "mezzanine", "cladding"}) {
    Open(sample);
    const QString pdf = Pdf();
    for (int row = 1; row <= Items.UBound(); row += 2) {
      const std::vector<Word> words = WordsOf(pdf, row);
      const Recorded recorded = RecordingOf(row);
      ASSERT_GT(recorded.Texts.size(), 10U);
      int joined = 0;
      for (const Word& text : recorded.Texts) {
        if (text.Text.empty()) continue;
        const std::string first = text.Text.substr(0, text.Text.find(' '));
        const auto level = [&](const Word& word) { return std::fabs(word.Top - text.Top) < Close; };
        const bool found = std::any_of(words.begin(), words.end(), [&](const Word& word) {
          return level(word) && word.Text == first && std::fabs(word.Left - text.Left) < Close;
        });
        // Texts that touch each other are read as one word.
        const bool inside = std::any_of(words.begin(), words.end(), [&](const Word& word) {
          return level(word) && word.Text.find(first) != std::string::npos &&
                 word.Left < text.Left + Close && text.Left < word.Right;
        });
        EXPECT_TRUE(found || inside) << sample << " row " << row << ": " << text.Text << " at "
                                     << text.Left << ", " << text.Top;
        if (!found) ++joined;
      }
      EXPECT_LE(joined, static_cast<int>(recorded.Texts.size()) / 5) << sample << " row " << row;
    }
  }
}

TEST_F(SheetPdfTest, Lines_stand_where_they_were_drawn_as_wide_as_they_were_drawn) {
  for (const char* sample : {"portal-shed", "mezzanine", "cladding"}) {
    Open(sample);
    const QString pdf = Pdf();
    for (int row = 1; row <= Items.UBound(); row += 4) {
      const std::vector<Stroke> strokes = StrokesOf(pdf, row);
      const Recorded recorded = RecordingOf(row);
      ASSERT_GT(recorded.Lines.size(), 20U);
      for (const Stroke& line : recorded.Lines) {
        if (line.From == line.To) continue;
        const bool found = std::any_of(strokes.begin(), strokes.end(), [&](const Stroke& stroke) {
          return Near(stroke.From, line.From) && Near(stroke.To, line.To) &&
                 std::fabs(stroke.Width - line.Width) < 0.005;
        });
        EXPECT_TRUE(found) << sample << " row " << row << ": " << line.From.X << ", " << line.From.Y
                           << " to " << line.To.X << ", " << line.To.Y;
      }
    }
  }
}

TEST_F(SheetPdfTest, Pages_of_different_paper_keep_it_from_the_first_one_on) {
  const std::string path = TempFile("mixed.pdf", "");
  PdfOutput pdf(path, "Mixed");
  pdf.Write({210, 297, {}});
  pdf.Write({297, 210, {}});
  pdf.Write({297, 420, {}});
  pdf.Finish();
  const QString info = OutputOf("pdfinfo", {"-f", "1", "-l", "3", ToQt(path)});
  EXPECT_TRUE(info.contains("Page    1 size:  595 x 842 pts (A4)")) << FromQt(info);
  EXPECT_TRUE(info.contains("Page    2 size:  842 x 595 pts (A4)"));
  EXPECT_TRUE(info.contains("Page    3 size:  842 x 1191 pts (A3)"));
}

TEST_F(SheetPdfTest, A_PDF_that_is_not_finished_leaves_the_former_file) {
  const std::string path = TempFile("kept.pdf", "former");
  {
    PdfOutput pdf(path, "Half");
    pdf.Write({210, 297, {}});
  }
  EXPECT_EQ(BytesOf(path), "former");
  EXPECT_EQ(std::distance(
                std::filesystem::directory_iterator(std::filesystem::path(path).parent_path()), {}),
            1);
}

TEST_F(SheetPdfTest, A_file_that_cannot_be_written_is_told) {
  const std::string lost = TempPath("no/such/folder/a.pdf");
  EXPECT_EQ(ErrorOf([&] { PdfOutput(lost, "Lost"); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { WriteSvg(lost, {210, 297, {}}, "Lost"); }), "Path not found");
}

TEST_F(SheetPdfTest, A_device_is_refused) {
  EXPECT_EQ(ErrorOf([&] { PdfOutput("/dev/full", "Full"); }), "Not a regular file");
  EXPECT_EQ(ErrorOf([&] { WriteSvg("/dev/full", {210, 297, {}}, "Full"); }), "Not a regular file");
}

TEST_F(SheetPdfTest, After_any_fault_of_the_disk_the_former_PDF_stands_or_the_new_one) {
  const std::string path = TempPath("a.pdf");
  std::string told;
  const auto prepare = [&] { TempFile("a.pdf", "former"); };
  const auto write = [&] {
    told = OutcomeOf([&] {
      PdfOutput pdf(path, "Job");
      Page page{210, 297, {}};
      for (int line = 0; line < 3000; ++line) {
        page.Shapes.emplace_back(LineShape{{0.07 * line, 0.09 * line}, {200, 0.05 * line}, {}});
      }
      for (int i = 0; i < 3; ++i) pdf.Write(page);
      pdf.Finish();
    });
  };
  ForEachFault(prepare, write, [&](const Fault& fault, const FailingDisk& disk) {
    const std::string& call = disk.Calls.at(static_cast<std::size_t>(fault.Call - 1));
    const std::string where = call + ", error " + std::to_string(fault.Error);
    const std::string bytes = BytesOf(path);
    const bool isNew = bytes.substr(0, 5) == "%PDF-" && bytes.find("%%EOF") != std::string::npos;
    EXPECT_TRUE(bytes == "former" || isNew) << where;
    EXPECT_TRUE(!told.empty() || (isNew && (call == "close" || fault.Heals()))) << where;
    EXPECT_EQ(
        std::distance(
            std::filesystem::directory_iterator(std::filesystem::path(path).parent_path()), {}),
        1)
        << where;
  });
}

TEST_F(SheetPdfTest, After_any_fault_of_the_disk_the_former_SVG_stands_or_the_new_one) {
  const std::string path = TempPath("a.svg");
  std::string told;
  const auto prepare = [&] { TempFile("a.svg", "former"); };
  const auto write = [&] { told = OutcomeOf([&] { WriteSvg(path, {210, 297, {}}, "Job"); }); };
  ForEachFault(prepare, write, [&](const Fault& fault, const FailingDisk& disk) {
    const std::string& call = disk.Calls.at(static_cast<std::size_t>(fault.Call - 1));
    const std::string bytes = BytesOf(path);
    const bool isNew = bytes.find("</svg>") != std::string::npos;
    EXPECT_TRUE(bytes == "former" || isNew) << call;
    EXPECT_TRUE(!told.empty() || (isNew && (call == "close" || fault.Heals()))) << call;
  });
}

TEST_F(SheetPdfTest, An_SVG_has_the_papers_size_and_its_texts_as_text) {
  Open("cladding");
  Document sheet;
  PageSurface surface(SheetMetrics());
  DrawSection(surface, 1, true, true);
  const std::string path = TempFile("sheet.svg", "");
  WriteSvg(path, surface.Result().Pages.front(), "Sheet");
  const std::string svg = BytesOf(path);
  EXPECT_NE(svg.find("width=\"297mm\" height=\"210mm\" viewBox=\"0 0 297 210\""), std::string::npos)
      << svg.substr(0, 400);
  EXPECT_NE(svg.find(Items.At(1).Mark + "</text>"), std::string::npos);
  EXPECT_NE(svg.find("font-family=\"Arial, 'Liberation Sans', sans-serif\""), std::string::npos);
  QXmlStreamReader reader(QByteArray::fromStdString(svg));
  while (!reader.atEnd()) reader.readNext();
  EXPECT_FALSE(reader.hasError()) << FromQt(reader.errorString());
}

TEST_F(SheetPdfTest, An_SVG_is_well_formed_with_any_sign_in_every_text_and_name) {
  Open("cladding");
  const std::string odd = "Smith & Sons < \"x\" > 'y' ]]> \x01";
  for (std::string& detail : txtProject) detail = odd;
  CompanyName = CompanyDetails = odd;
  Items.At(1).Mark = Items.At(1).Notes = odd;
  PageSurface surface(SheetMetrics());
  DrawSection(surface, 1, true, true);
  const std::string path = TempFile("sheet.svg", "");
  WriteSvg(path, surface.Result().Pages.front(), odd);
  QXmlStreamReader reader(QByteArray::fromStdString(BytesOf(path)));
  int texts = 0;
  while (!reader.atEnd()) {
    reader.readNext();
    if (reader.isCharacters() && reader.text().contains(u"Smith & Sons < \"x\" > 'y' ]]>")) ++texts;
  }
  EXPECT_FALSE(reader.hasError()) << FromQt(reader.errorString());
  // Title, mark and notes, five details, and the company in the footer.
  EXPECT_GE(texts, 9);
}

}  // namespace orvane::test
