#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "core/screen.h"
#include "magnetics/inductor.h"
#include "magnetics/transformer.h"
#include "operating/advanced.h"
#include "outputs/bom_store.h"
#include "outputs/image_display_document.h"
#include "outputs/image_display_highlight.h"
#include "outputs/image_display_view.h"

namespace vantrel {

/// The screens and stores that the documents show.
struct ImageSources {
  Advanced& advanced;
  Inductor& inductor;
  Transformer& transformer;
  const BomStore& bill;
  const ProgramFolder& folder;
};

/// What the display needs of other parts of the program. A callable may be empty.
struct ImageHooks {
  std::function<std::string()> targetName;  ///< Short name of the selected control IC.
  std::function<std::string()> configName;  ///< Short code of the lamp configuration.
  /// Runs the whole chain with all its flags set; false when it ended early.
  std::function<bool()> calculate_simple;
  std::function<void(const Picture& picture)> print = {};
  std::function<void()> export_gerber = {};
  std::function<void()> export_layers = {};
  PictureWriter writePicture = {};
  std::function<std::unique_ptr<Timer>()> makeTimer;
  Clock* clock = nullptr;  ///< Bounds the time that one picture may take.
};

/// Shows one document at a time: the circuit diagram, or the drawing of a winding, with values of
/// the design printed over it.
class ImageDisplay : public Screen {
 public:
  static constexpr std::string_view kSchematic = "SCHEMATIC";
  static constexpr std::string_view kPfc = "PFC";
  static constexpr std::string_view kPhotoplot = "PHOTOPLOT";
  static constexpr std::string_view kExportTitle = "Export Schematic Image";

  ImageDisplay(FieldContext& context, const ImageSources& sources, FileDialogs* dialogs,
               ImageHooks hooks = {});

  /// Each builds a document and shows it. Those of a magnetic part that the selection does not have
  /// do nothing. False when nothing is shown, or a picture is missing, which has been reported.
  bool show_schematic();
  bool show_lres();
  bool show_pfc();
  bool show_transformer();
  bool show_balancetransformer();
  /// The layers of the reference board.
  bool show_photoplot();

  /// Empties the document.
  void Reset();
  void Setup(std::string_view caption, std::string_view short_name);
  /// Adds a picture with texts over it; a missing one is reported. Positions in pixels of 1/96
  /// inch.
  bool add_picture(std::string_view name, std::string_view file, double x, double y,
                   const std::array<std::string, kOverlayCount>& overlays = {});
  void add_text(std::string_view face, double x, double y, double size, std::string_view text);
  /// Adds the circuit diagram of a selection, with the input in its file's name when `allow_input`
  /// says so. A missing file is reported. `config` may be empty.
  bool AddSchematic(std::string_view input, std::string_view config, std::string_view target,
                    bool allow_input);
  /// Shows the document; a new one as large as the view allows.
  void display();
  /// The caption of a minimised window is the short name.
  void setmin(bool minimised);

  const std::string& shortName() const { return short_name_; }
  const ImageDocument& document() const { return document_; }
  bool isSchematicDisplayed() const { return visible() && short_name_ == kSchematic; }
  /// Path of the circuit diagram's file; empty when another document is on show or it is missing.
  std::string schematicFile() const;

  ImageView& view() { return view_; }
  const ImageView& view() const { return view_; }
  /// Tells the view how large the document is.
  void calculate_sizes();
  /// Sets the size of the window's sheet area in pixels of the screen.
  void setViewport(Size size);
  /// Takes the largest scale at which the whole document is seen.
  void CheckForAutoZoomIn();
  /// Carries out a command of the screen's bar; false for one that it leaves to the bar.
  bool execute_command(std::string_view key);

  /// Rings the components of these references and moves them into view when they are out of its
  /// middle third. Those that cannot be placed are reported. True when one is ringed.
  bool StartHighlight(std::span<const std::string> references);
  bool StartHighlight(const std::string& reference) { return StartHighlight({&reference, 1}); }
  void StopHighlight() { highlight_.stop(); }
  const ImageHighlight& highlight() const { return highlight_; }
  /// Reference and value of the component at a place of the view; empty when there is none.
  std::string componentText(Point view) const;

  /// Draws what the view shows, with the rings, on a surface of the view's size.
  void redraw(DeviceContext& surface) const;
  /// Draws the sheet: pictures, overlays and values, on paper. `at` is its corner on the surface;
  /// no text becomes smaller than `smallest_text` pixels.
  void render_image_details(DeviceContext& surface, Point at, double scale,
                            double smallest_text = 0) const;
  /// The document as a picture of its own size, with its caption as title.
  Picture picture() const;
  void PrintScreen();
  /// Asks for a file and writes the document to it. True when it was written.
  bool export_schematic();
  /// Writes to a given path, in the form that its extension tells. A failure is reported.
  bool export_schematic_to(const std::string& path);

  /// Raised when the sheet must be drawn anew.
  Signal<> redrawRequested;

 private:
  /// Values of components by their designators.
  using Values = std::map<std::string, std::string, std::less<>>;

  bool calculateNow();
  bool show(std::string_view caption, std::string_view short_name);
  bool addCore(const std::string& core);
  bool showInductor(int index, std::string_view file, std::string_view caption,
                    std::string_view short_name);
  std::string lresFile() const;
  Values values() const;
  void renderPicture(DeviceContext& surface, const ImagePicture& picture, const Box& box) const;
  void renderTexts(DeviceContext& surface, Point at, double scale, double smallest) const;
  void renderValues(DeviceContext& surface, const ImagePicture& picture, const Box& box,
                    double scale, double smallest, const Values& known) const;
  void renderRings(DeviceContext& surface) const;

  SysMsg& messages_;
  ImageSources sources_;
  FileDialogs* dialogs_;
  ImageHooks hooks_;
  ImageDocument document_;
  ImageView view_;
  ImageHighlight highlight_;
  std::string full_caption_;
  std::string short_name_;
};

}  // namespace vantrel
