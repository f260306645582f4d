#include "time_domain_plain_model.h"

#include <cmath>

namespace vantrel::test::plain {

namespace {

struct Stop {
  std::string why;
};

/// The array with the bound that grows by 5000; what was never written is zero.
class Array {
 public:
  Record& operator[](long long index) {
    if (index < 0 || index > bound_) throw Stop{"Subscript out of range"};
    if (index >= static_cast<long long>(records_.size())) {
      records_.resize(static_cast<std::size_t>(index) + 1);
    }
    return records_[static_cast<std::size_t>(index)];
  }
  long long bound() const { return bound_; }
  void extend(long long bound) { bound_ = bound; }
  std::vector<Record> take(int bound) {
    records_.resize(static_cast<std::size_t>(bound) + 1);
    return records_;
  }

 private:
  std::vector<Record> records_;
  long long bound_ = 0;
};

class Simulation {
 public:
  Simulation(const Inputs& inputs, Outcome& outcome) : in(inputs), out(outcome) {}

  void run() {
    setUp();
    while (cur.at[TimeUs] < out.stages[2].end && !cancelled) {
      commandStage();
      if (n == 0) {
        firstStep();
      } else {
        laterStep();
      }
      for (double value : cur.at) {
        if (!std::isfinite(value)) throw Stop{"Overflow"};
      }
      if (n % 4096 == 4095 && ++ticks == in.cancel_at_tick) cancelled = true;
      cur.at[Stage] = stage;
      samples[n] = cur;
      searchRepeat();
      n = n + 1;
      if (n > samples.bound()) samples.extend(n + 5000);
      if (n > 4000000) throw Stop{"Out of memory"};
      prev = cur;
      cur.at[TimeUs] = (std::nearbyint(cur.at[TimeUs] * 100) + 5) / 100;
      if (stage == 0 && cur.at[TimeUs] >= out.stages[0].end) jump();
    }
    out.stages[2].last = n - 1;
    out.n = n;
    out.samples = samples.take(n);
    buildEnvelope();
    out.run_stage = stage == 2;
    if (!cancelled) out.result = out.stages[2].end - out.stages[0].start;
  }

 private:
  void setUp() {
    Entry* const table = out.stages;
    out.repeat_end = in.repeat_end;
    ramp = in.preheats ? in.ramp_us : 11000.0;
    if (in.preheats) {
      table[0] = {in.dead_us, 2100.0};
      table[1] = {in.preheat_us, in.preheat_us + 9999.0};
    } else {
      table[1] = {in.dead_us, in.dead_us + 9999.0};
      stage = 1;
    }
    table[2] = {in.preheat_us + 9999.0, in.preheat_us + 9999.0};
    prev.at[TimeUs] = table[stage].start;
    cur.at[FrequencyKHz] = in.start_khz;
    cur.at[TimeUs] = table[0].start + 0.05;
    R = 1000000.0;
    V = in.preheat_bus;
  }

  void sweep() {
    const double t = cur.at[TimeUs], t1 = out.stages[1].start;
    double& f = cur.at[FrequencyKHz];
    if (t < t1) return;
    if (!in.preheats) {
      f = t <= t1 + 11000 ? in.start_khz - (in.start_khz - in.run_khz) * (t - t1) / 11000
                          : in.run_khz;
    } else if (t <= t1 + ramp) {
      if (ramp == 0) throw Stop{"Division by zero"};
      f = in.preheat_khz - (in.preheat_khz - in.run_khz) * (t - t1) / ramp;
    } else {
      f = in.run_khz;
    }
  }

  void commandStage() {
    Entry* const table = out.stages;
    const double t = cur.at[TimeUs];
    if (stage == 0) {
      cur.at[FrequencyKHz] =
          t <= 1000.0 ? in.start_khz - (in.start_khz - in.preheat_khz) * t / 1000 : in.preheat_khz;
    } else if (stage == 1) {
      V = in.ignition_bus;
      sweep();
      const double voltage = cur.at[VR];
      if (first_time || voltage < least) least = voltage;
      if (first_time || voltage > most) most = voltage;
      first_time = false;
      if ((most - least) / 2 >= in.ignition_voltage) {
        table[1].last = n - 1;
        table[1].end = t;
        table[2].first = n;
        table[2].start = t;
        table[2].end = table[1].start + ramp + 1000.0;
        V = in.run_bus;
        stage = 2;
      }
    } else {
      V = in.ignition_bus;
      sweep();
      const double lit = table[2].start;
      R = t <= lit + 100.0 ? 1000000.0 + (in.lamp - 1000000.0) * (t - lit) / 100 : in.lamp;
    }
  }

  static double over(double above, double below) {
    if (below == 0) throw Stop{"Division by zero"};
    return above / below;
  }
  double slow() const {
    const double f = cur.at[FrequencyKHz];
    return over(V / 2 * 1e-9 * 2 * f * 1000, 1 - 2 * in.dead_us * 1e-6 * f * 1000);
  }
  void switchNode(double otherwise) {
    const double ramp_now = cur.at[RampVoltage], state = cur.at[SwitchState];
    const bool low = state == 0 && ramp_now < V / 2;
    const bool high = state == V && ramp_now > V / 2;
    const double node = low || high ? state : otherwise;
    cur.at[NodeRaw] = node;
    cur.at[VIN] = node < 0 ? 0 : node > V ? V : node;
  }
  void loadStep(double mean) {
    cur.at[VBlock] = over(mean * 5e-8, in.CBlock) + prev.at[VBlock];
    const double sum = cur.at[IL] + prev.at[IL] - prev.at[ILamp];
    cur.at[ILamp] = over(over(sum * 5e-8, 2 * in.C) + prev.at[VR], over(5e-8, 2 * in.C) + R);
    cur.at[VR] = cur.at[ILamp] * R;
  }

