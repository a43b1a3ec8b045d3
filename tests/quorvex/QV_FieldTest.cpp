#include "quorvex/QV_Field.h"

#include "common/COM_Scoped.h"
#include "support/Description.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;

Values valuesOf(const QV_Field& field)
{
    return {field.getValues(), field.getValues() + field.getSize() * field.getDimension()};
}

/// A field of three cells of two components: 1 to 6.
class QV_FieldTest : public testing::Test
{
protected:
    QV_FieldTest() { mField->setValues(Values{1, 2, 3, 4, 5, 6}.data(), 3, 2); }
    void expect(unsigned long size, unsigned long dimension, const Values& values) const
    {
        EXPECT_EQ(mField->getSize(), size);
        EXPECT_EQ(mField->getDimension(), dimension);
        EXPECT_EQ(valuesOf(*mField), values);
    }

    const COM_Scoped<QV_Field> mField{QV_Field::New(3, 2)};
};

} // namespace

TEST_F(QV_FieldTest, ANewFieldIsZeroEverywhere)
{
    const COM_Scoped field(QV_Field::New(4, 3));
    EXPECT_EQ(field->getReferenceCount(), 1);
    EXPECT_EQ(field->getSize(), 4UL);
    EXPECT_EQ(field->getDimension(), 3UL);
    EXPECT_EQ(valuesOf(*field), Values(12, 0.0));
    EXPECT_EQ(field->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "QV_Object", "QV_Field"}));
}

TEST_F(QV_FieldTest, AFieldWithoutCellsOrComponentsHoldsNothing)
{
    const COM_Scoped noCells(QV_Field::New(0, 2));
    const COM_Scoped noComponents(QV_Field::New(2, 0));
    EXPECT_EQ(valuesOf(*noCells), Values{});
    EXPECT_EQ(valuesOf(*noComponents), Values{});
}

TEST_F(QV_FieldTest, TheComponentsOfACellLieSideBySide)
{
    EXPECT_EQ(mField->getValue(1), mField->getValues() + 2);
    EXPECT_EQ(mField->getValue(1, 0), 3.0);
    EXPECT_EQ(mField->getValue(1, 1), 4.0);
    EXPECT_EQ((*mField)[2][1], 6.0);
    (*mField)[2][0] = 9.0;
    expect(3, 2, {1, 2, 3, 4, 9, 6});
    const QV_Field& constant = *mField;
    EXPECT_EQ(constant[2], constant.getValue(2));
    EXPECT_EQ(constant.getValues()[4], 9.0);
}

TEST_F(QV_FieldTest, InitValuesGivesEveryComponentTheSameValue)
{
    mField->initValues(-0.5);
    expect(3, 2, Values(6, -0.5));
}

TEST_F(QV_FieldTest, MoreValuesThanThereIsRoomForReplaceTheArrayAndTheSizes)
{
    mField->setValues(Values{7, 8, 9, 10, 11, 12, 13, 14}.data(), 2, 4);
    expect(2, 4, {7, 8, 9, 10, 11, 12, 13, 14});
}

TEST_F(QV_FieldTest, FewerValuesLeaveTheSizesAndClearTheRest)
{
    mField->setValues(Values{7, 8, 9, 10}.data(), 4, 1);
    expect(3, 2, {7, 8, 9, 10, 0, 0});
}

TEST_F(QV_FieldTest, AsManyValuesInAnotherShapeLeaveTheSizes)
{
    mField->setValues(Values{7, 8, 9, 10, 11, 12}.data(), 6, 1);
    expect(3, 2, {7, 8, 9, 10, 11, 12});
}

TEST_F(QV_FieldTest, NoValuesAtAllClearTheField)
{
    mField->setValues(nullptr, 0, 2);
    expect(3, 2, Values(6, 0.0));
}

TEST_F(QV_FieldTest, TheValuesOfAnotherFieldAreTakenByTheSameRules)
{
    const COM_Scoped larger(QV_Field::New(2, 4));
    larger->initValues(2.0);
    mField->setValues(*larger);
    expect(2, 4, Values(8, 2.0));
    const COM_Scoped smaller(QV_Field::New(1, 3));
    smaller->initValues(5.0);
    mField->setValues(*smaller);
    expect(2, 4, {5, 5, 5, 0, 0, 0, 0, 0});
}

TEST_F(QV_FieldTest, TakingItsOwnValuesChangesNothing)
{
    mField->setValues(*mField);
    expect(3, 2, {1, 2, 3, 4, 5, 6});
}

