#include "outputs/table_pages.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "core/theme.h"
#include "outputs/page_breaks.h"
#include "outputs/text_wrapping.h"

namespace vantrel {
namespace {

constexpr const char* kFace = "Arial";
constexpr double kTextSize = 11;
constexpr double kLine = 15;
constexpr double kRowGap = 4;
constexpr double kColumnGap = 12;
/// Room beside the widest text, so that a rounding does not break it.
constexpr double kSlack = 1;

Font font_of(bool bold) { return {.face = kFace, .size = kTextSize, .bold = bold}; }

/// The lines of one cell.
using Cell = std::vector<std::string>;

struct Row {
  std::vector<Cell> cells;
  double top = 0;
  double height = 0;
};

struct Column {
  double left = 0;
  double width = 0;
  ColumnAlignment alignment = ColumnAlignment::Left;
};

struct Table {
  std::vector<Column> columns;
  Row titles;
  std::vector<Row> rows;
  double height = 0;
};

std::vector<Column> columns_of(const TableGrid& grid, DeviceContext& measure, double room) {
  const TextMeasure extent = [&measure](const Font& font, std::string_view words) {
    measure.setFont(font);
    return measure.textExtent(words);
  };
  // The gap behind the last column is none.
  const std::vector<double> widths = column_widths(grid, font_of(true), font_of(false),
                                                   kColumnGap + kSlack, room + kColumnGap, extent);
  std::vector<Column> columns;
  double left = 0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    columns.push_back({left, widths[i] - kColumnGap, grid.columns[i].alignment});
    left += widths[i];
  }
  return columns;
}

Row make_row(const TableRow& cells, const std::vector<Column>& columns, DeviceContext& measure,
             bool bold, double top) {
  measure.setFont(font_of(bold));
  Row row{{}, top, 0};
  std::size_t most = 1;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    row.cells.push_back(
        wrapped_lines(measure, i < cells.size() ? cells[i] : std::string(), columns[i].width));
    most = std::max(most, row.cells.back().size());
  }
  row.height = static_cast<double>(most) * kLine + kRowGap;
  return row;
}

Table make_table(const TableGrid& grid, DeviceContext& measure, double room) {
  Table table{columns_of(grid, measure, room), {}, {}, 0};
  TableRow titles;
  for (const TableColumn& column : grid.columns) titles.push_back(column.title);
  table.titles = make_row(titles, table.columns, measure, true, 0);
  for (const TableRow& cells : grid.rows) {
    table.rows.push_back(make_row(cells, table.columns, measure, false, table.height));
    table.height += table.rows.back().height;
  }
  return table;
}

std::vector<KeptTogether> kept_together(const Table& table) {
  std::vector<KeptTogether> kept;
  for (const Row& row : table.rows) {
    kept.push_back({row.top, row.top + row.height, Keeping::Row});
    for (double top = row.top; top + kLine <= row.top + row.height; top += kLine) {
      kept.push_back({top, top + kLine, Keeping::Line});
    }
  }
  return kept;
}

/// Where a cell's text is aligned to.
Point anchor(const Column& column, double top) {
  const double shares[] = {0, 0.5, 1};
  return {column.left + column.width * shares[static_cast<std::size_t>(column.alignment)], top};
}

class TableDrawing {
 public:
  TableDrawing(DeviceContext& surface, const Table& table) : surface_(surface), table_(table) {
    surface.setTextColour(theme_colour(Role::Text, Theme::Print));
    surface.setPen({theme_colour(Role::PanelBorder, Theme::Print), 0.75, {}});
  }

  void draw(const PageSpan& page) {
    surface_.setFont(font_of(true));
    draw(table_.titles, {0, table_.titles.height}, 0);
    const double top = table_.titles.height;
    surface_.moveTo({0, top - kRowGap / 2});
    surface_.lineTo({surface_.size().width, top - kRowGap / 2});
    surface_.setFont(font_of(false));
    for (const Row& row : table_.rows) draw(row, page, top - page.top);
  }

 private:
  void draw(const Row& row, const PageSpan& page, double offset) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const Column& column = table_.columns[i];
      surface_.setTextAlign(
          {static_cast<HorizontalAlign>(column.alignment), VerticalAlign::Middle});
      for (std::size_t line = 0; line < row.cells[i].size(); ++line) {
        const double top = row.top + static_cast<double>(line) * kLine;
        if (top < page.top || top >= page.bottom) continue;
        surface_.text(anchor(column, top + kLine / 2 + offset), row.cells[i][line]);
      }
    }
  }

  DeviceContext& surface_;
  const Table& table_;
};

}  // namespace

std::vector<PrintPage> table_pages(const TableGrid& grid, DeviceContext& measure, Size sheet) {
  if (grid.columns.empty()) return {};
  const auto table = std::make_shared<const Table>(make_table(grid, measure, sheet.width));
  const double room = std::max(sheet.height - table->titles.height, kLine);
  std::vector<PrintPage> pages;
  for (const PageSpan& span : page_spans(kept_together(*table), table->height, room)) {
    PrintPart part{{}, 1, {sheet.width, table->titles.height + span.bottom - span.top}, {}};
    part.draw = [table, span](DeviceContext& surface) { TableDrawing(surface, *table).draw(span); };
    pages.push_back({{std::move(part)}});
  }
  return pages;
}

}  // namespace vantrel
