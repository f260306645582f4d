#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "session_bench.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

TEST(Session, AppliesTheDefaultSelectionWithoutAMessage) {
  SessionBench bench;
  Session& session = bench.make();
  ASSERT_TRUE(session.StartSession());
  EXPECT_EQ(bench.texts(), Texts{});
  EXPECT_EQ(session.selectionFullName(kSlotIc), "TV6103");
  EXPECT_EQ(session.selectionFullName(kSlotInput), "90 to 265VAC/500VDC");
  EXPECT_EQ(session.browser().GetInfo(kSlotIc), 1);
  EXPECT_EQ(session.browser().GetInfo(kSlotConfig), 0);
  EXPECT_TRUE(session.state().SelectionReady);
  EXPECT_TRUE(session.state().SoundsReady);
  EXPECT_EQ(session.advanced().field("running_lamp_power").DisplayText(), "28");
  EXPECT_EQ(session.advanced().field("running_dc_bus_voltage").DisplayText(), "500");
  EXPECT_FALSE(session.webLinks().empty());
}

// The printed tank must satisfy the first-harmonic analysis of the loaded half-bridge tank: with
// x = (2 pi f)^2 LC and Q = R sqrt(C/L), gain = 1 / sqrt((1 - x)^2 + x / Q^2), and the lamp's peak
// voltage over the first harmonic of the half-bridge, 2 VBus / pi, is that gain.
TEST(Session, DefaultRunFrequencySolvesTheLoadedTank) {
  SessionBench bench;
  Session& session = bench.start();
  ASSERT_TRUE(session.operatingPoints().Calculate(true));
  const OperatingBlock& block = session.operatingPoints().block();
  const double l = block.L;
  const double c = block.C;
  const double r = 236.0 * 236.0 / (2.0 * 28.0);
  const auto gain = [=](double f) {
    const double x = std::pow(2 * M_PI * f, 2) * l * c;
    return 1 / std::sqrt(std::pow(1 - x, 2) + x * l / (c * r * r));
  };
  const double wanted = 236.0 / (2 * 500.0 / M_PI);
  // The frequency at which the gain is exactly right, by bisection above the printed one's decade.
  double low = block.FRun * 0.9;
  double high = block.FRun * 1.1;
  for (int i = 0; i < 200; ++i) {
    const double middle = (low + high) / 2;
    (gain(middle) > wanted ? low : high) = middle;
  }
  EXPECT_NEAR(block.FRun / low, 1.0, 1e-5);
}

// What used to keep the retries of the operating points going for ever, or for hours.
TEST(Session, AbsurdInputsEndTheCalculation) {
  SessionBench bench;
  Session& session = bench.start();
  ASSERT_TRUE(session.selectById(kSlotConfig, 1));
  session.advanced().field("preheat_current").SetValue(1000000.0);
  session.operatingPoints().Calculate(true);
  ASSERT_TRUE(session.selectById(kSlotConfig, 0));
  ASSERT_TRUE(session.selectByName(kSlotInput, "400VDC"));
  session.advanced().field("running_dc_bus_voltage").SetValue(-1e8);
  session.messages().clear();
  EXPECT_FALSE(session.operatingPoints().Calculate(true));
  ASSERT_FALSE(bench.texts().empty());
  EXPECT_TRUE(bench.texts().back().starts_with("No solution found."));
}

TEST(Session, FirstStartStoresTheVersionAndImportsNothing) {
  SessionBench bench;
  std::ofstream(bench.home.path() / "Data" / "VTL.mdb.OLD") << "left over";
  bench.start();
  EXPECT_EQ(bench.texts(), Texts{});
  EXPECT_EQ(bench.settings.get("Configure", "AppVersion", ""), "1.0.0");
  EXPECT_EQ(bench.settings.get("Configure", "AppLocation", ""), bench.home.path().string());
  bench.start();
  EXPECT_TRUE(std::filesystem::exists(bench.home.path() / "Data" / "VTL.mdb.OLD"));
}

