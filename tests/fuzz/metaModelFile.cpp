// Reads the input as a meta-model file through each of the factories, makes the object that it describes
// and saves it in both ways that the program has, which must give the same bytes.
#include "common/COM_Scoped.h"
#include "FuzzSupport.h"
#include "geometry/GEO_ClassFactory.h"
#include "linearAlgebra/LA_ClassFactory.h"
#include "metaModel/MM_Parser.h"
#include "MetaModelSize.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_ClassFactory.h"

namespace {

template <typename Factory>
void loadAndSave(const std::string& file)
{
    const COM_Scoped factory(Factory::New());
    const COM_Scoped object(factory->load(file));
    if (!object) {
        return;
    }
    const std::string whole = scratchDirectory() + "whole.xml";
    const std::string piecewise = scratchDirectory() + "piecewise.xml";
    factory->save(whole, *object);
    require(MM_Parser::generateXMLMetaModelFile(piecewise, *object) == 0, "an object can be saved");
    require(bytesOf(whole) == bytesOf(piecewise), "both ways of saving give the same bytes");
    const COM_Scoped second(factory->load(whole));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string file = writeScratch("input.xml", textOf(data, size));
    if (isSlowMetaModel(file)) {
        return 0;
    }
    loadAndSave<LA_ClassFactory>(file);
    loadAndSave<GEO_ClassFactory>(file);
    loadAndSave<QV_ClassFactory>(file);
    QV_Bloch::resetShared();
    return 0;
}
