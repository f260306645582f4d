#include "outputs/printing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "core/fault.h"
#include "core/recording_device_context.h"
#include "outputs/outputs_fixture.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

/// A text where it stands on the sheet.
struct PrintedText {
  std::string words;
  Box box;
};

/// Paper that keeps what is printed on it.
class RecordedPaper : public PrintTarget {
 public:
  explicit RecordedPaper(Size size) : size_(size) {}

  Size sheet() const override { return size_; }
  DeviceContext& measure() override { return measure_; }
  bool print(const PrintPage& page) override {
    if (refuses) return false;
    std::vector<PrintedText>& texts = pages.emplace_back();
    for (const PrintPart& part : page.parts) {
      RecordingDeviceContext surface(part.size);
      part.draw(surface);
      for (const DrawingCall& call : surface.calls(DrawingCall::Kind::Text)) {
        const Box box = text_box(call);
        texts.push_back({call.text,
                         {part.at.x + box.left * part.scale, part.at.y + box.top * part.scale,
                          box.width * part.scale, box.height * part.scale}});
      }
    }
    if (whilePrinting) whilePrinting();
    return true;
  }
  bool end() override { return ended = true; }
  void abort() override { aborted = true; }

  std::vector<std::vector<PrintedText>> pages;
  bool refuses = false;
  bool ended = false;
  bool aborted = false;
  std::function<void()> whilePrinting;

 private:
  Size size_;
  RecordingDeviceContext measure_{{1, 1}};
};

class PrintingTest : public ::testing::Test {
 protected:
  /// Every text within the sheet, and none on another one of its page.
  static void expectReadable(const RecordedPaper& paper) {
    const Size sheet = paper.sheet();
    for (const auto& page : paper.pages) {
      for (std::size_t i = 0; i < page.size(); ++i) {
        const Box& box = page[i].box;
        EXPECT_GE(box.left, -0.01) << page[i].words;
        EXPECT_GE(box.top, -0.01) << page[i].words;
        EXPECT_LE(box.right(), sheet.width + 0.01) << page[i].words;
        EXPECT_LE(box.bottom(), sheet.height + 0.01) << page[i].words;
        for (std::size_t other = 0; other < i; ++other) {
          const Box common = common_part(box, page[other].box);
          EXPECT_FALSE(common.width > 0.01 && common.height > 0.01)
              << page[i].words << " on " << page[other].words;
        }
      }
    }
  }

  /// All texts of the pages without blanks, sorted: what a break between two lines does not change.
  static std::string letters(const RecordedPaper& paper) {
    std::string all;
    for (const auto& page : paper.pages) {
      for (const PrintedText& text : page) all += text.words;
    }
    std::erase(all, ' ');
    std::sort(all.begin(), all.end());
    return all;
  }

