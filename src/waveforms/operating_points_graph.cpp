#include "waveforms/operating_points_graph.h"

#include <utility>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/save_dialog.h"
#include "waveforms/operating_points_graph_curves.h"
#include "waveforms/operating_points_graph_drawing.h"

namespace vantrel {

namespace {

constexpr const char* kScreen = "GraphOperatingPoints";
constexpr const char* kTitle = "Operating Points";
constexpr const char* kProblem = "There was a problem drawing the graph";
constexpr int kSlots = 4;

/// "before ignition", "running", "at 10%": the start of a curve's name.
std::string short_name(const GraphInputs& inputs, std::size_t curve) {
  const std::string name = curve_name(inputs, curve);
  return name.substr(0, name.find(','));
}

std::string tip_text(const GraphInputs& inputs, double hertz) {
  std::string text = format_mask(hertz / 1000.0, "0.0") + " KHz";
  for (std::size_t curve = 0; curve < inputs.loads.size(); ++curve) {
    const float gain = calculate_vlamp(inputs.L * 0.001, inputs.C * 1e-9,
                                       static_cast<double>(inputs.loads[curve]), hertz);
    text += "   " + short_name(inputs, curve) + " " + format_mask(gain, "0.00");
  }
  return text;
}

}  // namespace

GraphOP::GraphOP(Advanced& advanced, const MissingFields& missing, SysMsg& messages,
                 std::function<std::string(int slot)> name_of_selection)
    : advanced_(advanced),
      missing_(missing),
      messages_(messages),
      name_of_selection_(std::move(name_of_selection)) {}

bool GraphOP::RenderOperatingPoints(DeviceContext& surface, Theme theme, double start_offset,
                                    double end_offset) {
  area_ = theme == Theme::Print && print_size_ ? *print_size_ : surface.size();
  try {
    const std::optional<GraphInputs> inputs = read_graph_inputs(advanced_, &missing_);
    if (!inputs) {
      draw_notice(surface, theme, area_, kMissingText);
      return false;
    }
    GraphDrawing(surface, theme, *inputs, area_, start_offset, end_offset).draw();
    return true;
  } catch (const Fault&) {
    draw_notice(surface, theme, area_, kProblem);
    messages_.msg(kScreen, kProblem);
    return false;
  }
}

bool GraphOP::inputsAvailable() const {
  try {
    return read_graph_inputs(advanced_, nullptr).has_value();
  } catch (const Fault&) {
    return false;
  }
}

std::string GraphOP::caption() const {
  if (!inputsAvailable()) return kTitle;
  std::string text = "Graph L = " + to_text(advanced_.field("LValue").value()) +
                     "mH, C = " + to_text(advanced_.field("CValue").value()) + "nF, ";
  std::string names;
  for (int slot = 0; slot < kSlots; ++slot) {
    const std::string name = name_of_selection_(slot);
    if (name.empty()) continue;
    names += (names.empty() ? "" : ", ") + name;
  }
  return text + names;
}

std::string GraphOP::tttext(Point cursor, Size area, double start_offset, double end_offset) const {
  try {
    const std::optional<GraphInputs> inputs = read_graph_inputs(advanced_, nullptr);
    if (!inputs) return "";
    const GainScale scale(area, *inputs, start_offset, end_offset);
    if (!scale.plot.contains(cursor)) return "";
    return tip_text(*inputs, scale.frequency(cursor.x - scale.plot.left));
  } catch (const Fault&) {
    return "";
  }
}

Picture GraphOP::picture(Size size, Theme theme) {
  return {.title = "Operating Points Graph",
          .size = size,
          .draw = [this, theme](DeviceContext& surface) { RenderOperatingPoints(surface, theme); }};
}

bool GraphOP::ExportGraph(FileDialogs& dialogs, const ProgramFolder& folder,
                          const PictureWriter& write) {
  const std::string path =
      select_savefile(&dialogs, folder, kExportTitle, kExportName, kPictureFilter);
  if (path.empty()) return false;
  const Size size = area_.width > 0 ? area_ : kPictureSize;
  const auto failure = write(path, picture(size));
  if (!failure) return true;
  messages_.msg(kScreen,
                "Could not export file '" + name_without_path(path) + "' (" + *failure + ")",
                kMessageOk, kSeverityWarning);
  return false;
}

}  // namespace vantrel
