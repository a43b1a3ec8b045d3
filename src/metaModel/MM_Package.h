#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_Object.h"

#include <set>
#include <string>

/// A graph of objects as descriptions: one node for each object, by identity, and the node from which
/// the graph is entered. It lives for one saving or one loading.
///
/// While loading, an object is registered before it is filled, so a reference back to it finds this same
/// object: graphs with cycles load. Nodes hold their package with counted references, which the inverse
/// count leaves out.
class MM_Package : public virtual MM_Object
{
    COM_CLASS(MM_Package)
public:
    std::string toString() const override;
    /// Makes and fills the object that a node describes, or gives the one made for it before. The caller
    /// releases the reference. Null for a class that is not known, for a node whose constructor parameters
    /// lead back to one that waits for them, and for objects nested deeper than any real graph.
    virtual MM_Object* NewInstanceFromMetaClass(const MM_Class& metaClass);
    /// Makes an empty object from a class name; factories know the classes of their libraries.
    virtual MM_Object* NewInstance(const std::string& name,
                                   const COM_Array<MM_Object>& newParameters) const;
    /// Adds a node for `object`, filled by the object itself, unless it has one.
    virtual void describe(const MM_Object& object);

    /// Two-way link with `MM_Class::setMetaPackage`. False if a node of that identity is there. A node
    /// without identity is announced and stored all the same.
    bool addToMetaClasses(MM_Class& metaClass);
    void removeFromMetaClasses(MM_Class& metaClass);
    void resetMetaClasses();
    void getMetaClasses(COM_Array<MM_Class>& metaClasses) const
    {
        mMetaClasses->values(metaClasses);
    }
    /// The node, or null.
    MM_Class* getFromMetaClasses(const std::string& id) const { return mMetaClasses->get(id); }

    void setRootMetaClass(MM_Class& metaClass);
    /// The node from which the graph is entered, or null.
    MM_Class* getRootMetaClass() const { return getFromMetaClasses(mRootMetaClassId); }

    void saveToMetaClass(MM_Class& metaClass) const override;
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    MM_Package();
    ~MM_Package() override;
    unsigned long getInverseAgregatedObjectsCount() const override { return mMetaClasses->size(); }
    void resetInverseAgregatedObjects() override { resetMetaClasses(); }

    void addToInstanciatedClasses(const std::string& id, MM_Object& object);
    void removeFromInstanciatedClasses(const std::string& id);
    void resetInstanciatedClasses();
    MM_Object* getFromInstanciatedClasses(const std::string& id) const;

private:
    MM_Object* newParameterizedInstance(const MM_Class& metaClass);

    std::string mRootMetaClassId;                 ///< Empty without root.
    COM_Map<std::string, MM_Class>* mMetaClasses; ///< By identity. Counted, never null.
    COM_Map<std::string, MM_Object>*
        mInstanciatedClasses;                ///< Objects made so far, by the identity in
                                             ///< the file. Counted, never null.
    std::set<std::string> mParametersInWork; ///< Nodes whose constructor parameters are being made.
    unsigned long mDepth = 0;                ///< Objects being filled inside one another.
};
