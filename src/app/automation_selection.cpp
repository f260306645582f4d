#include "app/automation_ops.h"
#include "selection/browser_control.h"

namespace vantrel {

Json op_select(Session& session, const Json& command) {
  const int slot = slot_argument(command);
  std::int32_t id = -1;
  std::string name;
  if (const auto number = command.find("id"); number != command.end()) {
    if (!number->is_number_integer()) throw CommandError("Argument 'id' is no whole number");
    id = number->get<std::int32_t>();
  } else {
    name = text_argument(command, "name");
  }
  browser_control& browser = session.browser();
  const bool found = browser.Find(id, slot, name, false);
  if (found && command.value("recheck", false)) browser.RecheckOtherSelections(slot);
  return {{"result", found}, {"id", id}};
}

Json op_items(Session& session, const Json& command) {
  const int slot = slot_argument(command);
  browser_control& browser = session.browser();
  browser.Setup(slot);
  Json items = Json::array();
  for (const ValidItem& item : browser.ValidItems()) {
    items.push_back({{"id", item.ID},
                     {"name", item.Name},
                     {"pulldown_name", item.PullDownName},
                     {"group", item.Group}});
  }
  return {{"items", items}, {"selected", browser.GetInfo(slot)}};
}

}  // namespace vantrel
