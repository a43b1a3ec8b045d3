#include "MetaModelSize.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Package.h"
#include "metaModel/MM_Parser.h"

#include <algorithm>
#include <vector>

namespace {

constexpr unsigned long slowSize = 4096; ///< Values of all objects together; more take long,
constexpr unsigned long mostValues =
    1000000; ///< unless one object asks for so many that it is refused.

/// The first value of a field as a size, at least 1; 1 without that field.
unsigned long sizeOf(const MM_Class& node, const char* key)
{
    std::vector<unsigned long> values;
    if (const MM_Field* const field = node.getFromMetaFields(key)) {
        field->getFromMetaValues(values);
    }
    return values.empty() ? 1 : std::max(values.front(), 1UL);
}

/// Values that a node asks for; 0 when it is refused.
unsigned long valuesOf(const MM_Class& node)
{
    unsigned long product = 1;
    for (const char* key : {"mLinesNumber", "mColumnsNumber", "mSize", "mDimension",
                            "mLevelsNumber", "mLevelsNumber"}) {
        const unsigned long size = sizeOf(node, key);
        if (size > mostValues / product) {
            return 0;
        }
        product *= size;
    }
    return product;
}

} // namespace

bool isSlowMetaModel(const std::string& file)
{
    const COM_Scoped package(MM_Package::New());
    MM_Parser::parseXMLMetaModelFile(file, *package);
    const COM_Scoped nodes(COM_Array<MM_Class>::New());
    package->getMetaClasses(*nodes);
    unsigned long values = 0;
    for (unsigned long i = 0; i < nodes->size(); ++i) {
        values += valuesOf((*nodes)[i]);
    }
    return values > slowSize;
}
