#pragma once
#include "ReferenceProblem.h"

#include <istream>

/// Reads a scenario, lines "key = value", into a problem that starts from the defaults. The keys
/// are listed in tests/golden/README.md. A bad scenario throws std::runtime_error with a message
/// for the user that names the key or the line.
ReferenceProblem readScenario(std::istream& input);
