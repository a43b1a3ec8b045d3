#include "quorvex/QV_LoaderWriter.h"

#include "common/COM_Out.h"
#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_ClassFactory.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"
#include "support/CaseName.h"
#include "support/ChildProcess.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Values = std::vector<double>;
using Complexes = std::vector<Complex>;
using Names = std::vector<std::string>;

constexpr double lightSpeed = 2.997e8;
constexpr double infinite = std::numeric_limits<double>::infinity();

template <typename M>
auto valuesOf(const M* matrix)
{
    using T = std::remove_cvref_t<decltype(*matrix->getValues())>;
    return std::vector<T>(matrix->getValues(),
                          matrix->getValues()
                              + matrix->getLinesNumber() * matrix->getColumnsNumber());
}

Values valuesOf(const LA_RealVector* vector)
{
    return {vector->getValues(), vector->getValues() + vector->getDimension()};
}

/// The working directory for a scope.
class WorkingDirectory
{
public:
    explicit WorkingDirectory(const std::filesystem::path& path)
        : mBefore(std::filesystem::current_path())
    {
        std::filesystem::current_path(path);
    }
    ~WorkingDirectory() { std::filesystem::current_path(mBefore); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    std::filesystem::path mBefore;
};

/// A saved graph in a form that does not depend on identities: objects in the order in which they
/// are reached from the root, each called by its place in that order. Fields named in `without` are
/// left out.
class Canonical
{
public:
    explicit Canonical(const std::string& text, const Names& without = {})
    {
        const std::string root = attribute(text, "mRootMetaClassId", 0);
        std::size_t at = 0;
        while ((at = text.find("<MM_CLASS ", at)) != std::string::npos) {
            const std::size_t body = text.find('>', at) + 1;
            const std::size_t end = text.find("</MM_CLASS>", body);
            const std::string id = attribute(text, "mId", at);
            mBodies[id] =
                attribute(text, "mName", at) + stripped(text.substr(body, end - body), without);
            at = end;
        }
        visit(root);
        for (std::size_t i = 0; i < mOrder.size(); ++i) {
            mText += "#" + std::to_string(i) + " " + renamed(mBodies[mOrder[i]]);
        }
    }
    const std::string& text() const { return mText; }

private:
    static std::string attribute(const std::string& text, const std::string& name, std::size_t at)
    {
        const std::size_t from = text.find(name + "=\"", at) + name.size() + 2;
        return text.substr(from, text.find('"', from) - from);
    }
    static std::string stripped(std::string body, const Names& without)
    {
        for (const std::string& name : without) {
            const std::size_t from = body.find("\n\t\t<MM_FIELD mName=\"" + name + "\">");
            if (from != std::string::npos) {
                const std::string end = "</MM_FIELD>";
                body.erase(from, body.find(end, from) + end.size() - from);
            }
        }
        return body;
    }
    /// Calls `use` with the begin and the end of each value in a body.
    template <typename Use>
    static void eachValue(const std::string& body, Use use)
    {
        std::size_t at = 0;
        while ((at = body.find("<MM_VALUE", at)) != std::string::npos) {
            const std::size_t from = body.find('>', at) + 1;
            const std::size_t end = body.find("</MM_VALUE>", from);
            use(from, end);
            at = end;
        }
    }
    void visit(const std::string& id)
    {
        if (mBodies.count(id) == 0 || mPlaces.count(id) != 0) {
            return;
        }
        mPlaces[id] = mOrder.size();
        mOrder.push_back(id);
        const std::string& body = mBodies[id];
        eachValue(body,
                  [&](std::size_t from, std::size_t end) { visit(body.substr(from, end - from)); });
    }
    std::string renamed(const std::string& body) const
    {
        std::string result;
        std::size_t last = 0;
        eachValue(body, [&](std::size_t from, std::size_t end) {
            const auto place = mPlaces.find(body.substr(from, end - from));
            if (place != mPlaces.end()) {
                result += body.substr(last, from - last) + "#" + std::to_string(place->second);
                last = end;
            }
        });
        return result + body.substr(last);
    }

    std::map<std::string, std::string> mBodies;
    std::map<std::string, std::size_t> mPlaces;
    Names mOrder;
    std::string mText;
};

class QV_LoaderWriterTest : public testing::Test
{
protected:
    QV_LoaderWriterTest() { QV_Bloch::resetShared(); }
    ~QV_LoaderWriterTest() override
    {
        mLoader->resetProblem();
        QV_Bloch::resetShared();
    }

    // ------------------------------------------------------------ XML

    /// The file that saving `problem` gives, and that file's canonical form.
    std::string saved(QV_Problem& problem) const
    {
        const COM_Scoped writer(QV_LoaderWriter::New());
        writer->save(mDirectory.file("saved.xml"), problem);
        return mDirectory.read("saved.xml");
    }
    std::string canonical(QV_Problem& problem, const Names& without = {}) const
    {
        return Canonical(saved(problem), without).text();
    }
    /// Saved, loaded into a fresh loader and saved again, the problem gives the same file.
    void expectRoundTrip(QV_Problem& problem, const Names& without = {}) const
    {
        const std::string first = saved(problem);
        const COM_Scoped loader(QV_LoaderWriter::New());
        printedBy([&] { loader->load(mDirectory.file("saved.xml")); });
        ASSERT_NE(loader->getProblem(), nullptr);
        ASSERT_NE(loader->getProblem(), &problem);
        EXPECT_EQ(canonical(*loader->getProblem(), without), Canonical(first, without).text());
    }
    /// A problem with a mesh of twelve nodes and data that keep its numbers near 1.
    static QV_1DProblem* newSmallProblem(unsigned long levels = 2)
    {
        QV_Bloch::setLevelsNumber(levels);
        auto* const problem = QV_1DProblem::New();
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem->getMilieu());
        milieu.setCaracteristicLength(2e-4);
        milieu.setDiscretizationNumber(2);
        milieu.setLength(12.5e-4);
        milieu.setStartingPosition(25.0);
        milieu.setEndingPosition(75.0);
        problem->getMaxwellSystem()->getIncidentFields()->setFieldMaxValue(1.0546e7);
        problem->getMaxwellSystem()->getIncidentFields()->setWaveLength(2e-4);
        (*problem->getBlochEquations())[0].getLevelsFrequency()->setValue(1, 1e12);
        return problem;
    }
    /// What is said while `text` is loaded as a file of its own.
    std::string loadText(const std::string& text) const
    {
        const std::string file = mDirectory.write("text.xml", text);
        return printedBy([&] { mLoader->load(file); });
    }

    using Fields = std::vector<std::pair<std::string, Names>>;
    static std::string node(const std::string& id, const std::string& name, const Fields& fields)
    {
        std::string text = "\n\t<MM_CLASS mId=\"" + id + "\" mName=\"" + name + "\">";
        for (const auto& [field, values] : fields) {
            text += "\n\t\t<MM_FIELD mName=\"" + field + "\">";
            for (const std::string& value : values) {
                text += "\n\t\t\t<MM_VALUE>" + value + "</MM_VALUE>";
            }
            text += "\n\t\t</MM_FIELD>";
        }
        return text + "\n\t</MM_CLASS>";
    }
    static std::string package(const std::string& root, const std::string& nodes)
    {
        return "\n<MM_PACKAGE mRootMetaClassId=\"" + root + "\">" + nodes + "\n</MM_PACKAGE>";
    }

    // ------------------------------------------------------------ older files

    /// Reads `text` as a keyword file; gives what is said.
    std::string readText(const std::string& text) const
    {
        const std::string file = mDirectory.write("qv1.dat", text);
        return printedBy([&] { EXPECT_TRUE(mLoader->readFile(file)); });
    }
    QV_1DProblem& problem() const { return dynamic_cast<QV_1DProblem&>(*mLoader->getProblem()); }
    QV_1DMilieu& milieu() const { return dynamic_cast<QV_1DMilieu&>(*problem().getMilieu()); }
    QV_Maxwell& maxwell() const { return *problem().getMaxwellSystem(); }
    QV_IncidentFields& fields() const { return *maxwell().getIncidentFields(); }
    QV_Bloch& bloch(unsigned long i = 0) const { return (*problem().getBlochEquations())[i]; }

    /// Reads `text` as a matrix file for the present problem.
    bool readMatrixText(unsigned long n, const std::string& text, int method, int relaxation) const
    {
        const std::string file = mDirectory.write("qv2.dat", text);
        return mLoader->readMatrix(n, file, static_cast<unsigned char>(method),
                                   static_cast<unsigned char>(relaxation));
    }

    const TestDirectory mDirectory;
    const COM_Scoped<QV_LoaderWriter> mLoader{QV_LoaderWriter::New()};
};

/// The groups that no file can do without.
const std::string least = "&champ Einc='SIT' /\n&numerique methode='CN_P' /\n";

/// The choice that follows the word of the relaxation, which no splitting order has for a name.
std::string splitWarning(const std::string& name)
{
    return "warning split type  " + name
           + " unknown !!\nchoose between:\n0\t \n1\t hrn\n2\t rnh\n3\t hrnh\n4\t rnhrn\n";
}

} // namespace

