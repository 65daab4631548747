// Writes pictures of every gesture, step by step, as the real view shows it to a real hand.
//   velmora-gestures [FOLDER]     (build/gallery/gestures when left out)
// Screens of higher resolution are filmed by the same program with another QT_SCALE_FACTOR.
#include "gallery/gestures/Film.h"
#include "gallery/gestures/Scenes.h"
#include "support/headless/HeadlessDesktop.h"

#include <cstdio>
#include <QApplication>
#include <QProcess>

namespace {

constexpr char kFactor[] = "QT_SCALE_FACTOR";

void FilmAll(const QDir &folder, std::span<const gallery::Scene> scenes, bool onlyHidpi) {
    for (const gallery::Scene &scene : scenes) {
        if (onlyHidpi && !scene.hidpi) continue;
        gallery::Film film(folder, scene.name);
        scene.play(film);
        std::printf("%s\n", scene.name);
    }
}

bool FilmAt(const char *factor, const QDir &folder) {
    QProcess again;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(kFactor), QLatin1String(factor));
    again.setProcessEnvironment(environment);
    again.start(QCoreApplication::applicationFilePath(), {folder.filePath(QLatin1String(factor))});
    return again.waitForFinished() && again.exitCode() == 0;
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
    support::SetDesktop(&desktop.Get());
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("build/gallery/gestures"));
    if (!QDir().mkpath(folder.path())) return 1;
    const bool scaled = qEnvironmentVariableIsSet(kFactor);
    for (const auto &scenes : {gallery::NodeScenes(), gallery::LinkScenes(), gallery::ViewScenes(),
                               gallery::KeyScenes(), gallery::DateScenes()})
        FilmAll(folder, scenes, scaled);
    if (scaled) return 0;
    return FilmAt("1.5", folder) && FilmAt("2", folder) ? 0 : 1;
}
