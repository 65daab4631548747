#include "support/Error.h"

#include "support/FollowUp.h"

#include <cstdio>
#include <new>

namespace support {

namespace {
void WriteToStderr(const QString &title, const QString &text) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
}
Reporter currentReporter = WriteToStderr;

struct FollowUp {
    long number = 0;
    QString description;
    std::function<void()> action;
};
FollowUp followUp;

struct TextRow {
    long number;
    const char *text;
};
constexpr TextRow kTexts[] = {
    {kErrInvalidProcedureCall, "Invalid procedure call or argument"},
    {kErrOverflow, "Overflow"},
    {kErrOutOfMemory, "Out of memory"},
    {kErrSubscriptOutOfRange, "Subscript out of range"},
    {kErrTypeMismatch, "Type mismatch"},
    {kErrFileNotFound, "File not found"},
    {kErrDiskFull, "Disk full"},
    {kErrPermissionDenied, "Permission denied"},
    {kErrPathFileAccess, "Path/File access error"},
    {kErrPathNotFound, "Path not found"},
    {kErrObjectNotSet, "Object variable or With block variable not set"},
    {kErrAlreadyLoaded, "Object already loaded"},
    {kErrLoadedAtDesignTime, "Can't unload controls created at design time"},
    {kErrInvalidPropertyValue, "Invalid property value"},
    {kErrKeyInUse, "This key is already associated with an element of this collection"},
    {kErrInvalidPicture, "Invalid picture"},
};
} // namespace

QString ErrorText(long number) {
    for (const TextRow &row : kTexts)
        if (row.number == number) return QString::fromLatin1(row.text);
    return {};
}

void Raise(long number, const QString &source, const QString &about) {
    const QString text = ErrorText(number);
    throw Error(number, source, about.isEmpty() ? text : text + QStringLiteral(": ") + about);
}

Error::Error(long number, QString source, QString description)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      what_(description_.toUtf8()) {}

Error Error::PassedThrough(const QString &routine) const {
    return Error(number_, source_ + QStringLiteral("\r\n") + routine, description_);
}

QString ReportText(const Error &error) {
    return error.Description() + QStringLiteral("\r\r(Error #%1)").arg(error.Number());
}

QString ReportTitle(const QString &object, const QString &routine) {
    return QStringLiteral("Error in %1: Sub %2").arg(object, routine);
}

void SetReporter(Reporter reporter) { currentReporter = reporter ? reporter : WriteToStderr; }

void FollowReport(const Error &error, std::function<void()> action) {
    followUp = {error.Number(), error.Description(), std::move(action)};
}

void ShowReport(const QString &object, const QString &routine, const Error &error) {
    const FollowUp next = std::exchange(followUp, {});
    currentReporter(ReportTitle(object, routine), ReportText(error));
    if (next.action && next.number == error.Number() && next.description == error.Description())
        Report("Error", "FollowReport", next.action);
}

Error CurrentError(const QString &source) {
    try {
        throw;
    } catch (const Error &error) {
        return error;
    } catch (const std::bad_alloc &) {
        return Error(kErrOutOfMemory, source, ErrorText(kErrOutOfMemory));
    } catch (const std::exception &error) {
        return Error(kErrInvalidProcedureCall, source, QString::fromUtf8(error.what()));
    } catch (...) {
        return Error(kErrInvalidProcedureCall, source, QStringLiteral("Unknown error"));
    }
}

} // namespace support
