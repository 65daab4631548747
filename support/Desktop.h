// The doors to the outside: every message, dialog, launched program, clock reading and random number goes
// through one of these, so that a test can script the answers and read what was shown.
#pragma once

#include "support/Colour.h"

#include <array>
#include <cstdint>
#include <optional>
#include <QDateTime>
#include <QFont>
#include <QString>
#include <QStringList>

class QIcon;
class QWidget;

namespace support {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Stop, Question, Exclamation, Information };
enum class Answer { Ok, Cancel, Yes, No };

// The button that Enter presses: Yes or Ok, whichever of them the box has; or No, where Yes destroys
// something.
enum class EnterPresses { Consent, No };

// What closing a box without a button counts as: Cancel, No or Ok, whichever of them it has, in that order.
Answer ClosingAnswer(Buttons buttons);

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // Shows `text` modally and gives the button pressed; closing the box counts as ClosingAnswer(buttons).
    virtual Answer Show(const QString &text, Buttons buttons, Icon icon, const QString &title,
                        EnterPresses enter = EnterPresses::Consent) = 0;
    // Asks for one line of text; empty when cancelled.
    virtual QString InputBox(const QString &prompt, const QString &title, const QString &preset) = 0;
};

// The window above which a dialog opens. Null means the active window.
using Owner = QWidget *;

// Flags of the file dialogs, with the values that callers add up.
namespace fileflags {
constexpr long kOverwritePrompt = 2;
constexpr long kHideReadOnly = 4;
constexpr long kPathMustExist = 2048;
constexpr long kFileMustExist = 4096;
constexpr long kExplorer = 524288;
} // namespace fileflags

struct FontChoice {
    QString name;
    double size = 8; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
};

// The five common dialogs. A cancel never raises an error.
class CommonDialogs {
public:
    virtual ~CommonDialogs() = default;
    // The path chosen, or an empty text. `filter` is rows of title|pattern joined by |; `filterRow` (from 1)
    // is the row selected at first and comes back as the row chosen, unchanged after a cancel. Adds kExplorer
    // to flags. `startFolder` of the save dialog may have a name to begin with behind the folder.
    virtual QString ShowOpenFileDialog(const QString &filter, const QString &defaultExtension,
                                       const QString &startFolder, long flags, Owner owner,
                                       int &filterRow) = 0;
    virtual QString ShowSaveFileDialog(const QString &filter, const QString &defaultExtension,
                                       const QString &startFolder, long flags, Owner owner,
                                       int &filterRow) = 0;
    // The colour chosen, or -1. A start colour other than 0 is turned into its plain value first.
    virtual Colour ShowColorDialog(Owner owner, bool fullOpen, Colour colour) = 0;
    // Updates font and colour on OK, leaves both as they were on cancel.
    virtual void ShowFontDialog(Owner owner, long flag, FontChoice &font, Colour &colour) = 0;
    // Shows the print dialog for the program's printer (Printers::System), which offers PDF files too, also
    // where there is no printer. True on OK; the printer chosen becomes the program's printer, with all that
    // was chosen for it.
    virtual bool ShowPrinter(Owner owner) = 0;
};

class Launcher {
public:
    virtual ~Launcher() = default;
    // Opens a file or folder with the program that the platform has for its kind; a program or script is run.
    // False when it isn't there, whatever else the text could mean, and when nothing opens it.
    virtual bool OpenFile(const QString &path) = 0;
    // Opens an address of the web or of mail (http, https, mailto). False for anything else, a path above
    // all, and when nothing opens it.
    virtual bool OpenAddress(const QString &url) = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime Now() = 0;
    // Seconds since midnight, with fraction.
    virtual double Timer() = 0;
    // Waits up to `milliseconds`, letting events run.
    virtual void Wait(int milliseconds) = 0;
};

// What the platform tells of its memory. Exactly one of the two is set.
struct MemoryReading {
    std::optional<int> freeResourcesPercent; // platforms that report free resources themselves
    std::optional<int> memoryLoadPercent;    // Windows of the NT line
};

class MemoryProbe {
public:
    virtual ~MemoryProbe() = default;
    virtual MemoryReading Read() = 0;
};

// The figure that the memory guards compare with 80. On a platform with free resources it is what is in use,
// on the others what is free: the guards rely on that asymmetry.
int MemoryFigure(const MemoryReading &reading);

class RegistryStore; // support/RegistryStore.h

class Random {
public:
    virtual ~Random() = default;
    virtual void Seed(double timer) = 0;
    // A number in the half-open range 0 to 1.
    virtual double Next() = 0;
    // Sixteen bytes of a new version 4 GUID.
    virtual std::array<std::uint8_t, 16> NewGuid() = 0;
};

class Printers; // support/Printers.h

// The user's name on the machine.
class Identity {
public:
    virtual ~Identity() = default;
    virtual QString UserName() = 0;
};

// What the platform shows files as.
class FileIcons {
public:
    virtual ~FileIcons() = default;
    // The icon of the application that opens the file, or of its kind. Never null where there is a screen.
    virtual QIcon AssociatedIcon(const QString &path) = 0;
};

class FormRequest; // support/Forms.h

// Opens the modal forms; callers go through support/Forms.h.
class DialogHost {
public:
    virtual ~DialogHost() = default;
    // True when the user chose OK.
    virtual bool ShowModal(const FormRequest &request, Owner owner) = 0;
    // Whether there is a form of that name.
    virtual bool Knows(const QString &form) const {
        Q_UNUSED(form)
        return true;
    }
};

// One reference to each door. Built in main and handed down.
struct Desktop {
    MessageBoxes &messageBoxes;
    CommonDialogs &dialogs;
    Launcher &launcher;
    Clock &clock;
    MemoryProbe &memory;
    RegistryStore &registry;
    Random &random;
    Printers &printers;
    Identity &identity;
    FileIcons &fileIcons;
    DialogHost &dialogHost;
};

// The desktop of the process, for the routines whose signature is fixed. SetDesktop is called once, in main
// or at the start of a test; CurrentDesktop before that is an error 91 "Object variable or With block
// variable not set".
void SetDesktop(Desktop *desktop);
Desktop &CurrentDesktop();

// A Reporter (support/Error.h) that shows errors with the message boxes of the current desktop: OK only, no
// icon.
void ReportWithMessageBoxes(const QString &title, const QString &text);

} // namespace support
