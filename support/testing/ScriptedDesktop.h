// A desktop whose answers a test writes down beforehand. A question that the script does not expect fails the
// test and names the text, and so does an expected question that never came. While the object lives it is the
// current desktop, and reported errors arrive as messages.
#pragma once

#include "support/Forms.h"
#include "support/RegistryStore.h"
#include "support/testing/ScriptedPrinters.h"

#include <deque>
#include <functional>
#include <vector>

namespace support::testing {

struct ShownMessage {
    QString text;
    QString title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    EnterPresses enter = EnterPresses::Consent;
};

class ScriptedMessageBoxes : public MessageBoxes {
public:
    Answer Show(const QString &text, Buttons buttons, Icon icon, const QString &title,
                EnterPresses enter) override;
    QString InputBox(const QString &prompt, const QString &title, const QString &preset) override;

    struct Expected {
        QString text;
        bool whole = true; // else the text is a part of the message
        Answer answer = Answer::Ok;
    };
    std::deque<Expected> expected;
    struct ExpectedInput {
        QString prompt;
        QString answer;
    };
    std::deque<ExpectedInput> expectedInputs;
    std::vector<ShownMessage> shown;
};

struct ShownFileDialog {
    bool save = false;
    QString filter;
    QString defaultExtension;
    QString startFolder;
    long flags = 0;
    int filterRow = 0;
};

class ScriptedDialogs : public CommonDialogs {
public:
    // `door` must outlive the object.
    explicit ScriptedDialogs(FakePrinters &door) : printers_(door) {}

    QString ShowOpenFileDialog(const QString &filter, const QString &defaultExtension,
                               const QString &startFolder, long flags, Owner owner, int &filterRow) override;
    QString ShowSaveFileDialog(const QString &filter, const QString &defaultExtension,
                               const QString &startFolder, long flags, Owner owner, int &filterRow) override;
    Colour ShowColorDialog(Owner owner, bool fullOpen, Colour colour) override;
    void ShowFontDialog(Owner owner, long flag, FontChoice &font, Colour &colour) override;
    bool ShowPrinter(Owner owner) override;

    struct File {
        QString path;
        int filterRow = 0; // 0 leaves the row as it went in
    };
    std::deque<File> openFiles;
    std::deque<File> saveFiles;
    std::deque<Colour> colours;
    struct FontAnswer {
        bool ok = true;
        FontChoice font;
        Colour colour = 0;
    };
    std::deque<FontAnswer> fonts;
    // Null cancels; else what the user chooses.
    std::deque<std::function<void(SystemPrinter &printer)>> printers;

    std::vector<ShownFileDialog> shownFiles;
    std::vector<Colour> startColours;

private:
    QString TakeFile(std::deque<File> &answers, const ShownFileDialog &dialog, int &filterRow);

    FakePrinters &printers_;
};

class ScriptedLauncher : public Launcher {
public:
    bool OpenFile(const QString &path) override { return Open(Door::File, path); }
    bool OpenAddress(const QString &url) override { return Open(Door::Address, url); }

