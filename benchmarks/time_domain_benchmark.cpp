// Time of a simulated start that ignites, beside a bare loop over the same recurrence
// that stores the same records into memory that is already mapped and does nothing else.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "core/plain_ports.h"
#include "waveforms/spice_netlist.h"
#include "waveforms/time_domain.h"

namespace {

using namespace vantrel;

/// The defaults with a tank that ignites.
const TimeDomainOverrides kMembers{{"LValue", 0.002}, {"RunFrequency", 36}};

/// A generator without a program around it.
struct Bench {
  SysMsg messages;
  FieldContext context{messages, '.', {}, {}};
  Screen screen{"none", "", context};
  RunState state;
  MissingFields missing{messages};
  SteadyClock clock;
  NoEvents pump;
  PleaseWait wait{messages, clock, pump, std::make_unique<ManualTimer>()};
  std::unique_ptr<GraphTD> graph = fresh();

  std::unique_ptr<GraphTD> fresh() {
    return std::make_unique<GraphTD>(TimeDomainServices{
        screen, screen, [] { return std::string(); }, state, missing, messages, wait});
  }
};

/// What the bare loop needs to know of the run that it repeats.
struct Plan {
  explicit Plan(const GraphTD& graph)
      : members(graph.members()),
        stages(graph.StageTable()),
        first_of_ignition(static_cast<std::size_t>(stages[1].FirstSample)),
        first_of_run(static_cast<std::size_t>(stages[2].FirstSample)),
        run_of_preheat(static_cast<std::size_t>((2100 - 1.5) / 0.05 - 0.5)),
        count(graph.Samples().size() - 1 - first_of_ignition + run_of_preheat) {
    first_of_run += run_of_preheat - first_of_ignition;
    first_of_ignition = run_of_preheat;
  }

