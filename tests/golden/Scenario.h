#pragma once
#include <filesystem>
#include <map>
#include <string>
#include <vector>

class QV_1DProblem;

/// A golden scenario: its keys and values, and the problem they describe.
class Scenario
{
public:
    /// Reads DIRECTORY/scenario.txt; an unreadable file or an unknown key fails the test.
    explicit Scenario(std::filesystem::path directory);

    /// All folders with a scenario, by name.
    static std::vector<std::string> names();
    static std::filesystem::path root();

    /// The problem, made through the solver's own operations; the caller releases it.
    QV_1DProblem* newProblem() const;
    int runs() const { return static_cast<int>(number("runs", 1)); }
    double peakField() const { return number("fieldMaxValue", 8.537e9); }
    std::filesystem::path expected() const { return mDirectory / "expected"; }

private:
    bool has(const std::string& key) const { return mValues.contains(key); }
    double number(const std::string& key, double otherwise) const;
    std::vector<double> numbers(const std::string& key) const;
    std::string word(const std::string& key, const std::string& otherwise) const;

    void setField(QV_1DProblem& problem) const;
    void setMedium(QV_1DProblem& problem) const;
    void setAtoms() const;
    void setSystems(QV_1DProblem& problem) const;

    std::filesystem::path mDirectory;
    std::map<std::string, std::string> mValues;
};
