#include "metaModel/MM_Class.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Package.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestNode.h"
#include "support/Tracing.h"

#include <gtest/gtest.h>

#include <complex>
#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;

/// A node named "n" with the identity "id", alone and in a package.
class MM_ClassTest : public testing::Test
{
protected:
    MM_ClassTest()
    {
        mNode->setName("n");
        mNode->setId("id");
        mInside->setName("n");
        mInside->setId("inside");
        mFactory->addToMetaClasses(*mInside);
    }
    /// Adds a node for an object of that class name to the package.
    void addNode(const std::string& id, const std::string& name) const
    {
        const COM_Scoped node(MM_Class::New());
        node->setId(id);
        node->setName(name);
        mFactory->addToMetaClasses(*node);
    }
    static void addField(MM_Class& node, const std::string& name, const Names& values)
    {
        node.addAttributeToMetaFields(name, values);
    }

    const COM_Scoped<MM_Class> mNode{MM_Class::New()};
    const COM_Scoped<TestFactory> mFactory{TestFactory::New()};
    const COM_Scoped<MM_Class> mInside{MM_Class::New()};
};

} // namespace

TEST_F(MM_ClassTest, ANewNodeIsEmpty)
{
    const COM_Scoped node(MM_Class::New());
    EXPECT_EQ(node->getReferenceCount(), 1);
    EXPECT_EQ(node->getName(), "");
    EXPECT_EQ(node->getId(), "");
    EXPECT_EQ(node->getMetaPackage(), nullptr);
    EXPECT_EQ(node->getMetaFields().size(), 0UL);
    EXPECT_EQ(node->getNewParameters(), Names{});
    EXPECT_EQ(node->getTypes(), (Names{"COM_Object", "MM_Object", "MM_Class"}));
}

TEST_F(MM_ClassTest, AnAddedFieldGetsAReferenceAndIsFoundByItsName)
{
    const COM_Scoped field(MM_Field::New("f"));
    mNode->addToMetaFields(*field);
    EXPECT_EQ(field->getReferenceCount(), 2);
    EXPECT_EQ(mNode->getFromMetaFields("f"), field.get());
    EXPECT_EQ(mNode->getFromMetaFields("g"), nullptr);
    mNode->addToMetaFields(nullptr);
    EXPECT_EQ(mNode->getMetaFields().size(), 1UL);
}

