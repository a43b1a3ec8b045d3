#pragma once
#include <string>
#include <vector>

class LA_RealVector;
class QV_1DMaxwell;
class QV_1DMilieu;
class QV_IncidentFields;
class QV_Problem;

/// Looks at a problem before a run and lists what stops it, what would spoil it, and what a physicist would
/// want to know. Nothing is changed, and no mesh is built.
class QV_ProblemCheck
{
public:
    enum Grade {
        STOPS, ///< Has no meaning; no program runs it.
        HARMS, ///< Is defined, but would end the process, divide by zero or give not-a-numbers.
        NOTE   ///< Worth knowing.
    };

    /// One finding. All texts are keys of the dictionary, in English.
    struct Finding
    {
        Grade mGrade;
        std::string mLabel;    ///< The label of the field in the forms.
        std::string mValue;    ///< Its value, as text.
        std::string mSentence; ///< What is wrong and what would be right; %1, %2 ... stand for
        std::vector<std::string> mNumbers; ///< these numbers.

        /// The sentence with its numbers filled in.
        std::string sentence() const;
        /// "label = value: sentence".
        std::string text() const;
    };

    /// The findings in order of their grades. Result files would go to `directory`.
    static std::vector<Finding> check(const QV_Problem& problem, const std::string& directory);
    /// True when one of the findings has that grade.
    static bool has(const std::vector<Finding>& findings, Grade grade);
    /// Bytes of memory that a run takes, all told.
    static double memory(const QV_Problem& problem);

private:
    QV_ProblemCheck(const QV_Problem& problem, const QV_1DMilieu& milieu,
                    const QV_1DMaxwell& maxwell, const QV_IncidentFields& fields);

    void add(Grade grade, const char* label, const std::string& value, const char* sentence,
             const std::vector<std::string>& numbers = {});

    void checkMesh();
    void checkMemory();
    void checkSizes();
    void checkSteps();
    void checkLight();
    void checkAtoms();
    void checkMethod();
    void checkEnds();
    void checkFiles(const std::string& directory);
    void noteTimeStep();
    void noteFrequency(const LA_RealVector* omega);
    void noteDensity();
    void noteUnused();
    void noteScheme();
    void noteSplitting();
    void noteReach();
    void noteKept();

    double timeStep() const;
    double courant() const;
    bool isAlternating() const;
    bool isTrapezoidal() const;
    bool isCoupled() const;
    bool isSplitting() const;

    const QV_Problem& mProblem;
    const QV_1DMilieu& mMilieu;
    const QV_1DMaxwell& mMaxwell;
    const QV_IncidentFields& mFields;
    std::vector<Finding> mFindings;
};
