// Options of the command line that are answered on the console, without a window.
#pragma once

#include <optional>
#include <QStringList>

namespace app {

struct ConsoleAnswer {
    QString text; // whole lines
    bool isComplaint = false;
};

// The answer to --help (-h) or --version, as the first argument behind the program's name; none for anything
// else. Needs no application object.
std::optional<ConsoleAnswer> AnswerToOption(const QStringList &arguments);

// The complaint about a first argument that looks like an option and is none, where the whole command line is
// no file. `arguments` without those that the toolkit knows.
std::optional<ConsoleAnswer> ComplaintAboutOption(const QStringList &arguments);

// Writes the answer to the standard output, a complaint to the standard error. Gives the exit code for a
// process that ends with it.
int Tell(const ConsoleAnswer &answer);

} // namespace app