TEST_F(MM_ClassTest, TheFirstFieldOfANameWinsSilently)
{
    const COM_Scoped first(MM_Field::New("f"));
    const COM_Scoped second(MM_Field::New("f"));
    EXPECT_EQ(printedBy([&] {
                  mNode->addToMetaFields(*first);
                  mNode->addToMetaFields(*second);
              }),
              "");
    EXPECT_EQ(mNode->getFromMetaFields("f"), first.get());
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TEST_F(MM_ClassTest, AFieldWithoutNameIsAnnouncedAndStoredAllTheSame)
{
    const COM_Scoped field(MM_Field::New());
    EXPECT_EQ(printedBy([&] { mNode->addToMetaFields(*field); }),
              "WARNING id of meta field " + field->getIdentityString()
                  + " is empty !! can not be added to the class fields.\n"
                    "Set the id of the field to the instance class field name it refers.\n");
    EXPECT_EQ(mNode->getFromMetaFields(""), field.get());
    const COM_Scoped second(MM_Field::New());
    EXPECT_NE(printedBy([&] { mNode->addToMetaFields(*second); }), "");
    EXPECT_EQ(mNode->getFromMetaFields(""), field.get());
}

TEST_F(MM_ClassTest, FieldsCanBeRemovedOneByOneOrAllTogether)
{
    const COM_Scoped field(MM_Field::New("f"));
    mNode->addToMetaFields(*field);
    mNode->removeFromMetaFields(*COM_Scoped(MM_Field::New("g")));
    EXPECT_EQ(mNode->getMetaFields().size(), 1UL);
    mNode->removeFromMetaFields(*field);
    EXPECT_EQ(field->getReferenceCount(), 1);
    EXPECT_EQ(mNode->getMetaFields().size(), 0UL);
    mNode->addToMetaFields(*field);
    addField(*mNode, "g", {});
    mNode->resetMetaFields();
    EXPECT_EQ(field->getReferenceCount(), 1);
    EXPECT_EQ(mNode->getMetaFields().size(), 0UL);
}

TEST_F(MM_ClassTest, AResetOfTheFieldsGoesFromTheLastNameToTheFirst)
{
    const COM_Scoped a(MM_Field::New("a"));
    const COM_Scoped b(MM_Field::New("b"));
    const COM_Scoped c(MM_Field::New("c"));
    for (MM_Field* field : {b.get(), c.get(), a.get()}) {
        mNode->addToMetaFields(field);
    }
    EXPECT_EQ(tracedBy([this] { mNode->resetMetaFields(); }),
              c->getIdentityString() + " is unreferenced.\n" + b->getIdentityString()
                  + " is unreferenced.\n" + a->getIdentityString() + " is unreferenced.\n");
}

TEST_F(MM_ClassTest, FieldsCanBeReplacedAndListedInTheOrderOfTheirNames)
{
    const COM_Scoped a(MM_Field::New("a"));
    const COM_Scoped b(MM_Field::New("b"));
    const COM_Scoped b2(MM_Field::New("b"));
    const COM_Scoped fields(COM_Array<MM_Field>::New());
    fields->add(*b);
    fields->add(*a);
    fields->add(*b2);
    fields->set(4, nullptr);
    addField(*mNode, "old", {});
    mNode->setMetaFields(*fields);
    EXPECT_EQ(mNode->getMetaFields().keys(), (Names{"a", "b"}));
    const COM_Scoped listed(COM_Array<MM_Field>::New());
    listed->add(*b2);
    mNode->getMetaFields(*listed);
    ASSERT_EQ(listed->size(), 2UL);
    EXPECT_EQ(listed->get(0), a.get());
    EXPECT_EQ(listed->get(1), b.get());
}

TEST_F(MM_ClassTest, ADyingNodeReleasesItsFields)
{
    const COM_Scoped field(MM_Field::New("f"));
    auto* const node = MM_Class::New();
    node->addToMetaFields(*field);
    node->Delete();
    EXPECT_EQ(field->getReferenceCount(), 1);
}

TEST_F(MM_ClassTest, AFieldThatMayNotBeMissingIsAnnouncedWhenItIs)
{
    addField(*mNode, "f", {});
    EXPECT_EQ(printedBy([&] { EXPECT_NE(mNode->getAnnouncedFromMetaFields("f"), nullptr); }), "");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mNode->getAnnouncedFromMetaFields("g"), nullptr); }),
              "no field of name g stored in class n. \n");
}

TEST_F(MM_ClassTest, ASizeIsCredibleUpToAMillionOrTheValuesThatCameWithIt)
{
    EXPECT_EQ(printedBy([&] {
                  EXPECT_TRUE(mNode->isCredibleSize(0, 0, 0));
                  EXPECT_TRUE(mNode->isCredibleSize(1000, 1000, 0));
                  EXPECT_TRUE(mNode->isCredibleSize(1, 1000000, 0));
                  EXPECT_TRUE(mNode->isCredibleSize(2000, 1000, 2000000));
              }),
              "");
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(mNode->isCredibleSize(1001, 1000, 0)); }),
              "size 1001 x 1000 of n is too large for its values: ignored.\n");
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(mNode->isCredibleSize(2001, 1000, 2000000)); }),
              "size 2001 x 1000 of n is too large for its values: ignored.\n");
}

TEST_F(MM_ClassTest, ASizeWhoseProductOverflowsIsNotCredible)
{
    testing::internal::CaptureStdout();
    EXPECT_FALSE(mNode->isCredibleSize(1UL << 32, 1UL << 32, 0));
    EXPECT_FALSE(mNode->isCredibleSize(~0UL, ~0UL, 0));
    EXPECT_FALSE(mNode->isCredibleSize(1, ~0UL, 0));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "size 4294967296 x 4294967296 of n is too large for its values: ignored.\n"
              "size 18446744073709551615 x 18446744073709551615 of n is too large for its values: "
              "ignored.\n"
              "size 1 x 18446744073709551615 of n is too large for its values: ignored.\n");
}

