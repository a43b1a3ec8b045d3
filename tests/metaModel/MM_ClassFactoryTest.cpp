#include "metaModel/MM_ClassFactory.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_Parser.h"
#include "support/FactoryNames.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestNode.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

/// Has a node in its graph that no factory of the tests makes.
class TestUnknown : public TestNode
{
    COM_CLASS(TestUnknown)
public:
    // The name contains none that a factory knows.
    std::string getClassName() const override { return "9QVUnknown"; }

protected:
    TestUnknown() { COM_TYPE(TestUnknown); }
    ~TestUnknown() override = default;
};

namespace {

class MM_ClassFactoryNameTest : public FactoryNameTest
{};

/// The object as a node; null if it is none.
TestNode* nodeOf(const COM_Scoped<MM_Object>& object)
{
    return dynamic_cast<TestNode*>(object.get());
}

} // namespace

TEST(MM_ClassFactory, AFactoryIsAPackage)
{
    const COM_Scoped factory(MM_ClassFactory::New());
    EXPECT_EQ(factory->getReferenceCount(), 1);
    EXPECT_EQ(factory->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object",
                                                             "MM_Package", "MM_ClassFactory"}));
}

TEST_P(MM_ClassFactoryNameTest, ANameMakesTheFirstClassThatItContains)
{
    expectMade<MM_ClassFactory>();
}

INSTANTIATE_TEST_SUITE_P(
    Table, MM_ClassFactoryNameTest,
    testing::Values(FactoryName{"8MM_Class", "8MM_Class"}, FactoryName{"8MM_Field", "8MM_Field"},
                    FactoryName{"8MM_Value", "8MM_Value"},
                    FactoryName{"15MM_ClassFactory", "15MM_ClassFactory"},
                    FactoryName{"MM_Class", "8MM_Class"}, FactoryName{"xxMM_Field7", "8MM_Field"},
                    FactoryName{"MM_ValueMM_Field", "8MM_Field"},
                    FactoryName{"MM_FieldMM_Class", "8MM_Class"},
                    FactoryName{"MM_ValueMM_ClassFactoryMM_Class", "15MM_ClassFactory"},
                    FactoryName{"10MM_Package", nullptr}, FactoryName{"9MM_Parser", nullptr},
                    FactoryName{"mm_class", nullptr}, FactoryName{"MM_Clas", nullptr},
                    FactoryName{"8TestNode", nullptr}, FactoryName{"", nullptr}));

TEST(MM_ClassFactory, AnHeirTriesItsOwnNamesFirstAndThenItsBases)
{
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    const COM_Scoped own(factory->NewInstance("xTestNodex", *parameters));
    const COM_Scoped both(factory->NewInstance("MM_ClassTestNode", *parameters));
    const COM_Scoped base(factory->NewInstance("8MM_Value", *parameters));
    EXPECT_EQ(own->getClassName(), "8TestNode");
    EXPECT_EQ(both->getClassName(), "8TestNode");
    EXPECT_EQ(base->getClassName(), "8MM_Value");
    EXPECT_EQ(factory->NewInstance("9QVUnknown", *parameters), nullptr);
}

TEST(MM_ClassFactory, AGraphComesBackFromItsFile)
{
    const TestDirectory directory;
    const unsigned long before = TestNode::getLivingNumber();
    {
        const COM_Scoped root(TestNode::New("root"));
        const COM_Scoped a(TestNode::New("a"));
        root->mReal = 0.1234567891;
        root->mReals = {1.5, -2.0};
        root->many().add(*a);
        root->byKey().put("key", *a);
        COM_Scoped(TestFactory::New())->save(directory.file("file"), *root);
        EXPECT_EQ(root->getReferenceCount(), 1);
        EXPECT_EQ(a->getReferenceCount(), 3);
    }
    EXPECT_EQ(TestNode::getLivingNumber(), before);
    auto* const factory = TestFactory::New();
    testing::internal::CaptureStdout();
    const COM_Scoped object(factory->load(directory.file("file")));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    TestNode* const root = nodeOf(object);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->getReferenceCount(), 2);
    EXPECT_EQ(root->mName, "root");
    EXPECT_EQ(root->mReal, 0.1234568);
    EXPECT_EQ(root->mReals, (std::vector<double>{1.5, -2.0}));
    EXPECT_EQ(root->getNext(), nullptr);
    ASSERT_EQ(root->many().size(), 1UL);
    EXPECT_EQ(root->many()[0].mName, "a");
    EXPECT_EQ(root->byKey().get("key"), root->many().get(0));
    // The array, the map and the factory hold it.
    EXPECT_EQ(root->many()[0].getReferenceCount(), 3);
    factory->Delete();
    EXPECT_EQ(root->getReferenceCount(), 1);
    EXPECT_EQ(root->many()[0].getReferenceCount(), 2);
}

