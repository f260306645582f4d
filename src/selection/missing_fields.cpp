#include "selection/missing_fields.h"

namespace vantrel {

bool MissingFields::IsEmpty(bool ask) {
  if (entries_.empty()) return true;
  if (ask && messages_.msg("", "Required fields are missing, do you wish to see the list ?",
                           kMessageYesNo) == kYes) {
    if (showList) showList();
  }
  return false;
}

std::vector<std::string> MissingFields::PrepareToShow() const {
  std::vector<std::string> lines;
  lines.reserve(entries_.size());
  for (const MissingField& entry : entries_) lines.push_back(entry.text);
  return lines;
}

void MissingFields::GoToField(std::size_t position) {
  if (position >= entries_.size()) return;
  if (displayField && displayField(*entries_[position].field)) return;
  messages_.msg("MissingFields", "This field cannot be displayed");
}

}  // namespace vantrel
