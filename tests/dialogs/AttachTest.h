// What the tests of attachments and hyperlinks share: a map with a few nodes, and files to attach.
#pragma once

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "tests/document/MapTest.h"

#include <QFile>

namespace dialogs::testing {

class AttachTest : public document::testing::MapTest {
protected:
    AttachTest() {
        for (const char *key : {"a", "b", "c"})
            Surface().Nodes().Add(0, 0, 900, 600).SetKey(QLatin1String(key));
    }
    diagram::Surface &Surface() { return window->AddFlow1()[0]; }
    diagram::Node &Node(const char *key = "a") { return *Surface().Nodes().Find(QLatin1String(key)); }
    document::clsfrmMain &Settings() { return window->clsSettings(); }
    // A file in the folder of the maps.
    QString Saved(const QString &name, const QByteArray &bytes = "bytes") {
        QDir().mkpath(QFileInfo(MapFile(name)).path());
        QFile file(MapFile(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    // A file of that size that takes next to no room on the disk.
    QString Sparse(const QString &name, qint64 size) {
        QFile file(MapFile(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(file.resize(size));
        return file.fileName();
    }
    document::cAttachment &Attach(const QString &file, bool embed, const char *node = "a", QString key = {}) {
        document::cAttachment &attachment = Settings().Attachments().add(key);
        attachment.Node = QLatin1String(node);
        attachment.Filename = file;
        attachment.Embed = embed;
        return attachment;
    }
    // Saves the map and opens it again in a new window.
    void SaveAndOpen(const QString &name = QStringLiteral("plan.map")) {
        SaveAs(*window, MapFile(name));
        window = Loaded(MapFile(name));
    }
    std::unique_ptr<document::MemoryWindow> window = NewWindow();
};

} // namespace dialogs::testing
