#include "metaModel/MM_ClassText.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_ClassFactory.h"
#include "metaModel/MM_Parser.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestNode.h"

#include <gtest/gtest.h>

#include <complex>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

/// What an object stores of itself.
using Storing = std::function<void(MM_Class&)>;

/// An object that describes itself as a test wants it.
class Described : public virtual MM_Object
{
    COM_CLASS(Described)
public:
    void saveToMetaClass(MM_Class& metaClass) const override { mStoring(metaClass); }

protected:
    explicit Described(Storing storing)
        : mStoring(std::move(storing))
    {
        COM_TYPE(Described);
    }
    ~Described() override = default;

private:
    Storing mStoring;
};

/// The file of the graph of `root`, written without a tree. It has to be that of the tree.
std::string fileOf(const MM_Object& root)
{
    const TestDirectory directory;
    COM_Scoped(MM_ClassFactory::New())->save(directory.file("tree"), root);
    EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(directory.file("text"), root), 0);
    EXPECT_EQ(directory.read("text"), directory.read("tree"));
    return directory.read("text");
}

std::string fileOf(const Storing& storing)
{
    const COM_Scoped object(Described::New(storing));
    return fileOf(*object);
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

TEST(MM_ClassText, ValuesOfAllKindsStandThereAsInATree)
{
    constexpr double huge = std::numeric_limits<double>::max();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const std::string file = fileOf([](MM_Class& node) {
        node.addAttributeToMetaFields("yes", true);
        node.addAttributeToMetaFields("byte", static_cast<unsigned char>(200));
        node.addAttributeToMetaFields("least", std::numeric_limits<long>::min());
        node.addAttributeToMetaFields("largest", std::numeric_limits<unsigned long>::max());
        node.addAttributeToMetaFields("numbers", std::vector<unsigned long>{0, 7, 1234567890123});
        node.addAttributeToMetaFields(
            "reals", std::vector<double>{0.0, -0.0, 1.0, -2.5e-300, 5e-324, huge, infinite,
                                         -infinite, std::numeric_limits<double>::quiet_NaN()});
        node.addAttributeToMetaFields(
            "complex", std::vector<std::complex<double>>{{0.0, -1.5}, {-infinite, 1e100}});
        node.addAttributeToMetaFields("texts", std::vector<std::string>{"", "a\n<b>", "\351"});
        node.addAttributeToMetaFields("none", std::vector<double>{});
        const double values[] = {1.0, 2.0, 3.0};
        node.addAttributeToMetaFields("first", static_cast<const double*>(values), 2);
    });
    EXPECT_TRUE(contains(file, "<MM_VALUE>-9223372036854775808</MM_VALUE>"));
    EXPECT_TRUE(contains(file, "<MM_VALUE>(0.000000e+00,-1.500000e+00)</MM_VALUE>"));
    EXPECT_TRUE(contains(file, "<MM_VALUE>2.000000e+00</MM_VALUE>\n\t\t</MM_FIELD>"));
    EXPECT_FALSE(contains(file, "3.000000e+00"));
}

TEST(MM_ClassText, FieldsStandInTheOrderOfTheirNames)
{
    const std::string file = fileOf([](MM_Class& node) {
        for (const char* name : {"mB", "mA", "m", "mAB", "M"}) {
            node.addAttributeToMetaFields(name, 1L);
        }
    });
    std::size_t before = 0;
    for (const char* name : {"\"M\"", "\"m\"", "\"mA\"", "\"mAB\"", "\"mB\""}) {
        const std::size_t place = file.find(name);
        EXPECT_NE(place, std::string::npos) << name;
        EXPECT_LT(before, place) << name;
        before = place;
    }
}

TEST(MM_ClassText, TheFirstFieldOfANameWinsHoweverItCame)
{
    const auto whole = [](MM_Class& node) {
        const COM_Scoped field(MM_Field::New("f"));
        field->addToMetaValues("k", "whole");
        node.addToMetaFields(*field);
    };
    const auto value = [](MM_Class& node) { node.addAttributeToMetaFields("f", std::string("v")); };
    EXPECT_TRUE(contains(fileOf([&](MM_Class& node) {
                             whole(node);
                             value(node);
                         }),
                         "<MM_FIELD mName=\"f\">\n\t\t\t<MM_VALUE mKey=\"k\">whole</MM_VALUE>\n"));
    EXPECT_TRUE(contains(fileOf([&](MM_Class& node) {
                             value(node);
                             whole(node);
                         }),
                         "<MM_FIELD mName=\"f\">\n\t\t\t<MM_VALUE>v</MM_VALUE>\n"));
    EXPECT_TRUE(contains(fileOf([&](MM_Class& node) {
                             value(node);
                             node.addAttributeToMetaFields("f", 2L);
                         }),
                         "<MM_FIELD mName=\"f\">\n\t\t\t<MM_VALUE>v</MM_VALUE>\n"));
}

TEST(MM_ClassText, AFieldThatIsFilledAfterItWasGivenIsWrittenWhole)
{
    EXPECT_TRUE(contains(fileOf([](MM_Class& node) {
                             const COM_Scoped field(MM_Field::New("late"));
                             node.addToMetaFields(*field);
                             field->addToMetaValues({}, "filled");
                         }),
                         "<MM_VALUE>filled</MM_VALUE>"));
}

TEST(MM_ClassText, AFieldWithoutNameIsAnnouncedAndWritten)
{
    const COM_Scoped object(
        Described::New([](MM_Class& node) { node.addAttributeToMetaFields("", 5L); }));
    const std::string printed = printedBy([&] {
        EXPECT_TRUE(contains(fileOf(*object), "<MM_FIELD mName=\"\">\n\t\t\t<MM_VALUE>5<"));
    });
    EXPECT_TRUE(contains(printed, "is empty !! can not be added to the class fields."));
}

TEST(MM_ClassText, ManyObjectsStandInTheByteOrderOfTheirIdentities)
{
    const COM_Scoped root(TestNode::New("root"));
    for (int i = 0; i < 1200; ++i) { // numbers of up to four digits and more
        const COM_Scoped node(TestNode::New("n"));
        root->many().add(*node);
        if (i % 7 == 0) {
            root->byKey().put(std::to_string(i), *node);
        }
    }
    const std::string file = fileOf(*root);
    EXPECT_TRUE(contains(file, "<MM_VALUE mKey=\"1197\">"));
    root->resetLinks();
}

TEST(MM_ClassText, ClassesWhoseNamesBeginAlikeKeepTheOrderOfIdentities)
{
    // "@" comes after digits and before letters.
    struct Named : Described
    {
        Named(std::string name, Storing storing)
            : Described(std::move(storing))
            , mName(std::move(name))
        {}
        std::string getClassName() const override { return mName; }
        std::string mName;
    };
    const auto nothing = [](MM_Class&) {};
    Named* const named[] = {new Named("Ab", nothing), new Named("A1", nothing),
                            new Named("A", nothing)};
    const std::string file = fileOf([&named](MM_Class& node) {
        for (const Named* object : named) {
            node.addAssociationToMetaFields(object->getClassName(), *object);
        }
    });
    EXPECT_LT(file.find("mId=\"A1@"), file.find("mId=\"A@"));
    EXPECT_LT(file.find("mId=\"A@"), file.find("mId=\"Ab@"));
    for (const Named* object : named) {
        object->Delete();
    }
}

} // namespace