// ---------------------------------------------------------------- the problem

TEST_F(QV_LoaderWriterTest, ANewLoaderHasNoProblem)
{
    EXPECT_EQ(mLoader->getTypes(),
              (Names{"COM_Object", "MM_Object", "QV_Object", "QV_LoaderWriter"}));
    EXPECT_EQ(mLoader->getProblem(), nullptr);
    EXPECT_EQ(mLoader->getMissingAttributes(), Names{});
}

TEST_F(QV_LoaderWriterTest, TheProblemIsHeldWithAReference)
{
    const COM_Scoped one(QV_1DProblem::New());
    const COM_Scoped other(QV_1DProblem::New());
    const long references = one->getReferenceCount();
    mLoader->setProblem(*one);
    mLoader->setProblem(one.get());
    EXPECT_EQ(mLoader->getProblem(), one.get());
    EXPECT_EQ(one->getReferenceCount(), references + 1);
    mLoader->setProblem(*other);
    EXPECT_EQ(one->getReferenceCount(), references);
    mLoader->setProblem(nullptr);
    EXPECT_EQ(mLoader->getProblem(), nullptr);
    EXPECT_EQ(other->getReferenceCount(), references);
}

TEST_F(QV_LoaderWriterTest, ATextBecomesAZeroEndedCopyOfTheCallers)
{
    const char* const copy = QV_LoaderWriter::stringToCharArray("a b");
    EXPECT_STREQ(copy, "a b");
    delete[] copy;
    const char* const empty = QV_LoaderWriter::stringToCharArray("");
    EXPECT_STREQ(empty, "");
    delete[] empty;
}

// ---------------------------------------------------------------- XML

TEST_F(QV_LoaderWriterTest, SavingWithoutProblemWritesNothing)
{
    mLoader->save(mDirectory.file("none.xml"));
    EXPECT_FALSE(std::filesystem::exists(mDirectory.file("none.xml")));
}

TEST_F(QV_LoaderWriterTest, SavingWritesTheFileThatTheFactoryWrites)
{
    const COM_Scoped one(newSmallProblem(3));
    mLoader->save(mDirectory.file("a.xml"), *one);
    EXPECT_EQ(mLoader->getProblem(), one.get());
    const COM_Scoped factory(QV_ClassFactory::New());
    factory->save(mDirectory.file("b.xml"), *one);
    EXPECT_EQ(mDirectory.read("a.xml"), mDirectory.read("b.xml"));
    mLoader->save(mDirectory.file("c.xml"));
    EXPECT_EQ(mDirectory.read("c.xml"), mDirectory.read("b.xml"));
}

TEST_F(QV_LoaderWriterTest, ANameWithoutDirectoryLandsInTheWorkingDirectory)
{
    const WorkingDirectory there(mDirectory.path());
    const COM_Scoped one(QV_1DProblem::New());
    one->setSavingPath("elsewhere/");
    mLoader->save("paramBeforeSolving.xml", one.get());
    EXPECT_NE(mDirectory.read("paramBeforeSolving.xml").find("elsewhere/"), std::string::npos);
}

TEST_F(QV_LoaderWriterTest, SavingIntoAMissingDirectoryIsAnnounced)
{
    const COM_Scoped one(QV_1DProblem::New());
    const std::string file = mDirectory.file("none/p.xml");
    EXPECT_EQ(printedBy([&] { mLoader->save(file, *one); }),
              "ERROR:" + file + " can not be created !! \n");
}

TEST_F(QV_LoaderWriterTest, LoadingMakesTheProblemOfTheFile)
{
    {
        const COM_Scoped one(QV_1DProblem::New());
        one->setSavingPath("there/");
        one->setMethod(QV_Problem::SPLIT_METHOD);
        saved(*one);
    }
    printedBy([&] { mLoader->load(mDirectory.file("saved.xml")); });
    ASSERT_NE(mLoader->getProblem(), nullptr);
    EXPECT_EQ(problem().getSavingPath(), "there/");
    EXPECT_EQ(problem().getMethod(), QV_Problem::SPLIT_METHOD);
    EXPECT_EQ(problem().getBlochEquations()->size(), 1UL);
    EXPECT_EQ(problem().getReferenceCount(), 3); // the loader's, the field's and the atoms'
}

TEST_F(QV_LoaderWriterTest, LoadingFillsTheProblemThatIsThere)
{
    const COM_Scoped one(QV_1DProblem::New());
    one->setSavingPath("there/");
    saved(*one);
    const COM_Scoped other(QV_1DProblem::New());
    printedBy([&] { mLoader->load(mDirectory.file("saved.xml"), *other); });
    EXPECT_EQ(mLoader->getProblem(), other.get());
    EXPECT_EQ(other->getSavingPath(), "there/");
    EXPECT_EQ(other->getBlochEquations()->size(), 1UL);
    EXPECT_EQ((*other->getBlochEquations())[0].getProblem(), other.get());
    EXPECT_EQ(other->getMaxwellSystem()->getProblem(), other.get());
}

TEST_F(QV_LoaderWriterTest, LoadingForNoProblemMakesANewOne)
{
    const COM_Scoped one(QV_1DProblem::New());
    one->setSavingPath("there/");
    saved(*one);
    mLoader->setProblem(*one);
    printedBy([&] { mLoader->load(mDirectory.file("saved.xml"), nullptr); });
    EXPECT_NE(mLoader->getProblem(), one.get());
    EXPECT_EQ(problem().getSavingPath(), "there/");
}

TEST_F(QV_LoaderWriterTest, AFileThatDoesNotExistIsAnnouncedAndChangesNothing)
{
    const std::string file = mDirectory.file("none.xml");
    const std::string said = "ERROR:" + file + " can not be opened !! \n";
    EXPECT_EQ(printedBy([&] { mLoader->load(file); }), said);
    EXPECT_EQ(mLoader->getProblem(), nullptr);
    const COM_Scoped one(QV_1DProblem::New());
    one->setSavingPath("here/");
    EXPECT_EQ(printedBy([&] { mLoader->load(file, *one); }), said);
    EXPECT_EQ(mLoader->getProblem(), one.get());
    EXPECT_EQ(one->getSavingPath(), "here/");
}

TEST_F(QV_LoaderWriterTest, AFileWithoutProblemChangesNothing)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped stranger(QV_1DMilieu::New());
    factory->save(mDirectory.file("m.xml"), *stranger);
    EXPECT_EQ(printedBy([&] { mLoader->load(mDirectory.file("m.xml")); }), "");
    EXPECT_EQ(mLoader->getProblem(), nullptr);
    const COM_Scoped one(QV_1DProblem::New());
    one->setSavingPath("here/");
    EXPECT_EQ(printedBy([&] { mLoader->load(mDirectory.file("m.xml"), *one); }), "");
    EXPECT_EQ(one->getSavingPath(), "here/");
}

TEST_F(QV_LoaderWriterTest, AProblemBeforeARunComesBackTheSame)
{
    for (unsigned long n = 1; n <= 4; ++n) {
        const COM_Scoped one(newSmallProblem(n));
        one->setSavingPath("there/");
        one->setFrequenciesDistributionDelta(0.5);
        QV_Bloch::setPolarizationsSize(2);
        QV_Bloch::setTemperature(77.7);
        for (int i = 0; i < 2; ++i) {
            one->addToBlochEquations(*COM_Scoped(QV_Bloch::New()));
        }
        expectRoundTrip(*one);
    }
}

TEST_F(QV_LoaderWriterTest, WhatIsMissingBeforeARunIsAnnouncedForEverySystem)
{
    const COM_Scoped one(QV_1DProblem::New());
    one->addToBlochEquations(*COM_Scoped(QV_Bloch::New()));
    saved(*one);
    std::string expected;
    for (int i = 0; i < 2; ++i) {
        for (const char* key :
             {"mWAdim", "mOmegaAdim", "mPsAdim", "mRelaxDiag", "mRelaxNut", "mExpA"}) {
            expected += std::string("no field of name ") + key + " stored in class 8QV_Bloch. \n";
        }
    }
    EXPECT_EQ(printedBy([&] { mLoader->load(mDirectory.file("saved.xml")); }), expected);
}

TEST_F(QV_LoaderWriterTest, AProblemAfterARunByEveryMethodComesBackTheSame)
{
    const WorkingDirectory there(mDirectory.path());
    for (unsigned char method = 0; method < 6; ++method) {
        QV_Bloch::resetShared();
        const COM_Scoped one(newSmallProblem());
        one->setMethod(method);
        one->setSavingPath(mDirectory.slashed());
        one->setMaxTimeStepsNumber(40);
        one->addToBlochEquations(*COM_Scoped(QV_Bloch::New()));
        printedBy([&] { ASSERT_EQ(one->run(*COM_Scoped(COM_Out::New())), 0); });
        // The two vectors of the incident wave are made anew by the first step and not loaded.
        expectRoundTrip(*one, {"mIField", "mSField"});
    }
}

