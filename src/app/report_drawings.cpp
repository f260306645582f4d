#include "app/report_drawings.h"

#include <memory>

#include "app/report_sections.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

/// A display of its own, so that the one of the session goes on showing what it shows.
struct OwnDisplay {
  explicit OwnDisplay(Session& session)
      : display(context,
                {session.advanced(), session.inductor(), session.transformer(), session.bomStore(),
                 session.folder()},
                nullptr, hooks(session)) {}

  static ImageHooks hooks(Session& session) {
    ImageHooks hooks;
    hooks.targetName = [&session] { return to_text(session.details().TargetDetails(kTargetName)); };
    hooks.configName = [&session] { return session.details().ConfigDetails(kConfigShortCode); };
    return hooks;
  }

  SysMsg messages;
  FieldContext context{.messages = messages, .playClickSound = {}, .addMissingField = {}};
  ImageDisplay display;
};

bool show(ImageDisplay& display, ReportDrawing drawing) {
  switch (drawing) {
    case ReportDrawing::Diagram:
      return display.show_schematic();
    case ReportDrawing::Lres:
      return display.show_lres();
    case ReportDrawing::Lpfc:
      return display.show_pfc();
    case ReportDrawing::Transformer:
      return display.show_transformer();
    case ReportDrawing::BalanceTransformer:
      return display.show_balancetransformer();
  }
  return false;
}

}  // namespace

void add_drawing(ReportSection& section, Session& session, ReportDrawing drawing,
                 const std::string& caption) {
  const auto own = std::make_shared<OwnDisplay>(session);
  const bool whole = show(own->display, drawing);
  for (const Message& message : own->messages.shown()) {
    section.add(ReportParagraph{with_line_breaks(message.text), ReportTone::Warning});
  }
  if (!whole) return;
  Picture picture = own->display.picture();
  picture.draw = [own, draw = std::move(picture.draw)](DeviceContext& surface) { draw(surface); };
  // The balance transformer is a ready part, without a value on its drawing.
  const char* const shows =
      drawing == ReportDrawing::BalanceTransformer ? "" : ", with the values of this design";
  section.add(ReportFigure{picture, caption, caption + shows, drawing == ReportDrawing::Diagram});
}

ReportSection diagram_section(Session& session) {
  ReportSection section{"Circuit Diagram", {}};
  if (session.bomStore().isEmpty()) {
    section.add(
        ReportParagraph{"The circuit diagram needs calculated components.", ReportTone::Note});
    return section;
  }
  add_drawing(section, session, ReportDrawing::Diagram, "Circuit diagram");
  return section;
}

}  // namespace vantrel