  TimeDomainMembers members;
  TimeDomainStages stages;
  std::size_t first_of_ignition;
  std::size_t first_of_run;
  std::size_t run_of_preheat;  ///< Steps up to the jump; those behind the repeat block are redone.
  std::size_t count;           ///< Of steps, more than samples.
};

/// The records in parallel to their places: preheat, ignition and run follow each other without
/// the jump, and the lamp collapses where it is told to.
void bare_loop(const Plan& plan, TimeDomainSample* samples) {
  const TimeDomainMembers& m = plan.members;
  const double V = m.IgnitionBus, td = m.DeadTime, h = 5e-8;
  double R = 1e6, t = 1.55;
  TimeDomainSample prev, cur;
  cur.FrequencyKHz = m.StartFrequency;
  for (std::size_t n = 0; n < plan.count; ++n) {
    if (n == plan.first_of_ignition) t = plan.stages[1].StartTime;
    double f = m.PreheatFrequency;
    if (n < plan.first_of_ignition) {
      if (t <= 1000.0) f = m.StartFrequency - (m.StartFrequency - f) * t / 1000;
    } else {
      const double since = t - plan.stages[1].StartTime;
      f = since <= m.IgnitionRampTime ? f - (f - m.RunFrequency) * since / m.IgnitionRampTime
                                      : m.RunFrequency;
      if (n > plan.first_of_run) {
        const double lit = t - plan.stages[2].StartTime;
        R = lit <= 100.0 ? 1e6 + (m.LampRunResistance - 1e6) * lit / 100 : m.LampRunResistance;
      }
    }
    cur.TimeUs = t;
    cur.FrequencyKHz = f;
    const bool fast = (prev.RampVoltage >= V / 2 && prev.SwitchState == 0) ||
                      (prev.RampVoltage < V / 2 && prev.SwitchState == V);
    cur.RampSlope = fast ? (V / 2 * 1e-9) / td / 1e-6
                         : (V / 2 * 1e-9 * 2 * f * 1000) / (1 - 2 * td * 1e-6 * f * 1000);
    const double delta = cur.RampSlope * 0.05 / 0.001;
    cur.RampVoltage = prev.SwitchState == V ? prev.RampVoltage + delta : prev.RampVoltage - delta;
    cur.SwitchState = cur.RampVoltage < prev.SwitchState ? V : 0;
    cur.IL =
        (prev.VIN / m.LValue - (prev.SeriesDrop + prev.VBlock + prev.VR) / m.LValue) * h + prev.IL;
    if (n == 0) {
      cur.RampVoltage = 200;
      cur.SwitchState = V;
    }
    cur.SeriesDrop = cur.IL * 10.0;
    const double mean = cur.IL - (cur.IL - prev.IL) / 2;
    const bool conducts = (cur.SwitchState == 0 && cur.RampVoltage < V / 2) ||
                          (cur.SwitchState == V && cur.RampVoltage > V / 2);
    cur.NodeRaw = conducts ? cur.SwitchState : prev.NodeRaw - mean * h / m.CNode;
    cur.VIN = std::min(std::max(cur.NodeRaw, 0.0), V);
    cur.VBlock = mean * h / m.CBlock + prev.VBlock;
    cur.ILamp =
        ((cur.IL + prev.IL - prev.ILamp) * h / (2 * m.CValue) + prev.VR) / (h / (2 * m.CValue) + R);
    cur.VR = cur.ILamp * R;
    cur.Stage = n >= plan.first_of_run ? 2 : n >= plan.first_of_ignition ? 1 : 0;
    samples[n] = cur;
    prev = cur;
    t = (static_cast<double>(static_cast<long long>(t * 100 + 0.5)) + 5) / 100;
  }
}

void perStep(benchmark::State& state, std::size_t steps) {
  state.counters["steps"] = static_cast<double>(steps);
  state.counters["s/step"] =
      benchmark::Counter(static_cast<double>(steps), benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

void BareLoop(benchmark::State& state) {
  Bench bench;
  bench.graph->GenerateFrom(kMembers);
  const Plan plan(*bench.graph);
  std::vector<TimeDomainSample> samples(plan.count);
  for (auto _ : state) {
    bare_loop(plan, samples.data());
    benchmark::DoNotOptimize(samples.data());
    benchmark::ClobberMemory();
  }
  perStep(state, plan.count);
}
BENCHMARK(BareLoop)->Unit(benchmark::kMillisecond);

void LaterRun(benchmark::State& state) {
  Bench bench;
  bench.graph->GenerateFrom(kMembers);
  for (auto _ : state) benchmark::DoNotOptimize(bench.graph->GenerateFrom(kMembers));
  perStep(state, Plan(*bench.graph).count);
}
BENCHMARK(LaterRun)->Unit(benchmark::kMillisecond);

void FirstRun(benchmark::State& state) {
  Bench bench;
  std::size_t steps = 0;
  for (auto _ : state) {
    state.PauseTiming();
    bench.graph = bench.fresh();
    state.ResumeTiming();
    benchmark::DoNotOptimize(bench.graph->GenerateFrom(kMembers));
    steps = Plan(*bench.graph).count;
  }
  perStep(state, steps);
}
BENCHMARK(FirstRun)->Unit(benchmark::kMillisecond);

void MillionLookUps(benchmark::State& state) {
  Bench bench;
  const double duration = bench.graph->GenerateFrom(kMembers);
  constexpr int kLookUps = 1000000;
  for (auto _ : state) {
    std::int64_t sum = 0;
    for (int i = 0; i < kLookUps; ++i) sum += bench.graph->FindItemNo(duration * i / kLookUps);
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(MillionLookUps)->Unit(benchmark::kMillisecond);

/// The circuit simulator as a process on the exported netlist of the same members.
void Ngspice(benchmark::State& state) {
  if (std::system("command -v ngspice >/dev/null 2>&1") != 0) {
    state.SkipWithError("ngspice is not installed");
    return;
  }
  Bench bench;
  bench.graph->GenerateFrom(kMembers);
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / "vantrel_time_domain_benchmark.cir";
  std::ofstream(file) << spice_netlist(bench.graph->members());
  const std::string command = "ngspice -b '" + file.string() + "' >/dev/null 2>&1";
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) state.SkipWithError("ngspice has failed");
  }
  std::filesystem::remove(file);
}
BENCHMARK(Ngspice)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
