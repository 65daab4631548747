#include "support/Printers.h"

#include "support/Error.h"
#include "support/FileNames.h"

#include <algorithm>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace support {

namespace {

QString Said(const char *text, const QString &name) {
    return QCoreApplication::translate("Printers", text).arg(name);
}

// "Plan (2)" is "Plan" and 2; a name without a number has 1.
struct NumberedName {
    QString base;
    int number = 1;
};

NumberedName Numbered(const QString &name) {
    static const QRegularExpression numbered(QStringLiteral("\\A(.+) \\((\\d{1,6})\\)\\z"));
    const QRegularExpressionMatch match = numbered.match(name);
    return match.hasMatch() ? NumberedName{match.captured(1), match.captured(2).toInt()}
                            : NumberedName{name, 1};
}

bool IsChosen(const SystemPrinter &printer, int page) {
    if (!printer.pages.isEmpty() && !printer.pages.contains(page)) return false;
    return printer.pageSet == PageSet::All || (page % 2 == 1) == (printer.pageSet == PageSet::Odd);
}

std::vector<int> Copied(const std::vector<int> &pages, const SystemPrinter &printer) {
    std::vector<int> copied;
    const auto copies = static_cast<std::size_t>(std::max(1, printer.copies));
    for (std::size_t i = 0; i < pages.size() * copies; ++i)
        copied.push_back(pages[printer.collate ? i % pages.size() : i / copies]);
    return copied;
}

// A link that leads nowhere has its name, too.
bool IsTaken(const QFileInfo &file) { return file.exists() || file.isSymLink(); }

} // namespace

std::vector<int> PagesToPrint(const SystemPrinter &printer, int count) {
    std::vector<int> pages;
    for (int page = 1; page <= count; ++page)
        if (IsChosen(printer, page)) pages.push_back(page);
    if (printer.order == PageOrder::LastToFirst) std::reverse(pages.begin(), pages.end());
    return printer.ToFile() ? Copied(pages, printer) : pages;
}

QStringList QueueOptions(const SystemPrinter &printer) {
    static const QString kSides[] = {QStringLiteral("one-sided"), QStringLiteral("two-sided-long-edge"),
                                     QStringLiteral("two-sided-short-edge")};
    QStringList options = printer.options;
    options << QStringLiteral("media") << printer.paper.key();
    options << QStringLiteral("copies") << QString::number(printer.copies);
    options << QStringLiteral("multiple-document-handling")
            << (printer.collate ? QStringLiteral("separate-documents-collated-copies")
                                : QStringLiteral("separate-documents-uncollated-copies"));
    options << QStringLiteral("sides") << kSides[static_cast<int>(printer.sides)];
    options << QStringLiteral("print-scaling") << QStringLiteral("none");
    if (!printer.colour) options << QStringLiteral("print-color-mode") << QStringLiteral("monochrome");
    return options;
}

QString FreeOutputFile(const QString &folder, const QString &title) {
    const QString name = title.trimmed().isEmpty() ? QStringLiteral("Print") : title;
    return NextFreeFile(QDir(folder).filePath(SafeFileName(name + QStringLiteral(".pdf"))));
}

QString NextFreeFile(const QString &path) {
    const QFileInfo file(path);
    if (!IsTaken(file)) return path;
    const QString ending = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    NumberedName name = Numbered(file.completeBaseName());
    QString next;
    do {
        ++name.number;
        next = file.dir().filePath(QStringLiteral("%1 (%2)%3").arg(name.base).arg(name.number).arg(ending));
    } while (IsTaken(QFileInfo(next)));
    return next;
}

void RequireReady(const QString &name, PrinterState state) {
    struct Row {
        PrinterState state;
        const char *text;
    };
    static constexpr Row kRows[] = {
        {PrinterState::Paused, QT_TRANSLATE_NOOP("Printers", "The printer \"%1\" is paused.\nResume it, or "
                                                             "choose another one.")},
        {PrinterState::Refusing, QT_TRANSLATE_NOOP("Printers", "The printer \"%1\" takes no jobs at the "
                                                               "moment.\nChoose another one.")},
        {PrinterState::Gone, QT_TRANSLATE_NOOP("Printers", "The printer \"%1\" isn't there any longer.\n"
                                                           "Choose another one.")},
    };
    if (name.isEmpty())
        throw Error(kErrDeviceUnavailable, QStringLiteral("Printers"),
                    QCoreApplication::translate("Printers", "There is no printer."));
    for (const Row &row : kRows)
        if (row.state == state)
            throw Error(kErrDeviceUnavailable, QStringLiteral("Printers"), Said(row.text, name));
}

DefaultPrinterFor::DefaultPrinterFor(Printers &printers, const QString &device, const QString &remembered)
    : printers_(printers), remembered_(remembered) {
    printers_.SetDefault(device);
}

DefaultPrinterFor::~DefaultPrinterFor() { printers_.SetDefault(remembered_); }

} // namespace support
