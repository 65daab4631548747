#include "support/testing/ScriptedDesktop.h"

#include "support/Error.h"

#include <gtest/gtest.h>
#include <QIcon>
#include <QPixmap>

namespace support::testing {

namespace {

void Fail(const QString &what) { ADD_FAILURE() << what.toStdString(); }

void FailIfAny(std::size_t count, const char *what) {
    if (count > 0) ADD_FAILURE() << count << " expected " << what << " never came";
}

template <typename Value>
std::optional<Value> TakeFirst(std::deque<Value> &values) {
    if (values.empty()) return std::nullopt;
    Value first = values.front();
    values.pop_front();
    return first;
}

} // namespace

Answer ScriptedMessageBoxes::Show(const QString &text, Buttons buttons, Icon icon, const QString &title,
                                  EnterPresses enter) {
    shown.push_back({text, title, buttons, icon, enter});
    const std::optional<Expected> next = TakeFirst(expected);
    if (!next) {
        Fail(QStringLiteral("Unexpected message \"%1\" with the title \"%2\"").arg(text, title));
        return ClosingAnswer(buttons);
    }
    if (next->whole ? text != next->text : !text.contains(next->text))
        Fail(QStringLiteral("Message \"%1\" where \"%2\" was expected").arg(text, next->text));
    return next->answer;
}

QString ScriptedMessageBoxes::InputBox(const QString &prompt, const QString &, const QString &) {
    const std::optional<ExpectedInput> next = TakeFirst(expectedInputs);
    if (!next || next->prompt != prompt) Fail(QStringLiteral("Unexpected input box \"%1\"").arg(prompt));
    return next ? next->answer : QString();
}

QString ScriptedDialogs::TakeFile(std::deque<File> &answers, const ShownFileDialog &dialog, int &filterRow) {
    shownFiles.push_back(dialog);
    const std::optional<File> next = TakeFirst(answers);
    if (!next)
        Fail(QStringLiteral("Unexpected %1 dialog with the filter \"%2\"")
                 .arg(dialog.save ? QStringLiteral("save") : QStringLiteral("open"), dialog.filter));
    if (!next || next->path.isEmpty()) return QString();
    if (next->filterRow != 0) filterRow = next->filterRow;
    return next->path;
}

QString ScriptedDialogs::ShowOpenFileDialog(const QString &filter, const QString &defaultExtension,
                                            const QString &startFolder, long flags, Owner, int &filterRow) {
    return TakeFile(openFiles,
                    {false, filter, defaultExtension, startFolder, flags | fileflags::kExplorer, filterRow},
                    filterRow);
}

QString ScriptedDialogs::ShowSaveFileDialog(const QString &filter, const QString &defaultExtension,
                                            const QString &startFolder, long flags, Owner, int &filterRow) {
    return TakeFile(saveFiles, {true, filter, defaultExtension, startFolder, flags, filterRow}, filterRow);
}

Colour ScriptedDialogs::ShowColorDialog(Owner, bool, Colour colour) {
    startColours.push_back(colour == 0 ? colour : PlainColour(colour));
    const std::optional<Colour> next = TakeFirst(colours);
    if (!next) Fail(QStringLiteral("Unexpected colour dialog"));
    return next.value_or(kNoColour);
}

void ScriptedDialogs::ShowFontDialog(Owner, long, FontChoice &font, Colour &colour) {
    const std::optional<FontAnswer> next = TakeFirst(fonts);
    if (!next) Fail(QStringLiteral("Unexpected font dialog"));
    if (!next || !next->ok) return;
    font = next->font;
    colour = next->colour;
}

bool ScriptedDialogs::ShowPrinter(Owner) {
    const auto next = TakeFirst(printers);
    if (!next) Fail(QStringLiteral("Unexpected printer dialog"));
    if (!next || !*next) return false;
    (*next)(printers_.system);
    return true;
}

bool ScriptedLauncher::Open(Door door, const QString &target) {
    launched.append(target);
    const std::optional<Expected> next = TakeFirst(expected);
    if (!next || next->door != door || next->target != target)
        Fail(QStringLiteral("Unexpected launch of the %1 \"%2\"")
                 .arg(door == Door::File ? QStringLiteral("file") : QStringLiteral("address"), target));
    return next && next->answer;
}

double FakeRandom::Next() {
    if (const std::optional<double> number = TakeFirst(numbers)) return *number;
    state_ = state_ * 1664525u + 1013904223u;
    return state_ / 4294967296.0;
}

std::array<std::uint8_t, 16> FakeRandom::NewGuid() {
    std::array<std::uint8_t, 16> bytes{};
    ++guids_;
    for (std::size_t i = 0; i < 4; ++i) bytes[15 - i] = static_cast<std::uint8_t>(guids_ >> (8 * i));
    bytes[6] = 0x40;
    bytes[8] = 0x80;
    return bytes;
}

bool ScriptedDialogHost::ShowModal(const FormRequest &request, Owner) {
    shown.append(request.Form());
    const std::optional<Expected> next = TakeFirst(expected);
    if (!next || next->form != request.Form()) {
        Fail(QStringLiteral("Unexpected form \"%1\"").arg(request.Form()));
        return false;
    }
    return next->action(request);
}

QIcon FakeFileIcons::AssociatedIcon(const QString &path) {
    asked << path;
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::blue);
    return QIcon(pixmap);
}

