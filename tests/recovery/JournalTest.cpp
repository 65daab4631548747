#include "tests/recovery/JournalTest.h"

#include "diagram/edit/History.h"
#include "support/AtomicFile.h"

namespace recovery::testing {

KeptWindow::KeptWindow(std::unique_ptr<document::MemoryWindow> window, const QString &root)
    : window_(std::move(window)), journal(*this, root) {
    window_->AddFlow1().SetWatchers([this](diagram::Surface &surface) { journal.Watch(surface); },
                                    [this](diagram::Surface &surface) { journal.Unwatch(surface); });
}

diagram::Node &KeptWindow::AddNode(const QString &text, int slice) {
    const diagram::ActionGroup group(Slice(slice));
    diagram::Node &node = Slice(slice).Nodes().Add(0, 0, 900, 600);
    node.SetText(text);
    return node;
}

KeptMap JournalTest::OnlyLost() const {
    const std::vector<LostMap> lost = Lost();
    EXPECT_EQ(lost.size(), 1u);
    return lost.empty() ? KeptMap() : ReadLostMap(lost.front());
}

std::unique_ptr<document::MemoryWindow> JournalTest::Restored() {
    const std::vector<LostMap> lost = Lost();
    EXPECT_EQ(lost.size(), 1u);
    auto window = NewWindow();
    if (!lost.empty()) Restore(*window, ReadLostMap(lost.front()), lost.front().folder.path);
    return window;
}

int JournalTest::Folders() const {
    return int(QDir(Root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

QByteArray JournalTest::JournalBytes() const {
    const QStringList names = QDir(Root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_EQ(names.size(), 1);
    return support::ReadWholeFile(JournalPath(Root() + u'/' + names.value(0)));
}

QStringList Texts(document::MapWindow &window) {
    QStringList texts;
    for (const int index : window.AddFlow1().Indices())
        for (const diagram::Node &node : window.AddFlow1()[index].Nodes()) texts.append(node.Text());
    texts.sort();
    return texts;
}

QStringList Texts(const KeptMap &map) {
    QStringList texts;
    for (const auto &[id, slice] : map.slices)
        for (const auto &[item, node] : slice.nodes) texts.append(node.text);
    texts.sort();
    return texts;
}

QString Whole(document::MapWindow &window) {
    for (const int index : window.AddFlow1().Indices()) window.AddFlow1()[index].UnselectAll();
    QStringList lines = document::testing::Describe(window);
    for (const int index : window.AddFlow1().Indices())
        lines.append(diagram::testing::Dump(window.AddFlow1()[index], true));
    document::clsfrmMain &settings = window.clsSettings();
    for (const document::cLevel &level : settings.Levels()) lines.append(level.Key + level.LevelName);
    for (const document::cGroup &group : settings.Groups()) lines.append(group.Key + group.GroupName);
    for (const document::cHyperlink &link : settings.Hyperlinks()) lines.append(link.Key + link.Node);
    for (const document::cAttachment &file : settings.Attachments()) lines.append(file.Key + file.Filename);
    lines.append(settings.Database());
    return lines.join(u'\n');
}

} // namespace recovery::testing
