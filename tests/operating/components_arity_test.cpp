#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "operating/targets/target.h"

namespace vantrel {
namespace {

using Names = std::vector<std::pair<std::string, int>>;

Names names_of(const Target& target) {
  Names names;
  for (const ComponentEntry& entry : target.components()) {
    names.emplace_back(entry.name.substr(std::string("component_").size()), entry.arity);
    EXPECT_TRUE(entry.name.starts_with("component_"));
    EXPECT_EQ(target.component(entry.name), &entry) << "name given twice: " << entry.name;
  }
  return names;
}

// A wrong count is a failed call and runs the generic formula without a word, so every count is
// written down here a second time.
TEST(ComponentArity, EveryTargetHasItsFunctions) {
  const std::vector<std::pair<Target, Names>> expected = {
      {make_tv6101(), {{"CPH", 1}, {"RCS", 2}}},
      {make_tv6102(), {{"CPH", 1}, {"RCS", 1}, {"RMIN", 2}, {"RMAX", 3}}},
      {make_tv6103(), {{"RT", 4}, {"CPH", 1}, {"RPH", 4}, {"RCS", 1}}},
      {make_tv6104(), {{"RT", 4}, {"CPH", 1}, {"RPH", 4}, {"RCS", 1}, {"RVDC", 2}}},
      {make_tv6105(), {{"CPH", 1}, {"RCS", 2}}},
      {make_tv6106(),
       {{"CPH", 1},
        {"RCS", 1},
        {"CVCO", 1},
        {"MLS", 2},
        {"MHSorMLS", 2},
        {"LRESs", 2},
        {"CRESs", 2},
        {"RSUPPLY", 0},
        {"RBUS", 3}}},
      {make_tv6107(),
       {{"RLS", 2},
        {"RCS", 1},
        {"CPH", 1},
        {"MLS", 2},
        {"MHSorMLS", 2},
        {"LRESs", 2},
        {"CRESs", 2},
        {"RSUPPLY", 0},
        {"RBUS", 3},
        {"ROC", 1},
        {"ROCxDCInput", 1}}},
      {make_tv6108(), {{"RCS", 2}, {"D1234", 2}, {"Q", 2}}},
      {make_tv6109(),
       {{"RT", 4},
        {"ROC", 1},
        {"CPH", 2},
        {"RSUPPLY", 3},
        {"RARx", 3},
        {"CVCO", 2},
        {"CSNUB", 1},
        {"RPH", 4},
        {"RCS", 1},
        {"RVDC", 2}}},
      {make_tv6110(),
       {{"RT", 4},
        {"CT", 1},
        {"CPH", 2},
        {"RSUPPLY", 1},
        {"RLS", 2},
        {"CVCO", 2},
        {"CSNUB", 1},
        {"RPH", 3},
        {"RCS", 1},
        {"ROC", 1},
        {"ROCxDCInput", 1},
        {"RFMIN", 2}}},
      {make_tvGenericTarget(),
       {{"RT", 4},
        {"RSTART", 4},
        {"RPH", 4},
        {"RDT", 2},
        {"RRUN", 5},
        {"RFMIN", 2},
        {"RIPH", 3},
        {"RMIN", 2},
        {"RMAX", 3},
        {"ROC", 2},
        {"CRAMP", 2},
        {"L1", 2},
        {"C1", 1},
        {"CBUSxActivePFC", 2},
        {"CBUS12xActivePFC", 2},
        {"CBUS12xVoltageDoubler", 2},
        {"CBUSxFullBridgeRectifier", 2},
        {"CBUSxDC", 1},
        {"CBUSx", 1},
        {"L2", 2},
        {"RVDC", 1},
        {"RDC", 0},
        {"MLS", 2},
        {"R9orRBUS", 1},
        {"MPFC", 2},
        {"RS", 1},
        {"RSxDCInput", 1},
        {"LRESs", 2},
        {"CRESs", 1},
        {"MHSorMLS", 2},
        {"RVBUS", 1},
        {"LPFC", 2},
        {"RSUPPLY", 1}}},
  };
  for (const auto& [target, names] : expected) EXPECT_EQ(names_of(target), names) << target.name();
}

TEST(ComponentArity, OnlyTheDimmingTargetsBringATankFormula) {
  EXPECT_EQ(make_tv6101().name(), "tv6101");
  EXPECT_EQ(make_tvGenericTarget().name(), "tvGenericTarget");
  const std::vector<std::pair<Target, bool>> expected = {
      {make_tv6101(), false}, {make_tv6102(), true},          {make_tv6103(), false},
      {make_tv6104(), false}, {make_tv6105(), false},         {make_tv6106(), false},
      {make_tv6107(), true},  {make_tv6108(), false},         {make_tv6109(), false},
      {make_tv6110(), true},  {make_tvGenericTarget(), false}};
  for (const auto& [target, dimming] : expected) {
    EXPECT_EQ(target.tankFormula("calculate_min_run_frequency") != nullptr, dimming)
        << target.name();
    EXPECT_EQ(target.tankFormula("calculate_run_frequency") != nullptr,
              target.name() == "tvGenericTarget");
  }
}

}  // namespace
}  // namespace vantrel
