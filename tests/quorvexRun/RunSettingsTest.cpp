#include "quorvexRun/RunSettings.h"

#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvexRun/RunError.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <complex>
#include <string>

namespace {

class RunSettingsTest : public testing::Test
{
protected:
    void set(const std::string& key, const std::string& value) const
    {
        RunSettings::apply(*mProblem, key, value);
    }
    /// Why the setting is refused; empty when it is not.
    std::string refusal(const std::string& key, const std::string& value) const
    {
        try {
            set(key, value);
        } catch (const RunError& error) {
            return error.what();
        }
        return "";
    }

    TestProblem mProblem;
};

} // namespace

// ---------------------------------------------------------------- what settings do

TEST_F(RunSettingsTest, TheWavelengthSetsCarrierAndCharacteristicLength)
{
    set("mWaveLength", "8e-7");
    EXPECT_EQ(mProblem.wave().getWaveLength(), 8e-7);
    EXPECT_EQ(mProblem.wave().getFrequency(), QV_IncidentFields::TWO_PI_C / 8e-7);
    EXPECT_EQ(mProblem.milieu().getCaracteristicLength(), 8e-7);
    set("mCaracteristicLength", "1e-6");
    EXPECT_EQ(mProblem.wave().getWaveLength(), 8e-7);
    EXPECT_EQ(mProblem.milieu().getCaracteristicLength(), 1e-6);
}

TEST_F(RunSettingsTest, TheTemperatureSetsTheFactorOfDetailedBalance)
{
    set("mTemperature", "77");
    EXPECT_EQ(QV_Bloch::getTemperature(), 77.0);
    EXPECT_EQ(QV_Bloch::getBeta(), QV_Bloch::HBAR_OVER_K / 77.0);
}

TEST_F(RunSettingsTest, TheDimensionSetsTheNumberOfDipoleMatrices)
{
    set("mDimension", "2");
    EXPECT_EQ(mProblem.maxwell().getDimension(), 2UL);
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 2UL);
    EXPECT_EQ((*QV_Bloch::getPolarizations())[1].getValue(0, 1), 1e-29);
    set("mDimension", "1");
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
}

TEST_F(RunSettingsTest, TheNumberOfLevelsResizesAllThatCountsInThem)
{
    set("mLevelsNumber", "4");
    EXPECT_EQ(mProblem.bloch().getLevelsFrequency()->getDimension(), 4UL);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getLinesNumber(), 4UL);
    EXPECT_EQ(QV_Bloch::getEquilibriumDensity()->getDimension(), 4UL);
    EXPECT_EQ(QV_Bloch::getInitialDensity()->getColumnsNumber(), 4UL);
    EXPECT_EQ((*QV_Bloch::getPolarizations())[0].getLinesNumber(), 4UL);
    set("mRhoE", "0.4,0.3,0.2,0.1");
    EXPECT_EQ(QV_Bloch::getEquilibriumDensity()->getValue(3), 0.1);
}

TEST_F(RunSettingsTest, TheNumberOfSystemsGrowsAndShrinks)
{
    set("mBlochEquations", "4");
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 4UL);
    EXPECT_EQ(mProblem.bloch(3).getProblem(), &*mProblem);
    set("mBlochEquations", "0");
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 0UL);
    set("mBlochEquations", "1");
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 1UL);
}

TEST_F(RunSettingsTest, TheLargestDipoleFollowsTheMatrices)
{
    set("mPs", "0,3e-29,3e-29,0");
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 3e-29);
    set("mPs", "0,0,0,0");
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 0.0);
}

TEST_F(RunSettingsTest, FlagsStepsAndPlainNumbersArriveWhereTheyBelong)
{
    set("mIsRLaserType", "1");
    EXPECT_TRUE(mProblem.maxwell().isReflexifLaserType());
    set("mIsRLaserType", "0");
    EXPECT_FALSE(mProblem.maxwell().isReflexifLaserType());
    set("mMaxTimeStepsNumber", "123");
    EXPECT_EQ(mProblem->getMaxTimeStepsNumber(), 123UL);
    set("mDelta", "1e9");
    EXPECT_EQ(mProblem->getFrequenciesDistributionDelta(), 1e9);
    set("mMean", "-1e9");
    EXPECT_EQ(mProblem->getFrequenciesDistributionMean(), -1e9);
    set("mIterationsMaxNumber", "0");
    EXPECT_EQ(QV_Bloch::getIterationsMaxNumber(), 0UL);
}