TEST_F(QV_LoaderWriterTest, TheRecordOfARunComesBackTheSame)
{
    const WorkingDirectory there(mDirectory.path());
    const COM_Scoped one(newSmallProblem());
    one->setMethod(QV_Problem::CN_P_METHOD);
    one->setSavingPath(mDirectory.slashed());
    one->setMaxTimeStepsNumber(20);
    printedBy([&] { ASSERT_EQ(one->run(*COM_Scoped(COM_Out::New())), 0); });
    const std::string record = mDirectory.read(QV_Problem::RECORD_FILE);
    printedBy([&] { mLoader->load(QV_Problem::RECORD_FILE); });
    EXPECT_EQ(canonical(problem()), Canonical(record).text());
    // A second run of the loaded problem is the first run again.
    const std::string times = mDirectory.read("tps.res");
    const std::string field = mDirectory.read("E_at_5.res");
    problem().setMaxTimeStepsNumber(20);
    printedBy([&] { ASSERT_EQ(problem().run(*COM_Scoped(COM_Out::New())), 0); });
    EXPECT_EQ(mDirectory.read("tps.res"), times);
    EXPECT_EQ(mDirectory.read("E_at_5.res").size(), field.size());
}

TEST_F(QV_LoaderWriterTest, EveryFileThatIsCutOffLoadsAsFarAsItGoes)
{
    const COM_Scoped one(newSmallProblem());
    const std::string whole = saved(*one);
    for (std::size_t length = 0; length < whole.size(); length += 61) {
        loadText(whole.substr(0, length));
        mLoader->resetProblem();
    }
    const std::string said = loadText(whole);
    EXPECT_NE(mLoader->getProblem(), nullptr) << said;
}

TEST_F(QV_LoaderWriterTest, EveryFileWithADamagedByteLoadsAsFarAsItGoes)
{
    const COM_Scoped one(newSmallProblem());
    const std::string whole = saved(*one);
    std::mt19937_64 engine(1);
    for (int i = 0; i < 150; ++i) {
        std::string text = whole;
        for (int j = 0; j < 4; ++j) {
            text[engine() % text.size()] = static_cast<char>(engine());
        }
        // A level count that one byte has made large is as good as any, but slow here.
        if (text.find("<MM_FIELD mName=\"mLevelsNumber\">\n\t\t\t<MM_VALUE>2<")
            != std::string::npos) {
            loadText(text);
        }
        mLoader->resetProblem();
    }
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 2UL);
}

TEST_F(QV_LoaderWriterTest, ProblemsNestedDeeperThanAnyRealGraphAreCutOff)
{
    const unsigned long depth = 3000;
    std::string nodes;
    for (unsigned long i = 0; i < depth; ++i) {
        const std::string here = std::to_string(i);
        const std::string next = std::to_string(i + 1);
        nodes += node("p" + here, "12QV_1DProblem", {{"mBlochEquations", {"b" + here}}});
        nodes += node("b" + here, "8QV_Bloch", {{"mProblem", {"p" + next}}});
    }
    const std::string said = loadText(package("p0", nodes));
    EXPECT_NE(mLoader->getProblem(), nullptr);
    EXPECT_NE(said.find("impossible to create an instance of "), std::string::npos);
}

TEST_F(QV_LoaderWriterTest, FieldsNestedDeeperThanAnyRealGraphAreCutOff)
{
    const unsigned long depth = 3000;
    std::string nodes;
    for (unsigned long i = 0; i < depth; ++i) {
        const std::string here = std::to_string(i);
        const std::string next = std::to_string(i + 1);
        nodes += node("p" + here, "12QV_1DProblem", {{"mMaxwell", {"m" + here}}});
        nodes += node("m" + here, "12QV_1DMaxwell", {{"mProblem", {"p" + next}}});
    }
    const std::string said = loadText(package("p0", nodes));
    EXPECT_NE(mLoader->getProblem(), nullptr);
    EXPECT_NE(said.find("impossible to create an instance of "), std::string::npos);
}

TEST_F(QV_LoaderWriterTest, PartsThatTwoProblemsClaimGoToOneOfThem)
{
    loadText(package(
        "a", node("a", "12QV_1DProblem",
                  {{"mBlochEquations", {"x", "y", "x"}}, {"mMaxwell", {"m"}}, {"mMilieu", {"z"}}})
                 + node("b", "12QV_1DProblem",
                        {{"mBlochEquations", {"y", "x"}}, {"mMaxwell", {"m"}}, {"mMilieu", {"z"}}})
                 + node("x", "8QV_Bloch", {{"mProblem", {"b"}}})
                 + node("y", "8QV_Bloch", {{"mProblem", {"a"}}})
                 + node("m", "12QV_1DMaxwell", {{"mProblem", {"b"}}})
                 + node("z", "11QV_1DMilieu", {})));
    ASSERT_NE(mLoader->getProblem(), nullptr);
    for (unsigned long i = 0; i < problem().getBlochEquations()->size(); ++i) {
        EXPECT_EQ(bloch(i).getProblem(), &problem());
    }
    ASSERT_NE(problem().getMaxwellSystem(), nullptr);
    EXPECT_EQ(maxwell().getProblem(), &problem());
}

TEST_F(QV_LoaderWriterTest, PartsOfForeignClassesArePassedOver)
{
    const Names keys = {"mMaxwell", "mMilieu", "mBlochEquations"};
    for (const char* name :
         {"12QV_1DProblem", "8QV_Bloch", "12QV_1DMaxwell", "11QV_1DMilieu", "17QV_IncidentFields",
          "8QV_Field", "13LA_RealMatrix", "8MM_Class", "15QV_ClassFactory", "unknown"}) {
        Fields fields;
        for (const std::string& key : keys) {
            fields.push_back({key, {"x", "p", "nobody", ""}});
        }
        Fields inner;
        for (const char* key :
             {"mProblem", "mIncidentFields", "mFields", "mFactors", "mInitialDensity", "mDensities",
              "mW", "mOmega", "mPs", "mRhoE", "mPPower", "mCaptors", "mMaxwell", "mMilieu",
              "mBlochEquations", "mMovingIncidentFieldValue", "mIFields"}) {
            inner.push_back({key, {"x", "p"}});
        }
        loadText(package("p", node("p", "12QV_1DProblem", fields) + node("x", name, inner)));
        EXPECT_NE(mLoader->getProblem(), nullptr) << name;
        mLoader->resetProblem();
    }
}

TEST_F(QV_LoaderWriterTest, OneMatrixInAllPlacesIsOneMatrix)
{
    loadText(package(
        "p",
        node("p", "12QV_1DProblem", {{"mBlochEquations", {"b"}}})
            + node("b", "8QV_Bloch",
                   {{"mLevelsNumber", {"3"}},
                    {"mDensities", {"c", "c", "c"}},
                    {"mInitialDensity", {"c"}},
                    {"mRelaxNut", {"c"}},
                    {"mW", {"r"}},
                    {"mWAdim", {"r"}},
                    {"mPs", {"r", "r"}},
                    {"mPsAdim", {"r", "r"}},
                    {"mRelaxDiag", {"r"}},
                    {"mOmega", {"v"}},
                    {"mOmegaAdim", {"v"}},
                    {"mRhoE", {"v"}}})
            + node("c", "16LA_ComplexMatrix",
                   {{"mLinesNumber", {"1"}}, {"mColumnsNumber", {"1"}}, {"mValues", {"(1,2)"}}})
            + node("r", "13LA_RealMatrix",
                   {{"mLinesNumber", {"2"}}, {"mColumnsNumber", {"5"}}, {"mValues", {"1"}}})
            + node("v", "13LA_RealVector", {{"mValues", {"1", "2"}}})));
    ASSERT_NE(mLoader->getProblem(), nullptr);
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation(), QV_Bloch::getPolarizations()->get(1));
    // Stepping and saving such a graph harms nobody.
    const COM_Scoped E(QV_Field::New(3, 1));
    const COM_Scoped B(QV_Field::New(2, 1));
    maxwell().setField(QV_Maxwell::E_FIELD, *E);
    maxwell().setField(QV_Maxwell::B_FIELD, *B);
    const COM_Scoped zone(MM_Class::New());
    zone->addAttributeToMetaFields("mIFirst", 0L);
    zone->addAttributeToMetaFields("mILast", 2L);
    zone->addAttributeToMetaFields("mDz", 1.0);
    printedBy([&] {
        bloch().loadFromMetaClass(*zone);
        bloch().solveBlochCrank(1.0, 0.1);
        bloch().solveBlochP(1.0, 0.1);
        bloch().solveBlochSplitInit(0.0, 0.1);
        bloch().solveBlochSplit(1.0, 0.1);
    });
    QV_Bloch::setLevelsNumber(2);
    EXPECT_NE(saved(problem()), "");
}

// ---------------------------------------------------------------- keyword files: attributes

