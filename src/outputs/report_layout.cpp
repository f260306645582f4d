#include "outputs/report_layout.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/theme.h"
#include "outputs/text_wrapping.h"

namespace vantrel {

namespace {

constexpr double kMargin = 60;     // at the sides
constexpr double kTop = 72;        // where the body begins
constexpr double kBodyBelow = 64;  // below the body
constexpr double kSubtitleLine = 54;
constexpr double kBlockGap = 10;  // between blocks
constexpr double kPadding = 5;    // of cells at their sides
constexpr double kRowPadding = 3;
constexpr double kPairGap = 2;
constexpr double kLinePitch = 1.35;
/// To this share a figure may shrink so that it fits the rest of a page.
constexpr double kLeastScale = 0.8;
/// The part of a page that a figure may fill.
constexpr double kMostOfPage = 0.45;

const Font kText{.size = 13};
const Font kCell{.size = 12};
const Font kHead{.size = 12, .bold = true};
const Font kSmall{.size = 11};
const Font kTitle{.size = 27, .bold = true};
const Font kSubtitle{.size = 15};
const Font kSectionTitle{.size = 18, .bold = true};
const Font kInnerTitle{.size = 14, .bold = true};

Colour ink() { return theme_colour(Role::Text, Theme::Print); }
Colour quiet() { return theme_colour(Role::Muted, Theme::Light); }
Colour rule() { return theme_colour(Role::PanelBorder, Theme::Light); }
Colour accent() { return theme_colour(Role::Accent, Theme::Light); }

double line_of(const Font& font) { return font.size * kLinePitch; }

/// Puts the parts of a report one below the other.
class Typesetter {
 public:
  Typesetter(const ReportDocument& report, Size paper, const TextMeasure& measure)
      : report_(report), paper_(paper), measure_(measure) {
    newPage(paper);
  }

  std::vector<ReportPage> run() {
    titlePage();
    for (const ReportSection& section : report_.sections) {
      section_ = &section;
      sectionTitle(section);
      for (std::size_t i = 0; i < section.blocks.size(); ++i) {
        // A title that stands in front of another block moves on with it.
        const double follows =
            i + 1 < section.blocks.size() ? leastHeight(section.blocks[i + 1]) : 0;
        std::visit([&](const auto& block) { set(block, follows); }, section.blocks[i]);
      }
    }
    numberPages();
    return std::move(pages_);
  }

 private:
  ReportPage& page() { return pages_.back(); }
  double width() { return page().size.width - 2 * kMargin; }
  double bodyEnd() { return page().size.height - kBodyBelow; }
  double room() { return bodyEnd() - y_; }
  double bodyHeight() { return bodyEnd() - kTop; }

  void newPage(Size size) {
    pages_.push_back({size, {}});
    y_ = kTop;
    is_empty_ = true;
  }

  /// Goes to a new page when less than that is left of this one.
  void need(double height) {
    if (!is_empty_ && room() < height) newPage(paper_);
  }

  void fill(const Box& box, Colour colour) { page().items.emplace_back(PlacedBox{box, colour}); }
  void write(Point at, std::string text, const Font& font, Colour colour,
             HorizontalAlign align = HorizontalAlign::Left) {
    page().items.emplace_back(PlacedLine{at, std::move(text), font, colour, align});
  }

  std::vector<std::string> wrap(std::string_view text, const Font& font, double width) {
    return wrapped_text(text, font, width, measure_);
  }

  /// Writes lines from the present place on.
  void lines(std::string_view text, const Font& font, Colour colour) {
    for (std::string& line : wrap(text, font, width())) {
      need(line_of(font));
      write({kMargin, y_}, std::move(line), font, colour);
      y_ += line_of(font);
      is_empty_ = false;
    }
  }

  void titlePage() {
    lines(report_.title, kTitle, ink());
    y_ += kBlockGap / 2;
    lines(report_.subtitle, kSubtitle, quiet());
    if (!report_.date.empty()) lines(report_.date, kText, quiet());
    y_ += kBlockGap;
  }