TEST_F(MM_ClassTest, ManyLinesWithoutColumnsAreNotCredibleEither)
{
    // Texts and loops over lines take their time for each line, values or not.
    testing::internal::CaptureStdout();
    EXPECT_TRUE(mNode->isCredibleSize(1000000, 0, 0));
    EXPECT_FALSE(mNode->isCredibleSize(1000001, 0, 0));
    EXPECT_FALSE(mNode->isCredibleSize(~0UL, 0, 0));
    EXPECT_FALSE(mNode->isCredibleSize(0, ~0UL, 0));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "size 1000001 x 0 of n is too large for its values: ignored.\n"
              "size 18446744073709551615 x 0 of n is too large for its values: ignored.\n"
              "size 0 x 18446744073709551615 of n is too large for its values: ignored.\n");
}

TEST_F(MM_ClassTest, ConstructorParametersAreIdentities)
{
    const COM_Scoped one(TestNode::New());
    const COM_Scoped other(TestNode::New());
    mNode->addToNewParameters(*other);
    mNode->addToNewParameters(*one);
    Names parameters = mNode->getNewParameters();
    EXPECT_EQ(parameters, (Names{other->getIdentityString(), one->getIdentityString()}));
    parameters.clear();
    EXPECT_EQ(mNode->getNewParameters().size(), 2UL);
    mNode->removeNewParameters();
    EXPECT_EQ(mNode->getNewParameters(), Names{});
}

TEST_F(MM_ClassTest, AttributesOfEveryTypeAreStoredUnderTheirNames)
{
    mNode->addAttributeToMetaFields("mText", std::string("text"));
    mNode->addAttributeToMetaFields("mFlag", true);
    mNode->addAttributeToMetaFields("mByte", static_cast<unsigned char>(65));
    mNode->addAttributeToMetaFields("mSize", 7UL);
    mNode->addAttributeToMetaFields("mIndex", -7L);
    mNode->addAttributeToMetaFields("mReal", 0.5);
    mNode->addAttributeToMetaFields("mComplex", std::complex<double>(0.0, 1.0));
    EXPECT_EQ(Description::textOf(*mNode),
              "{mByte=[65] mComplex=[(0.000000e+00,1.000000e+00)] mFlag=[1] mIndex=[-7] "
              "mReal=[5.000000e-01] mSize=[7] mText=[text]}");
}

TEST_F(MM_ClassTest, AVectorIsStoredInOrderAndAnEmptyOneAsAFieldWithoutValues)
{
    mNode->addAttributeToMetaFields("mReals", std::vector<double>{2.0, 1.0});
    mNode->addAttributeToMetaFields("mFlags", std::vector<bool>{false, true});
    mNode->addAttributeToMetaFields("mNone", std::vector<double>{});
    EXPECT_EQ(Description::textOf(*mNode),
              "{mFlags=[0|1] mNone=[] mReals=[2.000000e+00|1.000000e+00]}");
}

TEST_F(MM_ClassTest, ASecondAttributeOfANameIsDropped)
{
    mNode->addAttributeToMetaFields("f", 1L);
    mNode->addAttributeToMetaFields("f", 2L);
    mNode->addAttributeToMetaFields("f", std::vector<long>{3, 4});
    EXPECT_EQ(Description::textOf(*mNode), "{f=[1]}");
}

TEST_F(MM_ClassTest, AnAttributeIsTheFirstValueOfItsField)
{
    addField(*mNode, "f", {"1.5D3", "2"});
    double real = 0.0;
    long integer = 0;
    std::string text;
    mNode->getAttributeFromMetaFields("f", &real);
    mNode->getAttributeFromMetaFields("f", &integer);
    mNode->getAttributeFromMetaFields("f", &text);
    EXPECT_EQ(real, 1500.0);
    EXPECT_EQ(integer, 1);
    EXPECT_EQ(text, "1.5D3");
}