TEST_F(QV_FieldTest, ACopyIsIndependentOfItsOriginal)
{
    const COM_Scoped copy(QV_Field::New(*mField));
    mField->initValues(0.0);
    EXPECT_EQ(copy->getReferenceCount(), 1);
    EXPECT_EQ(copy->getSize(), 3UL);
    EXPECT_EQ(copy->getDimension(), 2UL);
    EXPECT_EQ(valuesOf(*copy), (Values{1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(copy->instanceOf("QV_Field"));
}

namespace {

struct Resizing
{
    std::string mName;
    unsigned long mSize;
    unsigned long mDimension;
    Values mValues;

    friend std::ostream& operator<<(std::ostream& out, const Resizing& tested)
    {
        return out << tested.mName;
    }
};

class QV_FieldResizingTest : public QV_FieldTest, public testing::WithParamInterface<Resizing>
{};

} // namespace

TEST_P(QV_FieldResizingTest, SetDimensionsKeepsTheCommonCellsAndComponents)
{
    mField->setDimensions(GetParam().mSize, GetParam().mDimension);
    expect(GetParam().mSize, GetParam().mDimension, GetParam().mValues);
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, QV_FieldResizingTest,
    testing::Values(Resizing{"Same", 3, 2, {1, 2, 3, 4, 5, 6}},
                    Resizing{"MoreCells", 4, 2, {1, 2, 3, 4, 5, 6, 0, 0}},
                    Resizing{"FewerCells", 2, 2, {1, 2, 3, 4}},
                    Resizing{"MoreComponents", 3, 3, {1, 2, 0, 3, 4, 0, 5, 6, 0}},
                    Resizing{"FewerComponents", 3, 1, {1, 3, 5}},
                    Resizing{"SameNumberOtherShape", 2, 3, {1, 2, 0, 3, 4, 0}},
                    Resizing{"NoCells", 0, 2, {}}, Resizing{"NoComponents", 3, 0, {}}),
    [](const auto& resizing) { return resizing.param.mName; });

// ---------------------------------------------------------------- persistence

TEST_F(QV_FieldTest, ADescriptionHoldsTheSizesAndAllValues)
{
    EXPECT_EQ(Description(*mField).text(),
              "{mDimension=[2] mSize=[3] mValues=[1.000000e+00|2.000000e+00|3.000000e+00|"
              "4.000000e+00|5.000000e+00|6.000000e+00]}");
}

TEST_F(QV_FieldTest, AFieldIsRestoredFromItsDescription)
{
    const COM_Scoped restored(QV_Field::New(0, 0));
    EXPECT_EQ(printedBy([&] { restored->loadFromMetaClass(Description(*mField).node()); }), "");
    EXPECT_EQ(restored->getSize(), 3UL);
    EXPECT_EQ(restored->getDimension(), 2UL);
    EXPECT_EQ(valuesOf(*restored), (Values{1, 2, 3, 4, 5, 6}));
}

TEST_F(QV_FieldTest, MissingAttributesAreAnnouncedAndKeepTheirValues)
{
    const COM_Scoped node(MM_Class::New());
    node->setName("someField");
    EXPECT_EQ(printedBy([&] { mField->loadFromMetaClass(*node); }),
              "no attribute mDimension stored in class someField.\n"
              "no attribute mSize stored in class someField.\n"
              "no attribute mValues stored in class someField.\n");
    expect(3, 2, {1, 2, 3, 4, 5, 6});
}

TEST_F(QV_FieldTest, ValuesThatAFileLacksAreZero)
{
    const COM_Scoped node(MM_Class::New());
    node->addAttributeToMetaFields("mDimension", 1UL);
    node->addAttributeToMetaFields("mSize", 4UL);
    node->addAttributeToMetaFields("mValues", Values{7, 8});
    mField->loadFromMetaClass(*node);
    expect(4, 1, {7, 8, 0, 0});
}

TEST_F(QV_FieldTest, ASizeFarBeyondTheStoredValuesIsRefusedWithOneLine)
{
    const COM_Scoped node(MM_Class::New());
    node->setName("someField");
    node->addAttributeToMetaFields("mDimension", 4000000000UL);
    node->addAttributeToMetaFields("mSize", 4000000000UL);
    node->addAttributeToMetaFields("mValues", Values{7});
    EXPECT_EQ(printedBy([&] { mField->loadFromMetaClass(*node); }),
              "size 4000000000 x 4000000000 of someField is too large for its values: ignored.\n");
    expect(3, 2, {1, 2, 3, 4, 5, 6});
}