TEST(MM_ClassFactory, TwoMembersThatShareAnObjectShareItAfterLoading)
{
    const TestDirectory directory;
    const COM_Scoped root(TestNode::New("root"));
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped b(TestNode::New("b"));
    const COM_Scoped shared(TestNode::New("shared"));
    root->many().add(*a);
    root->many().add(*b);
    a->setNext(shared.get());
    b->setNext(shared.get());
    COM_Scoped(TestFactory::New())->save(directory.file("file"), *root);
    const std::string text = directory.read("file");
    const std::string node = "<MM_CLASS mId=\"" + shared->getIdentityString() + "\"";
    EXPECT_NE(text.find(node), std::string::npos);
    EXPECT_EQ(text.find(node), text.rfind(node));
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped object(factory->load(directory.file("file")));
    ASSERT_NE(nodeOf(object), nullptr);
    TestNode& read = *nodeOf(object);
    ASSERT_EQ(read.many().size(), 2UL);
    ASSERT_NE(read.many()[0].getNextNode(), nullptr);
    EXPECT_EQ(read.many()[0].getNext(), read.many()[1].getNext());
    EXPECT_EQ(read.many()[0].getNextNode()->mName, "shared");
}

TEST(MM_ClassFactory, TwoObjectsThatReferToEachOtherComeBackAsACycle)
{
    const TestDirectory directory;
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped b(TestNode::New("b"));
    a->setNext(b.get());
    b->setNext(a.get());
    COM_Scoped(TestFactory::New())->save(directory.file("file"), *a);
    a->resetLinks();
    b->resetLinks();
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped object(factory->load(directory.file("file")));
    TestNode* const first = nodeOf(object);
    ASSERT_NE(first, nullptr);
    TestNode* const second = first->getNextNode();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(first->mName, "a");
    EXPECT_EQ(second->mName, "b");
    EXPECT_EQ(second->getNext(), first);
    first->resetLinks();
}

TEST(MM_ClassFactory, ALoadedFieldEqualsTheSavedOne)
{
    const TestDirectory directory;
    const COM_Scoped field(MM_Field::New("mTimeStep"));
    const COM_Scoped value(MM_Value::New());
    value->setKey("k");
    value->setValue("1.5");
    field->addToMetaValues(*value);
    COM_Scoped(MM_ClassFactory::New())->save(directory.file("file"), field.get());
    const COM_Scoped factory(MM_ClassFactory::New());
    const COM_Scoped object(factory->load(directory.file("file")));
    const auto* const read = dynamic_cast<MM_Field*>(object.get());
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getName(), "mTimeStep");
    ASSERT_EQ(read->getCardinality(), 1UL);
    EXPECT_EQ(read->getMetaValues()[0].toString(), "key:k value:1.5\n");
}

TEST(MM_ClassFactory, SavingNothingWritesNothing)
{
    const TestDirectory directory;
    const COM_Scoped factory(MM_ClassFactory::New());
    const MM_Object* const nothing = nullptr;
    EXPECT_EQ(printedBy([&] { factory->save(directory.file("file"), nothing); }), "");
    EXPECT_FALSE(std::filesystem::exists(directory.file("file")));
}

