#include "diagram/view/SurfaceGuard.h"

#include "diagram/interaction/Interaction.h"
#include "diagram/model/Surface.h"
#include "support/Error.h"

namespace diagram {

void SurfaceGuard::Failed(const char *routine) {
    const support::Error error = support::CurrentError(QStringLiteral("SurfaceView"));
    interaction_.Cancel();
    bool cancelDisplay = false;
    surface_.Events().Error(surface_, error.Number(), error.Description(), cancelDisplay);
    if (!cancelDisplay)
        support::ShowReport(QStringLiteral("SurfaceView"), QString::fromLatin1(routine), error);
}

} // namespace diagram
