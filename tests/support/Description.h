#pragma once
#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_Package.h"

#include <string>
#include <vector>

/// The node in which an object has described itself, outside of any package: associations leave no more
/// than their references in it.
class Description
{
public:
    explicit Description(const MM_Object& object)
    {
        mNode->setName(object.getClassName());
        mNode->setId(object.getIdentityString());
        object.saveToMetaClass(*mNode);
    }

    MM_Class& node() const { return *mNode; }
    /// The names of the fields, in order.
    std::vector<std::string> keys() const { return mNode->getMetaFields().keys(); }
    /// The fields as a text.
    std::string text() const { return textOf(*mNode); }

    /// The fields of a node as a text: "{a=[1|2] b=[key:3]}".
    static std::string textOf(const MM_Class& node)
    {
        std::string text = "{";
        for (const std::string& name : node.getMetaFields().keys()) {
            text += (text.size() > 1 ? " " : "") + name + "=" + textOf(node.getMetaFields()[name]);
        }
        return text + "}";
    }
    /// The values of a field as a text: "[1|key:2]".
    static std::string textOf(const MM_Field& field)
    {
        std::string text = "[";
        for (unsigned long i = 0; i < field.getCardinality(); ++i) {
            const MM_Value& value = field.getMetaValues()[i];
            text += (i > 0 ? "|" : "") + (value.getKey().empty() ? "" : value.getKey() + ":")
                    + value.getValue();
        }
        return text + "]";
    }
    /// All nodes of a package as a text, each as identity, name in parentheses, and fields.
    static std::string textOf(const MM_Package& package)
    {
        const COM_Scoped nodes(COM_Array<MM_Class>::New());
        package.getMetaClasses(*nodes);
        const MM_Class* const root = package.getRootMetaClass();
        std::string text = "root " + (root == nullptr ? "-" : root->getId());
        for (unsigned long i = 0; i < nodes->size(); ++i) {
            text += "; " + nodes->get(i)->getId() + "(" + nodes->get(i)->getName() + ")"
                    + textOf((*nodes)[i]);
        }
        return text;
    }

private:
    const COM_Scoped<MM_Class> mNode{MM_Class::New()};
};
