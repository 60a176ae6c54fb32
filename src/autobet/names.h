// The names of functions and variables in messages.
#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

/// Name of a function by its number, without quotes; empty for a number that is none.
std::string_view FunctionName(int function);

/// Name of a variable by its number, without quotes; "Variable" for those that have no name of their own.
std::string VariableName(int variable);

std::string Quoted(std::string_view name);

}  // namespace tarnwick
