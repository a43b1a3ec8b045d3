#include "metaModel/MM_Package.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestNode.h"
#include "support/Tracing.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

/// Opens the registry of made objects to tests.
class TestPackage : public TestFactory
{
    COM_CLASS(TestPackage)
public:
    using TestFactory::addToInstanciatedClasses;
    using TestFactory::getFromInstanciatedClasses;
    using TestFactory::removeFromInstanciatedClasses;
    using TestFactory::resetInstanciatedClasses;

    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override
    {
        mNamesSeen.clear();
        for (unsigned long i = 0; i < newParameters.size(); ++i) {
            mNamesSeen.push_back(dynamic_cast<TestNode&>(newParameters[i]).mName);
        }
        return TestFactory::NewInstance(name, newParameters);
    }

    /// Names of the constructor parameters that the last `NewInstance` got.
    mutable std::vector<std::string> mNamesSeen;

protected:
    TestPackage() { COM_TYPE(TestPackage); }
    ~TestPackage() override = default;
};

namespace {

using Names = std::vector<std::string>;

MM_Class* newNode(const std::string& id, const std::string& name = "8TestNode")
{
    auto* const node = MM_Class::New();
    node->setId(id);
    node->setName(name);
    return node;
}

/// A chain of that many nodes, each referring to the next, as the descriptions "0", "1", ...
void addChain(MM_Package& package, unsigned long length)
{
    for (unsigned long i = 0; i < length; ++i) {
        const COM_Scoped node(newNode(std::to_string(i)));
        node->addAttributeToMetaFields("mName", std::to_string(i));
        node->addAttributeToMetaFields("mReal", 0.0);
        node->addAttributeToMetaFields("mReals", Names{});
        node->addAttributeToMetaFields("mMany", Names{});
        node->addAttributeToMetaFields("mByKey", Names{});
        if (i + 1 < length) {
            node->addAttributeToMetaFields("mNext", std::to_string(i + 1));
        }
        package.addToMetaClasses(*node);
    }
}

/// Fills `package` with nodes and made objects, which `end` deletes by descending identity.
void expectReleasesBackwards(TestPackage& package, const std::function<void()>& end)
{
    for (const char* id : {"b", "c", "a"}) {
        const COM_Scoped node(newNode(id));
        const COM_Scoped object(TestNode::New());
        package.addToMetaClasses(*node);
        package.addToInstanciatedClasses(id, *object);
    }
    std::vector<std::string> releases;
    for (const char* id : {"c", "b", "a"}) {
        releases.push_back("deleting " + package.getFromMetaClasses(id)->getIdentityString());
    }
    for (const char* id : {"c", "b", "a"}) {
        releases.push_back("deleting "
                           + package.getFromInstanciatedClasses(id)->getIdentityString());
    }
    const std::string printed = tracedBy(end);
    std::size_t at = 0;
    for (const std::string& release : releases) {
        at = printed.find(release + "...\n", at);
        ASSERT_NE(at, std::string::npos) << release << " in\n" << printed;
    }
}

} // namespace

TEST(MM_Package, ANewPackageIsEmpty)
{
    const COM_Scoped package(MM_Package::New());
    EXPECT_EQ(package->getReferenceCount(), 1);
    EXPECT_EQ(package->getRootMetaClass(), nullptr);
    EXPECT_EQ(Description::textOf(*package), "root -");
    EXPECT_EQ(package->getTypes(), (Names{"COM_Object", "MM_Object", "MM_Package"}));
}

TEST(MM_Package, AnAddedNodeIsLinkedInBothDirections)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped node(newNode("a"));
    EXPECT_TRUE(package->addToMetaClasses(*node));
    EXPECT_EQ(package->getFromMetaClasses("a"), node.get());
    EXPECT_EQ(package->getFromMetaClasses("b"), nullptr);
    EXPECT_EQ(node->getMetaPackage(), package.get());
    EXPECT_EQ(node->getReferenceCount(), 2);
    EXPECT_EQ(package->getReferenceCount(), 2);
}

