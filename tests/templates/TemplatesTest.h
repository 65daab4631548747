// What the tests of templates share: a program's folder with a folder of templates, one of the user's own,
// and a window.
#pragma once

#include "diagram/model/Surface.h"
#include "document/MemoryWindow.h"
#include "document/Tags.h"
#include "tests/document/MapTest.h"
#include "tests/EnvironmentVariable.h"

namespace templates::testing {

using document::testing::ErrorOf;
using document::testing::OneColour;

class TemplatesTest : public document::testing::MapTest {
protected:
    TemplatesTest();
    ~TemplatesTest() override;

    // A file in the folder of templates beside the program, in folders below it too.
    QString InTemplates(const QString &name) const;
    QString Write(const QString &path, const QByteArray &bytes) const;
    // A surface file of that name with a node of that text.
    QString FlatTemplate(const QString &name, const QString &text = QStringLiteral("Idea")) const;
    // A template database of a slice with a node of that text.
    QString Template(const QString &name, const QString &text = QStringLiteral("Idea")) const;
    // A template database with those bytes in its fields.
    QString TemplateOf(const QString &name, const QByteArray &map, const QByteArray &image) const;
    QStringList FilesIn(const QString &folder) const;

    // The hidden node "DIAGRAM" of the surface; null without one.
    const diagram::Node *DiagramNode(diagram::Surface &surface) const;

    diagram::Surface &Flow() { return window->AddFlow1()[0]; }
    diagram::Node &AddNode(const QString &text);
    QString GroupOf(const diagram::Node &node) const {
        return document::GetTag(node, document::tags::kGroup);
    }
    QString LevelOf(const diagram::Node &node) const {
        return document::GetTag(node, document::tags::kLevel);
    }

    std::unique_ptr<document::MemoryWindow> window;

private:
    QTemporaryDir data_;
    const tests::EnvironmentVariable dataHome_{"XDG_DATA_HOME", QFile::encodeName(data_.path())};
};

// A small icon file.
QByteArray Icon(QRgb colour = qRgb(200, 0, 0));
// The texts of the nodes in sight, in the order of adding.
QStringList Texts(const diagram::Surface &surface);
// Everything that a surface file and the background hold, apart from identities.
QByteArray ContentOf(const diagram::Surface &surface);

} // namespace templates::testing
