#include "outputs/printing.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <utility>

#include "core/number_text.h"
#include "core/theme.h"
#include "outputs/form_layout.h"
#include "outputs/form_pages.h"
#include "outputs/page_breaks.h"
#include "outputs/table_pages.h"

namespace vantrel {
namespace {

constexpr double kTextSize = 11;
constexpr double kTitleSize = 15;
constexpr double kHeaderLine = 15;
constexpr double kTitleLine = 24;
constexpr double kHeaderGap = 6;
constexpr int kLongPageNumber = 99;
/// Pixels of a picture are never printed larger than this.
constexpr double kMostPictureScale = 1.5;

/// The parts of the header, in the order in which it tells them.
struct HeaderPart {
  const char* before;
  int slot;
};
constexpr HeaderPart kHeaderParts[] = {
    {"Lamp Type '", 2}, {"Line Input '", 1}, {"Configuration '", 3}, {"Target IC '", 0}};

Font form_font() { return {.face = Printing::kFace, .size = kTextSize}; }
Font title_font() { return {.face = Printing::kFace, .size = kTitleSize, .bold = true}; }

PrintHeader make_header(DeviceContext& measure, const std::string& caption,
                        const std::string& title, double width) {
  PrintHeader header;
  header.width = width;
  measure.setFont(form_font());
  header.caption = wrapped_lines(measure, caption, width);
  measure.setFont(title_font());
  header.title = wrapped_lines(measure, title, width);
  header.height = static_cast<double>(header.caption.size()) * kHeaderLine + 2 * kHeaderGap +
                  static_cast<double>(header.title.size()) * kTitleLine + kHeaderGap;
  return header;
}

/// Paper that takes no page once the user has cancelled.
class WatchedTarget : public PrintTarget {
 public:
  WatchedTarget(PrintTarget& paper, PleaseWait& wait, const bool& cancelled)
      : paper_(paper), wait_(wait), cancelled_(cancelled) {}

  Size sheet() const override { return paper_.sheet(); }
  DeviceContext& measure() override { return paper_.measure(); }
  bool print(const PrintPage& page) override {
    wait_.StillCalculating();
    return !cancelled_ && paper_.print(page);
  }
  bool end() override { return paper_.end(); }
  void abort() override { paper_.abort(); }

 private:
  PrintTarget& paper_;
  PleaseWait& wait_;
  const bool& cancelled_;
};

/// Has jobs go to the preview for as long as it lives, however the command ends.
class Previewing {
 public:
  explicit Previewing(bool& preview) : preview_(preview) { preview_ = true; }
  ~Previewing() { preview_ = false; }
  Previewing(const Previewing&) = delete;
  Previewing& operator=(const Previewing&) = delete;