TEST_F(RunSettingsTest, MatricesComeRowAfterRow)
{
    set("mW", "1,2,3,4");
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getValue(0, 1), 2.0);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getValue(1, 0), 3.0);
}

TEST_F(RunSettingsTest, ComplexNumbersAreRealOnesOrPairsInParentheses)
{
    set("mInitialDensity", "0.25,(1e-2,-2e-2),(+.01,0.02),7.5e-1");
    const LA_ComplexMatrix& density = *QV_Bloch::getInitialDensity();
    EXPECT_EQ(density.getValue(0, 0), std::complex(0.25, 0.0));
    EXPECT_EQ(density.getValue(0, 1), std::complex(0.01, -0.02));
    EXPECT_EQ(density.getValue(1, 0), std::complex(0.01, 0.02));
    EXPECT_EQ(density.getValue(1, 1), std::complex(0.75, 0.0));
}

TEST_F(RunSettingsTest, NumbersAreReadAsTheCLibraryReadsThemAndWhole)
{
    set("mLength", "1.5e-4");
    EXPECT_EQ(mProblem.milieu().getLength(), 1.5e-4);
    set("mLength", "0x1p-3");
    EXPECT_EQ(mProblem.milieu().getLength(), 0.125);
    set("mLength", "+2");
    EXPECT_EQ(mProblem.milieu().getLength(), 2.0);
    for (const char* text : {"", " ", "1 ", " 1", "1,5", "1.5x", "1e", "one", "1.5 1.5", "--1"}) {
        EXPECT_EQ(refusal("mLength", text),
                  "mLength takes a number, not \"" + std::string(text) + "\"");
    }
    EXPECT_EQ(mProblem.milieu().getLength(), 2.0);
}

TEST_F(RunSettingsTest, NumbersInBracketsChooseOneOfSeveral)
{
    set("mBlochEquations", "3");
    set("mOmega[2]", "1,2");
    EXPECT_EQ(mProblem.bloch(2).getLevelsFrequency()->getValue(1), 2.0);
    EXPECT_EQ(mProblem.bloch(0).getLevelsFrequency()->getValue(1), 1.256e15);
    set("mDimension", "2");
    set("mPs[1]", "0,9,9,0");
    EXPECT_EQ((*QV_Bloch::getPolarizations())[1].getValue(0, 1), 9.0);
    EXPECT_EQ((*QV_Bloch::getPolarizations())[0].getValue(0, 1), 1e-29);
}

// ---------------------------------------------------------------- what they refuse

TEST_F(RunSettingsTest, CountsAreWholeNumbersUpToALimit)
{
    for (const char* text : {"-1", "+1", "1.0", "", "x", "65", "18446744073709551617"}) {
        EXPECT_EQ(refusal("mLevelsNumber", text),
                  "mLevelsNumber takes a whole number from 0 to 64, not \"" + std::string(text)
                      + "\"");
    }
    EXPECT_EQ(refusal("mDimension", "4"), "mDimension takes a whole number from 0 to 3, not \"4\"");
    EXPECT_EQ(refusal("mBlochEquations", "10001"),
              "mBlochEquations takes a whole number from 0 to 10000, not \"10001\"");
    EXPECT_EQ(refusal("mDiscretizationNumber", "99999999999999999999"),
              "mDiscretizationNumber takes a whole number from 0 to 1000000000000, not "
              "\"99999999999999999999\"");
}

TEST_F(RunSettingsTest, FlagsAreZeroOrOne)
{
    for (const char* text : {"", "2", "true", "01"}) {
        EXPECT_EQ(refusal("mIsLaserType", text),
                  "mIsLaserType takes 0 or 1, not \"" + std::string(text) + "\"");
    }
}

