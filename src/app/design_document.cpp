#include "app/design_document.h"

#include <array>

#include "app/automation_ops.h"
#include "app/automation_time_domain.h"
#include "core/file_writer.h"
#include "outputs/table_export.h"
#include "waveforms/waveform_table.h"

namespace vantrel {

namespace {

Json selection_json(Session& session) {
  constexpr std::array<const char*, kSlotCount> keys{"ic", "input", "lamp", "config"};
  Json selection = Json::object();
  for (int slot = 0; slot < kSlotCount; ++slot) {
    selection[keys[static_cast<std::size_t>(slot)]] = {{"id", session.browser().GetInfo(slot)},
                                                       {"name", session.selectionFullName(slot)}};
  }
  return selection;
}

Json cores_json(Session& session) {
  Json cores = Json::object();
  for (int index = 0; index < 2; ++index) {
    const PullDown& list = *session.inductor().findPullDown("ind_comboCore", index);
    cores[index == 0 ? "LRES" : "LPFC"] = shown_core(list);
  }
  cores["Transformer"] = shown_core(*session.transformer().findPullDown("tfr_ComboCore"));
  return cores;
}

std::string written(const std::filesystem::path& file, const std::string& content) {
  const auto failure = write_file(file, content);
  return failure ? file.string() + ": " + *failure : std::string();
}

/// The gain graph of a design that has a tank.
std::string write_graph(Session& session, const std::filesystem::path& folder) {
  GraphOP& graph = session.operatingPointsGraph();
  if (!graph.inputsAvailable()) return {};
  for (const char* name : {"operating-points.svg", "operating-points.png"}) {
    if (const auto why = session.writePicture(folder / name, graph.picture())) {
      return (folder / name).string() + ": " + *why;
    }
  }
  return {};
}

/// The circuit diagram and the drawings of the magnetic parts that the design has.
std::string write_drawings(Session& session, const std::filesystem::path& folder) {
  struct Drawing {
    const char* file;
    bool (ImageDisplay::*show)();
  };
  constexpr Drawing kDrawings[] = {{"circuit-diagram.svg", &ImageDisplay::show_schematic},
                                   {"lres.svg", &ImageDisplay::show_lres},
                                   {"pfc.svg", &ImageDisplay::show_pfc},
                                   {"transformer.svg", &ImageDisplay::show_transformer}};
  for (const Drawing& drawing : kDrawings) {
    if (!(session.images().*drawing.show)()) continue;
    if (const auto why = session.writePicture(folder / drawing.file, session.images().picture())) {
      return (folder / drawing.file).string() + ": " + *why;
    }
  }
  return {};
}

}  // namespace

Json design_json(Session& session, bool complete, std::size_t first_message) {
  Json screens = Json::object();
  for (Screen* screen :
       std::initializer_list<Screen*>{&session.advanced(), &session.inductor(),
                                      &session.transformer(), &session.calculator()}) {
    screens[screen->name()] = fields_json(*screen);
  }
  Json components = Json::array();
  if (!session.bomStore().isEmpty()) {
    for (const VariableEntry& variable : session.calculator().engine().variables().entries()) {
      if (!variable.reference.empty()) components.push_back(variable_json(variable));
    }
  }
  return {{"complete", complete},
          {"selection", selection_json(session)},
          {"screens", screens},
          {"cores", cores_json(session)},
          {"components", components},
          {"bom", bill_json(session.bomStore())},
          {"messages", messages_json(session.messages(), first_message)}};
}

bool simulate_start(Session& session) {
  if (session.bomStore().isEmpty() || !session.operatingPointsGraph().inputsAvailable()) {
    return false;
  }
  return session.timeDomainGraph().GenerateTimeDomain() != GraphTD::kFailed;
}

std::string write_design(Session& session, const Json& design, bool simulated,
                         const DesignOutput& output) {
  const std::filesystem::path& folder = output.folder;
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  const std::string text = design.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
  if (std::string why = written(folder / "design.json", text); !why.empty()) return why;
  if (session.bomStore().isEmpty()) return {};
  session.billOfMaterials().setup_bom();
  if (std::string why = written(folder / "bom.csv",
                                table_text(session.billOfMaterials().grid(), TableFileType::Csv));
      !why.empty()) {
    return why;
  }
  if (std::string why = write_drawings(session, folder); !why.empty()) return why;
  if (std::string why = write_graph(session, folder); !why.empty() || !simulated) return why;
  const std::filesystem::path picture = folder / "time-domain.png";
  if (const auto why = write_time_domain_picture(session, picture)) {
    return picture.string() + ": " + *why;
  }
  return written(folder / "waveforms.csv",
                 waveform_csv(session.timeDomainGraph().simulated(), output.waveform_step));
}

}  // namespace vantrel
