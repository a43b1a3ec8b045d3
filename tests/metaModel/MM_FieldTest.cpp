#include "metaModel/MM_Field.h"

#include "common/COM_Scoped.h"
#include "support/CaseName.h"
#include "support/Description.h"
#include "support/Locales.h"
#include "support/Printed.h"
#include "support/TestNode.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <string>
#include <vector>

namespace {

/// A text, and what each type makes of it.
struct CastCase
{
    const char* mText;
    bool mBool;
    unsigned char mByte;
    unsigned long mUnsigned;
    long mLong;
    double mDouble;
};

void PrintTo(const CastCase& row, std::ostream* out)
{
    *out << caseName(row.mText);
}

class MM_FieldCastTest : public testing::TestWithParam<CastCase>
{};

} // namespace

TEST(MM_Field, ANewFieldHasNoValues)
{
    const COM_Scoped field(MM_Field::New());
    EXPECT_EQ(field->getReferenceCount(), 1);
    EXPECT_EQ(field->getName(), "");
    EXPECT_EQ(field->getCardinality(), 0UL);
    EXPECT_EQ(field->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Field"}));
    EXPECT_EQ(field->getClassName(), "8MM_Field");
}

TEST(MM_Field, ANameMayBeGivenAtOnceOrLater)
{
    const COM_Scoped field(MM_Field::New("mName"));
    EXPECT_EQ(field->getName(), "mName");
    field->setName("mOther");
    EXPECT_EQ(field->getName(), "mOther");
}

TEST(MM_Field, AnAddedValueGetsAReferenceThatEndsWithTheField)
{
    const COM_Scoped value(MM_Value::New());
    auto* const field = MM_Field::New("f");
    field->addToMetaValues(*value);
    EXPECT_EQ(value->getReferenceCount(), 2);
    EXPECT_EQ(field->getCardinality(), 1UL);
    EXPECT_EQ(field->getMetaValues().get(0), value.get());
    field->Delete();
    EXPECT_EQ(value->getReferenceCount(), 1);
}

TEST(MM_Field, AValueThatIsThereAlreadyIsIgnoredAndSoIsANull)
{
    const COM_Scoped value(MM_Value::New());
    const COM_Scoped twin(MM_Value::New());
    const COM_Scoped field(MM_Field::New("f"));
    field->addToMetaValues(value.get());
    field->addToMetaValues(*value);
    field->addToMetaValues(nullptr);
    EXPECT_EQ(field->getCardinality(), 1UL);
    EXPECT_EQ(value->getReferenceCount(), 2);
    field->addToMetaValues(*twin);
    EXPECT_EQ(field->getCardinality(), 2UL);
}

TEST(MM_Field, ARemovedValueIsReleased)
{
    const COM_Scoped value(MM_Value::New());
    const COM_Scoped other(MM_Value::New());
    const COM_Scoped field(MM_Field::New("f"));
    field->addToMetaValues(*value);
    field->removeFromMetaValues(*other);
    EXPECT_EQ(field->getCardinality(), 1UL);
    field->removeFromMetaValues(*value);
    EXPECT_EQ(field->getCardinality(), 0UL);
    EXPECT_EQ(value->getReferenceCount(), 1);
}

TEST(MM_Field, AResetReleasesAllValues)
{
    const COM_Scoped value(MM_Value::New());
    const COM_Scoped field(MM_Field::New("f"));
    field->addToMetaValues(*value);
    field->setMetaValues(std::vector<long>{1, 2});
    field->resetMetaValues();
    EXPECT_EQ(field->getCardinality(), 0UL);
    EXPECT_EQ(value->getReferenceCount(), 1);
}

TEST(MM_Field, ElementsOfEveryTypeAreStoredAsTheirTexts)
{
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(std::vector<std::string>{"a", ""});
    field->setMetaValues(std::vector<bool>{true, false});
    field->setMetaValues(std::vector<unsigned char>{0, 65, 255});
    field->setMetaValues(std::vector<unsigned long>{7, ~0UL});
    field->setMetaValues(std::vector<long>{-7});
    field->setMetaValues(std::vector<double>{0.1234567891, -1e100});
    field->setMetaValues(std::vector<std::complex<double>>{{1.0, -2.0}});
    EXPECT_EQ(Description::textOf(*field),
              "[a||1|0|0|65|255|7|-1|-7|1.234568e-01|-1.000000e+100|(1.000000e+00,-2.000000e+00)]");
}

TEST(MM_Field, StoringElementsAppendsAndDoesNotReplace)
{
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(std::vector<long>{1, 2});
    field->setMetaValues(std::vector<long>{3});
    field->setMetaValues(std::vector<long>{});
    EXPECT_EQ(Description::textOf(*field), "[1|2|3]");
}

TEST(MM_Field, EveryStoredValueBelongsToTheFieldAlone)
{
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(std::vector<long>{1});
    EXPECT_EQ(field->getMetaValues()[0].getReferenceCount(), 1);
}

TEST(MM_Field, AnObjectIsStoredAsItsIdentity)
{
    const COM_Scoped node(TestNode::New());
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(*node);
    field->setMetaValues(*node);
    EXPECT_EQ(Description::textOf(*field),
              "[" + node->getIdentityString() + "|" + node->getIdentityString() + "]");
    EXPECT_EQ(node->getReferenceCount(), 1);
}

TEST(MM_Field, AnArrayIsStoredAsTheIdentitiesOfItsElementsWithoutEmptySlots)
{
    const COM_Scoped one(TestNode::New());
    const COM_Scoped other(TestNode::New());
    const COM_Scoped array(COM_Array<TestNode>::New());
    array->add(*other);
    array->set(2, *one);
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(*array);
    EXPECT_EQ(Description::textOf(*field),
              "[" + other->getIdentityString() + "|" + one->getIdentityString() + "]");
}

TEST(MM_Field, AMapIsStoredAsIdentitiesWithTheTextsOfTheirKeys)
{
    const COM_Scoped node(TestNode::New());
    const std::string id = node->getIdentityString();
    const COM_Scoped byText(COM_Map<std::string, TestNode>::New());
    byText->put("b", *node);
    byText->put("a", *node);
    const COM_Scoped byNumber(COM_Map<unsigned long, TestNode>::New());
    byNumber->put(10, *node);
    byNumber->put(9, *node);
    const COM_Scoped byByte(COM_Map<unsigned char, TestNode>::New());
    byByte->put('A', *node);
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(*byText);
    field->setMetaValues(*byNumber);
    field->setMetaValues(*byByte);
    EXPECT_EQ(Description::textOf(*field),
              "[a:" + id + "|b:" + id + "|9:" + id + "|10:" + id + "|65:" + id + "]");
}

TEST(MM_Field, TheFirstValueIsCopiedAndWithoutOneTheTextStays)
{
    const COM_Scoped field(MM_Field::New("f"));
    std::string text = "before";
    field->getFromMetaValue(text);
    EXPECT_EQ(text, "before");
    field->setMetaValues(std::vector<std::string>{"first", "second"});
    field->getFromMetaValue(text);
    EXPECT_EQ(text, "first");
}

TEST(MM_Field, AllValuesReplaceTheContentsOfAVector)
{
    const COM_Scoped field(MM_Field::New("f"));
    std::vector<long> numbers{9, 9, 9};
    field->getFromMetaValues(numbers);
    EXPECT_EQ(numbers, std::vector<long>{});
    field->setMetaValues(std::vector<std::string>{"1", "x", "-3"});
    numbers = {9};
    field->getFromMetaValues(numbers);
    EXPECT_EQ(numbers, (std::vector<long>{1, 0, -3}));
    std::vector<bool> flags;
    field->getFromMetaValues(flags);
    EXPECT_EQ(flags, (std::vector<bool>{true, false, true}));
    std::vector<std::string> texts;
    field->getFromMetaValues(texts);
    EXPECT_EQ(texts, (std::vector<std::string>{"1", "x", "-3"}));
}

TEST(MM_Field, AllValuesReplaceTheContentsOfAnArrayOfTexts)
{
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(std::vector<std::string>{"a", "b"});
    const COM_Scoped old(COM_String::New("old"));
    const COM_Scoped texts(COM_Array<COM_String>::New());
    texts->add(*old);
    field->getFromMetaValues(*texts);
    EXPECT_EQ(texts->toString(), "0:a\n1:b\n");
    EXPECT_EQ(old->getReferenceCount(), 1);
    EXPECT_EQ((*texts)[0].getReferenceCount(), 1);
}

TEST_P(MM_FieldCastTest, EachTypeReadsATextInItsOwnWay)
{
    const CastCase& row = GetParam();
    EXPECT_EQ(MM_Field::cast<std::string>(row.mText), row.mText);
    EXPECT_EQ(MM_Field::cast<bool>(row.mText), row.mBool);
    EXPECT_EQ(MM_Field::cast<unsigned char>(row.mText), row.mByte);
    EXPECT_EQ(MM_Field::cast<unsigned long>(row.mText), row.mUnsigned);
    EXPECT_EQ(MM_Field::cast<long>(row.mText), row.mLong);
    EXPECT_EQ(MM_Field::cast<double>(row.mText), row.mDouble);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MM_FieldCastTest,
    testing::Values(CastCase{"", false, 0, 0, 0, 0.0}, CastCase{"0", false, 0, 0, 0, 0.0},
                    CastCase{"1", true, 1, 1, 1, 1.0}, CastCase{"2", true, 2, 2, 2, 2.0},
                    CastCase{"-1", true, 255, ~0UL, -1, -1.0},
                    CastCase{"300", true, 44, 300, 300, 300.0},
                    CastCase{"true", false, 0, 0, 0, 0.0}, CastCase{"1.5D3", true, 1, 1, 1, 1500.0},
                    CastCase{" 7", true, 7, 7, 7, 7.0}, CastCase{"7x", true, 7, 7, 7, 7.0},
                    CastCase{"0.5", false, 0, 0, 0, 0.5}));

TEST(MM_Field, ComplexValuesAreReadFromTheirParentheses)
{
    EXPECT_EQ(MM_Field::cast<std::complex<double>>("(1.000000e+00,-2.5d0)"),
              std::complex<double>(1.0, -2.5));
    EXPECT_EQ(MM_Field::cast<std::complex<double>>("3"), std::complex<double>(0.0, 0.0));
}

TEST(MM_Field, ARealComesBackWithSevenDigits)
{
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(std::vector<double>{0.1234567891, INFINITY, -0.0});
    std::vector<double> read;
    field->getFromMetaValues(read);
    EXPECT_EQ(read, (std::vector<double>{0.1234568, INFINITY, -0.0}));
    EXPECT_TRUE(std::signbit(read[2]));
}

TEST(MM_Field, NoLocaleChangesAStoredText)
{
    const CommaLocale locale;
    const COM_Scoped field(MM_Field::New("f"));
    field->setMetaValues(std::vector<double>{1234.5});
    field->setMetaValues(std::vector<unsigned long>{1234567});
    EXPECT_EQ(Description::textOf(*field), "[1.234500e+03|1234567]");
    std::vector<double> read;
    field->getFromMetaValues(read);
    EXPECT_EQ(read, (std::vector<double>{1234.5, 1234567.0}));
}

TEST(MM_Field, TheKeysAreFrozen)
{
    const COM_Scoped field(MM_Field::New("mTimeStep"));
    field->setMetaValues(std::vector<double>{1.5});
    EXPECT_EQ(Description(*field).text(), "{mName=[mTimeStep] mValues=["
                                              + field->getMetaValues()[0].getIdentityString()
                                              + "]}");
}

TEST(MM_Field, MissingKeysAreAnnounced)
{
    const COM_Scoped field(MM_Field::New("old"));
    field->setMetaValues(std::vector<long>{1});
    const COM_Scoped package(MM_Package::New());
    const COM_Scoped node(MM_Class::New());
    node->setName("8MM_Field");
    node->setId("id");
    package->addToMetaClasses(*node);
    EXPECT_EQ(printedBy([&] { field->loadFromMetaClass(*node); }),
              "no attribute mName stored in class 8MM_Field.\n"
              "no association mValues stored in class 8MM_Field.\n");
    EXPECT_EQ(field->getName(), "old");
}
