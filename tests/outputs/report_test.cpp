#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "outputs/report_html.h"
#include "outputs/report_layout.h"
#include "outputs/text_wrapping.h"

namespace vantrel {
namespace {

/// Every letter is half an em wide.
Size half_em(const Font& font, std::string_view words) {
  return {static_cast<double>(words.size()) * font.size / 2, font.size * 1.2};
}

constexpr const char* kHostile = "<b>&\"'\x01";

Picture clipped_picture(Size size) {
  return {"picture", size, [](DeviceContext& surface) {
            surface.clip({1, 2, 3, 4});
            surface.rectangle({0, 0, 10, 10});
            surface.text({1, 1}, kHostile);
          }};
}

/// All kinds of blocks, a table of that many rows, and hostile texts in every place.
ReportDocument sample(int rows) {
  ReportTable table{kHostile, {table_columns("<Name|>Value|<References"), {}}};
  for (int i = 0; i < rows; ++i) {
    table.grid.rows.push_back({"row" + std::to_string(i), kHostile,
                               "R1,R2,R3,R4,R5,R6,R7,R8,R9,"
                               "R10,R11,R12,R13,R14,R15,R16,R17,R18,R19,R20,R21,R22,R23"});
  }
  ReportSection first{kHostile, {}};
  first.add(ReportParagraph{kHostile, ReportTone::Warning});
  first.add(ReportPairs{{{kHostile, kHostile}, {"label", std::string(600, 'x')}}});
  first.add(table);
  ReportSection second{"Figures", {}};
  second.add(ReportSubtitle{kHostile});
  second.add(ReportFigure{clipped_picture({900, 400}), kHostile, kHostile, false});
  second.add(ReportFigure{clipped_picture({300, 2000}), "tall", "tall", false});
  ReportSection third{"Diagram", {}};
  third.add(ReportFigure{clipped_picture({1100, 700}), "wide", "wide", true});
  return {kHostile, std::string(300, 'w'), "2026-01-31", {first, second, third}};
}

/// The elements that are opened and not closed, or closed and not open; and the void ones are let
/// pass.
std::string misnested(const std::string& html) {
  const std::set<std::string> voids{"meta", "wbr"};
  std::vector<std::string> open;
  for (std::size_t at = html.find('<', 1); at != std::string::npos; at = html.find('<', at + 1)) {
    const std::size_t end = html.find('>', at);
    if (end == std::string::npos) return "unclosed tag";
    const bool closes = html[at + 1] == '/';
    const std::size_t name = at + (closes ? 2 : 1);
    const std::string element = html.substr(name, html.find_first_of(" />\n", name) - name);
    if (closes) {
      if (open.empty() || open.back() != element) return "</" + element + ">";
      open.pop_back();
    } else if (html[end - 1] != '/' && voids.count(element) == 0) {
      open.push_back(element);
    }
  }
  return open.empty() ? "" : "<" + open.back() + ">";
}

TEST(ReportHtmlTest, IsWellFormedWholeAndEscaped) {
  const std::string html = report_html(sample(3), half_em);
  EXPECT_EQ(misnested(html), "");
  EXPECT_EQ(html.find("<b>&"), std::string::npos);
  EXPECT_EQ(html.find('\x01'), std::string::npos);
  EXPECT_NE(html.find("&lt;b&gt;&amp;&quot;&#39;"), std::string::npos);
  std::multiset<std::string> ids;
  for (std::size_t at = 0; (at = html.find(" id=\"", at)) != std::string::npos; at += 5) {
    ids.insert(html.substr(at + 5, html.find('"', at + 5) - at - 5));
  }
  for (const std::string& id : ids) EXPECT_EQ(ids.count(id), 1u) << id;
  EXPECT_GE(ids.size(), 6u);  // three sections, and the clip of each picture
  for (const char* reference : {"href=\"", "src=\"", "url("}) {
    for (std::size_t at = 0; (at = html.find(reference, at)) != std::string::npos; ++at) {
      EXPECT_EQ(html[at + std::string_view(reference).size()], '#') << html.substr(at, 60);
    }
  }
}

Box box_of(const PlacedLine& text) {
  const Size size = half_em(text.font, text.text);
  const double share = text.align == HorizontalAlign::Right    ? 1
                       : text.align == HorizontalAlign::Centre ? 0.5
                                                               : 0;
  return {text.at.x - share * size.width, text.at.y, size.width, text.font.size};
}

TEST(ReportLayoutTest, NothingIsCutOverlapsOrStandsAlone) {
  for (const Size paper : {Size{793.7, 1122.5}, Size{816, 1056}}) {
    for (int rows = 1; rows <= 60; ++rows) {
      SCOPED_TRACE(testing::Message() << paper.width << " with " << rows);
      const ReportDocument report = sample(rows);
      const std::vector<ReportPage> pages = report_pages(report, paper, half_em);
      int heads = 0;
      int found = 0;
      int pictures = 0;
      for (std::size_t number = 0; number < pages.size(); ++number) {
        const ReportPage& page = pages[number];
        std::vector<Box> boxes;
        std::vector<std::string> texts;
        for (const PlacedItem& item : page.items) {
          if (const auto* text = std::get_if<PlacedLine>(&item)) {
            boxes.push_back(box_of(*text));
            texts.push_back(text->text);
          } else if (const auto* picture = std::get_if<PlacedPicture>(&item)) {
            boxes.push_back(picture->box);
            const Size natural = picture->picture->size;
            EXPECT_NEAR(picture->box.width / picture->box.height, natural.width / natural.height,
                        1e-6);
            ++pictures;
          }
        }
        for (std::size_t i = 0; i < boxes.size(); ++i) {
          EXPECT_GE(boxes[i].left, 55) << number;
          EXPECT_LE(boxes[i].right(), page.size.width - 55) << number;
          EXPECT_LE(boxes[i].bottom(), page.size.height - 20) << number;
          for (std::size_t j = 0; j < i; ++j) {
            const Box common = common_part(boxes[i], boxes[j]);
            EXPECT_FALSE(common.width > 0.5 && common.height > 0.5)
                << "page " << number << ": " << i << " over " << j;
          }
        }
        const auto on_page = [&](const std::string& text) {
          return std::count(texts.begin(), texts.end(), text);
        };
        const auto rows_here = std::count_if(
            texts.begin(), texts.end(), [](const auto& text) { return text.starts_with("row"); });
        EXPECT_EQ(on_page("Name"), rows_here > 0 ? 1 : 0) << number;
        if (rows > 1) {
          EXPECT_NE(rows_here, 1) << "page " << number;
        }
        heads += static_cast<int>(on_page("Name"));
        found += static_cast<int>(rows_here);
        EXPECT_EQ(
            on_page("Page " + std::to_string(number + 1) + " of " + std::to_string(pages.size())),
            1);
      }
      EXPECT_EQ(found, rows);
      EXPECT_GE(heads, rows > 45 ? 2 : 1);
      EXPECT_EQ(pictures, 3);
      EXPECT_GT(pages.back().size.width, pages.back().size.height);  // the wide diagram
    }
  }
}

TEST(ReportTextTest, BreaksWhereAReaderWould) {
  const Font font{.size = 10};  // five pixels a letter
  const auto lines = [&](std::string_view text, double width) {
    return wrapped_text(text, font, width, half_em);
  };
  using Lines = std::vector<std::string>;
  EXPECT_EQ(lines("one two", 35), (Lines{"one two"}));
  EXPECT_EQ(lines("one two", 30), (Lines{"one", "two"}));
  EXPECT_EQ(lines("R1,R22,R333", 40), (Lines{"R1,R22,", "R333"}));
  EXPECT_EQ(lines("choke-coil -5", 30), (Lines{"choke-", "coil", "-5"}));
  EXPECT_EQ(lines("a\n\nb", 30), (Lines{"a", "", "b"}));
  EXPECT_EQ(lines("abcdef", 20), (Lines{"abcd", "ef"}));
  EXPECT_EQ(lines("", 20), (Lines{""}));
  EXPECT_EQ(lines("\u03a9\u03a9", 1), (Lines{"\u03a9", "\u03a9"}));
}

}  // namespace
}  // namespace vantrel
