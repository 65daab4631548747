// A conversion and a text file that find no room leave the target as it was and no other file.
#include "cli/Commands.h"

#include "document/MapSchema.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Files.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#ifndef Q_OS_WIN
#include <csignal>
#include <sys/resource.h>

namespace {

// A limit on the size of files stands in for a disk without room.
class SmallDisk {
public:
    explicit SmallDisk(qint64 bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{static_cast<rlim_t>(bytes), before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

class FullDisk : public ::testing::Test {
protected:
    FullDisk() {
        support::SetProgramPath(folder_.path());
        document::WriteTemplate(Path("template.tpl"), {}, {});
        document::CreateEmptyMap(Path("source.map"));
        storage::Database database = storage::OpenDatabase(Path("source.map"));
        database.Execute(
            QStringLiteral("INSERT INTO [Slices] ([Index], [Text], [xZoom], [yZoom]) VALUES (0, 's', 0, 0)"));
        database.Execute(
            QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500) "
                           "INSERT INTO [Nodes] ([Key], [Slice]) SELECT 'key ' || i, 0 FROM n"));
    }
    ~FullDisk() override { support::SetProgramPath(QString()); }

    QString Path(const char *name) const { return folder_.filePath(QString::fromLatin1(name)); }
    QStringList Names() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }
    int Run(const QStringList &arguments) {
        error_.clear();
        QString out;
        QTextStream outStream(&out), errStream(&error_);
        return cli::Run(arguments, outStream, errStream);
    }
    int Convert() { return Run({"convert", Path("source.map"), Path("target.map")}); }

    QTemporaryDir folder_;
    QString error_;
};

} // namespace

TEST_F(FullDisk, LeavesNoTargetWhereNoneWas) {
    const QStringList before = Names();
    ASSERT_EQ(Convert(), cli::kGood) << error_.toStdString();
    const qint64 needed = QFileInfo(Path("target.map")).size();
    constexpr int kSteps = 8;
    for (int step = 0; step < kSteps; ++step) {
        QFile::remove(Path("target.map"));
        const SmallDisk disk(needed * step / kSteps);
        EXPECT_EQ(Convert(), cli::kFailed) << "at step " << step;
        EXPECT_EQ(error_.count(QLatin1Char('\n')), 1) << error_.toStdString();
        EXPECT_EQ(Names(), before) << "at step " << step;
    }
}

TEST_F(FullDisk, LeavesTheFormerTargetWhole) {
    support::CopyFileTo(Path("template.tpl"), Path("target.map"));
    const QByteArray former = support::ReadWholeFile(Path("target.map"));
    const QStringList before = Names();
    const SmallDisk disk(former.size() + 4096);
    EXPECT_EQ(Convert(), cli::kFailed);
    EXPECT_EQ(support::ReadWholeFile(Path("target.map")), former);
    EXPECT_EQ(Names(), before);
}

TEST_F(FullDisk, LeavesATextFileAsItWas) {
    const auto write = [this] {
        QString out;
        QTextStream outStream(&out), errStream(&error_);
        return cli::Run({"csv", Path("source.map"), Path("out.csv")}, outStream, errStream);
    };
    ASSERT_EQ(write(), cli::kGood) << error_.toStdString();
    const QByteArray former = support::ReadWholeFile(Path("out.csv"));
    const QStringList before = Names();
    constexpr int kSteps = 4;
    for (int step = 0; step < kSteps; ++step) {
        const SmallDisk disk(former.size() * step / kSteps);
        EXPECT_EQ(write(), cli::kFailed) << "at step " << step;
        EXPECT_TRUE(error_.contains(QStringLiteral("Disk full"))) << error_.toStdString();
        EXPECT_EQ(support::ReadWholeFile(Path("out.csv")), former);
        EXPECT_EQ(Names(), before) << "at step " << step;
    }
}

TEST_F(FullDisk, LeavesFormerReportsWholeAndNoOthers) {
    constexpr qint64 kRoom = 10000;
    for (const QStringList &target :
         {QStringList{"--rtf", "a.rtf"}, {"--html", "a.htm"}, {"--html", "new.htm"}}) {
        const QString path = QDir(folder_.path()).filePath(target[1]);
        const bool isNew = target[1] == QLatin1String("new.htm");
        if (!isNew) support::CopyFileTo(Path("template.tpl"), path);
        const QStringList before = Names();
        const SmallDisk disk(kRoom);
        EXPECT_EQ(Run({"report", target[0], Path("source.map"), path, "--nodes"}), cli::kFailed);
        EXPECT_TRUE(error_.contains(QStringLiteral("Disk full"))) << error_.toStdString();
        EXPECT_EQ(QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  before);
        EXPECT_TRUE(isNew || support::ReadWholeFile(path) == support::ReadWholeFile(Path("template.tpl")));
    }
}

// A presentation is made in memory and then written.
TEST_F(FullDisk, LeavesTheFormerPresentation) {
    QString out;
    QTextStream outStream(&out), errStream(&error_);
    const auto slides = [&](const char *name) {
        return cli::Run({"slides", Path("source.map"), Path(name)}, outStream, errStream);
    };
    for (const char *name : {"target.pptx", "target.ppt"}) {
        ASSERT_EQ(slides(name), cli::kGood) << error_.toStdString();
        const QByteArray former = support::ReadWholeFile(Path(name));
        const QStringList before = Names();
        const SmallDisk disk(former.size() / 2);
        EXPECT_EQ(slides(name), cli::kFailed) << name;
        EXPECT_TRUE(error_.contains(QStringLiteral("#61"))) << error_.toStdString();
        EXPECT_EQ(Names(), before);
        EXPECT_EQ(support::ReadWholeFile(Path(name)), former);
    }
}

#endif
