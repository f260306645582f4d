#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/device_context.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "core/theme.h"
#include "operating/advanced.h"
#include "selection/missing_fields.h"
#include "services/messages/sysmsg.h"
#include "waveforms/operating_points_graph_inputs.h"

namespace vantrel {

/// The operating-points graph: gain of the resonant tank against frequency, one curve per lamp
/// state, with the operating points on it. It reads the design screen at each drawing and keeps
/// nothing but the size of the last one. The same routine draws windows, paper and files.
class GraphOP {
 public:
  static constexpr std::string_view kMissingText = "Graph Inputs Not Available, Retry Calculation";
  static constexpr std::string_view kExportTitle = "Export Graph Image";
  static constexpr std::string_view kExportName = "Operating Points Graph.bmp";
  /// Size of an exported picture when no window has given one.
  static constexpr Size kPictureSize{1080, 600};

  /// `name_of_selection` gives the name selected in a slot (0 IC, 1 INPUT, 2 LAMP, 3 CONFIG), empty
  /// without one. All references must outlive the graph.
  GraphOP(Advanced& advanced, const MissingFields& missing, SysMsg& messages,
          std::function<std::string(int slot)> name_of_selection);

  /// Draws the graph on the whole surface; with the Print theme and a print size, on that size. The
  /// two offsets in Hz move the ends of the frequency axis. Empty inputs are noted without a
  /// question, and only the text of the missing inputs is drawn. Any failure is reported. True when
  /// the graph itself was drawn.
  bool RenderOperatingPoints(DeviceContext& surface, Theme theme, double start_offset = 0,
                             double end_offset = 0);

  /// Size of the last drawing in pixels.
  double AreaWidth() const { return area_.width; }
  double AreaHeight() const { return area_.height; }
  /// Size of the drawing on paper.
  void SetPrintSize(Size size) { print_size_ = size; }

  /// True when every input is there.
  bool inputsAvailable() const;
  /// Caption of the graph's screen; "Operating Points" while inputs are missing.
  std::string caption() const;
  /// The text of the tool tip: the frequency and the gain of each curve under the cursor, for a
  /// drawing of that area. Empty outside the plot.
  std::string tttext(Point cursor, Size area, double start_offset = 0, double end_offset = 0) const;

  /// The graph as a picture, in the light theme unless told otherwise.
  Picture picture(Size size = kPictureSize, Theme theme = Theme::Light);
  /// Asks for a file, with the usual name in the folder of exports, and writes the graph to it in
  /// the format of its extension. A failure is reported. True when it was written.
  bool ExportGraph(FileDialogs& dialogs, const ProgramFolder& folder, const PictureWriter& write);

 private:
  Advanced& advanced_;
  const MissingFields& missing_;
  SysMsg& messages_;
  std::function<std::string(int slot)> name_of_selection_;
  Size area_;
  std::optional<Size> print_size_;
};

}  // namespace vantrel
