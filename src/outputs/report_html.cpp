#include "outputs/report_html.h"

#include <string_view>
#include <variant>

namespace vantrel {

namespace {

constexpr std::string_view kStyle = R"(
:root{color-scheme:light dark;--paper:#fff;--ink:#1c2530;--quiet:#566270;--line:#d3d9e0;
--band:#f3f5f8;--accent:#14548c;--warn:#8a4b00;--warn-back:#fff4e0;--good:#1c6b3a}
@media (prefers-color-scheme:dark){:root{--paper:#171b20;--ink:#e6eaef;--quiet:#a5b0bc;
--line:#3a434d;--band:#20262d;--accent:#7fb8ec;--warn:#f3b765;--warn-back:#33270f;--good:#7fd09b}}
*{box-sizing:border-box}
body{margin:0;background:var(--paper);color:var(--ink);
font:1rem/1.5 system-ui,"Segoe UI",Arial,sans-serif;-webkit-text-size-adjust:100%}
header,nav,main,footer{max-width:62rem;margin:0 auto;padding:0 1.25rem}
header{padding-top:2rem}
h1{font-size:1.9rem;line-height:1.2;margin:0 0 .25rem}
h2{font-size:1.35rem;line-height:1.3;margin:2.5rem 0 .75rem;padding-bottom:.25rem;
border-bottom:2px solid var(--accent)}
h3{font-size:1.05rem;margin:1.5rem 0 .5rem}
p{margin:.5rem 0;overflow-wrap:anywhere}
a{color:var(--accent)}
.sub,.quiet,figcaption,footer{color:var(--quiet)}
nav ol{columns:2 16rem;padding-left:1.75rem;margin:1rem 0}
.note,.good,.warning{border-left:4px solid var(--line);background:var(--band);padding:.5rem .75rem;
white-space:pre-line}
.warning{border-color:var(--warn);background:var(--warn-back)}
.good{border-color:var(--good)}
.warning b{color:var(--warn)}
.good b{color:var(--good)}
dl{display:grid;grid-template-columns:minmax(8rem,14rem) 1fr;gap:.25rem 1rem;margin:.5rem 0}
dt{color:var(--quiet)}
dd{margin:0;overflow-wrap:anywhere}
.wide{overflow-x:auto;margin:.5rem 0}
table{border-collapse:collapse;width:100%;font-size:.92rem}
th,td{text-align:left;vertical-align:top;padding:.35rem .6rem;border-bottom:1px solid var(--line)}
thead th{background:var(--band);border-bottom:2px solid var(--line);white-space:nowrap}
tbody th{font-weight:600}
.r{text-align:right;white-space:nowrap;font-variant-numeric:tabular-nums}
.c{text-align:center}
.hide{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%);white-space:nowrap}
figure{margin:1rem 0}
.paper{background:#fff;border:1px solid var(--line);padding:.5rem}
.paper svg{display:block;width:100%;height:auto;margin:0 auto;min-width:36rem}
figcaption{font-size:.9rem;margin-top:.35rem}
footer{padding-top:2rem;padding-bottom:2rem;font-size:.9rem}
@media (max-width:30rem){dl{grid-template-columns:1fr;gap:0}dd{margin-bottom:.5rem}
h1{font-size:1.5rem}}
@page{size:auto;margin:16mm}
@page turned{size:landscape}
@media print{:root{color-scheme:light;--paper:#fff;--ink:#000;--quiet:#444;--line:#bbb;
--band:#f1f1f1;--accent:#14548c;--warn:#7a4200;--warn-back:#fff;--good:#1c6b3a}
html{font-size:9.5pt}
header,nav,main,footer{max-width:none;padding:0}
nav{display:none}
h2{margin-top:1.5rem}
h2,h3{break-after:avoid;break-inside:avoid}
h2::after{content:"";display:block;height:30mm;margin-bottom:-30mm}
tr,figure,.note,.good,.warning,dl>*{break-inside:avoid}
thead{display:table-header-group}
.wide{overflow:visible}
.paper{border:0;padding:0}
.paper svg{min-width:0;max-height:225mm}
.turned{page:turned;break-before:page;break-after:page}
.turned h2::after{display:none}
.turned svg{max-height:160mm}
a{color:inherit;text-decoration:none}}
)";

std::string tag(std::string_view name, const std::string& content, std::string_view more = "") {
  return "<" + std::string(name).append(more) + ">" + content + "</" + std::string(name) + ">";
}

std::string class_of(std::string_view name) { return " class=\"" + std::string(name) + "\""; }

/// Escaped text that may be broken behind a comma.
std::string breakable(std::string_view text) {
  std::string result;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t comma = text.find(',', begin);
    const std::size_t end = comma == std::string_view::npos ? text.size() : comma + 1;
    result += escaped_markup(text.substr(begin, end - begin));
    if (end < text.size() && text[end] != ' ') result += "<wbr>";
    begin = end;
  }
  return result;
}

/// Turns the parts of a report into elements.
class HtmlWriter {
 public:
  explicit HtmlWriter(const TextMeasure& measure) : measure_(measure) {}

  std::string operator()(const ReportParagraph& paragraph) {
    const std::string text = escaped_markup(paragraph.text);
    switch (paragraph.tone) {
      case ReportTone::Warning:
        return tag("p", "<b>Warning:</b> " + text, class_of("warning")) + "\n";
      case ReportTone::Good:
        return tag("p", "<b>\u2713</b> " + text, class_of("good")) + "\n";
      case ReportTone::Note:
        return tag("p", text, class_of("note")) + "\n";
      case ReportTone::Plain:
        break;
    }
    return tag("p", text) + "\n";
  }

  std::string operator()(const ReportSubtitle& subtitle) {
    return tag("h3", escaped_markup(subtitle.text)) + "\n";
  }

  std::string operator()(const ReportPairs& list) {
    std::string lines;
    for (const ReportPair& pair : list.pairs) {
      lines += tag("dt", escaped_markup(pair.label)) + tag("dd", breakable(pair.value)) + "\n";
    }
    return tag("dl", "\n" + lines) + "\n";
  }

  std::string operator()(const ReportTable& table) {
    std::string head;
    for (const TableColumn& column : table.grid.columns) {
      head += tag("th", escaped_markup(column.title), " scope=\"col\"" + alignment(column));
    }
    std::string rows;
    for (const TableRow& row : table.grid.rows) rows += tag("tr", cells(table, row)) + "\n";
    const std::string title = escaped_markup(table.title);
    return tag("div",
               tag("table", tag("caption", tag("span", title, class_of("hide"))) +
                                tag("thead", tag("tr", head)) + "\n" + tag("tbody", "\n" + rows)),
               class_of("wide") + " role=\"region\" tabindex=\"0\" aria-label=\"" + title + "\"") +
           "\n";
  }

  std::string operator()(const ReportFigure& figure) {
    const Picture& picture = figure.picture;
    SvgDeviceContext surface(picture.size, "f" + std::to_string(++figures_) + "-", measure_);
    picture.draw(surface);
    const std::string caption = escaped_markup(figure.caption);
    return tag("figure", tag("div", "\n" + surface.element(figure.alternative),
                             class_of("wide paper") +
                                 " role=\"region\" tabindex=\"0\" aria-label=\"" + caption + "\"") +
                             tag("figcaption", caption)) +
           "\n";
  }

 private:
  static std::string alignment(const TableColumn& column) {
    if (column.alignment == ColumnAlignment::Left) return {};
    return class_of(column.alignment == ColumnAlignment::Right ? "r" : "c");
  }

  static std::string cells(const ReportTable& table, const TableRow& row) {
    std::string text;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string aligned = alignment(table.grid.columns.at(i));
      text += i == 0 ? tag("th", breakable(row[i]), " scope=\"row\"" + aligned)
                     : tag("td", breakable(row[i]), aligned);
    }
    return text;
  }

  const TextMeasure& measure_;
  int figures_ = 0;
};

/// True for a section that is one drawing on a page of its own.
bool is_turned(const ReportSection& section) {
  if (section.blocks.size() != 1) return false;
  const auto* figure = std::get_if<ReportFigure>(&section.blocks.front());
  return figure != nullptr && figure->whole_page;
}

std::string anchor_of(std::size_t section) { return "section-" + std::to_string(section + 1); }

std::string contents(const ReportDocument& report) {
  std::string entries;
  for (std::size_t i = 0; i < report.sections.size(); ++i) {
    entries += tag("li", tag("a", escaped_markup(report.sections[i].title),
                             " href=\"#" + anchor_of(i) + "\"")) +
               "\n";
  }
  return tag("nav", tag("ol", "\n" + entries), " aria-label=\"Contents\"") + "\n";
}

}  // namespace

std::string report_html(const ReportDocument& report, const TextMeasure& measure) {
  HtmlWriter writer(measure);
  std::string sections;
  for (std::size_t i = 0; i < report.sections.size(); ++i) {
    std::string text = tag("h2", escaped_markup(report.sections[i].title)) + "\n";
    for (const ReportBlock& block : report.sections[i].blocks) text += std::visit(writer, block);
    const std::string turned = is_turned(report.sections[i]) ? class_of("turned") : "";
    sections += tag("section", "\n" + text, " id=\"" + anchor_of(i) + "\"" + turned) + "\n";
  }
  const std::string title = escaped_markup(report.title);
  std::string header =
      tag("h1", title) + "\n" + tag("p", escaped_markup(report.subtitle), class_of("sub")) + "\n";
  if (!report.date.empty()) {
    header += tag("p", tag("time", escaped_markup(report.date)), class_of("quiet")) + "\n";
  }
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
         "<meta http-equiv=\"Content-Security-Policy\" "
         "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\">\n" +
         tag("title", title) + "\n" + tag("style", std::string(kStyle)) + "\n</head>\n<body>\n" +
         tag("header", "\n" + header) + "\n" + contents(report) + tag("main", "\n" + sections) +
         "\n</body>\n</html>\n";
}

}  // namespace vantrel
