#include "waveforms/time_domain_measure.h"

#include <cmath>
#include <numbers>

#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

TEST(TimeDomainMeasure, AgreesWithHandCalculation) {
  const std::vector<double> values{-1, 3, 1, -3, -1, 3, 1, -3, -1, 3};
  const Measurement m = measure_values(values);
  EXPECT_EQ(m.count, 10);
  EXPECT_EQ(m.minimum, -3);
  EXPECT_EQ(m.maximum, 3);
  EXPECT_DOUBLE_EQ(m.mean, 0.2);
  EXPECT_DOUBLE_EQ(m.rms, std::sqrt(5));
  EXPECT_EQ(m.zero_crossings, 5);
  // Rising ones a quarter of a step behind the samples 0, 4 and 8: 0.2 us apart.
  ASSERT_TRUE(m.frequency);
  EXPECT_NEAR(*m.frequency, 5000, 1e-9);

  // A square that stays above zero crosses its middle.
  const Measurement above = measure_values(std::vector<double>{0, 0, 400, 400, 0, 0, 400, 400});
  EXPECT_EQ(above.zero_crossings, 0);
  EXPECT_NEAR(above.frequency.value_or(0), 5000, 1e-9);
  EXPECT_FALSE(measure_values(std::vector<double>{7, 7, 7}).frequency);
  EXPECT_EQ(measure_values({}).count, 0);

  // 40 kHz and 30 V peak over exactly four periods.
  std::vector<double> sine;
  for (int i = 0; i < 2000; ++i) {
    sine.push_back(30 * std::sin(2 * std::numbers::pi * (i + 0.5) / 500));
  }
  EXPECT_NEAR(measure_values(sine).rms, 30 / std::numbers::sqrt2, 1e-9);
  EXPECT_NEAR(measure_values(sine).mean, 0, 1e-9);
  EXPECT_NEAR(measure_values(sine).frequency.value_or(0), 40, 1e-9);
}

class TimeDomainMeasures : public TimeDomainFixture {};

TEST_F(TimeDomainMeasures, WalkTheTrueTimeOfARun) {
  graph.GenerateFrom(kDefaultDesign);
  // 20 samples to the microsecond, both ends included.
  EXPECT_EQ(measure(graph, 100, 200, Trace::VR).count, 2001);
  EXPECT_EQ(measure(graph, 200, 100, Trace::VR).count, 2001);
  EXPECT_EQ(measure(graph, -50, 1.56, Trace::VR).count, 1);
  EXPECT_EQ(measure(graph, 2e7, 3e7, Trace::VR).count, 0);
  // The unsimulated preheat is the block over and over: the same at both ends of it, and over the
  // border to the ignition.
  const Measurement early = measure(graph, 100000, 101000, Trace::IL);
  const Measurement late = measure(graph, 900000, 901000, Trace::IL);
  EXPECT_LE(std::abs(early.count - 20001), 1);
  EXPECT_NEAR(early.rms, late.rms, 1e-3 * late.rms);
  EXPECT_NEAR(*early.frequency, 57.4, 57.4 * 0.025);
  EXPECT_LE(std::abs(measure(graph, 999500, 1000500, Trace::IL).count - 20001), 2);
  EXPECT_NEAR(measure(graph, 999500, 1000500, Trace::IL).rms, late.rms, 0.05 * late.rms);
  EXPECT_NEAR(measure(graph, 1000, 2000, Trace::Freq).rms, 57.4, 1e-9);
  graph.GenerateFrom({{"DeadTime", 0}});
  EXPECT_THROW(measure(graph, 0, 100, Trace::VR), Fault);
}

TEST_F(TimeDomainMeasures, SumTheStartUp) {
  struct Case {
    TimeDomainOverrides members;
    std::string text;
  };
  TimeDomainOverrides never = kDefaultDesign;
  never.push_back({"MaxIgnitionVoltage", 1e6});
  EXPECT_EQ(start_summary(graph), "");
  graph.GenerateFrom(kDefaultDesign);
  const std::string summary = start_summary(graph);
  EXPECT_TRUE(summary.starts_with("preheat 2")) << summary;
  EXPECT_NE(summary.find(" ms into the ramp at 70"), std::string::npos) << summary;
  EXPECT_NE(summary.find(" Vpk, runs at 2"), std::string::npos) << summary;
  graph.GenerateFrom(never);
  EXPECT_NE(start_summary(graph).find(" Vpk, does not ignite, reaches "), std::string::npos);
  graph.GenerateFrom(
      {{"TargetNumber", 5}, {"LValue", 0.002}, {"RunFrequency", 36}, {"PreheatTime", 10000}});
  EXPECT_TRUE(start_summary(graph).starts_with("ignites ")) << start_summary(graph);
  EXPECT_NE(start_summary(graph).find(" ms into the sweep at 8"), std::string::npos);
}

TEST_F(TimeDomainMeasures, TableHoldsEverySampleOfTheSpan) {
  graph.GenerateFrom(kDefaultDesign);
  const std::string csv = samples_csv(graph, 1.5, 1.66);
  EXPECT_TRUE(csv.starts_with("TimeUs,VIN,IL,VR,IR,IC,Freq,Stage\n1.55,500,0,")) << csv;
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 4);
  EXPECT_NE(csv.find("\n1.65,"), std::string::npos);
}

}  // namespace
}  // namespace vantrel::test
