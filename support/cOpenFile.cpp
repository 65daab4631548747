#include "support/cOpenFile.h"

#include <QCoreApplication>
#include <QUrl>

namespace support {

namespace {

QString CannotLaunch(const QString &what) {
    return QStringLiteral("Cannot Launch Program! \r\nCan not find the following file\r\n'%1'").arg(what);
}

// `text` with what would end its part of an address in its coded form.
QString Part(const QString &text) {
    QString part;
    for (const QChar character : text) {
        const bool ends = character < u' ' || QStringLiteral("%&#").contains(character);
        part += ends ? QString::fromLatin1(QUrl::toPercentEncoding(character)) : QString(character);
    }
    return part;
}

} // namespace

bool cOpenFile::LaunchFile(const QString &file) {
    return Told(desktop_.launcher.OpenFile(file), CannotLaunch(file));
}

bool cOpenFile::LaunchAddress(const QString &url) {
    return Told(desktop_.launcher.OpenAddress(url), CannotLaunch(url));
}

bool cOpenFile::OpenEmail(const QString &address, const QString &subject, const QString &copy) {
    QString mail = QStringLiteral("mailto:%1?Subject=%2").arg(Part(address), Part(subject));
    if (!copy.isEmpty()) mail += QStringLiteral("&CC=") + Part(copy);
    return Told(desktop_.launcher.OpenAddress(mail),
                QStringLiteral("Cannot launch mail program! \r\nPlease ensure that a program that is capable "
                               "of using the mailto extension is installed."));
}

bool cOpenFile::Told(bool opened, const QString &text) {
    if (!opened)
        desktop_.messageBoxes.Show(text, Buttons::Ok, Icon::Exclamation, QCoreApplication::applicationName());
    return opened;
}

} // namespace support