TEST(MM_Package, ASecondNodeOfAnIdentityIsRefused)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped node(newNode("a"));
    const COM_Scoped twin(newNode("a"));
    package->addToMetaClasses(*node);
    EXPECT_FALSE(package->addToMetaClasses(*node));
    EXPECT_FALSE(package->addToMetaClasses(*twin));
    EXPECT_EQ(package->getFromMetaClasses("a"), node.get());
    EXPECT_EQ(twin->getMetaPackage(), nullptr);
    EXPECT_EQ(node->getReferenceCount(), 2);
    EXPECT_EQ(twin->getReferenceCount(), 1);
    EXPECT_EQ(package->getReferenceCount(), 2);
}

TEST(MM_Package, ANodeWithoutIdentityIsAnnouncedAndStoredAllTheSame)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped node(newNode(""));
    const COM_Scoped second(newNode(""));
    const auto warning = [](const MM_Class& about) {
        return "WARNING id of meta class " + about.getIdentityString()
               + " is empty !! can not be added to the package.\n"
                 "Set the id of the class to the instance class id it refers.\n";
    };
    // Once from each end of the link.
    EXPECT_EQ(printedBy([&] { EXPECT_TRUE(package->addToMetaClasses(*node)); }),
              warning(*node) + warning(*node));
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(package->addToMetaClasses(*second)); }),
              warning(*second));
    EXPECT_EQ(package->getFromMetaClasses(""), node.get());
}

TEST(MM_Package, ARemovedNodeIsUnlinkedInBothDirections)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped node(newNode("a"));
    const COM_Scoped twin(newNode("a"));
    package->addToMetaClasses(*node);
    package->removeFromMetaClasses(*twin);
    EXPECT_EQ(package->getFromMetaClasses("a"), node.get());
    package->removeFromMetaClasses(*node);
    EXPECT_EQ(package->getFromMetaClasses("a"), nullptr);
    EXPECT_EQ(node->getMetaPackage(), nullptr);
    EXPECT_EQ(node->getReferenceCount(), 1);
    EXPECT_EQ(package->getReferenceCount(), 1);
    package->removeFromMetaClasses(*node);
    EXPECT_EQ(node->getReferenceCount(), 1);
}

TEST(MM_Package, APackageGoesWithItsNodesThoughEachPointsBackToIt)
{
    auto* const package = MM_Package::New();
    const COM_Scoped watched(newNode("w"));
    package->addToMetaClasses(*watched);
    for (const char* id : {"a", "b", "c"}) {
        const COM_Scoped node(newNode(id));
        package->addToMetaClasses(*node);
    }
    EXPECT_EQ(package->getReferenceCount(), 5);
    EXPECT_EQ(printedBy([package] { package->Delete(); }), "");
    EXPECT_EQ(watched->getMetaPackage(), nullptr);
    EXPECT_EQ(watched->getReferenceCount(), 1);
}

TEST(MM_Package, AResetForgetsTheRootAndEveryNodeWhateverItIsCalledNow)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped a(newNode("a"));
    const COM_Scoped b(newNode("b"));
    package->setRootMetaClass(*a);
    package->addToMetaClasses(*b);
    b->setId("renamed");
    package->resetMetaClasses();
    EXPECT_EQ(package->getRootMetaClass(), nullptr);
    EXPECT_EQ(Description::textOf(*package), "root -");
    EXPECT_EQ(a->getReferenceCount(), 1);
    EXPECT_EQ(b->getReferenceCount(), 1);
    EXPECT_EQ(b->getMetaPackage(), nullptr);
    EXPECT_EQ(package->getReferenceCount(), 1);
    package->addToMetaClasses(*a);
    EXPECT_EQ(package->getRootMetaClass(), nullptr);
}

