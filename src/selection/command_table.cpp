#include "selection/command_table.h"

#include <algorithm>

namespace vantrel {

namespace {

constexpr CommandKind kSeparator = CommandKind::Separator;

constexpr CommandRow kDesignRows[] = {
    // Key, picture, tool tip, menu group, menu caption.
    {"c_load_project", "Load", "Open a project", "file", "&Open Project..."},
    {"c_save_project", "Save", "Save the design as a project", "file", "&Save Project..."},
    {"sep_project", "-", "", "file", "-", kSeparator},
    {"c_configure", "", "Set the options", "file", "&Options"},
    {"sep_quit", "", "", "file", "-", kSeparator},
    {"c_quit", "", "End Vantrel", "file", "E&xit"},

    {"c_simple", "Simple", "Select simple display", "view", "&Simple Display"},
    {"c_advanced", "Advanced", "Select advanced display", "view", "&Advanced Display"},
    {"sep1", "-", "", "", "", kSeparator},
    {"c_print", "Print", "", "", ""},
    {"c_datasheet", "Datasheet", "View datasheet for selected IC", "window", "IC &Datasheet"},
    {"sep3", "-", "", "", "", kSeparator},
    {"c_web_tv", "Weblinks", "Access internet links", "weblinks", "", CommandKind::DropDown},
    {"c_web", "Weblinks", "", "wwwlinks_bm", "", CommandKind::LinkList},
    {"c_help", "Help", "Vantrel help", "help", ""},
    {"c_about", "", "", "help", "&About Vantrel"},
    {"sep1", "", "", "help", "-", kSeparator},
    {"c_update", "", "", "help", "&Check for updates"},
    {"sep4", "-", "", "", "", kSeparator, RowCondition::Optional},
    {"c_previous", "Back", "Back to previous calculation", "history",
     "&Back to previous calculation", CommandKind::Command, RowCondition::Optional},
    {"c_next", "Forward", "Forward to next calculation", "history", "&Forward to next calculation",
     CommandKind::Command, RowCondition::Optional, kForwardTag},

    {"sep_outputs", "-", "", "window", "-", kSeparator},
    {"c_bom", "Materials", "View bill of materials", "window", "&Bill of Materials"},
    {"c_schematic", "Schematic", "View circuit schematic", "window", "Circuit &Schematic"},
    {"c_photoplot", "Photoplot", "View board photoplot", "window", "&Photoplot"},
    {"c_lres", "", "View resonant inductor drawing", "window", "&LRES Inductor Magnetic Spec"},
    {"c_pfc", "", "View PFC inductor drawing", "window", "PF&C Inductor Magnetic Spec"},
    {"c_transformer", "", "View transformer drawing", "window", "&Transformer Magnetic Spec"},
    {"sep_graphs", "", "", "window", "-", kSeparator},
    {"c_graph_op", "Edt", "View operating points graph", "window", "&Operating Points Graph"},
    {"c_graph_td", "Pft", "View time domain graph", "window", "Time Do&main Graph"},
    {"sep_designers", "", "", "window", "-", kSeparator},
    {"c_inductor", "", "Design the inductors", "window", "&Inductor Designer"},
    {"c_transformer_designer", "", "Design the transformer", "window", "T&ransformer Designer"},
    {"c_calculator", "", "Calculate the components", "window", "Component Calc&ulator"},
    {"c_diagnostics", "", "Examine calculations", "help", "&Diagnostics"},
};

constexpr CommandRow kTableRows[] = {
    {"c_new", "New", "Create a new data column", "data", "&New Column"},
    {"c_delete", "Delete", "Delete selected columns", "data", "&Delete Column"},
    {"sep4", "-", "", "", "", kSeparator},
    {"c_load", "Load", "Load data from advanced screen", "data", "&Load Data"},
    {"sep5", "-", "", "", "", kSeparator},
    {"c_export", "Export Data", "Export File(s)", "file", "&Export Files"},
};

constexpr CommandRow kImageRows[] = {
    {"c_zoom_in", "Zoom In", "Zoom In", "view", "Zoom &In", CommandKind::Command,
     RowCondition::Optional},
    {"c_zoom_out", "Zoom Out", "Zoom Out", "view", "Zoom &Out", CommandKind::Command,
     RowCondition::Optional},
    {"sep6", "-", "", "", "", kSeparator, RowCondition::Optional},
    {"c_print", "Print", "Print Image", "file", "&Print"},
    {"c_export_schematic", "Save Image", "Save image", "file", "&Save", CommandKind::Command,
     RowCondition::Picture},
    {"c_export_bom", "Save BOM", "Export bill of materials", "file", "Export &BOM",
     CommandKind::Command, RowCondition::Bill},
    {"c_export_gerber", "Save Gerber", "Export gerber files", "file", "Export &Gerber",
     CommandKind::Command, RowCondition::Schematic},
};

constexpr MenuGroup kMenuGroups[] = {
    {"file", "submenu_file", "&File"},
    {"view", "submenu_view", "&View"},
    {"data", "submenu_data", "&Data"},
    {"window", "submenu_window", "&Window"},
    {"history", "submenu_history", "H&istory"},
    {"weblinks", "submenu_weblinks", "Web &Links"},
    // The drop-down of the button lists the same links as the menu.
    {"wwwlinks_bm", "submenu_weblinks", "Web &Links"},
    {"help", "submenu_help", "&Help"},
};

}  // namespace

std::span<const CommandRow> command_rows(int type) {
  switch (type) {
    case kToolbarDesign:
      return kDesignRows;
    case kToolbarTable:
      return kTableRows;
    case kToolbarImage:
      return kImageRows;
    default:
      return {};
  }
}

bool row_applies(RowCondition when, int flags) {
  switch (when) {
    case RowCondition::Always:
      return true;
    case RowCondition::Optional:
      return (flags & kToolbarShort) == 0;
    case RowCondition::Picture:
      return (flags & kToolbarBill) == 0;
    case RowCondition::Bill:
      return (flags & kToolbarBill) != 0;
    case RowCondition::Schematic:
      return (flags & kToolbarSchematic) != 0;
  }
  return false;
}

std::span<const MenuGroup> menu_groups() { return kMenuGroups; }

const MenuGroup* find_menu_group(std::string_view group) {
  const auto* found = std::find_if(std::begin(kMenuGroups), std::end(kMenuGroups),
                                   [&](const MenuGroup& row) { return row.group == group; });
  return found == std::end(kMenuGroups) ? nullptr : found;
}

}  // namespace vantrel