  void firstStep() {
    cur.at[RampSlope] = slow();
    cur.at[RampVoltage] = 200.0;
    cur.at[SwitchState] = V;
    cur.at[IL] = 0;
    cur.at[SeriesDrop] = 0;
    switchNode(V);
    loadStep(0);
  }

  void laterStep() {
    const double ramp_before = prev.at[RampVoltage], state = prev.at[SwitchState];
    const bool falling = ramp_before >= V / 2 && state == 0;
    const bool rising = ramp_before < V / 2 && state == V;
    cur.at[RampSlope] = falling || rising ? over(V / 2 * 1e-9, in.dead_us) / 1e-6 : slow();
    const double delta = cur.at[RampSlope] * 0.05 / 0.001;
    cur.at[RampVoltage] = state == V ? ramp_before + delta : ramp_before - delta;
    cur.at[SwitchState] = cur.at[RampVoltage] < state ? V : 0;
    const double drops = prev.at[SeriesDrop] + prev.at[VBlock] + prev.at[VR];
    cur.at[IL] = (over(prev.at[VIN], in.L) - over(drops, in.L)) * 5e-8 + prev.at[IL];
    cur.at[SeriesDrop] = cur.at[IL] * 10.0;
    const double mean = cur.at[IL] - (cur.at[IL] - prev.at[IL]) / 2;
    const bool dead = !((cur.at[SwitchState] == 0 && cur.at[RampVoltage] < V / 2) ||
                        (cur.at[SwitchState] == V && cur.at[RampVoltage] > V / 2));
    switchNode(dead ? prev.at[NodeRaw] - over(mean * 5e-8, in.CNode) : 0.0);
    loadStep(mean);
  }

  void searchRepeat() {
    const double t = cur.at[TimeUs];
    if (t < 1500.0) return;
    if (t > 2100.0) {
      if (!found) {
        out.no_crossing = true;
        throw Stop{""};
      }
      return;
    }
    if (!(prev.at[IL] < 0 && cur.at[IL] >= 0)) return;
    const double mark = cur.at[IL] - cur.at[VR];
    if (!found) {
      out.repeat_start = n;
      signature = static_cast<float>(mark);
      best = -1.0f;
      found = true;
    } else {
      const auto difference = static_cast<float>(std::fabs(signature - mark));
      if (best < 0 || difference < best) {
        out.repeat_end = n;
        best = difference;
      }
    }
  }

  void jump() {
    if (!found) throw Stop{"Failed to find preheat repeat block"};
    Entry* const table = out.stages;
    stage = 1;
    table[0].last = out.repeat_end;
    table[1].first = out.repeat_end + 1;
    n = out.repeat_end + 1;
    table[2].end = ramp + table[1].start;
    const double time = samples[out.repeat_start].at[TimeUs];
    const auto k = static_cast<long long>(std::nearbyint((table[1].start - time) / 0.05));
    const long long length = out.repeat_end - out.repeat_start;
    if (length == 0) throw Stop{"Division by zero"};
    const long long i = k % length + out.repeat_start;
    cur = samples[i];
    cur.at[TimeUs] = table[1].start;
    long long j = i - 1;
    if (j < out.repeat_start) j = out.repeat_end - 1;
    prev = samples[j];
    prev.at[TimeUs] = cur.at[TimeUs] - 0.05;
  }

  void buildEnvelope() {
    out.envelope.assign(static_cast<std::size_t>(n / 64) + 1, Window{});
    for (int i = 0; i <= n - 1024; i += 64) {
      Window window{out.samples[static_cast<std::size_t>(i)],
                    out.samples[static_cast<std::size_t>(i)]};
      for (int j = i + 1; j <= i + 1023; ++j) {
        for (const Field field : {VIN, IL, ILamp, VR}) {
          const double value = out.samples[static_cast<std::size_t>(j)].at[field];
          if (value > window.max.at[field]) window.max.at[field] = value;
          if (value < window.min.at[field]) window.min.at[field] = value;
        }
      }
      out.envelope[static_cast<std::size_t>(i / 64)] = window;
    }
  }

  const Inputs& in;
  Outcome& out;
  Array samples;
  Record prev, cur;
  int stage = 0, n = 0, ticks = 0;
  double V = 0, R = 0, ramp = 0;
  bool cancelled = false;
  bool found = false;
  float signature = 0, best = -1;
  bool first_time = true;
  double least = 0, most = 0;
};

}  // namespace

Outcome simulate(const Inputs& in) {
  Outcome outcome;
  try {
    Simulation(in, outcome).run();
  } catch (const Stop& stop) {
    outcome.fault = stop.why;
  }
  return outcome;
}

}  // namespace vantrel::test::plain
