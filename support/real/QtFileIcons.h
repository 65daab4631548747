// Icons of files as the platform shows them: from its icon theme by the kind of the file, from the shell on
// Windows.
#pragma once

#include "support/Desktop.h"

namespace support {

class QtFileIcons : public FileIcons {
public:
    QIcon AssociatedIcon(const QString &path) override;
};

} // namespace support
