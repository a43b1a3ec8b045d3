#include "metaModel/MM_Parser.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_ClassFactory.h"
#include "support/ChildProcess.h"
#include "support/Description.h"
#include "support/Locales.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestNode.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <vector>

namespace {

/// Writes `text` to a file, reads it, and gives the package as a text. Whatever is said while reading is a
/// part of the answer.
std::string readingOf(const std::string& text)
{
    const TestDirectory directory;
    const std::string name = directory.write("file", text);
    const COM_Scoped package(MM_Package::New());
    int result = -2;
    const std::string printed =
        printedBy([&] { result = MM_Parser::parseXMLMetaModelFile(name, *package); });
    EXPECT_EQ(result, 0);
    return printed + Description::textOf(*package);
}

/// What is written of the package.
std::string writingOf(const MM_Package& package)
{
    const TestDirectory directory;
    EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(directory.file("file"), package), 0);
    return directory.read("file");
}

/// A package with one node "a" whose field "f" holds one value of that text.
std::string fileWithValue(const std::string& text)
{
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("a");
    node->setName("n");
    node->addAttributeToMetaFields("f", text);
    package->setRootMetaClass(*node);
    return writingOf(*package);
}

/// A graph with shared objects, a cycle, and keys of all kinds.
class Graph
{
public:
    Graph()
    {
        mRoot->mReal = 0.1234567891;
        mRoot->mReals = {1.0, -2.5, 1e100};
        mRoot->setNext(mA.get());
        mA->setNext(mRoot.get());
        mRoot->many().add(*mA);
        mRoot->many().add(*mB);
        mRoot->many().add(*mA);
        mB->many().add(*mB);
        mRoot->byKey().put("second key", *mB);
        mRoot->byKey().put("", *mA);
    }
    ~Graph()
    {
        mRoot->resetLinks();
        mA->resetLinks();
        mB->resetLinks();
    }
    Graph(const Graph&) = delete;
    Graph& operator=(const Graph&) = delete;
    const TestNode& root() const { return *mRoot; }

private:
    const COM_Scoped<TestNode> mRoot{TestNode::New("root")};
    const COM_Scoped<TestNode> mA{TestNode::New("a")};
    const COM_Scoped<TestNode> mB{TestNode::New("b")};
};

/// Loads a file's text as a graph and lets go of it again, cycles included.
void loadAndRelease(const TestDirectory& directory, const std::string& text)
{
    const COM_Scoped factory(TestFactory::New());
    // A fresh file for each text: one that is cut and filled again has to reach the disk in between.
    std::filesystem::remove(directory.file("file"));
    const COM_Scoped object(factory->load(directory.write("file", text)));
    TestNode::resetLinksOfNodesSince(factory->getIdentityNumber());
}

constexpr const char* package = "<MM_PACKAGE mRootMetaClassId=\"a\">";
constexpr const char* nodeA = "<MM_CLASS mId=\"a\" mName=\"n\">";
constexpr const char* fieldF = "<MM_FIELD mName=\"f\">";
constexpr const char* valueV = "<MM_VALUE>v</MM_VALUE>";

struct ReadCase
{
    const char* mName;
    std::string mText;
    const char* mReading;
};

void PrintTo(const ReadCase& row, std::ostream* out)
{
    *out << row.mName;
}

class MM_ParserReadTest : public testing::TestWithParam<ReadCase>
{};

std::string concat(std::initializer_list<std::string_view> pieces)
{
    std::string text;
    for (const std::string_view piece : pieces) {
        text += piece;
    }
    return text;
}

} // namespace

TEST(MM_Parser, TheTagsAndAttributesAreFixed)
{
    EXPECT_STREQ(MM_Parser::PACKAGE_XML_TAG, "MM_PACKAGE");
    EXPECT_STREQ(MM_Parser::CLASS_XML_TAG, "MM_CLASS");
    EXPECT_STREQ(MM_Parser::FIELD_XML_TAG, "MM_FIELD");
    EXPECT_STREQ(MM_Parser::VALUE_XML_TAG, "MM_VALUE");
    EXPECT_EQ(std::size(MM_Parser::PACKAGE_ATTRIBUTES), 1UL);
    EXPECT_STREQ(MM_Parser::PACKAGE_ATTRIBUTES[0], "mRootMetaClassId");
    EXPECT_EQ(std::size(MM_Parser::CLASS_ATTRIBUTES), 3UL);
    EXPECT_STREQ(MM_Parser::CLASS_ATTRIBUTES[0], "mName");
    EXPECT_STREQ(MM_Parser::CLASS_ATTRIBUTES[1], "mId");
    EXPECT_STREQ(MM_Parser::CLASS_ATTRIBUTES[2], "mNewParameters");
    EXPECT_EQ(std::size(MM_Parser::FIELD_ATTRIBUTES), 1UL);
    EXPECT_STREQ(MM_Parser::FIELD_ATTRIBUTES[0], "mName");
    EXPECT_EQ(std::size(MM_Parser::VALUE_ATTRIBUTES), 2UL);
    EXPECT_STREQ(MM_Parser::VALUE_ATTRIBUTES[0], "mKey");
    EXPECT_STREQ(MM_Parser::VALUE_ATTRIBUTES[1], "mValue");
}