    enum class Door { File, Address };
    struct Expected {
        Door door = Door::File;
        QString target;
        bool answer = true;
    };
    std::deque<Expected> expected;
    QStringList launched; // through either door

private:
    bool Open(Door door, const QString &target);
};

// Stands at 2024-05-17 10:30 until it is set; waiting moves it on.
class FakeClock : public Clock {
public:
    QDateTime Now() override { return now; }
    double Timer() override { return now.time().msecsSinceStartOfDay() / 1000.0; }
    void Wait(int milliseconds) override { now = now.addMSecs(milliseconds); }
    QDateTime now{QDate(2024, 5, 17), QTime(10, 30)};
};

// Tells 60 per cent of free resources until it is set; no guard refuses at that.
class FakeMemory : public MemoryProbe {
public:
    MemoryReading Read() override { return reading; }
    MemoryReading reading{60, std::nullopt};
};

// A fixed sequence: numbers from a small generator that Seed does not touch, GUIDs that count up from 1.
class FakeRandom : public Random {
public:
    void Seed(double timer) override { lastSeed = timer; }
    double Next() override;
    std::array<std::uint8_t, 16> NewGuid() override;
    double lastSeed = -1;
    // Given out first, in order, before the generator's own.
    std::deque<double> numbers;

private:
    std::uint32_t state_ = 1;
    std::uint32_t guids_ = 0;
};

class FakeIdentity : public Identity {
public:
    QString UserName() override { return name; }
    QString name = QStringLiteral("tester");
};

// A square of one colour for every file.
class FakeFileIcons : public FileIcons {
public:
    QIcon AssociatedIcon(const QString &path) override;
    QStringList asked;
};

class ScriptedDialogHost : public DialogHost {
public:
    bool ShowModal(const FormRequest &request, Owner owner) override;
    struct Expected {
        QString form;
        std::function<bool(const FormRequest &request)> action;
    };
    // From now on there is no form for such an argument.
    template <FormArgument Argument>
    void Miss() {
        missing_ << QLatin1String(Argument::kForm);
    }
    bool Knows(const QString &form) const override { return !missing_.contains(form); }
    std::deque<Expected> expected;
    QStringList shown;

private:
    QStringList missing_;
};

class ScriptedDesktop {
public:
    ScriptedDesktop();
    ~ScriptedDesktop();
    ScriptedDesktop(const ScriptedDesktop &) = delete;
    ScriptedDesktop &operator=(const ScriptedDesktop &) = delete;

    // Messages must come in the order in which they are expected, letter for letter.
    void ExpectMessage(const QString &text, Answer answer = Answer::Ok);
    void ExpectMessageContaining(const QString &part, Answer answer = Answer::Ok);
    void ExpectInput(const QString &prompt, const QString &answer);
    // An empty path cancels; a row of 0 leaves the filter row as it was.
    void ExpectOpenFile(const QString &path, int filterRow = 0);
    void ExpectSaveFile(const QString &path, int filterRow = 0);
    // kNoColour cancels.
    void ExpectColour(Colour colour);
    void ExpectFont(const FontChoice &font, Colour colour);
    void ExpectFontCancelled();
    // The printer dialog: cancelled, or closed with OK on what it shows.
    void ExpectPrinter(bool ok);
    // Closed with OK after `choose` has done to the program's printer what the user chooses.
    void ExpectPrinterChosen(std::function<void(SystemPrinter &printer)> choose);
    // A job to that printer or file, which ends well, or raises such an error.
    void ExpectJob(const QString &destination);
    void ExpectJobFails(const QString &destination, JobFails when, long number, const QString &text);
    void ExpectLaunch(const QString &file, bool answer = true);
    void ExpectAddress(const QString &url, bool answer = true);
    // The form that takes such an argument; without an action it is cancelled.
    template <FormArgument Argument>
    void ExpectForm(std::function<bool(Argument &argument)> action = {}) {
        dialogHost.expected.push_back(
            {QLatin1String(Argument::kForm), [action = std::move(action)](const FormRequest &request) {
                 return action && action(request.As<Argument>());
             }});
    }

    const std::vector<ShownMessage> &Messages() const { return messageBoxes.shown; }
    Desktop &Get() { return desktop; }
    // Fails the test for every expectation that was not met, and forgets them. The destructor does the same.
    void CheckAllAsked();

    ScriptedMessageBoxes messageBoxes;
    FakePrinters printers;
    ScriptedDialogs dialogs{printers};
    ScriptedLauncher launcher;
    FakeClock clock;
    FakeMemory memory;
    MemoryRegistryStore registry;
    FakeRandom random;
    FakeIdentity identity;
    FakeFileIcons fileIcons;
    ScriptedDialogHost dialogHost;
    Desktop desktop;
};

} // namespace support::testing
