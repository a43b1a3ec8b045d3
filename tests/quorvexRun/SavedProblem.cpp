#include "quorvexRun/SavedProblem.h"

#include "metaModel/MM_Class.h"
#include "metaModel/MM_Parser.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvex/QV_Maxwell.h"

#include <gtest/gtest.h>

void SavedProblem::write(const std::string& fileName)
{
    const COM_Scoped problem(QV_1DProblem::New());
    auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem->getMilieu());
    milieu.setLength(40.5 * milieu.getCaracteristicLength() / 20.0); // in the midst of a cell
    problem->setMethod(QV_Problem::SPLIT_METHOD);
    problem->getMaxwellSystem()->getIncidentFields()->setWavePackageDuration(4e-15);
    const COM_Scoped writer(QV_LoaderWriter::New());
    EXPECT_TRUE(writer->save(fileName, *problem)) << fileName;
}

SavedProblem::SavedProblem(const std::string& fileName)
{
    EXPECT_EQ(MM_Parser::parseXMLMetaModelFile(fileName, *mPackage), 0) << fileName;
}

const MM_Class* SavedProblem::find(const std::string& className) const
{
    const COM_Scoped nodes(COM_Array<MM_Class>::New());
    mPackage->getMetaClasses(*nodes);
    for (unsigned long i = 0; i < nodes->size(); ++i) {
        if ((*nodes)[i].getName().ends_with(className)) {
            return nodes->get(i);
        }
    }
    return nullptr;
}

std::string SavedProblem::textOf(const MM_Class* node, const std::string& key) const
{
    const MM_Field* const field = node == nullptr ? nullptr : node->getFromMetaFields(key);
    if (field == nullptr) {
        return "no " + key;
    }
    std::string text;
    for (unsigned long i = 0; i < field->getCardinality(); ++i) {
        const std::string value = field->getMetaValues()[i].getValue();
        const MM_Class* const object = mPackage->getFromMetaClasses(value);
        const bool hasValues = object != nullptr && object->getFromMetaFields("mValues") != nullptr;
        text += (i > 0 ? " " : "") + (hasValues ? textOf(object, "mValues") : value);
    }
    return text;
}

std::string SavedProblem::text(const std::string& className, const std::string& key) const
{
    return textOf(find(className), key);
}

std::string SavedProblem::text(const std::string& owner, const std::string& array,
                               unsigned long index, const std::string& key) const
{
    const MM_Class* const node = find(owner);
    const MM_Field* const field = node == nullptr ? nullptr : node->getFromMetaFields(array);
    if (field == nullptr || index >= field->getCardinality()) {
        return "no " + array;
    }
    return textOf(mPackage->getFromMetaClasses(field->getMetaValues()[index].getValue()), key);
}

unsigned long SavedProblem::count(const std::string& className, const std::string& key) const
{
    const MM_Class* const node = find(className);
    const MM_Field* const field = node == nullptr ? nullptr : node->getFromMetaFields(key);
    return field == nullptr ? 0 : field->getCardinality();
}
