#include "outputs/bom_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace vantrel {
namespace {

struct Part {
  const char* type;
  const char* value;
  const char* rating;
  const char* tolerance;
  const char* reference;
};

BomStore store_of(const std::vector<Part>& parts) {
  BomStore store;
  for (const Part& part : parts) {
    store.add(part.type, part.value, part.rating, part.tolerance, part.reference);
  }
  return store;
}

/// Each line as "qty type|value|rating|tolerance|reference".
std::vector<std::string> lines_of(const BomStore& store) {
  std::vector<std::string> lines;
  for (const BillRecord& line : store.BomComponents()) {
    lines.push_back(std::to_string(line.qty) + " " + line.type + "|" + line.value + "|" +
                    line.rating + "|" + line.tolerance + "|" + line.reference);
  }
  return lines;
}

TEST(BomStore, GroupsLikeParts) {
  struct Case {
    const char* what;
    std::vector<Part> parts;
    std::vector<std::string> lines;
  };
  const std::vector<Case> cases = {
      {"resistors of different ratings are one line",
       {{"Resistor", "10 KOhm", "0.25 W", "1%", "R1"}, {"Resistor", "10 KOhm", "1 W", "1%", "R2"}},
       {"2 Resistor|10 KOhm||1%|R1,R2"}},
      {"blanks and letters of the word do not matter, but each spelling is a line of its own",
       {{" RESISTOR ", "1 Ohm", "1 W", "1%", "R1"}, {"resistor", "1 Ohm", "1 W", "1%", "R2"}},
       {"1  RESISTOR |1 Ohm||1%|R1", "1 resistor|1 Ohm||1%|R2"}},
      {"a longer word is no resistor",
       {{"Resistor, fusible", "1 Ohm", "1 W", "1%", "R1"},
        {"Resistor, fusible", "1 Ohm", "2 W", "1%", "R2"}},
       {"1 Resistor, fusible|1 Ohm|1 W|1%|R1", "1 Resistor, fusible|1 Ohm|2 W|1%|R2"}},
      {"capacitors part by rating, value, tolerance and type",
       {{"Capacitor", "1 nF", "50V", "5%", "C1"},
        {"Capacitor", "1 nF", "400V", "5%", "C2"},
        {"Capacitor", "1.5 nF", "50V", "5%", "C3"},
        {"Capacitor", "1 nF", "50V", "10%", "C4"},
        {"capacitor", "1 nF", "50V", "5%", "C5"},
        {"Capacitor", "1 nF", "50V", "5%", "C6"}},
       {"2 Capacitor|1 nF|50V|5%|C1,C6", "1 Capacitor|1 nF|400V|5%|C2",
        "1 Capacitor|1.5 nF|50V|5%|C3", "1 Capacitor|1 nF|50V|10%|C4",
        "1 capacitor|1 nF|50V|5%|C5"}},
      {"a reference counts once, alone or within a line, whatever comes with it",
       {{"Capacitor", "1 nF", "50V", "5%", "C1"},
        {"Capacitor", "1 nF", "50V", "5%", "C1"},
        {"Capacitor", "1 nF", "50V", "5%", "C2"},
        {"Capacitor", "1 nF", "50V", "5%", "C1"},
        {"Diode", "", "", "", "C2"}},
       {"2 Capacitor|1 nF|50V|5%|C1,C2"}},
      {"references are told apart by letters and as wholes",
       {{"Diode", "x", "", "", "D1"}, {"Diode", "x", "", "", "d1"}, {"Diode", "x", "", "", "D11"}},
       {"3 Diode|x|||D1,d1,D11"}},
      {"a reference that spells the references of a line adds nothing",
       {{"Diode", "x", "", "", "D1"}, {"Diode", "x", "", "", "D2"}, {"Fuse", "", "", "", "D1,D2"}},
       {"2 Diode|x|||D1,D2"}},
      {"unless a line before that one takes it",
       {{"Fuse", "", "", "", "F1"},
        {"Diode", "x", "", "", "D1"},
        {"Diode", "x", "", "", "D2"},
        {"Fuse", "", "", "", "D1,D2"}},
       {"2 Fuse||||F1,D1,D2", "2 Diode|x|||D1,D2"}},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(lines_of(store_of(test.parts)), test.lines) << test.what;
  }
}

TEST(BomStore, ClearingForgetsTheReferencesToo) {
  BomStore store = store_of({{"Diode", "x", "", "", "D1"}, {"Fuse", "", "", "", "F1"}});
  EXPECT_EQ(store.BomStages(), (std::vector<std::string>{"D1", "F1"}));
  store.clear();
  EXPECT_TRUE(store.isEmpty());
  EXPECT_TRUE(store.BomStages().empty());
  store.add("Diode", "x", "", "", "D1");
  EXPECT_EQ(lines_of(store), std::vector<std::string>{"1 Diode|x|||D1"});
}

TEST(BomStore, QuantitiesAddUpToTheComponents) {
  std::mt19937 random(5);
  const auto pick = [&random](unsigned count) { return random() % count; };
  for (int bill = 0; bill < 50; ++bill) {
    BomStore store;
    std::set<std::string> added;
    for (int i = 0; i < 80; ++i) {
      const std::string reference = "X" + std::to_string(pick(60));
      store.add(pick(2) == 0 ? "Resistor" : "Capacitor", std::to_string(pick(4)),
                std::to_string(pick(2)), "", reference);
      added.insert(reference);
    }
    std::size_t total = 0;
    std::set<std::string> groups;
    for (const BillRecord& line : store.BomComponents()) {
      total += static_cast<std::size_t>(line.qty);
      EXPECT_EQ(std::count(line.reference.begin(), line.reference.end(), ',') + 1, line.qty);
      EXPECT_TRUE(groups.insert(line.type + "|" + line.value + "|" + line.rating).second);
    }
    EXPECT_EQ(total, added.size());
    EXPECT_EQ(store.BomStages().size(), added.size());
  }
}

}  // namespace
}  // namespace vantrel
