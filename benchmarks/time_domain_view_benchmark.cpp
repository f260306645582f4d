// Time of a redraw of the time-domain view at 1200 x 740 with all six traces, for windows from the
// closest to the widest and the two stages that differ most.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <memory>
#include <string>

#include "core/plain_ports.h"
#include "platform/painter_device_context.h"
#include "waveforms/time_domain.h"
#include "waveforms/time_domain_view.h"

namespace {

using namespace vantrel;

constexpr int kWidth = 1200;
constexpr int kHeight = 740;

/// A run of a tank that ignites, and the view on it.
struct Bench {
  SysMsg messages;
  FieldContext context{messages, '.', {}, {}};
  Screen screen{"none", "", context};
  RunState state;
  MissingFields missing{messages};
  SteadyClock clock;
  NoEvents pump;
  PleaseWait wait{messages, clock, pump, std::make_unique<ManualTimer>()};
  GraphTD graph{{screen, screen, [] { return std::string(); }, state, missing, messages, wait}};
  TimeDomainView view{graph, messages};
  QImage image{kWidth, kHeight, QImage::Format_ARGB32_Premultiplied};
  double ignition = 0;

  Bench() {
    graph.GenerateFrom({{"LValue", 0.0053},
                        {"CValue", 3.3e-9},
                        {"StartFrequency", 82.4},
                        {"PreheatFrequency", 57.4},
                        {"RunFrequency", 40.14},
                        {"PreheatBus", 500},
                        {"IgnitionBus", 500},
                        {"RunBus", 500},
                        {"MaxIgnitionVoltage", 640},
                        {"LampRunResistance", 994.6},
                        {"TargetNumber", 1}});
    ignition = graph.ReturnStageTime(2, true) - graph.GetDurationBetweenRepeatEndAndIgnition();
  }
};

Bench& bench() {
  static Bench the_bench;
  return the_bench;
}

/// Windows in microseconds around the ignition; the second argument is the autofit.
void redraw(benchmark::State& state) {
  Bench& b = bench();
  const auto window = static_cast<double>(state.range(0));
  const TimeDomainRequest request{
      true, b.ignition - window / 2, window, false, true, true, true, true, true,
      true, state.range(1) != 0};
  b.view.SetVScale(-1000, 1000);
  b.view.SetAScale(-2, 2);
  b.view.NewMaxV = [&b](double volts) { b.view.SetVScale(-volts, volts); };
  b.view.NewMaxA = [&b](double amperes) { b.view.SetAScale(-amperes, amperes); };
  for (auto step : state) {
    QPainter painter(&b.image);
    PainterDeviceContext surface(painter, {kWidth, kHeight});
    b.view.RenderTimeDomain(surface, request);
  }
  benchmark::DoNotOptimize(b.image.constBits());
}

BENCHMARK(redraw)
    ->ArgNames({"us", "autofit"})
    ->ArgsProduct({{5, 20, 50, 130, 300, 500, 800, 999, 1000, 2000, 5000, 13000, 20000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