TEST_F(RunSettingsTest, ChoicesAreNamesOrNumbers)
{
    set("mMethod", "CN_dtP");
    EXPECT_EQ(mProblem->getMethod(), QV_Problem::CN_dtP_METHOD);
    set("mMethod", "5");
    EXPECT_EQ(mProblem->getMethod(), QV_Problem::PRED_CORR_METHOD);
    set("mType", "MARCHE");
    EXPECT_EQ(mProblem.wave().getTestType(), QV_IncidentFields::MARCHE_TYPE);
    // The check, and not this, judges numbers without a name.
    set("mType", "9");
    EXPECT_EQ(mProblem.wave().getTestType(), 9);
    EXPECT_EQ(refusal("mType", "Sit"),
              "mType takes a number or one of sinus, SIT, PACKAGE, OSCILL1, OSCILL2, POMPE_SIT, "
              "MARCHE, not \"Sit\"");
    EXPECT_EQ(refusal("mMethod", ""), "mMethod takes a number or one of CN_Z, CN_P, CN_dtP, Relax, "
                                      "Split, pc, not \"\"");
    EXPECT_EQ(refusal("mMethod", "-1"),
              "mMethod takes a number or one of CN_Z, CN_P, CN_dtP, Relax, Split, pc, not \"-1\"");
    EXPECT_EQ(refusal("mMethod", "256"),
              "mMethod takes a number or one of CN_Z, CN_P, CN_dtP, Relax, Split, pc, not \"256\"");
}

TEST_F(RunSettingsTest, NamesOfSplittingAndRelaxationMeanTheirOwnConstants)
{
    const char* const orders[] = {"hrn", "rnh", "hrnh", "rnhrn"};
    for (unsigned char i = 0; i < 4; ++i) {
        set("mSplitType", orders[i]);
        EXPECT_EQ(QV_Bloch::getSplitType(), i);
    }
    const char* const relaxations[] = {"Pauli", "Cascade", "Equilibre"};
    for (unsigned char i = 0; i < 3; ++i) {
        set("mRelaxationType", relaxations[i]);
        EXPECT_EQ(QV_Bloch::getRelaxationType(), i);
    }
    EXPECT_EQ(refusal("mSplitType", "rnhr"),
              "mSplitType takes a number or one of hrn, rnh, hrnh, rnhrn, not \"rnhr\"");
    EXPECT_EQ(refusal("mRelaxationType", "PAULI"),
              "mRelaxationType takes a number or one of Pauli, Cascade, Equilibre, not \"PAULI\"");
}

TEST_F(RunSettingsTest, VectorsAndMatricesNeedAllTheirNumbers)
{
    EXPECT_EQ(refusal("mOmega", "1"), "mOmega takes 2 numbers joined by commas, not \"1\"");
    EXPECT_EQ(refusal("mOmega", "1,2,3"), "mOmega takes 2 numbers joined by commas, not \"1,2,3\"");
    EXPECT_EQ(refusal("mW", "1,2,3"), "mW takes 4 numbers joined by commas, not \"1,2,3\"");
    EXPECT_EQ(refusal("mPs", "1,2,3,4,5"),
              "mPs takes 4 numbers joined by commas, not \"1,2,3,4,5\"");
    EXPECT_EQ(refusal("mInitialDensity", "1,0,0"),
              "mInitialDensity takes 4 numbers joined by commas, complex ones as (re,im), not "
              "\"1,0,0\"");
    for (const char* text : {"", "1,", ",1", "1,,2", "1;2", "1,x"}) {
        EXPECT_EQ(refusal("mOmega", text),
                  "mOmega takes numbers joined by commas, not \"" + std::string(text) + "\"");
    }
    EXPECT_EQ(mProblem.bloch().getLevelsFrequency()->getValue(1), 1.256e15);
}

TEST_F(RunSettingsTest, ComplexNumbersAreReadWhole)
{
    for (const char* text :
         {"(x,y),0,0,1", "(1,2x),0,0,1", "(1;2),0,0,1", "(1,2)3,0,0,1", "(1,2,3),0,0,1",
          "(1),0,0,1", "(,),0,0,1", "(),0,0,1", "((1,2)),0,0,1", "1)(,0,0,1"}) {
        EXPECT_NE(refusal("mInitialDensity", text), "") << text;
    }
    EXPECT_EQ(QV_Bloch::getInitialDensity()->getValue(1, 1), std::complex(1.0, 0.0));
}