TEST(MM_Parser, AParserCanBeMadeAndHasNothingToPersist)
{
    const COM_Scoped parser(MM_Parser::New());
    EXPECT_EQ(parser->getReferenceCount(), 1);
    EXPECT_EQ(parser->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Parser"}));
    EXPECT_EQ(Description(*parser).text(), "{}");
}

TEST(MM_Parser, AFieldWithOneValueIsWrittenToTheByte)
{
    const TestDirectory directory;
    const COM_Scoped field(MM_Field::New("mTimeStep"));
    const COM_Scoped value(MM_Value::New());
    value->setValue("1.5");
    field->addToMetaValues(*value);
    COM_Scoped(MM_ClassFactory::New())->save(directory.file("file"), *field);
    const std::string f = "8MM_Field@" + std::to_string(field->getIdentityNumber());
    const std::string v = "8MM_Value@" + std::to_string(value->getIdentityNumber());
    EXPECT_EQ(directory.read("file"), "\n<MM_PACKAGE mRootMetaClassId=\"" + f
                                          + "\">"
                                            "\n\t<MM_CLASS mId=\""
                                          + f
                                          + "\" mName=\"8MM_Field\">"
                                            "\n\t\t<MM_FIELD mName=\"mName\">"
                                            "\n\t\t\t<MM_VALUE>mTimeStep</MM_VALUE>"
                                            "\n\t\t</MM_FIELD>"
                                            "\n\t\t<MM_FIELD mName=\"mValues\">"
                                            "\n\t\t\t<MM_VALUE>"
                                          + v
                                          + "</MM_VALUE>"
                                            "\n\t\t</MM_FIELD>"
                                            "\n\t</MM_CLASS>"
                                            "\n\t<MM_CLASS mId=\""
                                          + v
                                          + "\" mName=\"8MM_Value\">"
                                            "\n\t\t<MM_FIELD mName=\"mKey\">"
                                            "\n\t\t\t<MM_VALUE></MM_VALUE>"
                                            "\n\t\t</MM_FIELD>"
                                            "\n\t\t<MM_FIELD mName=\"mValue\">"
                                            "\n\t\t\t<MM_VALUE>1.5</MM_VALUE>"
                                            "\n\t\t</MM_FIELD>"
                                            "\n\t</MM_CLASS>"
                                            "\n</MM_PACKAGE>");
}

TEST(MM_Parser, AnEmptyPackageIsWrittenWithoutRoot)
{
    EXPECT_EQ(writingOf(*COM_Scoped(MM_Package::New())),
              "\n<MM_PACKAGE mRootMetaClassId=\"\">\n</MM_PACKAGE>");
}

TEST(MM_Parser, ARootThatLeftThePackageIsWrittenAsNone)
{
    const COM_Scoped written(MM_Package::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("a");
    written->setRootMetaClass(*node);
    written->removeFromMetaClasses(*node);
    EXPECT_EQ(writingOf(*written), "\n<MM_PACKAGE mRootMetaClassId=\"\">\n</MM_PACKAGE>");
}

TEST(MM_Parser, KeysStandOnlyWhereTheyAreNotEmptyAndFieldsMayHaveNoValues)
{
    const COM_Scoped written(MM_Package::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("a");
    node->setName("n");
    const COM_Scoped field(MM_Field::New("g"));
    const COM_Scoped plain(MM_Value::New());
    const COM_Scoped keyed(MM_Value::New());
    plain->setValue("1");
    keyed->setKey("k");
    keyed->setValue("2");
    field->addToMetaValues(*keyed);
    field->addToMetaValues(*plain);
    node->addToMetaFields(*field);
    node->addAttributeToMetaFields("f", std::vector<long>{});
    written->addToMetaClasses(*node);
    EXPECT_EQ(writingOf(*written), "\n<MM_PACKAGE mRootMetaClassId=\"\">"
                                   "\n\t<MM_CLASS mId=\"a\" mName=\"n\">"
                                   "\n\t\t<MM_FIELD mName=\"f\">"
                                   "\n\t\t</MM_FIELD>"
                                   "\n\t\t<MM_FIELD mName=\"g\">"
                                   "\n\t\t\t<MM_VALUE mKey=\"k\">2</MM_VALUE>"
                                   "\n\t\t\t<MM_VALUE>1</MM_VALUE>"
                                   "\n\t\t</MM_FIELD>"
                                   "\n\t</MM_CLASS>"
                                   "\n</MM_PACKAGE>");
}

TEST(MM_Parser, ConstructorParametersAreNeitherWrittenNorRead)
{
    const COM_Scoped written(MM_Package::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("a");
    node->setName("n");
    node->addToNewParameters(*node);
    written->addToMetaClasses(*node);
    EXPECT_EQ(writingOf(*written), "\n<MM_PACKAGE mRootMetaClassId=\"\">"
                                   "\n\t<MM_CLASS mId=\"a\" mName=\"n\">"
                                   "\n\t</MM_CLASS>"
                                   "\n</MM_PACKAGE>");
    const TestDirectory directory;
    const COM_Scoped read(MM_Package::New());
    const std::string name = directory.write(
        "file", concat({package, R"(<MM_CLASS mId="a" mName="n" mNewParameters="b">)"}));
    EXPECT_EQ(MM_Parser::parseXMLMetaModelFile(name, *read), 0);
    ASSERT_NE(read->getFromMetaClasses("a"), nullptr);
    EXPECT_EQ(read->getFromMetaClasses("a")->getNewParameters(), std::vector<std::string>{});
}

TEST(MM_Parser, NodesStandInTheByteOrderOfTheirIdentities)
{
    const COM_Scoped written(MM_Package::New());
    for (const char* id : {"n@9", "n@10", "M@1"}) {
        const COM_Scoped node(MM_Class::New());
        node->setId(id);
        written->addToMetaClasses(*node);
    }
    const std::string text = writingOf(*written);
    EXPECT_LT(text.find("M@1"), text.find("n@10"));
    EXPECT_LT(text.find("n@10"), text.find("n@9"));
}

TEST(MM_Parser, BytesGoOutRaw)
{
    const std::string text("\"&<>'\n\t\r\351\0\377", 11);
    EXPECT_NE(fileWithValue(text).find("<MM_VALUE>" + text + "</MM_VALUE>"), std::string::npos);
}

TEST(MM_Parser, AGraphIsWrittenObjectByObjectWithTheSameBytes)
{
    const TestDirectory directory;
    const Graph graph;
    COM_Scoped(TestFactory::New())->save(directory.file("whole"), graph.root());
    EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(directory.file("streamed"), graph.root()), 0);
    EXPECT_EQ(directory.read("streamed"), directory.read("whole"));
    EXPECT_NE(directory.read("whole").find("second key"), std::string::npos);
    EXPECT_EQ(graph.root().getReferenceCount(), 2);
}

TEST(MM_Parser, APackageAsRootIsWrittenObjectByObjectToo)
{
    const TestDirectory directory;
    const COM_Scoped root(MM_Package::New());
    for (const char* id : {"a", "b"}) {
        const COM_Scoped node(MM_Class::New());
        node->setId(id);
        node->addAttributeToMetaFields("f", std::vector<long>{1, 2});
        root->addToMetaClasses(*node);
    }
    const MM_Object& object = *root;
    COM_Scoped(MM_ClassFactory::New())->save(directory.file("whole"), object);
    EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(directory.file("streamed"), object), 0);
    EXPECT_EQ(directory.read("streamed"), directory.read("whole"));
    EXPECT_EQ(root->getReferenceCount(), 3);
}

TEST(MM_Parser, AFileThatCannotBeCreatedIsAnnounced)
{
    const TestDirectory directory;
    const COM_Scoped written(MM_Package::New());
    const COM_Scoped node(TestNode::New());
    std::filesystem::create_directory(directory.path() / "inner");
    directory.write("plain", "old text");
    for (const std::string& name :
         {directory.file("missing/file"), directory.file("inner"), directory.file("plain/file")}) {
        const std::string line = "ERROR:" + name + " can not be created !! \n";
        EXPECT_EQ(
            printedBy([&] { EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(name, *written), -1); }),
            line);
        EXPECT_EQ(
            printedBy([&] { EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(name, *node), -1); }),
            line);
    }
    EXPECT_EQ(directory.read("plain"), "old text");
}

