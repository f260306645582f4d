#include "selection/item_search.h"

#include <algorithm>

#include "core/text_parsing.h"
#include "selection/browser_view.h"

namespace vantrel {

namespace {

std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words(1);
  for (const char letter : lower(text)) {
    if (letter != ' ') {
      words.back() += letter;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

}  // namespace

std::vector<ItemHit> SearchItems(const browser_control& browser, std::string_view text) {
  const std::vector<std::string> words = words_of(text);
  if (words.empty()) return {};
  std::vector<ItemHit> hits;
  for (std::size_t group = 0; group < browser.GroupList().size(); ++group) {
    const auto index = static_cast<int>(group);
    const std::string title = GroupTitleLine(browser.GroupList()[group]->Title);
    const auto items = browser.ItemsOfGroup(index);
    for (std::size_t position = 0; position < items.size(); ++position) {
      const ValidItem& item = *items[position];
      const std::string where = lower(item.ListText() + "\n" + item.Name + "\n" + title);
      const bool found = std::all_of(words.begin(), words.end(), [&](const std::string& word) {
        return where.find(word) != std::string::npos;
      });
      if (found) hits.push_back({index, position, item.ID, item.ListText(), title});
    }
  }
  return hits;
}

}  // namespace vantrel