namespace {

/// What one attribute sets.
struct Attribute
{
    const char* mGroup;
    const char* mText;
    double mExpected;
    std::function<double(const QV_1DProblem&)> mValue;
};

const QV_IncidentFields& fieldsOf(const QV_1DProblem& problem)
{
    return *problem.getMaxwellSystem()->getIncidentFields();
}

const QV_1DMilieu& milieuOf(const QV_1DProblem& problem)
{
    return dynamic_cast<QV_1DMilieu&>(*problem.getMilieu());
}

double captorOf(const QV_1DProblem& problem, unsigned long i)
{
    return milieuOf(problem).getCaptors()->getValue(i);
}

using P = const QV_1DProblem&;

const std::vector<Attribute> attributes = {
    {"dim", "n=3", 3, [](P) { return QV_Bloch::getLevelsNumber(); }},
    {"dim", "n=3.9", 3, [](P) { return QV_Bloch::getLevelsNumber(); }},
    {"type_test", "test='LASER'", 1, [](P p) { return p.getMaxwellSystem()->isLaserType(); }},
    {"type_test", "test='LASER'", 0,
     [](P p) { return p.getMaxwellSystem()->isReflexifLaserType(); }},
    {"type_test", "test='RLASER'", 0, [](P p) { return p.getMaxwellSystem()->isLaserType(); }},
    {"type_test", "test=\"RLASER\"", 1,
     [](P p) { return p.getMaxwellSystem()->isReflexifLaserType(); }},
    {"type_test", "test='BQ'", 2, [](P p) { return p.getMaxwellSystem()->getDimension(); }},
    {"type_test", "test=xBQx", 2, [](P p) { return p.getMaxwellSystem()->getDimension(); }},
    {"type_test", "test=BQ", 1, [](P p) { return p.getMaxwellSystem()->getDimension(); }},
    {"type_test", "test='SIT'", 1, [](P p) { return p.getMaxwellSystem()->getDimension(); }},
    {"type_test", "test='SIT'", 0, [](P p) { return p.getMaxwellSystem()->isLaserType(); }},
    {"freq_dist", "n=3", 4, [](P p) { return p.getBlochEquations()->size(); }},
    {"freq_dist", "n=2.9", 3, [](P p) { return p.getBlochEquations()->size(); }},
    {"freq_dist", "n=-7", 1, [](P p) { return p.getBlochEquations()->size(); }},
    {"freq_dist", "method=CN_Z delta=7.5", 7.5,
     [](P p) { return p.getFrequenciesDistributionDelta(); }},
    {"freq_dist", "delta=7.5", 0, [](P p) { return p.getFrequenciesDistributionDelta(); }},
    {"champ", "Emax=1.5d9", 1.5e9, [](P p) { return fieldsOf(p).getFieldMaxValue(); }},
    {"champ", "lambda=1.2E-6", 1.2e-6, [](P p) { return fieldsOf(p).getWaveLength(); }},
    {"champ", "lambda=1.2E-6", 1883070636.561722 / 1.2e-6,
     [](P p) { return fieldsOf(p).getFrequency(); }},
    {"champ", "lambda=1.2E-6", 1.2e-6, [](P p) { return milieuOf(p).getCaracteristicLength(); }},
    {"champ", "t_on=2e-13", 2e-13, [](P p) { return fieldsOf(p).getWavePackageDuration(); }},
    {"champ", "Einc='OSCILL2'", QV_IncidentFields::OSCILL2_TYPE,
     [](P p) { return fieldsOf(p).getTestType(); }},
    {"autres", "na=3D24", 3e24, [](P) { return QV_Bloch::getAtomsNumber(); }},
    {"autres", "ind=1.5", 1.5, [](P p) { return milieuOf(p).getIndice(); }},
    {"autres", "temper=77", 77, [](P) { return QV_Bloch::getTemperature(); }},
    {"autres", "temper=77", 7.63649529326575e-12 / 77, [](P) { return QV_Bloch::getBeta(); }},
    {"autres", "relaxation='Pauli'", 1, [](P) { return QV_Bloch::getRelaxationType(); }},
    {"autres", "relaxation='Cascade'", 2, [](P) { return QV_Bloch::getRelaxationType(); }},
    {"autres", "relaxation='Equilibre'", 3, [](P) { return QV_Bloch::getRelaxationType(); }},
    {"autres", "relaxation=''", 0, [](P) { return QV_Bloch::getRelaxationType(); }},
    {"autres", "relaxation='hrnh'", 3, [](P) { return QV_Bloch::getSplitType(); }},
    {"autres", "relaxation='Pauli'", QV_Problem::SPLIT_METHOD, [](P p) { return p.getMethod(); }},
    {"numerique", "methode='CN_dtP'", QV_Problem::CN_dtP_METHOD, [](P p) { return p.getMethod(); }},
    {"numerique", "methode='pc'", QV_Problem::PRED_CORR_METHOD, [](P p) { return p.getMethod(); }},
    {"numerique", "CFL=0.5", 0.5, [](P p) { return fieldsOf(p).getCFL(); }},
    {"numerique", "CFL=1.5", 1.0, [](P p) { return fieldsOf(p).getCFL(); }},
    {"numerique", "CFL=-1", 0.0, [](P p) { return fieldsOf(p).getCFL(); }},
    {"numerique", "parlambda=30", 30, [](P p) { return milieuOf(p).getDiscretizationNumber(); }},
    {"numerique", "conv=1e-7", 1e-7, [](P) { return QV_Bloch::getConvergenceRate(); }},
    {"numerique", "conv=0", 1e-24, [](P) { return QV_Bloch::getConvergenceRate(); }},
    {"numerique", "conv=-3", 1e-24, [](P) { return QV_Bloch::getConvergenceRate(); }},
    {"numerique", "conv=1", 0.1, [](P) { return QV_Bloch::getConvergenceRate(); }},
    {"numerique", "type_split='hrnh'", QV_Problem::SPLIT_METHOD, [](P p) { return p.getMethod(); }},
    {"numerique", "type_split='hrnh'", 0, [](P) { return QV_Bloch::getSplitType(); }},
    {"geom", "debut=0.25", 25, [](P p) { return milieuOf(p).getStartingPosition(); }},
    {"geom", "fin=0.75", 75, [](P p) { return milieuOf(p).getEndingPosition(); }},
    {"geom", "long=2e-4", 2e-4, [](P p) { return milieuOf(p).getLength(); }},
    {"geom", "maxt=400", 400, [](P p) { return p.getMaxTimeStepsNumber(); }},
    {"geom", "maxt=-4", 0, [](P p) { return p.getMaxTimeStepsNumber(); }},
    {"ES", "z1=0.125", 12.5, [](P p) { return captorOf(p, 0); }},
    {"ES", "z2=0.25", 25, [](P p) { return captorOf(p, 1); }},
    {"ES", "z3=0.75", 75, [](P p) { return captorOf(p, 2); }},
    {"ES", "z3=0.75", 3, [](P p) { return milieuOf(p).getCaptors()->getDimension(); }},
};

} // namespace

TEST_F(QV_LoaderWriterTest, EveryAttributeGoesToItsPlace)
{
    for (const Attribute& attribute : attributes) {
        QV_Bloch::resetShared();
        readText(least + "&" + attribute.mGroup + " " + attribute.mText + " /\n");
        EXPECT_DOUBLE_EQ(attribute.mValue(problem()), attribute.mExpected)
            << attribute.mGroup << " " << attribute.mText;
        mLoader->resetProblem();
    }
}

TEST_F(QV_LoaderWriterTest, MissingAttributesHaveTheirDefaultsOrAreZero)
{
    readText(least);
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 0UL);
    EXPECT_FALSE(maxwell().isLaserType());
    EXPECT_FALSE(maxwell().isReflexifLaserType());
    EXPECT_EQ(maxwell().getDimension(), 1UL);
    EXPECT_EQ(problem().getBlochEquations()->size(), 1UL);
    EXPECT_EQ(problem().getFrequenciesDistributionDelta(), 0.0);
    EXPECT_EQ(problem().getMethod(), QV_Problem::CN_P_METHOD);
    EXPECT_EQ(problem().getTimeStep(), 0.0);
    EXPECT_EQ(problem().getMaxTimeStepsNumber(), 0UL);
    EXPECT_EQ(fields().getFieldMaxValue(), 0.0);
    EXPECT_EQ(fields().getWaveLength(), 0.0);
    EXPECT_EQ(fields().getFrequency(), infinite);
    EXPECT_EQ(fields().getWavePackageDuration(), 0.0);
    EXPECT_EQ(fields().getCFL(), 0.0);
    EXPECT_EQ(QV_Bloch::getAtomsNumber(), 0.0);
    EXPECT_EQ(QV_Bloch::getTemperature(), 0.0);
    EXPECT_EQ(QV_Bloch::getBeta(), infinite);
    EXPECT_EQ(QV_Bloch::getConvergenceRate(), 1e-24);
    EXPECT_EQ(QV_Bloch::getRelaxationType(), 0);
    EXPECT_EQ(QV_Bloch::getSplitType(), 0);
    EXPECT_EQ(milieu().getIndice(), 1.0);
    EXPECT_EQ(milieu().getDiscretizationNumber(), 2UL);
    EXPECT_EQ(milieu().getStartingPosition(), 0.0);
    EXPECT_EQ(milieu().getEndingPosition(), 0.0);
    EXPECT_EQ(milieu().getLength(), 0.0);
    EXPECT_EQ(valuesOf(milieu().getCaptors()), (Values{0.0, 50.0, 100.0}));
}