TEST(MM_Parser, AFileThatCannotBeFinishedIsAnnouncedToo)
{
    const COM_Scoped written(MM_Package::New());
    const COM_Scoped node(TestNode::New());
    const std::string line = "ERROR:/dev/full can not be created !! \n";
    EXPECT_EQ(printedBy([&] {
                  EXPECT_EQ(MM_Parser::generateXMLMetaModelFile("/dev/full", *written), -1);
              }),
              line);
    EXPECT_EQ(
        printedBy([&] { EXPECT_EQ(MM_Parser::generateXMLMetaModelFile("/dev/full", *node), -1); }),
        line);
}

TEST(MM_Parser, AWriteThatFailsLeavesTheOldFile)
{
    const TestDirectory directory;
    const std::string name = directory.write("file", "old text");
    const COM_Scoped node(TestNode::New(std::string(100000, 'x')));
    EXPECT_EQ(runInChild([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{4096, 4096};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  const COM_Scoped factory(TestFactory::New());
                  factory->save(name, *node);
                  return MM_Parser::generateXMLMetaModelFile(name, *node) == -1 ? 0 : 1;
              }),
              0);
    EXPECT_EQ(directory.read("file"), "old text");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1);
}

TEST(MM_Parser, AWrittenFileReplacesTheOldOneWhole)
{
    const TestDirectory directory;
    const std::string name = directory.write("file", std::string(100000, 'x'));
    EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(name, *COM_Scoped(MM_Package::New())), 0);
    EXPECT_EQ(directory.read("file"), "\n<MM_PACKAGE mRootMetaClassId=\"\">\n</MM_PACKAGE>");
}