  void sectionTitle(const ReportSection& section) {
    if (section.blocks.empty()) return;
    if (isWholePage(section.blocks.front())) return;  // its page carries the title
    if (!is_empty_) y_ += 2 * kBlockGap;
    double needed = line_of(kSectionTitle) + kBlockGap + leastHeight(section.blocks.front());
    if (std::holds_alternative<ReportSubtitle>(section.blocks.front()) &&
        section.blocks.size() > 1) {
      needed += leastHeight(section.blocks[1]);
    }
    need(needed);
    placeSectionTitle(section.title);
  }

  void placeSectionTitle(const std::string& title) {
    lines(title, kSectionTitle, accent());
    fill({kMargin, y_ + 2, width(), 1.5}, accent());
    y_ += kBlockGap + 2;
  }

  static bool isWholePage(const ReportBlock& block) {
    const auto* figure = std::get_if<ReportFigure>(&block);
    return figure != nullptr && figure->whole_page;
  }

  /// How much of a block must stand below its title.
  double leastHeight(const ReportBlock& block) {
    if (const auto* figure = std::get_if<ReportFigure>(&block)) {
      return figure->whole_page ? 0 : figureSize(*figure).height * kLeastScale + captionHeight();
    }
    if (const auto* table = std::get_if<ReportTable>(&block)) {
      constexpr std::size_t kRows = 3;  // a head and two rows
      const std::size_t rows = std::min(kRows, table->grid.rows.size() + 1);
      return static_cast<double>(rows) * (line_of(kCell) + 2 * kRowPadding);
    }
    if (const auto* list = std::get_if<ReportPairs>(&block)) {
      const double all = static_cast<double>(list->pairs.size()) * (line_of(kText) + kPairGap);
      return std::min(all, bodyHeight() * kMostOfPage);
    }
    return 2 * line_of(kText);
  }

  void set(const ReportParagraph& paragraph, double /*follows*/) {
    if (paragraph.tone == ReportTone::Plain) {
      lines(paragraph.text, kText, ink());
      y_ += kBlockGap;
    } else {
      setNote(paragraph);
    }
  }

  /// A paragraph with a bar at its side and a word that says what it is.
  void setNote(const ReportParagraph& paragraph) {
    constexpr double kIndent = 12;
    struct Look {
      const char* word;
      Role role;
    };
    const Look look = paragraph.tone == ReportTone::Warning ? Look{"Warning: ", Role::Warning}
                      : paragraph.tone == ReportTone::Good  ? Look{"\u2713 ", Role::Ok}
                                                            : Look{"", Role::PanelBorder};
    const auto text = wrap(look.word + paragraph.text, kText, width() - kIndent);
    const double height = static_cast<double>(text.size()) * line_of(kText);
    if (height < bodyHeight()) need(height);
    for (const std::string& line : text) {
      need(line_of(kText));
      fill({kMargin, y_, 3, line_of(kText)}, theme_colour(look.role, Theme::Light));
      write({kMargin + kIndent, y_}, line, kText, ink());
      y_ += line_of(kText);
      is_empty_ = false;
    }
    y_ += kBlockGap;
  }

  void set(const ReportSubtitle& subtitle, double follows) {
    need(line_of(kInnerTitle) + kPadding + follows);
    lines(subtitle.text, kInnerTitle, ink());
    y_ += kPadding;
  }