TEST_F(QV_LoaderWriterTest, EveryMissingAttributeWithoutDefaultIsListed)
{
    readText(least);
    EXPECT_EQ(mLoader->getMissingAttributes(),
              (Names{"champ Emax", "champ lambda", "champ t_on", "autres na", "autres temper",
                     "numerique CFL", "numerique conv", "geom debut", "geom fin", "geom long",
                     "geom maxt"}));
    readText(least
             + "&champ Emax=1 lambda=1 t_on= /\n&autres na=1 /\n&dim temper=1 /\n"
               "&numerique CFL=1 conv=1 /\n&geom debut=1 fin=1 long=1 maxt=1 /\n");
    EXPECT_EQ(mLoader->getMissingAttributes(), Names{"autres temper"});
    printedBy([&] { mLoader->readFile(mDirectory.file("none")); });
    EXPECT_EQ(mLoader->getMissingAttributes(), Names{});
}

TEST_F(QV_LoaderWriterTest, TheTimeStepIsFormedWithTheCourantNumberAsItStands)
{
    readText(least + "&champ lambda=1.2e-6 /\n&numerique CFL=1.5 parlambda=30 /\n");
    EXPECT_DOUBLE_EQ(problem().getTimeStep(), 1.2e-6 * 1.5 / (30 * lightSpeed));
    EXPECT_EQ(fields().getCFL(), 1.0);
}

TEST_F(QV_LoaderWriterTest, InitializingFormsTheTimeStepAnewWithTheCourantNumberUpToOne)
{
    readText(least
             + "&dim n=2 /\n&champ Emax=1e9 lambda=1.2e-6 /\n&autres na=1e24 temper=300 /\n"
               "&numerique CFL=1.5 parlambda=30 /\n&geom debut=0.25 fin=0.75 long=2e-6 /\n");
    printedBy([this] {
        milieu().create();
        problem().initialize();
    });
    EXPECT_DOUBLE_EQ(problem().getTimeStep(), 1.2e-6 / (30 * lightSpeed));
}

TEST_F(QV_LoaderWriterTest, TheLastWordForTheMethodStands)
{
    const std::string field = "&champ Einc='SIT' /\n";
    const std::pair<std::string, int> files[] = {
        {"&autres relaxation='Pauli' /\n&numerique methode='CN_P' /\n", QV_Problem::CN_P_METHOD},
        {"&numerique methode='CN_P' /\n&autres relaxation='Pauli' /\n", QV_Problem::SPLIT_METHOD},
        {"&numerique type_split='x' methode='CN_P' /\n", QV_Problem::CN_P_METHOD},
        {"&numerique methode='CN_P' type_split='x' /\n", QV_Problem::SPLIT_METHOD},
        {"&numerique methode='CN_P' methode='pc' /\n", QV_Problem::PRED_CORR_METHOD},
        {"&autres relaxation='Pauli' /\n", QV_Problem::SPLIT_METHOD},
        // The word of the frequencies' law is a method's as well, and is heard last.
        {"&freq_dist method=CN_Z /\n&numerique methode='pc' /\n", QV_Problem::CN_Z_METHOD},
    };
    for (const auto& [text, method] : files) {
        readText(field + text);
        EXPECT_EQ(problem().getMethod(), method) << text;
    }
}

TEST_F(QV_LoaderWriterTest, FurtherSystemsShareTheAtoms)
{
    readText(least + "&dim n=3 /\n&freq_dist n=2 /\n");
    ASSERT_EQ(problem().getBlochEquations()->size(), 3UL);
    for (unsigned long i = 0; i < 3; ++i) {
        EXPECT_EQ(bloch(i).getProblem(), &problem());
        EXPECT_EQ(bloch(i).getLevelsFrequency()->getDimension(), 3UL);
    }
}

TEST_F(QV_LoaderWriterTest, ASecondFileMakesANewProblem)
{
    readText(least);
    problem().setSavingPath("old/");
    problem().addReference(nullptr);
    QV_1DProblem* const old = &problem();
    readText(least);
    EXPECT_NE(&problem(), old);
    EXPECT_EQ(problem().getSavingPath(), "resultats/");
    EXPECT_EQ(old->getReferenceCount(), 3); // ours, its field's and its atoms'
    old->Delete();
}

TEST_F(QV_LoaderWriterTest, AFileThatCannotBeOpenedIsAnnouncedAndChangesNothing)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    const std::string file = mDirectory.file("none.dat");
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(mLoader->readFile(file)); }),
              "file " + file + " can not be read !! \n");
    EXPECT_EQ(mLoader->getProblem(), one.get());
}

TEST_F(QV_LoaderWriterTest, LevelCountsBeyondMemoryAreRefused)
{
    const std::pair<const char*, const char*> counts[] = {
        {"8193", "8193"},
        {"1000000000", "1000000000"},
        {"99999999999999999999", "9223372036854775807"},
        {"-1", "18446744073709551615"},
    };
    for (const auto& [text, number] : counts) {
        const std::string said = readText(least + "&dim n=" + text + " /\n");
        EXPECT_NE(said.find("matrices of " + std::string(number) + " levels are too large !\n"),
                  std::string::npos)
            << said;
        EXPECT_EQ(QV_Bloch::getLevelsNumber(), 2UL);
    }
}

// ---------------------------------------------------------------- keyword files: the grammar

TEST_F(QV_LoaderWriterTest, EverythingReadIsPrintedAsItStands)
{
    EXPECT_EQ(readText("A title.\n"
                       "&dim n=3 / three levels\n"
                       "&type_test test='SIT' /\n"
                       "&champ Emax=1.5d9 lambda=1.2e-6\n"
                       "  t_on=2e-13 Einc='OSCILL1' /\n"
                       "&autres na=3e24 temper=77 relaxation='Cascade'/\n"
                       "&numerique methode=\"CN_P\" CFL=0.5 conv=1e-7 /\n"
                       "&geom debut=0.2 fin=0.7 long=2e-4 maxt=400 /\n"
                       "&ES z1=.1 z2=0.4 /\n"
                       "&freq_dist n=1 /\n"),
              "dim\n\tn:3\n"
              "type_test\n\ttest:'SIT'\n"
              "champ\n\tEmax:1.5d9\n\tlambda:1.2e-6\n\tt_on:2e-13\n\tEinc:'OSCILL1'\n"
              "autres\n\tna:3e24\n\ttemper:77\n\trelaxation:'Cascade'\n"
              "numerique\n\tmethode:\"CN_P\"\n\tCFL:0.5\n\tconv:1e-7\n"
              "geom\n\tdebut:0.2\n\tfin:0.7\n\tlong:2e-4\n\tmaxt:400\n"
              "ES\n\tz1:.1\n\tz2:0.4\n"
              "freq_dist\n\tn:1\n"
              "z1:0.1 z2:0.4 z3:1\n"
                  + splitWarning("Cascade"));
}

TEST_F(QV_LoaderWriterTest, AnUnknownAttributeIsReportedWithTheNumberOfItsGroup)
{
    const std::pair<const char*, const char*> groups[] = {
        {"dim", " unknown attributes of dim  in line "},
        {"type_test", " unknown attributes of type_test  in line "},
        {"freq_dist", " unknown attributes  of freq_dist in line "},
        {"champ", " unknown attributes  of champ in line "},
        {"autres", " unknown attributes of autres  in line "},
        {"numerique", " unknown attributes of numerique ! in line "},
        {"geom", "geom: unknown attributes ! in line "},
        {"ES", "ES: unknown attributes ! in line "},
    };
    const std::string before = "champ\n\tEinc:'SIT'\nnumerique\n\tmethode:'CN_P'\n";
    const std::string after = "z1:0 z2:0.5 z3:1\n";
    for (const auto& [group, words] : groups) {
        EXPECT_EQ(readText(least + "&" + group + " what=1 N=2 /\n"),
                  before + group + "\n\twhat:1\n\tN:2\nwhat" + words + "3\nN" + words + "3\n"
                      + after);
    }
}

TEST_F(QV_LoaderWriterTest, AnUnknownKeywordIsReportedOnceAndTheRestIsRead)
{
    EXPECT_EQ(readText("&DIM n=4 m=5 /\n&champ Einc='SIT' /\n& x /\n&numerique methode='CN_P' /\n"
                       "&dim n=3 what /\n"),
              "DIM\n\tn:4\n\tm:5\nDIM key word unknown in line 1\n"
              "champ\n\tEinc:'SIT'\n"
              "\n\tx:\n key word unknown in line 3\n"
              "numerique\n\tmethode:'CN_P'\n"
              "dim\n\tn:3\n\twhat:\nwhat unknown attributes of dim  in line 5\n"
              "z1:0 z2:0.5 z3:1\n");
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL);
}

