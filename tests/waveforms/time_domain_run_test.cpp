#include <array>
#include <cstdint>

#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

class TimeDomainRuns : public TimeDomainFixture {};

const TimeDomainOverrides kIgniting{{"LValue", 0.002}, {"RunFrequency", 36}};

TEST_F(TimeDomainRuns, AgreeWithThePlainModel) {
  const std::vector<TimeDomainOverrides> runs{
      {},
      kIgniting,
      kDefaultDesign,
      // Without preheat: ignites, does not ignite
      {{"TargetNumber", 5}, {"LValue", 0.002}, {"RunFrequency", 36}, {"PreheatTime", 10000}},
      {{"TargetNumber", 9}, {"PreheatTime", 10000}},
      // Three bus voltages, so that the one step on the run bus shows
      {{"LValue", 0.002},
       {"RunFrequency", 36},
       {"PreheatBus", 380},
       {"IgnitionBus", 410},
       {"RunBus", 330}},
      // Times off the grid, other dead times, nodes, blocks and ramps
      {{"LValue", 0.002}, {"RunFrequency", 36}, {"DeadTime", 1.234567}, {"PreheatTime", 77777.777}},
      {{"LValue", 0.002}, {"DeadTime", 0.4}, {"CNode", 1e-10}, {"CBlock", 47e-9}},
      {{"LValue", 0.002}, {"RunFrequency", 30}, {"IgnitionRampTime", 4321.5}},
      // A preheat shorter than what is simulated: the search goes on behind the jump
      {{"LValue", 0.002}, {"RunFrequency", 36}, {"PreheatTime", 1800}},
      {{"LValue", 0.002}, {"RunFrequency", 36}, {"PreheatTime", 1000}},
      // A ramp too short for a window of the envelope behind its ignition
      {{"LValue", 0.002}, {"MaxIgnitionVoltage", 1}, {"IgnitionRampTime", 1}}};
  for (const TimeDomainOverrides& members : runs) {
    SCOPED_TRACE(::testing::PrintToString(members));
    const plain::Outcome want = compare(members);
    if (want.fault.empty()) {
      EXPECT_EQ(said().size(), want.run_stage ? 0u : 1u);
    } else {
      EXPECT_EQ(said(), std::vector<std::string>{"Time Domain Generation error :¬¬" + want.fault});
    }
    if (HasFailure()) return;
  }
}

TEST_F(TimeDomainRuns, AreWhatTheyWereOnAllBuilds) {
  // The hashes were taken from the generator after the plain model, which was written apart from
  // it, had given the same bits; debug and release, g++ and clang++ gave the same ones.
  struct Reference {
    TimeDomainOverrides members;
    std::int32_t n, repeat_start, repeat_end;
    std::array<std::uint64_t, 13> hashes;
  };
  const std::vector<Reference> references{
      {{},
       230333,
       29974,
       30332,
       {{0x4b48e895187a781f, 0x0a3b0378fe6a5fcb, 0x8e7b1b799e0bb38d, 0xc9e3ca113320bce4,
         0x9e36610286262c39, 0x59a5cbd600b747ef, 0x391c3b347f3bcb5c, 0x8fe094eceab94a0b,
         0x34d322ba2d09c0ff, 0xd6ddd63d9f43c3af, 0x8f5c95f6f3afbd16, 0x52593befbc06559c,
         0x93f8e6737497a0b5}}},
      {kIgniting,
       250485,
       30126,
       30484,
       {{0x36a9d9dd93cb387e, 0xd9d6715443a45c1e, 0x4ee7a9610b34aa2f, 0xb31996f7df4414c5,
         0xe09b33e484748e90, 0x0fc9d3a740b91a88, 0x13042e019d6972f4, 0x9b2fa65eb94f474a,
         0xcb863334261f9806, 0xd3ec8f50cde2c89a, 0x1c0faeda342139fc, 0x25350d8a3645c192,
         0x23cd7ce941e9ab45}}},
      {kDefaultDesign,
       250431,
       30088,
       30430,
       {{0x01a4635527b59963, 0xdb8f0e2c4335088e, 0x7cd41a7f8a4663ee, 0xa97a236cce10dd52,
         0xa3a21a91e22e3223, 0xa782ec1637f536ba, 0x6c7c3a3dec6585c4, 0x04b193b36d04f251,
         0xdbeeda4c9af5e5d9, 0x2c9a3902a02c3adc, 0x7a34a0c7c8f980d8, 0x0ba270117493a7e2,
         0xb22abdda1058b766}}},
      {{{"TargetNumber", 5}, {"LValue", 0.002}, {"RunFrequency", 36}, {"PreheatTime", 10000}},
       240029,
       30108,
       30676,
       {{0xaf0815e81920d617, 0x27059197a0a2a5fb, 0xd55e2bea7d807794, 0x5ef36952b5c6a725,
         0x64d4e53379b2175c, 0xc6668bd102134f70, 0x76c4d5d7fee1c0f9, 0x9f9e868f008dbffc,
         0x22b7502209cbbc4e, 0x1af61d21d89a0d03, 0x19d1959bf49380ca, 0x36d6f8a9d0970e65,
         0xa49d9dd858bea817}}},
  };
  for (const Reference& reference : references) {
    SCOPED_TRACE(::testing::PrintToString(reference.members));
    graph.GenerateFrom(reference.members);
    const TimeDomainReport report = graph.report();
    EXPECT_EQ(report.n, reference.n);
    EXPECT_EQ(report.repeat_start, reference.repeat_start);
    EXPECT_EQ(report.repeat_end, reference.repeat_end);
    for (std::size_t i = 0; i < report.fields.size(); ++i) {
      EXPECT_EQ(report.fields[i].hash, reference.hashes[i]) << report.fields[i].name;
    }
  }
}

