// Every type that names a form (kForm) has a row in app/main.cpp, which opens that form.
#include "tests/structure/Tree.h"

#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>

namespace {

using structure::testing::kRoot;
using structure::testing::TextOf;

// The types with a kForm, by the names of their forms. A type is the last one that begins before the kForm.
QMap<QString, QString> FormArguments() {
    static const QRegularExpression type(QStringLiteral(R"(\b(?:struct|class) (\w+)[^;{]*\{)"));
    static const QRegularExpression form(QStringLiteral(R"re(constexpr char kForm\[\] = "(\w+)")re"));
    QMap<QString, QString> arguments;
    QDirIterator files(kRoot.path(), {QStringLiteral("*.h")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = kRoot.relativeFilePath(files.next());
        if (path.startsWith(QLatin1String("build/")) || path.startsWith(QLatin1String("tests/"))) continue;
        const QString text = TextOf(path);
        auto found = form.globalMatch(text);
        while (found.hasNext()) {
            const auto match = found.next();
            auto before = type.globalMatch(text.left(match.capturedStart()));
            QString name;
            while (before.hasNext()) name = before.next().captured(1);
            arguments.insert(match.captured(1), name);
        }
    }
    return arguments;
}

} // namespace

TEST(Forms, EachOneHasItsRowInTheProgram) {
    const QMap<QString, QString> arguments = FormArguments();
    ASSERT_GT(arguments.size(), 10) << "the forms are found";
    const QString rows = TextOf(QStringLiteral("app/main.cpp"));
    for (auto form = arguments.begin(); form != arguments.end(); ++form) {
        const QRegularExpression row(
            QStringLiteral(R"((?:AddForm<[\w:]+, |forms\.Add<)(?:\w+::)*%1>\()").arg(form.value()));
        EXPECT_TRUE(row.match(rows).hasMatch())
            << form.key().toStdString() << ", asked for by " << form.value().toStdString();
    }
}