TEST_F(QV_LoaderWriterTest, ASlashEndsAGroupWhereverItStands)
{
    const char* const groups[] = {
        "&dim n=3 /\n",
        "&dim n=3/\n",
        "&dim n=3\n/\n",
        "&dim\nn=3\n\t /comment right behind\n",
        "&dim n=3 // &dim n=4 /\n",
        "&dim n=3 / n=4 and so on\n",
        "&dim n=3 / &dim n=4 /\n", // on the line of a slash all is comment
        "&dim n=3/ n=4\n",
        "&dim n=4 /\n&dim n=3 /\n",
        "&dim n=4 n=3 /\n",
        "n=4 / words and-words\n&dim n=3 /\n",
        "&dim n=3 /",
        "&dim n=3 /\r\n",
    };
    for (const char* group : groups) {
        QV_Bloch::resetShared();
        readText(least + group);
        EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL) << group;
        QV_Bloch::resetShared();
    }
}

TEST_F(QV_LoaderWriterTest, ALoneSlashLeavesNoAttributeOver)
{
    EXPECT_EQ(readText(least + "&dim /\n&dim\n//\n"),
              "champ\n\tEinc:'SIT'\nnumerique\n\tmethode:'CN_P'\ndim\ndim\n"
              "z1:0 z2:0.5 z3:1\n");
}

TEST_F(QV_LoaderWriterTest, AGroupThatTheFileCutsOffIsLost)
{
    for (const char* end : {"&dim n=3", "&dim n=3\n&dim n=4\n", "&dim", "&"}) {
        readText(least + end);
        EXPECT_EQ(QV_Bloch::getLevelsNumber(), 0UL) << end;
    }
}

TEST_F(QV_LoaderWriterTest, CommentsOfAnyLengthArePassedOver)
{
    for (const std::size_t length : {1UL, 799UL, 800UL, 801UL, 5000UL, 100000UL}) {
        readText(least + "&dim n=2 / " + std::string(length, 'c') + "\n&dim n=3 /\n");
        EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL) << length;
    }
}

TEST_F(QV_LoaderWriterTest, TextBetweenGroupsIsPassedOver)
{
    readText("n=4 dim /\n" + least + "some words, n=5\n\n\t&dim n=3 /\nmore / &words\n");
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL);
}

TEST_F(QV_LoaderWriterTest, AValueMayHoldFurtherEqualSigns)
{
    EXPECT_EQ(readText(least + "&x a=b=c d= =e == /\n"),
              "champ\n\tEinc:'SIT'\nnumerique\n\tmethode:'CN_P'\n"
              "x\n\ta:b=c\n\td:\n\t:e\n\t:=\nx key word unknown in line 3\n"
              "z1:0 z2:0.5 z3:1\n");
}

TEST_F(QV_LoaderWriterTest, AQuotedValueShorterThanItsDelimitersIsEmpty)
{
    for (const char* value : {"relaxation=''", "relaxation='", "relaxation=", "relaxation"}) {
        QV_Bloch::setRelaxationType(3);
        const std::string said = readText(least + "&autres " + value + " /\n");
        EXPECT_EQ(said.find("warning"), std::string::npos) << said;
        EXPECT_EQ(QV_Bloch::getRelaxationType(), 0) << value;
        EXPECT_EQ(problem().getMethod(), QV_Problem::SPLIT_METHOD) << value;
    }
}

TEST_F(QV_LoaderWriterTest, AnUnknownRelaxationIsAnnouncedTwice)
{
    QV_Bloch::setRelaxationType(2);
    QV_Bloch::setSplitType(3);
    const std::string said = readText(least + "&autres relaxation='other' /\n");
    const std::string warnings = "warning relaxation type  other unknown !!\nchoose between:\n"
                                 "0\t \n1\t Pauli\n2\t Cascade\n3\t Equilibre\n"
                                 + splitWarning("other");
    ASSERT_GE(said.size(), warnings.size());
    EXPECT_EQ(said.substr(said.size() - warnings.size()), warnings);
    EXPECT_EQ(QV_Bloch::getRelaxationType(), 2);
    EXPECT_EQ(QV_Bloch::getSplitType(), 3);
}

TEST_F(QV_LoaderWriterTest, AWordThatNamesNothingEndsTheProcess)
{
    const std::string methods =
        "choose between:\n\tCN_Z\n\tCN_P\n\tCN_dtP\n\tRelax\n\tSplit\n\tpc\n";
    const std::pair<std::string, std::string> files[] = {
        {"&numerique methode='cn_p' /\n",
         "numerique\n\tmethode:'cn_p'\nwarning numerical method cn_p unknown !!\n" + methods},
        {"", "warning numerical method  unknown !!\n" + methods},
        {"&numerique methode='CN_P' /\n&champ Einc='sit' /\n",
         "numerique\n\tmethode:'CN_P'\nchamp\n\tEinc:'sit'\n"
         "warning incident fields type sit unknown !!\nchoose between:\n\tsinus\n\tSIT\n"
         "\tPACKAGE\n\tOSCILL1\n\tOSCILL2\n\tPOMPE_SIT\n\tMARCHE\n"},
        {least + "&freq_dist method=GAUSS /\n",
         "champ\n\tEinc:'SIT'\nnumerique\n\tmethode:'CN_P'\nfreq_dist\n\tmethod:GAUSS\n"
         "z1:0 z2:0.5 z3:1\n"
         "warning frequenies Distribution numerical method GAUSS unknown !!\n"
         "choose between:\n\tGAUSS\n"},
        {least + "&freq_dist method='CN_Z' /\n", // no quotes are taken off here
         "champ\n\tEinc:'SIT'\nnumerique\n\tmethode:'CN_P'\nfreq_dist\n\tmethod:'CN_Z'\n"
         "z1:0 z2:0.5 z3:1\n"
         "warning frequenies Distribution numerical method 'CN_Z' unknown !!\n"
         "choose between:\n\tGAUSS\n"},
    };
    for (const auto& [text, words] : files) {
        const std::string file = mDirectory.write("qv1.dat", text);
        EXPECT_EXIT(
            {
                dup2(STDERR_FILENO, STDOUT_FILENO);
                mLoader->readFile(mDirectory.write("again.dat", text));
                _exit(7);
            },
            testing::ExitedWithCode(0), testing::Eq(words));
    }
}

TEST_F(QV_LoaderWriterTest, GarbageIsReadWithoutHarm)
{
    std::mt19937_64 engine(3);
    const std::string marks = "&/='\" \n\tn0-9.e&/";
    for (int i = 0; i < 40; ++i) {
        std::string text = i % 2 == 0 ? least : std::string();
        for (int j = 0; j < 3000; ++j) {
            const auto byte = static_cast<char>(engine());
            text += engine() % 2 == 0 ? byte : marks[engine() % marks.size()];
        }
        text += "/\n" + least;
        const std::string file = mDirectory.write("qv1.dat", text);
        // A word for the method that names none ends the process with 0.
        EXPECT_EQ(runInChild([&] {
                      std::freopen("/dev/null", "w", stdout);
                      mLoader->readFile(file);
                      return 0;
                  }),
                  0);
    }
}

// ---------------------------------------------------------------- matrix files

TEST_F(QV_LoaderWriterTest, TheMatrixFilesNameFollowsMethodAndRelaxation)
{
    for (int method = 0; method < 256; ++method) {
        for (int relaxation = 0; relaxation < 256; ++relaxation) {
            std::string expected = "qv2.dat";
            if (method == 4 && relaxation < 3) {
                expected = relaxation == 0 ? "qv2p.dat" : relaxation == 1 ? "qv2c.dat" : "qv2e.dat";
            }
            ASSERT_EQ(QV_LoaderWriter::matrixFileName(static_cast<unsigned char>(method),
                                                      static_cast<unsigned char>(relaxation)),
                      expected)
                << method << " " << relaxation;
        }
    }
}

