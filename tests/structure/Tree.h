// The files of the source tree.
#pragma once

#include "tests/Paths.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>

namespace structure::testing {

inline const QDir kRoot(tests::Source(QString()));

// The text of a file of the tree, whose path is from the root.
inline QString TextOf(const QString &path) {
    QFile file(kRoot.filePath(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

} // namespace structure::testing
