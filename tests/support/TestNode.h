#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_ClassFactory.h"
#include "metaModel/MM_Object.h"

#include <set>
#include <string>
#include <vector>

/// A persistent object that can be linked to others in every way, for graphs of any shape.
///
/// A node holds counted references on the nodes that it names, so a test that closes a cycle breaks it with
/// `resetLinks` before its end.
class TestNode : public virtual MM_Object
{
    COM_CLASS(TestNode)
public:
    static unsigned long getLivingNumber() { return mLiving.size(); }
    /// Opens every cycle among the nodes made after `number` other objects.
    static void resetLinksOfNodesSince(unsigned long number)
    {
        const std::vector<TestNode*> nodes(mLiving.begin(), mLiving.end());
        for (const TestNode* node : nodes) {
            node->addReference(nullptr);
        }
        for (TestNode* node : nodes) {
            if (node->getIdentityNumber() > number) {
                node->resetLinks();
            }
        }
        for (const TestNode* node : nodes) {
            node->Delete();
        }
    }

    void setNext(MM_Object* next) { associate(mNext, next); }
    MM_Object* getNext() const { return mNext; }
    TestNode* getNextNode() const { return dynamic_cast<TestNode*>(mNext); }
    COM_Array<TestNode>& many() { return *mMany; }
    COM_Map<std::string, TestNode>& byKey() { return *mByKey; }
    void resetLinks()
    {
        dissociate(mNext);
        mMany->clear();
        mByKey->clear();
    }

    void saveToMetaClass(MM_Class& metaClass) const override
    {
        MM_Object::saveToMetaClass(metaClass);
        metaClass.addAttributeToMetaFields("mName", mName);
        metaClass.addAttributeToMetaFields("mReal", mReal);
        metaClass.addAttributeToMetaFields("mReals", mReals);
        metaClass.addAssociationToMetaFields("mNext", mNext);
        metaClass.addAssociationToMetaFields("mMany", *mMany);
        metaClass.addAssociationToMetaFields("mByKey", *mByKey);
    }
    void loadFromMetaClass(const MM_Class& metaClass) override
    {
        MM_Object::loadFromMetaClass(metaClass);
        metaClass.getAttributeFromMetaFields("mName", &mName);
        metaClass.getAttributeFromMetaFields("mReal", &mReal);
        metaClass.getAttributeFromMetaFields("mReals", mReals);
        const COM_Scoped next(metaClass.getAssociationFromMetaFields("mNext"));
        if (next) {
            setNext(next.get());
        }
        metaClass.getAssociationFromMetaFields("mMany", *mMany);
        metaClass.getAssociationFromMetaFields("mByKey", *mByKey);
    }

    std::string mName;
    double mReal = 0.0;
    std::vector<double> mReals;

protected:
    explicit TestNode(const std::string& name = {})
        : mName(name)
        , mMany(COM_Array<TestNode>::New())
        , mByKey(COM_Map<std::string, TestNode>::New())
    {
        COM_TYPE(TestNode);
        mLiving.insert(this);
    }
    ~TestNode() override
    {
        dissociate(mNext);
        mByKey->Delete();
        mMany->Delete();
        mLiving.erase(this);
    }

private:
    static inline std::set<TestNode*> mLiving; ///< Borrowed.

    MM_Object* mNext = nullptr;             ///< Counted, may be null.
    COM_Array<TestNode>* mMany;             ///< Counted, never null.
    COM_Map<std::string, TestNode>* mByKey; ///< Counted, never null.
};

/// A factory that knows `TestNode` besides the classes of the meta model.
class TestFactory : public MM_ClassFactory
{
    COM_CLASS(TestFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override
    {
        mParametersSeen = newParameters.size();
        if (matches(name, "TestNode")) {
            return TestNode::New();
        }
        return MM_ClassFactory::NewInstance(name, newParameters);
    }

    /// Number of constructor parameters that the last `NewInstance` got.
    mutable unsigned long mParametersSeen = 0;

protected:
    TestFactory() { COM_TYPE(TestFactory); }
    ~TestFactory() override = default;
};
