#include "tests/support_real/cups/PrivateCups.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTest>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#endif

namespace cups_test {

namespace {

constexpr int kPatience = 20000; // milliseconds

struct Queue {
    const char *name;
    bool isDefault;
    const char *papers; // name=width x height in points
    bool bothSides;
};
constexpr Queue kQueues[] = {
    {"Office", true, "A4=595x842 A3=842x1191 Letter=612x792", true},
    {"Attic", false, "A4=595x842", false},
};

constexpr char kSystemFolders[] = "/usr/sbin:/usr/local/sbin:/sbin";

// A server of root's runs its filters as another user, who must find his way to the folder.
QString FolderTemplate() {
    const QString above = geteuid() == 0 ? QStringLiteral("/tmp") : QDir::tempPath();
    return above + QStringLiteral("/velmora-test-cups-XXXXXX");
}

QString ServerProgram() {
    const QString found = QStandardPaths::findExecutable(QStringLiteral("cupsd"));
    return found.isEmpty() ? QStandardPaths::findExecutable(QStringLiteral("cupsd"),
                                                            QString::fromLatin1(kSystemFolders).split(u':'))
                           : found;
}

// One choice of several, as a description of a printer writes it.
QString Choice(const QString &keyword, const QString &usual, const QStringList &values) {
    QString text = QStringLiteral("*OpenUI *%1: PickOne\n*OrderDependency: 10 AnySetup *%1\n*Default%1: %2\n")
                       .arg(keyword, usual);
    for (const QString &value : values) text += QStringLiteral("*%1 %2/%2: \"\"\n").arg(keyword, value);
    return text + QStringLiteral("*CloseUI: *%1\n").arg(keyword);
}

// The description of a printer that takes PDF as it comes. Copies are made on the way to it.
QString Description(const Queue &queue) {
    const QString name = QString::fromLatin1(queue.name);
    QString text = QStringLiteral("*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
                                  "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n"
                                  "*PCFileName: \"%1.PPD\"\n*Product: \"(%1)\"\n*PSVersion: \"(3010) 0\"\n"
                                  "*Manufacturer: \"Test\"\n*ModelName: \"%1\"\n*ShortNickName: \"%1\"\n"
                                  "*NickName: \"%1\"\n*LanguageLevel: \"3\"\n*ColorDevice: True\n"
                                  "*DefaultColorSpace: RGB\n*cupsVersion: 2.4\n*cupsManualCopies: True\n"
                                  "*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n")
                       .arg(name);
    QStringList papers;
    QString sizes = QStringLiteral("*DefaultImageableArea: A4\n*DefaultPaperDimension: A4\n");
    constexpr double kMargin = 5 * 72 / 25.4;
    for (const QString &paper : QString::fromLatin1(queue.papers).split(u' ')) {
        const QString key = paper.section(u'=', 0, 0), size = paper.section(u'=', 1);
        const double width = size.section(u'x', 0, 0).toDouble(), height = size.section(u'x', 1).toDouble();
        papers << key;
        sizes += QStringLiteral("*ImageableArea %1/%1: \"%2 %2 %3 %4\"\n*PaperDimension %1/%1: \"%5 %6\"\n")
                     .arg(key)
                     .arg(kMargin)
                     .arg(width - kMargin)
                     .arg(height - kMargin)
                     .arg(width)
                     .arg(height);
    }
    text += Choice(QStringLiteral("PageSize"), papers[0], papers);
    text += Choice(QStringLiteral("PageRegion"), papers[0], papers) + sizes;
    text += Choice(QStringLiteral("ColorModel"), QStringLiteral("RGB"),
                   {QStringLiteral("RGB"), QStringLiteral("Gray")});
    if (queue.bothSides)
        text += Choice(
            QStringLiteral("Duplex"), QStringLiteral("None"),
            {QStringLiteral("None"), QStringLiteral("DuplexNoTumble"), QStringLiteral("DuplexTumble")});
    return text;
}

QString TextOf(ipp_t *answer, const char *attribute) {
    ipp_attribute_t *found = ippFindAttribute(answer, attribute, IPP_TAG_ZERO);
    return found ? QString::fromUtf8(ippGetString(found, 0, nullptr)) : QString();
}

int NumberOf(ipp_t *answer, const char *attribute) {
    ipp_attribute_t *found = ippFindAttribute(answer, attribute, IPP_TAG_ZERO);
    return found ? ippGetInteger(found, 0) : 0;
}

Job AskFor(int number) {
    ipp_t *request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    const QByteArray uri = QByteArray("ipp://localhost/jobs/") + QByteArray::number(number);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.constData());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    ipp_t *answer = cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/");
    const int state = NumberOf(answer, "job-state");
    const Job job{number,
                  state >= IPP_JSTATE_CANCELED,
                  state == IPP_JSTATE_COMPLETED,
                  TextOf(answer, "job-name"),
                  NumberOf(answer, "copies"),
                  TextOf(answer, "media"),
                  TextOf(answer, "sides"),
                  TextOf(answer, "print-color-mode")};
    ippDelete(answer);
    return job;
}

} // namespace

QString PrivateCups::WhyNot() {
#ifdef Q_OS_LINUX
    return ServerProgram().isEmpty() ? QStringLiteral("cupsd isn't installed") : QString();
#else
    return QStringLiteral("only Linux ends a server with the test that started it");
#endif
}