ScriptedDesktop::ScriptedDesktop()
    : desktop{messageBoxes, dialogs,  launcher, clock,     memory,    registry,
              random,       printers, identity, fileIcons, dialogHost} {
    SetDesktop(&desktop);
    SetReporter(ReportWithMessageBoxes);
}

ScriptedDesktop::~ScriptedDesktop() {
    CheckAllAsked();
    SetReporter(nullptr);
    SetDesktop(nullptr);
}

void ScriptedDesktop::ExpectMessage(const QString &text, Answer answer) {
    messageBoxes.expected.push_back({text, true, answer});
}

void ScriptedDesktop::ExpectMessageContaining(const QString &part, Answer answer) {
    messageBoxes.expected.push_back({part, false, answer});
}

void ScriptedDesktop::ExpectInput(const QString &prompt, const QString &answer) {
    messageBoxes.expectedInputs.push_back({prompt, answer});
}

void ScriptedDesktop::ExpectOpenFile(const QString &path, int filterRow) {
    dialogs.openFiles.push_back({path, filterRow});
}

void ScriptedDesktop::ExpectSaveFile(const QString &path, int filterRow) {
    dialogs.saveFiles.push_back({path, filterRow});
}

void ScriptedDesktop::ExpectColour(Colour colour) { dialogs.colours.push_back(colour); }

void ScriptedDesktop::ExpectFont(const FontChoice &font, Colour colour) {
    dialogs.fonts.push_back({true, font, colour});
}

void ScriptedDesktop::ExpectFontCancelled() { dialogs.fonts.push_back({false, {}, 0}); }

void ScriptedDesktop::ExpectPrinter(bool ok) {
    if (ok) return ExpectPrinterChosen([](SystemPrinter &) {});
    dialogs.printers.emplace_back();
}

void ScriptedDesktop::ExpectPrinterChosen(std::function<void(SystemPrinter &printer)> choose) {
    dialogs.printers.push_back(std::move(choose));
}

void ScriptedDesktop::ExpectJob(const QString &destination) {
    ExpectJobFails(destination, JobFails::Never, 0, QString());
}

void ScriptedDesktop::ExpectJobFails(const QString &destination, JobFails when, long number,
                                     const QString &text) {
    printers.expected.push_back({destination, when, number, text});
}

void ScriptedDesktop::ExpectLaunch(const QString &file, bool answer) {
    launcher.expected.push_back({ScriptedLauncher::Door::File, file, answer});
}

void ScriptedDesktop::ExpectAddress(const QString &url, bool answer) {
    launcher.expected.push_back({ScriptedLauncher::Door::Address, url, answer});
}

void ScriptedDesktop::CheckAllAsked() {
    for (const ScriptedMessageBoxes::Expected &message : messageBoxes.expected)
        Fail(QStringLiteral("Expected message \"%1\" never came").arg(message.text));
    for (const ScriptedDialogHost::Expected &form : dialogHost.expected)
        Fail(QStringLiteral("Expected form \"%1\" never came").arg(form.form));
    FailIfAny(messageBoxes.expectedInputs.size(), "input boxes");
    FailIfAny(dialogs.openFiles.size(), "open dialogs");
    FailIfAny(dialogs.saveFiles.size(), "save dialogs");
    FailIfAny(dialogs.colours.size(), "colour dialogs");
    FailIfAny(dialogs.fonts.size(), "font dialogs");
    FailIfAny(dialogs.printers.size(), "printer dialogs");
    FailIfAny(launcher.expected.size(), "launches");
    FailIfAny(printers.expected.size(), "prints");
    messageBoxes.expected.clear();
    messageBoxes.expectedInputs.clear();
    dialogs.openFiles.clear();
    dialogs.saveFiles.clear();
    dialogs.colours.clear();
    dialogs.fonts.clear();
    dialogs.printers.clear();
    launcher.expected.clear();
    printers.expected.clear();
    dialogHost.expected.clear();
}

} // namespace support::testing
