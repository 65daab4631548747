// A scratch folder and short ways of asking, for the tests of storage.
#pragma once

#include "storage/Database.h"
#include "support/Error.h"
#include "tests/Errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

inline void PrintTo(const QString &text, std::ostream *stream) {
    *stream << '"' << text.toStdString() << '"';
}

namespace storage::test {

class StorageTest : public ::testing::Test {
protected:
    QString Path(const QString &name) const { return folder_.path() + QLatin1Char('/') + name; }
    QStringList Files() const {
        return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }
    // A database with a table Nodes of a few types and the given number of rows.
    Database Sample(const QString &name, int rows = 0) const {
        Database database = CreateDatabase(Path(name));
        database.CreateTable({QStringLiteral("Nodes"),
                              {{QStringLiteral("Key"), FieldType::Text, 38},
                               {QStringLiteral("Left"), FieldType::Single},
                               {QStringLiteral("Hidden"), FieldType::Boolean},
                               {QStringLiteral("Level"), FieldType::Long},
                               {QStringLiteral("Data"), FieldType::LongBinary}}});
        database.BeginTrans();
        for (int i = 0; i < rows; ++i)
            database.Execute(
                QStringLiteral("INSERT INTO Nodes ([Key], [Left], Hidden, [Level]) VALUES (?, ?, ?, ?)"),
                kFailOnError, {QStringLiteral("node%1").arg(i), i + 0.5, i % 2 == 1, i});
        database.CommitTrans();
        return database;
    }
    static QByteArray Content(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void WriteContent(const QString &path, const QByteArray &bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

private:
    QTemporaryDir folder_;
};

using tests::NumberOf;
using tests::Raised;

} // namespace storage::test