#ifndef __SANITIZE_ADDRESS__ // whose shadow memory fits under no limit
TEST(MM_Parser, AValueLongerThanMemoryEndsTheReadingLikeTheEndOfTheFile)
{
    const TestDirectory directory;
    const std::string name = directory.write(
        "file", "<MM_PACKAGE mRootMetaClassId=\"1\"><MM_CLASS mName=\"C\" mId=\"1\">"
                "<MM_FIELD mName=\"before\"><MM_VALUE>7</MM_VALUE></MM_FIELD>"
                "<MM_FIELD mName=\"long\"><MM_VALUE>");
    std::filesystem::resize_file(name, 300'000'000);
    EXPECT_EQ(runInChild([&] {
                  const rlimit limit{200'000'000, 200'000'000};
                  setrlimit(RLIMIT_AS, &limit);
                  const COM_Scoped read(MM_Package::New());
                  const int result = MM_Parser::parseXMLMetaModelFile(name, *read);
                  const MM_Class* const root = read->getRootMetaClass();
                  return result == 0 && root != nullptr && root->getMetaFields().size() == 2 ? 0
                                                                                             : 1;
              }),
              0);
}
#endif

TEST(MM_Parser, AFileThatCannotBeOpenedIsAnnounced)
{
    const TestDirectory directory;
    const COM_Scoped read(MM_Package::New());
    for (const std::string& name : {directory.file("missing"), directory.path().string()}) {
        EXPECT_EQ(printedBy([&] { EXPECT_EQ(MM_Parser::parseXMLMetaModelFile(name, *read), -1); }),
                  "ERROR:" + name + " can not be opened !! \n");
    }
    EXPECT_EQ(Description::textOf(*read), "root -");
}

