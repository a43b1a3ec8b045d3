// The pages of the manual as the browser shows them: no link leads nowhere, no picture is missing.
#include "gui/TestBrowser.h"

#include <QImage>
#include <QTextBlock>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

namespace {

/// What a page refers to, and the places that it has.
struct Page
{
    std::set<QString> mLinks;
    std::set<QString> mPictures;
    std::set<QString> mAnchors;
};

Page contentsOf(const QTextDocument& document)
{
    Page page;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto i = block.begin(); !i.atEnd(); ++i) {
            const QTextCharFormat format = i.fragment().charFormat();
            if (format.isImageFormat()) {
                page.mPictures.insert(format.toImageFormat().name());
            }
            if (!format.anchorHref().isEmpty()) {
                page.mLinks.insert(format.anchorHref());
            }
            for (const QString& name : format.anchorNames()) {
                page.mAnchors.insert(name);
            }
        }
    }
    return page;
}

std::vector<std::string> pagesBelow(const std::filesystem::path& directory)
{
    std::vector<std::string> pages;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
        if (entry.path().extension() == ".html") {
            pages.push_back(entry.path());
        }
    }
    std::sort(pages.begin(), pages.end());
    return pages;
}

/// Shows pages one after the other, in the browser, and says what is wrong with them.
class Reader
{
public:
    void read(const std::string& file)
    {
        if (!mBrowser.edit().setFile(file)) {
            mFaults.push_back(file + ": not shown");
            return;
        }
        const Page page = contentsOf(*mBrowser.edit().document());
        for (const QString& picture : page.mPictures) {
            if (!isLoaded(picture)) {
                mFaults.push_back(file + ": no picture " + picture.toStdString());
            }
        }
        for (const QString& link : page.mLinks) {
            follow(file, link);
        }
    }
    const std::vector<std::string>& faults() const { return mFaults; }
    unsigned long links() const { return mLinks; }

private:
    bool isLoaded(const QString& picture) const
    {
        const QVariant data =
            mBrowser.edit().document()->resource(QTextDocument::ImageResource, picture);
        return !data.value<QImage>().isNull() || !QImage::fromData(data.toByteArray()).isNull();
    }
    void follow(const std::string& file, const QString& link)
    {
        ++mLinks;
        const QUrl target = QUrl::fromLocalFile(QString::fromStdString(file)).resolved(QUrl(link));
        if (!target.isLocalFile()) {
            return;
        }
        const std::string path = target.toLocalFile().toStdString();
        if (!std::filesystem::is_regular_file(path)) {
            mFaults.push_back(file + ": no page " + link.toStdString());
        } else if (target.hasFragment() && !anchorsOf(path).contains(target.fragment())) {
            mFaults.push_back(file + ": no place " + link.toStdString());
        }
    }
    const std::set<QString>& anchorsOf(const std::string& path)
    {
        const auto known = mAnchors.find(path);
        if (known != mAnchors.end()) {
            return known->second;
        }
        const COM_Scoped other(GUI_BrowserWindow::New(*mBrowser.root()));
        other->setHome(path);
        return mAnchors[path] = contentsOf(*other->getBrowserEdit()->document()).mAnchors;
    }

    TestBrowser mBrowser;
    std::map<std::string, std::set<QString>> mAnchors;
    std::vector<std::string> mFaults;
    unsigned long mLinks = 0;
};

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

} // namespace

TEST(ManualPages, EveryLinkAndPictureIsThere)
{
    const std::vector<std::string> pages = pagesBelow(QUORVEX_MANUAL);
    EXPECT_NE(std::find(pages.begin(), pages.end(), QUORVEX_MANUAL "/index.html"), pages.end());
    Reader reader;
    for (const std::string& page : pages) {
        reader.read(page);
    }
    EXPECT_EQ(joined(reader.faults()), "");
    EXPECT_GE(reader.links() + 1, pages.size()) << "every page but the first is linked";
}

TEST(ManualPages, WhatIsMissingIsFound)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.file("fr"));
    std::filesystem::create_directory(directory.file("pictures"));
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(QString::fromStdString(directory.file("pictures/here.png")), "PNG"));
    const std::string index = directory.write(
        "index.html",
        "<h1 id=\"top\">Top</h1><p><a href=\"fr/index.html\">fr</a> <a href=\"#top\">top</a> "
        "<a href=\"#nowhere\">nowhere</a> <a href=\"gone.html\">gone</a> <a "
        "href=\"http://localhost/\">out</a> <img src=\"pictures/here.png\"> <img "
        "src=\"pictures/gone.png\"></p>");
    const std::string french = directory.write(
        "fr/index.html",
        "<p><a href=\"../index.html#top\">en</a> <a href=\"../index.html#bottom\">bas</a> "
        "<img src=\"../pictures/here.png\"><img src=\"pictures/here.png\"></p>");
    Reader reader;
    reader.read(index);
    reader.read(french);
    EXPECT_EQ(joined(reader.faults()),
              index + ": no picture pictures/gone.png\n" + index + ": no place #nowhere\n" + index
                  + ": no page gone.html\n" + french + ": no picture pictures/here.png\n" + french
                  + ": no place ../index.html#bottom\n");
    EXPECT_EQ(reader.links(), 7UL);
}
