// Nothing of a print server outlives the test that started it, however that ends.
#include "tests/support_real/cups/PrivateCups.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#ifdef Q_OS_LINUX
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace cups_test;

namespace {

constexpr int kPatience = 20000; // milliseconds

// Another process, whoever started it.
class Watched {
public:
    explicit Watched(qint64 process)
        : descriptor_(static_cast<int>(syscall(SYS_pidfd_open, static_cast<pid_t>(process), 0))) {}
    ~Watched() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    Watched(const Watched &) = delete;
    Watched &operator=(const Watched &) = delete;

    bool IsThere() const { return descriptor_ >= 0 && !Ends(0); }
    bool Ends(int milliseconds) const {
        pollfd ended{descriptor_, POLLIN, 0};
        return poll(&ended, 1, milliseconds) == 1;
    }

private:
    int descriptor_;
};

class LeftBehind : public ::testing::Test {
protected:
    void SetUp() override {
        const QString whyNot = PrivateCups::WhyNot();
        if (!whyNot.isEmpty()) GTEST_SKIP() << whyNot.toStdString();
    }
};

} // namespace

TEST_F(LeftBehind, TheServerEndsWithItsObject) {
    auto cups = std::make_unique<PrivateCups>();
    const Watched server(cups->ProcessId());
    ASSERT_TRUE(server.IsThere());
    cups.reset();
    EXPECT_TRUE(server.Ends(0));
}

TEST_F(LeftBehind, TheServerEndsWithATestThatIsKilledInAGroupOfItsOwn) {
    QProcess test;
    test.setChildProcessModifier([] { setpgid(0, 0); });
    test.start(QCoreApplication::applicationFilePath(), {QLatin1String(kHoldServer)});
    while (!test.canReadLine()) ASSERT_TRUE(test.waitForReadyRead(kPatience));
    const QStringList told = QString::fromLocal8Bit(test.readLine()).trimmed().split(u' ');
    const Watched server(told[0].toLongLong());
    ASSERT_TRUE(server.IsThere());
    test.kill();
    EXPECT_TRUE(test.waitForFinished(kPatience));
    EXPECT_TRUE(server.Ends(kPatience));
    EXPECT_TRUE(QDir(told.value(1)).removeRecursively());
}
#endif