TEST_F(RunSettingsTest, WhatDoesNotExistCannotBeChosen)
{
    EXPECT_EQ(refusal("mOmega[1]", "1,2"),
              "mOmega[1] does not exist: there are 1 systems, counted from 0");
    EXPECT_EQ(refusal("mPs[1]", "0,1,1,0"),
              "mPs[1] does not exist: the field has 1 components, counted from 0");
    EXPECT_EQ(refusal("mOmega[99999999999999999999]", "1,2").substr(0, 7), "mOmega[");
}

TEST_F(RunSettingsTest, OnlyKeysThatStandForSeveralTakeANumberInBrackets)
{
    const double length = mProblem.milieu().getLength();
    EXPECT_EQ(refusal("mLength[7]", "1"), "mLength takes no number in brackets");
    EXPECT_EQ(refusal("QV_Bloch.mW[0]", "1,2,3,4"), "mW takes no number in brackets");
    EXPECT_EQ(mProblem.milieu().getLength(), length);
}

TEST_F(RunSettingsTest, ANumberInBracketsHasOneForm)
{
    for (const char* key : {"mOmega[", "mOmega[]", "mOmega[1", "mOmega[x]", "mOmega[-1]",
                            "mOmega[1]]", "mOmega[ 1]", "mOmega[1].x", "mOmega[0][0]"}) {
        EXPECT_EQ(refusal(key, "1,2"), "the number behind mOmega has the form [0], [1] and so on")
            << key;
    }
}

TEST_F(RunSettingsTest, UnknownKeysAndClassesAreNamedAsTheyWereTyped)
{
    const auto unknown = [](const std::string& key) {
        return "unknown parameter " + key + "; quorvex-run --help lists the keys";
    };
    for (const char* key :
         {"", "x", "mlength", "MLENGTH", "mLength ", "QV_1DMilieu", "QV_Milieu.mLength",
          "QV_1DMilieu.", ".mLengths", "a.b.mLength", "QV_Bloch.mCFL"}) {
        EXPECT_EQ(refusal(key, "1"), unknown(key));
    }
}

TEST_F(RunSettingsTest, WhatTheRunComputesIsToldApartFromWhatNobodyKnows)
{
    for (const char* key :
         {"mTimeStep", "mRabiFrequency", "mOmega0", "mOmega0Adim", "mBeta", "mPMax", "mDz",
          "mIFirst", "mILast", "mIterMax", "mDensities", "mPPower", "mFields", "mE1Old"}) {
        EXPECT_EQ(refusal(key, "1"),
                  std::string(key) + " is computed by the run and cannot be set");
    }
}

TEST_F(RunSettingsTest, AProblemWithoutAllItsPartsIsNotChanged)
{
    mProblem->resetMilieu();
    EXPECT_EQ(refusal("mCFL", "0.5"),
              "the problem lacks its medium, its field or its incident wave");
}

TEST_F(RunSettingsTest, AMethodIsChosenByItsExactName)
{
    for (unsigned char i = 0; i < QV_Problem::mMethodsNameLength; ++i) {
        RunSettings::setMethod(*mProblem, QV_Problem::mMethodsName[i]);
        EXPECT_EQ(mProblem->getMethod(), i);
    }
    for (const char* name : {"", "split", "Split ", "4"}) {
        try {
            RunSettings::setMethod(*mProblem, name);
            ADD_FAILURE() << name;
        } catch (const RunError& error) {
            EXPECT_EQ(error.what(),
                      "--method takes one of CN_Z, CN_P, CN_dtP, Relax, Split, pc, not \""
                          + std::string(name) + "\"");
        }
    }
}

TEST_F(RunSettingsTest, EveryKeyOfTheHelpIsKnown)
{
    const std::string help = RunSettings::helpText();
    std::size_t keys = 0;
    std::string className;
    for (std::size_t begin = 0; begin < help.size(); begin = help.find('\n', begin) + 1) {
        const std::string line = help.substr(begin, help.find('\n', begin) - begin);
        if (line.starts_with("  QV_")) {
            className = line.substr(2);
        } else if (line.starts_with("    m")) {
            ++keys;
            const std::string key = line.substr(4, line.find(' ', 4) - 4);
            // The word is no value of any key, so each says what it takes.
            EXPECT_TRUE(refusal(key, "@").starts_with(key + " takes ")) << key;
            EXPECT_TRUE(refusal(className + "." + key, "@").starts_with(key + " takes ")) << key;
        }
    }
    EXPECT_EQ(keys, 35U);
}
