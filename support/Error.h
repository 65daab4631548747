// Errors as the program raises, passes on and reports them.
#pragma once

#include <exception>
#include <QByteArray>
#include <QString>
#include <utility>

namespace support {

// Numbers that more than one folder raises. Each has its row in the table of texts in Error.cpp.
constexpr long kErrInvalidProcedureCall = 5;
constexpr long kErrOverflow = 6;
constexpr long kErrOutOfMemory = 7;
constexpr long kErrSubscriptOutOfRange = 9;
constexpr long kErrTypeMismatch = 13;
constexpr long kErrFileNotFound = 53;
constexpr long kErrDiskFull = 61;
constexpr long kErrPermissionDenied = 70;
constexpr long kErrPathFileAccess = 75;
constexpr long kErrPathNotFound = 76;
constexpr long kErrObjectNotSet = 91;
constexpr long kErrAlreadyLoaded = 360;
constexpr long kErrLoadedAtDesignTime = 362;
constexpr long kErrInvalidPropertyValue = 380;
constexpr long kErrKeyInUse = 457;
constexpr long kErrInvalidPicture = 481;

// What the number says of itself; empty for one without a row.
QString ErrorText(long number);

// A failure with the three things that every handler needs. The source grows into a list of the routines that
// the error passed through, one a line.
class Error : public std::exception {
public:
    Error(long number, QString source, QString description);

    long Number() const { return number_; }
    const QString &Source() const { return source_; }
    const QString &Description() const { return description_; }
    // The description in UTF-8, for test output and for the command line.
    const char *what() const noexcept override { return what_.constData(); }

    // The same error with a carriage return, a line feed and `routine` added to its source.
    Error PassedThrough(const QString &routine) const;

private:
    long number_;
    QString source_;
    QString description_;
    QByteArray what_;
};

// Throws the error with its number's text; behind a colon what it is about, if that is given.
[[noreturn]] void Raise(long number, const QString &source, const QString &about = {});

// The text of the box that reports `error`: description, two carriage returns, "(Error #N)".
QString ReportText(const Error &error);
// The title of the box that reports an error of `routine` in `object`: "Error in OBJECT: Sub ROUTINE".
QString ReportTitle(const QString &object, const QString &routine);

// What the handler of the event loop does with an error: set once at start to a function that shows the
// message box. Until then errors are written to stderr.
using Reporter = void (*)(const QString &title, const QString &text);
void SetReporter(Reporter reporter);
void ShowReport(const QString &object, const QString &routine, const Error &error);

// Turns the exception being handled into an Error: an Error stays what it is, std::bad_alloc becomes number 7
// "Out of memory", any other std::exception number 5 with its own text. Call inside a catch block only.
Error CurrentError(const QString &source);

// For routines that the event loop enters: runs `body`. An error is shown in a message box with the title
// "Error in OBJECT: Sub ROUTINE", and the call then ends normally.
template <typename Body>
void Report(const char *object, const char *routine, Body &&body) {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        ShowReport(QString::fromLatin1(object), QString::fromLatin1(routine),
                   CurrentError(QString::fromLatin1(object)));
    }
}

// For routines that other routines call: runs `body` and gives its result. An error is raised again with the
// same number and description and with `routine` added to its source.
template <typename Body>
auto PassOn(const char *routine, Body &&body) -> decltype(std::forward<Body>(body)()) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        throw CurrentError(QString()).PassedThrough(QString::fromLatin1(routine));
    }
}

} // namespace support
