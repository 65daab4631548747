// What the documents for developers (*.md, but for the guide) name in backquotes is in the tree under that
// name.
#include "tests/structure/Tree.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

namespace {

using structure::testing::kRoot;
using structure::testing::TextOf;

// Paths from the root, each with a slash in front, without the build folder and the data of tests.
QStringList FilesOfTheTree() {
    QStringList files;
    for (const QString &name : kRoot.entryList(QDir::Files)) files << "/" + name;
    for (const QString &folder : kRoot.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (folder == "build") continue;
        QDirIterator all(kRoot.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
        while (all.hasNext()) files << "/" + kRoot.relativeFilePath(all.next());
    }
    return files.filter(QRegularExpression("^(?!/tests/data/)"));
}

void AddWords(const QString &text, QSet<QString> &words) {
    static const QRegularExpression word("\\w+");
    for (auto found = word.globalMatch(text); found.hasNext();) words.insert(found.next().captured());
}

// All words of the sources and of the paths.
QSet<QString> WordsOf(const QStringList &files) {
    static const QRegularExpression source("(\\.(cpp|h|cmake|py|sh|json)|CMakeLists\\.txt)$");
    QSet<QString> words;
    for (const QString &path : files) AddWords(path, words);
    for (const QString &path : files.filter(source)) AddWords(TextOf(path.mid(1)), words);
    return words;
}

QStringList QuotedIn(const QString &paper) {
    static const QRegularExpression quoted("`([^`\\n]+)`");
    QStringList all;
    for (auto found = quoted.globalMatch(paper); found.hasNext();) all << found.next().captured(1);
    return all;
}

// What begins like a name of this program's, capitals and small letters in one word, or like a path to one.
const QRegularExpression kName("^[\\w/.:]*([a-z]\\w*[A-Z]|[A-Z]\\w*[a-z])\\w*");
// A source, named with its folder or without.
const QRegularExpression kFile("^[\\w/.]+\\.(cpp|h|py|sh)$");

} // namespace

TEST(Papers, NameOnlyWhatIsThere) {
    const QStringList files = FilesOfTheTree();
    const QSet<QString> words = WordsOf(files);
    int named = 0;
    for (const QString &paper : files.filter(QRegularExpression("\\.md$"))) {
        if (paper == "/docs/guide.md") continue; // it is for users, and has tests of its own
        for (const QString &quoted : QuotedIn(TextOf(paper.mid(1)))) {
            const QRegularExpressionMatch name = kName.match(quoted);
            QSet<QString> parts;
            AddWords(name.captured(), parts);
            EXPECT_TRUE(words.contains(parts)) << qPrintable(paper) << " names " << qPrintable(quoted);
            const bool isFile = kFile.match(quoted).hasMatch();
            EXPECT_TRUE(
                !isFile ||
                std::ranges::any_of(files, [&](const QString &file) { return file.endsWith("/" + quoted); }))
                << qPrintable(paper) << " names " << qPrintable(quoted);
            named += name.hasMatch() || isFile;
        }
    }
    EXPECT_GT(named, 200);
}
