#include "quorvexRun/RunInput.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Package.h"
#include "metaModel/MM_Parser.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvexRun/RunError.h"
#include "quorvexRun/RunProject.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace {

constexpr const char* keywordFile = "qv1.dat";
constexpr const char* resultsDirectory = "resultats";
constexpr const char* problemClass = "QV_1DProblem";
constexpr std::size_t tailSize = 64; ///< Bytes at a file's end, among which its last tag stands.

/// The whole file, or, where `onlyTail` says so, its last bytes.
std::string contents(const std::filesystem::path& file, bool onlyTail)
{
    // Looked at first: to open a pipe would wait for its other end.
    std::error_code ignored;
    std::ifstream stream;
    if (std::filesystem::is_regular_file(file, ignored)) {
        stream.open(file, std::ios::binary);
    }
    if (!stream.is_open()) {
        throw RunError("the file " + file.string() + " cannot be read");
    }
    if (onlyTail) {
        const std::uintmax_t size = std::filesystem::file_size(file);
        stream.seekg(static_cast<std::streamoff>(size > tailSize ? size - tailSize : 0));
    }
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Whether each group "&keyword ... /" has its end. What follows it on the line is a comment.
bool areGroupsClosed(const std::string& keywords)
{
    std::istringstream stream(keywords);
    std::string token;
    bool isClosed = true;
    while (stream >> token) {
        if (token.starts_with('&')) {
            isClosed = false;
        } else if (!isClosed && (token.starts_with('/') || token.ends_with('/'))) {
            isClosed = true;
            std::getline(stream, token);
        }
    }
    return isClosed;
}

} // namespace

RunInput::RunInput()
    : mKind(DEFAULT)
    , mUsualOutput(resultsDirectory)
{}

RunInput::RunInput(const std::string& input)
{
    const std::filesystem::path path(input);
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) {
        throw RunError(
            "there is no " + input
            + "; the input is a project directory, a parameters file (.xml), or a directory with "
              "qv1.dat");
    }
    if (!std::filesystem::is_directory(path, ignored)) {
        mKind = path.filename() == keywordFile ? OLDER : XML;
        mFile = mKind == OLDER ? path.parent_path() : path;
        mUsualOutput = resultsDirectory;
    } else if (RunProject::isProject(path)) {
        mFile = RunProject::parametersFile(path);
        mUsualOutput = path;
    } else if (std::filesystem::exists(path / keywordFile, ignored)) {
        mKind = OLDER;
        mFile = path;
        mUsualOutput = resultsDirectory;
    } else {
        throw RunError("the directory " + input
                       + " holds neither a project (project.dpj, parameters.xml) nor qv1.dat");
    }
}

QV_1DProblem* RunInput::read()
{
    switch (mKind) {
    case DEFAULT:
        return QV_1DProblem::New();
    case OLDER:
        return readOlder();
    default:
        return readXml();
    }
}

QV_1DProblem* RunInput::readXml()
{
    const std::string tail = contents(mFile, true);
    const std::string name = mFile.string();
    const COM_Scoped package(MM_Package::New());
    MM_Parser::parseXMLMetaModelFile(name, *package);
    const MM_Class* const root = package->getRootMetaClass();
    const std::string end = std::string("</") + MM_Parser::PACKAGE_XML_TAG + ">";
    const std::size_t last = tail.find_last_not_of(" \t\r\n");
    const bool isWhole = last != std::string::npos && tail.substr(0, last + 1).ends_with(end);
    COM_Scoped classes(COM_Array<MM_Class>::New());
    package->getMetaClasses(*classes);
    if (classes->size() == 0) {
        throw RunError("the file " + name + " is no parameters file: it does not begin with <"
                       + MM_Parser::PACKAGE_XML_TAG + "> and its classes");
    }
    if (!isWhole) {
        throw RunError("the parameters file " + name + " is cut off: it does not end with " + end);
    }
    if (root == nullptr || root->getName().find(problemClass) == std::string::npos) {
        throw RunError("the file " + name + " holds no problem but "
                       + (root == nullptr ? "parts without a whole"
                                          : "an object of class " + root->getName()));
    }
    const COM_Scoped loader(QV_LoaderWriter::New());
    loader->load(name);
    auto* const problem = dynamic_cast<QV_1DProblem*>(loader->getProblem());
    if (problem == nullptr) {
        throw RunError("the problem in " + name + " cannot be made");
    }
    problem->addReference(nullptr);
    return problem;
}

QV_1DProblem* RunInput::readOlder()
{
    const std::string directory = mFile.empty() ? "./" : mFile.string() + "/";
    const std::string keywords = contents(directory + keywordFile, false);
    if (keywords.find('\0') != std::string::npos) {
        throw RunError("the file " + directory + keywordFile + " is not a text");
    }
    if (keywords.find('&') == std::string::npos) {
        throw RunError("the file " + directory + keywordFile
                       + " has no group of keywords, such as \"&champ lambda=1.5e-6 /\"");
    }
    if (!areGroupsClosed(keywords)) {
        throw RunError("the file " + directory + keywordFile
                       + " is cut off: its last group does not end with /");
    }
    const COM_Scoped loader(QV_LoaderWriter::New());
    loader->create1DMaxwellProblem(directory);
    auto* const problem = dynamic_cast<QV_1DProblem*>(loader->getProblem());
    if (problem == nullptr) {
        throw RunError("the problem in " + directory + " cannot be made");
    }
    const std::string matrices =
        QV_LoaderWriter::matrixFileName(problem->getMethod(), QV_Bloch::getRelaxationType());
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(directory + matrices, ignored)) {
        throw RunError("the directory " + directory + " lacks " + matrices
                       + ", which holds the atoms' frequencies and matrices");
    }
    if (loader->getMissingNumbers() > 0) {
        throw RunError("the file " + directory + matrices
                       + " is cut off: " + std::to_string(loader->getMissingNumbers())
                       + " numbers are missing at its end");
    }
    for (const std::string& attribute : loader->getMissingAttributes()) {
        mRemarks.push_back(std::string(keywordFile) + " does not give " + attribute
                           + "; 0 is taken");
    }
    problem->addReference(nullptr);
    return problem;
}