TEST(Session, UpgradeCarriesTheUsersLampsAndCoresOver) {
  SessionBench bench;
  bench.start();
  bench.session->database().execute(
      "insert into [DATA:LAMP] (RecordType, ID, [Group], Name, Include, UserData, "
      "[Run Lamp Power (W)]) values (2, 900, 9, 'My lamp', Yes, Yes, '21')");
  bench.session->database().execute(
      "insert into [INDUCTOR:Core Types] ([Core Size], [Le Value], UserData) values "
      "('My core', 30.5, Yes)");
  bench.session->EndSession();
  const auto old_file = bench.database().string() + ".OLD";
  std::filesystem::rename(bench.database(), old_file);
  std::filesystem::copy_file(VANTREL_DATABASE, bench.database());

  bench.start("1.0.1");
  EXPECT_EQ(bench.texts(), Texts{});
  EXPECT_FALSE(std::filesystem::exists(old_file));
  RecordSet rows;
  ASSERT_TRUE(
      bench.session->database().read("select * from [DATA:LAMP] where UserData = Yes", rows));
  EXPECT_EQ(rows.rowCount(), 1U);
  EXPECT_EQ(adoaccess_class::rs_get(rows, "Name"), Variant("My lamp"));
  ASSERT_TRUE(bench.session->database().read(
      "select * from [INDUCTOR:Core Types] where UserData = Yes", rows));
  EXPECT_EQ(adoaccess_class::rs_get(rows, "Le Value"), Variant(30.5));
}

TEST(Session, UnreadableOldDatabaseIsReportedOnceAndKept) {
  SessionBench bench;
  bench.start();
  bench.session->EndSession();
  const auto old_file = bench.database().string() + ".OLD";
  std::ofstream(old_file) << "this is no database";
  ASSERT_TRUE(bench.make("1.0.1").StartSession());
  EXPECT_EQ(bench.texts(), Texts{"Could not open Vantrel user database for import"});
  EXPECT_EQ(bench.session->messages().shown().front().title, "Vantrel update");
  EXPECT_TRUE(std::filesystem::exists(old_file));
  bench.start("1.0.1");
  EXPECT_EQ(bench.texts(), Texts{});
}

TEST(Session, MissingOrDamagedDatabaseEndsTheStart) {
  for (const bool damaged : {false, true}) {
    SessionBench bench;
    std::filesystem::remove(bench.database());
    if (damaged) std::ofstream(bench.database()) << std::string(5000, 'x');
    EXPECT_FALSE(bench.make().StartSession());
    EXPECT_EQ(bench.texts(), Texts{"Could not open Vantrel Database"});
    EXPECT_EQ(bench.session->messages().shown().front().title, "Vantrel initialisation error");
  }
}

TEST(Session, MissingTablesAreNamedAndStartUpGoesOn) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"web", "Could not read web table"},
      {"groups", "Could not read groups table (or no entries)"},
      {"Target:Info", "Could not read Target:Info table"},
  };
  for (const auto& [table, text] : cases) {
    SessionBench bench;
    bench.start();
    bench.session->database().execute("drop table [" + table + "]");
    bench.session->EndSession();
    EXPECT_TRUE(bench.make().StartSession()) << table;
    if (table == "Target:Info") bench.session->details().TargetDetails(kTargetName);
    ASSERT_FALSE(bench.texts().empty()) << table;
    EXPECT_EQ(bench.texts().front(), text);
  }
}

TEST(Session, SelectionReplacesWhatItRulesOut) {
  SessionBench bench;
  Session& session = bench.start();
  ASSERT_TRUE(session.selectByName(kSlotIc, "TV6108"));
  EXPECT_EQ(session.selectionName(kSlotConfig), "Electronic Transformer");
  EXPECT_FALSE(session.selectByName(kSlotLamp, "T5 28W"));
  EXPECT_FALSE(session.selectById(kSlotConfig, 0));
  EXPECT_TRUE(session.operatingPoints().Calculate(true));
  EXPECT_EQ(bench.texts(), Texts{});
}

}  // namespace
}  // namespace vantrel