TEST(MM_Parser, AFileThatYieldsNothingLeavesThePackageUnchanged)
{
    const TestDirectory directory;
    const COM_Scoped read(MM_Package::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("kept");
    read->setRootMetaClass(*node);
    for (const std::string& text :
         {std::string(), concat({"<?xml version=\"1.0\"?>", package, nodeA})}) {
        EXPECT_EQ(printedBy([&] {
                      EXPECT_EQ(
                          MM_Parser::parseXMLMetaModelFile(directory.write("file", text), *read),
                          0);
                  }),
                  "");
        EXPECT_EQ(Description::textOf(*read), "root kept; kept(){}");
    }
}

TEST(MM_Parser, ReadingAddsToWhatThePackageHolds)
{
    const TestDirectory directory;
    const COM_Scoped read(MM_Package::New());
    const std::string name = directory.write("file", concat({package, nodeA, fieldF, valueV}));
    const std::string other = directory.write(
        "other", "<MM_PACKAGE mRootMetaClassId=\"b\"><MM_CLASS mId=\"b\"><MM_CLASS mId=\"a\">");
    EXPECT_EQ(MM_Parser::parseXMLMetaModelFile(name, *read), 0);
    EXPECT_EQ(MM_Parser::parseXMLMetaModelFile(other, *read), 0);
    EXPECT_EQ(Description::textOf(*read), "root b; a(n){f=[v]}; b(){}");
}

TEST_P(MM_ParserReadTest, AFileIsReadAsTheGrammarSays)
{
    EXPECT_EQ(readingOf(GetParam().mText), GetParam().mReading);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MM_ParserReadTest,
    testing::Values(
        ReadCase{"Empty", "", "root -"},      //
        ReadCase{"LoneAngle", "<", "root -"}, //
        ReadCase{"NoTag", "some text", "root -"},
        ReadCase{"ForeignTag", concat({"<HTML>", package, nodeA}), "root -"},
        ReadCase{"SmallLetters", "<mm_package mRootMetaClassId=\"a\">", "root -"},
        ReadCase{"Prolog", concat({"<?xml version=\"1.0\"?>\n", package, nodeA}), "root -"},
        ReadCase{"Comment", concat({"<!-- c -->", package, nodeA}), "root -"},
        ReadCase{"EndTagFirst", concat({"</MM_CLASS>", package, nodeA}), "root a; a(n){}"},
        ReadCase{"TextBefore", concat({"text", package, "text", nodeA, "text"}), "root a; a(n){}"},
        ReadCase{"PackageAlone", package, "root -"},
        ReadCase{"NoEndTags", concat({package, nodeA, fieldF, valueV}), "root a; a(n){f=[v]}"},
        ReadCase{"WrongEndTags",
                 concat({package, "</X>", nodeA, "</MM_VALUE></MM_PACKAGE>", fieldF, "</MM_CLASS>",
                         valueV, "</MM_CLASS>"}),
                 "root a; a(n){f=[v]}"},
        ReadCase{"FieldBehindItsClass", concat({package, nodeA, "</MM_CLASS>", fieldF, valueV}),
                 "root a; a(n){f=[v]}"},
        ReadCase{"BlanksInTags",
                 concat({"<\n MM_PACKAGE\tmRootMetaClassId\n=\t\"a\"\n>", "< MM_CLASS  mId = \"a\"",
                         "  mName=  \"n\" >", fieldF, "<MM_VALUE  >v</ MM_VALUE >"}),
                 "root a; a(n){f=[v]}"},
        ReadCase{
            "CarriageReturnsBetweenTags",
            concat({package, "\r\n", nodeA, "\r\n", fieldF, "\r\n", valueV, "\r\n</MM_FIELD>\r\n"}),
            "root a; a(n){f=[v]}"},
        ReadCase{"CarriageReturnInAValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE>v\r\n</MM_VALUE>"}),
                 "root a; a(n){f=[v\r\n]}"},
        ReadCase{"CarriageReturnInATag", concat({package, "<MM_CLASS\r\n mId=\"a\">"}), "root -"},
        ReadCase{"AnglesEndNames", concat({package, "<MM_CLASS<mId<\"a\">"}), "root a; a(){}"},
        ReadCase{"QuotesEndNames", concat({package, "<MM_CLASS\"mId\"x\"a\">"}), "root a; a(){}"},
        ReadCase{"EqualSignsEndNames", concat({package, "<MM_CLASS=mId=\"a\">"}), "root a; a(){}"},
        ReadCase{"AttributesInAnyOrder",
                 concat({package, "<MM_CLASS mName=\"n\" foreign=\"x\" mId=\"a\">"}),
                 "root a; a(n){}"},
        ReadCase{"TheLastOfEqualAttributes",
                 concat({package, "<MM_CLASS mId=\"x\" mName=\"n\" mId=\"a\">"}), "root a; a(n){}"},
        ReadCase{"AttributeWithoutValueAtTheEnd", concat({package, "<MM_CLASS mId=\"a\" mName>"}),
                 "root a; a(){}"},
        ReadCase{"AttributeWithoutValueBefore",
                 concat({package, "<MM_CLASS mName mId=\"a\" mId=\"a\">"}), "root a; a(a){}"},
        ReadCase{"SelfClosed", concat({package, "<MM_CLASS mId=\"a\"/>", fieldF}),
                 "root a; a(){f=[]}"},
        ReadCase{"QuoteInAnAttribute",
                 concat({package, "<MM_CLASS mId=\"a\" mName=\"n\"m\">", fieldF, valueV}),
                 "root a; a(n){}"},
        ReadCase{"AngleInAnAttribute", concat({package, "<MM_CLASS mId=\"a\" mName=\"<n>\">"}),
                 "root a; a(<n>){}"},
        ReadCase{"NewlineInAnAttribute", concat({package, "<MM_CLASS mId=\"a\" mName=\"n\n\">"}),
                 "root a; a(n\n){}"},
        ReadCase{"NoRootAttribute", concat({"<MM_PACKAGE>", nodeA}), "root -; a(n){}"},
        ReadCase{"UnknownRoot", concat({"<MM_PACKAGE mRootMetaClassId=\"b\">", nodeA}),
                 "root -; a(n){}"},
        ReadCase{"RootSecond", concat({package, "<MM_CLASS mId=\"b\">", nodeA}),
                 "root a; a(n){}; b(){}"},
        ReadCase{"SecondPackage",
                 concat({package, nodeA, "</MM_PACKAGE>", package, "<MM_CLASS mId=\"b\">"}),
                 "root a; a(n){}"},
        ReadCase{"UnknownTagEndsAll",
                 concat({package, nodeA, fieldF, valueV, "<X>", valueV, fieldF, nodeA}),
                 "root a; a(n){f=[v]}"},
        ReadCase{"ValueWithoutField", concat({package, nodeA, valueV, fieldF}), "root a; a(n){}"},
        ReadCase{"FieldWithoutClass", concat({package, fieldF, nodeA}), "root -"},
        ReadCase{"SecondNodeOfAnIdentity",
                 concat({package, nodeA, fieldF, "<MM_CLASS mId=\"a\" mName=\"x\">",
                         "<MM_FIELD mName=\"g\">", "<MM_CLASS mId=\"b\">", fieldF}),
                 "root a; a(n){f=[]}; b(){f=[]}"},
        ReadCase{"SecondFieldOfAName",
                 concat({package, nodeA, fieldF, valueV, fieldF, valueV, valueV}),
                 "root a; a(n){f=[v]}"},
        ReadCase{"KeyedValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE mKey=\"k\">v</MM_VALUE>"}),
                 "root a; a(n){f=[k:v]}"},
        ReadCase{"ValueAttributeIsNoValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE mValue=\"x\">v</MM_VALUE>"}),
                 "root a; a(n){f=[v]}"},
        ReadCase{"EmptyValue", concat({package, nodeA, fieldF, "<MM_VALUE></MM_VALUE>", valueV}),
                 "root a; a(n){f=[|v]}"},
        ReadCase{"UnfinishedValue", concat({package, nodeA, fieldF, valueV, "<MM_VALUE>lost"}),
                 "root a; a(n){f=[v|]}"},
        ReadCase{"UnfinishedEndTag", concat({package, nodeA, fieldF, "<MM_VALUE>lost</MM_VALUE"}),
                 "root a; a(n){f=[]}"},
        ReadCase{"UnfinishedLoneAngle", concat({package, nodeA, fieldF, "<MM_VALUE>lost<"}),
                 "root a; a(n){f=[]}"},
        ReadCase{"UnfinishedTag", concat({package, nodeA, "<MM_FIELD mName=\"f\""}),
                 "root a; a(n){}"},
        ReadCase{"UnfinishedAttribute", concat({package, nodeA, "<MM_FIELD mName=\"f"}),
                 "root a; a(n){}"},
        ReadCase{"UnfinishedName", concat({package, nodeA, "<MM_FIELD"}), "root a; a(n){}"},
        ReadCase{"LoneAngleInAValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE>a < b</MM_VALUE>"}),
                 "root a; a(n){f=[a < b]}"},
        ReadCase{"LoneAngleAtTheEndOfAValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE>a<</MM_VALUE>"}),
                 "root a; a(n){f=[a<]}"},
        ReadCase{"StartTagInAValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE>a<MM_VALUE>b</MM_VALUE>", valueV}),
                 "root a; a(n){f=[a<MM_VALUE>b|v]}"},
        ReadCase{"ForeignEndTagInAValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE>a</b>c</d>e</MM_VALUE>"}),
                 "root a; a(n){f=[ace]}"},
        ReadCase{"ForeignEndTagWithAttribute",
                 concat({package, nodeA, fieldF, "<MM_VALUE>a</b x>c</MM_VALUE>"}),
                 "root a; a(n){f=[ax>c]}"},
        ReadCase{"EndTagOfTheFieldInAValue",
                 concat({package, nodeA, fieldF, "<MM_VALUE>a</MM_FIELD>b</MM_VALUE>"}),
                 "root a; a(n){f=[ab]}"},
        ReadCase{"AngleAndSlashApart",
                 concat({package, nodeA, fieldF, "<MM_VALUE>a< /b></MM_VALUE>"}),
                 "root a; a(n){f=[a< /b>]}"},
        ReadCase{"HighBytes", concat({package, nodeA, fieldF, "<MM_VALUE>\351\377</MM_VALUE>"}),
                 "root a; a(n){f=[\351\377]}"}));

