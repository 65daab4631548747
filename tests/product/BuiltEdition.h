// An edition as the build makes it, for the tests that read it.
#pragma once

#include "document/MemoryWindow.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>
#include <memory>
#include <QDir>
#include <QString>
#include <QStringList>

namespace tests {

// Each edition is built once for all tests, which only read it. Its folder is the program's folder while a
// test runs.
class BuiltEdition : public testing::Test {
protected:
    ~BuiltEdition() override;

    void Build(const char *name);
    // Another build of the same edition, into a folder that is empty.
    void BuildInto(const QString &folder, const char *name);

    QDir Folder() const { return folder_; }
    // The texts of the edition.
    QDir Texts() const { return texts_; }
    // The sample map.
    QString Startup() const;
    // Paths below Templates of the texts, without ending: "Strategy/SWOT Analysis".
    QStringList TemplateNames() const;
    QString TemplatePath(const QString &name) const;
    std::unique_ptr<document::MemoryWindow> Open(const QString &path);

    support::testing::ScriptedDesktop desktop_;

private:
    QDir folder_, texts_;
};

} // namespace tests