TEST_F(MM_ClassTest, AMissingAttributeIsAnnouncedAndTheDestinationStays)
{
    double real = 7.0;
    std::vector<double> reals{7.0};
    EXPECT_EQ(printedBy([&] {
                  mNode->getAttributeFromMetaFields("f", &real);
                  mNode->getAttributeFromMetaFields("g", reals);
              }),
              "no attribute f stored in class n.\nno attribute g stored in class n.\n");
    EXPECT_EQ(real, 7.0);
    EXPECT_EQ(reals, std::vector<double>{7.0});
}

TEST_F(MM_ClassTest, AnAttributeWithoutValuesLeavesTheDestinationWithoutAWord)
{
    addField(*mNode, "f", {});
    double real = 7.0;
    EXPECT_EQ(printedBy([&] { mNode->getAttributeFromMetaFields("f", &real); }), "");
    EXPECT_EQ(real, 7.0);
}

TEST_F(MM_ClassTest, AVectorTakesEveryValueOfItsField)
{
    addField(*mNode, "f", {"1", "2.5"});
    addField(*mNode, "none", {});
    std::vector<double> reals{7.0};
    EXPECT_EQ(printedBy([&] { mNode->getAttributeFromMetaFields("f", reals); }), "");
    EXPECT_EQ(reals, (std::vector<double>{1.0, 2.5}));
    EXPECT_EQ(printedBy([&] { mNode->getAttributeFromMetaFields("none", reals); }), "");
    EXPECT_EQ(reals, std::vector<double>{});
}

TEST_F(MM_ClassTest, ANullAssociationWritesNoField)
{
    const MM_Object* const nothing = nullptr;
    mInside->addAssociationToMetaFields("mNext", nothing);
    EXPECT_EQ(mInside->getMetaFields().size(), 0UL);
}

TEST_F(MM_ClassTest, WithoutPackageAnAssociationIsAReferenceAlone)
{
    const COM_Scoped node(TestNode::New("a"));
    const COM_Scoped array(COM_Array<TestNode>::New());
    array->add(*node);
    mNode->addAssociationToMetaFields("byPointer", static_cast<const MM_Object*>(node.get()));
    mNode->addAssociationToMetaFields("byReference", *node);
    mNode->addAssociationToMetaFields("many", *array);
    const std::string id = node->getIdentityString();
    EXPECT_EQ(Description::textOf(*mNode),
              "{byPointer=[" + id + "] byReference=[" + id + "] many=[" + id + "]}");
}

TEST_F(MM_ClassTest, InAPackageTheAssociatedObjectIsDescribedBesideTheNode)
{
    const COM_Scoped node(TestNode::New("a"));
    mInside->addAssociationToMetaFields("mNext", *node);
    const std::string id = node->getIdentityString();
    const MM_Class* const described = mFactory->getFromMetaClasses(id);
    ASSERT_NE(described, nullptr);
    EXPECT_EQ(described->getName(), "8TestNode");
    EXPECT_EQ(described->getReferenceCount(), 1);
    EXPECT_EQ(Description::textOf(*described),
              "{mByKey=[] mMany=[] mName=[a] mReal=[0.000000e+00] mReals=[]}");
    EXPECT_EQ(Description::textOf(*mInside), "{mNext=[" + id + "]}");
    EXPECT_EQ(node->getReferenceCount(), 1);
}

TEST_F(MM_ClassTest, AnObjectIsDescribedOnceHoweverOftenItIsReferred)
{
    const COM_Scoped node(TestNode::New("a"));
    const COM_Scoped array(COM_Array<TestNode>::New());
    array->add(*node);
    array->add(*node);
    mInside->addAssociationToMetaFields("mNext", *node);
    mInside->addAssociationToMetaFields("mMany", *array);
    const COM_Scoped nodes(COM_Array<MM_Class>::New());
    mFactory->getMetaClasses(*nodes);
    EXPECT_EQ(nodes->size(), 2UL);
}

