// Templates: which there are, one put into a map, one made of a slice.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "settings/Settings.h"
#include "templates/BarDetails.h"
#include "templates/LoadTemplate.h"
#include "templates/SaveAsTemplate.h"
#include "templates/ScratchFile.h"

namespace cli {

namespace {

QString KindOf(const templates::BarItem &item) {
    if (templates::IsExternal(item)) return QStringLiteral("other");
    return item.tag == templates::kFlatTag ? QStringLiteral("flat") : QStringLiteral("template");
}

// A line for each bar, then one for each of its items and for each of its files that can't be read.
int List(QStringList arguments, QTextStream &out) {
    ExpectFiles(arguments, 0);
    int bad = 0;
    for (const templates::Bar &bar : templates::ListBars()) {
        out << bar.caption << "  " << bar.key << "\n";
        const templates::BarDetails details =
            templates::LoadBarDetails(bar.key, templates::FilesOfBar(bar.key));
        for (const templates::BarItem &item : details.items)
            out << "  " << KindOf(item) << "  " << item.caption << "  " << item.key << "\n";
        for (const templates::BadFile &file : details.badFiles)
            out << "  bad  " << file.description.simplified() << "\n";
        bad += int(details.badFiles.size());
    }
    return bad == 0 ? kGood : kFailed;
}

int Apply(QStringList arguments, QTextStream &out) {
    const int number = TakeSlice(arguments);
    ExpectFiles(arguments, 2);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[1]);
    templates::LoadTemplate(window, SliceOf(window, number), arguments[0]);
    session.Save(out);
    return kGood;
}

int Make(QStringList arguments, QTextStream &) {
    const int number = TakeSlice(arguments);
    ExpectFiles(arguments, 2);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    diagram::Surface &slice = SliceOf(window, number);
    const templates::ScratchFile icon(templates::IconFromDrawing(slice));
    templates::SaveAsTemplate(window, slice, icon.Path(), arguments[1]);
    return kGood;
}

struct Action {
    const char *name;
    int (*run)(QStringList, QTextStream &);
};
constexpr Action kActions[] = {{"list", List}, {"apply", Apply}, {"make", Make}};

} // namespace

int Template(QStringList arguments, QTextStream &out) {
    const QString name = arguments.isEmpty() ? QString() : arguments.takeFirst();
    settings::LoadSettings(); // the ending of templates
    for (const Action &action : kActions)
        if (name == QLatin1String(action.name)) return action.run(arguments, out);
    throw UsageError(QStringLiteral("template needs one of list, apply, make"));
}

} // namespace cli
