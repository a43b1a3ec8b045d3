#pragma once
#include "ReferenceAtoms.h"
#include "ReferenceProblem.h"

#include <ostream>
#include <string>

/// @name Results of runReference other than 0
/// @{
inline constexpr int REFERENCE_NO_RABI_FREQUENCY = -1; ///< the largest dipole is 0
inline constexpr int REFERENCE_NO_MESH = -2;           ///< no active zone inside the mesh
inline constexpr int REFERENCE_TOO_FEW_STEPS = -3;     ///< the progress interval is 0
inline constexpr int REFERENCE_ENDED = -4;             ///< a scheme ended the program, see the log
inline constexpr int REFERENCE_NO_FILE = -5;           ///< a result file can't be created
/// @}

/// Runs a problem, as often as it asks for, by the plain formulas: one node at a time, complex
/// arithmetic throughout, nothing rearranged. It is what the program's runs are held against.
///
/// The files of the last run stay in `outputDirectory`, which must exist. `log` gets all that the
/// program prints in these runs, but for the line of the execution time.
int runReference(const ReferenceProblem& problem, const std::string& outputDirectory,
                 std::ostream& log, ReferenceMargins* margins = nullptr);