TEST_F(MM_ClassTest, ACycleOfAssociationsEnds)
{
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped b(TestNode::New("b"));
    a->setNext(b.get());
    b->setNext(a.get());
    b->many().add(*b);
    mInside->addAssociationToMetaFields("mNext", *a);
    const COM_Scoped nodes(COM_Array<MM_Class>::New());
    mFactory->getMetaClasses(*nodes);
    EXPECT_EQ(nodes->size(), 3UL);
    EXPECT_EQ(Description::textOf(*mFactory->getFromMetaClasses(b->getIdentityString())),
              "{mByKey=[] mMany=[" + b->getIdentityString() + "] mName=[b] mNext=["
                  + a->getIdentityString() + "] mReal=[0.000000e+00] mReals=[]}");
    a->resetLinks();
    b->resetLinks();
}

TEST_F(MM_ClassTest, AnArrayKeepsItsOrderAndItsEmptySlotsArePassedOver)
{
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped b(TestNode::New("b"));
    const COM_Scoped array(COM_Array<TestNode>::New());
    array->add(*b);
    array->set(3, *a);
    const COM_Scoped empty(COM_Array<TestNode>::New());
    mInside->addAssociationToMetaFields("mMany", *array);
    mInside->addAssociationToMetaFields("mNone", *empty);
    EXPECT_EQ(Description::textOf(*mInside),
              "{mMany=[" + b->getIdentityString() + "|" + a->getIdentityString() + "] mNone=[]}");
}

TEST_F(MM_ClassTest, AMapIsStoredWithItsKeys)
{
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped map(COM_Map<unsigned long, TestNode>::New());
    map->put(10, *a);
    map->put(9, *a);
    const COM_Scoped empty(COM_Map<std::string, TestNode>::New());
    mInside->addAssociationToMetaFields("mByKey", *map);
    mInside->addAssociationToMetaFields("mNone", *empty);
    const std::string id = a->getIdentityString();
    EXPECT_EQ(Description::textOf(*mInside), "{mByKey=[9:" + id + "|10:" + id + "] mNone=[]}");
    EXPECT_NE(mFactory->getFromMetaClasses(id), nullptr);
}

TEST_F(MM_ClassTest, AMissingSingleAssociationIsSilentlyNull)
{
    EXPECT_EQ(printedBy([&] {
                  EXPECT_EQ(mNode->getAssociationFromMetaFields("f"), nullptr);
                  EXPECT_EQ(mInside->getAssociationFromMetaFields("f"), nullptr);
              }),
              "");
}

TEST_F(MM_ClassTest, AnAssociationCannotBeFollowedWithoutPackage)
{
    addField(*mNode, "f", {"a"});
    const COM_Scoped array(COM_Array<TestNode>::New());
    const COM_Scoped map(COM_Map<std::string, TestNode>::New());
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mNode->getAssociationFromMetaFields("f"), nullptr); }),
              "no associated packages \n");
    EXPECT_EQ(printedBy([&] { mNode->getAssociationFromMetaFields("f", *array); }),
              "no associated packages \n");
    EXPECT_EQ(printedBy([&] { mNode->getAssociationFromMetaFields("g", *map); }),
              "no associated packages \n");
}

TEST_F(MM_ClassTest, AContainerIsEmptiedEvenWithoutPackage)
{
    const COM_Scoped old(TestNode::New());
    const COM_Scoped array(COM_Array<TestNode>::New());
    const COM_Scoped map(COM_Map<std::string, TestNode>::New());
    array->add(*old);
    map->put("k", *old);
    printedBy([&] {
        mNode->getAssociationFromMetaFields("f", *array);
        mNode->getAssociationFromMetaFields("f", *map);
    });
    EXPECT_EQ(array->size() + map->size(), 0UL);
    EXPECT_EQ(old->getReferenceCount(), 1);
}

