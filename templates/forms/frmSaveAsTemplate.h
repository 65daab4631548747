// Saves a slice as a template.
#pragma once

#include "templates/SaveAsTemplate.h"

#include <memory>
#include <QDialog>

class QDialogButtonBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace dialogs {
class PathLabel;
}

namespace templates {

class ScratchFile;

class frmSaveAsTemplate : public QDialog {
    Q_OBJECT
public:
    // What the argument refers to must outlive the form.
    frmSaveAsTemplate(const SaveAsTemplateArgument &argument, QWidget *parent);
    ~frmSaveAsTemplate() override;

    dialogs::PathLabel *lblOutputPath() const { return lblOutputPath_; }
    dialogs::PathLabel *lblIconPath() const { return lblIconPath_; }
    QPushButton *cmdPath() const { return cmdPath_; }
    QPushButton *cmdIcon() const { return cmdIcon_; }
    QPushButton *cmdDrawnIcon() const { return cmdDrawnIcon_; }
    QPushButton *cmdOK() const { return cmdOK_; }
    QPushButton *cmdCancel() const { return cmdCancel_; }

    void cmdPath_Click();
    void cmdIcon_Click();
    // Takes the slice itself, drawn small, as the icon.
    void cmdDrawnIcon_Click();
    // Buttons that an error left off stay so until the form is closed.
    void cmdOK_Click();

private:
    void Build();
    QPushButton *AddButton(const char *name, const QString &caption);
    dialogs::PathLabel *AddPath(QGridLayout &grid, int row, const char *caption, const char *path,
                                const QString &text);
    void AddButtons(QGridLayout &grid);
    void ShowDefaults();
    void AskForIcon();
    void AskForPath();
    void TakeIcon(const QString &shown, const QString &file);
    void Tell(const QString &text);
    // The icon file and the template's path, asked for where they are missing; false when one still is.
    bool HasBoth();
    void Save();

    SaveAsTemplateArgument argument_;
    QString icon_; // the file
    std::unique_ptr<ScratchFile> drawn_;
    QLabel *picIcon_ = nullptr;
    dialogs::PathLabel *lblOutputPath_ = nullptr, *lblIconPath_ = nullptr;
    QPushButton *cmdPath_ = nullptr, *cmdIcon_ = nullptr, *cmdDrawnIcon_ = nullptr, *cmdOK_ = nullptr,
                *cmdCancel_ = nullptr;
};

} // namespace templates