TEST_F(QV_LoaderWriterTest, EveryVariantOfTheMatrixFileIsReadSectionBySection)
{
    const unsigned long n = 2;
    for (int method = 0; method < 6; ++method) {
        for (int relaxation = 0; relaxation < 5; ++relaxation) {
            for (unsigned long dimension = 1; dimension <= 2; ++dimension) {
                QV_Bloch::resetShared();
                const COM_Scoped one(QV_1DProblem::New());
                one->getMaxwellSystem()->setDimension(dimension);
                mLoader->setProblem(*one);
                std::string text = "1 2\n(1,2) (3,4)\n(5,6) (7,8)\n";
                for (unsigned long p = 0; p < dimension; ++p) {
                    text += "0 " + std::to_string(p + 1) + " comment\n1 9\n";
                }
                const bool isDiagonal = method == 4 && relaxation == 2;
                text += isDiagonal ? "11 comment\n14\n" : "11 12\n13 14 comment\n";
                text += method == 5 ? "21 22\n23 24\n" : "1.5d3 comment\n";
                text += relaxation == 1 || relaxation == 2 ? "31 32\n" : "";
                text += "99 99 99 99\n"; // never reached
                const std::string which = std::to_string(method) + " " + std::to_string(relaxation)
                                          + " " + std::to_string(dimension);
                EXPECT_EQ(printedBy([&] {
                              EXPECT_TRUE(readMatrixText(n, text, method, relaxation)) << which;
                          }),
                          "");
                EXPECT_EQ(valuesOf(bloch().getLevelsFrequency()), (Values{1, 2})) << which;
                EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()),
                          (Complexes{{1, 2}, {3, 4}, {5, 6}, {7, 8}}))
                    << which;
                ASSERT_EQ(QV_Bloch::getPolarizations()->size(), dimension) << which;
                for (unsigned long p = 0; p < dimension; ++p) {
                    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(p)),
                              (Values{0, static_cast<double>(p + 1), 1, 9}))
                        << which;
                }
                EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 9.0) << which;
                EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()),
                          method == 5  ? (Values{21, 22, 23, 24})
                          : isDiagonal ? (Values{11, 0, 0, 14})
                                       : (Values{11, 12, 13, 14}))
                    << which;
                EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), method == 5 ? 1e12 : 1.5e3)
                    << which;
                EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()),
                          relaxation == 0 ? (Values{0, 0})
                          : relaxation == 1 || relaxation == 2
                              ? (Values{31, 32})
                              : (Values{1.303080409700614e-6, 1e8}))
                    << which;
                mLoader->resetProblem();
            }
        }
    }
}

namespace {

/// Two levels, method 0, relaxation 3: the shortest file.
const Names shortRows = {"1 2", "(1,2) (3,4)", "(5,6) (7,8)", "0 3",
                         "3 0", "11 12",       "13 14",       "1500"};

std::string joined(const Names& rows, const std::string& end = "\n")
{
    std::string text;
    for (const std::string& row : rows) {
        text += row + end;
    }
    return text;
}

} // namespace

TEST_F(QV_LoaderWriterTest, ARowsCommentIsSkippedUpToEightHundredCharacters)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    for (const std::size_t length : {0UL, 1UL, 400UL, 799UL, 800UL}) {
        const std::string comment = length == 0 ? "" : " " + std::string(length - 1, '7');
        EXPECT_TRUE(readMatrixText(2, joined(shortRows, comment + "\n"), 0, 3));
        EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1500.0) << length;
        EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{11, 12, 13, 14}))
            << length;
        QV_Bloch::setTransversalRelaxation(0.0);
    }
}

TEST_F(QV_LoaderWriterTest, ACommentBeyondEightHundredCharactersIsReadOnAsData)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    Names rows = shortRows;
    rows[0] += " " + std::string(799, 'c') + "(9,8)";
    EXPECT_TRUE(readMatrixText(2, joined(rows), 0, 3));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{{9, 8}, {1, 2}, {5, 6}, {7, 8}}));
}

TEST_F(QV_LoaderWriterTest, NumbersOfARowMayStandOnSeveralLines)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    EXPECT_TRUE(readMatrixText(
        2, "\n\n1\n2 x\n\n(1,2)\n(3,4)\n(5,6)\t(7,8)\n0\n3\n3 0\n11 12\n13 14\n1500", 0, 3));
    EXPECT_EQ(valuesOf(bloch().getLevelsFrequency()), (Values{1, 2}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{{1, 2}, {3, 4}, {5, 6}, {7, 8}}));
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1500.0);
}

TEST_F(QV_LoaderWriterTest, NumbersThatAFileLacksAreZero)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    EXPECT_TRUE(readMatrixText(2, "1 2\n(1,2) (3,4)\n(5,6", 0, 1));
    EXPECT_EQ(valuesOf(bloch().getLevelsFrequency()), (Values{1, 2}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{{1, 2}, {3, 4}, {5, 0}, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), (Values{0, 0, 0, 0}));
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 0.0);
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{0, 0, 0, 0}));
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 0.0);
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), (Values{0, 0}));
    EXPECT_EQ(mLoader->getMissingNumbers(), 12UL);
    EXPECT_TRUE(readMatrixText(2, "", 0, 3));
    EXPECT_EQ(valuesOf(bloch().getLevelsFrequency()), (Values{0, 0}));
    EXPECT_EQ(mLoader->getMissingNumbers(), 15UL);
    EXPECT_TRUE(readMatrixText(2, joined(shortRows), 0, 3));
    EXPECT_EQ(mLoader->getMissingNumbers(), 0UL);
}

TEST_F(QV_LoaderWriterTest, AFileThatIsNotReadIsShortOfNothing)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    EXPECT_TRUE(readMatrixText(2, "", 0, 3));
    EXPECT_NE(mLoader->getMissingNumbers(), 0UL);
    EXPECT_FALSE(mLoader->readMatrix(2, mDirectory.file("none.dat"), 0, 3));
    EXPECT_EQ(mLoader->getMissingNumbers(), 0UL);
}

TEST_F(QV_LoaderWriterTest, AMissingMatrixFileChangesNothing)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    EXPECT_EQ(
        printedBy([&] { EXPECT_FALSE(mLoader->readMatrix(2, mDirectory.file("none.dat"), 0, 0)); }),
        "");
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e12);
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{0, 1e8, 1e8, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), (Values{1.303080409700614e-6, 1e8}));
}

TEST_F(QV_LoaderWriterTest, AMatrixFileWithoutProblemIsNotRead)
{
    EXPECT_FALSE(readMatrixText(2, joined(shortRows), 0, 3));
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e12);
}

TEST_F(QV_LoaderWriterTest, MatricesBeyondMemoryAreRefusedBeforeAnythingIsAllocated)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    for (const unsigned long n : {8193UL, 1UL << 32, ~0UL}) {
        EXPECT_EQ(printedBy([&] { EXPECT_FALSE(readMatrixText(n, joined(shortRows), 0, 3)); }),
                  "matrices of " + std::to_string(n) + " levels are too large !\n");
    }
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e12);
}

TEST_F(QV_LoaderWriterTest, AFileForAnotherLevelCountIsForcedToThatOfTheAtoms)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    QV_Bloch::setLevelsNumber(3);
    EXPECT_TRUE(readMatrixText(2, joined(shortRows), 0, 3));
    EXPECT_EQ(valuesOf(bloch().getLevelsFrequency()), (Values{1, 2, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()),
              (Values{11, 12, 0, 13, 14, 0, 0, 0, 0}));
    EXPECT_TRUE(readMatrixText(0, "", 0, 0));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), Values(9));
}

TEST_F(QV_LoaderWriterTest, EverySystemHasTheFrequenciesOfTheFileWhenTheirSpreadIsZero)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    one->addToBlochEquations(*COM_Scoped(QV_Bloch::New()));
    EXPECT_TRUE(readMatrixText(2, joined(shortRows), 0, 3));
    EXPECT_EQ(valuesOf(bloch(0).getLevelsFrequency()), (Values{1, 2}));
    EXPECT_EQ(valuesOf(bloch(1).getLevelsFrequency()), (Values{1, 2}));
    EXPECT_NE(bloch(0).getLevelsFrequency(), bloch(1).getLevelsFrequency());
}

TEST_F(QV_LoaderWriterTest, GarbageForMatricesIsReadWithoutHarm)
{
    const COM_Scoped one(QV_1DProblem::New());
    mLoader->setProblem(*one);
    std::mt19937_64 engine(4);
    for (int i = 0; i < 40; ++i) {
        std::string text;
        for (int j = 0; j < 2000; ++j) {
            text += engine() % 4 == 0 ? " (,)\n"[engine() % 5] : static_cast<char>(engine());
        }
        EXPECT_TRUE(readMatrixText(3, text, i % 6, i % 4));
    }
}

// ---------------------------------------------------------------- both files

namespace {

const std::string wholeKeywordFile = "&dim n=3 /\n"
                                     "&type_test test='RLASER' /\n"
                                     "&champ Emax=1.5e9 lambda=1.2e-6 t_on=2e-13 Einc='OSCILL1' /\n"
                                     "&autres na=3e24 ind=1.5 temper=77 relaxation='Pauli' /\n"
                                     "&numerique CFL=0.5 parlambda=30 conv=1e-7 /\n"
                                     "&geom debut=0.25 fin=0.75 long=2e-4 maxt=400 /\n"
                                     "&ES z1=0.125 z2=0.25 z3=0.5 /\n"
                                     "&freq_dist n=1 /\n";

const std::string wholeMatrixFile = "0 1e15 2e15\n"
                                    "(1,0) (0,1) (0,0)\n(0,-1) (0,0) (0,0)\n(0,0) (0,0) (0,0)\n"
                                    "0 1e-29 0\n1e-29 0 2e-29\n0 2e-29 0\n"
                                    "0 1e8 2e8\n3e8 0 4e8\n5e8 6e8 0\n"
                                    "1e11\n"
                                    "0.5 0.25 0.25\n";

} // namespace