TEST_F(MM_ClassTest, AReferenceToNothingIsAnnounced)
{
    addField(*mInside, "f", {"a"});
    addField(*mInside, "none", {});
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mInside->getAssociationFromMetaFields("f"), nullptr); }),
              "no object a stored.\n");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mInside->getAssociationFromMetaFields("none"), nullptr); }),
              "no object  stored.\n");
}

TEST_F(MM_ClassTest, AnObjectOfAnUnknownClassIsAnnounced)
{
    addField(*mInside, "f", {"a"});
    addNode("a", "9QVUnknown");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mInside->getAssociationFromMetaFields("f"), nullptr); }),
              "impossible to create an instance of a from class n.\n");
}

TEST_F(MM_ClassTest, TheAssociatedObjectComesWithAReferenceForTheCaller)
{
    const unsigned long before = TestNode::getLivingNumber();
    addField(*mInside, "f", {"a", "ignored"});
    addNode("a", "8TestNode");
    testing::internal::CaptureStdout();
    MM_Object* const object = mInside->getAssociationFromMetaFields("f");
    testing::internal::GetCapturedStdout();
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->getReferenceCount(), 2);
    MM_Object* const again = mInside->getAssociationFromMetaFields("f");
    EXPECT_EQ(again, object);
    EXPECT_EQ(object->getReferenceCount(), 3);
    again->Delete();
    object->Delete();
    EXPECT_EQ(TestNode::getLivingNumber(), before + 1);
}

TEST_F(MM_ClassTest, AMissingAssociationOfManyIsAnnouncedAndTheContainerEmptied)
{
    const COM_Scoped old(TestNode::New());
    const COM_Scoped array(COM_Array<TestNode>::New());
    const COM_Scoped map(COM_Map<std::string, TestNode>::New());
    array->add(*old);
    map->put("k", *old);
    EXPECT_EQ(printedBy([&] { mInside->getAssociationFromMetaFields("f", *array); }),
              "no association f stored in class n.\n");
    EXPECT_EQ(printedBy([&] { mInside->getAssociationFromMetaFields("g", *map); }),
              "no association g stored in class n.\n");
    EXPECT_EQ(array->size() + map->size(), 0UL);
    EXPECT_EQ(old->getReferenceCount(), 1);
}

TEST_F(MM_ClassTest, ElementsThatCannotBeMadeAreAnnouncedAndPassedOver)
{
    addField(*mInside, "f", {"gone", "a", "unknown", "foreign", "b", "a"});
    addNode("a", "8TestNode");
    addNode("b", "8TestNode");
    addNode("unknown", "9QVUnknown");
    addNode("foreign", "8MM_Value");
    addField(*mFactory->getFromMetaClasses("a"), "mName", {"first"});
    addField(*mFactory->getFromMetaClasses("b"), "mName", {"second"});
    const COM_Scoped array(COM_Array<TestNode>::New());
    std::string printed = printedBy([&] { mInside->getAssociationFromMetaFields("f", *array); });
    // What the made objects themselves miss isn't looked at here.
    std::string lines;
    for (std::size_t end = 0; (end = printed.find('\n')) != std::string::npos;
         printed.erase(0, end + 1)) {
        if (printed.find("from class n.") < end || printed.starts_with("no object")) {
            lines += printed.substr(0, end + 1);
        }
    }
    EXPECT_EQ(lines, "no object gone stored.\n"
                     "impossible to create an instance of unknown from class n.\n"
                     "impossible to create an instance of foreign from class n.\n");
    ASSERT_EQ(array->size(), 3UL);
    EXPECT_EQ((*array)[0].mName, "first");
    EXPECT_EQ((*array)[1].mName, "second");
    EXPECT_EQ(array->get(2), array->get(0));
    // Two slots and the factory hold the first, one slot and the factory the second.
    EXPECT_EQ((*array)[0].getReferenceCount(), 3);
    EXPECT_EQ((*array)[1].getReferenceCount(), 2);
}

