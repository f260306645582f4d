#include "app/sweep.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <ostream>
#include <vector>

#include "app/exit_status.h"
#include "app/sweep_file.h"
#include "app/sweep_plan.h"
#include "app/sweep_row.h"
#include "app/sweep_workers.h"

namespace vantrel {

namespace {

constexpr std::size_t kMostJobs = 256;
constexpr std::chrono::seconds kProgressInterval{5};

/// Tells how far a sweep is, every few seconds and at its end.
class Progress {
 public:
  Progress(std::ostream& out, std::size_t total, std::size_t before)
      : out_(out), total_(total), before_(before), done_(before) {}

  void step() {
    ++done_;
    if (Clock::now() - told_ < kProgressInterval) return;
    told_ = Clock::now();
    const double rate = ratePerSecond();
    const auto left = static_cast<double>(total_ - done_);
    out_ << fmt::format("sweep: {} of {} ({} %), {:.0f} per second, {:.0f} s left\n", done_, total_,
                        done_ * 100 / total_, rate, left / rate)
         << std::flush;
  }
  void finish() const {
    out_ << fmt::format("sweep: {} designs, {} of them in this run, {:.0f} per second\n", total_,
                        done_ - before_, ratePerSecond());
  }

 private:
  using Clock = std::chrono::steady_clock;

  double ratePerSecond() const {
    const std::chrono::duration<double> spent = Clock::now() - begin_;
    return static_cast<double>(done_ - before_) / std::max(spent.count(), 1e-6);
  }

  std::ostream& out_;
  std::size_t total_;
  std::size_t before_;
  std::size_t done_;
  Clock::time_point begin_ = Clock::now();
  Clock::time_point told_ = begin_;
};

/// One run of the command.
class Sweep {
 public:
  Sweep(const CliPlaces& places, const SweepOptions& options, std::ostream& errors)
      : places_(places), options_(options), errors_(errors) {}

  int run() {
    if (!makePlan() || !openFile()) return kExitBadInput;
    Progress progress(errors_, todo_.size(), file_.rows());
    const int status = options_.jobs == 1 ? runHere(progress) : runWorkers(progress);
    if (status != kExitDone) return status;
    if (std::string why = file_.finish(); !why.empty()) return fail(why, kExitBadInput);
    progress.finish();
    return kExitDone;
  }

 private:
  int fail(const std::string& why, int status) const {
    errors_ << "vantrel-cli: " << why << '\n';
    return status;
  }

  bool makePlan() {
    const auto cli = CliSession::start(places_, errors_);
    if (cli == nullptr) return false;
    std::string why;
    plan_ = sweep_plan(cli->session(), options_.filters, why);
    if (plan_.combinations.empty()) {
      fail(why, kExitBadInput);
      return false;
    }
    todo_ = shard_of(plan_.combinations, *parse_shard(options_.shard));
    return true;
  }

  bool openFile() {
    const std::string header = sweep_header(!options_.noTime);
    const auto key_of = [this](std::size_t n) {
      return n < todo_.size() ? combination_key(todo_[n]) : std::string();
    };
    const std::string why = options_.resume ? file_.resume(options_.out, header, key_of)
                                            : file_.start(options_.out, header);
    if (!why.empty()) fail(why, kExitBadInput);
    return why.empty();
  }

  /// Designs every `step`th of the open combinations from place `first` on. A sink that takes no
  /// more has told why.
  int designAll(std::size_t first, std::size_t step, const RowSink& sink) {
    const auto cli = CliSession::start(places_, errors_);
    if (cli == nullptr) return kExitBadInput;
    cli->keepMessagesQuiet();
    SweepDesigner designer(cli->session(), plan_, !options_.noTime);
    for (std::size_t k = first; k < todo_.size(); k += step) {
      if (!sink(designer.row(todo_[k]))) return kExitBadInput;
    }
    return kExitDone;
  }

  int runHere(Progress& progress) {
    return designAll(file_.rows(), 1, [&](std::string_view row) { return take(row, progress); });
  }

  int runWorkers(Progress& progress) {
    const std::size_t first = file_.rows();
    SweepWorkers workers([this, first](std::size_t worker, const RowSink& sink) {
      return designAll(first + worker, options_.jobs, sink);
    });
    const std::string failure = workers.start(options_.jobs, [this] { file_.close(); });
    if (!failure.empty()) return fail(failure, kExitEndedEarly);
    std::string row;
    std::string why;
    for (std::size_t k = first; k < todo_.size(); ++k) {
      if (!workers.next((k - first) % options_.jobs, row, why)) return fail(why, kExitEndedEarly);
      if (!take(row, progress)) return kExitBadInput;
    }
    return kExitDone;
  }

  bool take(std::string_view row, Progress& progress) {
    if (const std::string why = file_.append(row); !why.empty()) {
      fail(why, kExitBadInput);
      return false;
    }
    progress.step();
    return true;
  }

  const CliPlaces& places_;
  const SweepOptions& options_;
  std::ostream& errors_;
  SweepPlan plan_;
  std::vector<Combination> todo_;
  SweepFile file_;
};

std::string check_shard(const std::string& text) {
  return parse_shard(text) ? std::string() : "wants I/N with 1 <= I <= N, not '" + text + "'";
}

}  // namespace

void add_sweep_options(CLI::App& command, SweepOptions& options) {
  add_selection_options(command, options.filters);
  command.add_option("--shard", options.shard, "Part I of N equal ones, as I/N")
      ->check(CLI::Validator(check_shard, "I/N"));
  command.add_option("--jobs", options.jobs, "Worker processes on this machine")
      ->check(CLI::Range(std::size_t{1}, kMostJobs));
  command.add_flag("--resume", options.resume, "Go on with a file that a stopped sweep left");
  command.add_flag("--no-time", options.noTime, "Leave out the column of the time");
  command.add_option("--out", options.out, "File for the rows")->required();
}

int run_sweep(const CliPlaces& places, const SweepOptions& options, std::ostream& errors) {
  return Sweep(places, options, errors).run();
}

}  // namespace vantrel