PrivateCups::PrivateCups() : folder_(FolderTemplate()) {
    WriteFiles();
    qputenv("CUPS_SERVER", Path(QStringLiteral("socket")).toLocal8Bit());
    cupsSetServer(Path(QStringLiteral("socket")).toLocal8Bit().constData());
    server_.setStandardOutputFile(Path(QStringLiteral("said")), QIODevice::Append);
    server_.setStandardErrorFile(Path(QStringLiteral("said")), QIODevice::Append);
#ifdef Q_OS_LINUX
    server_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
#endif
    server_.start(ServerProgram(),
                  {QStringLiteral("-f"), QStringLiteral("-c"), Path(QStringLiteral("root/cupsd.conf")),
                   QStringLiteral("-s"), Path(QStringLiteral("root/cups-files.conf"))});
    EXPECT_TRUE(QTest::qWaitFor([this] { return Answers(); }, kPatience)) << Log().toStdString();
}

PrivateCups::~PrivateCups() { Stop(); }

void PrivateCups::Stop() {
    if (server_.state() == QProcess::NotRunning) return;
    server_.terminate();
    if (!server_.waitForFinished(kPatience)) server_.kill();
    server_.waitForFinished();
}

QString PrivateCups::Log() const {
    QString all;
    for (const char *name : {"said", "error_log"}) {
        QFile file(Path(QString::fromLatin1(name)));
        if (file.open(QIODevice::ReadOnly)) all += QString::fromUtf8(file.readAll());
    }
    return all.right(4000);
}

void PrivateCups::Write(const QString &name, const QString &text) const {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    file.write(text.toUtf8());
}

void PrivateCups::WriteFiles() const {
    QFile::setPermissions(folder_.path(), QFile::permissions(folder_.path()) | QFile::ExeGroup |
                                              QFile::ReadGroup | QFile::ExeOther | QFile::ReadOther);
    for (const char *name : {"root/ppd", "spool/tmp", "cache", "state", "out"})
        ASSERT_TRUE(QDir().mkpath(Path(QString::fromLatin1(name))));
    Write(QStringLiteral("root/cups-files.conf"),
          QStringLiteral("ServerRoot %1/root\nRequestRoot %1/spool\nTempDir %1/spool/tmp\nCacheDir %1/cache\n"
                         "StateDir %1/state\nAccessLog %1/access_log\nErrorLog %1/error_log\n"
                         "PageLog %1/page_log\nPrintcap %1/printcap\nFileDevice Yes\nSyncOnClose No\n")
              .arg(folder_.path()));
    Write(QStringLiteral("root/cupsd.conf"),
          QStringLiteral("Listen %1/socket\nLogLevel warn\nMaxLogSize 0\nBrowsing Off\nWebInterface No\n"
                         "DefaultAuthType None\n<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                         "<Policy default>\nJobPrivateAccess all\nJobPrivateValues none\n"
                         "SubscriptionPrivateAccess all\nSubscriptionPrivateValues none\n"
                         "<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n")
              .arg(folder_.path()));
    QString printers;
    for (const Queue &queue : kQueues) {
        const QString name = QString::fromLatin1(queue.name);
        Write(QStringLiteral("root/ppd/%1.ppd").arg(name), Description(queue));
        printers += QStringLiteral("<%1 %2>\nInfo %2\nDeviceURI file:%3\nState Idle\nAccepting "
                                   "Yes\nErrorPolicy abort-job\n</%1>\n")
                        .arg(queue.isDefault ? QStringLiteral("DefaultPrinter") : QStringLiteral("Printer"),
                             name, OutputOf(name));
    }
    Write(QStringLiteral("root/printers.conf"), printers);
}

bool PrivateCups::Answers() const {
    cups_dest_t *dests = nullptr;
    const int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &dests);
    cupsFreeDests(count, dests);
    return count == static_cast<int>(std::size(kQueues));
}

void PrivateCups::Command(const QString &program, const QStringList &arguments) const {
    const QString path =
        QStandardPaths::findExecutable(program).isEmpty() ? QStringLiteral("/usr/sbin/") + program : program;
    QStringList all{QStringLiteral("-h"), Path(QStringLiteral("socket"))};
    EXPECT_EQ(QProcess::execute(path, all + arguments), 0) << program.toStdString();
}

std::vector<Job> PrivateCups::Jobs(const QString &queue) const {
    cups_job_t *found = nullptr;
    const int count =
        cupsGetJobs2(CUPS_HTTP_DEFAULT, &found, queue.toUtf8().constData(), 0, CUPS_WHICHJOBS_ALL);
    std::vector<Job> jobs;
    for (int i = 0; i < count; ++i) jobs.push_back(AskFor(found[i].id));
    cupsFreeJobs(count, found);
    return jobs;
}

QString PrivateCups::Printed(const QString &queue) const {
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const std::vector<Job> jobs = Jobs(queue);
            return !jobs.empty() && jobs.back().over;
        },
        kPatience))
        << Log().toStdString();
    return OutputOf(queue);
}

QString PrivateCups::OutputOf(const QString &queue) const {
    return Path(QStringLiteral("out/%1.pdf").arg(queue));
}

} // namespace cups_test