TEST(MM_Package, AResetGoesFromTheLastIdentityToTheFirst)
{
    const COM_Scoped package(TestPackage::New());
    expectReleasesBackwards(*package, [&package] {
        package->resetMetaClasses();
        package->resetInstanciatedClasses();
    });
}

TEST(MM_Package, ADyingPackageReleasesItsNodesAndThenItsObjectsFromTheLastToTheFirst)
{
    auto* const package = TestPackage::New();
    expectReleasesBackwards(*package, [package] { package->Delete(); });
}

TEST(MM_Package, NodesAreListedInTheByteOrderOfTheirIdentities)
{
    const COM_Scoped package(MM_Package::New());
    for (const char* id : {"8X@9", "8X@10", "10Y@1", "8X@100"}) {
        const COM_Scoped node(newNode(id, "n"));
        package->addToMetaClasses(*node);
    }
    EXPECT_EQ(Description::textOf(*package),
              "root -; 10Y@1(n){}; 8X@10(n){}; 8X@100(n){}; 8X@9(n){}");
}

TEST(MM_Package, TheRootIsAddedWithItsLink)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped root(newNode("r"));
    package->setRootMetaClass(*root);
    EXPECT_EQ(package->getRootMetaClass(), root.get());
    EXPECT_EQ(package->getFromMetaClasses("r"), root.get());
    package->removeFromMetaClasses(*root);
    EXPECT_EQ(package->getRootMetaClass(), nullptr);
}

TEST(MM_Package, TheTextNamesRootAndNodes)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped root(newNode("the root"));
    package->setRootMetaClass(*root);
    EXPECT_EQ(package->toString(), "root:the root\n0:" + root->getIdentityString() + "\n");
}

TEST(MM_Package, APackageThatIsNoFactoryMakesNothing)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped node(newNode("a", "8MM_Value"));
    package->addToMetaClasses(*node);
    EXPECT_EQ(package->NewInstanceFromMetaClass(*node), nullptr);
    EXPECT_EQ(package->NewInstance("8MM_Value", *COM_Scoped(COM_Array<MM_Object>::New())), nullptr);
}

TEST(MM_Package, AnObjectIsMadeOnceForEachIdentity)
{
    const unsigned long before = TestNode::getLivingNumber();
    {
        const COM_Scoped package(TestPackage::New());
        addChain(*package, 1);
        MM_Object* const object =
            package->NewInstanceFromMetaClass(*package->getFromMetaClasses("0"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->getReferenceCount(), 2);
        EXPECT_EQ(package->getFromInstanciatedClasses("0"), object);
        EXPECT_EQ(package->NewInstanceFromMetaClass(*package->getFromMetaClasses("0")), object);
        EXPECT_EQ(object->getReferenceCount(), 3);
        object->Delete();
        object->Delete();
        EXPECT_EQ(TestNode::getLivingNumber(), before + 1);
    }
    EXPECT_EQ(TestNode::getLivingNumber(), before);
}

TEST(MM_Package, AReferenceBackFindsTheHalfFilledObjectItself)
{
    const COM_Scoped package(TestPackage::New());
    addChain(*package, 1);
    package->getFromMetaClasses("0")->addAttributeToMetaFields("mNext", std::string("0"));
    const COM_Scoped object(package->NewInstanceFromMetaClass(*package->getFromMetaClasses("0")));
    auto* const node = dynamic_cast<TestNode*>(object.get());
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getNext(), node);
    node->resetLinks();
}

TEST(MM_Package, TheRegistryOfMadeObjectsHoldsThem)
{
    const COM_Scoped package(TestPackage::New());
    const COM_Scoped a(TestNode::New());
    const COM_Scoped b(TestNode::New());
    package->addToInstanciatedClasses("a", *a);
    package->addToInstanciatedClasses("b", *b);
    EXPECT_EQ(a->getReferenceCount(), 2);
    EXPECT_EQ(package->getFromInstanciatedClasses("a"), a.get());
    package->removeFromInstanciatedClasses("a");
    EXPECT_EQ(package->getFromInstanciatedClasses("a"), nullptr);
    EXPECT_EQ(a->getReferenceCount(), 1);
    package->resetInstanciatedClasses();
    EXPECT_EQ(b->getReferenceCount(), 1);
}