TEST(MM_ClassFactory, SavingASecondTimeStartsAfresh)
{
    const TestDirectory directory;
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped b(TestNode::New("b"));
    const COM_Scoped factory(TestFactory::New());
    factory->save(directory.file("first"), *a);
    factory->save(directory.file("second"), *b);
    factory->save(directory.file("third"), *a);
    EXPECT_EQ(directory.read("second").find(a->getIdentityString()), std::string::npos);
    EXPECT_EQ(directory.read("third"), directory.read("first"));
    COM_Scoped(TestFactory::New())->save(directory.file("fresh"), *b);
    EXPECT_EQ(directory.read("second"), directory.read("fresh"));
}

TEST(MM_ClassFactory, LoadingASecondTimeMakesNewObjectsAndLetsGoOfTheOld)
{
    const TestDirectory directory;
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped factory(TestFactory::New());
    factory->save(directory.file("file"), *a);
    const COM_Scoped first(factory->load(directory.file("file")));
    const COM_Scoped second(factory->load(directory.file("file")));
    ASSERT_NE(first.get(), nullptr);
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
}

TEST(MM_ClassFactory, SavingLetsGoOfTheObjectsLoadedBefore)
{
    const TestDirectory directory;
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped factory(TestFactory::New());
    factory->save(directory.file("file"), *a);
    const COM_Scoped loaded(factory->load(directory.file("file")));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->getReferenceCount(), 2);
    factory->save(directory.file("file"), *a);
    EXPECT_EQ(loaded->getReferenceCount(), 1);
}

TEST(MM_ClassFactory, AFileThatDoesNotExistIsAnnouncedAndGivesNull)
{
    const TestDirectory directory;
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped node(TestNode::New("kept"));
    const std::string name = directory.file("missing");
    const std::string line = "ERROR:" + name + " can not be opened !! \n";
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(factory->load(name), nullptr); }), line);
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(factory->load(name, *node), node.get()); }), line);
    EXPECT_EQ(node->mName, "kept");
    EXPECT_EQ(factory->getRootMetaClass(), nullptr);
}

TEST(MM_ClassFactory, AFailedLoadForgetsTheFormerFile)
{
    const TestDirectory directory;
    const COM_Scoped a(TestNode::New("a"));
    const COM_Scoped factory(TestFactory::New());
    factory->save(directory.file("file"), *a);
    const COM_Scoped object(factory->load(directory.file("file")));
    EXPECT_NE(factory->getRootMetaClass(), nullptr);
    printedBy([&] { EXPECT_EQ(factory->load(directory.file("missing")), nullptr); });
    EXPECT_EQ(factory->getRootMetaClass(), nullptr);
    EXPECT_EQ(object->getReferenceCount(), 1);
}

TEST(MM_ClassFactory, AMissingDirectoryIsAnnouncedAtSaving)
{
    const TestDirectory directory;
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped node(TestNode::New());
    const std::string name = directory.file("missing/file");
    EXPECT_EQ(printedBy([&] { factory->save(name, *node); }),
              "ERROR:" + name + " can not be created !! \n");
}

TEST(MM_ClassFactory, ARootThatIsNotInTheFileGivesNull)
{
    const TestDirectory directory;
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped node(TestNode::New("kept"));
    const std::string name = directory.write(
        "file", R"(<MM_PACKAGE mRootMetaClassId="b"><MM_CLASS mId="a" mName="8TestNode">)");
    EXPECT_EQ(printedBy([&] {
                  EXPECT_EQ(factory->load(name), nullptr);
                  EXPECT_EQ(factory->load(name, *node), node.get());
              }),
              "");
    EXPECT_EQ(node->mName, "kept");
}

TEST(MM_ClassFactory, ARootOfAnUnknownClassGivesNullWithoutAWord)
{
    const TestDirectory directory;
    const std::string name = directory.write(
        "file", R"(<MM_PACKAGE mRootMetaClassId="a"><MM_CLASS mId="a" mName="9QVUnknown">)");
    const COM_Scoped factory(TestFactory::New());
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(factory->load(name), nullptr); }), "");
    EXPECT_NE(factory->getRootMetaClass(), nullptr);
}

