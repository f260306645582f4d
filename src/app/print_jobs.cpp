#include "app/print_jobs.h"

#include <utility>

#include "app/result_summary.h"
#include "core/text_parsing.h"
#include "operating/advanced_fields.h"

namespace vantrel {

namespace {

constexpr const char* kSlotWords[kSlotCount] = {"Target IC", "Line Input", "Lamp",
                                                "Lamp Configuration"};
constexpr double kTwipsOfPixel = 15;
/// What a printed time-domain graph leaves free of the page, in twips.
constexpr Size kTimeDomainLess{1000, 2000};

FormControl label(std::string words) { return {.type = "Label", .caption = std::move(words)}; }

FormControl text_box(std::string caption, std::string value) {
  return {.type = "TextBox", .caption = std::move(caption), .value = std::move(value)};
}

FormControl wide_frame(std::string caption) {
  return {.type = "Frame", .caption = std::move(caption), .wide = true};
}

FormReport simple_form(Session& session) {
  FormReport form{session.simple().name(), session.simple().caption(), {}};
  FormControl selection = wide_frame("Selection");
  for (int slot = 0; slot < kSlotCount; ++slot) {
    selection.controls.push_back(text_box(kSlotWords[slot], session.selectionFullName(slot)));
  }
  form.controls.push_back(std::move(selection));
  const char* const captions[] = {"Operating Points", "Components"};
  const auto numbers = result_numbers(session);
  for (std::size_t column = 0; column < numbers.size(); ++column) {
    FormControl frame{.type = "Frame", .caption = captions[column]};
    for (const KeyNumber& number : numbers[column]) {
      frame.controls.push_back({.type = "VTLValue",
                                .caption = number.label,
                                .value = number.value,
                                .unit = number.unit});
    }
    add_frame(form.controls, std::move(frame));
  }
  return form;
}

/// A strip of tabs with the frames of each that the layout has, whichever tab is on show.
FormControl tab_strip(Advanced& advanced, const TabStrip& strip, bool input, const char* caption,
                      const std::string& lines) {
  FormControl pages{.type = "SSTab", .caption = strip.name};
  for (std::size_t i = 0; i < strip.tabs.size(); ++i) {
    FormControl tab{.type = "Tab", .caption = strip.tabs[i].caption};
    const InfoLine* line = advanced.findInfoLine(lines + std::to_string(i));
    if (line != nullptr && !line->text.empty()) tab.controls.push_back(label(line->text));
    const std::size_t own = tab.controls.size();
    for (const AdvancedFrame& frame : advanced_frames()) {
      if (frame.input != input || frame.tab != static_cast<int>(i)) continue;
      if (!advanced.isFrameInLayout(frame.name)) continue;
      add_frame(tab.controls, frame_control(advanced, frame.name));
    }
    if (tab.controls.size() > own) pages.controls.push_back(std::move(tab));
  }
  FormControl frame = wide_frame(caption);
  frame.controls.push_back(std::move(pages));
  return frame;
}

FormReport advanced_form(Session& session) {
  Advanced& advanced = session.advanced();
  FormReport form{advanced.name(), advanced.caption(), {}};
  form.controls = {tab_strip(advanced, advanced.input_tabstrip, true, "Inputs", "InputInfo"),
                   tab_strip(advanced, advanced.output_tabstrip, false, "Results", "OutputInfo")};
  return form;
}

/// The frame of a core: the pull-down with the sizes above the fields.
FormControl core_frame(Screen& screen, const char* frame, const PullDown& list,
                       const TickBox& tick) {
  FormControl control = frame_control(screen, frame);
  control.controls.insert(control.controls.begin(), combo_control("Core Size", list, tick.checked));
  return control;
}

FormReport inductor_form(Session& session) {
  Inductor& inductor = session.inductor();
  FormReport form{inductor.name(), inductor.caption(), {}};
  for (int index = 0; index < kInductorCount; ++index) {
    if (index == kInductorLpfc && !session.advanced().says_yes("line_input_pfc")) continue;
    const InductorTraits& traits = inductor_traits(index);
    FormControl side{.type = "Frame", .caption = traits.caption};
    side.controls = {
        frame_control(inductor, traits.input_frame),
        core_frame(inductor, traits.core_frame, *inductor.findPullDown("ind_comboCore", index),
                   *inductor.findTickBox("ind_checkFixCore", index)),
        frame_control(inductor, traits.result_frame)};
    form.controls.push_back(std::move(side));
  }
  return form;
}

FormReport transformer_form(Session& session) {
  Transformer& transformer = session.transformer();
  FormReport form{transformer.name(), transformer.caption(), {}};
  form.controls = {frame_control(transformer, "frame_inputs"),
                   core_frame(transformer, "frame_core", *transformer.findPullDown("tfr_ComboCore"),
                              *transformer.findTickBox("tfr_fixcoresize")),
                   frame_control(transformer, "frame_results")};
  return form;
}

FormReport calculator_form(Session& session) {
  Calculator& calculator = session.calculator();
  FormReport form = form_report(calculator);
  std::string series;
  for (const TickBox& tick : calculator.tickBoxes()) {
    if (tick.checked) series = tick.caption;
  }
  form.controls.insert(form.controls.begin(), text_box("Preferred Values", series));
  return form;
}

PrintJob graph_job(Session& session) {
  // A graph of its own, so that the one on show keeps the size of its last drawing.
  GraphOP graph = session.operatingPointsGraph();
  return session.printing().pageJob(graph.picture().title, true,
                                    [graph](Size room) mutable -> PrintPart {
                                      return {{}, 1, room, [graph](DeviceContext& surface) mutable {
                                                graph.RenderOperatingPoints(surface, Theme::Print);
                                              }};
                                    });
}

PrintJob time_domain_job(Session& session) {
  GraphTimeDomain& form = session.timeDomainForm();
  return session.printing().pageJob(form.picture().title, true, [&form](Size room) -> PrintPart {
    const Size twips{room.width * kTwipsOfPixel, room.height * kTwipsOfPixel};
    const Size plot{(twips.width - kTimeDomainLess.width) / kTwipsOfPixel,
                    (twips.height - kTimeDomainLess.height) / kTwipsOfPixel};
    return {{(room.width - plot.width) / 2, 0}, 1, plot, [&form, twips](DeviceContext& page) {
              form.PrintScreen({.setLandscape = [] {},  // The job lies that way.
                                .pageSize = [twips] { return twips; },
                                .startPage = [&page] { return &page; },
                                .endDocument = [&form] { form.RedrawGraph(); }});
            }};
  });
}

}  // namespace

std::optional<FormReport> printed_form(Session& session, std::string_view screen) {
  struct Row {
    const char* screen;
    FormReport (*report)(Session&);
  };
  constexpr Row kForms[] = {{"Simple", simple_form},
                            {"Advanced", advanced_form},
                            {"Inductor", inductor_form},
                            {"Transformer", transformer_form},
                            {"Calculator", calculator_form}};
  for (const Row& row : kForms) {
    if (equal_ignoring_case(row.screen, screen)) return row.report(session);
  }
  return std::nullopt;
}

std::optional<PrintJob> print_job(Session& session, std::string_view screen) {
  Printing& printing = session.printing();
  if (const auto form = printed_form(session, screen)) return printing.formJob(*form);
  const bill_of_materials& bill = session.billOfMaterials();
  if (equal_ignoring_case(screen, bill.name())) {
    return printing.tableJob(bill.grid(), bill.caption());
  }
  if (equal_ignoring_case(screen, session.images().name())) {
    const Picture picture = session.images().picture();
    if (!(picture.size.width > 0)) return std::nullopt;
    return printing.pictureJob(picture);
  }
  if (equal_ignoring_case(screen, session.graphOperatingPoints().name())) {
    return graph_job(session);
  }
  if (equal_ignoring_case(screen, session.graphTimeDomain().name())) {
    return time_domain_job(session);
  }
  return std::nullopt;
}

}  // namespace vantrel
