#pragma once
#include "ReferenceAtoms.h"
#include "ReferenceField.h"
#include "ReferenceMesh.h"
#include "ReferenceProblem.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

/// The result files of one run; they are open as long as this object lives.
class ReferenceFiles
{
public:
    /// `path` is put before each file name as it is. False when a file can't be created.
    bool open(const ReferenceProblem& problem, const ReferenceMesh& mesh, const std::string& path);

    /// Writes one line at time t to each file that holds a series.
    void save(const ReferenceProblem& problem, const ReferenceMesh& mesh,
              const ReferenceField& field, const std::vector<ReferenceAtoms>& systems,
              double rabiFrequency, double t);

private:
    struct Closer
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    using File = std::unique_ptr<std::FILE, Closer>;

    File mTime;
    std::vector<File> mFields;                 ///< one for each saving node
    std::vector<std::vector<File>> mDensities; ///< mDensities[system][saving node]
};