TEST(MM_Parser, ZeroBytesStayInAValue)
{
    const std::string value("a\0b", 3);
    EXPECT_EQ(readingOf(fileWithValue(value)), "root a; a(n){f=[" + value + "]}");
}

TEST(MM_Parser, ANodeWithoutIdentityIsAnnouncedAndStandsUnderTheEmptyKey)
{
    const std::string reading = readingOf("<MM_PACKAGE><MM_CLASS mName=\"n\">");
    const std::string start = "WARNING id of meta class 8MM_Class@";
    ASSERT_TRUE(reading.starts_with(start)) << reading;
    const std::string number =
        reading.substr(start.size(), reading.find(' ', start.size()) - start.size());
    const std::string warning = start + number
                                + " is empty !! can not be added to the package.\n"
                                  "Set the id of the class to the instance class id it refers.\n";
    // Once from each end of the link, and once more when the node becomes the root.
    EXPECT_EQ(reading, warning + warning + warning + "root ; (n){}");
}

TEST(MM_Parser, AFieldWithoutNameIsAnnouncedAndStandsUnderTheEmptyKey)
{
    const std::string reading = readingOf(concat({package, nodeA, "<MM_FIELD>", valueV}));
    const std::string warning = "WARNING id of meta field 8MM_Field@";
    ASSERT_TRUE(reading.starts_with(warning)) << reading;
    EXPECT_EQ(reading.substr(reading.find(' ', warning.size())),
              " is empty !! can not be added to the class fields.\n"
              "Set the id of the field to the instance class field name it refers.\n"
              "root a; a(n){=[v]}");
}

