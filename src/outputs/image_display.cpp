#include "outputs/image_display.h"

#include <algorithm>
#include <utility>

#include "core/text_parsing.h"

namespace vantrel {
namespace {

constexpr const char* kCaption = "Image Display";
constexpr std::string_view kAskToCalculate =
    "Schematic cannot be shown until components have been calculated.\r\n\r\n"
    "Do you wish to calculate now ?";
constexpr std::string_view kInductorFolder = "\\Graphics\\Schematic\\Inductor\\";
constexpr std::string_view kTransformerFolder = "\\Graphics\\Schematic\\Transformer\\";
constexpr std::string_view kCoreFolder = "\\Graphics\\Schematic\\CoreDiagrams\\";
constexpr std::string_view kCircuitFolder = "\\Graphics\\Schematic\\IC\\";
/// Between two pictures of a document.
constexpr double kOverlayGap = 24;

using Texts = std::array<std::string, kOverlayCount>;

std::string call(const std::function<std::string()>& hook) { return hook ? hook() : ""; }

std::string shown(const VTLValue& field) {
  const std::string text = field.DisplayText();
  const std::string unit = field.UnitText();
  return text.empty() || unit.empty() ? text : text + " " + unit;
}

/// The core, the given fields, then pairs of a fixed text and "0.2".
Texts overlay_texts(Screen& screen, const PullDown& core, int index,
                    std::span<const char* const> fields, std::string_view fixed) {
  Texts texts;
  texts[0] = shown_core(core);
  std::size_t next = 1;
  for (const char* field : fields) texts[next++] = shown(screen.field(field, index));
  for (; next < texts.size(); next += 2) {
    texts[next] = fixed;
    texts[next + 1] = "0.2";
  }
  return texts;
}

Texts inductor_texts(Inductor& inductor, int index, std::string_view fixed) {
  static constexpr const char* kFields[] = {"ind_gapsize", "ind_inductance",
                                            "ind_peakignitioncurrent", "ind_numberofturns",
                                            "ind_primarydiameter"};
  return overlay_texts(inductor, *inductor.findPullDown("ind_comboCore", index), index, kFields,
                       fixed);
}

Texts transformer_texts(Transformer& transformer) {
  static constexpr const char* kFields[] = {"tfr_primarycurrent", "tfr_primaryturns",
                                            "tfr_primarydiameter", "tfr_secondaryturns",
                                            "tfr_secondarydiameter"};
  return overlay_texts(transformer, *transformer.findPullDown("tfr_ComboCore"), -1, kFields, "5");
}

std::string in_folder(std::string_view folder, std::string_view name) {
  return std::string(folder).append(name).append(".wmf");
}

}  // namespace

ImageDisplay::ImageDisplay(FieldContext& context, const ImageSources& sources, FileDialogs* dialogs,
                           ImageHooks hooks)
    : Screen("ImageDisplay", kCaption, context),
      messages_(context.messages),
      sources_(sources),
      dialogs_(dialogs),
      hooks_(std::move(hooks)),
      document_(sources.folder),
      highlight_(hooks_.makeTimer ? hooks_.makeTimer() : nullptr,
                 [this] { redrawRequested.raise(); }),
      full_caption_(kCaption) {}

bool ImageDisplay::calculateNow() {
  if (messages_.msg(name(), kAskToCalculate, kMessageYesNo) != kYes) return false;
  return hooks_.calculate_simple && hooks_.calculate_simple() && !sources_.bill.isEmpty();
}

bool ImageDisplay::show_schematic() {
  if (sources_.bill.isEmpty() && !calculateNow()) return false;
  Reset();
  Advanced& advanced = sources_.advanced;
  const std::string input = to_text(advanced.field("line_input_schematic").value());
  const std::string config = advanced.says_yes("allow_config") ? call(hooks_.configName) : "";
  const std::string target = call(hooks_.targetName);
  const bool found = AddSchematic(input, config, target, advanced.says_yes("allow_input"));
  return show(target + " Circuit Diagram", kSchematic) && found;
}

bool ImageDisplay::AddSchematic(std::string_view input, std::string_view config,
                                std::string_view target, bool allow_input) {
  std::string file(target);
  if (allow_input) file.append("-").append(input);
  if (!config.empty()) file.append("-").append(config);
  file = in_folder(std::string(kCircuitFolder).append(target).append("\\"), file);
  if (document_.add_picture(kSchematic, file, {})) return true;
  messages_.msg(name(), "Schematic could not be found for IC '" + std::string(target) +
                            "', Input '" + std::string(input) + "', Config '" +
                            std::string(config) + "'\r\nFilename : " + file);
  return false;
}

std::string ImageDisplay::lresFile() const {
  const std::string config = call(hooks_.configName);
  if (config == "DLSVM") return "LRES DLSVM";
  if (config == "DLPVMB") return "LRES Balance Transformer";
  return sources_.advanced.heatingMode() == kCurrentMode ? "LRES Current Mode"
                                                         : "LRES Voltage Mode";
}

bool ImageDisplay::showInductor(int index, std::string_view file, std::string_view caption,
                                std::string_view short_name) {
  if (!sources_.advanced.says_yes("allow_inductor")) return false;
  Reset();
  Inductor& inductor = sources_.inductor;
  const std::string_view fixed = index == 0 ? "5" : "10";
  const bool drawn = add_picture(short_name, in_folder(kInductorFolder, file), 0, 0,
                                 inductor_texts(inductor, index, fixed));
  const bool core = addCore(shown_core(*inductor.findPullDown("ind_comboCore", index)));
  return show(caption, short_name) && drawn && core;
}

bool ImageDisplay::show_lres() { return showInductor(0, lresFile(), "LRES Inductor", "LRES"); }

bool ImageDisplay::show_pfc() { return showInductor(1, "LPFC", "LPFC Inductor", kPfc); }

bool ImageDisplay::show_transformer() {
  if (!sources_.advanced.says_yes("allow_transformer")) return false;
  Reset();
  Transformer& transformer = sources_.transformer;
  const bool drawn = add_picture("TRANSFORMER", in_folder(kTransformerFolder, "Transformer"), 0, 0,
                                 transformer_texts(transformer));
  const bool core = addCore(shown_core(*transformer.findPullDown("tfr_ComboCore")));
  return show("Transformer", "TRANSFORMER") && drawn && core;
}

bool ImageDisplay::show_balancetransformer() {
  Reset();
  const bool drawn =
      add_picture("BTRANSFORMER", in_folder(kTransformerFolder, "Balance Transformer"), 0, 0);
  return show("Balance Transformer", "BTRANSFORMER") && drawn;
}

bool ImageDisplay::show_photoplot() {
  constexpr double kHeading = 18;
  Reset();
  bool drawn = true;
  Point at;
  for (const char* layer : {"Layer1", "Layer2", "Layer3"}) {
    add_text("Arial", at.x, at.y + kHeading / 2, kHeading * 0.75, layer);
    drawn = add_picture(layer, std::string("\\Graphics\\").append(layer).append(".gif"), at.x,
                        at.y + kHeading) &&
            drawn;
    // Two beside each other, the third below them.
    const Size size = document_.size();
    at = at.x > 0 ? Point{0, size.height + kOverlayGap} : Point{size.width + kOverlayGap, at.y};
  }
  return show("Board Photoplot", kPhotoplot) && drawn;
}

/// The drawing of the core stands to the right of the winding's; a design without a core has none.
bool ImageDisplay::addCore(const std::string& core) {
  if (core.empty()) return true;
  const std::string size = StripCharacter(StripCharacter(core, '-'), '/');
  return add_picture("Core", in_folder(kCoreFolder, size), document_.size().width + kOverlayGap, 0);
}

void ImageDisplay::Reset() {
  highlight_.stop();
  document_.clear();
}

bool ImageDisplay::add_picture(std::string_view name, std::string_view file, double x, double y,
                               const Texts& overlays) {
  const bool found = document_.add_picture(name, file, {x, y});
  document_.add_overlays(overlay_table(document_.pictures().back().layout, overlays));
  if (!found) {
    messages_.msg(this->name(), "Picture '" + std::string(name) +
                                    "' could not be found\r\nFilename : " + std::string(file));
  }
  return found;
}

void ImageDisplay::add_text(std::string_view face, double x, double y, double size,
                            std::string_view text) {
  document_.add_text({std::string(face), {{x, y}, size}, std::string(text)});
}

bool ImageDisplay::show(std::string_view caption, std::string_view short_name) {
  calculate_sizes();
  Setup(caption, short_name);
  display();
  return true;
}

void ImageDisplay::Setup(std::string_view caption, std::string_view short_name) {
  full_caption_ = caption;
  short_name_ = short_name;
  this->caption(caption);
}

void ImageDisplay::setmin(bool minimised) { caption(minimised ? short_name_ : full_caption_); }

void ImageDisplay::display() {
  CheckForAutoZoomIn();
  visible(true);
  notifyLayoutChanged();
}

std::string ImageDisplay::schematicFile() const {
  if (short_name_ != kSchematic || document_.pictures().empty()) return {};
  return document_.pictures().front().path;
}

void ImageDisplay::calculate_sizes() { view_.setDocument(document_.size()); }

void ImageDisplay::setViewport(Size size) {
  view_.setViewport(size);
  redrawRequested.raise();
}

void ImageDisplay::CheckForAutoZoomIn() {
  view_.fit();
  redrawRequested.raise();
}

bool ImageDisplay::execute_command(std::string_view key) {
  if (key == "c_zoom_in" || key == "c_zoom_out") {
    const bool changed = key == "c_zoom_in" ? view_.zoomIn() : view_.zoomOut();
    if (changed) redrawRequested.raise();
  } else if (key == "c_print") {
    PrintScreen();
  } else if (key == "c_export_schematic" && short_name_ == kPhotoplot) {
    if (hooks_.export_layers) hooks_.export_layers();
  } else if (key == "c_export_schematic") {
    export_schematic();
  } else if (key == "c_export_gerber") {
    if (hooks_.export_gerber) hooks_.export_gerber();
  } else {
    return false;
  }
  return true;
}

ImageDisplay::Values ImageDisplay::values() const {
  Values values;
  for (const BillRecord& line : sources_.bill.BomComponents()) {
    const int count = FieldCount(line.reference, ',');
    for (int i = 1; i <= count; ++i) {
      values[GetField(line.reference, i, ',', false, messages_)] = line.value;
    }
  }
  return values;
}

std::string ImageDisplay::componentText(Point view) const {
  const std::string reference = document_.componentAt(view_.toDocument(view));
  const Values known = values();
  const auto value = known.find(reference);
  return value == known.end() ? reference : reference + "  " + value->second;
}

bool ImageDisplay::StartHighlight(std::span<const std::string> references) {
  std::vector<ImageHighlight::Ring> rings;
  for (const std::string& reference : references) {
    const ComponentPlace place = document_.findComponent(reference);
    if (const Box* symbol = std::get_if<Box>(&place)) {
      rings.push_back({reference, *symbol});
    } else {
      messages_.msg(name(), std::get<std::string>(place));
    }
  }
  highlight_.start(std::move(rings));
  if (highlight_.rings().empty()) return false;
  view_.showInMiddle(highlight_.bounds());
  redrawRequested.raise();
  return true;
}

}  // namespace vantrel
