#include "quorvex/QV_Maxwell.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Vertex.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Milieu.h"
#include "quorvex/QV_Problem.h"

#include <iostream>

QV_Maxwell::QV_Maxwell()
    : mFields(COM_Map<unsigned char, QV_Field>::New())
{
    COM_TYPE(QV_Maxwell);
}

QV_Maxwell::~QV_Maxwell()
{
    mFields->Delete();
    resetPolarizationTermFactors();
    resetIncidentFields();
    resetProblem();
}

void QV_Maxwell::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mFilesNumber", mFilesNumber);
    metaClass.addAttributeToMetaFields("mIsLaserType", mIsLaserType);
    metaClass.addAttributeToMetaFields("mR", mR);
    metaClass.addAttributeToMetaFields("mDimension", mDimension);
    metaClass.addAssociationToMetaFields("mProblem", mProblem);
    metaClass.addAssociationToMetaFields("mIncidentFields", mIncidentFields);
    metaClass.addAssociationToMetaFields("mFields", *mFields);
    metaClass.addAssociationToMetaFields("mFactors", mFactors);
}

void QV_Maxwell::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mFilesNumber", &mFilesNumber);
    metaClass.getAttributeFromMetaFields("mIsLaserType", &mIsLaserType);
    metaClass.getAttributeFromMetaFields("mR", &mR);
    metaClass.getAttributeFromMetaFields("mDimension", &mDimension);
    const COM_Scoped factors(metaClass.getAssociationFromMetaFields("mFactors"));
    if (auto* const vector = dynamic_cast<LA_RealVector*>(factors.get())) {
        setPolarizationTermFactors(*vector);
    }
    const COM_Scoped problem(metaClass.getAssociationFromMetaFields("mProblem"));
    if (auto* const found = dynamic_cast<QV_Problem*>(problem.get())) {
        setProblem(*found);
    }
    const COM_Scoped fields(metaClass.getAssociationFromMetaFields("mIncidentFields"));
    if (auto* const found = dynamic_cast<QV_IncidentFields*>(fields.get())) {
        setIncidentFields(*found);
    }
    metaClass.getAssociationFromMetaFields("mFields", *mFields);
}

void QV_Maxwell::initialize(double rabiFrequency)
{
    initFields();
    if (mIncidentFields != nullptr) {
        mIncidentFields->adimensionize(rabiFrequency);
        std::cout << "A_pulse/pi:" << 2.0 * mIncidentFields->getWavePackageDurationAdim() << "\n";
    }
}

void QV_Maxwell::initFields()
{
    const QV_Milieu* const milieu = mProblem != nullptr ? mProblem->getMilieu() : nullptr;
    if (milieu == nullptr) {
        return;
    }
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    milieu->getVertices(*vertices);
    const COM_Scoped E(QV_Field::New(vertices->size(), mDimension));
    setField(E_FIELD, *E);
    const COM_Scoped lines(COM_Array<GEO_Line>::New());
    milieu->getLines(*lines);
    const COM_Scoped B(QV_Field::New(lines->size(), mDimension));
    setField(B_FIELD, *B);
}

// The other end is QV_Problem::setMaxwellSystem, which returns at once when the link is there.
void QV_Maxwell::setProblem(QV_Problem* problem)
{
    if (problem == mProblem) {
        return;
    }
    const COM_Guard guard(*this); // the former problem may be the only holder
    resetProblem();
    associate(mProblem, problem);
    if (mProblem != nullptr) {
        mProblem->setMaxwellSystem(*this);
    }
}

void QV_Maxwell::resetProblem()
{
    if (mProblem == nullptr) {
        return;
    }
    QV_Problem* const problem = mProblem;
    mProblem = nullptr;
    const COM_Guard guard(*this);
    if (problem->getMaxwellSystem() == this) {
        problem->resetMaxwellSystem();
    }
    problem->subReference(this);
}

void QV_Maxwell::setIncidentFields(QV_IncidentFields* fields)
{
    associate(mIncidentFields, fields);
}

void QV_Maxwell::setPolarizationTermFactors(LA_RealVector* factors)
{
    associate(mFactors, factors);
}

void QV_Maxwell::setField(unsigned char key, QV_Field& field)
{
    mFields->put(key, field);
}

void QV_Maxwell::initSaving(const std::string& path, const COM_Array<GEO_Vertex>* vertices)
{
    mFiles.clear();
    mFilesNumber = vertices->size();
    for (unsigned long i = 0; i < mFilesNumber; ++i) {
        mFiles.emplace_back();
        mFiles.back().openOrExit(
            path + "E_at_" + COM_Integer::toString((*vertices)[i].getLocationNumber()) + ".res");
    }
}

void QV_Maxwell::save(double t, unsigned long nNode, unsigned long nFile)
{
    const QV_Field* const E = getField(E_FIELD);
    const double scale = mIncidentFields != nullptr ? mIncidentFields->getFieldMaxValue() : 1.0;
    mLine.clear();
    COM_Real::append(mLine, t, 7, 6);
    mLine += " ";
    for (unsigned long j = 0; E != nullptr && nNode < E->getSize() && j < E->getDimension(); ++j) {
        COM_Real::append(mLine, E->getValue(nNode, j) * scale, 7, 6);
        mLine += " \t ";
    }
    mLine += "\n";
    mFiles[nFile].write(mLine);
}

bool QV_Maxwell::closeSaving()
{
    bool isWhole = true;
    for (QV_ResultFile& file : mFiles) {
        isWhole = file.close() && isWhole;
    }
    mFiles.clear();
    mFilesNumber = 0;
    return isWhole;
}
