// A slice as a text file of columns, and such a file into a map.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "document/DefaultNodes.h"
#include "document/UnsavedWork.h"
#include "output/csv/ExportMap.h"
#include "output/csv/ImportMap.h"
#include "support/Files.h"
#include "timeline/Arrange.h"

#include <QSet>

namespace cli {

namespace {

// The keys of the nodes that the filter leaves out; none without a filter.
QSet<QString> HiddenBy(document::MemoryWindow &window, diagram::Surface &slice,
                       const output::FilterChoice &filter, QTextStream &out) {
    if (!filter.IsGiven()) return {};
    for (diagram::Node &node : slice.Nodes()) node.SetHidden(false);
    ShowOnly(window, filter, out);
    QSet<QString> hidden;
    for (const diagram::Node &node : slice.Nodes())
        if (node.Hidden()) hidden.insert(node.Key());
    document::MarkSaved(window); // what the filter hides is no change of the map
    return hidden;
}

// A new slice behind the others, named after the file.
diagram::Surface &AddSlice(document::MemoryWindow &window, const QString &file) {
    diagram::Surface &slice = window.AddFlow1().Load(window.AddFlow1().UBound() + 1);
    document::LoadDefaults(slice);
    timeline::CarryArrangement(slice);
    window.TabStrip().SetTabCount(window.TabStrip().TabCount() + 1);
    window.TabStrip().SetTheTab(window.TabStrip().TabCount() - 1);
    const QString title = support::FileTitle(file);
    window.TabStrip().SetCaption(title.contains(u'.') ? support::GetFileTitle(file, false) : title);
    return slice;
}

} // namespace

int Csv(QStringList arguments, QTextStream &out) {
    const int number = TakeSlice(arguments);
    const output::FilterChoice filter = TakeFilter(arguments);
    ExpectFiles(arguments, 2);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    diagram::Surface &slice = SliceOf(window, number);
    output::ExportMap(window, slice, arguments[1], HiddenBy(window, slice, filter, out));
    out << output::NotInTextFiles() << "\n";
    return kGood;
}

int Import(QStringList arguments, QTextStream &out) {
    const bool asNew = TakeSwitch(arguments, QStringLiteral("--new"));
    if (asNew && arguments.contains(QStringLiteral("--slice")))
        throw UsageError(QStringLiteral("--new and --slice exclude each other"));
    const int number = TakeSlice(arguments);
    ExpectFiles(arguments, 2);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[1]);
    diagram::Surface &slice = asNew ? AddSlice(window, arguments[0]) : SliceOf(window, number);
    GiveSize(slice);
    output::ImportMap(window, slice, arguments[0]);
    session.Save(out);
    return kGood;
}

} // namespace cli
