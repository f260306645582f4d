#include "app/automation_ops.h"
#include "selection/browser_control.h"

namespace vantrel {

Json op_select(Session& session, const Json& command) {
  const int slot = slot_argument(command);
  std::int32_t id = -1;
  std::string name;
  if (command.contains("id")) {
    id = number_argument(command, "id");
  } else {
    name = text_argument(command, "name");
  }
  browser_control& browser = session.browser();
  const bool found = browser.Find(id, slot, name, false);
  if (found && flag_argument(command, "recheck", false)) browser.RecheckOtherSelections(slot);
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