TEST(MM_Parser, EveryValueWithoutEndTagsComesBackFromItsFile)
{
    const TestDirectory directory;
    std::mt19937 random(8);
    const std::string letters = "a <>\"=\n\t\r&;\351";
    std::vector<std::string> values(500);
    for (std::string& value : values) {
        for (unsigned n = random() % 12; n > 0; --n) {
            value += letters[random() % letters.size()];
        }
    }
    const COM_Scoped node(MM_Class::New());
    node->setId("a");
    node->addAttributeToMetaFields("f", values);
    const COM_Scoped written(MM_Package::New());
    written->addToMetaClasses(*node);
    EXPECT_EQ(MM_Parser::generateXMLMetaModelFile(directory.file("file"), *written), 0);
    const COM_Scoped read(MM_Package::New());
    EXPECT_EQ(MM_Parser::parseXMLMetaModelFile(directory.file("file"), *read), 0);
    ASSERT_NE(read->getFromMetaClasses("a"), nullptr);
    std::vector<std::string> readValues;
    read->getFromMetaClasses("a")->getAttributeFromMetaFields("f", readValues);
    EXPECT_EQ(readValues, values);
}

TEST(MM_Parser, AnyNumberOfEndTagsIsPassedOver)
{
    std::string endTags;
    for (int i = 0; i < 200000; ++i) {
        endTags += "</x>";
    }
    EXPECT_EQ(
        readingOf(concat({package, endTags, nodeA, fieldF, "<MM_VALUE>v", endTags, "</MM_VALUE>"})),
        "root a; a(n){f=[v]}");
}

TEST(MM_Parser, LongNamesAndValuesAreReadWhole)
{
    const std::string name(1000000, 'n');
    EXPECT_EQ(readingOf(concat({package, "<MM_CLASS mId=\"a\" mName=\"", name, "\">", fieldF,
                                "<MM_VALUE>", name, "</MM_VALUE>", "<", name, ">"})),
              "root a; a(" + name + "){f=[" + name + "]}");
}

TEST(MM_Parser, ManyValuesOfOneFieldAreReadInTheirOrder)
{
    constexpr unsigned long count = 302500; // a matrix of 550 by 550
    std::string text = concat({package, nodeA, fieldF});
    std::vector<unsigned long> expected;
    for (unsigned long i = 0; i < count; ++i) {
        text += "<MM_VALUE>" + std::to_string(i) + "</MM_VALUE>";
        expected.push_back(i);
    }
    const TestDirectory directory;
    const COM_Scoped result(MM_Package::New());
    EXPECT_EQ(MM_Parser::parseXMLMetaModelFile(directory.write("file", text), *result), 0);
    std::vector<unsigned long> values;
    result->getFromMetaClasses("a")->getFromMetaFields("f")->getFromMetaValues(values);
    EXPECT_EQ(values, expected);
}

TEST(MM_Parser, AFileCutAtAnyByteIsReadUpToThere)
{
    const TestDirectory directory;
    const Graph graph;
    COM_Scoped(TestFactory::New())->save(directory.file("whole"), graph.root());
    const std::string whole = directory.read("whole");
    const COM_Scoped read(MM_Package::New());
    unsigned long most = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        std::filesystem::remove(directory.file("file"));
        const std::string name = directory.write("file", whole.substr(0, length));
        read->resetMetaClasses();
        ASSERT_EQ(MM_Parser::parseXMLMetaModelFile(name, *read), 0) << length;
        const COM_Scoped nodes(COM_Array<MM_Class>::New());
        read->getMetaClasses(*nodes);
        // What is there is never lost again by a longer text.
        ASSERT_GE(nodes->size(), most) << length;
        most = nodes->size();
    }
    EXPECT_EQ(most, 3UL);
    EXPECT_EQ(readingOf(whole), Description::textOf(*read));
}

