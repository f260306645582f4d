#include "services/options.h"

#include <array>

namespace vantrel {
namespace {

constexpr OptionKind kTickBox = OptionKind::kTickBox;
constexpr OptionKind kOptionButton = OptionKind::kOptionButton;

constexpr std::array kOptions = {
    OptionSpec{"rememberwindowpositions", "Remember window positions", "frame_general", kTickBox,
               true},
    OptionSpec{"nosounds", "Disable Sounds", "frame_general"},
    OptionSpec{"display_graph_td_after_calculate", "Display Time Domain Graph Automatically",
               "frame_calculation"},
    OptionSpec{"display_graph_op_after_calculate", "Display Operating Points Graph Automatically",
               "frame_calculation", kTickBox, true},
    OptionSpec{"display_calculation_complete_message",
               "Display 'Calculation Complete' Message in Advanced Screen", "frame_calculation",
               kTickBox, true},
    OptionSpec{"show_cc_debug", "Show Calculation Debug Output", "frame_calculation"},
    OptionSpec{"default_to_e24_series", "Default to E24 Series", "frame_calculation", kOptionButton,
               true},
    OptionSpec{"default_to_e12_series", "Default to E12 Series", "frame_calculation",
               kOptionButton},
    OptionSpec{"start_in_advanced_screen", "Start in advanced screen", "frame_startup"},
    OptionSpec{"display_schematic", "Circuit Schematic", "frame_output"},
    OptionSpec{"display_bom", "Bill of Materials", "frame_output", kTickBox, true},
    OptionSpec{"display_lres", "LRES Inductor Magnetic Spec", "frame_output"},
    OptionSpec{"display_pfc", "PFC Inductor Magnetic Spec", "frame_output"},
    OptionSpec{"display_transformer", "Transformer Magnetic Spec", "frame_output"},
};

constexpr std::array kFrames = {
    OptionFrame{"frame_general", "General Options", "General", 0, 2400},
    OptionFrame{"frame_calculation", "Calculation Options", "Calculation", 1, 2880},
    OptionFrame{"frame_startup", "Select Startup Options", "Startup", 2, 2400},
    OptionFrame{"frame_output", "Select output windows to display when calculation completes",
                "Output Windows", 3, 2400},
    OptionFrame{"frame_buttons", "", "", OptionFrame::kEveryTab, 600},
};

}  // namespace

std::span<const OptionSpec> option_specs() { return kOptions; }
std::span<const OptionFrame> option_frames() { return kFrames; }

}  // namespace vantrel
