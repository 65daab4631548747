// The commands of velmora-cli.
#pragma once

#include "output/model/FilterChoice.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

namespace cli {

// What the process ends with.
constexpr int kGood = 0;
constexpr int kFailed = 1; // an error, or a map with something wrong
constexpr int kUsage = 2;  // the command line was not understood

// Runs the command line, given without the program's name, and gives what the process ends with. Results go
// to `out`; an error is one line on `err`.
int Run(const QStringList &arguments, QTextStream &out, QTextStream &err);

// Whether the command paints and so needs a QGuiApplication.
bool Paints(const QStringList &arguments);

// The command line was not understood. The text says why.
class UsageError {
public:
    explicit UsageError(QString text) : text_(std::move(text)) {}
    const QString &Text() const { return text_; }

private:
    QString text_;
};

// The functions that take remove what they read from the arguments. All of them raise UsageError for a value
// that is missing or not understood.

// The value of the option; empty without it.
QString TakeOption(QStringList &arguments, const QString &option);
// A number in that range; `preset` without the option.
int TakeNumber(QStringList &arguments, const QString &option, int lowest, int highest, int preset);
// The slice that --slice names, counted from 1; the first without it.
int TakeSlice(QStringList &arguments);
// Whether the switch was there.
bool TakeSwitch(QStringList &arguments, const QString &option);
// --filter-levels A,B, --filter-groups C and --view NAME; an empty list ticks nothing.
output::FilterChoice TakeFilter(QStringList &arguments);
// UsageError unless exactly `count` arguments are left, none of which is empty or looks like an option.
void ExpectFiles(const QStringList &arguments, int count);

// The commands; they get the arguments behind their names and raise UsageError or support::Error.
int Info(QStringList arguments, QTextStream &out);
int Check(QStringList arguments, QTextStream &out);
int Repair(QStringList arguments, QTextStream &out);
int Convert(QStringList arguments, QTextStream &out);
int Picture(QStringList arguments, QTextStream &out);
int Report(QStringList arguments, QTextStream &out);
int Slides(QStringList arguments, QTextStream &out);
int Print(QStringList arguments, QTextStream &out);
int Recovered(QStringList arguments, QTextStream &out);
int Template(QStringList arguments, QTextStream &out);
int Csv(QStringList arguments, QTextStream &out);
int Import(QStringList arguments, QTextStream &out);
int Layout(QStringList arguments, QTextStream &out);
int Route(QStringList arguments, QTextStream &out);

} // namespace cli
