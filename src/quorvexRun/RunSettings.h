#pragma once
#include <string>

class QV_1DProblem;

/// Overrides single parameters of a problem by their keys in parameters files, through the operations that
/// the forms use.
class RunSettings
{
public:
    /// Sets `key`, with or without its class and a dot before it, to what `value` says. Vectors and matrices
    /// are numbers joined by commas, matrices row after row; "[i]" behind the key chooses one of several.
    /// Throws RunError when the key is unknown or the value does not fit.
    static void apply(QV_1DProblem& problem, const std::string& key, const std::string& value);
    /// Chooses a method by its name; throws RunError with the names for another word.
    static void setMethod(QV_1DProblem& problem, const std::string& name);
    /// A line for each key: class, key and what it takes.
    static std::string helpText();
};