TEST(MM_Parser, AGraphCutAtAnyByteLoadsWithoutHarm)
{
    const TestDirectory directory;
    const Graph graph;
    COM_Scoped(TestFactory::New())->save(directory.file("whole"), graph.root());
    const std::string whole = directory.read("whole");
    const unsigned long before = TestNode::getLivingNumber();
    printedBy([&] {
        for (std::size_t length = 0; length < whole.size(); ++length) {
            loadAndRelease(directory, whole.substr(0, length));
        }
    });
    EXPECT_EQ(TestNode::getLivingNumber(), before);
}

TEST(MM_Parser, AGraphWithAnyByteSpoiledLoadsWithoutHarm)
{
    const TestDirectory directory;
    const COM_Scoped node(TestNode::New("name"));
    node->mReals = {1.0};
    const COM_Scoped next(MM_Field::New("f"));
    node->setNext(next.get());
    COM_Scoped(TestFactory::New())->save(directory.file("whole"), *node);
    const std::string whole = directory.read("whole");
    const unsigned long before = TestNode::getLivingNumber();
    printedBy([&] {
        for (std::size_t i = 0; i < whole.size(); ++i) {
            for (const char letter : {'<', '>', '"', '\0'}) {
                std::string spoiled = whole;
                spoiled[i] = letter;
                loadAndRelease(directory, spoiled);
            }
        }
    });
    EXPECT_EQ(TestNode::getLivingNumber(), before);
}

TEST(MM_Parser, NodesLinkedAtRandomLoadWithoutHarm)
{
    const TestDirectory directory;
    std::mt19937 random(9);
    const unsigned long before = TestNode::getLivingNumber();
    const std::vector<std::string> names{"8TestNode", "8MM_Class", "15MM_ClassFactory",
                                         "8MM_Field", "8MM_Value", "7Unknown"};
    const std::vector<std::string> fields{
        "mMetaPackage",   "mMetaFields", "mMetaClasses", "mValues", "mName", "mId",
        "mNewParameters", "mKey",        "mValue",       "mNext",   "mMany", "mByKey"};
    printedBy([&] {
        for (int i = 0; i < 400; ++i) {
            const unsigned count = 1 + random() % 6;
            std::string text = "<MM_PACKAGE mRootMetaClassId=\"0\">";
            for (unsigned node = 0; node < count; ++node) {
                text += "<MM_CLASS mId=\"" + std::to_string(node) + "\" mName=\""
                        + names[random() % names.size()] + "\">";
                for (const std::string& field : fields) {
                    if (random() % 3 == 0) {
                        continue;
                    }
                    text += "<MM_FIELD mName=\"" + field + "\">";
                    for (unsigned value = random() % 3; value > 0; --value) {
                        text += "<MM_VALUE mKey=\"" + std::to_string(random() % 2) + "\">"
                                + std::to_string(random() % (count + 1)) + "</MM_VALUE>";
                    }
                }
            }
            loadAndRelease(directory, text);
        }
    });
    EXPECT_EQ(TestNode::getLivingNumber(), before);
}

TEST(MM_Parser, AChainOfAnyDepthInAFileIsCut)
{
    const TestDirectory directory;
    std::string text = "<MM_PACKAGE mRootMetaClassId=\"0\">";
    for (int i = 0; i < 20000; ++i) {
        const std::string next = std::to_string(i + 1);
        text += "<MM_CLASS mId=\"" + std::to_string(i) + "\" mName=\""
                + (i % 2 == 0 ? "8MM_Class\"><MM_FIELD mName=\"mMetaPackage\">"
                              : "15MM_ClassFactory\"><MM_FIELD mName=\"mMetaClasses\">")
                + "<MM_VALUE>" + next + "</MM_VALUE>";
    }
    const COM_Scoped factory(MM_ClassFactory::New());
    directory.write("file", text);
    MM_Object* object = nullptr;
    const std::string printed = printedBy([&] { object = factory->load(directory.file("file")); });
    ASSERT_NE(object, nullptr);
    object->Delete();
    EXPECT_NE(printed.find("impossible to create an instance of "), std::string::npos);
}

TEST(MM_Parser, NoLocaleChangesAFile)
{
    const TestDirectory directory;
    const Graph graph;
    COM_Scoped(TestFactory::New())->save(directory.file("plain"), graph.root());
    const CommaLocale locale;
    COM_Scoped(TestFactory::New())->save(directory.file("file"), graph.root());
    EXPECT_EQ(directory.read("file"), directory.read("plain"));
    const COM_Scoped factory(TestFactory::New());
    const COM_Scoped object(factory->load(directory.file("file")));
    auto* const root = dynamic_cast<TestNode*>(object.get());
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->mReal, 0.1234568);
    EXPECT_EQ(root->mReals, (std::vector<double>{1.0, -2.5, 1e100}));
    for (unsigned long i = 0; i < root->many().size(); ++i) {
        root->many()[i].resetLinks();
    }
    root->resetLinks();
}
