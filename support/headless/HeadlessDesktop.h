// The desktop of a program without windows: messages go to stderr, a question is answered as if its box was
// closed, every dialog is cancelled, nothing is launched, and there is no printer.
#pragma once

#include "support/Desktop.h"
#include "support/Forms.h"
#include "support/headless/SystemDoors.h"
#include "support/Printers.h"
#include "support/RegistryStore.h"

#include <memory>

namespace support {

class HeadlessMessageBoxes : public MessageBoxes {
public:
    Answer Show(const QString &text, Buttons buttons, Icon icon, const QString &title,
                EnterPresses enter) override;
    QString InputBox(const QString &prompt, const QString &title, const QString &preset) override;
};

class HeadlessDialogs : public CommonDialogs {
public:
    QString ShowOpenFileDialog(const QString &, const QString &, const QString &, long, Owner,
                               int &) override;
    QString ShowSaveFileDialog(const QString &, const QString &, const QString &, long, Owner,
                               int &) override;
    Colour ShowColorDialog(Owner, bool, Colour) override { return kNoColour; }
    void ShowFontDialog(Owner, long, FontChoice &, Colour &) override {}
    bool ShowPrinter(Owner) override { return false; }
};

class HeadlessLauncher : public Launcher {
public:
    bool OpenFile(const QString &) override { return false; }
    bool OpenAddress(const QString &) override { return false; }
};

// No printers: jobs are PDF files.
class HeadlessPrinters : public Printers {
public:
    QStringList Names() override { return {}; }
    QString Default() override { return {}; }
    PrinterState State(const QString &) override { return PrinterState::Gone; }
    QList<QPageSize> Papers(const QString &) override;
    QMarginsF Unprintable(const SystemPrinter &) override { return {}; }
    SystemPrinter &System() override { return system_; }
    void SetDefault(const QString &) override {}
    std::unique_ptr<PrintJob> Start(const SystemPrinter &printer, const QString &documentName) override;

private:
    SystemPrinter system_;
};

class HeadlessFileIcons : public FileIcons {
public:
    QIcon AssociatedIcon(const QString &path) override; // null
};

// Becomes the current desktop for as long as it lives. The registry is the one given, or the platform's.
class HeadlessDesktop {
public:
    explicit HeadlessDesktop(std::unique_ptr<RegistryStore> registry = nullptr);
    ~HeadlessDesktop();
    HeadlessDesktop(const HeadlessDesktop &) = delete;
    HeadlessDesktop &operator=(const HeadlessDesktop &) = delete;

    Desktop &Get() { return desktop_; }

private:
    HeadlessMessageBoxes messageBoxes_;
    HeadlessDialogs dialogs_;
    HeadlessLauncher launcher_;
    SystemClock clock_;
    SystemMemoryProbe memory_;
    std::unique_ptr<RegistryStore> registry_;
    SystemRandom random_;
    HeadlessPrinters printers_;
    SystemIdentity identity_;
    HeadlessFileIcons fileIcons_;
    FormTable forms_;
    Desktop desktop_;
};

} // namespace support
