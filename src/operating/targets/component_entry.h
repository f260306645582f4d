#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "operating/targets/component_result.h"
#include "operating/targets/target.h"

namespace vantrel {

/// Runs a component function under its own error trap: any failure gives Empty.
Variant run_trapped(ComponentFunction body, const ComponentContext& context,
                    std::span<const Variant> arguments);
/// Runs a component function that has no trap: a failure leaves it as a Fault.
Variant run_plain(ComponentFunction body, const ComponentContext& context,
                  std::span<const Variant> arguments);

namespace component_detail {

// A parameter of type double takes a number; one of type `const Variant&` takes the argument as it
// is, for formulas that pass it on, compare it or ignore it.
template <typename Parameter>
Parameter read(const Variant& argument) {
  if constexpr (std::is_same_v<Parameter, double>) {
    return number(argument);
  } else {
    return argument;
  }
}

// A formula that gives a bare number sets the value; one that gives a Variant has made its result.
template <typename Result>
Variant finished(Result result) {
  if constexpr (std::is_same_v<Result, Variant>) {
    return result;
  } else {
    return value_result(result);
  }
}

template <auto formula, typename Type = decltype(formula)>
struct Call;

template <auto formula, typename Result, typename... Parameters>
struct Call<formula, Result (*)(Parameters...)> {
  static constexpr int kArity = sizeof...(Parameters);

  static Variant body(const ComponentContext&, std::span<const Variant> arguments) {
    return invoke(arguments, std::index_sequence_for<Parameters...>());
  }

  template <std::size_t... I>
  static Variant invoke([[maybe_unused]] std::span<const Variant> arguments,
                        std::index_sequence<I...>) {
    return finished<Result>(formula(read<Parameters>(arguments[I])...));
  }
};

template <auto formula, typename Result, typename... Parameters>
struct Call<formula, Result (*)(const ComponentContext&, Parameters...)> {
  static constexpr int kArity = sizeof...(Parameters);

  static Variant body(const ComponentContext& context, std::span<const Variant> arguments) {
    return invoke(context, arguments, std::index_sequence_for<Parameters...>());
  }

  template <std::size_t... I>
  static Variant invoke(const ComponentContext& context,
                        [[maybe_unused]] std::span<const Variant> arguments,
                        std::index_sequence<I...>) {
    return finished<Result>(formula(context, read<Parameters>(arguments[I])...));
  }
};

template <auto formula>
Variant trapped_call(const ComponentContext& context, std::span<const Variant> arguments) {
  return run_trapped(&Call<formula>::body, context, arguments);
}

template <auto formula>
Variant plain_call(const ComponentContext& context, std::span<const Variant> arguments) {
  return run_plain(&Call<formula>::body, context, arguments);
}

}  // namespace component_detail

/// The table entry of a formula that traps its own failures. Its parameters, behind an optional
/// ComponentContext, are the arguments in rule order, and their count is the arity.
template <auto formula>
constexpr ComponentEntry trapped(std::string_view name) {
  return {name, component_detail::Call<formula>::kArity, &component_detail::trapped_call<formula>};
}

/// The table entry of a formula whose failure is the caller's.
template <auto formula>
constexpr ComponentEntry plain(std::string_view name) {
  return {name, component_detail::Call<formula>::kArity, &component_detail::plain_call<formula>};
}

}  // namespace vantrel
