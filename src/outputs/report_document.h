#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "core/device_context.h"
#include "outputs/table_grid.h"

namespace vantrel {

/// What a paragraph of a report is for; it is told by a mark and a word, never by colour alone.
enum class ReportTone { Plain, Note, Good, Warning };

/// A paragraph; "\n" starts a new line.
struct ReportParagraph {
  std::string text;
  ReportTone tone = ReportTone::Plain;
};

/// A title below that of the section.
struct ReportSubtitle {
  std::string text;
};

/// One line of a list of terms.
struct ReportPair {
  std::string label;
  std::string value;
};

/// Terms and what they are.
struct ReportPairs {
  std::vector<ReportPair> pairs;
};

/// A table; the width of a column is its share of the whole. Each row has a cell for every column.
struct ReportTable {
  std::string title;  ///< Names the table to who cannot see it.
  TableGrid grid;
};

/// A drawing on white paper.
struct ReportFigure {
  Picture picture;
  std::string caption;
  std::string alternative;  ///< What it shows, in words.
  bool whole_page = false;  ///< On paper it takes a page of its own, turned as it fits best.
};

using ReportBlock =
    std::variant<ReportParagraph, ReportSubtitle, ReportPairs, ReportTable, ReportFigure>;

struct ReportSection {
  std::string title;
  std::vector<ReportBlock> blocks;

  template <typename Block>
  void add(Block block) {
    blocks.emplace_back(std::move(block));
  }
};

/// A report without its form; writers turn it into pages or into HTML.
struct ReportDocument {
  std::string title;
  std::string subtitle;  ///< Runs along the top of every page.
  std::string date;      ///< "2026-01-31"; empty for none.
  std::vector<ReportSection> sections;
};

}  // namespace vantrel