TEST(MM_Package, ConstructorParametersAreMadeFirstAndGivenToTheFactory)
{
    const COM_Scoped package(TestPackage::New());
    const COM_Scoped first(TestNode::New("first"));
    const COM_Scoped second(TestNode::New("second"));
    const COM_Scoped undescribed(TestNode::New("undescribed"));
    const COM_Scoped owner(newNode("owner"));
    package->addToMetaClasses(*owner);
    package->describe(*first);
    package->describe(*second);
    owner->addToNewParameters(*second);
    owner->addToNewParameters(*undescribed);
    owner->addToNewParameters(*first);
    testing::internal::CaptureStdout();
    const COM_Scoped object(package->NewInstanceFromMetaClass(*owner));
    testing::internal::GetCapturedStdout();
    ASSERT_NE(object.get(), nullptr);
    EXPECT_EQ(package->mNamesSeen, (Names{"second", "first"}));
    MM_Object* const parameter = package->getFromInstanciatedClasses(first->getIdentityString());
    ASSERT_NE(parameter, nullptr);
    EXPECT_EQ(parameter->getReferenceCount(), 1);
}

TEST(MM_Package, AParameterOfAnUnknownClassIsPassedOver)
{
    const COM_Scoped package(TestPackage::New());
    const COM_Scoped parameter(TestNode::New());
    const COM_Scoped described(newNode(parameter->getIdentityString(), "9QVUnknown"));
    const COM_Scoped owner(newNode("owner"));
    package->addToMetaClasses(*described);
    package->addToMetaClasses(*owner);
    owner->addToNewParameters(*parameter);
    testing::internal::CaptureStdout();
    const COM_Scoped object(package->NewInstanceFromMetaClass(*owner));
    testing::internal::GetCapturedStdout();
    EXPECT_NE(object.get(), nullptr);
    EXPECT_EQ(package->mParametersSeen, 0UL);
}

TEST(MM_Package, ANodeThatIsItsOwnParameterGivesNull)
{
    const COM_Scoped package(TestPackage::New());
    const COM_Scoped object(TestNode::New());
    package->describe(*object);
    MM_Class* const node = package->getFromMetaClasses(object->getIdentityString());
    node->addToNewParameters(*object);
    const COM_Scoped made(package->NewInstanceFromMetaClass(*node));
    EXPECT_EQ(made.get(), nullptr);
    // Freed from its parameter the node is like any other.
    node->removeNewParameters();
    const COM_Scoped madeLater(package->NewInstanceFromMetaClass(*node));
    EXPECT_NE(madeLater.get(), nullptr);
}

TEST(MM_Package, NodesThatAreEachOthersParametersGiveNull)
{
    const COM_Scoped package(TestPackage::New());
    const COM_Scoped a(TestNode::New());
    const COM_Scoped b(TestNode::New());
    package->describe(*a);
    package->describe(*b);
    MM_Class* const nodeA = package->getFromMetaClasses(a->getIdentityString());
    MM_Class* const nodeB = package->getFromMetaClasses(b->getIdentityString());
    nodeA->addToNewParameters(*b);
    nodeB->addToNewParameters(*a);
    const COM_Scoped madeA(package->NewInstanceFromMetaClass(*nodeA));
    EXPECT_EQ(madeA.get(), nullptr);
    const COM_Scoped madeB(package->NewInstanceFromMetaClass(*nodeB));
    EXPECT_EQ(madeB.get(), nullptr);
}

