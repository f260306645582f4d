#include "core/paper_setup.h"

#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

constexpr std::string_view kSection = "Printing";
constexpr std::string_view kPaper = "Paper";
constexpr std::string_view kOrientation = "Orientation";

struct Margin {
  const char* key;
  double PaperSetup::*value;
};
constexpr Margin kMargins[] = {{"LeftMargin", &PaperSetup::left},
                               {"TopMargin", &PaperSetup::top},
                               {"RightMargin", &PaperSetup::right},
                               {"BottomMargin", &PaperSetup::bottom}};

}  // namespace

Size upright_sheet(const PaperSetup& setup) {
  constexpr double kPixelsPerMillimetre = 96 / 25.4;
  const PaperKind& paper = kPapers[setup.paper];
  return {paper.width * kPixelsPerMillimetre, paper.height * kPixelsPerMillimetre};
}

bool set_paper(PaperSetup& setup, std::string_view name) {
  for (std::size_t i = 0; i < kPapers.size(); ++i) {
    if (!equal_ignoring_case(kPapers[i].name, name)) continue;
    setup.paper = i;
    return true;
  }
  return false;
}

bool set_orientation(PaperSetup& setup, std::string_view name) {
  for (std::size_t i = 0; i < kOrientationNames.size(); ++i) {
    if (!equal_ignoring_case(kOrientationNames[i], name)) continue;
    setup.orientation = static_cast<PaperOrientation>(i);
    return true;
  }
  return false;
}

PaperSetup read_paper_setup(SettingsStore& settings) {
  PaperSetup setup;
  // An unknown name, as of another version, leaves the default.
  static_cast<void>(set_paper(setup, settings.get(kSection, kPaper, "")));
  static_cast<void>(set_orientation(setup, settings.get(kSection, kOrientation, "")));
  for (const Margin& margin : kMargins) {
    const auto stored = parse_number(settings.get(kSection, margin.key, ""));
    if (stored && *stored >= PaperSetup::kLeastMargin && *stored <= PaperSetup::kMostMargin) {
      setup.*margin.value = *stored;
    }
  }
  return setup;
}

void store_paper_setup(SettingsStore& settings, const PaperSetup& setup) {
  settings.save(kSection, kPaper, kPapers[setup.paper].name);
  settings.save(kSection, kOrientation,
                kOrientationNames[static_cast<std::size_t>(setup.orientation)]);
  for (const Margin& margin : kMargins) {
    settings.save(kSection, margin.key, general_text(setup.*margin.value));
  }
}

}  // namespace vantrel