  std::string words(int most) {
    std::string text;
    for (int count = 1 + random(most); count > 0; --count) {
      text +=
          (text.empty() ? "" : " ") + std::string(static_cast<std::size_t>(1 + random(12)), 'm');
    }
    return text;
  }
  int random(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  test::FieldFixture fields;
  test::ManualClock clock;
  NoEvents pump;
  test::TemporaryFolder home;
  ProgramFolder folder{home.path()};
  PleaseWait wait{fields.messages, clock, pump, std::make_unique<ManualTimer>()};
  std::vector<std::pair<PrintJob, bool>> jobs;
  Printing printing{
      fields.messages,
      wait,
      nullptr,
      folder,
      {.nameOfSelection =
           [](int slot) {
             const char* const names[] = {"TV6103", "220VAC", "T5 28W", "Single lamp"};
             return std::string(names[slot]);
           },
       .output = [this](const PrintJob& job, bool preview) { jobs.emplace_back(job, preview); }}};
  std::mt19937 random_{4711};
};

TEST_F(PrintingTest, TheHeaderTellsTheSelectionAndThePage) {
  EXPECT_EQ(printing.print_form_caption(12),
            "Lamp Type 'T5 28W', Line Input '220VAC', Configuration 'Single lamp', "
            "Target IC 'TV6103'  Page 12");
  TableGrid grid{table_columns("<Qty|>Value"), {}};
  for (int i = 0; i < 100; ++i) grid.rows.push_back({"1", "2"});
  RecordedPaper paper({800, 600});
  ASSERT_TRUE(printing.run(printing.tableJob(grid, "Bill"), paper));
  ASSERT_GT(paper.pages.size(), 2U);
  for (std::size_t page = 0; page < paper.pages.size(); ++page) {
    const auto holds = [&](const std::string& text) {
      return std::count_if(paper.pages[page].begin(), paper.pages[page].end(),
                           [&](const PrintedText& each) { return each.words == text; });
    };
    EXPECT_EQ(holds(printing.print_form_caption(static_cast<int>(page) + 1)), 1);
    EXPECT_EQ(holds("Value"), 1) << "the titles stand on each page";
  }
}

TEST_F(PrintingTest, NoLineOfATableIsCutOrLost) {
  for (int round = 0; round < 40; ++round) {
    TableGrid grid{table_columns("<Qty|<Type|>Value|^Rating|<Reference"), {}};
    std::string all = "QtyTypeValueRatingReference";
    for (int rows = 1 + random(60); rows > 0; --rows) {
      grid.rows.push_back(
          {words(1), words(3), words(2), words(1), words(random(9) == 0 ? 300 : 20)});
      for (const std::string& cell : grid.rows.back()) all += cell;
    }
    RecordedPaper paper({400.0 + random(600), 300.0 + random(700)});
    const PrintJob job = printing.tableJob(grid, "");
    ASSERT_TRUE(Printing::draw(job, paper));
    expectReadable(paper);
    std::string expected = all;
    for (std::size_t page = 1; page <= paper.pages.size(); ++page) {
      expected += printing.print_form_caption(static_cast<int>(page));
      if (page > 1) expected += "QtyTypeValueRatingReference";
    }
    std::erase(expected, ' ');
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(letters(paper), expected);
    if (HasFailure()) break;
  }
}

TEST_F(PrintingTest, NoLineOfAFormIsCutOrLost) {
  for (int round = 0; round < 40; ++round) {
    FormReport form{"Form", "Title", {}};
    std::string all;
    const auto row = [&](const char* type) {
      FormControl control{.type = type, .caption = words(6), .value = words(8)};
      if (random(2) == 0) control.unit = "mA";
      all += control.caption + control.value;
      if (control.type == "VTLValue") all += control.unit;
      return control;
    };
    for (int frames = 1 + random(12); frames > 0; --frames) {
      FormControl frame{.type = "Frame", .caption = words(8), .wide = random(4) == 0};
      all += frame.caption;
      for (int rows = random(20); rows > 0; --rows) {
        frame.controls.push_back(row(random(3) == 0 ? "ComboBox" : "VTLValue"));
      }
      form.controls.push_back(std::move(frame));
    }
    RecordedPaper paper({420.0 + random(600), 400.0 + random(700)});
    ASSERT_TRUE(printing.draw(printing.formJob(form), paper));
    expectReadable(paper);
    for (std::size_t page = 1; page <= paper.pages.size(); ++page) {
      all += printing.print_form_caption(static_cast<int>(page)) + "Title";
    }
    std::erase(all, ' ');
    std::sort(all.begin(), all.end());
    EXPECT_EQ(letters(paper), all);
    if (HasFailure()) break;
  }
}

TEST_F(PrintingTest, ControlsCountByTheNameOfTheirType) {
  const FormControl tabs{
      .type = "SSTab",
      .controls = {
          {.type = "Tab", .caption = "one", .controls = {{.type = "Label", .caption = "1"}}},
          {.type = "Tab", .caption = "two", .controls = {{.type = "P", .caption = "2"}}}}};
  const FormControl value{.type = "VTLValue", .caption = "L", .value = "2.1", .unit = "mH"};
  const FormReport form{"Form",
                        "Title",
                        {tabs,
                         value,
                         {.type = "TextBox", .caption = "name", .value = "text"},
                         {.type = "Frame", .caption = "frame", .controls = {tabs, value}}}};
  const auto texts = [](const std::vector<PrintPage>& pages) {
    RecordedPaper paper({700, 900});
    for (const PrintPage& page : pages) paper.print(page);
    std::vector<std::string> list;
    for (const PrintedText& text : paper.pages.at(0)) list.push_back(text.words);
    return list;
  };
  RecordedPaper paper({700, 900});
  EXPECT_EQ(
      texts(printing.print_form_info(form, paper.measure(), paper.sheet())),
      (std::vector<std::string>{"name", "text", "frame", "one", "1", "two", "L", "2.1", "mH"}));
  EXPECT_EQ(texts(printing.printframe(form.controls.back(), paper.measure(), paper.sheet())),
            (std::vector<std::string>{"frame", "one", "1", "two", "L", "2.1", "mH"}));
}

TEST_F(PrintingTest, AnEmptyTableIsRefused) {
  printing.print_table({table_columns("<Qty"), {}}, "Bill");
  ASSERT_EQ(fields.messages.shown().size(), 1U);
  EXPECT_EQ(fields.messages.shown()[0].text, "Table is empty - Cannot print");
  EXPECT_EQ(fields.messages.shown()[0].title, "Empty Table");
  EXPECT_TRUE(jobs.empty());
  printing.preview([&] { printing.print_table({table_columns("<Qty"), {{"1"}}}, "Bill"); });
  EXPECT_THROW(printing.preview([] { throw Fault("jam"); }), Fault);
  printing.print_table({table_columns("<Qty"), {{"1"}}}, "Bill");
  ASSERT_EQ(jobs.size(), 2U);
  EXPECT_TRUE(jobs[0].second);
  EXPECT_FALSE(jobs[1].second);
}

TEST_F(PrintingTest, TheProgressWindowIsShownAndClosed) {
  const PrintJob job = printing.formJob({"Form", "Title", {}});
  RecordedPaper paper({700, 900});
  paper.whilePrinting = [&] {
    EXPECT_TRUE(wait.cancelVisible());
    EXPECT_EQ(wait.message(), "Printing ... Please Wait");
  };
  EXPECT_TRUE(printing.run(job, paper));
  EXPECT_FALSE(wait.visible());
  EXPECT_TRUE(paper.ended);
  EXPECT_EQ(fields.takeMessages(), std::vector<std::string>());

  RecordedPaper jammed({700, 900});
  jammed.refuses = true;
  EXPECT_FALSE(printing.run(job, jammed));
  EXPECT_FALSE(wait.visible());
  EXPECT_TRUE(jammed.aborted);
  EXPECT_FALSE(jammed.ended);
  EXPECT_EQ(fields.takeMessages(),
            std::vector<std::string>{"There was a problem printing to your printer"});

  TableGrid grid{table_columns("<Qty"), std::vector<TableRow>(200, TableRow{"1"})};
  RecordedPaper stopped({700, 900});
  stopped.whilePrinting = [&] { wait.Cancel(); };
  EXPECT_FALSE(printing.run(printing.tableJob(grid, "Bill"), stopped));
  EXPECT_EQ(stopped.pages.size(), 1U);
  EXPECT_TRUE(stopped.aborted);
  EXPECT_EQ(fields.takeMessages(), std::vector<std::string>{"Operation Cancelled"});
}

TEST_F(PrintingTest, ThePageSetupIsRemembered) {
  MemorySettings settings;
  EXPECT_EQ(read_paper_setup(settings), PaperSetup());
  PaperSetup setup;
  setup.left = 7.5;
  EXPECT_TRUE(set_paper(setup, "letter"));
  EXPECT_TRUE(set_orientation(setup, "Landscape"));
  EXPECT_FALSE(set_paper(setup, "Parchment"));
  store_paper_setup(settings, setup);
  EXPECT_EQ(read_paper_setup(settings), setup);
  settings.save("Printing", "TopMargin", "1e9");
  settings.save("Printing", "Paper", "");
  EXPECT_EQ(read_paper_setup(settings).top, PaperSetup().top);
  EXPECT_EQ(read_paper_setup(settings).paper, PaperSetup().paper);
}

}  // namespace
}  // namespace vantrel
