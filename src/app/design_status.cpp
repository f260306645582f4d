#include "app/design_status.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>

#include "core/number_text.h"
#include "core/text_parsing.h"
#include "operating/calculation_warnings.h"
#include "operating/tank_search.h"
#include "operating/target_traits.h"

namespace vantrel {

namespace {

constexpr std::array<const char*, 3> kFixable{"LValue", "CValue", "pfc_input_power"};
constexpr std::array<const char*, 6> kKeyFields{
    "run_frequency",     "max_frequency", "ignition_frequency",
    "preheat_frequency", "LValue",        "CValue"};

bool any_fixed(Advanced& advanced) {
  return std::any_of(kFixable.begin(), kFixable.end(),
                     [&](const char* name) { return advanced.field(name).IsFixed(); });
}

/// "Run Frequency" without its last word, which the unit makes plain.
std::string short_label(std::string_view label) {
  std::string text = trimmed(label);
  constexpr std::string_view kWord = " Frequency";
  if (text.ends_with(kWord)) text.resize(text.size() - kWord.size());
  return text;
}

/// What a message begins its warnings with, behind the news of the calculation.
constexpr std::string_view kWarningMark = "Warning: ";

/// Warnings come in a warning, or in the question that they lead to.
bool is_warning(const Message& message) {
  return message.severity == kSeverityWarning || message.type == kMessageYesNo;
}

std::string first_warning_line(const std::string& message) {
  std::string lines = with_line_breaks(message);
  if (const auto mark = lines.find(kWarningMark); mark != std::string::npos) {
    lines.erase(0, mark + kWarningMark.size());
  }
  return lines.substr(0, lines.find('\n'));
}

constexpr double kKilo = 1000;

Margin distance(std::string label, double hertz, double least) {
  return {std::move(label), (hertz < 0 ? "" : "+") + format_mask(hertz / kKilo, "0.0") + " KHz",
          hertz >= least};
}

}  // namespace

DesignStatus::DesignStatus(Session& session) : session_(session) {
  session.calculationStarted.connect([this] { started(); });
  session.calculationEnded.connect([this](bool succeeded) { ended(succeeded); });
  session.designShown.connect([this] {
    warning_.clear();
    released_fixed_ = false;
    // A project that was stored without results brings them back as zeros.
    const auto numbers = keyNumbers();
    has_results_ = std::any_of(numbers.begin(), numbers.end(),
                               [](const KeyNumber& number) { return number.value != "0"; });
    results_fit_ = has_results_;
    set(has_results_ ? State::Current : State::Empty);
  });
  session.browser().itemSelected.connect([this](int) { emptied(); });
}

void DesignStatus::set(State state) {
  state_ = state;
  changed.raise();
}

void DesignStatus::inputChanged() {
  unsaved_ = true;
  results_fit_ = false;
  set(state_ == State::Current ? State::Stale : state_);
}

void DesignStatus::designChanged() {
  unsaved_ = true;
  changed.raise();
}

void DesignStatus::emptied() {
  unsaved_ = true;
  has_results_ = false;
  results_fit_ = false;
  warning_.clear();
  last_message_.clear();
  // A selection within a run answers what the run has warned of before.
  messages_before_ = session_.messages().shown().size();
  released_fixed_ = false;
  set(State::Empty);
}

void DesignStatus::stored() {
  unsaved_ = false;
  changed.raise();
}

void DesignStatus::started() {
  // What earlier steps of a chain have said stays.
  if (session_.simple().isContinuing()) return;
  messages_before_ = session_.messages().shown().size();
  warning_.clear();
  last_message_.clear();
  had_fixed_ = any_fixed(session_.advanced());
  number_before_ = session_.advanced().CalculationNumber;
}

void DesignStatus::ended(bool succeeded) {
  unsaved_ = true;
  const std::vector<Message>& shown = session_.messages().shown();
  for (std::size_t i = std::min(messages_before_, shown.size()); i < shown.size(); ++i) {
    last_message_ = shown[i].text;
    if (warning_.empty() && is_warning(shown[i])) warning_ = shown[i].text;
  }
  released_fixed_ = had_fixed_ && !any_fixed(session_.advanced());
  // Components or magnetics that are calculated from operating points out of date leave them so.
  if (session_.advanced().CalculationNumber != number_before_) {
    has_results_ = true;
    results_fit_ = true;
  }
  // The design of the transformer alone has no operating points.
  if (succeeded && session_.advanced().target() == kTransformerTarget) results_fit_ = true;
  set(!succeeded     ? State::Failed
      : results_fit_ ? State::Current
      : has_results_ ? State::Stale
                     : State::Empty);
}

std::int32_t DesignStatus::calculationNumber() const {
  const CalculationHistory& history = session_.history();
  if (history.shown() < 0) return 0;
  const CalculationRecord& record = history.records()[static_cast<std::size_t>(history.shown())];
  const auto number = parse_number(record.title.substr(record.title.rfind(' ') + 1));
  return number ? static_cast<std::int32_t>(*number) : 0;
}

std::string DesignStatus::bannerText() const {
  if (state_ == State::Stale) {
    return fmt::format("Inputs have changed since calculation #{}: these results are out of date.",
                       calculationNumber());
  }
  if (warning_.empty()) return {};
  // A run that ended early has no number; the results on show are those of the run before.
  const std::string line = first_warning_line(warning_);
  if (state_ == State::Failed) return line;
  return fmt::format("Calculation #{}: {}", calculationNumber(), line);
}

std::string DesignStatus::componentCount() const {
  const BomStore& store = session_.bomStore();
  if (store.isEmpty()) return {};
  return fmt::format("{} components in {} lines", store.BomStages().size(),
                     store.BomComponents().size());
}

std::vector<KeyNumber> DesignStatus::keyNumbers() const {
  std::vector<KeyNumber> numbers;
  for (const char* name : kKeyFields) {
    const VTLValue& field = session_.advanced().field(name);
    if (!field.Visible() || field.IsItEmpty()) continue;
    numbers.push_back({short_label(field.ValueLabel()), field.DisplayText(), field.UnitText()});
  }
  return numbers;
}

std::vector<Margin> DesignStatus::margins() const {
  Advanced& advanced = session_.advanced();
  const TargetTraits& traits = target_traits(advanced.target());
  const auto number = [&](const char* name) -> std::optional<double> {
    const VTLValue& field = advanced.field(name);
    if (!field.Visible() || field.IsItEmpty()) return std::nullopt;
    return to_double(field.value());
  };
  std::vector<Margin> margins;
  const auto preheat = number("preheat_voltage");
  const auto most = number("max_preheat_voltage");
  if (preheat && most && traits.preheats && advanced.heatingMode() == kCurrentMode) {
    margins.push_back(
        {"Preheat Voltage",
         fmt::format("{} of {} Vpk", format_mask(*preheat, "0"),
                     advanced.field("max_preheat_voltage").DisplayText()),
         !exceeds_preheat_limit(static_cast<float>(*most), static_cast<float>(*preheat))});
  }
  const char* const run_field = traits.dimming ? "max_frequency" : "run_frequency";
  const std::string run_name = trimmed(advanced.field(run_field).ValueLabel());
  const auto run = number(run_field);
  const auto wanted = number("ballast_run_frequency");
  if (run && wanted) {
    margins.push_back(distance(short_label(run_name) + " above Ballast Run Frequency",
                               *run - *wanted * kKilo, 0));
  }
  const auto ignition = number("ignition_frequency");
  if (ignition && run && must_ignite_above_run(advanced.target())) {
    margins.push_back(
        distance("Ignition above " + run_name, *ignition - *run, -kIgnitionTolerance));
  }
  return margins;
}

}  // namespace vantrel