  void set(const ReportPairs& list, double /*follows*/) {
    double labels = 0;
    for (const ReportPair& pair : list.pairs) {
      labels = std::max(labels, measure_(kText, pair.label).width);
    }
    const double column = std::min(labels + 2 * kBlockGap, width() * 0.4);
    for (const ReportPair& pair : list.pairs) {
      auto left = wrap(pair.label, kText, column - kBlockGap);
      auto right = wrap(pair.value, kText, width() - column);
      const std::size_t count = std::max(left.size(), right.size());
      need(static_cast<double>(std::min<std::size_t>(count, 40)) * line_of(kText));
      for (std::size_t i = 0; i < count; ++i) {
        need(line_of(kText));
        if (i < left.size()) write({kMargin, y_}, left[i], kText, quiet());
        if (i < right.size()) write({kMargin + column, y_}, right[i], kText, ink());
        y_ += line_of(kText);
        is_empty_ = false;
      }
      y_ += kPairGap;
    }
    y_ += kBlockGap;
  }

  // Tables

  using Cells = std::vector<std::vector<std::string>>;

  Cells wrapCells(const TableRow& row, const std::vector<double>& widths, const Font& font) {
    Cells cells;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      cells.push_back(wrap(row.at(i), font, widths[i] - 2 * kPadding));
    }
    return cells;
  }

  static double heightOf(const Cells& cells, const Font& font) {
    std::size_t most = 1;
    for (const auto& cell : cells) most = std::max(most, cell.size());
    return static_cast<double>(most) * line_of(font) + 2 * kRowPadding;
  }

  void setRow(const Cells& cells, const TableGrid& grid, const std::vector<double>& widths,
              const Font& font, bool is_head) {
    const double height = heightOf(cells, font);
    if (is_head) {
      fill({kMargin, y_, width(), height}, theme_colour(Role::Window, Theme::Light));
    }
    double left = kMargin;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const ColumnAlignment column = grid.columns[i].alignment;
      const auto align = static_cast<HorizontalAlign>(column);
      const double x = column == ColumnAlignment::Left     ? left + kPadding
                       : column == ColumnAlignment::Centre ? left + widths[i] / 2
                                                           : left + widths[i] - kPadding;
      double y = y_ + kRowPadding;
      for (const std::string& line : cells[i]) {
        if (!line.empty()) write({x, y}, line, font, ink(), align);
        y += line_of(font);
      }
      left += widths[i];
    }
    y_ += height;
    fill({kMargin, y_ - 0.5, width(), is_head ? 1.0 : 0.5}, rule());
    is_empty_ = false;
  }