TEST(MM_Package, ANodeThatWaitsForACircleGivesNullHoweverOftenItAsks)
{
    const COM_Scoped package(TestPackage::New());
    const COM_Scoped circle(TestNode::New());
    const COM_Scoped plain(TestNode::New());
    const COM_Scoped waiting(newNode("waiting"));
    package->describe(*circle);
    package->describe(*plain);
    package->addToMetaClasses(*waiting);
    MM_Class* const node = package->getFromMetaClasses(circle->getIdentityString());
    // More than one way round: each would double the work of the one before.
    for (int i = 0; i < 50; ++i) {
        node->addToNewParameters(*circle);
    }
    waiting->addToNewParameters(*plain);
    waiting->addToNewParameters(*circle);
    waiting->addToNewParameters(*plain);
    const COM_Scoped made(package->NewInstanceFromMetaClass(*waiting));
    EXPECT_EQ(made.get(), nullptr);
    const COM_Scoped madeCircle(package->NewInstanceFromMetaClass(*node));
    EXPECT_EQ(madeCircle.get(), nullptr);
    const COM_Scoped madePlain(package->NewInstanceFromMetaClass(
        *package->getFromMetaClasses(plain->getIdentityString())));
    EXPECT_NE(madePlain.get(), nullptr);
}

TEST(MM_Package, AChainOfReasonableLengthIsMadeToItsEnd)
{
    const COM_Scoped package(TestPackage::New());
    addChain(*package, 900);
    const COM_Scoped first(package->NewInstanceFromMetaClass(*package->getFromMetaClasses("0")));
    unsigned long length = 0;
    for (auto* node = dynamic_cast<TestNode*>(first.get()); node != nullptr;
         node = node->getNextNode()) {
        EXPECT_EQ(node->mName, std::to_string(length));
        ++length;
    }
    EXPECT_EQ(length, 900UL);
}

TEST(MM_Package, AnEndlessChainIsCutAndTheCutAnnounced)
{
    const COM_Scoped package(TestPackage::New());
    addChain(*package, 20000);
    MM_Object* made = nullptr;
    const std::string printed = printedBy(
        [&] { made = package->NewInstanceFromMetaClass(*package->getFromMetaClasses("0")); });
    const COM_Scoped first(made);
    ASSERT_NE(first.get(), nullptr);
    EXPECT_TRUE(printed.starts_with("impossible to create an instance of ")) << printed;
    EXPECT_EQ(printed.find('\n'), printed.size() - 1);
}

TEST(MM_Package, AnObjectIsDescribedOnce)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped object(TestNode::New("a"));
    package->describe(*object);
    object->mName = "changed";
    package->describe(*object);
    EXPECT_EQ(Description::textOf(*package),
              "root -; " + object->getIdentityString()
                  + "(8TestNode){mByKey=[] mMany=[] mName=[a] mReal=[0.000000e+00] mReals=[]}");
}

TEST(MM_Package, TheKeysAreFrozen)
{
    const COM_Scoped package(MM_Package::New());
    EXPECT_EQ(Description(*package).text(), "{mMetaClasses=[]}");
    const COM_Scoped node(newNode("the id"));
    package->addToMetaClasses(*node);
    EXPECT_EQ(Description(*package).text(),
              "{mMetaClasses=[the id:" + node->getIdentityString() + "]}");
}

TEST(MM_Package, APackageWithItsNodesComesBackFromItsDescription)
{
    const COM_Scoped written(TestPackage::New());
    const COM_Scoped package(MM_ClassFactory::New());
    for (const char* id : {"a", "b"}) {
        const COM_Scoped node(newNode(id, "name"));
        node->addAttributeToMetaFields("f", std::string(id));
        package->addToMetaClasses(*node);
    }
    written->describe(*package);
    testing::internal::CaptureStdout();
    const COM_Scoped object(written->NewInstanceFromMetaClass(
        *written->getFromMetaClasses(package->getIdentityString())));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    const auto* const copy = dynamic_cast<MM_Package*>(object.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, package.get());
    EXPECT_EQ(Description::textOf(*copy), "root -; a(name){f=[a]}; b(name){f=[b]}");
}
