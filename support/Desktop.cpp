#include "support/Desktop.h"

#include "support/Error.h"

namespace support {

namespace {
Desktop *currentDesktop = nullptr;
} // namespace

Answer ClosingAnswer(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok:
        return Answer::Ok;
    case Buttons::YesNo:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

int MemoryFigure(const MemoryReading &reading) {
    if (reading.freeResourcesPercent) return 100 - *reading.freeResourcesPercent;
    return 100 - reading.memoryLoadPercent.value_or(0);
}

void SetDesktop(Desktop *desktop) { currentDesktop = desktop; }

Desktop &CurrentDesktop() {
    if (!currentDesktop) Raise(kErrObjectNotSet, QStringLiteral("CurrentDesktop"));
    return *currentDesktop;
}

void ReportWithMessageBoxes(const QString &title, const QString &text) {
    CurrentDesktop().messageBoxes.Show(text, Buttons::Ok, Icon::None, title);
}

} // namespace support
