#include "tests/support_real/cups/PdfReader.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTransform>

namespace cups_test {

namespace {

QString Said(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

std::vector<QImage> PagesOf(const QString &pdf, const QString &folder) {
    const QString start = QFileInfo(pdf).completeBaseName();
    Said(QStringLiteral("pdftoppm"),
         {QStringLiteral("-r"), QString::number(kDotsPerInch), pdf, QDir(folder).filePath(start)});
    std::vector<QImage> pages;
    for (const QString &name :
         QDir(folder).entryList({start + QStringLiteral("-*.ppm")}, QDir::Files, QDir::Name))
        pages.emplace_back(QDir(folder).filePath(name));
    return pages;
}

QImage Upright(const QImage &page, QSize size) {
    const bool lies = (page.width() > page.height()) != (size.width() > size.height());
    return lies ? page.transformed(QTransform().rotate(-90)) : page;
}

QString TextOf(const QString &pdf) {
    QString text = Said(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    return text.replace(QRegularExpression(QStringLiteral("\\s+\f")), QStringLiteral("\f"));
}

QString SizeOf(const QString &pdf) {
    const QString info = Said(QStringLiteral("pdfinfo"), {pdf});
    static const QRegularExpression size(QStringLiteral("Page size:\\s+(\\S+ x \\S+) pts"));
    return size.match(info).captured(1);
}

} // namespace cups_test
