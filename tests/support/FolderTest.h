// A folder of a test's own, and files in it.
#pragma once

#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace support::testing {

class FolderTest : public ::testing::Test {
protected:
    QString PathOf(const QString &name) const { return folder_.filePath(name); }
    void Make(const QString &name, const QByteArray &content = {}) const {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    // All files in the folder, hidden ones included.
    QStringList Names() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    // Expects `body` to raise `number` with the path of `name` in its description.
    template <typename Body>
    void ExpectError(long number, const QString &name, Body body) const {
        const Error error = tests::ErrorOf(body);
        EXPECT_EQ(error.Number(), number) << error.what();
        EXPECT_TRUE(error.Description().contains(PathOf(name))) << error.what();
    }
    QTemporaryDir folder_;
};

} // namespace support::testing
