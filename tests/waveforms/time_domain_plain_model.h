#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel::test {

/// A second simulation of a ballast's start, as plain as can be: no speed, no sharing with the
/// program, every value in a record of its own. The generator must agree with it to the last bit.
namespace plain {

/// The thirteen fields in the order of the record, the stage last.
enum Field {
  TimeUs,
  RampSlope,
  RampVoltage,
  SwitchState,
  NodeRaw,
  VIN,
  IL,
  VBlock,
  ILamp,
  VR,
  SeriesDrop,
  FrequencyKHz,
  Stage,
  kFields
};

struct Record {
  double at[kFields] = {};
};

struct Window {
  Record max, min;
};

struct Entry {
  double start = 0, end = 0;
  int first = 0, last = 0;
};

struct Inputs {
  double L = 0.00025, C = 10e-9, CBlock = 100e-9, CNode = 1e-9;
  double preheat_khz = 55, run_khz = 44, start_khz = 75;
  double preheat_bus = 400, ignition_bus = 400, run_bus = 400;
  double ignition_voltage = 800, dead_us = 1.5, lamp = 144400;
  double preheat_us = 1000000, ramp_us = 10000;
  bool preheats = true;
  int repeat_end = 0;      ///< Left over from an earlier run.
  int cancel_at_tick = 0;  ///< The tick at which the user cancels, counted from 1; 0 for none.
};

struct Outcome {
  double result = -1;
  int n = 0;
  int repeat_start = 0, repeat_end = 0;
  Entry stages[4];
  std::vector<Record> samples;  ///< With the record at the bound.
  std::vector<Window> envelope;
  /// What ended the run before its time: a fault's description, or empty.
  std::string fault;
  bool no_crossing = false;  ///< The critical message was due.
  bool run_stage = false;
};

Outcome simulate(const Inputs& in);

}  // namespace plain

}  // namespace vantrel::test