  void set(const ReportTable& table, double /*follows*/) {
    const TableGrid& grid = table.grid;
    TableRow titles;
    for (const TableColumn& column : grid.columns) titles.push_back(column.title);
    const std::vector<double> widths =
        column_widths(grid, kHead, kCell, 2 * kPadding + 0.5, width(), measure_);
    const Cells head = wrapCells(titles, widths, kHead);
    const double head_height = heightOf(head, kHead);
    std::vector<Cells> rows;
    for (const TableRow& row : grid.rows) rows.push_back(wrapCells(row, widths, kCell));
    const double first = rows.empty() ? 0 : heightOf(rows.front(), kCell);
    need(head_height + first);
    setRow(head, grid, widths, kHead, true);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      // The last row takes the one before along, so that it never stands alone.
      const double last = i + 2 == rows.size() ? heightOf(rows.back(), kCell) : 0;
      if (room() < heightOf(rows[i], kCell) + last && i > 0) {
        newPage(paper_);
        setRow(head, grid, widths, kHead, true);
      }
      setRow(rows[i], grid, widths, kCell, false);
    }
    y_ += kBlockGap;
  }

  // Figures

  double captionHeight() const { return line_of(kSmall) + kBlockGap; }

  Size figureSize(const ReportFigure& figure) {
    const Size natural = figure.picture.size;
    const double most = bodyHeight() * kMostOfPage;
    const double scale = std::min({1.0, width() / natural.width, most / natural.height});
    return {natural.width * scale, natural.height * scale};
  }

  void set(const ReportFigure& figure, double /*follows*/) {
    if (figure.whole_page) {
      setWholePage(figure);
      return;
    }
    if (!is_empty_) y_ += kPadding;
    Size size = figureSize(figure);
    const double free = room() - captionHeight();
    if (free < size.height && free >= size.height * kLeastScale) {
      size = {size.width * free / size.height, free};
    }
    need(size.height + captionHeight());
    place(figure, {kMargin, y_, size.width, size.height});
  }

  void place(const ReportFigure& figure, const Box& box) {
    page().items.emplace_back(PlacedPicture{box, &figure.picture});
    y_ = box.bottom() + kPadding;
    is_empty_ = false;
    for (std::string& line : wrap(figure.caption, kSmall, width())) {
      write({kMargin, y_}, std::move(line), kSmall, quiet());
      y_ += line_of(kSmall);
    }
    y_ += kBlockGap;
  }

  void setWholePage(const ReportFigure& figure) {
    const Size natural = figure.picture.size;
    const bool turned = natural.width > natural.height;
    const Size size = turned ? Size{paper_.height, paper_.width} : paper_;
    if (is_empty_) pages_.pop_back();
    newPage(size);
    placeSectionTitle(section_->title);
    const double height = room() - captionHeight();
    const double scale = std::min(width() / natural.width, height / natural.height);
    const Size shown{natural.width * scale, natural.height * scale};
    place(figure, {kMargin + (width() - shown.width) / 2, y_, shown.width, shown.height});
    newPage(paper_);
  }

  // What every page carries

  void numberPages() {
    if (is_empty_ && pages_.size() > 1) pages_.pop_back();
    for (std::size_t i = 0; i < pages_.size(); ++i) {
      ReportPage& each = pages_[i];
      const double right = each.size.width - kMargin;
      const double inner = right - kMargin;
      const double foot = each.size.height - kBodyBelow + 18;
      const auto put = [&](Point at, std::string text, HorizontalAlign align) {
        each.items.emplace_back(PlacedLine{at, std::move(text), kSmall, quiet(), align});
      };
      if (i > 0) {
        put({kMargin, kSubtitleLine - line_of(kSmall) - 3},
            shortened_text(report_.subtitle, kSmall, inner, measure_), HorizontalAlign::Left);
        each.items.emplace_back(PlacedBox{{kMargin, kSubtitleLine, inner, 0.5}, rule()});
      }
      each.items.emplace_back(PlacedBox{{kMargin, foot - 6, inner, 0.5}, rule()});
      const std::string date = report_.date.empty() ? "" : ", " + report_.date;
      put({kMargin, foot}, shortened_text(report_.title + date, kSmall, inner * 0.75, measure_),
          HorizontalAlign::Left);
      put({right, foot}, "Page " + std::to_string(i + 1) + " of " + std::to_string(pages_.size()),
          HorizontalAlign::Right);
    }
  }

  const ReportDocument& report_;
  Size paper_;
  const TextMeasure& measure_;
  const ReportSection* section_ = nullptr;
  std::vector<ReportPage> pages_;
  double y_ = kTop;
  bool is_empty_ = true;
};

}  // namespace

std::vector<ReportPage> report_pages(const ReportDocument& report, Size paper,
                                     const TextMeasure& measure) {
  return Typesetter(report, paper, measure).run();
}

void draw_report_page(const ReportPage& page, DeviceContext& surface,
                      const std::function<void(const PlacedPicture&)>& place) {
  for (const PlacedItem& item : page.items) {
    if (const auto* box = std::get_if<PlacedBox>(&item)) {
      surface.setNoPen();
      surface.setBrush(box->colour);
      surface.rectangle(box->box);
    } else if (const auto* text = std::get_if<PlacedLine>(&item)) {
      surface.setFont(text->font);
      surface.setTextColour(text->colour);
      surface.setTextAlign({text->align, VerticalAlign::Top});
      surface.text(text->at, text->text);
    } else {
      place(std::get<PlacedPicture>(item));
    }
  }
}

}  // namespace vantrel
