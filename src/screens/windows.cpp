#include "screens/windows.h"

#include "core/text_parsing.h"
#include "screens/advanced_window.h"
#include "screens/bill_window.h"
#include "screens/calculator_window.h"
#include "screens/image_window.h"
#include "screens/inductor_window.h"
#include "screens/operating_points_window.h"
#include "screens/options_dialog.h"
#include "screens/output_circuit_window.h"
#include "screens/simple_window.h"
#include "screens/time_domain_window.h"
#include "screens/transformer_window.h"
#include "screens/validate_window.h"

namespace vantrel {

namespace {

struct Row {
  const char* screen;
  std::unique_ptr<QWidget> (*make)(Workbench bench);
};

template <typename Window>
constexpr Row row(const char* screen) {
  return {screen, [](Workbench bench) -> std::unique_ptr<QWidget> {
            return std::make_unique<Window>(bench);
          }};
}

constexpr Row kRows[] = {
    row<AdvancedWindow>("Advanced"),
    row<BillWindow>("bill_of_materials"),
    row<CalculatorWindow>("Calculator"),
    row<InductorWindow>("Inductor"),
    row<OperatingPointsWindow>("GraphOperatingPoints"),
    row<OptionsDialog>("configure"),
    row<SimpleWindow>("Simple"),
    row<ImageWindow>("ImageDisplay"),
    row<TimeDomainWindow>("GraphTimeDomain"),
    row<OutputCircuitWindow>("TimeDomainRCL"),
    row<TransformerWindow>("Transformer"),
    row<ValidateWindow>("ValidateSchematic"),
};

}  // namespace

std::unique_ptr<QWidget> make_window(std::string_view screen, Workbench bench) {
  for (const Row& entry : kRows) {
    if (equal_ignoring_case(entry.screen, screen)) return entry.make(bench);
  }
  return nullptr;
}

}  // namespace vantrel