TEST(MM_ClassFactory, AFileIsRestoredIntoAnObjectOfItsClass)
{
    const TestDirectory directory;
    const COM_Scoped a(TestNode::New("a"));
    a->setNext(a.get());
    a->mReals = {1.0, 2.0};
    // This factory could not make the object.
    const COM_Scoped factory(MM_ClassFactory::New());
    factory->save(directory.file("file"), *a);
    a->resetLinks();
    const COM_Scoped b(TestNode::New("b"));
    testing::internal::CaptureStdout();
    EXPECT_EQ(factory->load(directory.file("file"), *b), b.get());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(b->mName, "a");
    EXPECT_EQ(b->mReals, (std::vector<double>{1.0, 2.0}));
    EXPECT_EQ(b->getNext(), b.get());
    b->resetLinks();
    EXPECT_EQ(b->getReferenceCount(), 2);
}

TEST(MM_ClassFactory, AFileOfAnotherClassLeavesTheObjectAsItWas)
{
    const TestDirectory directory;
    const COM_Scoped factory(TestFactory::New());
    factory->save(directory.file("file"), *COM_Scoped(MM_Value::New()));
    const COM_Scoped node(TestNode::New("kept"));
    EXPECT_EQ(
        printedBy([&] { EXPECT_EQ(factory->load(directory.file("file"), *node), node.get()); }),
        "");
    EXPECT_EQ(node->mName, "kept");
    EXPECT_EQ(node->getReferenceCount(), 1);
}

TEST(MM_ClassFactory, AClassWhoseNameIsMerelyContainedIsAnotherClassForAnExistingObject)
{
    const TestDirectory directory;
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped node(TestNode::New("kept"));
    const std::string name = directory.write(
        "file", "<MM_PACKAGE mRootMetaClassId=\"a\"><MM_CLASS mId=\"a\" "
                "mName=\"18TestNode\"><MM_FIELD mName=\"mName\"><MM_VALUE>x</MM_VALUE>");
    EXPECT_EQ(printedBy([&] { factory->load(name, *node); }), "");
    EXPECT_EQ(node->mName, "kept");
}

TEST(MM_ClassFactory, AnObjectThatNoFactoryMakesIsAMissingMemberAndTheRestIsLoaded)
{
    const TestDirectory directory;
    const COM_Scoped root(TestNode::New("root"));
    const COM_Scoped unknown(TestUnknown::New());
    const COM_Scoped a(TestNode::New("a"));
    root->setNext(unknown.get());
    root->many().add(*unknown);
    root->many().add(*a);
    root->byKey().put("key", *a);
    COM_Scoped(TestFactory::New())->save(directory.file("file"), *root);
    const COM_Scoped factory(TestFactory::New());
    testing::internal::CaptureStdout();
    const COM_Scoped object(factory->load(directory.file("file")));
    const std::string line = "impossible to create an instance of " + unknown->getIdentityString()
                             + " from class 8TestNode.\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), line + line);
    TestNode* const read = nodeOf(object);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->getNext(), nullptr);
    ASSERT_EQ(read->many().size(), 1UL);
    EXPECT_EQ(read->many()[0].mName, "a");
    EXPECT_EQ(read->byKey().size(), 1UL);
}

TEST(MM_ClassFactory, ADoubleOfAFortranProgramIsRead)
{
    const TestDirectory directory;
    const std::string name =
        directory.write("file", "<MM_PACKAGE mRootMetaClassId=\"a\"><MM_CLASS mId=\"a\" "
                                "mName=\"8TestNode\"><MM_FIELD mName=\"mReal\"><MM_VALUE>1.5D3"
                                "</MM_VALUE>");
    const COM_Scoped factory(TestFactory::New());
    testing::internal::CaptureStdout();
    const COM_Scoped object(factory->load(name));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "no attribute mName stored in class 8TestNode.\n"
              "no attribute mReals stored in class 8TestNode.\n"
              "no association mMany stored in class 8TestNode.\n"
              "no association mByKey stored in class 8TestNode.\n");
    ASSERT_NE(nodeOf(object), nullptr);
    EXPECT_EQ(nodeOf(object)->mReal, 1500.0);
}
