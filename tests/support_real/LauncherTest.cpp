#include "support/real/QtLauncher.h"

#include <gtest/gtest.h>
#include <QDesktopServices>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

using namespace support;

namespace {

// Takes what the platform's programs would be handed.
class Handed : public QObject {
    Q_OBJECT
public:
    Handed() {
        for (const char *scheme : kSchemes)
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "Take");
    }
    ~Handed() override {
        for (const char *scheme : kSchemes) QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    Q_INVOKABLE void Take(const QUrl &url) { taken << url.toString(); }
    QStringList taken;

private:
    static constexpr const char *kSchemes[] = {"file", "http", "https", "mailto", "ftp"};
};

} // namespace

TEST(QtLauncher, OpenFile_TakesWhatIsThereAndNothingElse) {
    const Handed handed;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a b#c.txt"));
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    EXPECT_TRUE(QtLauncher().OpenFile(file));
    EXPECT_TRUE(QtLauncher().OpenFile(folder.path()));
    EXPECT_EQ(handed.taken, QStringList({QUrl::fromLocalFile(file).toString(),
                                         QUrl::fromLocalFile(folder.path()).toString()}));
    for (const char *gone :
         {"", "/none/of/this.pdf", "www.example.org", "https://example.org/", "C:\\gone.txt"})
        EXPECT_FALSE(QtLauncher().OpenFile(QString::fromLatin1(gone))) << gone;
    EXPECT_EQ(handed.taken.size(), 2);
}

TEST(QtLauncher, OpenAddress_TakesNoPath) {
    const Handed handed;
    const QStringList addresses{"https://example.org/a?b=c", "http://example.org/",
                                "mailto:a@example.org?Subject=two words"};
    for (const QString &address : addresses) EXPECT_TRUE(QtLauncher().OpenAddress(address));
    EXPECT_EQ(handed.taken, addresses);
    const QTemporaryDir folder;
    for (const QString &other : {QString(), folder.path(), QUrl::fromLocalFile(folder.path()).toString(),
                                 QStringLiteral("gone.txt"), QStringLiteral("C:\\gone.txt"),
                                 QStringLiteral("www.example.org"), QStringLiteral("ftp://example.org/")})
        EXPECT_FALSE(QtLauncher().OpenAddress(other)) << other.toStdString();
    EXPECT_EQ(handed.taken, addresses);
}

#include "LauncherTest.moc"
