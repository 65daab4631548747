#include "mainwindow/icons/ReadyIcons.h"

#include <algorithm>

namespace mainwindow {

QImage FindReadyIcon(const QString &name, const IconLook &look) {
    const auto icons = ReadyIcons();
    const auto fits = [&](const ReadyIcon &icon) {
        return icon.look.side == look.side && icon.look.dark == look.dark && icon.look.faded == look.faded &&
               name == QLatin1String(icon.name);
    };
    const auto icon = std::find_if(icons.begin(), icons.end(), fits);
    if (icon == icons.end()) return {};
    return {reinterpret_cast<const uchar *>(icon->pixels), look.side, look.side,
            QImage::Format_ARGB32_Premultiplied};
}

} // namespace mainwindow