TEST_F(MM_ClassTest, EntriesThatCannotBeMadeAreAnnouncedAndPassedOver)
{
    const COM_Scoped field(MM_Field::New("f"));
    mInside->addToMetaFields(*field);
    for (const char* id : {"gone", "unknown", "foreign", "a"}) {
        field->addToMetaValues(std::string("key of ") + id, id);
    }
    addNode("unknown", "9QVUnknown");
    addNode("foreign", "8MM_Value");
    addNode("a", "8MM_Field");
    addField(*mFactory->getFromMetaClasses("foreign"), "mKey", {""});
    addField(*mFactory->getFromMetaClasses("foreign"), "mValue", {""});
    addField(*mFactory->getFromMetaClasses("a"), "mName", {"made"});
    addField(*mFactory->getFromMetaClasses("a"), "mValues", {});
    const COM_Scoped map(COM_Map<std::string, MM_Field>::New());
    EXPECT_EQ(printedBy([&] { mInside->getAssociationFromMetaFields("f", *map); }),
              "no object gone stored.\n"
              "impossible to create an instance of unknown from class n.\n"
              "impossible to create an instance of foreign from class n.\n");
    EXPECT_EQ(map->keys(), Names{"key of a"});
    EXPECT_EQ((*map)["key of a"].getName(), "made");
    // The map and the factory hold it.
    EXPECT_EQ((*map)["key of a"].getReferenceCount(), 2);
}

TEST_F(MM_ClassTest, AMapIsRestoredUnderItsKeys)
{
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped b(TestNode::New("b"));
    const COM_Scoped map(COM_Map<long, TestNode>::New());
    map->put(-5, *a);
    map->put(10, *b);
    mInside->addAssociationToMetaFields("f", *map);
    const COM_Scoped read(COM_Map<long, TestNode>::New());
    EXPECT_EQ(printedBy([&] { mInside->getAssociationFromMetaFields("f", *read); }), "");
    EXPECT_EQ(read->keys(), (std::vector<long>{-5, 10}));
    EXPECT_EQ((*read)[-5].mName, "a");
    EXPECT_EQ((*read)[10].mName, "b");
    EXPECT_NE(&(*read)[10], b.get());
}

TEST_F(MM_ClassTest, ANodeEntersItsPackageFromEitherSide)
{
    const COM_Scoped package(MM_Package::New());
    mNode->setMetaPackage(*package);
    EXPECT_EQ(mNode->getMetaPackage(), package.get());
    EXPECT_EQ(package->getFromMetaClasses("id"), mNode.get());
    EXPECT_EQ(mNode->getReferenceCount(), 2);
    EXPECT_EQ(package->getReferenceCount(), 2);
    mNode->setMetaPackage(*package);
    EXPECT_EQ(mNode->getReferenceCount(), 2);
    EXPECT_EQ(package->getReferenceCount(), 2);
}

TEST_F(MM_ClassTest, ANodeLeavesItsPackageByItself)
{
    const COM_Scoped package(MM_Package::New());
    mNode->setMetaPackage(*package);
    mNode->resetMetaPackage();
    EXPECT_EQ(mNode->getMetaPackage(), nullptr);
    EXPECT_EQ(package->getFromMetaClasses("id"), nullptr);
    EXPECT_EQ(mNode->getReferenceCount(), 1);
    EXPECT_EQ(package->getReferenceCount(), 1);
    mNode->resetMetaPackage();
    EXPECT_EQ(mNode->getReferenceCount(), 1);
}

TEST_F(MM_ClassTest, ANodeThatItsPackageAloneHoldsGoesWhenItLeavesAndNotBefore)
{
    const COM_Scoped package(MM_Package::New());
    auto* const node = MM_Class::New();
    node->setId("a");
    node->setMetaPackage(*package);
    node->Delete();
    EXPECT_EQ(node->getReferenceCount(), 1);
    const std::string identity = node->getIdentityString();
    const std::string printed = printedBy([node] {
        COM_Object::turnOnDebugFlag();
        node->resetMetaPackage();
        COM_Object::turnOffDebugFlag();
    });
    // The node is the witness when its package is released, so it must still be there.
    const std::size_t released =
        printed.find(package->getIdentityString() + " is unreferenced by " + identity + "\n");
    const std::size_t deleted = printed.find("deleting " + identity + "...\n");
    ASSERT_NE(released, std::string::npos) << printed;
    ASSERT_NE(deleted, std::string::npos) << printed;
    EXPECT_LT(released, deleted);
    EXPECT_EQ(package->getFromMetaClasses("a"), nullptr);
    EXPECT_EQ(package->getReferenceCount(), 1);
}

