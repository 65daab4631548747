#include "output/csv/TextFile.h"

#include "storage/text/CsvForm.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <QBuffer>
#include <QFile>

namespace output {

namespace {

// Makes a read-only file writable for as long as the object lives.
class Writable {
public:
    explicit Writable(const QString &path)
        : path_(path), wasReadOnly_(support::FileExists(path) && support::IsReadOnly(path)) {
        if (!wasReadOnly_) return;
        // What is put back must not let the user write, as permissions() may say for an administrator.
        permissions_ = QFile::permissions(path_) & ~QFileDevice::Permissions(QFileDevice::WriteUser);
        support::ClearReadOnly(path_);
    }
    ~Writable() {
        if (wasReadOnly_) QFile::setPermissions(path_, permissions_);
    }
    Writable(const Writable &) = delete;
    Writable &operator=(const Writable &) = delete;

private:
    QString path_;
    bool wasReadOnly_;
    QFileDevice::Permissions permissions_;
};

} // namespace

QString ReadFile(const QString &Path) {
    return support::PassOn("ReadFile", [&] {
        QByteArray bytes = support::ReadWholeFile(Path);
        QBuffer file(&bytes);
        file.open(QIODevice::ReadOnly);
        const storage::CsvForm form = storage::RecogniseCsv(file);
        std::u16string text;
        storage::CsvDecoder(form.encoding).Decode(QByteArrayView(bytes).sliced(form.start), text);
        return QString::fromStdU16String(text);
    });
}

void WriteFile(const QString &Path, const QString &Text) {
    support::PassOn("WriteFile", [&] {
        const Writable writable(Path);
        support::AtomicFile file(Path);
        file.Write(Text.toUtf8());
        file.Commit();
    });
}

} // namespace output