TEST_F(TimeDomainRuns, PreheatRepeatsItsPeriod) {
  graph.GenerateFrom({{"LValue", 0.002}});
  // At 55 kHz commanded the model's period is 17.9 us.
  const TimeDomainMembers& m = graph.members();
  const int periods = (m.RepeatEnd - m.RepeatStart + 179) / 358;
  EXPECT_NEAR((m.RepeatEnd - m.RepeatStart) * 0.05 / periods, 17.9, 0.05);
  EXPECT_DOUBLE_EQ(graph.GetDurationBetweenRepeatEndAndIgnition(),
                   1000000.0 - (1.55 + 0.05 * m.RepeatEnd));
  const StageEntry& ignition = graph.StageTable()[1];
  EXPECT_EQ(ignition.FirstSample, m.RepeatEnd + 1);
  EXPECT_EQ(graph.Samples()[static_cast<std::size_t>(ignition.FirstSample)].TimeUs, 1000000.0);
}

TEST_F(TimeDomainRuns, ReportCountsAndHashes) {
  graph.GenerateFrom({{"TargetNumber", 5}, {"PreheatTime", -9999}, {"DeadTime", 1.5}});
  // The end of the run is its start: nothing but the record at the bound.
  EXPECT_EQ(graph.report().n, 0);
  EXPECT_EQ(graph.report().fields[0].hash, 0xcbf29ce484222325u);
  graph.GenerateFrom({{"TargetNumber", 5}, {"PreheatTime", -9998.91}});
  const TimeDomainReport report = graph.report();
  ASSERT_EQ(report.n, 1);
  // Of the bytes 9a 99 99 99 99 99 a9 3f, which are 0.05, and 01 00 00 00, worked out apart
  EXPECT_EQ(report.fields[0].sum, 0.05);
  EXPECT_EQ(report.fields[0].hash, 0x4fd71cc0eef179b4u);
  EXPECT_EQ(report.fields[12].name, "Stage");
  EXPECT_EQ(report.fields[12].hash, 0xad2aca7747985764u);
}

TEST_F(TimeDomainRuns, MemberNamesAreChecked) {
  graph.GenerateFrom({});
  const TimeDomainReport before = graph.report();
  EXPECT_THROW(graph.GenerateFrom({{"LValue", 0.001}, {"Lvalue", 0.001}}), Fault);
  EXPECT_THROW(graph.GenerateFrom({{"TargetNumber", 1.5}}), Fault);
  EXPECT_THROW(graph.GenerateFrom({{"RepeatEnd", 3e9}}), Fault);
  EXPECT_EQ(graph.members().LValue, 0.00025);
  EXPECT_EQ(graph.report().fields[9].hash, before.fields[9].hash);
  EXPECT_EQ(time_domain_members().size(), 24u);
}

}  // namespace
}  // namespace vantrel::test
