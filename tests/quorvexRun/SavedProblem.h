#pragma once
#include "common/COM_Scoped.h"
#include "metaModel/MM_Package.h"

#include <string>

/// A parameters file: how a small problem gets into one, and what one says.
class SavedProblem
{
public:
    /// Writes the default problem cut down to 40 nodes, of which 1, 11, 19, 27 and 38 are saved, with a pulse
    /// of 4 fs, to be solved by splitting.
    static void write(const std::string& fileName);

    explicit SavedProblem(const std::string& fileName);

    /// The values of a field of the object of a class, joined by blanks. An identity stands for the values
    /// of the vector or the matrix that it names, and for itself where it names something else.
    std::string text(const std::string& className, const std::string& key) const;
    /// The same of the object with number `index` among those that `array` of `owner` names.
    std::string text(const std::string& owner, const std::string& array, unsigned long index,
                     const std::string& key) const;
    /// Number of values of a field.
    unsigned long count(const std::string& className, const std::string& key) const;

private:
    const MM_Class* find(const std::string& className) const;
    std::string textOf(const MM_Class* node, const std::string& key) const;

    const COM_Scoped<MM_Package> mPackage{MM_Package::New()};
};