TEST_F(MM_ClassTest, ANodeMovesFromOnePackageToAnother)
{
    const COM_Scoped first(MM_Package::New());
    const COM_Scoped second(MM_Package::New());
    mNode->setMetaPackage(*first);
    mNode->setMetaPackage(*second);
    EXPECT_EQ(first->getFromMetaClasses("id"), nullptr);
    EXPECT_EQ(second->getFromMetaClasses("id"), mNode.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    mNode->setMetaPackage(nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(mNode->getMetaPackage(), nullptr);
}

TEST_F(MM_ClassTest, ANodeWhosePlaceIsTakenHoldsItsPackageAndLetsGoOfIt)
{
    auto* const package = MM_Package::New();
    mNode->setMetaPackage(*package);
    const COM_Scoped twin(MM_Class::New());
    twin->setId("id");
    twin->setMetaPackage(*package);
    EXPECT_EQ(package->getFromMetaClasses("id"), mNode.get());
    EXPECT_EQ(twin->getMetaPackage(), package);
    EXPECT_EQ(twin->getReferenceCount(), 1);
    EXPECT_EQ(package->getReferenceCount(), 3);
    twin->resetMetaPackage();
    EXPECT_EQ(package->getFromMetaClasses("id"), mNode.get());
    EXPECT_EQ(package->getReferenceCount(), 2);
    package->Delete();
    EXPECT_EQ(mNode->getMetaPackage(), nullptr);
}

TEST_F(MM_ClassTest, TheKeysAreFrozen)
{
    EXPECT_EQ(Description(*mNode).text(), "{mId=[id] mMetaFields=[] mName=[n] mNewParameters=[]}");
    const COM_Scoped parameter(TestNode::New());
    mInside->addToNewParameters(*parameter);
    addField(*mInside, "f", {});
    EXPECT_EQ(Description(*mInside).text(),
              "{mId=[inside] mMetaFields=[f:" + mInside->getFromMetaFields("f")->getIdentityString()
                  + "] mMetaPackage=[" + mFactory->getIdentityString()
                  + "] mName=[n] mNewParameters=[" + parameter->getIdentityString() + "]}");
}

TEST_F(MM_ClassTest, MissingKeysAreAnnouncedInOrder)
{
    const COM_Scoped node(MM_Class::New());
    node->setName("kept");
    EXPECT_EQ(printedBy([&] { node->loadFromMetaClass(*mInside); }),
              "no attribute mName stored in class n.\n"
              "no attribute mId stored in class n.\n"
              "no field of name mNewParameters stored in class n. \n"
              "no association mMetaFields stored in class n.\n");
    EXPECT_EQ(node->getName(), "kept");
}

TEST_F(MM_ClassTest, ANodeComesBackFromItsDescription)
{
    addField(*mNode, "f", {"1", "2"});
    addField(*mNode, "g", {});
    const COM_Scoped parameter(TestNode::New());
    mNode->addToNewParameters(*parameter);
    mInside->addAssociationToMetaFields("mNode", *mNode);
    testing::internal::CaptureStdout();
    const COM_Scoped object(mInside->getAssociationFromMetaFields("mNode"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    const auto* const copy = dynamic_cast<MM_Class*>(object.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, mNode.get());
    EXPECT_EQ(copy->getName(), "n");
    EXPECT_EQ(copy->getId(), "id");
    EXPECT_EQ(copy->getNewParameters(), Names{parameter->getIdentityString()});
    EXPECT_EQ(Description::textOf(*copy), "{f=[1|2] g=[]}");
}