 private:
  bool& preview_;
};

double text_lines(DeviceContext& surface, const std::vector<std::string>& lines, double top,
                  double pitch) {
  for (const std::string& line : lines) {
    surface.text({0, top + pitch / 2}, line);
    top += pitch;
  }
  return top;
}

}  // namespace

Printing::Printing(SysMsg& messages, PleaseWait& wait, FileDialogs* dialogs,
                   const ProgramFolder& folder, PrintingHooks hooks)
    : messages_(messages),
      wait_(wait),
      dialogs_(dialogs),
      folder_(folder),
      hooks_(std::move(hooks)) {
  wait.cancelled.connect([this] { cancelled_ = true; });
}

std::vector<PrintPage> Printing::print_form_info(const FormReport& form, DeviceContext& measure,
                                                 Size sheet) const {
  set_graphics_modes(measure);
  return form_pages(lay_out_form(form.controls, measure), sheet, form_font());
}

std::vector<PrintPage> Printing::printframe(const FormControl& container, DeviceContext& measure,
                                            Size sheet) const {
  set_graphics_modes(measure);
  return form_pages(lay_out_frame(container, measure), sheet, form_font());
}

std::string Printing::print_form_caption(int page) const {
  std::string text;
  for (const HeaderPart& part : kHeaderParts) {
    if (!text.empty()) text += ", ";
    text += part.before + (hooks_.nameOfSelection ? hooks_.nameOfSelection(part.slot) : "") + "'";
  }
  return text + "  Page " + general_text(page);
}

void Printing::set_graphics_modes(DeviceContext& surface) const {
  surface.setFont(form_font());
  surface.setTextColour(theme_colour(Role::Text, Theme::Print));
  surface.setTextAlign({HorizontalAlign::Left, VerticalAlign::Middle});
  surface.setPen({theme_colour(Role::PanelBorder, Theme::Print), 0.75, {}});
  surface.setNoBrush();
}

PrintJob Printing::job(std::string_view title, bool landscape, Body body) const {
  PrintJob job{std::string(title), landscape, {}};
  job.pages = [this, words = job.title, body = std::move(body)](DeviceContext& measure,
                                                                Size sheet) {
    const auto header = [&](int page) {
      return make_header(measure, print_form_caption(page), words, sheet.width);
    };
    const double height = header(kLongPageNumber).height;
    std::vector<PrintPage> pages =
        body(measure, {sheet.width, std::max(sheet.height - height, kHeaderLine)});
    int number = 0;
    for (PrintPage& page : pages) {
      for (PrintPart& part : page.parts) part.at.y += height;
      const auto draw = [this, header = header(++number)](DeviceContext& surface) {
        drawHeader(surface, header);
      };
      page.parts.push_back({{}, 1, {sheet.width, height}, draw});
    }
    return pages;
  };
  return job;
}

void Printing::drawHeader(DeviceContext& surface, const PrintHeader& header) const {
  set_graphics_modes(surface);
  const double rule = text_lines(surface, header.caption, 0, kHeaderLine) + kHeaderGap / 2;
  surface.moveTo({0, rule});
  surface.lineTo({header.width, rule});
  surface.setFont(title_font());
  text_lines(surface, header.title, rule + kHeaderGap, kTitleLine);
}

PrintJob Printing::formJob(const FormReport& form) const {
  return job(form.caption, false, [this, form](DeviceContext& measure, Size room) {
    return print_form_info(form, measure, room);
  });
}

PrintJob Printing::tableJob(const TableGrid& grid, std::string_view title) const {
  return job(title, false, [grid](DeviceContext& measure, Size room) {
    return table_pages(grid, measure, room);
  });
}

PrintJob Printing::pageJob(std::string_view title, bool landscape,
                           std::function<PrintPart(Size room)> page) const {
  return job(title, landscape, [page = std::move(page)](DeviceContext&, Size room) {
    return std::vector<PrintPage>{{{page(room)}}};
  });
}

PrintJob Printing::pictureJob(const Picture& picture) const {
  const bool wide = picture.size.width > picture.size.height;
  return pageJob(picture.title, wide, [picture](Size room) {
    const double scale = std::min(
        {room.width / picture.size.width, room.height / picture.size.height, kMostPictureScale});
    const double left = (room.width - picture.size.width * scale) / 2;
    return PrintPart{{left, 0}, scale, picture.size, picture.draw};
  });
}

void Printing::print_table(const TableGrid& grid, std::string_view title) {
  if (mayPrint(grid)) output(tableJob(grid, title));
}

bool Printing::mayPrint(const TableGrid& grid) {
  if (!grid.rows.empty()) return true;
  messages_.messageBox(kEmptyTableCaption, kEmptyTable);
  return false;
}

void Printing::output(const PrintJob& job) {
  if (hooks_.output) hooks_.output(job, preview_);
}

void Printing::preview(const std::function<void()>& command) {
  const Previewing previewing(preview_);
  command();
}

bool Printing::draw(const PrintJob& job, PrintTarget& target) {
  bool printed = true;
  try {
    for (const PrintPage& page : job.pages(target.measure(), target.sheet())) {
      printed = printed && target.print(page);
    }
    printed = printed && target.end();
  } catch (const std::exception&) {
    printed = false;
  }
  if (!printed) target.abort();
  return printed;
}

bool Printing::run(const PrintJob& job, PrintTarget& target) {
  cancelled_ = false;
  wait_.Start(kWait, -1);
  WatchedTarget watched(target, wait_, cancelled_);
  const bool printed = draw(job, watched);
  wait_.Finish();
  // A cancelled one has been reported as such.
  if (!printed && !cancelled_) messages_.msg("Printing", kProblem, kMessageOk, kSeverityWarning);
  return printed;
}

}  // namespace vantrel