TEST_F(QV_LoaderWriterTest, AProblemReadFromFilesIsTheOneThatSettersMake)
{
    mDirectory.write("qv1.dat", wholeKeywordFile);
    mDirectory.write("qv2c.dat", wholeMatrixFile);
    printedBy([&] { mLoader->create1DMaxwellProblem(mDirectory.slashed()); });
    const std::string fromFiles = canonical(problem());
    const unsigned long steps = problem().getMaxTimeStepsNumber();
    const bool isLaser = maxwell().isReflexifLaserType();
    mLoader->resetProblem();
    QV_Bloch::resetShared();

    QV_Bloch::setLevelsNumber(3);
    const COM_Scoped one(QV_1DProblem::New());
    one->setTimeStep(1.2e-6 * 0.5 / (30 * lightSpeed));
    one->setMaxTimeStepsNumber(400);
    one->setMethod(QV_Problem::SPLIT_METHOD);
    one->getMaxwellSystem()->setReflexiveLaserType(true);
    QV_IncidentFields& incident = *one->getMaxwellSystem()->getIncidentFields();
    incident.setWaveLength(1.2e-6);
    incident.setFieldMaxValue(1.5e9);
    incident.setWavePackageDuration(2e-13);
    incident.setCFL(0.5);
    incident.setIncidentFieldsType(QV_IncidentFields::OSCILL1_TYPE);
    auto& medium = dynamic_cast<QV_1DMilieu&>(*one->getMilieu());
    medium.setLength(2e-4);
    medium.setIndice(1.5);
    medium.setCaracteristicLength(1.2e-6);
    medium.setDiscretizationNumber(30);
    medium.setStartingPosition(25.0);
    medium.setEndingPosition(75.0);
    medium.getCaptors()->setValues(12.5, 25.0, 50.0);
    QV_Bloch::setTemperature(77.0);
    QV_Bloch::setConvergenceRate(1e-7);
    QV_Bloch::setAtomsNumber(3e24);
    QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
    one->addToBlochEquations(*COM_Scoped(QV_Bloch::New()));
    const COM_Scoped omega(LA_RealVector::New(0));
    omega->setValues(0.0, 1e15, 2e15);
    one->generateBlochFrequencies(*omega);
    QV_Bloch::setTransversalRelaxation(1e11);
    const COM_Scoped P(LA_RealMatrix::New(3, 3));
    P->setValues(Values{0, 1e-29, 0, 1e-29, 0, 2e-29, 0, 2e-29, 0}, 3, 3);
    QV_Bloch::setPolarization(*P, 0);
    const COM_Scoped W(LA_RealMatrix::New(3, 3));
    W->setValues(Values{0, 1e8, 2e8, 3e8, 0, 4e8, 5e8, 6e8, 0}, 3, 3);
    QV_Bloch::setLongitudinalRelaxation(*W);
    const COM_Scoped rhoE(LA_RealVector::New(0));
    rhoE->setValues(0.5, 0.25, 0.25);
    QV_Bloch::setEquilibriumDensity(*rhoE);
    const COM_Scoped rho(LA_ComplexMatrix::New(3, 3));
    rho->setValues(Complexes{1, {0, 1}, 0, {0, -1}, 0, 0, 0, 0, 0}, 3, 3);
    QV_Bloch::setInitialDensity(*rho);

    EXPECT_EQ(fromFiles, canonical(*one));
    EXPECT_EQ(steps, one->getMaxTimeStepsNumber());
    EXPECT_TRUE(isLaser);
}

TEST_F(QV_LoaderWriterTest, TheWordsOfTheRelaxationChooseTheFileOneAboveTheirMeaning)
{
    const std::pair<const char*, const char*> files[] = {
        {"&autres relaxation='Pauli' /\n", "qv2c.dat"},
        {"&autres relaxation='Cascade' /\n", "qv2e.dat"},
        {"&autres relaxation='Equilibre' /\n", "qv2.dat"},
        {"&autres relaxation='' /\n", "qv2p.dat"},
        {"&numerique type_split='hrn' /\n", "qv2p.dat"},
        {"&numerique methode='CN_Z' /\n", "qv2.dat"},
        {"&autres relaxation='Pauli' /\n&numerique methode='pc' /\n", "qv2.dat"},
    };
    for (const auto& [text, name] : files) {
        QV_Bloch::resetShared();
        mDirectory.write("qv1.dat", least + text);
        const std::string said =
            printedBy([&] { mLoader->create1DMaxwellProblem(mDirectory.slashed()); });
        const std::string begin = "\t reading qv1.dat ...\nchamp\n\tEinc:'SIT'\n";
        const std::string end = "\t reading " + std::string(name) + " ...\n";
        EXPECT_EQ(said.substr(0, begin.size()), begin) << text;
        ASSERT_GE(said.size(), end.size());
        EXPECT_EQ(said.substr(said.size() - end.size()), end) << text;
        mLoader->resetProblem();
    }
}

TEST_F(QV_LoaderWriterTest, WithoutKeywordFileADefaultProblemTakesTheMatrices)
{
    mDirectory.write("qv2.dat", joined({"1 2", "(1,2) (3,4)", "(5,6) (7,8)", "0 3", "3 0", "11 12",
                                        "13 14", "1500"}));
    EXPECT_EQ(printedBy([&] { mLoader->create1DMaxwellProblem(mDirectory.slashed()); }),
              "\t reading qv1.dat ...\nfile " + mDirectory.slashed()
                  + "qv1.dat can not be read !! \n\t reading qv2.dat ...\n");
    ASSERT_NE(mLoader->getProblem(), nullptr);
    EXPECT_EQ(problem().getMethod(), QV_Problem::CN_Z_METHOD);
    EXPECT_EQ(problem().getMaxTimeStepsNumber(), 2000UL);
    EXPECT_EQ(valuesOf(bloch().getLevelsFrequency()), (Values{1, 2}));
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1500.0);
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), (Values{0, 0})); // relaxation 0
}

TEST_F(QV_LoaderWriterTest, WithoutAnyFileThereIsADefaultProblem)
{
    const WorkingDirectory there(mDirectory.path());
    EXPECT_EQ(printedBy([&] { mLoader->create1DMaxwellProblem(); }),
              "\t reading qv1.dat ...\nfile qv1.dat can not be read !! \n"
              "\t reading qv2.dat ...\n");
    const std::string made = canonical(problem());
    const COM_Scoped one(QV_1DProblem::New());
    EXPECT_EQ(made, canonical(*one));
}

TEST_F(QV_LoaderWriterTest, TheEmptyPathIsTheWorkingDirectory)
{
    const WorkingDirectory there(mDirectory.path());
    mDirectory.write("qv1.dat", wholeKeywordFile);
    mDirectory.write("qv2c.dat", wholeMatrixFile);
    printedBy([&] { mLoader->create1DMaxwellProblem(); });
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e11);
}

TEST_F(QV_LoaderWriterTest, ThePathIsPutInFrontOfTheNamesAsItStands)
{
    mDirectory.write("set-qv1.dat", wholeKeywordFile);
    mDirectory.write("set-qv2c.dat", wholeMatrixFile);
    printedBy([&] { mLoader->create1DMaxwellProblem(mDirectory.file("set-")); });
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e11);
}

TEST_F(QV_LoaderWriterTest, AProblemReadFromFilesRuns)
{
    const WorkingDirectory there(mDirectory.path());
    mDirectory.write("qv1.dat", "&dim n=2 /\n"
                                "&champ Emax=1e7 lambda=2e-4 t_on=1e-12 Einc='SIT' /\n"
                                "&autres na=1e24 temper=300 /\n"
                                "&numerique methode='CN_dtP' CFL=0.5 parlambda=2 conv=1e-6 /\n"
                                "&geom debut=0.25 fin=0.75 long=12.5e-4 maxt=20 /\n");
    mDirectory.write("qv2.dat", "0 1e12\n(1,0) (0,0)\n(0,0) (0,0)\n0 1e-29\n1e-29 0\n"
                                "0 1e9\n1e9 0\n1e10\n");
    printedBy([&] {
        mLoader->create1DMaxwellProblem();
        problem().setSavingPath("");
        EXPECT_EQ(problem().run(*COM_Scoped(COM_Out::New())), 0);
    });
    const std::string times = mDirectory.read("tps.res");
    EXPECT_EQ(std::count(times.begin(), times.end(), '\n'), 20);
}

TEST_F(QV_LoaderWriterTest, AFileWithoutLevelsMakesAProblemThatRefusesToRun)
{
    mDirectory.write("qv1.dat", least
                                    + "&champ lambda=2e-4 /\n&numerique CFL=0.5 /\n"
                                      "&geom debut=0.25 fin=0.75 long=12.5e-4 maxt=20 /\n");
    mDirectory.write("qv2.dat", "\n1500\n");
    printedBy([&] {
        mLoader->create1DMaxwellProblem(mDirectory.slashed());
        EXPECT_EQ(problem().run(*COM_Scoped(COM_Out::New())), QV_Problem::RABBI_FREQUENCY_ERROR);
    });
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1500.0);
}
